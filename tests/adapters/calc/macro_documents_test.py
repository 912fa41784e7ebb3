"""Documents with macros: those in the VBA mode, as .xlsm files are, and macros that start while a report is made."""

import unittest

import uno  # noqa: F401
import unohelper
from com.sun.star.util import XModifyListener
from TBVNonPara import AnalysisException
from TBVNonPara.TBVNPMethod import tbvNPKWallis, tbvNPMannU

from office import Office, TestCase, cells_of

OBJECT_ERROR = -2147221504
RUN_IN_PROGRESS = OBJECT_ERROR + 5062
TITLE = "Mann-Whitney Test Results for:"
COLUMNS = [["Before", 1, 2, 3], ["After", 4, 5, 6]]
MACRO = """
Option VBASupport 1
Function Analyse(place) As String
    Dim request As Object
    On Error GoTo Failed
    Set request = TBVNonPara.clsNonPara.createFor(ThisComponent)
    request.Headers = True
    request.YRange = "Data!A1:A4"
    request.XRange = "Data!B1:B4"
    request.OutputRange = place
    request.Results
    Analyse = ""
    Exit Function
Failed:
    Analyse = Error$
End Function
"""


class Listener(unohelper.Base, XModifyListener):
    """Does something at each change of a document, but not at those that it makes itself."""

    def __init__(self, document, work):
        self.work, self.busy = work, False
        document.addModifyListener(self)

    def modified(self, event):
        if not self.busy:
            self.busy = True
            self.work()
            self.busy = False

    def disposing(self, event):
        pass


class DocumentCase(TestCase):
    @classmethod
    def setUpClass(cls):
        cls.office = cls.enterClassContext(Office())

    def open(self, **properties):
        self.document = self.office.open(MacroExecutionMode=4, **properties)
        self.addCleanup(self.document.close, True)
        self.sheet = self.document.getSheets().getByIndex(0)
        self.sheet.Name = "Data"
        self.sheet.getCellRangeByName("A1:B4").setDataArray(tuple(zip(*COLUMNS)))

    def request(self, method=tbvNPMannU):
        request = self.office.create("TBVNonPara.clsNonPara")
        request.Method = method
        request.Headers = True
        request.YRange = "Data!A1:A4" if method == tbvNPMannU else "Data!A1:B4"
        request.XRange = "Data!B1:B4" if method == tbvNPMannU else ""
        return request

    def sheets(self):
        return self.document.getSheets().ElementNames


class VbaMode(DocumentCase):
    def open(self, **properties):
        super().open(**properties)
        libraries = self.document.BasicLibraries
        if not libraries.hasByName("Standard"):
            libraries.createLibrary("Standard")
        libraries.loadLibrary("Standard")
        self.modules = libraries.getByName("Standard")
        self.modules.insertByName("Module", MACRO)
        libraries.VBACompatibilityMode = True

    def call(self, place):
        return self.document.getScriptProvider().getScript(
            "vnd.sun.star.script:Standard.Module.Analyse?language=Basic&location=document").invoke(
                (place,), (), ())[0]

    def test_a_macro_gets_its_report_on_a_new_sheet(self):
        for hidden in (False, True):
            with self.subTest(hidden=hidden):
                self.open(Hidden=hidden)
                self.assertEqual(self.call(""), "")
                self.assertEqual(self.sheets(), ("Data", "Sheet2"))
                self.assertEqual(cells_of(self.document.getSheets().getByIndex(1))[0][0], TITLE)

    def test_a_macro_gets_its_report_at_a_cell_and_no_sheet_or_module_besides(self):
        for hidden in (False, True):
            with self.subTest(hidden=hidden):
                self.open(Hidden=hidden)
                modules = self.modules.ElementNames
                self.assertEqual(self.call("Data!D1"), "")
                self.assertEqual(self.sheet.getCellRangeByName("D1").String, TITLE)
                self.assertEqual((self.sheets(), self.modules.ElementNames), (("Data",), modules))

    def test_one_undo_empties_the_new_sheet(self):
        self.open()
        self.call("")
        self.document.UndoManager.undo()
        sheet = self.document.getSheets().getByName("Sheet2")
        self.assertEqual(cells_of(sheet), (("",),))
        self.assertEqual(cells_of(self.sheet), tuple(zip(*COLUMNS)))


class MacrosDuringARun(DocumentCase):
    """A change of the document may start a macro, and that another run."""

    def setUp(self):
        self.open()
        self.told = []

    def results_at_each_change(self, request):
        def work():
            try:
                request.Results(True)
                self.told.append(0)
            except AnalysisException as error:
                self.told.append(error.Number)
        Listener(self.document, work)

    def test_a_run_of_another_object_is_refused_and_the_report_is_that_of_the_outer_one(self):
        inner = self.request(tbvNPKWallis)
        inner.OutputRange = "Data!K1"
        self.results_at_each_change(inner)
        self.request().Results()
        self.assertEqual(set(self.told), {RUN_IN_PROGRESS})
        self.assertEqual(cells_of(self.document.getSheets().getByIndex(1))[0][0], TITLE)
        self.assertEqual(self.sheet.getCellRangeByName("K1").String, "")

    def test_a_run_of_the_same_object_is_refused_and_one_undo_takes_the_outer_one_back(self):
        request = self.request()
        self.results_at_each_change(request)
        self.document.UndoManager.clear()
        request.Results()
        self.assertEqual(set(self.told), {RUN_IN_PROGRESS})
        self.assertEqual(self.document.UndoManager.AllUndoActionTitles, ("Mann-Whitney Test Results",))
        self.assertFalse(self.document.hasControllersLocked())

    def test_the_next_run_is_taken_when_the_outer_one_has_ended(self):
        self.results_at_each_change(self.request())
        self.request().Results()
        self.told.clear()
        self.request(tbvNPKWallis).Results()
        self.assertEqual(len(self.sheets()), 3)


if __name__ == "__main__":
    unittest.main()
