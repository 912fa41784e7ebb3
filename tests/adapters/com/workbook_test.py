#!/usr/bin/python3
"""workbook_test.py FILE

The add-in workbook of the package as openpyxl reads it: one sheet, "Results", with nothing on it.
"""
import io
import sys
import zipfile

import openpyxl

ADDIN = b"application/vnd.ms-excel.addin.macroEnabled.main+xml"
WORKBOOK = b"application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"


def as_workbook(path):
    """The same parts with the content type of a plain workbook: openpyxl knows no add-ins."""
    copy = io.BytesIO()
    with zipfile.ZipFile(path) as given, zipfile.ZipFile(copy, "w") as written:
        types = given.read("[Content_Types].xml")
        assert types.count(ADDIN) == 1, "the workbook is no add-in"
        for name in given.namelist():
            written.writestr(name, given.read(name).replace(ADDIN, WORKBOOK))
    return copy


def main():
    book = openpyxl.load_workbook(as_workbook(sys.argv[1]))
    assert book.sheetnames == ["Results"], book.sheetnames
    assert book["Results"].sheet_state == "visible"
    assert [cell for row in book["Results"].iter_rows() for cell in row if cell.value is not None] == []
    print("passed")


if __name__ == "__main__":
    main()
