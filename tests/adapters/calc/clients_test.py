"""A client in Python: each of the eight tests, and every error of the library."""

import pathlib
import unittest

import uno
from TBVNonPara import AnalysisException
from TBVNonPara.TBVNPMethod import (tbvNPFriedman, tbvNPKWallis, tbvNPMannU, tbvNPMedian, tbvNPSign,
                                    tbvNPSpearman, tbvNPWilcoxon, tbvNPWWRuns)
from TBVNonPara.TBVNPTails import tbvNPVar1LTVar2

from office import Office, TestCase, cells_of

OBJECT_ERROR = -2147221504
IN_RESULTS = "Line 0 in TBVNonPara.clsNonPara.Results"

COLUMNS = [
    ["first", 1, 2, 3, 4, 5, 6],
    ["second", 2.5, 1.5, 7, 8, 9, 10],
    ["third", 3.2, 5.2, 7.2, 9.2, 11, 13],
    ["sign", 1, 1, -1, 1, 0, 1],
    ["mixed", 2, 1, 4, 3, 6, 5],
    ["order", "a", "a", "a", "b", "b", "b"],
    ["text", 1, 2, "n/a", 4, 5, 6],
    ["two", 1, 2, 1, -1, 0, 1],
    ["short", 7],
    ["blank", 1, 2, "", 4, 5, 6],
]

# The probabilities: R 4.2, wilcox.test(exact = TRUE), kruskal.test, friedman.test, binom.test, pnorm, and the
# published table of Spearman's coefficient (42/720); Mood's by pchisq of the 2 x 3 table.
EIGHT_TESTS = [
    (tbvNPMannU, "Mann-Whitney Test Results for:", "Data!A1:A7", "Data!B1:B7", 0.17965367965367965),
    (tbvNPWilcoxon, "Wilcoxon Paired-Sample Test Results for:", "Data!A1:A7", "Data!C1:C7", 0.03125),
    (tbvNPSpearman, "Spearman Rank Correlation Results for:", "Data!A1:A7", "Data!E1:E7", 42 / 720),
    (tbvNPSign, "Sign Test Results for:", "Data!D1:D7", "", 0.375),
    (tbvNPSign, "Sign Test Results for:", "Data!A1:A7", "Data!C1:C7", 0.03125),
    (tbvNPMedian, "Mood Median Test Results for:", "Data!A1:C7", "", 0.1353352832366127),
    (tbvNPFriedman, "Friedman Test Results for:", "Data!A1:C7", "", 0.0057035489980074017),
    (tbvNPKWallis, "Kruskal-Wallis Test Results for:", "Data!A1:C7", "", 0.064396882303532452),
    (tbvNPWWRuns, "Wald-Wolfowitz Runs Test Results for:", "Data!F1:F7", "", 0.17090352023079747),
]

ERRORS = [
    # what                          offset, source,     method,        y,             x
    ("no data range",               5011, IN_RESULTS, tbvNPMannU, None, None),
    ("no second range",             5012, IN_RESULTS, tbvNPMannU, "Data!A1:A7", None),
    ("unequal pairs",               5018, IN_RESULTS, tbvNPWilcoxon, "Data!A1:A7", "Data!B1:B6"),
    ("too few rows",                5050, IN_RESULTS, tbvNPSign, "Data!I1:I2", "Data!I1:I2"),
    ("sign codes",                  6000, IN_RESULTS, tbvNPSign, "Data!H1:H7", None),
    ("text in the data",            5020, IN_RESULTS, tbvNPMannU, "Data!G1:G7", "Data!A1:A7"),
    ("blank in the data",           5023, IN_RESULTS, tbvNPMannU, "Data!J1:J7", "Data!A1:A7"),
    ("empty data range",            5011, "", tbvNPMannU, "", None),
    ("data range does not exist",   5009, "", tbvNPMannU, "Nowhere!A1", None),
    ("data range is no address",    5009, "", tbvNPMannU, "one two", None),
    ("one column only",             5048, "", tbvNPKWallis, "Data!A1:A7", None),
    ("several columns",             5052, "", tbvNPMannU, "Data!A1:B7", None),
    ("second range does not exist", 5010, "", tbvNPMannU, "Data!A1:A7", "Nowhere!A1"),
    ("second range too wide",       5053, "", tbvNPMannU, "Data!A1:A7", "Data!A1:B7"),
]


def setUpModule():
    global office
    office = unittest.enterModuleContext(Office())


class Client(TestCase):
    def setUp(self):
        self.document = office.open_with(COLUMNS)
        self.request = office.create("TBVNonPara.clsNonPara")
        self.request.Headers = True

    def tearDown(self):
        self.document.close(True)

    def raised(self, number, source, work):
        with self.assertRaises(AnalysisException) as caught:
            work()
        self.assertEqual(caught.exception.Number, number)
        self.assertEqual(caught.exception.Source, source)
        self.assertIn(str(number), caught.exception.Message)

    def last_sheet(self):
        sheets = self.document.Sheets
        return sheets.getByIndex(sheets.Count - 1)

    def test_runs_each_of_the_eight_tests(self):
        for method, title, first, second, probability in EIGHT_TESTS:
            with self.subTest(title=title, first=first):
                request = office.create("TBVNonPara.clsNonPara")
                request.Method = method
                request.Headers = True
                request.OutputDescriptives = True
                request.YRange = first
                request.XRange = second
                request.Results()
                cells = cells_of(self.last_sheet())
                self.assertEqual(cells[0][0], title)
                numbers = [cell for row in cells for cell in row if isinstance(cell, float)]
                # Thirteen digits: both sides are exact or a tail of a named distribution.
                self.assertTrue(any(abs(number / probability - 1) < 1e-13 for number in numbers if number),
                                numbers)

    def test_tells_every_error_by_number_and_source(self):
        for what, offset, source, method, first, second in ERRORS:
            with self.subTest(what=what):
                request = office.create("TBVNonPara.clsNonPara")
                request.Method = method
                request.Headers = True

                def work():
                    if first is not None:
                        request.YRange = first
                    if second is not None:
                        request.XRange = second
                    request.Results()
                self.raised(OBJECT_ERROR + offset, source, work)
                self.assertEqual(self.document.Sheets.Count, 1)

    def test_tells_a_bad_output_range(self):
        def work():
            self.request.OutputRange = "Nowhere!A1"
        self.raised(OBJECT_ERROR + 5001, "", work)

    def test_refuses_an_occupied_place_and_one_that_is_too_small(self):
        self.request.YRange = "Data!A1:A7"
        self.request.XRange = "Data!B1:B7"
        self.request.OutputRange = "Data!A2"
        self.raised(OBJECT_ERROR + 5031, IN_RESULTS, self.request.Results)
        self.request.OutputRange = "Data!A1048576"
        self.raised(OBJECT_ERROR + 5030, IN_RESULTS, self.request.Results)

    def test_a_method_that_does_not_exist_is_kept_and_fails_with_the_report(self):
        self.request.Method = 8
        self.request.YRange = "Data!A1:A7"
        self.raised(91, IN_RESULTS, self.request.Results)

    def test_reading_a_property_gives_nothing_back(self):
        self.assertIsNone(self.request.Method)

    def test_refuses_a_text_for_a_number(self):
        def work():
            self.request.Method = "abc"
        self.raised(13, "", work)

    def test_takes_the_argument_in_every_form(self):
        self.request.YRange = "Data!A1:A7"
        self.request.XRange = "Data!B1:B7"
        self.request.OutputRange = "Data!L1"
        self.request.Results()
        self.raised(OBJECT_ERROR + 5031, IN_RESULTS, lambda: self.request.Results(False))
        self.request.Results(True)
        self.request.Results(1)

    def test_takes_addresses_in_both_notations_and_of_named_ranges(self):
        names = self.document.NamedRanges
        address = uno.createUnoStruct("com.sun.star.table.CellAddress")
        names.addNewByName("Scores", "$Data.$B$1:$B$7", address, 0)
        for first, second in (("Data!$A$1:$A$7", "$Data.$B$1:$B$7"), ("A1:A7", "Scores"),
                              ("'Data'!A7:A1", "B1:B7")):
            with self.subTest(first=first):
                request = office.create("TBVNonPara.clsNonPara")
                request.Headers = True
                request.Tails = tbvNPVar1LTVar2
                request.YRange = first
                request.XRange = second
                request.Results()
                cells = cells_of(self.last_sheet())
                self.assertEqual(cells[1][0], "Set 1 Range = Data!$A$1:$A$7")
                self.assertEqual(cells[2][0], "Set 2 Range = Data!$B$1:$B$7")
                self.document.CurrentController.ActiveSheet = self.document.Sheets.getByIndex(0)

    def test_keeps_areas_in_the_order_given_and_unmerged(self):
        self.request.Method = tbvNPKWallis
        self.request.YRange = "Data!C1:C7;A1:A7,$Data.$B$1:$B$7"
        self.request.Results()
        self.assertEqual(cells_of(self.last_sheet())[1][0],
                         "Data Range = Data!$C$1:$C$7,$A$1:$A$7,$B$1:$B$7")

    def test_trims_whole_columns_to_what_is_used(self):
        self.request.YRange = "Data!A:A"
        self.request.XRange = "Data!B:B"
        self.request.Results()
        self.assertEqual(cells_of(self.last_sheet())[1][0], "Set 1 Range = Data!$A$1:$A$7")

    def test_takes_sheet_names_with_quotes_and_commas(self):
        self.document.Sheets.getByIndex(0).Name = "It's, ok"
        self.request.YRange = "'It''s, ok'!A1:A7"
        self.request.XRange = "$'It''s, ok'.B1:B7"
        self.request.Results()
        self.assertEqual(cells_of(self.last_sheet())[1][0], "Set 1 Range = It's, ok!$A$1:$A$7")

    def test_refuses_a_boolean_and_an_error_in_the_data(self):
        sheet = self.document.Sheets.getByName("Data")
        self.request.XRange = "Data!B1:B7"
        for formula, offset in (("TRUE", 5021), ("=TRUE()", 5021), ("=1=1", 5021), ("=1/0", 5022),
                                ("=NA()", 5022), ("=\"\"", 5020)):
            with self.subTest(formula=formula):
                cell = sheet.getCellRangeByName("A3")
                cell.setFormula(formula)
                if formula == "TRUE":
                    cell.NumberFormat = 99
                self.request.YRange = "Data!A1:A7"
                self.raised(OBJECT_ERROR + offset, IN_RESULTS, self.request.Results)
                cell.clearContents(1023)

    def test_a_label_that_looks_like_a_number_or_a_formula_stays_a_text(self):
        sheet = self.document.Sheets.getByName("Data")
        sheet.getCellRangeByName("A1").String = "2019"
        sheet.getCellRangeByName("B1").String = "=x"
        self.request.OutputDescriptives = True
        self.request.YRange = "Data!A1:A7"
        self.request.XRange = "Data!B1:B7"
        self.request.Results()
        cells = cells_of(self.last_sheet())
        self.assertEqual(cells[6][1:3], ("2019", "=x"))


class FullCycle(TestCase):
    def test_starts_runs_and_ends(self):
        with Office() as own:
            document = own.open_with(COLUMNS)
            request = own.create("TBVNonPara.clsNonPara")
            request.YRange, request.XRange = "A2:A7", "B2:B7"
            request.Results()
            self.assertEqual(document.Sheets.Count, 2)
        self.assertEqual(own.process.returncode, 0)
        self.assertFalse(pathlib.Path(own.folder).exists())


if __name__ == "__main__":
    unittest.main()
