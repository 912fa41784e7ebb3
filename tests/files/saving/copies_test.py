"""Places reports into copies of workbooks and compares every part: copies_test.py PROGRAM PROJECT_FOLDER.

The workbooks are those of LibreOffice, Gnumeric, openpyxl and xlsxwriter.
"""

import csv
import json
import re
import shutil
import unittest

from workbook_files import (FOLDER, PLANTS, altered, cells, changed, copy, office, openpyxl, parts, run, strict,
                            writers)


class Copies(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.files = writers()

    def test_a_report_on_a_sheet_changes_that_sheet_and_the_styles_alone(self):
        compared = 0
        for writer, file in self.files.items():
            target, result = copy(file, "--output", "Data!H2")
            self.assertEqual(result.returncode, 0, (writer, result.stderr))
            differing, count = changed(file, target)
            self.assertEqual(differing, {"xl/worksheets/sheet1.xml", "xl/styles.xml"}, writer)
            compared += count - len(differing)
            before, after = cells(file, "Data"), cells(target, "Data")
            self.assertEqual(after["H2"][0], "Mann-Whitney Test Results for:")
            self.assertEqual({key: after.get(key) for key in before}, before, writer)
        print(f"{compared} other parts of {len(self.files)} workbooks are the same bytes, compressed and not")

    def test_numbers_and_looks_are_those_of_the_report(self):
        for writer, file in self.files.items():
            target, _ = copy(file, "--output", "Data!H2", "--descriptives")
            report = json.loads(run("mann-whitney", file, "--sheet", "Data", "--y", "A1:A6", "--x", "B1:B6",
                                    "--descriptives", "--format", "json").stdout)["report"]
            sheet = openpyxl.load_workbook(target)["Data"]
            for row, values in enumerate(report["rows"], 2):
                for column, value in enumerate(values, 8):
                    self.assertEqual(sheet.cell(row, column).value, value or (None if value == "" else value),
                                     (writer, row, column))
            self.assertEqual(sheet["I7"].alignment.horizontal, "centerContinuous")
            self.assertTrue(sheet["H2"].font.b)
            self.assertEqual(sheet["I9"].number_format, "0.0000")
            self.assertEqual(sheet["I8"].border.bottom.style, "thin")

    def test_without_a_place_a_sheet_is_added(self):
        for writer, file in self.files.items():
            target, result = copy(file, "--with-data")
            self.assertEqual(result.returncode, 0, (writer, result.stderr))
            differing, _ = changed(file, target)
            new = {name for name in differing if name.startswith("xl/worksheets/")}
            self.assertEqual(len(new), 1, writer)
            self.assertEqual(differing - new, {"[Content_Types].xml", "xl/workbook.xml",
                                               "xl/_rels/workbook.xml.rels", "xl/styles.xml"}, writer)
            book = openpyxl.load_workbook(target)
            self.assertEqual(book.sheetnames, ["Data", "Other", "Results"], writer)
            self.assertEqual(book["Results"]["A1"].value, "Mann-Whitney Test Results for:")

    def test_the_file_itself_is_changed_only_when_it_is_named_and_overwriting_allowed(self):
        file = FOLDER / "itself.xlsx"
        shutil.copy(self.files["xlsxwriter"], file)
        before = file.read_bytes()
        words = ("mann-whitney", file, "--sheet", "Data", "--y", "A1:A6", "--x", "B1:B6", "--save", file)
        self.assertIn("exists already", run(*words).stderr)
        self.assertEqual(file.read_bytes(), before)
        self.assertEqual(run(*words, "--overwrite").returncode, 0)
        self.assertEqual(openpyxl.load_workbook(file).sheetnames, ["Data", "Other", "Results"])

    def test_a_copy_keeps_its_kind_and_a_new_workbook_has_no_macros(self):
        macros, plain = self.files["macros"], self.files["xlsxwriter"]
        common = ("--sheet", "Data", "--y", "A1:A6", "--x", "B1:B6", "--save")
        for words in ((macros, *common, FOLDER / "kind.xlsx", "--output", "Data!H2"),
                      (plain, *common, FOLDER / "kind.xlsm", "--with-data"), (plain, *common, FOLDER / "kind.xlsm"),
                      (PLANTS, "--save", FOLDER / "kind.xlsm")):
            result = run("mann-whitney", *words)
            self.assertEqual(result.returncode, 1, words)
            self.assertRegex(result.stderr, "must end in|ends in .xlsx")
        self.assertFalse(list(FOLDER.glob("kind*")))

    def test_a_report_alone_is_a_new_workbook(self):
        target, result = copy(self.files["xlsxwriter"])
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(openpyxl.load_workbook(target).sheetnames, ["Results"])

    def test_overwritten_formulas_leave_the_order_of_calculation(self):
        chain = ('<calcChain xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main">{}</calcChain>')
        ends = {"[Content_Types].xml": ("</Types>", '<Override PartName="/xl/calcChain.xml" ContentType="application/'
                                        'vnd.openxmlformats-officedocument.spreadsheetml.calcChain+xml"/></Types>'),
                "xl/_rels/workbook.xml.rels": ("</Relationships>", '<Relationship Id="rId99" Type="http://schemas.open'
                                               'xmlformats.org/officeDocument/2006/relationships/calcChain" '
                                               'Target="calcChain.xml"/></Relationships>'),
                "xl/worksheets/sheet1.xml": ('<f t="array" ref="E2:E4">A2:A4*2</f>', "")}

        def chained(part, data):
            old, new = ends.get(part, ("", ""))
            return data.replace(old.encode(), new.encode()) if old else data
        file = altered(self.files["xlsxwriter"], "chain.xlsx", chained,
                       {"xl/calcChain.xml": chain.format('<c r="D2" i="1"/><c r="D3"/><c r="A1" i="2"/>')})
        target, result = copy(file, "--output", "Data!D2", "--overwrite")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(parts(target)["xl/calcChain.xml"][1].decode(), chain.format('<c r="A1" i="2"/>'))

    def test_a_workbook_without_styles_is_given_some(self):
        def unstyled(part, data):
            return None if part == "xl/styles.xml" else re.sub(rb"<(Override|Relationship)[^>]*/styles.xml[^>]*>", b"",
                                                               data)
        file = altered(self.files["openpyxl"], "plain.xlsx", unstyled)
        target, result = copy(file, "--output", "Data!H2")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(changed(file, target)[0],
                         {"xl/worksheets/sheet1.xml", "xl/styles.xml", "[Content_Types].xml",
                          "xl/_rels/workbook.xml.rels"})
        self.assertTrue(openpyxl.load_workbook(target)["Data"]["H2"].font.b)

    def test_the_strict_form_stays_strict(self):
        for writer in ("xlsxwriter", "openpyxl"):
            file = strict(self.files[writer], f"strict-{writer}.xlsx")
            target, result = copy(file, "--output", "Data!H2")
            self.assertEqual(result.returncode, 0, (writer, result.stderr))
            self.assertEqual(changed(file, target)[0], {"xl/worksheets/sheet1.xml", "xl/styles.xml"}, writer)
            self.read_strict(target, "Data", "H2")
            target, result = copy(file, "--with-data")
            self.assertEqual(result.returncode, 0, (writer, result.stderr))
            for name, (_, data) in parts(target).items():
                self.assertNotRegex(data, rb"openxmlformats.org/(spreadsheetml|officeDocument)/2006/(main|relationships/w)",
                                    (writer, name))
            self.read_strict(target, "Results", "A1")

    def read_strict(self, target, sheet, cell):
        """Only LibreOffice and the program itself read this form."""
        folder = FOLDER / "transitional"
        office("--convert-to", "xlsx:Calc MS Excel 2007 XML", "--outdir", folder, target)
        found = openpyxl.load_workbook(folder / target.name)[sheet][cell]
        self.assertEqual((found.value, found.font.b), ("Mann-Whitney Test Results for:", True), target)
        self.assertEqual(run("mann-whitney", target, "--sheet", "Data", "--y", "A1:A6", "--x", "B1:B6").returncode, 0)

    def test_libreoffice_reads_every_copy(self):
        targets = []
        for file in self.files.values():
            target, _ = copy(file, "--output", "Data!H2")
            targets.append(target.rename(FOLDER / f"opened-{target.name}"))
        folder = FOLDER / "read"
        office("--convert-to", "csv:Text - txt - csv (StarCalc):44,34,76,1", "--outdir", folder, *targets)
        for target in targets:
            with open(folder / f"{target.stem}.csv", newline="", encoding="utf-8") as file:
                rows = list(csv.reader(file))
            self.assertEqual(rows[1][7], "Mann-Whitney Test Results for:", target)
            self.assertEqual(rows[0][:2], ["Before", "After"], target)

    def test_libreoffice_finds_the_sheet_that_was_added(self):
        targets = []
        for file in self.files.values():
            target, _ = copy(file, "--with-data")
            targets.append(target.rename(FOLDER / f"added-{target.stem}.xlsx"))
        folder = FOLDER / "converted"
        office("--convert-to", "xlsx:Calc MS Excel 2007 XML", "--outdir", folder, *targets)
        for target in targets:
            book = openpyxl.load_workbook(folder / target.name)
            self.assertEqual(book.sheetnames, ["Data", "Other", "Results"], target)
            sheet = book["Results"]
            self.assertEqual((sheet["A1"].value, sheet["A1"].font.b), ("Mann-Whitney Test Results for:", True))
            self.assertEqual((sheet["A6"].value, sheet["A6"].border.bottom.style), ("U", "thin"), target)
            self.assertEqual(sheet["D7"].number_format, "0.0000", target)


if __name__ == "__main__":
    try:
        unittest.main()
    finally:
        shutil.rmtree(FOLDER, ignore_errors=True)
