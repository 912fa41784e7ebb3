"""Places reports under charts and pictures: covered_test.py PROGRAM PROJECT_FOLDER."""

import json
import shutil
import unittest

import openpyxl

from workbook_files import FOLDER, altered, by_libreoffice, by_openpyxl, by_xlsxwriter, changed, copy, run

OPTIONS = ("--sheet", "Data", "--y", "A1:A6", "--x", "B1:B6")


def by_openpyxl_with_sizes(name):
    """The same workbook with a wide column and a high row below the chart's first corner."""
    book = openpyxl.load_workbook(by_openpyxl("source.xlsx"))
    sheet = book["Data"]
    chart = openpyxl.chart.LineChart()
    chart.add_data(openpyxl.chart.Reference(sheet, min_col=1, min_row=1, max_row=6))
    sheet.add_chart(chart, "D70")
    sheet.column_dimensions["D"].width = 40
    sheet.row_dimensions[70].height = 150
    file = FOLDER / name
    book.save(file)
    return file


class Covered(unittest.TestCase):
    def assert_covered(self, file, drawing, cells, inside, beside):
        """A report of 9 rows and 4 columns at a cell reaches the drawing, or does not."""
        for place in inside:
            target, result = copy(file, "--output", "Data!" + place)
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertRegex(result.stderr, f'tbvnonpara: warning: The report at Data![^ ]* lies under {drawing}, '
                                            f"which covers {cells};", place)
            self.assertEqual(changed(file, target)[0], {"xl/worksheets/sheet1.xml", "xl/styles.xml"})
        for place in beside:
            result = copy(file, "--output", "Data!" + place)[1]
            self.assertEqual(result.returncode, 0, result.stderr)
            self.assertNotIn("warning", result.stderr, place)

    def test_a_chart_between_two_cells_is_named(self):
        # 480 x 288 pixels over columns of 64 and rows of 20: 7.5 columns, 14.4 rows.
        self.assert_covered(by_xlsxwriter("xlsxwriter.xlsx"), 'the chart "[^"]+"', "D50:K64",
                            ("A50", "D42", "K64"), ("D65", "L50", "D41"))

    def test_a_picture_is_named(self):
        self.assert_covered(by_xlsxwriter("xlsxwriter.xlsx"), 'the picture "[^"]+"', "D40", ("D40",), ("E36", "D41"))

    def test_a_chart_of_a_size_covers_the_columns_and_rows_that_it_needs(self):
        # 15 x 7.5 cm are 566.9 x 283.5 pixels: 8.9 columns, 14.2 rows.
        self.assert_covered(by_openpyxl("openpyxl.xlsx"), 'the chart "Chart 1"', "D50:L64", ("L64", "A42"), ("M50", "D65"))

    def test_wide_columns_and_high_rows_count(self):
        # 285 pixels of column D leave 4.4 columns; 200 of row 70 leave 4.2 rows.
        self.assert_covered(by_openpyxl_with_sizes("sizes.xlsx"), 'the chart "Chart [0-9]+"', "D70:I75",
                            ("I75",), ("J70", "D76"))

    def test_what_libreoffice_wrote_is_understood(self):
        self.assert_covered(by_libreoffice("libreoffice.xlsx"), 'the chart "[^"]*"', "D50:K6[45]", ("K64",), ("L50",))

    def test_hidden_drawings_and_other_sheets_do_not_count(self):
        file = altered(by_openpyxl("source.xlsx"), "hidden.xlsx", lambda part, data: data.replace(
            b'name="Chart 1"', b'name="Chart 1" hidden="1"') if "drawing" in part else data)
        self.assert_covered(file, "", "", (), ("D50",))
        self.assertNotIn("warning", copy(by_openpyxl("openpyxl.xlsx"), "--output", "Other!D50")[1].stderr)

    def test_json_holds_the_warning_and_nothing_of_it_otherwise(self):
        file = by_openpyxl("openpyxl.xlsx")
        result = run("mann-whitney", file, *OPTIONS, "--output", "Data!D50", "--format", "json")
        warnings = json.loads(result.stdout)["warnings"]
        self.assertEqual(len(warnings), 1)
        self.assertIn('lies under the chart "Chart 1"', warnings[0])
        self.assertIn("tbvnonpara: warning: " + warnings[0], result.stderr)
        result = run("mann-whitney", file, *OPTIONS, "--output", "Data!M50", "--format", "json")
        self.assertNotIn("warnings", json.loads(result.stdout))

    def test_a_damaged_drawing_is_told_and_the_report_saved(self):
        file = altered(by_openpyxl("source.xlsx"), "damaged.xlsx", lambda part, data:
                       b"<broken" if part == "xl/drawings/drawing1.xml" else data)
        target, result = copy(file, "--output", "Data!D50")
        self.assertEqual(result.returncode, 0)
        self.assertIn("could not be found out", result.stderr)
        self.assertTrue(target.exists())


if __name__ == "__main__":
    try:
        unittest.main()
    finally:
        shutil.rmtree(FOLDER, ignore_errors=True)
