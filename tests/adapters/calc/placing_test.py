"""Where a report goes: undo, protection, what stands in the way, several documents, what must stay as it was."""

import pathlib
import tempfile
import threading
import unittest

import uno  # noqa: F401
import unohelper
from com.sun.star.uno import RuntimeException
from com.sun.star.util import XModifyListener
from TBVNonPara import AnalysisException

from office import Office, TestCase, cells_of, filter_rows

OBJECT_ERROR = -2147221504
CALC_ERROR = 1004
COLUMNS = [["Before", 1, 2, 3], ["After", 4, 5, 6]]
EVERYTHING = 1023


def setUpModule():
    global office
    office = unittest.enterModuleContext(Office())


def undo_titles(document):
    return list(document.UndoManager.AllUndoActionTitles)


class Meddler(unohelper.Base, XModifyListener):
    """Changes a cell whenever others change, as a macro of the user's may."""

    def __init__(self, watched, cell):
        self.watched, self.cell, self.busy = watched, cell, False
        watched.addModifyListener(self)

    def modified(self, event):
        if not self.busy:
            self.busy = True
            self.cell.Value = 99

    def disposing(self, event):
        pass


class Closer(Meddler):
    """Closes the document when a cell has changed, beside the one who changed it: as soon as that one lets go."""

    def __init__(self, watched, document):
        super().__init__(watched, None)
        self.closing = threading.Thread(target=document.close, args=(True,))

    def modified(self, event):
        if not self.busy:
            self.busy = True
            self.closing.start()


class Placing(TestCase):
    def setUp(self):
        self.document = office.open_with(COLUMNS)
        self.sheet = self.document.Sheets.getByIndex(0)
        self.request = self.make_request()

    def tearDown(self):
        try:
            self.document.close(True)
        except RuntimeException:
            pass

    def make_request(self, output=None, method=0):
        request = office.create("TBVNonPara.clsNonPara")
        request.Method = method
        request.Headers = True
        request.OutputDescriptives = True
        request.YRange = "Data!A1:A4"
        request.XRange = "Data!B1:B4"
        if output:
            request.OutputRange = output
        return request

    def refused(self, number, request, words):
        before = cells_of(self.sheet), self.document.Sheets.ElementNames, undo_titles(self.document)
        with self.assertRaises(AnalysisException) as caught:
            request.Results(True)
        self.assertEqual(caught.exception.Number, number)
        self.assertIn(words, caught.exception.Message)
        after = cells_of(self.sheet), self.document.Sheets.ElementNames, undo_titles(self.document)
        self.assertEqual(after, before)
        self.assertFalse(self.document.hasControllersLocked())

    def test_one_undo_takes_back_the_report_and_its_sheet(self):
        self.document.UndoManager.clear()
        self.request.Results()
        self.assertEqual(self.document.Sheets.Count, 2)
        self.assertEqual(undo_titles(self.document), ["Mann-Whitney Test Results"])
        self.document.UndoManager.undo()
        self.assertEqual(self.document.Sheets.ElementNames, ("Data",))
        self.document.UndoManager.redo()
        self.assertEqual(self.document.Sheets.Count, 2)
        self.assertEqual(cells_of(self.document.Sheets.getByIndex(1))[0][0], "Mann-Whitney Test Results for:")

    def test_one_undo_gives_back_what_a_report_replaced(self):
        request = self.make_request("Data!D1")
        self.sheet.getCellRangeByName("D2").String = "mine"
        self.sheet.getCellRangeByName("E2").Formula = "=1+1"
        self.document.UndoManager.clear()
        with self.assertRaises(AnalysisException) as caught:
            request.Results()
        self.assertEqual(caught.exception.Number, OBJECT_ERROR + 5031)
        self.assertEqual(undo_titles(self.document), [])
        request.Results(True)
        self.assertEqual(self.sheet.getCellRangeByName("D1").String, "Mann-Whitney Test Results for:")
        self.document.UndoManager.undo()
        self.assertEqual(self.sheet.getCellRangeByName("D1").String, "")
        self.assertEqual(self.sheet.getCellRangeByName("D2").String, "mine")
        self.assertEqual(self.sheet.getCellRangeByName("E2").Formula, "=1+1")

    def test_the_report_arrives_with_its_formats(self):
        request = self.make_request("Data!D1")
        request.Results()
        cell = self.sheet.getCellRangeByName
        formats = self.document.NumberFormats
        self.assertEqual(cell("D1").CharWeight, 150)
        self.assertEqual(formats.getByKey(cell("E8").NumberFormat).FormatString, "0.0000")
        self.assertEqual(formats.getByKey(cell("G8").NumberFormat).FormatString, "0.0")
        self.assertEqual(formats.getByKey(cell("E13").NumberFormat).FormatString, "0")
        self.assertGreater(cell("D7").BottomBorder.OuterLineWidth + cell("D8").TopBorder.OuterLineWidth, 0)
        self.assertGreater(cell("D13").LeftBorder.OuterLineWidth, 0)
        self.assertEqual(cell("E6").HoriJustify.value, "CENTER")
        self.assertEqual(cell("D16").CharWeight, 150)

    def test_numbers_are_shown_as_those_of_the_document_are(self):
        german = uno.createUnoStruct("com.sun.star.lang.Locale", "de", "DE", "")
        ordinary = self.document.StyleFamilies.getByName("CellStyles").getByName("Default")
        ordinary.NumberFormat = self.document.NumberFormats.getStandardIndex(german)
        self.sheet.getCellRangeByName("K1").Value = 0.5
        self.assertEqual(self.sheet.getCellRangeByName("K1").String, "0,5")
        self.make_request("Data!D1").Results()
        texts = [self.sheet.getCellRangeByName(address).String for address in ("E8", "G8", "E13", "G17")]
        self.assertEqual(texts, ["1,0000", "1,0", "3", "0,1000"])

    def test_numbers_follow_the_settings_of_the_office_where_the_documents_do(self):
        self.make_request("Data!D1").Results()
        formats = self.document.NumberFormats
        for address in ("E8", "G8", "E13", "G17", "K1"):
            cell = self.sheet.getCellRangeByName(address)
            self.assertEqual(formats.getByKey(cell.NumberFormat).Locale.Language, "", address)

    def large(self):
        """2 x 2,000 rows: U is 2,000,000 and more."""
        for column, first in enumerate((1.5, 2.25)):
            rows = tuple((first + row,) for row in range(2000))
            self.sheet.getCellRangeByPosition(column, 1, column, 2000).setDataArray(rows)

    def large_request(self, output=None):
        request = self.make_request(output)
        request.OutputDescriptives = False
        request.YRange, request.XRange = "Data!A1:A2001", "Data!B1:B2001"
        return request

    def stays_within_its_column(self, cells, row, column):
        """Whether a cell is cut at its column's edge: numbers are, and texts with something to their right."""
        if isinstance(cells[row][column], float):
            return True
        return column + 1 < len(cells[row]) and cells[row][column + 1] != ""

    def optimal_widths(self, sheet):
        """What the office takes for the width of each column, by the cells that end at the column's edge."""
        cells = cells_of(sheet)
        widths = {}
        for column in range(len(cells[0])):
            rows = [row for row in range(len(cells)) if self.stays_within_its_column(cells, row, column)]
            for row in set(range(len(cells))) - set(rows):
                sheet.getCellByPosition(column, row).String = ""
            if rows:
                sheet.getColumns().getByIndex(column).OptimalWidth = True
                widths[column] = sheet.getColumns().getByIndex(column).Width
        return widths

    def test_every_column_of_a_new_sheet_is_as_wide_as_the_office_would_have_it(self):
        self.large()
        self.sheet.getCellRangeByName("A1").String = "A label that is much longer than a column is wide"
        # One block in the other order, and a sequence of two categories.
        self.sheet.getCellRangeByName("B2").Value = 0.25
        self.sheet.getCellRangeByName("C1:C2001").setDataArray((("Order",),) + (("first",), ("second",)) * 1000)
        pair, groups = ("Data!A1:A2001", "Data!B1:B2001"), ("Data!A1:B2001", "")
        for method, ranges in enumerate([pair] * 4 + [groups] * 3 + [("Data!C1:C2001", "")]):
            with self.subTest(method=method):
                request = self.large_request()
                request.Method = method
                request.OutputDescriptives = True
                request.YRange, request.XRange = ranges
                self.document.CurrentController.ActiveSheet = self.sheet
                request.Results()
                report = self.document.Sheets.getByIndex(self.document.Sheets.Count - 1)
                columns = report.getColumns()
                fitted = [columns.getByIndex(column).Width for column in range(len(cells_of(report)[0]))]
                optimal = self.optimal_widths(report)
                self.assertGreater(len(optimal), 1)
                for column, width in optimal.items():
                    self.assertGreaterEqual(fitted[column], width, column)

    def test_the_title_of_a_new_sheet_runs_over_the_cells_beside_it(self):
        self.large()
        self.sheet.getCellRangeByName("A1").String = "A label that is much longer than a column is wide"
        self.large_request().Results()
        self.assertLess(self.document.Sheets.getByIndex(1).getColumns().getByIndex(0).Width, 3500)

    def test_beside_data_only_columns_without_any_are_widened_for_words_and_all_for_numbers(self):
        self.large()
        width = self.sheet.getColumns().getByIndex(3).Width
        self.sheet.getCellRangeByName("D500").String = "mine"
        self.large_request("Data!D1").Results()
        columns = self.sheet.getColumns()
        self.assertEqual(self.sheet.getCellRangeByName("D6").String, "U")
        # By hand: of the 4,000,000 pairs the first is above in those with a larger whole part.
        self.assertEqual(self.sheet.getCellRangeByName("D7").Value, 2001000)
        self.assertEqual(self.sheet.getCellRangeByName("D7").String, "2001000.0000")
        self.assertGreater(columns.getByIndex(3).Width, width)
        for column in range(0, 3):
            self.assertEqual(columns.getByIndex(column).Width, width)

    def test_undo_gives_back_the_widths(self):
        self.large()
        widths = [self.sheet.getColumns().getByIndex(column).Width for column in range(8)]
        self.large_request("Data!D1").Results()
        self.assertNotEqual([self.sheet.getColumns().getByIndex(c).Width for c in range(8)], widths)
        self.document.UndoManager.undo()
        self.assertEqual([self.sheet.getColumns().getByIndex(c).Width for c in range(8)], widths)

    def test_subscripts_arrive(self):
        request = self.make_request("Data!D1", method=2)
        request.Results()
        lowered = []
        for row in range(40):
            for column in range(3, 10):
                for paragraph in self.sheet.getCellByPosition(column, row):
                    for portion in paragraph:
                        if portion.CharEscapement < 0:
                            lowered.append(portion.String)
        self.assertEqual(lowered, ["s"])

    def test_refuses_a_protected_sheet(self):
        request = self.make_request("Data!D1")
        self.sheet.protect("")
        self.refused(CALC_ERROR, request, "protected")
        self.sheet.unprotect("")
        request.Results()

    def test_refuses_a_new_sheet_where_the_structure_is_protected(self):
        self.document.protect("")
        self.refused(CALC_ERROR, self.request, "structure is protected")

    def test_refuses_merged_cells_in_the_way(self):
        self.sheet.getCellRangeByName("E3:F4").merge(True)
        self.refused(CALC_ERROR, self.make_request("Data!D1"), "merged cells")

    def test_refuses_rows_that_a_filter_hides_and_keeps_what_stands_there(self):
        self.sheet.getCellRangeByName("D2").String = "mine"
        self.sheet.getCellRangeByName("D4").Formula = "=1+1"
        filter_rows(self.document, "A1:B4", 0, 2)
        self.refused(CALC_ERROR, self.make_request("Data!D1"), "A filter hides rows of $D$1:")
        self.make_request("Data!D5").Results()
        self.assertEqual(self.sheet.getCellRangeByName("D5").String, "Mann-Whitney Test Results for:")

    def test_rows_hidden_by_hand_take_their_part_of_a_report(self):
        self.make_request("Data!D1").Results()
        self.sheet.getRows().getByIndex(1).IsVisible = False
        self.make_request("Data!M1").Results()
        cells = self.sheet.getCellRangeByName
        self.assertEqual(cells("M1:R20").getDataArray(), cells("D1:I20").getDataArray())

    def test_refuses_to_cover_a_part_of_an_array_formula(self):
        array = self.sheet.getCellRangeByName("C3:D4")
        array.setArrayFormula("=A2:B3*10")
        self.sheet.getCellRangeByName("E2").String = "mine"
        self.refused(CALC_ERROR, self.make_request("Data!D1"), "a part of the array formula in $C$3:$D$4")
        self.assertEqual(array.getDataArray(), ((10.0, 40.0), (20.0, 50.0)))

    def test_an_array_formula_that_is_covered_whole_is_replaced_and_comes_back(self):
        array = self.sheet.getCellRangeByName("D3:E4")
        array.setArrayFormula("=A2:B3*10")
        self.document.UndoManager.clear()
        self.make_request("Data!D1").Results(True)
        self.assertEqual(array.getArrayFormula(), "")
        self.document.UndoManager.undo()
        self.assertEqual(array.getArrayFormula(), "{=A2:B3*10}")

    def meddled(self, undo):
        """A report over cells of the user's, into which a macro writes while it is placed."""
        request = self.make_request("Data!D1")
        cell = self.sheet.getCellRangeByName
        cell("D2").String, cell("E3").Formula = "mine", "=1+1"
        cell("D9").String, cell("D10").Value = "2019", 42
        self.document.UndoManager.clear()
        self.document.IsUndoEnabled = undo
        meddler = Meddler(cell("D1"), cell("E6"))
        try:
            with self.assertRaises(AnalysisException) as caught:
                request.Results(True)
        finally:
            cell("D1").removeModifyListener(meddler)
        self.assertTrue(meddler.busy)
        self.assertEqual(caught.exception.Number, CALC_ERROR)
        self.assertIn("did not arrive whole in $D$1:", caught.exception.Message)
        self.assertEqual(cell("D1").String, "")
        self.assertEqual(cell("D2").String, "mine")
        self.assertEqual(cell("E3").Formula, "=1+1")
        self.assertEqual(cell("D9").Formula, "'2019")
        self.assertEqual(cell("D10").Value, 42)
        self.assertEqual(cell("E6").String, "")
        self.assertEqual(cell("D16").String, "")
        self.assertEqual(undo_titles(self.document), [])

    def test_a_report_that_does_not_arrive_whole_is_taken_back(self):
        self.meddled(True)

    def test_a_report_is_taken_back_from_a_document_without_undo_steps(self):
        self.meddled(False)

    def test_refuses_a_read_only_document(self):
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "kept.ods"
            self.document.storeToURL(file.as_uri(), ())
            self.document.close(True)
            self.document = office.open(file.as_uri(), ReadOnly=True)
            self.sheet = self.document.Sheets.getByIndex(0)
            self.refused(CALC_ERROR, self.make_request("Data!D1"), "read-only")
            self.refused(CALC_ERROR, self.make_request(), "read-only")

    def test_a_document_closed_in_between_is_an_error(self):
        request = self.make_request("Data!D1")
        self.document.close(True)
        with self.assertRaises(AnalysisException) as caught:
            request.Results()
        self.assertEqual(caught.exception.Number, CALC_ERROR)
        other = office.open_with(COLUMNS)
        try:
            self.make_request("Data!D1").Results()
            self.assertEqual(cells_of(other.Sheets.getByIndex(0))[0][3], "Mann-Whitney Test Results for:")
        finally:
            other.close(True)

    def test_a_document_closed_while_its_report_comes_ends_that_test_alone(self):
        kruskal_wallis = 6
        for _ in range(3):
            document = office.open_with([["x", i, i + 1, i + 3] for i in range(60)])
            closer = Closer(document.Sheets.getByIndex(0).getCellRangeByName("BK1"), document)
            request = self.make_request("Data!BK1")
            request.Method, request.YRange = kruskal_wallis, "Data!A1:BH4"
            number = CALC_ERROR
            try:
                request.Results()  # It may be done before the document is closed.
            except AnalysisException as error:
                number = error.Number
            closer.closing.join()
            self.assertEqual(number, CALC_ERROR)
        self.document.CurrentController.Frame.activate()
        self.make_request("Data!D1").Results()
        self.assertEqual(self.sheet.getCellRangeByName("D1").String, "Mann-Whitney Test Results for:")

    def test_ranges_stay_with_the_document_they_were_named_in(self):
        other = office.open_with([["x", 9, 9, 9], ["y", 8, 8, 8]])
        try:
            self.document.CurrentController.Frame.activate()
            first = self.make_request("Data!D1")
            other.CurrentController.Frame.activate()
            second = self.make_request("Data!D1")
            first.Results()
            second.Results()
            for document, label in ((self.document, "Before"), (other, "x")):
                cells = cells_of(document.Sheets.getByIndex(0))
                self.assertEqual(cells[0][3], "Mann-Whitney Test Results for:")
                self.assertEqual(cells[6][4], label)
        finally:
            other.close(True)

    def test_everything_else_stays_as_it_was(self):
        sheets = self.document.Sheets
        sheets.insertNewByName("Other", 1)
        other = sheets.getByName("Other")
        other.getCellRangeByName("A1").Value = 42
        request = self.make_request("Data!D1")
        clipboard = office.create("com.sun.star.datatransfer.clipboard.SystemClipboard")
        before = clipboard.getContents()
        names = sheets.ElementNames
        request.Results()
        self.assertEqual(sheets.ElementNames, names)
        self.assertEqual(cells_of(other), ((42.0,),))
        self.assertEqual(clipboard.getContents(), before)
        self.assertEqual(self.document.CurrentController.ActiveSheet.Name, "Data")
        self.assertEqual(self.document.CurrentSelection.AbsoluteName, "$Data.$D$1")
        self.assertFalse(self.document.hasControllersLocked())

    def test_a_new_sheet_comes_last_and_to_the_front(self):
        self.document.Sheets.insertNewByName("Other", 1)
        self.request.Results()
        names = self.document.Sheets.ElementNames
        self.assertEqual(names[:2], ("Data", "Other"))
        self.assertEqual(self.document.CurrentController.ActiveSheet.Name, names[2])

    def test_a_failed_run_leaves_the_views_free_and_nothing_but_its_sheet(self):
        self.document.UndoManager.clear()
        self.request.Method = 8
        with self.assertRaises(AnalysisException):
            self.request.Results()
        self.assertFalse(self.document.hasControllersLocked())
        # The new sheet stays, as an undo step of its own.
        self.assertEqual(self.document.Sheets.Count, 2)
        self.document.UndoManager.undo()
        self.assertEqual(self.document.Sheets.ElementNames, ("Data",))
        self.assertEqual(undo_titles(self.document), [])

    def test_the_scratch_workbook_is_one_hidden_unchanged_document(self):
        self.request.Results()
        self.make_request().Results()
        titles = []
        documents = office.desktop.Components.createEnumeration()
        while documents.hasMoreElements():
            document = documents.nextElement()
            titles.append(document.Title)
            if document.Title == "tbv2007.xlam":
                self.assertFalse(document.isModified())
                self.assertFalse(document.CurrentController.Frame.ContainerWindow.isVisible())
                self.assertEqual(document.Sheets.ElementNames, ("Results",))
                self.assertEqual(document.UndoManager.AllUndoActionTitles, ())
        self.assertEqual(titles.count("tbv2007.xlam"), 1)
        self.assertNotEqual(office.desktop.getCurrentComponent().Title, "tbv2007.xlam")

    def test_saving_the_document_saves_the_users_sheets_only(self):
        self.make_request("Data!D1").Results()
        with tempfile.TemporaryDirectory() as folder:
            file = pathlib.Path(folder) / "saved.ods"
            self.document.storeToURL(file.as_uri(), ())
            again = office.open(file.as_uri())
            self.assertEqual(again.Sheets.ElementNames, ("Data",))
            self.assertEqual(cells_of(again.Sheets.getByIndex(0))[0][3], "Mann-Whitney Test Results for:")
            again.close(True)


if __name__ == "__main__":
    unittest.main()
