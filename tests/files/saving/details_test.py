"""Saves reports with their details in workbooks and reads them back: details_test.py PROGRAM PROJECT_FOLDER.

The figures are those of the same run in JSON; openpyxl and LibreOffice read them.
"""

import csv
import json
import shutil
import unittest

from workbook_files import FOLDER, PROJECT, by_xlsxwriter, office, openpyxl, run

SLEEP = PROJECT / "examples/sleep.csv"
CHICKS = PROJECT / "examples/chicks.csv"
HURON = PROJECT / "examples/huron.csv"
TESTS = (("mann-whitney", SLEEP), ("wilcoxon", SLEEP), ("spearman", SLEEP), ("sign", SLEEP), ("runs", HURON),
         ("median", CHICKS), ("friedman", SLEEP), ("kruskal-wallis", CHICKS))


def figures(test, file, *words):
    return json.loads(run(test, file, "--details", "--format", "json", *words).stdout)["details"]


def rows(sheet):
    """Each row that has a name: its cells from the second column on."""
    return {row[0]: [value for value in row[1:] if value is not None]
            for row in sheet.iter_rows(values_only=True) if row[0] is not None}


class Details(unittest.TestCase):
    def save(self, test, file, *words):
        target = FOLDER / "details.xlsx"
        result = run(test, file, "--details", "--save", target, "--overwrite", *words)
        self.assertEqual(result.returncode, 0, result.stderr)
        return target, result

    def test_stand_on_a_sheet_behind_the_report_for_every_test(self):
        for test, file in TESTS:
            target, result = self.save(test, file)
            book = openpyxl.load_workbook(target)
            self.assertEqual(book.sheetnames, ["Results", "Details"], test)
            sheet = book["Details"]
            self.assertRegex(result.stderr, r"saved Results!\$A\$1:\S+ and Details!\$A\$1:\S+ in ")
            words = figures(test, file)["words"]
            self.assertEqual([sheet.cell(3 + i, 1).value for i in range(len(words))], words)
            self.assertEqual(sheet["A1"].value, "Details")
            self.assertTrue(sheet["A1"].font.b)
            self.assertIn(sheet["A8"].value, ("Effect", "Probability"))

    def test_hold_numbers_with_all_their_digits(self):
        target, _ = self.save("kruskal-wallis", CHICKS)
        details = figures("kruskal-wallis", CHICKS)
        read = rows(openpyxl.load_workbook(target)["Details"])
        effect = details["effect"]["epsilonSquared"]
        self.assertEqual(read["Epsilon squared"], [effect["value"], effect["low"], effect["high"]])
        chi = details["p"]["chiSquare"]
        self.assertEqual(read["Chi-square, tie-corrected"], [chi["value"], chi["df"], chi["p"]["value"]])
        for comparison in details["comparisons"]:
            name = " - ".join(details["labels"][comparison[which] - 1] for which in ("first", "second"))
            self.assertEqual(read[name], [comparison["superiority"], comparison["z"], comparison["p"]["value"],
                                          comparison["adjusted"]["value"]])

    def test_show_numbers_as_the_text_does(self):
        target, _ = self.save("friedman", PROJECT / "examples/rounding.csv")
        sheet = openpyxl.load_workbook(target)["Details"]
        row = next(row for row in sheet.iter_rows() if row[0].value == "RoundOut - NarrowAngle")
        self.assertEqual([cell.number_format for cell in row[1:5]],
                         ['0" of 22"', "0.0000", "[<0.0001]0.00E+00;0.0000", "[<0.0001]0.00E+00;0.0000"])
        self.assertEqual([row[1].value, row[1].alignment.horizontal], [12, "right"])

    def test_stand_between_the_report_and_the_data(self):
        target, _ = self.save("mann-whitney", SLEEP, "--with-data")
        self.assertEqual(openpyxl.load_workbook(target).sheetnames, ["Results", "Details", "sleep"])

    def test_go_into_a_copy_of_a_workbook(self):
        source = by_xlsxwriter("source.xlsx")
        for words, names in ((("--with-data",), ["Data", "Other", "Results", "Details"]),
                             (("--output", "Data!H1"), ["Data", "Other", "Details"])):
            target, _ = self.save("mann-whitney", source, "--sheet", "Data", "--y", "A", "--x", "B", *words)
            book = openpyxl.load_workbook(target)
            self.assertEqual(book.sheetnames, names)
            self.assertEqual(book["Data"]["A2"].value, 0.1)
            self.assertEqual(len(rows(book["Details"])["Rank-biserial r"]), 3)
            source_again = openpyxl.load_workbook(source)
            self.assertEqual(source_again.sheetnames, ["Data", "Other"])

    def test_take_a_free_name_in_a_copy(self):
        source = FOLDER / "taken.xlsx"
        book = openpyxl.Workbook()
        book.active.title = "details"
        for row in ((1, 4), (2, 5), (3, 6.5)):
            book.active.append(row)
        book.save(source)
        target, result = self.save("mann-whitney", source, "--with-data")
        self.assertEqual(openpyxl.load_workbook(target).sheetnames, ["details", "Results", "Details (2)"])
        self.assertIn("and 'Details (2)'!$A$1:", result.stderr)

    def test_without_them_the_workbook_is_as_it_was(self):
        target = FOLDER / "plain.xlsx"
        run("mann-whitney", SLEEP, "--save", target, "--overwrite")
        self.assertEqual(openpyxl.load_workbook(target).sheetnames, ["Results"])

    def test_an_office_reads_them_and_keeps_them_in_ods(self):
        target, _ = self.save("kruskal-wallis", CHICKS)
        office("--convert-to", "ods", "--outdir", FOLDER, target)
        office("--convert-to", 'csv:Text - txt - csv (StarCalc):44,34,76,1,,0,false,false,true,false,false,2',
               "--outdir", FOLDER, FOLDER / "details.ods")
        with open(next(FOLDER.glob("details*.csv")), newline="", encoding="utf-8") as file:
            read = {row[0]: row[1:] for row in csv.reader(file) if row and row[0]}
        first = figures("kruskal-wallis", CHICKS)["comparisons"][0]
        shown = read["casein - horsebean"]
        self.assertEqual(shown[0], f"{first['superiority']:.0%}")
        self.assertEqual(shown[1], f"{first['z']:.4f}")
        self.assertEqual(shown[2], f"{first['p']['value']:.2E}" if first["p"]["value"] < 1e-4
                         else f"{first['p']['value']:.4f}")


if __name__ == "__main__":
    try:
        unittest.main()
    finally:
        shutil.rmtree(FOLDER, ignore_errors=True)
