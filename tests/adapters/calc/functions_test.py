"""Tests in cells: the functions that formulas call, by name, recalculated, saved and read again."""

import pathlib
import shutil
import tempfile
import unittest

import uno  # noqa: F401

from cases import EIGHT_TESTS, open_data
from office import Office, TestCase, cells_of, property_value

HERE = pathlib.Path(__file__).parent
# By the number of the test: what formulas call it.
NAMES = ["MANNWHITNEY", "WILCOXON", "SPEARMAN", "SIGN", "MEDIAN", "FRIEDMAN", "KRUSKALWALLIS", "RUNS"]
METHODS = ["mannWhitney", "wilcoxon", "spearman", "sign", "median", "friedman", "kruskalWallis", "runs"]
NO_VALUE, DIVISION, NOT_AVAILABLE, BAD_ARGUMENTS = 519, 532, 32767, 504
FILTERS = {"ods": "calc8", "fods": "OpenDocument Spreadsheet Flat XML", "xlsx": "Calc MS Excel 2007 XML"}


def setUpModule():
    global office
    office = unittest.enterModuleContext(Office())


def formula(method, first, second, ending="TEST", more=""):
    """A report's ranges in a formula; labels are texts, which are passed over but in a sequence."""
    ranges = [area.replace("Data!", "$Data.") for area in (first, second) if area]
    if NAMES[method] == "RUNS":
        ranges = [ranges[0].replace("F1", "F2")]
    return f"={NAMES[method]}.{ending}({';'.join(ranges)}{more})"


class Functions(TestCase):
    def setUp(self):
        self.document = open_data(office)
        self.sheet = self.document.Sheets.getByIndex(0)

    def tearDown(self):
        self.document.close(True)

    def cell(self, text, place="Z1"):
        cell = self.sheet.getCellRangeByName(place)
        cell.Formula = text
        return cell

    def value(self, text, place="Z1"):
        cell = self.cell(text, place)
        self.assertEqual(cell.getError(), 0, f"{text}: {cell.String}")
        return cell.Value

    def error(self, text):
        return self.cell(text).getError()

    def report(self, method, first, second):
        request = office.create("TBVNonPara.clsNonPara")
        request.Method, request.Headers, request.YRange, request.XRange = method, True, first, second
        request.Results()
        return cells_of(self.document.Sheets.getByIndex(self.document.Sheets.Count - 1))

    def test_give_the_probability_of_the_report(self):
        for method, title, first, second, probability in EIGHT_TESTS:
            with self.subTest(title=title, first=first):
                given = self.value(formula(method, first, second))
                self.assertAlmostEqual(given, probability, delta=1e-14)
                # The report has Calc's distribution functions, which differ from ours in the last digits.
                shown = [cell for row in self.report(method, first, second) for cell in row if isinstance(cell, float)]
                self.assertLess(min(abs(cell - given) for cell in shown), 1e-15 + 1e-13 * given)

    def test_give_figures_to_the_last_bit(self):
        names = {0: ["effect.superiority", "effect.superiority.low", "p.exact.two", "effect.shift"],
                 1: ["effect.rankBiserial", "effect.pseudomedian"], 2: ["effect.rho", "p.exact.greater"],
                 3: ["effect.positiveShare", "effect.medianDifference"], 4: ["effect.cramerV"], 5: ["effect.kendallW"],
                 6: ["effect.epsilonSquared", "groups.2.median", "comparisons.1.p"], 7: ["effect.equalNeighbours"]}
        compared = 0
        for method, title, first, second, _ in EIGHT_TESTS:
            details = office.create("TBVNonPara.clsNonParaDetails")
            details.Method, details.Headers, details.YRange = method, True, first
            if second:
                details.XRange = second
            details.Calculate()
            for name in names[method]:
                expected = details.Value(name)
                with self.subTest(title=title, name=name):
                    cell = self.cell(formula(method, first, second, "DETAILS", f';"{name}"'))
                    if expected is None:
                        self.assertEqual(cell.getError(), NOT_AVAILABLE)
                    else:
                        self.assertEqual(cell.Value, expected)
                        compared += 1
        self.assertGreaterEqual(compared, len(EIGHT_TESTS))

    def test_names_of_figures_may_be_written_in_any_case(self):
        # By hand: of the 36 pairs, 9 have the first above the second.
        self.assertEqual(self.value('=MANNWHITNEY.DETAILS(A1:A7;B1:B7;"U")'), 27)
        self.assertEqual(self.value('=MANNWHITNEY.DETAILS(A1:A7;B1:B7;"Effect.Superiority")'), 9 / 36)
        self.assertEqual(self.value('=SIGN.DETAILS(D1:D7;"positive")'), 4)

    def test_without_a_name_a_matrix_has_all_figures(self):
        block = self.sheet.getCellRangeByName("AA1:AB200")
        block.setArrayFormula("=MANNWHITNEY.DETAILS(A1:A7;B1:B7)")
        table = dict(row for row in block.getDataArray() if row[0])
        self.assertEqual(table["u"], 27)
        self.assertEqual(table["effect.superiority.value"], 9 / 36)
        self.assertGreater(len(table), 40)
        for name in ("u", "p", "effect.superiority.value", "statistic.u.1"):
            self.assertEqual(self.value(f'=MANNWHITNEY.DETAILS(A1:A7;B1:B7;"{name}")'), table[name])

    def test_alternatives_are_signs_or_the_words_of_the_program(self):
        both = self.value("=MANNWHITNEY.TEST(A1:A7;B1:B7)")
        less = self.value('=MANNWHITNEY.TEST(A1:A7;B1:B7;"<")')
        self.assertAlmostEqual(both, 2 * less, delta=1e-15)
        for word, expected in (("<>", both), ("two", both), ("less", less), ("LESS", less)):
            self.assertEqual(self.value(f'=MANNWHITNEY.TEST(A1:A7;B1:B7;"{word}")'), expected)
        self.assertEqual(self.value('=SIGN.TEST(D1:D7;">")'), self.value('=SIGN.TEST(D1:D7;;"greater")'))
        self.assertEqual(self.value('=RUNS.TEST(F2:F7;"fewer")'), self.value('=RUNS.TEST(F2:F7;">")'))
        self.assertEqual(self.error('=MANNWHITNEY.TEST(A1:A7;B1:B7;"sideways")'), NO_VALUE)
        self.assertEqual(self.error("=MANNWHITNEY.TEST(A1:A7;B1:B7;1)"), NO_VALUE)

    def test_what_is_no_number_is_passed_over_with_its_pair(self):
        # "n/a" stands in row 4 of G, a blank in row 4 of J: without that row the pairs are those of the others.
        self.sheet.getCellRangeByName("AA1:AB5").setDataArray(
            tuple(zip((1.0, 2.0, 4.0, 5.0, 6.0), (2.5, 1.5, 8.0, 9.0, 10.0))))
        for name in ("WILCOXON", "SPEARMAN", "SIGN"):
            expected = self.value(f"={name}.TEST(AA1:AA5;AB1:AB5)", "Z2")
            self.assertEqual(self.value(f"={name}.TEST(G1:G7;B1:B7)"), expected)
            self.assertEqual(self.value(f"={name}.TEST(J1:J7;B1:B7)"), expected)
        self.assertEqual(self.value("=MANNWHITNEY.TEST(G1:G7;B1:B7)"), self.value("=MANNWHITNEY.TEST(AA1:AA5;B1:B7)", "Z2"))
        self.assertEqual(self.value("=FRIEDMAN.TEST(G1:G7;B1:B7)"), self.value("=FRIEDMAN.TEST(AA1:AB5)", "Z2"))
        self.sheet.Rows.getByIndex(3).IsVisible = False
        self.assertAlmostEqual(self.value("=WILCOXON.TEST(A1:A7;C1:C7)"), 0.03125, delta=1e-15)

    def test_a_cell_says_why_there_is_no_figure(self):
        for text, expected in (
                ("=WILCOXON.TEST(A1:A7;B1:B6)", NO_VALUE),  # pairs of different numbers
                ("=SIGN.TEST(A1:A7)", NO_VALUE),  # other values than 1, -1 and 0
                ("=MANNWHITNEY.TEST(A1:A7)", NO_VALUE),
                ("=KRUSKALWALLIS.TEST(A1:A7)", NO_VALUE),
                ('=MANNWHITNEY.DETAILS(A1:A7;B1:B7;"nothing")', NO_VALUE),
                ('=MANNWHITNEY.DETAILS(A1:A7;B1:B7;"effect")', NO_VALUE),  # several figures
                ("=MANNWHITNEY.DETAILS(A1:A7;B1:B7;1)", NO_VALUE),
                ("=SPEARMAN.TEST(K1:K7;A1:A7)", DIVISION),  # all values equal
                ("=KRUSKALWALLIS.TEST(K1:L7)", DIVISION),
                ("=MANNWHITNEY.TEST(A1:A7;Y1:Y7)", DIVISION),  # a sample of no values
                ("=MANNWHITNEY.TEST(A1:A7;O1:O3)", BAD_ARGUMENTS)):  # an error among the data, which Calc refuses
            with self.subTest(formula=text):
                self.assertEqual(self.error(text), expected)

    def test_follow_the_data(self):
        cell = self.cell("=MANNWHITNEY.TEST(A2:A7;B2:B7)")
        before = cell.Value
        self.sheet.getCellRangeByName("A2").Value = 99
        self.assertNotEqual(cell.Value, before)
        self.sheet.getCellRangeByName("A2").Value = 1
        self.assertEqual(cell.Value, before)

    def test_take_names_arrays_and_many_ranges(self):
        address = self.sheet.getCellRangeByName("A2").CellAddress
        self.document.NamedRanges.addNewByName("before", "$Data.$A$2:$A$7", address, 0)
        expected = self.value("=MANNWHITNEY.TEST(A2:A7;B2:B7)", "Z2")
        self.assertEqual(self.value("=MANNWHITNEY.TEST(before;B2:B7)"), expected)
        self.assertEqual(self.value("=MANNWHITNEY.TEST({1|2|3|4|5|6};B2:B7)"), expected)
        block = self.sheet.getCellRangeByName("Z3")
        block.setArrayFormula('=MANNWHITNEY.TEST(IF(A2:A7>0;A2:A7;"");B2:B7)')
        self.assertEqual(block.Value, expected)
        self.assertEqual(self.value("=KRUSKALWALLIS.TEST(A2:A7;B2:C7)"), self.value("=KRUSKALWALLIS.TEST(A2:C7)", "Z2"))

    def test_live_in_files(self):
        self.cell("=KRUSKALWALLIS.TEST(A2:C7)", "Z1")
        self.cell('=MANNWHITNEY.DETAILS(A2:A7;B2:B7;"effect.superiority")', "Z2")
        expected = [self.sheet.getCellRangeByName(place).Value for place in ("Z1", "Z2")]
        with tempfile.TemporaryDirectory() as folder:
            for ending, name in FILTERS.items():
                with self.subTest(ending=ending):
                    url = (pathlib.Path(folder) / ("stored." + ending)).as_uri()
                    self.document.storeToURL(url, (property_value("FilterName", name),))
                    self.follows(url, expected)

    def stored(self, ending):
        """A copy of a stored file: the office leaves locks beside what it opens."""
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        return pathlib.Path(shutil.copy(HERE / "files" / f"functions.{ending}", folder.name)).as_uri()

    def follows(self, url, expected):
        """A file's formulas have their values, and others when the data change."""
        stored = office.open(url, Hidden=True)
        try:
            sheet = stored.Sheets.getByIndex(0)
            cells = [sheet.getCellRangeByName(place) for place in ("Z1", "Z2")]
            stored.calculateAll()
            self.assertEqual([cell.Value for cell in cells], expected)
            sheet.getCellRangeByName("A2").Value = 99
            for cell, before in zip(cells, expected):
                self.assertEqual(cell.getError(), 0)
                self.assertNotEqual(cell.Value, before)
        finally:
            stored.close(True)

    def test_files_of_the_first_version_open_for_ever(self):
        # Made by the office from the data of these tests, with the formulas of test_live_in_files.
        expected = [self.value("=KRUSKALWALLIS.TEST(A2:C7)"),
                    self.value('=MANNWHITNEY.DETAILS(A2:A7;B2:B7;"effect.superiority")')]
        for ending in ("ods", "xlsx"):
            with self.subTest(ending=ending):
                self.follows(self.stored(ending), expected)

    def test_without_the_add_in_formulas_stay_and_come_back(self):
        expected = self.value("=KRUSKALWALLIS.TEST(A2:C7)")
        with Office(extension=None) as plain, tempfile.TemporaryDirectory() as folder:
            again = (pathlib.Path(folder) / "again.ods").as_uri()
            document = plain.open(self.stored("ods"), Hidden=True)
            # Calc itself forgets the value of a function that it does not know.
            self.assertEqual(document.Sheets.getByIndex(0).getCellRangeByName("Z1").String, "#NAME?")
            document.storeToURL(again, (property_value("FilterName", FILTERS["ods"]),))
            document.close(True)
            self.follows(again, [expected, 9 / 36])

    def test_five_hundred_formulas_agree(self):
        block = self.sheet.getCellRangeByName("AA1:AA500")
        block.setFormulaArray((('=MANNWHITNEY.DETAILS(A2:A7;B2:B7;"effect.superiority")',),) * 500)
        self.assertEqual({row[0] for row in block.getDataArray()}, {9 / 36})
        self.sheet.getCellRangeByName("A2").Value = 99
        self.assertEqual({row[0] for row in block.getDataArray()}, {15 / 36})

    def test_the_wizard_knows_them(self):
        descriptions = office.create("com.sun.star.sheet.FunctionDescriptions")
        known = {}
        for number in range(descriptions.Count):
            function = {item.Name: item.Value for item in descriptions.getByIndex(number)}
            known[function["Name"]] = function
        for name in NAMES:
            for ending in (".TEST", ".DETAILS"):
                function = known[name + ending]
                self.assertTrue(function["Description"].startswith("P of " if ending == ".TEST" else "A figure of "))
                self.assertTrue(all(argument.Name and argument.Description for argument in function["Arguments"]))
                self.assertEqual(function["Category"], known["T.TEST"]["Category"])


if __name__ == "__main__":
    unittest.main()
