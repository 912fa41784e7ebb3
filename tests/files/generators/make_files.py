#!/usr/bin/python3
"""make_files.py

Writes the workbooks of ../made anew: the same cells by openpyxl, xlsxwriter, LibreOffice and Gnumeric, the latter two
by converting what xlsxwriter wrote, and workbooks that are encrypted or in the old format. Needs the packages
python3-openpyxl, python3-xlsxwriter, python3-uno, libreoffice-calc and gnumeric.
"""

import datetime
import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import openpyxl
import openpyxl.chart
import xlsxwriter

MADE = Path(__file__).resolve().parent.parent / "made"
NAME = "It's <2020> & Größe"

EXCEL = "Calc MS Excel 2007 XML"

# Column by column: a value, or a pair of a formula and its result. LibreOffice writes 15 digits of a number.
COLUMNS = [
    ["number", 1, -2.5, 0.1, 1e300, 2.5e-308, 123456789012, 0, 0.333333333333333],
    ["text", "plain", " lead", "trail ", "two\nlines", "a  b", "<&>\"'", "Ωμέγα 😀", "=no formula"],
    ["truth", True, False, None, None, None, None, None, True],
    ["error", ("=NA()", "#N/A"), ("=1/0", "#DIV/0!"), None, None, None, None, None, ("=1E308*10", "#NUM!")],
    ["date", datetime.date(2020, 3, 1), datetime.datetime(2020, 3, 1, 12), None, None, None, None, None,
     datetime.date(1999, 12, 31)],
    ["time", datetime.time(6), None, None, None, None, None, None, datetime.time(18, 45)],
    ["percent", 0.12, 0.5, None, None, None, None, None, 2],
    ["formula", ("=1+2", 3), ('="a"&"b"', "ab"), None, ("=TRUE()", True), None, None, None, ("=A2/4", 0.25)],
    ["same", "x", "x", "x", "x", 7, 7, 7, 7],
]
FORMATS = {"date": "yyyy-mm-dd hh:mm", "time": "hh:mm", "percent": "0%"}


def fill_xlsxwriter(book, sheet):
    rich = book.add_format({"bold": True})
    for column, cells in enumerate(COLUMNS):
        look = book.add_format({"num_format": FORMATS[cells[0]]}) if cells[0] in FORMATS else None
        for row, cell in enumerate(cells):
            if isinstance(cell, tuple):
                sheet.write_formula(row, column, cell[0], look, cell[1])
            elif isinstance(cell, str):
                sheet.write_string(row, column, cell)
            elif isinstance(cell, (datetime.date, datetime.time)):
                sheet.write_datetime(row, column, cell, look)
            elif cell is not None:
                sheet.write(row, column, cell, look)
    sheet.write_rich_string(0, len(COLUMNS), "rich ", rich, "text", " here")


def make_xlsxwriter(file, epoch1904=False):
    book = xlsxwriter.Workbook(file, {"date_1904": epoch1904})
    fill_xlsxwriter(book, book.add_worksheet(NAME))
    book.add_worksheet("Second").write(0, 0, "second")
    hidden = book.add_worksheet("Hidden")
    hidden.write(2, 1, 42)
    hidden.hide()
    book.close()


def make_openpyxl(file, epoch1904=False):
    book = openpyxl.Workbook()
    if epoch1904:
        book.epoch = openpyxl.utils.datetime.CALENDAR_MAC_1904
    sheet = book.active
    sheet.title = NAME
    for column, cells in enumerate(COLUMNS, 1):
        for row, value in enumerate(cells, 1):
            # It keeps a formula or its result, never both.
            result = value[1] if isinstance(value, tuple) else value
            if result is None:
                continue
            cell = sheet.cell(row, column, result)
            if isinstance(result, str):
                cell.data_type = "e" if result in ("#N/A", "#DIV/0!", "#NUM!") else "s"
            cell.number_format = FORMATS.get(cells[0], "General")
    sheet.cell(1, len(COLUMNS) + 1, "rich text here")
    book.create_sheet("Second")["A1"] = "second"
    hidden = book.create_sheet("Hidden")
    hidden["B3"] = 42
    hidden.sheet_state = "hidden"
    book.save(file)


def make_formulas_without_results(file):
    book = openpyxl.Workbook()
    sheet = book.active
    sheet.title = "Formulas"
    for row in (["before", "after"], [1, 4], [2, "=B2+1"], [3, 6], [None, "=B4+1"]):
        sheet.append(row)
    book.save(file)


def make_chart_sheet(file):
    book = openpyxl.Workbook()
    book.active.title = "Numbers"
    book.active.append([1, 2, 3])
    chart = book.create_chartsheet("Chart", 0)
    chart.add_chart(openpyxl.chart.BarChart())
    book.active = 0
    book.save(file)


class Office:
    """LibreOffice with a profile of its own, reached by a pipe."""

    def __enter__(self):
        self.profile = tempfile.mkdtemp()
        pipe = f"files{time.time_ns()}"
        self.process = subprocess.Popen(
            ["soffice", f"-env:UserInstallation=file://{self.profile}", "--headless", "--norestore", "--nologo",
             f"--accept=pipe,name={pipe};urp;"], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        import uno
        local = uno.getComponentContext()
        resolver = local.ServiceManager.createInstanceWithContext("com.sun.star.bridge.UnoUrlResolver", local)
        for _ in range(120):
            try:
                context = resolver.resolve(f"uno:pipe,name={pipe};urp;StarOffice.ComponentContext")
                break
            except Exception:  # It is not listening yet.
                time.sleep(0.5)
        self.desktop = context.ServiceManager.createInstanceWithContext("com.sun.star.frame.Desktop", context)
        return self

    def __exit__(self, *failure):
        self.desktop.terminate()
        try:
            self.process.wait(20)
        except subprocess.TimeoutExpired:
            self.process.kill()
        shutil.rmtree(self.profile, ignore_errors=True)

    def show_truth_values(self, document):
        """It takes them for numbers when it reads an .xlsx file."""
        from com.sun.star.lang import Locale
        column = [cells[0] for cells in COLUMNS].index("truth")
        logical = document.NumberFormats.getStandardFormat(1024, Locale("en", "US", ""))
        document.Sheets[0].Columns[column].NumberFormat = logical

    def convert(self, source, target, form, password=None):
        import uno
        from com.sun.star.beans import NamedValue, PropertyValue

        def properties(**values):
            return tuple(PropertyValue(Name=name, Value=value) for name, value in values.items())
        document = self.desktop.loadComponentFromURL(source.as_uri(), "_blank", 0, properties(Hidden=True))
        document.calculateAll()
        self.show_truth_values(document)
        options = {"FilterName": form}
        if password and form == EXCEL:
            options["EncryptionData"] = uno.Any("[]com.sun.star.beans.NamedValue",
                                                (NamedValue("CryptoType", "Standard"),
                                                 NamedValue("OOXPassword", password)))
        elif password:
            options["Password"] = password
        document.storeToURL(target.as_uri(), properties(**options))
        document.close(True)


def main():
    MADE.mkdir(exist_ok=True)
    for epoch in ("", "_1904"):
        make_xlsxwriter(MADE / f"xlsxwriter{epoch}.xlsx", bool(epoch))
        make_openpyxl(MADE / f"openpyxl{epoch}.xlsx", bool(epoch))
    make_formulas_without_results(MADE / "formulas_without_results.xlsx")
    make_chart_sheet(MADE / "chart_sheet.xlsx")
    with Office() as office:
        for epoch in ("", "_1904"):
            source = MADE / f"xlsxwriter{epoch}.xlsx"
            office.convert(source, MADE / f"libreoffice{epoch}.xlsx", EXCEL)
            office.convert(source, MADE / f"libreoffice{epoch}.ods", "calc8")
        office.convert(MADE / "xlsxwriter.xlsx", MADE / "libreoffice.fods", "OpenDocument Spreadsheet Flat XML")
        small = MADE / "chart_sheet.xlsx"
        office.convert(small, MADE / "encrypted.ods", "calc8", "secret")
        office.convert(small, MADE / "encrypted.xlsx", EXCEL, "secret")
        office.convert(small, MADE / "old_binary.xls", "MS Excel 97")
    for epoch in ("", "_1904"):
        for ending in (".xlsx", ".ods"):
            subprocess.run(["ssconvert", MADE / f"xlsxwriter{epoch}.xlsx", MADE / f"gnumeric{epoch}{ending}"],
                           check=True, stderr=subprocess.DEVNULL)
    subprocess.run(["ssconvert", MADE / "formulas_without_results.xlsx", MADE / "gnumeric.gnumeric"], check=True,
                   stderr=subprocess.DEVNULL)


if __name__ == "__main__":
    sys.exit(main())
