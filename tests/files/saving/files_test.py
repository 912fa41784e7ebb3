"""Saves reports in files that exist, cannot be written or are not finished: files_test.py PROGRAM PROJECT_FOLDER."""

import os
import shutil
import signal
import subprocess
import time
import unittest

from workbook_files import FOLDER, PLANTS, PROGRAM, PROJECT, parts, run


class Files(unittest.TestCase):
    def test_an_existing_file_is_kept_unless_overwriting_is_allowed(self):
        for ending in ("xlsx", "csv", "json", "html", "txt"):
            file = FOLDER / f"kept.{ending}"
            file.write_text("mine")
            self.assertEqual(run("mann-whitney", PLANTS, "--save", file).returncode, 1)
            self.assertEqual(file.read_text(), "mine")
            file.chmod(0o640)
            self.assertEqual(run("mann-whitney", PLANTS, "--save", file, "--overwrite").returncode, 0)
            self.assertNotEqual(file.read_bytes(), b"mine")
            self.assertEqual(file.stat().st_mode & 0o777, 0o640)

    def test_a_link_stays_a_link(self):
        target, link = FOLDER / "behind.csv", FOLDER / "link.csv"
        link.symlink_to("behind.csv")
        self.assertEqual(run("mann-whitney", PLANTS, "--save", link).returncode, 0)
        self.assertTrue(link.is_symlink())
        self.assertTrue(target.read_text().startswith("Mann-Whitney"))

    def test_a_failure_leaves_nothing_behind(self):
        folder = FOLDER / "empty"
        folder.mkdir()
        self.assertEqual(run("mann-whitney", PLANTS, "--y", "A", "--save", folder / "a.xlsx").returncode, 1)
        self.assertEqual(run("mann-whitney", PLANTS, "--save", folder / "no" / "a.xlsx").returncode, 1)
        self.assertEqual(os.listdir(folder), [])

    def test_a_full_disk_leaves_nothing_behind_and_keeps_what_was_there(self):
        folder = FOLDER / "full"
        folder.mkdir()
        for ending in ("xlsx", "html", "json"):
            kept = folder / f"kept.{ending}"
            kept.write_text("mine")
            for file in (folder / f"new.{ending}", kept):
                limited = subprocess.run(
                    ["bash", "-c", 'ulimit -f 1; exec "$@"', "-", PROGRAM, "mann-whitney", str(PLANTS),
                     "--descriptives", "--overwrite", "--save", str(file)], capture_output=True, timeout=60)
                self.assertEqual(limited.returncode, 1, file)
                self.assertRegex(limited.stderr, b"could not be|was not saved", file)
            self.assertEqual(kept.read_text(), "mine")
            kept.unlink()
        self.assertEqual(os.listdir(folder), [])

    def test_a_folder_that_cannot_be_written_to_is_named(self):
        folder = FOLDER / "locked"
        folder.mkdir()
        program = shutil.copy(PROGRAM, FOLDER)
        data = shutil.copy(PLANTS, FOLDER)
        folder.chmod(0o555)
        FOLDER.chmod(0o755)
        nobody = {"user": 65534, "group": 65534, "extra_groups": []} if os.geteuid() == 0 else {}
        result = subprocess.run([program, "mann-whitney", data, "--save", str(folder / "a.csv")], capture_output=True,
                                encoding="utf-8", timeout=60, **nobody)
        self.assertEqual(result.returncode, 1)
        self.assertIn("a.csv\" was not saved: Permission denied", result.stderr)
        self.assertEqual(os.listdir(folder), [])

    def test_a_folder_in_the_place_of_the_file_is_kept(self):
        folder = FOLDER / "folder.xlsx"
        folder.mkdir()
        result = run("mann-whitney", PLANTS, "--save", folder, "--overwrite")
        self.assertEqual(result.returncode, 1)
        self.assertIn("not an ordinary file", result.stderr)
        self.assertTrue(folder.is_dir())

    def test_the_input_keeps_its_name(self):
        data, link = FOLDER / "input.csv", FOLDER / "alias.csv"
        shutil.copy(PLANTS, data)
        link.symlink_to(data)
        for file, words in ((data, ()), (link, ()), (data, ("--format", "xlsx"))):
            result = run("mann-whitney", data, "--save", file, "--overwrite", *words)
            self.assertEqual(result.returncode, 1, (file, words))
            self.assertEqual(data.read_bytes(), PLANTS.read_bytes())

    def test_a_stopped_program_leaves_all_or_nothing(self):
        folder = FOLDER / "stopped"
        folder.mkdir()
        data = FOLDER / "many.csv"
        data.write_text("a,b\n" + "".join(f"{i / 7},{i / 3}\n" for i in range(40000)))
        words = [PROGRAM, "mann-whitney", str(data), "--with-data", "--save"]
        started = time.monotonic()
        subprocess.run([*words, str(FOLDER / "whole.xlsx")], check=True, capture_output=True, timeout=120)
        duration = time.monotonic() - started
        whole = parts(FOLDER / "whole.xlsx")["xl/worksheets/sheet2.xml"]
        for stop in (signal.SIGTERM, signal.SIGKILL):
            for part in range(1, 11):
                target = folder / f"{part}.xlsx"
                with subprocess.Popen([*words, str(target)], stderr=subprocess.DEVNULL) as process:
                    time.sleep(duration * part / 10)
                    process.send_signal(stop)
                if target.exists():
                    self.assertEqual(parts(target)["xl/worksheets/sheet2.xml"], whole)
                    target.unlink()
            left = os.listdir(folder)
            self.assertFalse([name for name in left if stop == signal.SIGTERM or not name.endswith(".tmp")])
            for name in left:
                (folder / name).unlink()

    def test_the_other_forms_are_those_of_standard_output(self):
        for ending, form in (("csv", "csv"), ("json", "json"), ("html", "html"), ("txt", "text")):
            file = FOLDER / f"same.{ending}"
            self.assertEqual(run("sign", PROJECT / "examples/maize_signs.csv", "--save", file).returncode, 0)
            printed = subprocess.run([PROGRAM, "sign", str(PROJECT / "examples/maize_signs.csv"), "--format", form],
                                     capture_output=True, timeout=60).stdout
            self.assertEqual(file.read_bytes(), printed, ending)

    def test_options_that_make_no_sense_have_status_2(self):
        for words in (["--save", "a.pdf"], ["--save", "report"], ["--format", "xlsx"], ["--with-data"],
                      ["--save", "a.csv", "--with-data"]):
            result = run("mann-whitney", PLANTS, *words)
            self.assertEqual((result.returncode, result.stdout), (2, ""), words)


if __name__ == "__main__":
    try:
        unittest.main()
    finally:
        shutil.rmtree(FOLDER, ignore_errors=True)
