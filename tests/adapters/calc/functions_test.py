"""The tests as functions in cells: P of the report, which follows the data."""

import json
import os
import pathlib
import shutil
import subprocess
import tempfile
import time
import unittest

import uno  # noqa: F401
from com.sun.star.lang import Locale

from cases import COLUMNS, open_data
from office import Office, TestCase, property_value

DIVISION, VALUE, NOT_AVAILABLE, ARGUMENT = 532, 519, 32767, 504
STORED = pathlib.Path(__file__).parent / "stored"
PROGRAMMATIC = "com.tbvnonpara.Functions."

# P: R 4.2, as in cases.py; those of one tail by wilcox.test(alternative =), binom.test and pnorm, 1 - P(X >= 5)
# of the signs apart, which is exact: the report counts "less" as the rest.
FORMULAS = [
    # formula                                    P
    ("MANNWHITNEY.TEST(A2:A7;B2:B7)",            0.17965367965367965),
    ("MANNWHITNEY.TEST(A2:A7;B2:B7;\"<\")",      83 / 924),
    ("MANNWHITNEY.TEST(A2:A7;B2:B7;\"less\")",   83 / 924),
    ("WILCOXON.TEST(A2:A7;C2:C7)",               0.03125),
    ("WILCOXON.TEST(A2:A7;C2:C7;\"<>\")",        0.03125),
    ("WILCOXON.TEST(A2:A7;C2:C7;\"<\")",         1 / 64),
    ("SPEARMAN.TEST(A2:A7;E2:E7)",               42 / 720),
    ("SPEARMAN.TEST(A2:A7;E2:E7;\">\")",         21 / 720),
    ("SPEARMAN.TEST(A2:A7;E2:E7;\"Positive\")",  21 / 720),
    ("SIGN.TEST(D2:D7)",                         0.375),
    ("SIGN.TEST(D2:D7;\">\")",                   6 / 32),
    ("SIGN.TEST(A2:A7;C2:C7)",                   0.03125),
    ("SIGN.TEST(A2:A7;C2:C7;\"<\")",             1 / 64),
    ("MEDIAN.TEST(A2:C7)",                       0.1353352832366127),
    ("MEDIAN.TEST(A2:A7;B2:C7)",                 0.1353352832366127),
    ("MEDIAN.TEST(K2:L7)",                       1),  # none above the median, as expected
    ("FRIEDMAN.TEST(A2:C7)",                     0.0057035489980074017),
    ("FRIEDMAN.TEST(A2:A7;B2:B7;C2:C7)",         0.0057035489980074017),
    ("KRUSKALWALLIS.TEST(A2:C7)",                0.064396882303532452),
    ("KRUSKALWALLIS.TEST(A2:B7;C2:C7)",          0.064396882303532452),
    ("RUNS.TEST(F2:F7)",                         0.17090352023079747),
    ("RUNS.TEST(F2:F7;\"fewer\")",               0.17090352023079747 / 2),
]

REQUESTS = [
    ("mann-whitney",   "MANNWHITNEY.TEST(A2:A7;B2:B7)",         "--y", "A", "--x", "B"),
    ("mann-whitney",   "MANNWHITNEY.TEST(A2:A7;B2:B7;\"<\")",   "--y", "A", "--x", "B", "--tails", "less"),
    ("wilcoxon",       "WILCOXON.TEST(A2:A7;C2:C7;\">\")",      "--y", "A", "--x", "C", "--tails", "greater"),
    ("spearman",       "SPEARMAN.TEST(A2:A7;E2:E7)",            "--y", "A", "--x", "E"),
    ("sign",           "SIGN.TEST(D2:D7;\"<\")",                "--y", "D", "--tails", "less"),
    ("sign",           "SIGN.TEST(A2:A7;B2:B7)",                "--y", "A", "--x", "B"),
    ("median",         "MEDIAN.TEST(A2:C7)",                    "--y", "A:C"),
    ("friedman",       "FRIEDMAN.TEST(A2:C7)",                  "--y", "A:C"),
    ("kruskal-wallis", "KRUSKALWALLIS.TEST(A2:C7)",             "--y", "A:C"),
    ("runs",           "RUNS.TEST(F2:F7;\">\")",                "--y", "F", "--tails", "fewer"),
    ("runs",           "RUNS.TEST(F2:F7;\"more\")",             "--y", "F", "--tails", "more"),
]

FAILURES = [
    # formula                                    error
    ("MANNWHITNEY.TEST(A2:A7;B2:B7;\"up\")",     VALUE),          # no alternative
    ("MANNWHITNEY.TEST(A2:A7;E2:E7;\"fewer\")",  VALUE),          # a word of another test
    ("MANNWHITNEY.TEST(A2:B7;C2:C7)",            VALUE),          # two columns
    ("WILCOXON.TEST(A2:A7;B2:B6)",               VALUE),          # unequal pairs
    ("SIGN.TEST(H2:H7)",                         VALUE),          # 2 is no code
    ("KRUSKALWALLIS.TEST(A2:A7)",                VALUE),          # one group
    ("MANNWHITNEY.TEST(F2:F7;A2:A7)",            NOT_AVAILABLE),  # texts alone
    ("MANNWHITNEY.TEST(Z2:Z7;A2:A7)",            NOT_AVAILABLE),  # blanks alone
    ("KRUSKALWALLIS.TEST(K2:L7)",                DIVISION),       # all values equal
    ("RUNS.TEST(M2:M7)",                         DIVISION),       # one category
    ("KRUSKALWALLIS.TEST(A2:C2)",                NOT_AVAILABLE),  # one value each
    ("MANNWHITNEY.TEST(A2:A7;O1:O3)",            DIVISION),       # the error of a cell
    ("RUNS.TEST(P1:P3)",                         NOT_AVAILABLE),  # another one
]


def setUpModule():
    global office
    office = unittest.enterModuleContext(Office())


class Functions(TestCase):
    def setUp(self):
        self.document = open_data(office)
        self.sheet = self.document.Sheets.getByIndex(0)
        self.cell("P1").Formula = "=NA()"
        for row, number in enumerate((1, 2), 2):
            self.cell(f"P{row}").Value = number

    def tearDown(self):
        self.document.close(True)

    def cell(self, address):
        return self.sheet.getCellRangeByName(address)

    def result(self, formula, address="T1"):
        cell = self.cell(address)
        cell.Formula = "=" + formula
        return cell

    def value(self, formula, address="T1"):
        cell = self.result(formula, address)
        self.assertEqual(0, cell.getError(), formula)
        return cell.Value

    def test_each_gives_p_of_the_report(self):
        for formula, probability in FORMULAS:
            with self.subTest(formula):
                # Both sides are exact or a tail of a named distribution.
                self.assertAlmostEqual(1, self.value(formula) / probability, delta=1e-13)

    def test_p_is_that_of_the_program_bit_for_bit(self):
        file = office.folder / "data.csv"
        rows = [",".join(map(str, row)) for row in zip(*COLUMNS[:6])]
        file.write_text("\n".join(rows) + "\n", encoding="utf-8")
        for test, formula, *ranges in REQUESTS:
            with self.subTest(formula):
                command = [os.environ["TBVNONPARA_PROGRAM"], test, str(file), "--format", "json", *ranges]
                answer = json.loads(subprocess.run(command, check=True, capture_output=True).stdout)
                self.assertEqual(answer["results"]["p"], self.value(formula))

    def test_what_cannot_be_computed_is_an_error(self):
        for formula, error in FAILURES:
            with self.subTest(formula):
                self.assertEqual(error, self.result(formula).getError())

    def test_it_follows_the_data(self):
        self.assertAlmostEqual(0.03125, self.value("WILCOXON.TEST(A2:A7;C2:C7)"), delta=1e-15)
        self.cell("A7").Value = 99
        # The differences are -2.2 -3.2 -4.2 -5.2 -6 and 86: T is 6, and 14 of 64 arrangements have 6 or less.
        self.assertAlmostEqual(28 / 64, self.cell("T1").Value, delta=1e-15)
        self.cell("A7").Formula = "=1/0"
        self.assertEqual(DIVISION, self.cell("T1").getError())
        self.cell("A7").Value = 6
        self.assertAlmostEqual(0.03125, self.cell("T1").Value, delta=1e-15)

    def test_what_calc_itself_does_not_pass_is_an_error_of_the_argument(self):
        for formula in ("KRUSKALWALLIS.TEST(A2:B7;O1:O3)", "SIGN.TEST(A1:A3;O1:O3)", "RUNS.TEST({1;2;3})",
                        "MANNWHITNEY.TEST(A2:A7;{1;2;3})", "FRIEDMAN.TEST({1;2;3})"):
            with self.subTest(formula):
                self.assertEqual(ARGUMENT, self.result(formula).getError())

    def test_arrays_are_taken_behind_the_first_range_of_groups_and_signs(self):
        for formula, same in (
                ("SIGN.TEST(A2:A7;C2:C7*1)", "SIGN.TEST(A2:A7;C2:C7)"),
                ("KRUSKALWALLIS.TEST(A2:A7;IF(ROW(B2:B7)<7;B2:B7;\"\");C2:C7)",
                 "KRUSKALWALLIS.TEST(A2:A7;B2:B6;C2:C7)"),
                ("FRIEDMAN.TEST(A2:A7;B2:C7*1)", "FRIEDMAN.TEST(A2:C7)"),
                ("MEDIAN.TEST(A2:A7;TRANSPOSE(TRANSPOSE(B2:C7)))", "MEDIAN.TEST(A2:C7)"),
                ("KRUSKALWALLIS.DETAILS(A2:A7;B2:B7*1;\"chiSquare\")",
                 "KRUSKALWALLIS.DETAILS(A2:B7;\"chiSquare\")")):
            with self.subTest(formula):
                cell = self.cell("T1")
                cell.setArrayFormula("=" + formula)
                self.assertEqual(0, cell.getError())
                self.assertEqual(cell.Value, self.value(same, "T2"))
                cell.setArrayFormula("")

    def test_texts_and_blanks_of_samples_are_passed_over(self):
        self.assertEqual(self.value("MANNWHITNEY.TEST(A1:A9;B1:B9)"), self.value("MANNWHITNEY.TEST(A2:A7;B2:B7)"))
        self.assertEqual(self.value("KRUSKALWALLIS.TEST(A1:C12)"), self.value("KRUSKALWALLIS.TEST(A2:C7)"))
        # A text that looks like a number is one, too, as for T.TEST.
        self.cell("R1").String = "5"
        self.cell("R1").NumberFormat = 100
        self.cell("R2").Value = 1
        self.cell("R3").Value = 4
        self.assertEqual(self.value("MANNWHITNEY.TEST(R1:R3;B2:B7)"), self.value("MANNWHITNEY.TEST(R2:R3;B2:B7)"))

    def test_a_pair_or_a_block_is_passed_over_as_a_whole(self):
        # Column G has a text in its third row, J a blank in the same: without that row, the columns stand in U to W.
        rows = [row for row in self.cell("A2:J7").getDataArray() if row[6] != "n/a"]
        self.assertEqual(5, len(rows))
        self.cell("U2:W6").setDataArray(tuple((row[2], row[6], row[1]) for row in rows))
        for name in ("WILCOXON", "SPEARMAN", "SIGN"):
            for gap in "GJ":
                with self.subTest(name, gap=gap):
                    self.assertEqual(self.value(f"{name}.TEST(U2:U6;V2:V6)"),
                                     self.value(f"{name}.TEST(C2:C7;{gap}2:{gap}7)"))
        self.assertEqual(self.value("FRIEDMAN.TEST(U2:W6)"), self.value("FRIEDMAN.TEST(C2:C7;G2:G7;B2:B7)"))

    def test_blanks_of_a_sequence_are_passed_over(self):
        self.cell("F9").String = "b"
        with_gap = self.value("RUNS.TEST(F2:F9)")
        self.cell("F9").String = ""
        self.cell("F8").String = "b"
        self.assertEqual(with_gap, self.value("RUNS.TEST(F2:F8)"))
        self.assertNotEqual(with_gap, self.value("RUNS.TEST(F2:F7)"))

    def test_hidden_rows_count(self):
        before = self.value("MANNWHITNEY.TEST(A2:A7;B2:B7)", "T20")
        self.sheet.Rows.getByIndex(3).IsVisible = False
        self.document.calculateAll()
        self.assertEqual(before, self.cell("T20").Value)
        # A helper column is blank where a row is hidden.
        self.cell("U2:U7").setFormulaArray(tuple((f'=IF(SUBTOTAL(103;A{row});A{row};"")',) for row in range(2, 8)))
        self.cell("V1:V5").setDataArray(tuple((number,) for number in (1, 2, 4, 5, 6)))
        self.assertEqual(self.value("MANNWHITNEY.TEST(V1:V5;B2:B7)"), self.value("MANNWHITNEY.TEST(U2:U7;B2:B7)"))

    def test_named_ranges_and_other_sheets(self):
        position = self.cell("A1").CellAddress
        self.document.NamedRanges.addNewByName("Before", "$Data.$A$2:$A$7", position, 0)
        self.document.NamedRanges.addNewByName("After", "$Data.$C$2:$C$7", position, 0)
        self.document.Sheets.insertNewByName("Other", 1)
        cell = self.document.Sheets.getByIndex(1).getCellRangeByName("A1")
        cell.Formula = "=WILCOXON.TEST(Before;After)"
        self.assertEqual(0.03125, cell.Value)

    def test_several_hundred_formulas(self):
        for row in range(500):
            self.sheet.getCellByPosition(30, row).Value = row % 7 + row / 1000
        block = self.sheet.getCellRangeByPosition(31, 0, 31, 499)
        block.setFormulaArray(tuple((f"=MANNWHITNEY.TEST(A$2:A$7;AE{row}:AE{row + 5})",) for row in range(1, 501)))
        errors = [row for row in range(495) if self.sheet.getCellByPosition(31, row).getError()]
        self.assertEqual([], errors)
        before = [row[0] for row in block.getDataArray()[:495]]
        self.cell("A2").Value = 1000
        after = [row[0] for row in block.getDataArray()[:495]]
        self.assertGreater(sum(a != b for a, b in zip(before, after)), 400)

    def test_saved_and_opened_again(self):
        for number, (formula, _) in enumerate(FORMULAS, 1):
            self.result(formula, f"T{number}")
        for suffix, kind in (("ods", "calc8"), ("fods", "OpenDocument Spreadsheet Flat XML"),
                             ("xlsx", "Calc MS Excel 2007 XML")):
            with self.subTest(suffix):
                self.check_saved(office.folder / f"functions.{suffix}", kind)

    def check_saved(self, file, kind):
        self.document.storeToURL(file.as_uri(), (property_value("FilterName", kind),))
        again = office.open(file.as_uri(), Hidden=True)
        try:
            sheet = again.Sheets.getByIndex(0)
            sheet.getCellRangeByName("A2").Value = 1.25
            again.calculateAll()
            self.cell("A2").Value = 1.25
            for number, (formula, _) in enumerate(FORMULAS, 1):
                cell = sheet.getCellRangeByName(f"T{number}")
                self.assertEqual(PROGRAMMATIC.upper(), cell.Formula[1:len(PROGRAMMATIC) + 1].upper(), formula)
                self.assertEqual((0, self.cell(f"T{number}").Value), (cell.getError(), cell.Value), formula)
        finally:
            self.cell("A2").Value = 1
            again.close(True)

    def test_a_stored_file_opens_with_its_formulas(self):
        stored = office.open(self.stored("fods"), Hidden=True)
        try:
            stored.calculateAll()
            rows = stored.Sheets.getByIndex(0).getCellRangeByName("E1:F16").getDataArray()
            for shown, (value, expected) in zip(range(1, 17), rows):
                self.assertAlmostEqual(1, value / expected, delta=1e-13, msg=f"row {shown}")
        finally:
            stored.close(True)

    def stored(self, ending):
        """A copy of a stored file, made by the office from the data of these tests: it leaves locks beside what it opens."""
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        return pathlib.Path(shutil.copy(STORED / f"functions.{ending}", folder.name)).as_uri()

    def check_stored(self, url):
        """Z1 has P of Kruskal-Wallis of A2:C7, Z2 the superiority of A over B: 9 of 36 pairs."""
        document = office.open(url, Hidden=True)
        try:
            sheet = document.Sheets.getByIndex(0)
            cells = [sheet.getCellRangeByName(place) for place in ("Z1", "Z2")]
            document.calculateAll()
            self.assertAlmostEqual(cells[0].Value, 0.064396882303532452, delta=1e-14)
            self.assertEqual(cells[1].Value, 9 / 36)
            sheet.getCellRangeByName("A2").Value = 99
            self.assertEqual(cells[1].Value, 15 / 36)
        finally:
            document.close(True)

    def test_stored_files_of_other_formats_open_too(self):
        for ending in ("ods", "xlsx"):
            with self.subTest(ending=ending):
                self.check_stored(self.stored(ending))

    def test_without_the_add_in_formulas_stay_and_come_back(self):
        with Office(extension=None) as plain, tempfile.TemporaryDirectory() as folder:
            again = (pathlib.Path(folder) / "again.ods").as_uri()
            document = plain.open(self.stored("ods"), Hidden=True)
            # Calc itself forgets the value of a function that it does not know.
            self.assertEqual(document.Sheets.getByIndex(0).getCellRangeByName("Z1").String, "#NAME?")
            document.storeToURL(again, (property_value("FilterName", "calc8"),))
            document.close(True)
            self.check_stored(again)

    def test_whole_columns_are_taken(self):
        rows = 1_048_576
        document = office.open()
        sheet = document.Sheets.getByIndex(0)
        try:
            block = sheet.getCellRangeByPosition(0, 0, 1, rows - 1)
            block.setDataArray(tuple((row * 7919 % 99991, row * 104729 % 99989) for row in range(rows)))
            seconds = {}
            for name, formula in (("T.TEST", "=T.TEST({0};2;2)"), ("MANNWHITNEY.TEST", "=MANNWHITNEY.TEST({0})")):
                start = time.monotonic()
                cell = sheet.getCellRangeByName("D1")
                cell.Formula = formula.format("A1:A1048576;B1:B1048576")
                self.assertEqual(0, cell.getError(), name)
                seconds[name] = time.monotonic() - start
            start = time.monotonic()
            block.getDataArray()
            print("1,048,576 x 2:", {name: round(time, 2) for name, time in seconds.items()},
                  "and to read them through the bridge", round(time.monotonic() - start, 2))
        finally:
            document.close(True)

    def test_names_are_the_same_in_german_and_texts_are_german(self):
        functions = office.create("com.tbvnonpara.Functions")
        texts = {}
        for language in ("en", "de"):
            functions.setLocale(Locale(language, "", ""))
            self.assertEqual("RUNS.TEST", functions.getDisplayFunctionName("runsTest"))
            self.assertEqual("runsTest", functions.getProgrammaticFuntionName("RUNS.TEST"))
            self.assertEqual("Statistical", functions.getProgrammaticCategoryName("runsTest"))
            texts[language] = (functions.getFunctionDescription("runsTest"),
                               functions.getDisplayArgumentName("runsTest", 0),
                               functions.getArgumentDescription("medianTest", 7))
        self.assertEqual(("P of the Wald-Wolfowitz runs test of a sequence.", "range", "More ranges of groups."),
                         texts["en"])
        self.assertEqual(("P des Lauftests nach Wald und Wolfowitz für eine Folge.", "Bereich",
                          "Weitere Bereiche mit Gruppen."), texts["de"])

    def test_the_wizard_has_them(self):
        descriptions = office.create("com.sun.star.sheet.FunctionDescriptions")
        found = {}
        for function in range(descriptions.Count):
            properties = {value.Name: value.Value for value in descriptions.getByIndex(function)}
            found[properties["Name"]] = properties
        for formula, _ in FORMULAS:
            name = formula.split("(")[0]
            self.assertIn(name, found)
            self.assertEqual(found["T.TEST"]["Category"], found[name]["Category"], name)
        self.assertEqual(["range1", "range2", "alternative"],
                         [argument.Name for argument in found["SIGN.TEST"]["Arguments"]])
        self.assertEqual([False, True, True],
                         [argument.IsOptional for argument in found["SIGN.TEST"]["Arguments"]])


if __name__ == "__main__":
    unittest.main()
