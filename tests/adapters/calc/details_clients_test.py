"""The details as clients in Python and in Basic read and write them."""

import json
import unittest

import uno  # noqa: F401
from TBVNonPara import AnalysisException
from TBVNonPara.TBVNPMethod import tbvNPKWallis, tbvNPMannU

from office import Office, TestCase, cells_of

COLUMNS = [["Before", 12, 15, 11, 18, 14, 13], ["After", 17, 21, 16, 23, 19, 24], ["Later", 16, 14, 13, 12, 20, 19]]
# By hand: 2 of the 36 pairs have Before above After, and 8 of the 924 arrangements are as far off.
SUPERIORITY, EXACT = 2 / 36, 8 / 924
SERVICE = "TBVNonPara.clsNonParaDetails"
MACRO = """
Function Details(name, place) As Variant
    Dim object As Object
    On Error GoTo Failed
    object = CreateUnoService("TBVNonPara.clsNonParaDetails")
    object.Method = TBVNonPara.TBVNPMethod.tbvNPMannU
    object.Headers = True
    object.YRange = "Data!A1:A7"
    object.XRange = "Data!B1:B7"
    object.Confidence = 90
    object.Calculate
    If place <> "" Then
        Details = object.WriteTo(Address:=place, OverWrite:=True)
    ElseIf name = "Text" Then
        Details = object.Text
    ElseIf name = "nothing" Then
        Details = IsEmpty(object.Value("p.exact.reason"))
    Else
        Details = object.Value(name)
    End If
    Exit Function
Failed:
    Details = Err & "|" & Error$
End Function
"""


def setUpModule():
    global office
    office = unittest.enterModuleContext(Office())


class Client(TestCase):
    def setUp(self):
        self.document = office.open_with(COLUMNS)
        self.sheet = self.document.Sheets.getByIndex(0)
        self.document.UndoManager.clear()

    def tearDown(self):
        self.document.close(True)

    def make(self, method=tbvNPMannU, first="Data!A1:A7", second="Data!B1:B7"):
        details = office.create(SERVICE)
        details.Method = method
        details.Headers = True
        details.YRange, details.XRange = first, second
        return details

    def calculated(self, **settings):
        details = self.make()
        for name, value in settings.items():
            setattr(details, name, value)
        details.Calculate()
        return details

    def raised(self, number, words, work):
        with self.assertRaises(AnalysisException) as caught:
            work()
        self.assertEqual(caught.exception.Number, number)
        self.assertIn(words, caught.exception.Message)


class InPython(Client):
    def test_figures_are_read_by_name(self):
        details = self.calculated()
        self.assertAlmostEqual(details.Value("effect.superiority"), SUPERIORITY, 14)
        self.assertAlmostEqual(details.Value("p.exact.two"), EXACT, 14)
        figures = json.loads(details.Json)
        self.assertEqual(details.Value("effect.superiority.low"), figures["effect"]["superiority"]["low"])
        self.assertIn("95 % CI", details.Text)
        self.assertIsNone(details.Method)

    def test_groups_are_compared_as_is_asked_for(self):
        details = self.make(tbvNPKWallis, "Data!A1:C7", "")
        details.Confidence, details.Adjust, details.Control, details.Trend = 90, "bonferroni", "Before", True
        details.Calculate()
        comparisons = json.loads(details.Json)["comparisons"]
        self.assertEqual(len(comparisons), 2)
        self.assertIn("90 % CI", details.Text)
        self.assertIn("Bonferroni", details.Text)
        self.assertIn("trend", details.Text.lower())

    def test_they_are_written_onto_a_sheet_and_taken_back_in_one_undo(self):
        self.assertEqual(self.calculated().WriteTo("", False), "Details!$A$1:$F$27")
        self.assertEqual(self.document.Sheets.ElementNames, ("Data", "Details"))
        cells = cells_of(self.document.Sheets.getByName("Details"))
        self.assertEqual(cells[1][0], "Data = Data!$A$1:$A$7, Data!$B$1:$B$7")
        self.assertAlmostEqual(next(row for row in cells if row[0] == "Exact")[2], EXACT, 14)
        self.assertEqual(self.document.UndoManager.AllUndoActionTitles, ("Details",))
        self.document.UndoManager.undo()
        self.assertEqual(self.document.Sheets.ElementNames, ("Data",))

    def test_a_place_that_holds_something_is_overwritten_only_when_asked_for(self):
        self.sheet.getCellRangeByName("F3").Value = 7
        details = self.calculated(OutputRange="Data!F1")
        self.raised(-2147221504 + 5031, "Data!F3", lambda: details.WriteTo("", False))
        self.assertEqual(cells_of(self.sheet)[0], ("Before", "After", "Later", "", "", ""))
        self.assertEqual(details.WriteTo("Data!F1", True), "Data!$F$1:$K$27")
        self.assertEqual(self.sheet.getCellRangeByName("F1").String, "Details")
        self.assertEqual(self.document.Sheets.ElementNames, ("Data",))
        self.document.UndoManager.undo()
        self.assertEqual(self.sheet.getCellRangeByName("F3").Value, 7)

    def test_mistakes_are_told_of(self):
        details = self.make()
        self.raised(91, "call Calculate first", lambda: details.Value("p.exact.two"))
        self.raised(5, "50 to 99.9", lambda: setattr(details, "Confidence", 0.95))
        self.raised(5, "holm, bonferroni, bh or none", lambda: setattr(details, "Adjust", "tukey"))
        self.raised(13, "", lambda: setattr(details, "Confidence", "much"))
        details.Control = "Nobody"
        self.raised(5, "Control is for the tests of several groups", details.Calculate)
        details.Control = ""
        details.Calculate()
        self.raised(5, "effect", lambda: details.Value("nothing"))

    def test_the_highest_confidence_can_be_had(self):
        self.assertIn("99.9 % CI", self.calculated(Confidence=99.9).Text)

    def test_a_document_that_is_given_is_the_one_that_addresses_mean(self):
        hidden = office.open(Hidden=True)
        try:
            hidden.Sheets.getByIndex(0).getCellRangeByName("A1:B3").setDataArray(((1, 4), (2, 5), (3, 6)))
            details = office.context.ServiceManager.createInstanceWithArgumentsAndContext(
                SERVICE, (hidden,), office.context)
            details.YRange, details.XRange = "A1:A3", "B1:B3"
            details.Calculate()
            # By hand: one of the 20 ways to choose three ranks of six, at either end.
            self.assertAlmostEqual(details.Value("p.exact.two"), 2 / 20, 14)
            details.WriteTo("", False)
            self.assertEqual(hidden.Sheets.ElementNames[1], "Details")
        finally:
            hidden.close(True)


class InBasic(Client):
    @classmethod
    def setUpClass(cls):
        libraries = office.create("com.sun.star.script.ApplicationScriptLibraryContainer")
        libraries.loadLibrary("Standard")
        libraries.getByName("Standard").insertByName("Client", MACRO)

    def call(self, *arguments):
        providers = office.create("com.sun.star.script.provider.MasterScriptProviderFactory")
        script = providers.createScriptProvider("").getScript(
            "vnd.sun.star.script:Standard.Client.Details?language=Basic&location=application")
        return script.invoke(arguments, (), ())[0]

    def test_figures_text_and_sheets_are_had(self):
        self.assertAlmostEqual(self.call("effect.superiority", ""), SUPERIORITY, 14)
        self.assertIn("90 % CI", self.call("Text", ""))
        self.assertEqual(self.call("", "Data!F1"), "Data!$F$1:$K$27")
        self.assertEqual(self.sheet.getCellRangeByName("F1").String, "Details")

    def test_errors_are_those_of_every_client(self):
        self.assertTrue(self.call("nobody", "").startswith("440|"))


if __name__ == "__main__":
    unittest.main()
