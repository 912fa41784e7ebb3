"""Places reports where something is in the way: obstacles_test.py PROGRAM PROJECT_FOLDER."""

import os
import shutil
import unittest

from workbook_files import FOLDER, altered, by_openpyxl, by_xlsxwriter, changed, copy, office

MAIN = 'xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"'
PIVOT_LINK = ('<Relationship Id="rId90" Type="http://schemas.openxmlformats.org/officeDocument/2006/relationships/'
              'pivotTable" Target="../pivotTables/pivotTable1.xml"/></Relationships>')
DATA_TABLE = ('<row r="60"><c r="K60"><f t="dataTable" ref="K60:L62" dt2D="0" dtr="0" r1="A2"/><v>1</v></c></row>'
              '</sheetData>')


def with_pivot_table():
    def linked(part, data):
        is_list = part == "xl/worksheets/_rels/sheet1.xml.rels"
        return data.replace(b"</Relationships>", PIVOT_LINK.encode()) if is_list else data
    pivot = f'<pivotTableDefinition {MAIN} name="p" cacheId="1"><location ref="K40:M44" firstHeaderRow="1"/>' \
            "</pivotTableDefinition>"
    return altered(by_xlsxwriter("source.xlsx"), "pivot.xlsx", linked, {"xl/pivotTables/pivotTable1.xml": pivot})


def with_data_table():
    return altered(by_openpyxl("source.xlsx"), "data-table.xlsx", lambda part, data:
                   data.replace(b"</sheetData>", DATA_TABLE.encode()) if part == "xl/worksheets/sheet1.xml" else data)


class Obstacles(unittest.TestCase):
    def tearDown(self):
        self.assertFalse([name for name in os.listdir(FOLDER) if name.endswith(".tmp")])

    def refused(self, file, place, reason):
        target, result = copy(file, "--output", place, "--overwrite")
        self.assertEqual((result.returncode, result.stdout), (1, ""), place)
        self.assertIn(reason, result.stderr, place)
        self.assertFalse(target.exists(), place)

    def placed(self, file, place):
        target, result = copy(file, "--output", place)
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertEqual(changed(file, target)[0], {"xl/worksheets/sheet1.xml", "xl/styles.xml"})

    def test_are_named_and_nothing_is_written(self):
        file = by_xlsxwriter("xlsxwriter.xlsx")
        for place, reason in (("Data!D20", "the merged cells D20:E21"), ("Data!C28", "the table in D30:E33"),
                              ("Data!D1", "the array formula of E2:E4"), ("Data!E17", "merged cells"),
                              ("Nowhere!A1", "cannot be found")):
            self.refused(file, place, reason)

    def test_pivot_tables_are_one(self):
        file = with_pivot_table()
        for place in ("Data!J36", "Data!M44", "Data!K40"):
            self.refused(file, place, "the pivot table in K40:M44")
        self.placed(file, "Data!N40")
        self.placed(file, "Data!K45")

    def test_data_tables_are_one(self):
        file = with_data_table()
        for place in ("Data!L62", "Data!H56", "Data!K60"):
            self.refused(file, place, "the data table of K60:L62")
        self.placed(file, "Data!M60")
        self.placed(file, "Data!H63")

    def test_occupied_cells_are_one_unless_overwriting_is_allowed(self):
        file = by_openpyxl("openpyxl.xlsx")
        target, result = copy(file, "--output", "Data!C1")
        self.assertIn("D2", result.stderr)
        self.assertIn("overwriting", result.stderr)
        self.assertFalse(target.exists())
        self.assertEqual(copy(file, "--output", "Data!C1", "--overwrite")[1].returncode, 0)

    def test_a_signature_is_one(self):
        file = altered(by_openpyxl("openpyxl.xlsx"), "signed.xlsx", more={"_xmlsignatures/sig1.xml": "<Signature/>"})
        self.refused(file, "Data!H2", "signed")
        target, result = copy(file, "--with-data")
        self.assertIn("signed", result.stderr)
        self.assertFalse(target.exists())

    def test_another_kind_of_workbook_is_one(self):
        office("--convert-to", "ods", "--outdir", FOLDER, by_xlsxwriter("source.xlsx"))
        file = FOLDER / "source.ods"
        target, result = copy(file, "--output", "Data!H2")
        self.assertEqual(result.returncode, 2)
        self.assertIn("the ending says nothing", result.stderr)
        self.assertFalse(target.exists())
        self.refused(file.rename(FOLDER / "misnamed.xlsx"), "Data!H2", "is not a workbook that can be copied")


if __name__ == "__main__":
    try:
        unittest.main()
    finally:
        shutil.rmtree(FOLDER, ignore_errors=True)
