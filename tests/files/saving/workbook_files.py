"""What the tests of saved workbooks share: the program, workbooks of four writers, and their parts."""

import os
import pathlib
import shutil
import struct
import subprocess
import sys
import tempfile
import zipfile
import zlib



def missing(package):
    """Ends the test as failed: nothing that it compares with may be left out."""
    sys.exit(f"FAILED: the Debian package {package} is missing; cmake/install_packages check installs it")


def require(command, package):
    found = shutil.which(command)
    return found if found else missing(package)


try:
    import openpyxl
except ImportError:
    missing("python3-openpyxl")
try:
    import xlsxwriter
except ImportError:
    missing("python3-xlsxwriter")

PROGRAM = os.path.abspath(sys.argv.pop(1))
PROJECT = pathlib.Path(sys.argv.pop(1)).resolve()
sys.path.append(str(PROJECT / "tests"))
PLANTS = PROJECT / "examples/plants.csv"
FOLDER = pathlib.Path(tempfile.mkdtemp())
ROWS = [("Before", "After"), (0.1, 4), (2, 1 / 3), (3.25, 6), (4, 7.5), (1.7, 2e-300)]


def run(*words):
    return subprocess.run([PROGRAM, *map(str, words)], capture_output=True, encoding="utf-8", timeout=120)


def office(*words):
    """LibreOffice with a profile of its own."""
    profile = FOLDER / "profile"
    command = require("soffice", "libreoffice-calc")
    return subprocess.run([command, f"-env:UserInstallation=file://{profile}", "--headless", *map(str, words)],
                          capture_output=True, timeout=180, check=True)


def dot():
    """A picture of one pixel."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    header = struct.pack(">IIBBBBB", 1, 1, 8, 2, 0, 0, 0)
    data = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) + chunk(b"IDAT", zlib.compress(b"\0\xff\0\0"))
    file = FOLDER / "dot.png"
    file.write_bytes(data + chunk(b"IEND", b""))
    return file


def by_xlsxwriter(name, macros=False, comment=True):
    file = FOLDER / name
    book = xlsxwriter.Workbook(str(file))
    sheet = book.add_worksheet("Data")
    look = book.add_format({"num_format": "0.0000", "font_color": "red"})
    for row, values in enumerate(ROWS):
        sheet.write_row(row, 0, values, look)
    sheet.write_formula("D2", "=A2+B2", None, 4.1)
    sheet.write_formula("D3", "=A3+B3", None, 7 / 3)
    sheet.write_array_formula("E2:E4", "{=A2:A4*2}", None, 0.2)
    sheet.merge_range("D20:E21", "merged")
    sheet.add_table("D30:E33", {"columns": [{"header": "one"}, {"header": "two"}]})
    if comment:
        sheet.write_comment("A2", "a comment")
    sheet.data_validation("B2:B6", {"validate": "decimal", "criteria": ">=", "value": 0})
    sheet.conditional_format("A2:A6", {"type": "data_bar"})
    sheet.insert_image("D40", str(dot()))
    chart = book.add_chart({"type": "line"})
    chart.add_series({"values": "=Data!$A$2:$A$6"})
    sheet.insert_chart("D50", chart)
    book.add_worksheet("Other").write("A1", "other")
    if macros:
        binary = FOLDER / "macros.bin"
        binary.write_bytes(bytes(range(256)) * 8)
        book.add_vba_project(str(binary))
    book.close()
    return file


def by_openpyxl(name):
    book = openpyxl.Workbook()
    sheet = book.active
    sheet.title = "Data"
    for row in ROWS:
        sheet.append(row)
    sheet["A2"].comment = openpyxl.comments.Comment("a comment", "author")
    sheet["D2"] = "text"
    sheet.merge_cells("D20:E21")
    chart = openpyxl.chart.LineChart()
    chart.add_data(openpyxl.chart.Reference(sheet, min_col=1, min_row=1, max_row=6))
    sheet.add_chart(chart, "D50")
    book.create_sheet("Other")["A1"] = "other"
    file = FOLDER / name
    book.save(file)
    return file


def by_libreoffice(name):
    source = by_xlsxwriter("source.xlsx")
    folder = FOLDER / "libreoffice"
    office("--convert-to", "xlsx:Calc MS Excel 2007 XML", "--outdir", folder, source)
    return (folder / "source.xlsx").rename(FOLDER / name)


def by_gnumeric(name):
    file = FOLDER / name
    # What it makes of a comment is not read by openpyxl.
    source = by_xlsxwriter("source.xlsx", comment=False)
    command = require("ssconvert", "gnumeric")
    subprocess.run([command, str(source), str(file)], capture_output=True, timeout=60,
                   check=True, env={**os.environ, "HOME": str(FOLDER)})
    return file


def writers():
    return {"xlsxwriter": by_xlsxwriter("xlsxwriter.xlsx"), "macros": by_xlsxwriter("macros.xlsm", True),
            "openpyxl": by_openpyxl("openpyxl.xlsx"), "libreoffice": by_libreoffice("libreoffice.xlsx"),
            "gnumeric": by_gnumeric("gnumeric.xlsx")}


def altered(source, name, change=lambda part, data: data, more=None):
    """A workbook with some parts changed, left out (None) or added."""
    file = FOLDER / name
    with zipfile.ZipFile(source) as old, zipfile.ZipFile(file, "w", zipfile.ZIP_DEFLATED) as new:
        for part in old.namelist():
            data = change(part, old.read(part))
            if data is not None:
                new.writestr(part, data)
        for part, data in (more or {}).items():
            new.writestr(part, data)
    return file


STRICT = "http://purl.oclc.org/ooxml/"
STRICT_NAMES = (("http://schemas.openxmlformats.org/officeDocument/2006/", STRICT + "officeDocument/"),
                ("http://schemas.openxmlformats.org/spreadsheetml/2006/", STRICT + "spreadsheetml/"),
                ("http://schemas.openxmlformats.org/drawingml/2006/", STRICT + "drawingml/"))


def strict(source, name):
    """The same workbook in the strict form, whose names are others."""
    def renamed(part, data):
        if not part.endswith((".xml", ".rels")):
            return data
        for old, new in STRICT_NAMES:
            data = data.replace(old.encode(), new.encode())
        return data.replace(b"<workbook ", b'<workbook conformance="strict" ')
    return altered(source, name, renamed)


def parts(file):
    """Every part as it is stored: name -> compressed bytes and content."""
    stored = {}
    with zipfile.ZipFile(file) as archive, open(file, "rb") as raw:
        assert archive.testzip() is None
        for entry in archive.infolist():
            raw.seek(entry.header_offset + 26)
            name, extra = struct.unpack("<HH", raw.read(4))
            raw.seek(name + extra, 1)
            stored[entry.filename] = (raw.read(entry.compress_size), archive.read(entry))
    return stored


def changed(before, after):
    first, second = parts(before), parts(after)
    return {name for name in first | second if first.get(name) != second.get(name)}, len(first)


def cells(file, sheet):
    return {cell.coordinate: (cell.value, cell.number_format, cell.font.b)
            for row in openpyxl.load_workbook(file)[sheet].iter_rows() for cell in row if cell.value is not None}


def copy(file, *words):
    """Places a report into a copy of a workbook, which itself must stay as it is."""
    target = FOLDER / f"{file.stem}-copy{file.suffix}"
    target.unlink(missing_ok=True)
    before = file.read_bytes()
    result = run("mann-whitney", file, "--sheet", "Data", "--y", "A1:A6", "--x", "B1:B6", "--save", target, *words)
    assert file.read_bytes() == before, f"{file} was changed"
    return target, result
