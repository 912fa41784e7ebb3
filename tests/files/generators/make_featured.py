#!/usr/bin/python3
"""make_featured.py

Writes the twenty workbooks of ../made/featured anew: the same two columns on a sheet "Data", each beside something else
that a workbook may hold and a copy has to keep. Needs the packages python3-openpyxl and python3-xlsxwriter.
"""

import struct
import sys
import tempfile
import zlib
from pathlib import Path

import openpyxl
import openpyxl.chart
import openpyxl.comments
import openpyxl.formatting.rule
import openpyxl.styles
import openpyxl.workbook.defined_name
import xlsxwriter

FEATURED = Path(__file__).resolve().parent.parent / "made/featured"
ROWS = [("Before", "After"), (0.1, 4), (2, 1 / 3), (3.25, 6), (4, 7.5), (1.7, 2.5)]


def dot():
    """A picture of one pixel."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    header = struct.pack(">IIBBBBB", 1, 1, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(b"\0\xff\0\0"))
            + chunk(b"IEND", b""))


def chart_beside(book, sheet):
    chart = book.add_chart({"type": "line"})
    chart.add_series({"values": "=Data!$A$2:$A$6"})
    sheet.insert_chart("D9", chart)


def picture(book, sheet):
    with tempfile.NamedTemporaryFile(suffix=".png") as file:
        file.write(dot())
        file.flush()
        sheet.insert_image("D9", file.name)
        book.close()


def formulas(book, sheet):
    for row in range(2, 7):
        sheet.write_formula(f"C{row}", f"=A{row}+B{row}", None, row)
    sheet.write_array_formula("D2:D4", "{=A2:A4*2}", None, 0.2)


def names_and_sheets(book, sheet):
    book.define_name("Scores", "=Data!$A$2:$A$6")
    book.add_worksheet("Other").write("A1", "other")
    book.add_worksheet("Hidden").hide()


def looks(book, sheet):
    sheet.set_column("A:B", 14, book.add_format({"num_format": "0.000", "font_color": "red", "border": 1}))
    sheet.write_rich_string("D1", "rich ", book.add_format({"bold": True}), "text")
    sheet.merge_range("D3:E4", "merged")


def rules(book, sheet):
    sheet.data_validation("B2:B6", {"validate": "decimal", "criteria": ">=", "value": 0})
    sheet.conditional_format("A2:A6", {"type": "data_bar"})
    sheet.conditional_format("B2:B6", {"type": "cell", "criteria": ">", "value": 5, "format": book.add_format()})


BY_XLSXWRITER = {
    "plain": lambda book, sheet: None,
    "table": lambda book, sheet: sheet.add_table("D1:E4", {"columns": [{"header": "one"}, {"header": "two"}]}),
    "comment": lambda book, sheet: sheet.write_comment("A2", "a comment"),
    "chart": chart_beside,
    "picture": picture,
    "formulas": formulas,
    "names": names_and_sheets,
    "looks": looks,
    "rules": rules,
    "filter": lambda book, sheet: sheet.autofilter("A1:B6"),
    "printing": lambda book, sheet: (sheet.set_header("&CData"), sheet.print_area("A1:B6"), sheet.set_landscape()),
}


def link(book, sheet):
    sheet["D1"] = "a page"
    sheet["D1"].hyperlink = "https://example.org/"


def styled(book, sheet):
    book.add_named_style(openpyxl.styles.NamedStyle("own", font=openpyxl.styles.Font(bold=True)))
    sheet["A1"].style = "own"


def charted(book, sheet):
    chart = openpyxl.chart.BarChart()
    chart.add_data(openpyxl.chart.Reference(sheet, min_col=1, min_row=1, max_row=6))
    sheet.add_chart(chart, "D9")


def named(book, sheet):
    book.defined_names.append(openpyxl.workbook.defined_name.DefinedName("Scores", attr_text="Data!$A$2:$A$6"))
    book.create_sheet("Other")["A1"] = "other"


def protect(book, sheet):
    sheet.protection.sheet = True
    sheet.freeze_panes = "A2"


BY_OPENPYXL = {
    "plain": lambda book, sheet: None,
    "comment": lambda book, sheet: setattr(sheet["A2"], "comment", openpyxl.comments.Comment("a comment", "author")),
    "chart": charted,
    "link": link,
    "names": named,
    "merged": lambda book, sheet: sheet.merge_cells("D3:E4"),
    "protected": protect,
    "styles": styled,
    "1904": lambda book, sheet: setattr(book, "epoch", openpyxl.utils.datetime.CALENDAR_MAC_1904),
}


def main():
    FEATURED.mkdir(exist_ok=True)
    for name, add in BY_XLSXWRITER.items():
        book = xlsxwriter.Workbook(FEATURED / f"xlsxwriter_{name}.xlsx")
        sheet = book.add_worksheet("Data")
        for row, values in enumerate(ROWS):
            sheet.write_row(row, 0, values)
        add(book, sheet)
        if name != "picture":
            book.close()
    for name, add in BY_OPENPYXL.items():
        book = openpyxl.Workbook()
        book.active.title = "Data"
        for row in ROWS:
            book.active.append(row)
        add(book, book.active)
        book.save(FEATURED / f"openpyxl_{name}.xlsx")


if __name__ == "__main__":
    sys.exit(main())
