"""Files as people and their programs keep them, through the program: habits_test.py PROGRAM.

Each file is made here, or by the script generators/make_files.py, and carries one habit.
"""

import os
import pathlib
import struct
import subprocess
import sys
import tempfile
import threading
import time
import unittest
import zipfile

PROGRAM = os.path.abspath(sys.argv.pop(1))
MADE = pathlib.Path(__file__).resolve().parent / "made"
SANITIZED = b"__asan_init" in pathlib.Path(PROGRAM).read_bytes()
SPEED = [4, 4, 7, 7, 8, 9, 10, 10]
DIST = [2, 10, 4, 22, 16, 10, 18, 26]

MAIN = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
RELATIONS = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
PACKAGE = "http://schemas.openxmlformats.org/package/2006/relationships"


def run(*words, stdin=None):
    return subprocess.run([PROGRAM, *map(str, words)], input=stdin, capture_output=True, check=False, timeout=120)


def fill(pipe, file):
    """Writes a file into a pipe while another reads it. A pipe that nobody reads does not keep the tests from ending."""
    threading.Thread(target=lambda: pipe.write_bytes(file.read_bytes()), daemon=True).start()


def workbook_parts(cells, sheets='<sheet name="Data" sheetId="1" r:id="a"/>'):
    """The parts of a workbook with one sheet: rows of cells as XML, or as numbers."""
    rows = "".join("<row>" + "".join(cell if isinstance(cell, str) else f"<c><v>{cell}</v></c>" for cell in row) + "</row>"
                   for row in cells)
    return {
        "[Content_Types].xml":
            '<Types xmlns="http://schemas.openxmlformats.org/package/2006/content-types">'
            '<Default Extension="xml" ContentType="application/xml"/>'
            '<Default Extension="rels" ContentType="application/vnd.openxmlformats-package.relationships+xml"/></Types>',
        "_rels/.rels": f'<Relationships xmlns="{PACKAGE}"><Relationship Id="w" Type="{RELATIONS}/officeDocument" '
                       'Target="xl/workbook.xml"/></Relationships>',
        "xl/workbook.xml": f'<workbook xmlns="{MAIN}" xmlns:r="{RELATIONS}"><sheets>{sheets}</sheets></workbook>',
        "xl/_rels/workbook.xml.rels": f'<Relationships xmlns="{PACKAGE}"><Relationship Id="a" '
                                      f'Type="{RELATIONS}/worksheet" Target="worksheets/sheet1.xml"/></Relationships>',
        "xl/worksheets/sheet1.xml": f'<worksheet xmlns="{MAIN}"><sheetData>{rows}</sheetData></worksheet>',
        "xl/note.xml": "<note>kept as it is</note>",
    }


def with_heads_changed(data, change):
    """The archive with the head of each part changed; the list at its end stays."""
    data = bytearray(data)
    at = data.find(b"PK\1\2")
    while data[at:at + 4] == b"PK\1\2":
        name, extra, comment = struct.unpack_from("<HHH", data, at + 28)
        change(data, struct.unpack_from("<I", data, at + 42)[0])
        at += 46 + name + extra + comment
    return bytes(data)


def another_time(data, head):
    struct.pack_into("<HH", data, head + 10, 12345, 23456)


def zeroed(data, head):
    struct.pack_into("<III", data, head + 14, 0, 0, 0)


class Habits(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.path = pathlib.Path(self.folder.name)

    def tearDown(self):
        self.folder.cleanup()

    def write(self, name, data):
        file = self.path / name
        file.write_bytes(data if isinstance(data, bytes) else data.encode())
        return file

    def pack(self, name, parts):
        file = self.path / name
        with zipfile.ZipFile(file, "w", zipfile.ZIP_DEFLATED) as archive:
            for part, text in parts.items():
                archive.writestr(part, text)
        return file

    def report(self, *words, **options):
        result = run(*words, **options)
        self.assertEqual(result.returncode, 0, result.stderr.decode())
        return result.stdout.decode(), result.stderr.decode()

    def refusal(self, *words, **options):
        result = run(*words, **options)
        self.assertEqual((result.returncode, result.stdout), (1, b""), result.stderr)
        return result.stderr.decode()


class TextFiles(Habits):
    def spearman(self, name, text, *options):
        return self.report("spearman", self.write(name, text), *options)

    def setUp(self):
        super().setUp()
        lines = "".join(f"{speed},{dist}\n" for speed, dist in zip(SPEED, DIST))
        self.plain, _ = self.spearman("plain.csv", "speed,dist\n" + lines)

    def expect_the_plain_report(self, report, address):
        """Everything but the addresses is that of the same data without the habit."""
        kept = [[line for line in text.splitlines() if "Range =" not in line] for text in (report, self.plain)]
        self.assertEqual(*kept)
        self.assertIn(address, report)

    def test_of_write_csv_are_read_without_their_row_names(self):
        rows = "".join(f'"{i}",{x},{y}\n' for i, (x, y) in enumerate(zip(SPEED, DIST), 1))
        report, note = self.spearman("cars.csv", '"","speed","dist"\n' + rows)
        self.expect_the_plain_report(report, "cars!$B$1:$B$9")
        self.assertIn("using cars!B1:B9 and cars!C1:C9 (first row is headers; column A, which has no header, is taken "
                      "for row names)", note)

    def test_of_write_table_are_read_without_their_row_names(self):
        for name, mark, options in (("cars.tsv", "\t", []), ("cars.txt", " ", []),
                                    ("cars.txt", " ", ["--delimiter", "space"])):
            rows = "".join(f'"r {i}"{mark}{x}{mark}{y}\n' for i, (x, y) in enumerate(zip(SPEED, DIST)))
            report, note = self.spearman(name, f'"speed"{mark}"dist"\n' + rows, *options)
            self.expect_the_plain_report(report, "cars!$B$1:$B$9")
            self.assertIn("one field shorter than the rows below it; it was moved by one column", note)

    def test_with_a_header_of_another_length_are_refused(self):
        for rows in ("1,2,3,4\n5,6,7,8\n", "1\n2\n"):
            text = "speed,dist\n" + rows if "," in rows else "a,b,c\n1,2\n3,4\n"
            self.assertIn("give every column a header", self.refusal("spearman", self.write("a.csv", text)))

    def test_of_one_column_are_not_split_at_a_stray_semicolon(self):
        text = "cat\n" + "good\nbad; late\ngood\nbad; early\n" * 3
        report, _ = self.report("runs", self.write("a.csv", text))
        for category in ("good", "bad; late", "bad; early"):
            self.assertIn(category, report)

    def test_that_name_their_delimiter_are_read_by_it(self):
        rows = "".join(f"{x};{y}\r\n" for x, y in zip(SPEED, DIST))
        report, _ = self.spearman("a.csv", "sep=;\r\nspeed;dist\r\n" + rows)
        self.expect_the_plain_report(report, "a!$A$1:$A$9")

    def test_of_other_encodings_are_read(self):
        rows = "Größe,dist\n" + "".join(f"{x},{y}\n" for x, y in zip(SPEED, DIST))
        for encoding, options in (("utf-16", []), ("utf-16-be", []), ("latin1", ["--encoding", "latin1"]),
                                  ("cp1252", ["--encoding", "windows-1252"])):
            data = (b"\xfe\xff" if encoding == "utf-16-be" else b"") + rows.encode(encoding)
            report, _ = self.report("spearman", self.write("a.csv", data), "--y", "Größe", "--x", "dist", *options)
            self.expect_the_plain_report(report, "a!$A$1:$A$9")
        refusal = self.refusal("spearman", self.write("a.csv", rows.encode("latin1")))
        self.assertIn("a.csv, line 1, byte 3: not valid UTF-8; save the file as UTF-8. Or name its encoding: "
                      "--encoding windows-1252 or --encoding latin1.", refusal)
        self.assertIn("a.csv is UTF-32 text", self.refusal("spearman", self.write("a.csv", rows.encode("utf-32"))))

    def test_with_comments_blanks_and_thousands_are_read(self):
        rows = "".join(f"{x:8}   {y}\n# checked\n" for x, y in zip(SPEED, DIST))
        report, _ = self.spearman("a.txt", "# from the lab, 2020; new\nspeed dist\n" + rows, "--delimiter", "space",
                                  "--comment", "#")
        self.expect_the_plain_report(report, "a!$A$1:$A$9")
        rows = "".join(f"{x}.000,5;{y}.000\n" for x, y in zip(SPEED, DIST))
        report, _ = self.spearman("b.csv", "speed;dist\n" + rows, "--thousands", ".")
        self.expect_the_plain_report(report, "b!$A$1:$A$9")

    def test_in_other_forms_are_named_and_not_analysed(self):
        forms = {"JSON": '[{"a": 1, "b": 2}, {"a": 3, "b": 4}]', "a symbolic link file": "ID;PWXL;N;E\nP;PGeneral\nE\n",
                 "a data interchange file": 'TABLE\n0,1\n"EXCEL"\nVECTORS\n0,2\n""\n', "an RTF document": "{\\rtf1 1,2}",
                 "a web page": "<table><tr><td>1<td>2</table>",
                 "the XML of 2003": '<?xml version="1.0"?><Workbook xmlns="urn:schemas-microsoft-com:office:spreadsheet"/>'}
        for kind, text in forms.items():
            for data in (text.encode(), text.encode("utf-16")):
                file = self.write("a.csv", data)
                self.assertIn("cannot be read: it is", self.refusal("runs", file))
                self.assertIn(kind, self.refusal("runs", file))
                self.assertIn(kind, self.refusal("runs", "-", stdin=data))


class Workbooks(Habits):
    NUMBERS = [[x, y] for x, y in zip(SPEED, DIST)]

    def test_in_one_piece_of_xml_give_the_same_report(self):
        words = ["--y", "A2:A9", "--x", "I6:I9"]
        self.assertEqual(self.report("mann-whitney", MADE / "libreoffice.fods", *words),
                         self.report("mann-whitney", MADE / "libreoffice.ods", *words))

    def test_come_through_pipes_and_devices(self):
        file = MADE / "xlsxwriter.xlsx"
        words = ["--y", "A2:A9", "--x", "I6:I9"]
        expected, _ = self.report("mann-whitney", file, *words)
        pipe = self.path / "pipe"
        os.mkfifo(pipe)
        for save in ([], ["--save", self.path / "report.txt"]):
            fill(pipe, file)
            report, _ = self.report("mann-whitney", pipe, *words, *save)
            self.assertEqual((self.path / "report.txt").read_text() if save else report, expected)
        self.assertEqual(self.report("mann-whitney", "/dev/stdin", *words, stdin=file.read_bytes())[0], expected)

    def test_of_a_pipe_can_be_saved_with_the_report(self):
        pipe = self.path / "pipe"
        os.mkfifo(pipe)
        fill(pipe, MADE / "xlsxwriter.xlsx")
        self.report("mann-whitney", pipe, "--y", "A2:A9", "--x", "I6:I9", "--save", self.path / "a.xlsx")
        self.assertTrue(zipfile.is_zipfile(self.path / "a.xlsx"))

    def test_with_a_cell_that_cannot_be_read_are_read_beside_it(self):
        bad = '<c t="d"><v>1900-02-29</v></c>'
        file = self.pack("a.xlsx", workbook_parts([[x, y, bad] for x, y in zip(SPEED, DIST)]))
        self.report("spearman", file, "--y", "A", "--x", "B")
        self.assertIn('Data!$C$1 cannot be read: "1900-02-29" is no date; correct the cell in a spreadsheet',
                      self.refusal("spearman", file, "--y", "A", "--x", "C"))
    def test_with_a_sheet_without_a_part_are_read_without_it(self):
        sheets = '<sheet name="Lost" sheetId="2"/><sheet name="Gone" sheetId="3" r:id="q"/>' \
                 '<sheet name="Data" sheetId="1" r:id="a"/>'
        file = self.pack("a.xlsx", workbook_parts(self.NUMBERS, sheets))
        self.assertIn("Data!$A$1:$A$8", self.report("spearman", file)[0])
        self.assertIn('the sheets are: "Data".', self.refusal("spearman", file, "--sheet", "Lost"))

    def copied(self, file):
        """The parts of a copy with a report: all but the sheet's and the styles are the same bytes."""
        target = self.path / "copy.xlsx"
        self.report("spearman", file, "--y", "A", "--x", "B", "--output", "Data!H1", "--save", target, "--overwrite")
        with zipfile.ZipFile(file) as before, zipfile.ZipFile(target) as after:
            self.assertIsNone(after.testzip())
            names = [info.orig_filename.replace("\\", "/").lower() for info in after.infolist()]
            self.assertEqual(len(names), len(set(names)))
            kept = [info for info in before.infolist() if "note" in info.filename]
            self.assertEqual(len(kept), 1)
            self.assertEqual(after.read(kept[0].filename), before.read(kept[0]))
            parts = [after.read(info.filename) for info in after.infolist()]
        self.assertTrue(any(b"Spearman Rank Correlation Results" in part for part in parts))

    def test_with_backslashes_in_their_part_names_are_read_and_copied(self):
        parts = {name.replace("/", "\\"): text for name, text in workbook_parts(self.NUMBERS).items()}
        self.copied(self.pack("a.xlsx", parts))

    def test_whose_heads_differ_in_time_or_hold_zeros_are_copied(self):
        whole = self.pack("a.xlsx", workbook_parts(self.NUMBERS)).read_bytes()
        for change in (another_time, zeroed):
            with self.subTest(change=change.__name__):
                self.copied(self.write("b.xlsx", with_heads_changed(whole, change)))

    def test_whose_parts_are_not_where_the_list_says_are_not_copied(self):
        whole = self.pack("a.xlsx", workbook_parts(self.NUMBERS)).read_bytes()

        def other_name(data, head):
            data[head + 30 + 1] ^= 1

        def other_size(data, head):
            struct.pack_into("<I", data, head + 18, struct.unpack_from("<I", data, head + 18)[0] + 1)
        for change in (other_name, other_size):
            with self.subTest(change=change.__name__):
                file = self.write("b.xlsx", with_heads_changed(whole, change))
                text = self.refusal("spearman", file, "--y", "A", "--x", "B", "--output", "Data!H1", "--save",
                                    self.path / "c.xlsx")
                self.assertIn("is not as the list of parts says", text)
                self.assertFalse((self.path / "c.xlsx").exists())


class WideFiles(Habits):
    @unittest.skipIf(SANITIZED, "the sanitizers take their own time")
    def test_of_all_columns_are_searched_by_header_at_once(self):
        header = ",".join(f"c{i}" for i in range(16384))
        rows = "".join(",".join(str((row * 7 + i) % 11) for i in range(16384)) + "\n" for row in range(4))
        file = self.write("wide.csv", header + "\n" + rows)
        named, lettered = [], []
        for times, words in ((named, ["c16383", "c16382"]), (lettered, ["XFD1:XFD5", "XFC1:XFC5"])) * 3:
            started = time.monotonic()
            self.report("mann-whitney", file, "--y", words[0], "--x", words[1])
            times.append(time.monotonic() - started)
        # What the names cost beyond addresses; looking through all columns for each column took seconds.
        self.assertLess(min(named) - min(lettered), 0.2)


if __name__ == "__main__":
    unittest.main()
