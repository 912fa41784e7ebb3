"""Workbook files through the program: program_test.py PROGRAM.

Whatever a file is, the program ends with its report or with status 1 and a message, and takes no more memory than it is
given here.
"""

import pathlib
import resource
import subprocess
import sys
import tempfile
import time
import unittest
import zipfile

PROGRAM = sys.argv.pop(1)
MADE = pathlib.Path(__file__).resolve().parent / "made"
SANITIZED = b"__asan_init" in pathlib.Path(PROGRAM).read_bytes()

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


def xlsx(file, rows, shared=""):
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
            sheet.write(f"<worksheet xmlns='{MAIN}'><sheetData>".encode())
            for row in rows:
                sheet.write(row if isinstance(row, bytes) else row.encode())
            sheet.write(b"</sheetData></worksheet>")


class Reports(unittest.TestCase):
    def test_are_the_same_from_files_of_all_writers(self):
        reports = set()
        for name in ("openpyxl.xlsx", "xlsxwriter.xlsx", "libreoffice.xlsx", "libreoffice.ods", "gnumeric.xlsx",
                     "gnumeric.ods"):
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
        for name in ("libreoffice.xlsx", "libreoffice.ods"):
            whole = (MADE / name).read_bytes()
            for tenth in range(10):
                self.file.write_bytes(whole[:len(whole) * tenth // 10])
                self.expect_refusal("a.xlsx")

    def test_are_refused_encrypted_or_old(self):
        self.expect_refusal("it is encrypted", MADE / "encrypted.xlsx")
        self.expect_refusal("it is encrypted", MADE / "encrypted.ods")
        self.expect_refusal("the old binary format (.xls)", MADE / "old_binary.xls")

    def test_are_refused_when_they_unpack_without_end(self):
        blanks = b" " * (1 << 20)
        xlsx(self.file, (blanks for _ in range(300)))
        self.expect_refusal("far more than a file of its size holds")

    def test_are_refused_when_they_nest_without_end(self):
        xlsx(self.file, ["<a>" * 200_000])
        self.expect_refusal("nested more than 256 deep")

    def test_are_refused_when_their_cells_are_scattered(self):
        xlsx(self.file, (f"<row r='{row}'>" + "<c><v>1</v></c>" * 16384 + "</row>" for row in range(1024, 40960, 1024)))
        self.expect_refusal("cells scattered so widely")

    def test_are_refused_when_one_tag_has_no_end(self):
        xlsx(self.file, ["<row a='" + "x" * (60 << 20) + "'/>"])
        self.expect_refusal("tags or names of many megabytes")

    def test_are_refused_when_repeats_have_no_end(self):
        office = "urn:oasis:names:tc:opendocument:xmlns:office:1.0"
        table = "urn:oasis:names:tc:opendocument:xmlns:table:1.0"
        with zipfile.ZipFile(self.file, "w") as archive:
            archive.writestr("mimetype", "application/vnd.oasis.opendocument.spreadsheet")
            archive.writestr("content.xml", f"""<o:document-content xmlns:o='{office}' xmlns:t='{table}'><o:body>
                <o:spreadsheet><t:table t:name='a'><t:table-row t:number-rows-repeated='1048576'><t:table-cell
                t:number-columns-repeated='16384' o:value-type='float' o:value='1'/></t:table-row></t:table>
                </o:spreadsheet></o:body></o:document-content>""")
        self.expect_refusal("cells that stand for more than")


if __name__ == "__main__":
    unittest.main()
