"""Statuses, errors and files: program_test.py PROGRAM PROJECT_FOLDER."""

import csv
import json
import os
import pathlib
import subprocess
import tempfile
import unittest

from program import EXAMPLES, PLANTS, PROGRAM, interrupted, on_a_terminal, run


class Statuses(unittest.TestCase):
    def test_a_report_has_status_0(self):
        result = run("mann-whitney", PLANTS)
        self.assertEqual(result.returncode, 0)
        self.assertTrue(result.stdout.startswith("Mann-Whitney Test Results for:\n"))
        self.assertEqual(result.stderr, "using plants!A1:A11 and plants!B1:B11 (first row is headers)\n")

    def test_help_and_version_have_status_0(self):
        for words in (["--help"], ["--version"], ["runs", "--help"]):
            result = run(*words)
            self.assertEqual((result.returncode, result.stderr), (0, ""), words)

    def test_usage_errors_have_status_2_and_print_nothing(self):
        for words in ([], ["anova", PLANTS], ["runs"], ["runs", PLANTS, "--x", "B"], ["sign", PLANTS, "--tails", "up"],
                      ["runs", PLANTS, "--delimiter", ",", "--decimal", ","], ["runs", PLANTS, "--format", "xlsx"],
                      ["sign", PLANTS, "--thousands", ".", "--decimal", "."]):
            result = run(*words)
            self.assertEqual((result.returncode, result.stdout), (2, ""), words)
            test = words[0] + " " if words and words[0] != "anova" else ""
            self.assertIn(f"Try: tbvnonpara {test}--help\n", result.stderr)

    def test_analysis_errors_have_status_1_with_number_name_and_source(self):
        result = run("mann-whitney", PLANTS, "--y", "A")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertIn("The second range is missing", result.stderr)
        self.assertIn("error -2147216492 (tbvNPNoXRange): Line 0 in TBVNonPara.clsNonPara.Results", result.stderr)

    def test_errors_of_the_ranges_name_the_cell(self):
        result = run("mann-whitney", "-", text="a,b\n1,x\n2,3\n")
        self.assertEqual(result.returncode, 1)
        self.assertIn('stdin!B2 holds the text "x"', result.stderr)


class Terminals(unittest.TestCase):
    """What a header, a sheet or a file's name holds is shown, never sent."""

    NAME = "a\x1b[31m\u202eb\n.csv"

    def in_file(self, *words, text="x,y\n1,4\n2,5\n3,6\n"):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / self.NAME
            path.write_text(text, encoding="utf-8")
            return run("mann-whitney", str(path), *words)

    def assert_harmless(self, text):
        self.assertNotRegex(text, "[\x1b\u202e]")

    def test_names_of_files_and_sheets_are_escaped_in_messages(self):
        cases = (
            ([], r"using a__31m\u202Eb_!A1:A4"),
            (["--y", "nothing\x1b"], r'no column "nothing\x1B"'),
            (["--y", "A", "--x", "no\x1bthing"], r'no column "no\x1Bthing"'),
            (["--sheet", "no\x1bthing"], r'no\x1Bthing'),
            (["--output", "no\x1bthing!A1"], "tbvNPBadOutputRange"),
            (["--save", "no\x1bthing"], r"no\x1Bthing"),
            (["--tails", "\x1b"], r"\x1B"),
            (["--\x1b"], r"--\x1B"),
        )
        for words, shown in cases:
            result = self.in_file(*words)
            self.assertIn(shown, result.stderr, words)
            self.assert_harmless(result.stderr)
        self.assertIn(r'no test "an\x1Bova"', run("an\x1bova").stderr)
        with tempfile.TemporaryDirectory() as folder:
            self.assertIn(self.NAME.encode("unicode_escape").decode().replace("x1b", "x1B").replace("u202e", "u202E"),
                          run("runs", os.path.join(folder, self.NAME)).stderr)

    def test_csv_is_escaped_on_a_terminal_and_exact_elsewhere(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "data.csv"
            path.write_text("x\x1b[31m,y\n1,4\n2,5\n3,6\n", encoding="utf-8")
            words = ("mann-whitney", str(path), "--headers", "--tails", "less", "--format", "csv")
            self.assertIn("1-tailed Test (x\x1b[31m < y)", run(*words).stdout)
            shown = on_a_terminal(*words)
            self.assertIn(r"1-tailed Test (x\x1B[31m < y)", shown)
            self.assert_harmless(shown)

    def test_a_report_of_any_form_is_shown_without_what_would_act(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "data.csv"
            path.write_text("x\x1b[31m\u202e,y\n1,4\n2,5\n3,6\n", encoding="utf-8")
            words = ("mann-whitney", str(path), "--headers", "--tails", "less", "--descriptives")
            for form in ("text", "csv", "json", "html"):
                with self.subTest(form=form):
                    shown = on_a_terminal(*words, "--format", form, environment={"NO_COLOR": "1"})
                    self.assertIn("[31m", shown)
                    self.assert_harmless(shown)

    def test_no_line_is_wider_than_the_terminal(self):
        words = ("kruskal-wallis", str(EXAMPLES / "chicks.csv"), "--descriptives")
        lines = on_a_terminal(*words, columns=50, environment={"NO_COLOR": "1"}).replace("\r", "").split("\n")
        self.assertLessEqual(max(map(len, lines)), 50)
        text = run(*words).stdout
        self.assertGreater(max(map(len, text.split("\n"))), 50)
        # Nothing is left out: the same words, labels and headings aside.
        self.assertEqual(set(" ".join(lines).replace("─", "").split()), set(text.replace("─", "").split()))

    def test_long_headers_are_shortened_in_text_and_whole_in_json(self):
        text = "a" * 10000 + ",b\n1,4\n2,5\n3,6\n"
        words = ("mann-whitney", "-", "--tails", "less", "--descriptives")
        report = run(*words, text=text).stdout
        self.assertLessEqual(max(map(len, report.split("\n"))), 400)
        self.assertIn("aaa…aaa", report)
        self.assertIn("a" * 10000, run(*words, "--format", "json", text=text).stdout)


class SafeCsv(unittest.TestCase):
    TEXT = "=1+1,@x\n1,4\n2,5\n3,6\n"

    def test_formulas_are_quoted_when_asked_for(self):
        words = ("mann-whitney", "-", "--headers", "--descriptives", "--format", "csv")
        plain = run(*words, text=self.TEXT).stdout
        safe = run(*words, "--safe-csv", text=self.TEXT).stdout
        self.assertIn(",=1+1,", plain)
        self.assertIn(",'=1+1,", safe)
        self.assertIn(",'@x", safe)
        self.assertEqual(safe.replace("'=", "=").replace("'@", "@"), plain)

    def test_another_form_is_refused(self):
        result = run("mann-whitney", PLANTS, "--safe-csv")
        self.assertEqual((result.returncode, result.stdout), (2, ""))
        self.assertIn("add --format csv", result.stderr)


class Warnings(unittest.TestCase):
    def warned(self, cells, *words):
        result = run("runs", "-", *words, text="\n".join(map(str, cells)) + "\n")
        self.assertEqual(result.returncode, 0, result.stderr)
        return "tbvnonpara: warning: The numbers in stdin!A1:A" in result.stderr

    def test_runs_of_mostly_different_numbers_are_one(self):
        self.assertTrue(self.warned([1, 2, 3, 4, 1, 2, 3, 4, 1, 2]))
        self.assertFalse(self.warned([1, 2, 3, 1, 2, 3, 1, 2, 3]))
        self.assertTrue(self.warned(["Level", 1, 2, 3, 1, 2, 3, 1, 2]))
        self.assertFalse(self.warned(["Level", 1, 2, 3, 1, 2, 3, 1, 2, 3]))

    def test_blanks_are_one_with_a_warning(self):
        done = run("runs", "-", text="c,d\nx,1\n,2\ny,3\nx,4\n,5\ny,6\n")
        self.assertEqual(done.returncode, 0)
        self.assertIn("2 of the cells in stdin!A1:A7 are blank and count as a category", done.stderr)
        omitted = run("runs", "-", "--missing", "omit", text="c,d\nx,1\n,2\ny,3\nx,4\n,5\ny,6\n")
        self.assertIn("left out: 2 of 6 values that are missing", omitted.stderr)
        self.assertNotIn("warning", omitted.stderr)

    def test_texts_are_categories_without_a_warning(self):
        self.assertFalse(self.warned("abcdabcdab"))
        self.assertNotIn("warning", run("mann-whitney", PLANTS).stderr)


class Cuts(unittest.TestCase):
    """Numbers of a sequence above and below a value."""

    NUMBERS = "Level\n5\n7\n6\n6\n2\n9\n"

    def cut(self, *words, text=NUMBERS):
        return run("runs", "-", "--cut", *words, "--format", "json", text=text)

    def results(self, *words, text=NUMBERS):
        result = self.cut(*words, text=text)
        self.assertEqual(result.returncode, 0, result.stderr)
        return json.loads(result.stdout), result.stderr

    def test_equal_numbers_are_left_out_and_counted(self):
        found, said = self.results("median")
        self.assertEqual(found["results"]["categories"], ["below 6", "above 6"])
        self.assertEqual(found["results"]["counts"], [2, 2])
        self.assertEqual(found["results"]["runs"], 4)
        self.assertEqual(found["results"]["cut"], {"at": 6.0, "above": 2, "below": 2, "equal": 2})
        self.assertIn("cut at the median 6: 2 above, 2 below, 2 equal left out\n", said)

    def test_equal_numbers_count_as_above_or_below_when_asked_for(self):
        found, said = self.results("6", "--cut-equal", "above")
        self.assertEqual((found["results"]["categories"], found["results"]["counts"]), (["below 6", "from 6 on"], [2, 4]))
        self.assertIn("cut at 6: 4 above, 2 below\n", said)
        found, _ = self.results("6", "--cut-equal", "below")
        self.assertEqual((found["results"]["categories"], found["results"]["counts"]), (["up to 6", "above 6"], [4, 2]))

    def test_the_median_of_an_even_number_is_the_mean_of_two_and_the_mean_that_of_all(self):
        numbers = "1\n2\n4\n9\n"
        self.assertEqual(self.results("median", text=numbers)[0]["results"]["cut"]["at"], 3)
        self.assertEqual(self.results("mean", text=numbers)[0]["results"]["cut"]["at"], 4)

    def test_the_report_names_the_numbers_and_no_sheet_is_left_behind(self):
        found, _ = self.results("median")
        self.assertEqual(found["report"]["rows"][1][0], "Data Range = stdin!$A$1:$A$7")
        with tempfile.TemporaryDirectory() as folder:
            saved = os.path.join(folder, "report.xlsx")
            result = run("runs", "-", "--cut", "median", "--save", saved, "--with-data", text=self.NUMBERS)
            self.assertEqual(result.returncode, 0, result.stderr)
            again = run("runs", saved, "--sheet", "stdin", "--cut", "median", "--format", "json")
            self.assertEqual(json.loads(again.stdout)["results"], found["results"])
            self.assertIn("the sheets are: \"Results\", \"stdin\".", run("runs", saved, "--sheet", "Sides").stderr)

    def test_a_page_draws_the_sides(self):
        page = run("runs", "-", "--cut", "median", "--format", "html", text=self.NUMBERS).stdout
        self.assertIn("above 6", page)

    def test_what_has_no_side_is_refused(self):
        for text, place, number in (("1\nx\n2\n", 'stdin!A2 holds the text "x"', -2147216484),
                                    ("1\n\n2\n", "stdin!A2 is blank", -2147216481),
                                    ("1\nTRUE\n2\n", "stdin!A2 holds True", -2147216483),
                                    ("1\n#N/A\n2\n", "stdin!A2 holds the error #N/A", -2147216482),
                                    ("4\n4\n", "All numbers equal 4", -2147216480)):
            with self.subTest(text=text):
                result = self.cut("median", "--y", "A1:A3" if text.count("\n") > 2 else "A1:A2", "--no-headers", text=text)
                self.assertEqual(result.returncode, 1)
                error = json.loads(result.stdout)["error"]
                self.assertIn(place, error["description"])
                self.assertEqual(error["number"], number)

    def test_several_columns_and_numbers_too_large_are_refused(self):
        result = run("runs", "-", "--y", "A:B", "--cut", "1", text="1,2\n3,4\n")
        self.assertIn("A sequence is one column, but stdin!A1:B2 is more", result.stderr)
        result = run("runs", "-", "--cut", "mean", text="1e308\n1e308\n-1\n")
        self.assertIn("cut them at their median", result.stderr)

    def test_a_word_that_is_no_value_is_a_usage_error(self):
        for words in (("x",), ("1e999",), ("median", "--cut-equal", "left")):
            self.assertEqual(self.cut(*words).returncode, 2, words)
        self.assertEqual(run("runs", "-", "--cut-equal", "drop", text=self.NUMBERS).returncode, 2)
        self.assertEqual(run("sign", "-", "--cut", "mean", text=self.NUMBERS).returncode, 2)


class Faults(unittest.TestCase):
    """Data without a result: what each test says, and under which number."""

    CASES = (
        ("mann-whitney", "5,5\n" * 300, "", 11, "are equal, so there is nothing to rank"),
        ("wilcoxon", "5,5\n" * 300, "", 5, "are zero, so there is nothing to rank"),
        ("wilcoxon", "5,5\n" * 300, "--ignore-ties", 6, "none could be ranked"),
        ("wilcoxon", "1e300,1\n2,3\n", "", 6, "single precision"),
        ("wilcoxon", "1,2\n3,4\n5,\n", "", -2147216486, "complete or remove the rows without a partner"),
        ("spearman", "1,5\n1,6\n1,7\n", "", 5, "There is no rank correlation"),
        ("spearman", "1,2\n", "", -2147216454, "fewer than two rows"),
        ("sign", "1,2\n3,\n", "", -2147216481, "B2 is blank"),
        ("sign", "1\n2\n", "", -2147215504, "neither 1, -1 nor 0"),
        ("median", "1\n2\n", "", -2147216456, "Name two columns or more"),
        ("friedman", "1,1\n2,2\n", "", 6, "equal within every block"),
        ("friedman", "1,2\n1,2\n", "", 11, "in the same order"),
        ("friedman", "1,2\n1,\n", "", -2147216481, "B2 is blank"),
        ("kruskal-wallis", "1,1\n1,1\n", "", 6, "all values are equal"),
        ("runs", "1\n1\n1\n", "", 11, "all equal, or all different"),
        ("runs", "1\n2\n3\n", "", 11, "all equal, or all different"),
        ("runs", "1\n#N/A\n", "", -2147216482, "A2 holds the error #N/A"),
        ("mann-whitney", "1,2\n3,TRUE\n", "", -2147216483, "B2 holds"),
        ("mann-whitney", "1,2\n3,4\n", "--y A1:B2 --x A", -2147216452, "several columns"),
        ("mann-whitney", "1,2\n3,4\n", "--y A --x A1:B2", -2147216451, "several columns"),
        ("mann-whitney", "1,2\n3,4\n", "--y A --x Other!B1:B2", -2147216494, "Other"),
    )

    def test_the_number_and_a_sentence_are_given(self):
        for test, text, options, number, says in self.CASES:
            with self.subTest(test=test, text=text[:20], options=options):
                plain = run(test, "-", *options.split(), text=text)
                self.assertEqual((plain.returncode, plain.stdout), (1, ""))
                self.assertIn(says, plain.stderr)
                self.assertIn(f"  error {number} (", plain.stderr)
                error = json.loads(run(test, "-", *options.split(), "--format", "json", text=text).stdout)["error"]
                self.assertEqual(error["number"], number)
                self.assertIn(says, error["description"])


class Files(unittest.TestCase):
    def check_refused(self, content, says, *words):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "data.csv"
            path.write_bytes(content)
            result = run("mann-whitney", str(path), *words)
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertIn(says, result.stderr)

    def test_a_missing_file(self):
        result = run("runs", "/nowhere/data.csv")
        self.assertEqual(result.returncode, 1)
        self.assertIn('"/nowhere/data.csv" cannot be read: No such file or directory', result.stderr)

    def test_a_folder(self):
        result = run("runs", str(EXAMPLES))
        self.assertEqual(result.returncode, 1)
        self.assertIn("folder", result.stderr)

    def test_an_empty_file(self):
        self.check_refused(b"", "holds no data")

    def test_invalid_text(self):
        self.check_refused(b"a,b\n1,\xff\n", "UTF-8")

    def test_an_open_quote(self):
        self.check_refused(b'a,b\n1,"2\n', "quote")

    def test_an_unknown_sheet_lists_the_sheets(self):
        self.check_refused(b"a,b\n1,2\n", '"data"', "--sheet", "Other")

    def test_one_column_only(self):
        self.check_refused(b"a\n1\n2\n", "Name the other with --x")

    def test_a_single_row(self):
        self.check_refused(b"a,b\n1,2\n", "fewer than two rows")

    def test_standard_input(self):
        with open(PLANTS, encoding="utf-8") as file:
            result = run("mann-whitney", "-", text=file.read())
        self.assertEqual(result.returncode, 0)
        self.assertIn("Set 1 Range = stdin!$A$1:$A$11", result.stdout)

    def test_closed_standard_input(self):
        result = subprocess.run(f'"{PROGRAM}" runs - <&-', shell=True, capture_output=True, encoding="utf-8")
        self.assertEqual(result.returncode, 1)

    def test_windows_lines_a_mark_and_semicolons_with_decimal_commas(self):
        text = "\ufeffa;b\r\n1,5;4\r\n2,5;5\r\n3;6,25\r\n"
        result = run("mann-whitney", "-", "--format", "json", text=text)
        self.assertEqual(json.loads(result.stdout)["results"], {"u": 9, "df": [3, 3], "p": 0.1})

    def test_delimiter_and_decimal_can_be_said(self):
        result = run("mann-whitney", "-", "--delimiter", "|", "--decimal", ",", "--format", "json",
                     text="1,5|4\n2,5|5\n3|6,25\n")
        self.assertEqual(json.loads(result.stdout)["results"], {"u": 9, "df": [3, 3], "p": 0.1})

    def test_a_file_called_results(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "results.csv"
            path.write_text("1,4\n2,5\n", encoding="utf-8")
            result = run("mann-whitney", str(path), "--format", "json")
        self.assertEqual(json.loads(result.stdout)["report"]["address"], "'Results (2)'!$A$1:$D$9")


class Details(unittest.TestCase):
    SLEEP = str(EXAMPLES / "sleep.csv")
    CHICKS = str(EXAMPLES / "chicks.csv")
    HURON = str(EXAMPLES / "huron.csv")

    def details(self, *words, **options):
        result = run(*words, "--details", "--format", "json", **options)
        self.assertEqual(result.returncode, 0, result.stderr)
        return json.loads(result.stdout)["details"]

    def test_the_report_above_them_is_the_same(self):
        for form in ("text", "csv"):
            plain = run("kruskal-wallis", self.CHICKS, "--format", form).stdout
            full = run("kruskal-wallis", self.CHICKS, "--format", form, "--details").stdout
            self.assertTrue(full.startswith(plain), form)
            self.assertGreater(len(full), len(plain) + 500)

    def test_json_has_the_level_the_adjustment_and_the_labels(self):
        details = self.details("kruskal-wallis", self.CHICKS, "--confidence", "90", "--adjust", "bh")
        self.assertEqual((details["schema"], details["test"], details["level"], details["adjust"]),
                         (1, "kruskal-wallis", 0.9, "bh"))
        self.assertEqual(details["labels"][0], "casein")
        self.assertEqual(len(details["comparisons"]), 15)

    def test_a_higher_level_gives_a_wider_interval(self):
        widths = []
        for level in ("80", "95", "99"):
            shift = self.details("mann-whitney", self.SLEEP, "--confidence", level)["effect"]["shift"]
            widths.append(shift["high"] - shift["low"])
        self.assertEqual(widths, sorted(widths))
        self.assertLess(widths[0], widths[2])

    def test_comparisons_are_with_the_control_alone(self):
        details = self.details("kruskal-wallis", self.CHICKS, "--control", "linseed")
        pairs = [(comparison["first"], comparison["second"]) for comparison in details["comparisons"]]
        self.assertEqual(pairs, [(1, 3), (2, 3), (3, 4), (3, 5), (3, 6)])
        self.assertIsNone(details["letters"])

    def test_a_control_that_is_none_is_refused_by_name(self):
        result = run("median", self.CHICKS, "--details", "--control", "straw")
        self.assertEqual((result.returncode, result.stdout), (1, ""))
        self.assertIn('There is no group "straw"; the groups are casein, horsebean', result.stderr)

    def test_a_trend_is_tested_on_request(self):
        self.assertIsNone(self.details("kruskal-wallis", self.CHICKS)["trend"])
        # Three groups of two without ties that rise throughout: one of 90 ways to deal six values.
        rising = "a,b,c\n1,3,5\n2,4,6\n"
        trend = self.details("kruskal-wallis", "-", "--trend", text=rising)["trend"]
        self.assertEqual((trend["test"], trend["statistic"], trend["expected"]), ("jonckheere-terpstra", 12, 6))
        self.assertAlmostEqual(trend["exact"]["greater"]["value"], 1 / 90, places=15)
        # Two blocks of three treatments with one exchange: 1 + 2 x 2 of 36 orders reach 14 + 13.
        blocks = "a,b,c\n1,2,3\n2,1,3\n"
        trend = self.details("friedman", "-", "--trend", text=blocks)["trend"]
        self.assertEqual((trend["test"], trend["statistic"], trend["expected"]), ("page", 27, 24))
        self.assertAlmostEqual(trend["exact"]["greater"]["value"], 5 / 36, places=15)
        text = run("kruskal-wallis", "-", "--details", "--trend", text=rising).stdout
        self.assertIn("Values rise from group to group (Kendall's tau-b = 0.89, P = 0.0222, exact).", text)
        self.assertIn("Trend (Jonckheere and Terpstra)\n", text)
        table = run("kruskal-wallis", "-", "--details", "--trend", "--format", "csv", text=rising).stdout
        self.assertIn("\ntrend,statistic,,,,12,", table)
        self.assertIn("\nprobability,trend.exact,", table)

    def test_a_trend_is_asked_of_groups_in_details_alone(self):
        self.assertEqual(run("kruskal-wallis", self.CHICKS, "--trend").returncode, 2)
        self.assertEqual(run("mann-whitney", self.SLEEP, "--details", "--trend").returncode, 2)

    def test_random_arrangements_estimate_what_cannot_be_counted(self):
        long = "a,b\n" + "".join(f"{i},{i * 7 % 300 + 20}\n" for i in range(300))
        words = ("mann-whitney", "-", "--permutations", "999")
        sampled = self.details(*words, text=long)["p"]["permutations"]
        self.assertEqual((sampled["arrangements"], sampled["seed"]), (999, 1))
        self.assertEqual(sampled, self.details(*words, "--seed", "1", text=long)["p"]["permutations"])
        self.assertNotEqual(sampled["greater"],
                            self.details(*words, "--seed", "2", text=long)["p"]["permutations"]["greater"])
        normal = self.details(*words, text=long)["p"]["normal"]["greater"]["value"]
        self.assertLess(abs(sampled["greater"]["value"] - normal), 5 * sampled["greater"]["standardError"] + 0.002)
        text = run(*words, "--details", text=long).stdout
        self.assertIn("\nRandom arrangements ", text)
        self.assertIn("999 random arrangements (seed 1): the standard error of P is", text)
        table = run(*words, "--details", "--format", "csv", text=long).stdout
        self.assertIn("\nprobability,permutations,", table)

    def test_nothing_is_drawn_where_all_was_counted(self):
        result = run("mann-whitney", self.SLEEP, "--details", "--permutations", "99")
        self.assertIn("P was counted exactly, so no random arrangements were drawn.", result.stdout)
        self.assertIsNone(self.details("mann-whitney", self.SLEEP, "--permutations", "99")["p"]["permutations"])

    def test_random_arrangements_are_named_only_where_they_are_asked_for(self):
        for test in ("mann-whitney", "wilcoxon"):
            self.assertNotIn('"permutations"', run(test, self.SLEEP, "--details", "--format", "json").stdout)

    def test_every_column_draws_its_arrangements_from_the_seed(self):
        rows = "".join(f"{i * 7 % 300},{i * 11 % 300},{'xyz'[i % 3]}\n" for i in range(300))
        words = ("kruskal-wallis", "-", "--each", "--by", "group", "--details", "--permutations", "99", "--seed", "3")
        both = json.loads(run(*words, "--format", "json", text="a,b,group\n" + rows).stdout)
        alone = self.details("kruskal-wallis", "-", "--y", "b", "--by", "group", "--permutations", "99", "--seed", "3",
                             text="a,b,group\n" + rows)
        found = [column["details"]["p"]["permutations"] for column in both["columns"]]
        self.assertEqual([sampled["seed"] for sampled in found], [3, 3])
        self.assertEqual(found[1], alone["p"]["permutations"])

    def test_one_tail_is_that_of_the_direction(self):
        long = "a,b\n" + "".join(f"{i},{i * 7 % 300 + 20}\n" for i in range(300))
        sampled = self.details("mann-whitney", "-", "--permutations", "999", text=long)["p"]["permutations"]
        for tails in ("greater", "less"):
            text = run("mann-whitney", "-", "--details", "--permutations", "999", "--tails", tails, text=long).stdout
            shown = next(line for line in text.splitlines() if line.startswith("Random arrangements"))
            self.assertEqual(shown.split()[-1], f"{sampled[tails]['value']:.4f}", tails)

    def test_numbers_of_arrangements_that_make_no_sense_are_refused(self):
        self.assertEqual(run("sign", self.SLEEP, "--details", "--permutations", "99").returncode, 2)
        for words in (("--permutations", "99"), ("--details", "--seed", "3"), ("--details", "--permutations", "0"),
                      ("--details", "--permutations", "many"), ("--details", "--permutations", "9", "--seed", "-1")):
            self.assertEqual(run("mann-whitney", self.SLEEP, *words).returncode, 2, words)

    def test_the_probability_shown_is_that_of_the_tails(self):
        text = run("mann-whitney", self.SLEEP, "--details", "--tails", "less").stdout
        self.assertIn("P (less)\n", text)
        self.assertIn("P = 0.0329 is exact", text)
        self.assertIn("P (fewer)\n", run("runs", self.HURON, "--details", "--tails", "fewer").stdout)

    def test_every_test_has_them(self):
        for test, file in (("mann-whitney", self.SLEEP), ("wilcoxon", self.SLEEP), ("spearman", self.SLEEP),
                           ("sign", self.SLEEP), ("runs", self.HURON), ("median", self.CHICKS),
                           ("friedman", self.SLEEP), ("kruskal-wallis", self.CHICKS)):
            details = self.details(test, file)
            self.assertEqual(details["test"], test)
            for name in ("labels", "words", "notes", "data", "p", "effect"):
                self.assertTrue(details[name], (test, name))
            self.assertIn("\r\nblock,name,first", run(test, file, "--details", "--format", "csv").stdout.replace(
                "\n", "\r\n").replace("\r\r", "\r"))

    def test_codes_have_signs_and_no_differences(self):
        details = self.details("sign", str(EXAMPLES / "maize_signs.csv"))
        self.assertIsNone(details["effect"]["medianDifference"])
        self.assertEqual(len(details["labels"]), 1)

    def test_sides_of_a_cut_are_the_categories(self):
        details = self.details("runs", str(EXAMPLES / "lake_levels.csv"), "--cut", "median")
        self.assertEqual(len(details["labels"]), 2)
        self.assertEqual(details["data"]["categories"], 2)

    def test_texts_numbers_and_truth_are_categories(self):
        details = self.details("runs", "-", "--no-headers", text="a\n1\n1\nTRUE\nb\na\n1\n")
        self.assertEqual(details["data"]["counts"], [2, 3, 1, 1])

    def test_a_blank_is_no_value(self):
        details = self.details("kruskal-wallis", "-", text="a,b\n1,4\n2,\n3,6\n")
        self.assertEqual(details["data"]["n"], 5)

    def test_long_tables_have_them_too(self):
        text = "feed,weight\n" + "".join(f"{feed},{w}\n" for feed, w in
                                         [("a", 1), ("b", 4), ("a", 2), ("b", 5), ("a", 3), ("c", 9), ("c", 7)])
        details = self.details("kruskal-wallis", "-", "--y", "weight", "--by", "feed", text=text)
        self.assertEqual(details["labels"], ["a", "b", "c"])
        self.assertEqual([group["n"] for group in details["groups"]], [3, 2, 2])

    COLUMNS = "one,two,same,group\n1,4,7,x\n2,5,7,x\n3,7,7,y\n5,9,7,y\n4,1,7,x\n9,9,7,y\n"

    def test_of_each_column_are_one_table_with_p_adjusted_over_the_columns(self):
        # Alone 4, 2 and 20 of the 20 ways to deal the ranks are as far from the mean as these or farther.
        for adjust, expected in (("holm", [0.4, 0.3, 1]), ("bonferroni", [0.6, 0.3, 1]), ("bh", [0.3, 0.3, 1]),
                                 ("none", [0.2, 0.1, 1])):
            result = run("mann-whitney", "-", "--each", "--by", "group", "--details", "--adjust", adjust, "--format",
                         "json", text=self.COLUMNS)
            self.assertEqual(result.returncode, 0, result.stderr)
            table = json.loads(result.stdout)
            self.assertEqual(table["adjust"], adjust)
            adjusted = [column["adjusted"]["value"] for column in table["columns"] if column.get("adjusted")]
            self.assertEqual([round(p, 12) for p in adjusted], expected, adjust)
            alone = [round(column["details"]["p"]["exact"]["two"]["value"], 12) for column in table["columns"]
                     if column.get("adjusted")]
            self.assertEqual(alone, [0.2, 0.1, 1])

    def test_of_each_column_stand_behind_its_results_in_csv(self):
        words = ["mann-whitney", "-", "--each", "--by", "group", "--format", "csv"]
        plain = list(csv.DictReader(run(*words, text=self.COLUMNS).stdout.splitlines()))
        full = list(csv.DictReader(run(*words, "--details", text=self.COLUMNS).stdout.splitlines()))
        self.assertEqual([{name: row[name] for name in plain[0]} for row in full], plain)
        self.assertEqual((full[1]["details.method"], full[1]["details.shift.value"], full[1]["missing"]),
                         ("exact", "-5", "0"))
        self.assertAlmostEqual(float(full[1]["details.p_adjusted"]), 0.3)

    def test_of_each_column_stand_below_its_report_and_together_at_the_end(self):
        text = run("mann-whitney", "-", "--each", "--by", "group", "--details", "--y", "one,two", text=self.COLUMNS).stdout
        self.assertEqual(text.count("\nDetails\n"), 3)
        self.assertTrue(text.endswith("          P  Adjusted\n─────────────────────\none  0.2000    0.2000\n"
                                      "two  0.1000    0.2000\n\n"), text[-200:])
        self.assertIn("0 of 2 columns with an adjusted P of at most 5 % (P adjusted by Holm).", text)

    # 2 x 400 values with ties are too many to be counted, and a milliard of arrangements takes minutes.
    LONG = "a,b\n" + "".join(f"{i * 7919 % 997},{i * 6007 % 991 + 3}\n" for i in range(400))
    ENDLESS = ["mann-whitney", "-", "--details", "--permutations", "1000000000"]

    def test_that_take_too_long_are_ended_with_ctrl_c_and_leave_the_report(self):
        status, written, told = interrupted(*self.ENDLESS, text=self.LONG, when="Counting, ")
        self.assertEqual((status, written), (130, run("mann-whitney", "-", text=self.LONG).stdout))
        self.assertIn("There are no details: their count was interrupted.", told)

    def test_of_a_column_that_are_missing_are_told_of(self):
        words = ["median", "-", "--each", "--by", "g", "--missing", "omit", "--details", "--control", "z"]
        text = "g,a,b\nx,1,3\nx,2,4\ny,3,5\ny,4,9\nz,5,\nz,6,\n"
        reason = 'There is no group "z"; the groups are x, y.'
        result = run(*words, "--format", "csv", text=text)
        self.assertIn(f"tbvnonpara: b has no details: {reason}\n", result.stderr)
        rows = list(csv.DictReader(result.stdout.splitlines()))
        self.assertEqual([row["error"] for row in rows], ["", "There are no details: " + reason])
        self.assertEqual((rows[1]["p"], rows[1]["details.p"]), ("0.04550026389635842", ""))
        columns = json.loads(run(*words, "--format", "json", text=text).stdout)["columns"]
        self.assertEqual((columns[1]["details"], columns[1]["note"]), (None, "There are no details: " + reason))
        self.assertIn("\nDetails\n", run(*words, text=text).stdout)
        # Where no column has any, that is a failure.
        result = run(*words[:-1], "w", text=text)
        self.assertEqual((result.returncode, result.stderr.count("no details")), (1, 2))

    def test_one_p_is_not_adjusted(self):
        result = run("mann-whitney", self.SLEEP, "--details", "--adjust", "holm")
        self.assertEqual(result.returncode, 2)
        self.assertIn("--adjust is for the columns of --each", result.stderr)

    def test_what_four_decimals_hide_is_told(self):
        told = "P = 7.1e-09 (0.0000 at four decimals)\n"
        self.assertTrue(run("runs", self.HURON).stderr.endswith(told))
        for words in (["--details"], ["--format", "json"], ["--format", "csv"]):
            self.assertNotIn("four decimals", run("runs", self.HURON, *words).stderr)
        self.assertNotIn("four decimals", run("mann-whitney", PLANTS).stderr)


if __name__ == "__main__":
    unittest.main()
