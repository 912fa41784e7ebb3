"""What the program writes: program_output_test.py PROGRAM PROJECT_FOLDER."""

import csv
import json
import os
import re
import subprocess
import tempfile
import unittest

from program import EXAMPLES, PLANTS, PROGRAM, PROJECT, on_a_terminal, readings, run
from german import german


class Output(unittest.TestCase):
    def test_the_locale_changes_nothing(self):
        plain = run("mann-whitney", PLANTS, "--descriptives", environment={"LC_ALL": "C"})
        for environment in (german(), {"LC_ALL": "C.UTF-8"}, {"LC_ALL": "nonsense"}):
            self.assertEqual(run("mann-whitney", PLANTS, "--descriptives", environment=environment).stdout,
                             plain.stdout)

    def test_no_line_ends_in_a_blank_and_the_report_ends_with_its_last_line(self):
        for test, file in (("wilcoxon", "sleep"), ("sign", "maize"), ("runs", "huron"), ("median", "sprays")):
            text = run(test, str(EXAMPLES / (file + ".csv"))).stdout
            self.assertFalse([line for line in text.split("\n") if line != line.rstrip()], test)
            self.assertFalse(text.endswith("\n\n"), test)

    def test_a_full_disk_has_status_1_and_a_message(self):
        for form in ("text", "json", "csv"):
            with open("/dev/full", "w", encoding="utf-8") as full:
                result = subprocess.run([PROGRAM, "mann-whitney", PLANTS, "--format", form], stdout=full,
                                        stderr=subprocess.PIPE, encoding="utf-8")
            self.assertEqual(result.returncode, 1, form)
            self.assertIn("The output could not be written", result.stderr)

    def test_help_on_a_full_disk_has_status_1(self):
        with open("/dev/full", "w", encoding="utf-8") as full:
            result = subprocess.run([PROGRAM, "--help"], stdout=full, stderr=subprocess.PIPE)
        self.assertEqual(result.returncode, 1)

    def test_a_closed_pipe_has_status_1_and_a_message(self):
        reader, writer = os.pipe()
        os.close(reader)
        result = subprocess.run([PROGRAM, "mann-whitney", PLANTS], stdout=writer, stderr=subprocess.PIPE,
                                encoding="utf-8")
        os.close(writer)
        self.assertEqual(result.returncode, 1)
        self.assertIn("Broken pipe", result.stderr)

    def test_closed_standard_output_has_status_1(self):
        result = subprocess.run(f'"{PROGRAM}" mann-whitney "{PLANTS}" >&-', shell=True, capture_output=True)
        self.assertEqual(result.returncode, 1)

    def test_closed_standard_error_does_not_matter(self):
        result = subprocess.run(f'"{PROGRAM}" mann-whitney "{PLANTS}" 2>&-', shell=True, capture_output=True)
        self.assertEqual(result.returncode, 0)

    def test_csv_holds_the_same_cells_as_json(self):
        cells = json.loads(run("kruskal-wallis", str(EXAMPLES / "chicks.csv"), "--format", "json").stdout)
        text = run("kruskal-wallis", str(EXAMPLES / "chicks.csv"), "--format", "csv").stdout
        rows = list(csv.reader(text.splitlines()))
        shown = [["" if cell is None else cell if isinstance(cell, str) else float(cell) for cell in row]
                 for row in cells["report"]["rows"]]
        read = [[float(field) if isinstance(cell, float) else field for field, cell in zip(row, other)]
                for row, other in zip(rows, shown)]
        self.assertEqual(read, shown)

    def test_csv_lines_end_as_the_standard_says(self):
        result = subprocess.run([PROGRAM, "mann-whitney", PLANTS, "--format", "csv"], capture_output=True)
        self.assertEqual(result.stdout.count(b"\r\n"), result.stdout.count(b"\n"))


class Terminals(unittest.TestCase):
    def test_a_terminal_shows_bold_titles(self):
        self.assertIn("\033[1mMann-Whitney Test Results for:\033[0m", on_a_terminal("mann-whitney", PLANTS))

    def test_no_color_and_dumb_terminals_get_plain_text(self):
        for environment in ({"NO_COLOR": "1"}, {"TERM": "dumb"}, {"TERM": ""}):
            self.assertNotIn("\033", on_a_terminal("mann-whitney", PLANTS, environment=environment), environment)

    def test_an_empty_no_color_is_no_wish(self):
        self.assertIn("\033[1m", on_a_terminal("mann-whitney", PLANTS, environment={"NO_COLOR": ""}))

    def test_a_pipe_gets_plain_text(self):
        self.assertNotIn("\033", run("mann-whitney", PLANTS, environment={"TERM": "xterm"}).stdout)

    def test_json_on_a_terminal_is_plain(self):
        self.assertNotIn("\033", on_a_terminal("mann-whitney", PLANTS, "--format", "json"))


class Json(unittest.TestCase):
    def test_an_error_is_an_object_with_status_1(self):
        result = run("wilcoxon", "-", "--format", "json", text="a,b\n1,2\n3,4\n5,\n")
        self.assertEqual(result.returncode, 1)
        error = json.loads(result.stdout)["error"]
        self.assertEqual(list(error), ["number", "name", "source", "description"])
        self.assertEqual((error["number"], error["name"], error["source"]),
                         (-2147216486, "tbvNPUnequalPairs", "Line 0 in TBVNonPara.clsNonPara.Results"))
        self.assertIn("stdin!A1:A4 and stdin!B1:B3", error["description"])

    def test_a_file_error_is_an_object_too(self):
        error = json.loads(run("runs", "/nowhere", "--format", "json").stdout)["error"]
        self.assertEqual((error["number"], error["name"]), (1004, "HostError"))

    def test_results_stand_in_the_report_as_well(self):
        document = json.loads(run("mann-whitney", PLANTS, "--format", "json").stdout)
        self.assertEqual(document["report"]["rows"][6],
                         [document["results"]["u"], *document["results"]["df"], document["results"]["p"]])

    def test_the_report_has_as_many_cells_as_its_address(self):
        document = json.loads(run("mann-whitney", PLANTS, "--format", "json").stdout)
        self.assertEqual(document["report"]["address"], "Results!$A$1:$D$9")
        self.assertEqual([len(row) for row in document["report"]["rows"]], [4] * 9)


class Examples(unittest.TestCase):
    def test_every_result_is_the_one_of_another_package(self):
        checked = 0
        for reading in readings():
            result = run(reading["test"], str(EXAMPLES / reading["file"]), *reading["options"].split(), "--format",
                         "json")
            value = json.loads(result.stdout)["results"][reading["result"]]
            expected = float(reading["value"])
            # Both sides compute in doubles with formulas of their own.
            self.assertLessEqual(abs(value - expected), 1e-12 * abs(expected), reading)
            checked += 1
        self.assertGreater(checked, 30)

    def test_every_example_of_the_help_runs(self):
        lines = run("--help").stdout.splitlines()
        commands = [line.split()[1:] for line in lines if line.startswith("  tbvnonpara ")]
        self.assertEqual(len(commands), 8)
        for command in commands:
            self.assertEqual(run(*command, cwd=PROJECT).returncode, 0, command)


class Documents(unittest.TestCase):
    TESTS = ("mann-whitney", "wilcoxon", "spearman", "sign", "median", "friedman", "kruskal-wallis", "runs")

    def options(self, test):
        return set(re.findall(r"^  (?:-h,)?(--[a-z-]+)", run(test, "--help").stdout, re.M))

    def completed(self, *words):
        script = ('source "$1"; shift; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _tbvnonpara; '
                  'printf "%s\\n" "${COMPREPLY[@]}"')
        result = subprocess.run(["bash", "-c", script, "bash", str(PROJECT / "cli/tbvnonpara.bash"), "tbvnonpara",
                                 *words], capture_output=True, encoding="utf-8", cwd=PROJECT, check=True,
                                env={**os.environ, "LC_ALL": "C.UTF-8",
                                     "PATH": os.path.dirname(PROGRAM) + ":" + os.environ["PATH"]})
        return set(result.stdout.split())

    def test_completion_offers_the_tests_and_exactly_their_options(self):
        self.assertEqual(self.completed(""), {*self.TESTS, "describe", "--help", "--version"})
        for test in (*self.TESTS, "describe"):
            self.assertEqual(self.completed(test, "data.csv", "--"), self.options(test), test)

    def test_completion_offers_the_words_that_the_program_takes(self):
        for test, option in (("runs", "--tails"), ("spearman", "--tails"), ("sign", "--tails"), ("median", "--format")):
            words = self.completed(test, option, "")
            self.assertGreater(len(words), 2)
            for word in words:
                # A workbook is never printed.
                with tempfile.TemporaryDirectory() as folder:
                    save = ["--save", os.path.join(folder, "report")] if word == "xlsx" else []
                    self.assertNotEqual(run(test, PLANTS, option, word, *save).returncode, 2, (test, option, word))

    def test_completion_offers_data_files_and_folders(self):
        self.assertEqual(self.completed("runs", "examples/h"), {"examples/huron.csv"})
        self.assertEqual(self.completed("runs", "exa"), {"examples"})

    def test_completion_offers_the_columns_and_sheets_of_the_file(self):
        air = "examples/air_quality.csv"
        self.assertEqual(self.completed("spearman", air, "--y", ""), {"Ozone", "Solar.R", "Wind", "Temp", "Month", "Day"})
        self.assertEqual(self.completed("spearman", air, "--y", "Temp", "--x", "W"), {"Wind"})
        self.assertEqual(self.completed("median", air, "--by", "Mo"), {"Month"})
        self.assertEqual(self.completed("kruskal-wallis", air, "--y", "Wind,Te"), {"Wind,Temp"})
        self.assertEqual(self.completed("median", air, "--sheet", ""), {"air_quality"})
        self.assertEqual(self.completed("median", "nothing.csv", "--y", ""), set())
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "my $(data).csv")
            with open(path, "w", encoding="utf-8") as file:
                file.write("one's,two\n1,2\n")
            self.assertEqual(self.completed("sign", path.replace(" ", "\\ "), "--y", "on"), {"one\\'s"})

    def test_completion_shows_names_that_would_act_on_the_terminal_as_the_shell_quotes_them(self):
        with tempfile.TemporaryDirectory() as folder:
            for name in ("a\x1b[31m\u202e.csv", "a\nb.csv", "a'c.csv"):
                open(os.path.join(folder, name), "w", encoding="utf-8").close()
            offered = self.completed("runs", folder + "/a")
        self.assertEqual(offered, {f"$'{folder}/a\\033[31m\\u202e.csv'", f"{folder}/a\\'c.csv"})

    def test_the_manual_and_the_page_on_the_program_name_every_option_and_test(self):
        manual = (PROJECT / "cli/tbvnonpara.1").read_text(encoding="utf-8").replace("\\-", "-")
        page = (PROJECT / "docs/program.md").read_text(encoding="utf-8")
        for text in (manual, page):
            for test in (*self.TESTS, "describe"):
                self.assertIn(test, text)
                for option in self.options(test):
                    self.assertIn(option, text)
        self.assertIn(run("--version").stdout.strip(), manual)


class Sizes(unittest.TestCase):
    def test_a_hundred_thousand_rows_with_descriptives(self):
        text = "a,b\n" + "".join(f"{i * 7919 % 100003},{i * 104729 % 100019}\n" for i in range(100000))
        result = run("mann-whitney", "-", "--descriptives", text=text)
        self.assertEqual(result.returncode, 0)
        self.assertGreater(result.stdout.count("\n"), 100000)


if __name__ == "__main__":
    unittest.main()
