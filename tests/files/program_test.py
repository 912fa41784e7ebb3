"""Workbook files through the program: program_test.py PROGRAM.

Whatever a file is, the program ends with its report or with status 1 and a message, and takes no more memory than it is
given here.
"""

import pathlib
import random
import resource
import struct
import subprocess
import sys
import tempfile
import time
import unittest
import zipfile

PROGRAM = sys.argv.pop(1)
MADE = pathlib.Path(__file__).resolve().parent / "made"
SANITIZED = b"__asan_init" in pathlib.Path(PROGRAM).read_bytes()

WRITERS = ("openpyxl.xlsx", "xlsxwriter.xlsx", "libreoffice.xlsx", "libreoffice.ods", "gnumeric.xlsx", "gnumeric.ods")

MAIN = "http://schemas.openxmlformats.org/spreadsheetml/2006/main"
# All that reading may take: the limits on scattered cells and on texts lie below it.
MEMORY = 1200 << 20
SECONDS = 60 if SANITIZED else 20


def limit_memory():
    # The sanitizers reserve terabytes of addresses.
    if not SANITIZED:
        resource.setrlimit(resource.RLIMIT_AS, (MEMORY, MEMORY))


def run(*words, stdin=None):
    return subprocess.run([PROGRAM, *map(str, words)], input=stdin, capture_output=True, check=False, timeout=SECONDS,
                          preexec_fn=limit_memory)


def xlsx(file, rows, shared="", prologue=""):
    """One sheet of these rows; the prologue stands in front of the sheet's root."""
    relationships = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
    package = "http://schemas.openxmlformats.org/package/2006/relationships"
    with zipfile.ZipFile(file, "w", zipfile.ZIP_DEFLATED) as archive:
        archive.writestr("xl/workbook.xml", f"<workbook xmlns='{MAIN}' xmlns:r='{relationships}'><sheets>"
                                            "<sheet name='Data' r:id='a'/></sheets></workbook>")
        archive.writestr("xl/_rels/workbook.xml.rels",
                         f"<Relationships xmlns='{package}'>"
                         "<Relationship Id='a' Type='x/worksheet' Target='/xl/s.xml'/>"
                         "<Relationship Id='b' Type='x/sharedStrings' Target='t.xml'/></Relationships>")
        archive.writestr("xl/t.xml", f"<sst xmlns='{MAIN}'>{shared}</sst>")
        with archive.open("xl/s.xml", "w", force_zip64=True) as sheet:
            sheet.write(f"{prologue}<worksheet xmlns='{MAIN}'><sheetData>".encode())
            for row in rows:
                sheet.write(row if isinstance(row, bytes) else row.encode())
            sheet.write(b"</sheetData></worksheet>")


def ods(file, rows, prologue=""):
    names = "urn:oasis:names:tc:opendocument:xmlns"
    with zipfile.ZipFile(file, "w", zipfile.ZIP_DEFLATED) as archive:
        archive.writestr("mimetype", "application/vnd.oasis.opendocument.spreadsheet")
        archive.writestr("content.xml", f"{prologue}<o:document-content xmlns:o='{names}:office:1.0' "
                                        f"xmlns:t='{names}:table:1.0' xmlns:x='{names}:text:1.0'><o:body>"
                                        "<o:spreadsheet><t:table t:name='Data'>".encode()
                         + (rows if isinstance(rows, bytes) else rows.encode())
                         + b"</t:table></o:spreadsheet></o:body></o:document-content>")


def sheet_part(name):
    """The part that holds the cells of a file."""
    return b"content.xml" if name.endswith(".ods") else b"xl/worksheets/sheet1.xml"


class Reports(unittest.TestCase):
    def test_are_the_same_from_files_of_all_writers(self):
        reports = set()
        for name in WRITERS:
            result = run("mann-whitney", MADE / name, "--y", "A2:A9", "--x", "I6:I9")
            self.assertEqual(result.returncode, 0, result.stderr)
            reports.add(result.stdout)
        self.assertEqual(len(reports), 1)
        self.assertIn("Set 1 Range = It's <2020> & Größe!$A$2:$A$9", reports.pop().decode())

    def test_come_from_standard_input_as_well(self):
        file = MADE / "xlsxwriter.xlsx"
        piped = run("mann-whitney", "-", "--y", "A2:A9", "--x", "I6:I9", stdin=file.read_bytes())
        self.assertEqual(piped.stdout, run("mann-whitney", file, "--y", "A2:A9", "--x", "I6:I9").stdout)
        self.assertEqual(piped.returncode, 0)


class Sheets(unittest.TestCase):
    def test_are_chosen_by_name_hidden_ones_too(self):
        result = run("runs", MADE / "libreoffice.ods", "--sheet", "hidden", "--y", "B3")
        self.assertIn("Hidden!$B$3", (result.stdout + result.stderr).decode().replace("B3", "$B$3"))

    def test_that_are_unknown_are_answered_by_the_names_there_are(self):
        result = run("runs", MADE / "openpyxl.xlsx", "--sheet", "Third")
        self.assertEqual(result.returncode, 1)
        self.assertIn('the sheets are: "It\'s <2020> & Größe", "Second", "Hidden"', result.stderr.decode())


class Formulas(unittest.TestCase):
    def test_without_a_result_are_refused_where_the_data_touch_them(self):
        file = MADE / "formulas_without_results.xlsx"
        for words in (["--y", "A1:A4", "--x", "B"], ["--y", "B", "--x", "A1:A4"], []):
            result = run("mann-whitney", file, *words)
            self.assertEqual((result.returncode, result.stdout), (1, b""), words)
            self.assertIn("Formulas!$B$3 holds a formula whose result is not in the file", result.stderr.decode())

    def test_without_a_result_elsewhere_do_no_harm(self):
        result = run("runs", MADE / "formulas_without_results.xlsx", "--y", "A1:A3")
        self.assertNotIn("formula", result.stderr.decode())


class HarmfulFiles(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.file = pathlib.Path(self.folder.name) / "a.xlsx"

    def tearDown(self):
        self.folder.cleanup()

    def expect_refusal(self, words, file=None):
        started = time.monotonic()
        result = run("runs", file or self.file)
        text = result.stderr.decode()
        self.assertEqual((result.returncode, result.stdout), (1, b""), text)
        self.assertIn(words, text)
        self.assertIn("cannot be read", text)
        return time.monotonic() - started

    def test_are_refused_truncated_at_each_tenth(self):
        for name in WRITERS:
            whole = (MADE / name).read_bytes()
            for tenth in range(10):
                with self.subTest(name=name, tenth=tenth):
                    self.file.write_bytes(whole[:len(whole) * tenth // 10])
                    self.expect_refusal("a.xlsx")

    def test_are_refused_with_a_wrong_checksum(self):
        for name in WRITERS:
            with self.subTest(name=name):
                whole = bytearray((MADE / name).read_bytes())
                # In the list of parts at the file's end the checksum stands 16 bytes behind the start of an entry,
                # the name 46 bytes behind it.
                checksum = whole.rindex(sheet_part(name)) - 46 + 16
                struct.pack_into("<I", whole, checksum, struct.unpack_from("<I", whole, checksum)[0] ^ 1)
                self.file.write_bytes(whole)
                self.expect_refusal(f"part {sheet_part(name).decode()} is damaged: its checksum is wrong")

    def test_with_flipped_bits_end_with_a_report_or_with_a_message(self):
        chance = random.Random(20260101)
        for name in WRITERS:
            for _ in range(15):
                whole = bytearray((MADE / name).read_bytes())
                for _ in range(chance.randint(1, 4)):
                    whole[chance.randrange(len(whole))] ^= 1 << chance.randrange(8)
                self.file.write_bytes(whole)
                result = run("mann-whitney", self.file, "--y", "A2:A9", "--x", "I6:I9")
                with self.subTest(name=name, message=result.stderr):
                    self.assertIn((result.returncode, bool(result.stdout)), ((0, True), (1, False)))
                    self.assertEqual(result.returncode == 1, b"tbvnonpara: " in result.stderr)

    def test_are_refused_encrypted_or_old(self):
        self.expect_refusal("it is encrypted", MADE / "encrypted.xlsx")
        self.expect_refusal("it is encrypted", MADE / "encrypted.ods")
        self.expect_refusal("the old binary format (.xls)", MADE / "old_binary.xls")

    def test_are_refused_as_what_they_are_when_they_are_no_workbooks(self):
        with zipfile.ZipFile(self.file, "w") as archive:
            archive.writestr("data.csv", "1,2")
        self.expect_refusal("it is a zip archive without a workbook in it")
        self.file.write_bytes(b"%PDF-1.7")
        self.expect_refusal("it is a PDF document")
        self.file.write_bytes(b"\0\1\2\xff")
        self.expect_refusal("it is no workbook and nothing else that is known")

    def test_are_refused_when_they_unpack_without_end(self):
        blanks = b" " * (1 << 20)
        xlsx(self.file, (blanks for _ in range(300)))
        self.expect_refusal("far more than a file of its size holds")
        ods(self.file, blanks * 200)
        self.expect_refusal("far more than a file of its size holds")

    def test_are_refused_when_entities_grow_or_reach_out(self):
        lines = "".join(f"<!ENTITY e{i} '{f'&e{i - 1};' * 10}'>" for i in range(1, 12))
        for entities in (f"<!ENTITY e0 'lol'>{lines}", "<!ENTITY e11 SYSTEM 'file:///etc/passwd'>"):
            prologue = f"<!DOCTYPE x [{entities}]>"
            xlsx(self.file, ["<row><c t='str'><v>&e11;</v></c></row>"], prologue=prologue)
            self.expect_refusal("a document type, which no workbook needs")
            ods(self.file, "<t:table-row><t:table-cell o:value-type='string'><x:p>&e11;</x:p></t:table-cell>"
                           "</t:table-row>", prologue)
            self.expect_refusal("a document type, which no workbook needs")

    def test_are_refused_when_they_nest_without_end(self):
        xlsx(self.file, ["<a>" * 200_000])
        self.expect_refusal("nested more than 256 deep")
        ods(self.file, "<t:table-row-group>" * 200_000)
        self.expect_refusal("nested more than 256 deep")

    def test_are_refused_when_their_text_is_no_utf_8(self):
        for text in (b"\xff", b"\xc0\xaf", b"\xed\xa0\x80"):
            xlsx(self.file, [b"<row><c t='str'><v>" + text + b"</v></c></row>"])
            self.expect_refusal("not well-formed (invalid token)")
            ods(self.file, b"<t:table-row><t:table-cell o:value-type='string'><x:p>" + text
                + b"</x:p></t:table-cell></t:table-row>")
            self.expect_refusal("not well-formed (invalid token)")

    def test_are_refused_when_cells_lie_outside_a_sheet(self):
        xlsx(self.file, ["<row><c r='ZZZZZZZ99999999999999999999'><v>1</v></c></row>"])
        self.expect_refusal("row 67108864 or more lies outside a sheet")
        ods(self.file, "<t:table-row><t:table-cell t:number-columns-repeated='99999999'/>"
                       "<t:table-cell o:value-type='float' o:value='1'/></t:table-row>")
        self.expect_refusal("filled cells beyond column 16384 (XFD)")

    def test_are_read_when_only_their_dimension_is_absurd(self):
        text = f"<worksheet xmlns='{MAIN}'><dimension ref='A1:ZZZ99999999999'/><sheetData>"
        xlsx(self.file, [f"<row r='{row}'><c><v>{row % 2}</v></c></row>" for row in range(1, 9)])
        with zipfile.ZipFile(self.file) as archive:
            parts = {name: archive.read(name) for name in archive.namelist()}
        parts["xl/s.xml"] = parts["xl/s.xml"].replace(f"<worksheet xmlns='{MAIN}'><sheetData>".encode(), text.encode())
        with zipfile.ZipFile(self.file, "w") as archive:
            for name, part in parts.items():
                archive.writestr(name, part)
        result = run("runs", self.file, "--y", "A1:A8")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn(b"Data!$A$1:$A$8", result.stdout)

    def test_are_refused_when_their_cells_are_scattered(self):
        xlsx(self.file, (f"<row r='{row}'>" + "<c><v>1</v></c>" * 16384 + "</row>" for row in range(1024, 40960, 1024)))
        self.expect_refusal("cells scattered so widely")

    def test_are_refused_when_one_tag_has_no_end(self):
        xlsx(self.file, ["<row a='" + "x" * (60 << 20) + "'/>"])
        self.expect_refusal("tags or names of many megabytes")

    def test_are_refused_when_repeats_have_no_end(self):
        ods(self.file, "<t:table-row t:number-rows-repeated='1048576'><t:table-cell t:number-columns-repeated='16384' "
                       "o:value-type='float' o:value='1'/></t:table-row>")
        self.expect_refusal("cells that stand for more than")


if __name__ == "__main__":
    unittest.main()
