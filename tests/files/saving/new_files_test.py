"""Saves reports in new workbooks and reads them back: new_files_test.py PROGRAM PROJECT_FOLDER."""

import os
import shutil
import struct
import subprocess
import unittest

from workbook_files import FOLDER, PLANTS, PROGRAM, PROJECT, openpyxl, parts, run

from german import german  # after the folder that it lies in is known


class NewWorkbooks(unittest.TestCase):
    def save(self, text, *words):
        source = FOLDER / "source.csv"
        source.write_text(text, encoding="utf-8", newline="")
        target = FOLDER / "new.xlsx"
        target.unlink(missing_ok=True)
        return target, run(*words[:1], source, "--save", target, *words[1:])

    def test_hold_the_report_and_the_data_bit_for_bit(self):
        numbers = [0.1, 1 / 3, 2.5e-308, 1.7976931348623157e308, 123456789.12345679, -0.0, 5e-324]
        text = "a;b\n" + "".join(f"{value!r};{value * 0.7!r}\n" for value in numbers)
        target, result = self.save(text, "mann-whitney", "--with-data", "--descriptives")
        self.assertEqual(result.returncode, 0, result.stderr)
        book = openpyxl.load_workbook(target)
        self.assertEqual(book.sheetnames, ["Results", "source"])
        read = [book["source"].cell(row, 1).value for row in range(2, len(numbers) + 2)]
        self.assertEqual([struct.pack("d", value) for value in read], [struct.pack("d", value) for value in numbers])
        self.assertEqual([book["Results"].cell(row, 2).value for row in range(8, 15)], numbers)

    def test_texts_that_look_like_formulas_stay_texts(self):
        labels = ["=1+2", "+A1", "@SUM(1)", "_x0041_", " lead  ", "<&\"'>"]
        text = ",".join('"' + label.replace('"', '""') + '"' for label in labels) + "\n1,2,3,4,5,6\n2,3,4,5,6,8\n3,5,5,7,8,9\n"
        target, result = self.save(text, "kruskal-wallis", "--with-data", "--headers")
        self.assertEqual(result.returncode, 0, result.stderr)
        sheet = openpyxl.load_workbook(target)["source"]
        read = [sheet.cell(1, column) for column in range(1, 7)]
        self.assertEqual([cell.data_type for cell in read], ["s"] * 6)
        self.assertEqual([cell.value.replace("_x005F_", "_") for cell in read], labels)

    def test_hold_the_data_around_a_report_that_is_put_beside_them(self):
        target, result = self.save("a,b\n1,4\n2,5\n3,6\n", "mann-whitney", "--output", "D2")
        self.assertEqual(result.returncode, 0, result.stderr)
        sheet = openpyxl.load_workbook(target)["source"]
        self.assertEqual((sheet["A1"].value, sheet["B4"].value, sheet["D2"].value),
                         ("a", 6, "Mann-Whitney Test Results for:"))

    def test_control_characters_are_refused_with_their_cell(self):
        target, result = self.save("a\x07b,c\n1,2\n2,3\n", "mann-whitney", "--with-data")
        self.assertEqual(result.returncode, 1)
        self.assertIn("source!A1 cannot be saved in a workbook: character 2 is a control character", result.stderr)
        self.assertFalse(target.exists())

    def test_are_the_same_in_every_locale(self):
        texts = []
        for environment in ({"LC_ALL": "C"}, german()):
            target = FOLDER / f"{environment['LC_ALL']}.xlsx"
            subprocess.run([PROGRAM, "mann-whitney", str(PLANTS), "--save", str(target)], check=True,
                           capture_output=True, env={**os.environ, **environment}, timeout=60)
            texts.append(parts(target)["xl/worksheets/sheet1.xml"][1])
        self.assertEqual(texts[0], texts[1])

    def test_show_the_subscript_and_wide_enough_columns(self):
        target = FOLDER / "spearman.xlsx"
        run("spearman", PROJECT / "examples/tuna.csv", "--save", target)
        sheet = parts(target)["xl/worksheets/sheet1.xml"][1].decode()
        self.assertRegex(sheet, r'<t>r</t></r><r><rPr>.*<vertAlign val="subscript"/></rPr><t>s</t>')
        target = FOLDER / "wide.xlsx"
        run("friedman", PROJECT / "examples/rounding.csv", "--descriptives", "--save", target)
        widths = openpyxl.load_workbook(target)["Results"].column_dimensions
        self.assertGreater(min(dimension.width for dimension in widths.values()), 8.5)


if __name__ == "__main__":
    try:
        unittest.main()
    finally:
        shutil.rmtree(FOLDER, ignore_errors=True)
