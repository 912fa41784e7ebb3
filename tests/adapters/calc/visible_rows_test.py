"""Rows that are filtered out or hidden take no part where only visible rows do; SUBTOTAL is the measure."""

import unittest

import uno  # noqa: F401
from TBVNonPara import AnalysisException
from TBVNonPara.TBVNPMethod import (tbvNPFriedman, tbvNPKWallis, tbvNPMannU, tbvNPMedian, tbvNPSign,
                                    tbvNPSpearman, tbvNPWilcoxon, tbvNPWWRuns)

from office import Office, TestCase, cells_of, filter_rows

OBJECT_ERROR = -2147221504
# Without the first column, by which rows are filtered: those with 1 stay.
COLUMNS = [
    ["keep", 1, 0, 1, 1, 0, 1, 0, 1, 1, 0],
    ["first", 1, 90, 3, 4, 91, 6, 92, 8, 9, 93],
    ["second", 2.5, -9, 1.5, 7, -8, 8, -7, 10, 12, -6],
    ["third", 3.2, 70, 5.2, 7.2, 71, 11, 72, 13, 4.1, 73],
    ["sign", 1, -1, 1, 1, -1, -1, -1, 0, 1, -1],
    ["order", "a", "b", "a", "a", "b", "b", "b", "b", "a", "b"],
]
VISIBLE = [0, 1, 3, 4, 6, 8, 9]

REQUESTS = [
    # method      first       second
    (tbvNPMannU, "B1:B11", "C1:C11"),
    (tbvNPWilcoxon, "B1:B11", "C1:C11"),
    (tbvNPSpearman, "B1:B11", "C1:C11"),
    (tbvNPSign, "E1:E11", ""),
    (tbvNPSign, "B1:B11", "C1:C11"),
    (tbvNPMedian, "B1:D11", ""),
    (tbvNPFriedman, "B1:D11", ""),
    (tbvNPFriedman, "B1:B11,D1:D11", ""),
    (tbvNPKWallis, "B1:D11", ""),
    (tbvNPKWallis, "D1:D11,B1:C11", ""),
    (tbvNPWWRuns, "F1:F11", ""),
]


def setUpModule():
    global office
    office = unittest.enterModuleContext(Office())


def analyse(service, method, first, second, output=None):
    request = office.create("TBVNonPara." + service)
    request.Method = method
    request.Headers = True
    request.OutputDescriptives = True
    request.YRange = first
    request.XRange = second
    if output:
        request.OutputRange = output
    request.Results()


def without_ranges(cells):
    """A report without the lines that name its ranges."""
    return [row for row in cells if " Range = " not in str(row[0])]


class VisibleRows(TestCase):
    def setUp(self):
        self.document = office.open_with(COLUMNS)
        self.sheet = self.document.Sheets.getByIndex(0)

    def tearDown(self):
        self.document.close(True)

    def last_sheet(self):
        return self.document.Sheets.getByIndex(self.document.Sheets.Count - 1)

    def expected(self, method, first, second):
        """The report on a document that holds nothing but the visible rows."""
        document = office.open_with([[column[row] for row in VISIBLE] for column in COLUMNS])
        try:
            analyse("clsNonPara", method, first.replace("11", "7"), second.replace("11", "7"))
            return without_ranges(cells_of(document.Sheets.getByIndex(1)))
        finally:
            document.close(True)

    def reported(self, method, first, second):
        self.document.CurrentController.ActiveSheet = self.sheet
        analyse("clsNonParaVisibleRows", method, first, second)
        return without_ranges(cells_of(self.last_sheet()))

    def check_all(self):
        for request in REQUESTS:
            with self.subTest(request=request):
                wanted = self.expected(*request)
                self.document.CurrentController.Frame.activate()
                self.assertEqual(self.reported(*request), wanted)

    def test_every_test_reports_on_filtered_rows_as_if_the_others_were_not_there(self):
        filter_rows(self.document, "A1:F11", 0, 1)
        self.check_all()

    def test_rows_hidden_by_hand_are_left_out_as_well(self):
        for row in range(1, 11):
            self.sheet.getRows().getByIndex(row).IsVisible = row in VISIBLE
        # A hidden column is no reason to leave its rows out.
        self.sheet.getColumns().getByIndex(0).IsVisible = False
        self.check_all()

    def test_counts_and_sums_are_those_of_subtotal(self):
        filter_rows(self.document, "A1:F11", 0, 1)
        self.sheet.getRows().getByIndex(3).IsVisible = False
        self.sheet.getCellRangeByName("H1").Formula = "=SUBTOTAL(102;B2:B11)"
        self.sheet.getCellRangeByName("H12").Formula = "=SUBTOTAL(109;B2:B11)"
        analyse("clsNonParaVisibleRows", tbvNPWilcoxon, "B1:B11", "C1:C11")
        rows = {row[0]: row for row in cells_of(self.last_sheet())}
        self.assertEqual(rows["N"][1], self.sheet.getCellRangeByName("H1").Value)
        self.assertEqual(rows["Sum"][1], self.sheet.getCellRangeByName("H12").Value)
        # By hand: rows 2, 5, 7, 9 and 10 stay.
        self.assertEqual((rows["N"][1], rows["Sum"][1]), (5, 1 + 4 + 6 + 8 + 9))

    def test_a_pair_goes_with_either_of_its_rows(self):
        # The second sample stands twenty rows below the first.
        self.sheet.getCellRangeByName("C21:C31").setDataArray(self.sheet.getCellRangeByName("C1:C11")
                                                              .getDataArray())
        for row in (2, 5, 26, 29):
            self.sheet.getRows().getByIndex(row).IsVisible = False
        analyse("clsNonParaVisibleRows", tbvNPSpearman, "B1:B11", "C21:C31")
        values = [row[1:3] for row in cells_of(self.last_sheet()) if row[0] == ""]
        kept = [row for row in range(1, 11) if row not in (2, 5, 6, 9)]
        pairs = [(COLUMNS[1][row], COLUMNS[2][row]) for row in kept]
        self.assertTrue(set(pairs).issubset(set(values)), values)
        self.assertNotIn((COLUMNS[1][6], COLUMNS[2][6]), values)

    def test_samples_lose_their_own_rows_only(self):
        self.sheet.getCellRangeByName("C21:C31").setDataArray(self.sheet.getCellRangeByName("C1:C11")
                                                              .getDataArray())
        for row in (2, 26, 29):
            self.sheet.getRows().getByIndex(row).IsVisible = False
        analyse("clsNonParaVisibleRows", tbvNPMannU, "B1:B11", "C21:C31")
        counts = next(row for row in cells_of(self.last_sheet()) if row[0] == "N")
        self.assertEqual(tuple(counts[1:3]), (9, 8))

    def test_the_addresses_stay_and_a_note_says_what_was_left_out(self):
        filter_rows(self.document, "A1:F11", 0, 1)
        analyse("clsNonParaVisibleRows", tbvNPMannU, "Data!B1:B11", "Data!C1:C11")
        cells = cells_of(self.last_sheet())
        self.assertEqual(cells[1][0], "Set 1 Range = Data!$B$1:$B$11")
        notes = self.last_sheet().getAnnotations()
        self.assertEqual([note.String for note in notes], [
            "Visible rows only. Left out as filtered or hidden:\n"
            "Data!B1:B11: 4 of 10 rows\nData!C1:C11: 4 of 10 rows"])

    def test_the_objects_own_members_take_every_row(self):
        filter_rows(self.document, "A1:F11", 0, 1)
        analyse("clsNonPara", tbvNPMannU, "B1:B11", "C1:C11")
        counts = next(row for row in cells_of(self.last_sheet()) if row[0] == "N")
        self.assertEqual(tuple(counts[1:3]), (10, 10))
        self.assertEqual(self.last_sheet().getAnnotations().Count, 0)

    def test_rows_are_counted_anew_for_every_run(self):
        filter_rows(self.document, "A1:F11", 0, 1)
        request = office.create("TBVNonPara.clsNonParaVisibleRows")
        request.Headers = request.OutputDescriptives = True
        request.YRange, request.XRange, request.OutputRange = "B1:B11", "C1:C11", "H20"
        counts = []
        for least in (1, 0):
            filter_rows(self.document, "A1:F11", 0, least)
            request.Results(True)
            counts += [row[8] for row in cells_of(self.sheet) if row[7] == "N"]
        self.assertEqual(counts, [6, 10])

    def test_without_a_visible_row_there_is_an_error_in_words(self):
        filter_rows(self.document, "A1:F11", 0, 5)
        with self.assertRaises(AnalysisException) as caught:
            analyse("clsNonParaVisibleRows", tbvNPMannU, "B1:B11", "C1:C11")
        self.assertEqual(caught.exception.Number, OBJECT_ERROR + 5024)
        self.assertIn("Data!B1:B11 has no visible row of data", caught.exception.Message)

    def test_an_error_names_the_cell_where_it_stands(self):
        filter_rows(self.document, "A1:F11", 0, 1)
        self.sheet.getCellRangeByName("B3").String = "hidden"
        self.sheet.getCellRangeByName("B9").String = "n/a"
        with self.assertRaises(AnalysisException) as caught:
            analyse("clsNonParaVisibleRows", tbvNPMannU, "B1:B11", "C1:C11")
        self.assertIn("Data!B9 holds the text", caught.exception.Message)


if __name__ == "__main__":
    unittest.main()
