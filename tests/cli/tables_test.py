"""Tables in long form, conditions and missing values: tables_test.py PROGRAM PROJECT_FOLDER."""

import csv
import json
import pathlib
import shlex
import tempfile
import unittest

from program import EXAMPLES, run

FEEDS = str(EXAMPLES / "feeds.csv")
AIR = str(EXAMPLES / "air_quality.csv")
SLEEP = str(EXAMPLES / "sleep_long.csv")


def results(*words, text=None):
    done = run(*words, "--format", "json", text=text)
    assert done.returncode == 0, done.stderr
    return json.loads(done.stdout)


class Groups(unittest.TestCase):
    def test_a_long_table_gives_the_figures_of_the_wide_one(self):
        for words in (["kruskal-wallis"], ["median"]):
            wide = results(*words, str(EXAMPLES / "chicks.csv"))
            long = results(*words, FEEDS, "--y", "weight", "--by", "feed", "--groups",
                           "casein,horsebean,linseed,meatmeal,soybean,sunflower")
            self.assertEqual(long["results"], wide["results"])

    def test_pairs_and_blocks_are_matched(self):
        wide = results("wilcoxon", str(EXAMPLES / "sleep.csv"), "--ignore-ties")
        long = results("wilcoxon", SLEEP, "--y", "extra", "--by", "group", "--block", "ID", "--ignore-ties")
        self.assertEqual(long["results"], wide["results"])
        text = "judge,wine,mark\n1,a,3\n2,b,5\n1,b,4\n2,c,9\n1,c,7\n2,a,6\n"
        friedman = results("friedman", "-", "--y", "mark", "--by", "wine", "--block", "judge", text=text)
        self.assertEqual(friedman["groups"], [{"name": name, "n": 2} for name in "abc"])

    def test_the_report_names_the_columns_and_the_groups(self):
        report = results("mann-whitney", FEEDS, "--by", "feed", "--groups", "casein,linseed", "--descriptives")
        rows = report["report"]["rows"]
        self.assertEqual(rows[1][0], "Set 1 Range = feeds!$B$1:$B$72")
        self.assertEqual(rows[2][0], "Set 2 Range = feeds!$B$1:$B$72")
        cells = [cell for row in rows for cell in row]
        self.assertIn("casein", cells)
        self.assertIn("linseed", cells)
        self.assertEqual(report["report"]["address"][:11], "Results!$A$")

    def test_too_many_groups_show_the_command_to_type(self):
        done = run("mann-whitney", FEEDS, "--y", "weight", "--by", "feed")
        self.assertEqual(done.returncode, 1)
        self.assertIn("casein (12)", done.stderr)
        command = done.stderr.split("for example: ")[1].splitlines()[0]
        self.assertEqual(command, f"tbvnonpara mann-whitney {FEEDS} --y weight --by feed --groups horsebean,linseed")
        self.assertEqual(run(*command.split()[1:]).returncode, 0)

    def test_names_beside_numbers_show_how_to_split_these(self):
        done = run("kruskal-wallis", FEEDS)
        self.assertEqual(done.returncode, 1)
        self.assertIn('feeds!C2 holds the text "horsebean", and feeds!feed no number; every value must be one. '
                      "Where it names groups, write --y weight --by feed.", done.stderr)
        done = run("median", "-", text="the value,my group\n1,a\n2,b\n")
        self.assertIn("write --y 'the value' --by 'my group'.", done.stderr)

    def test_a_command_with_blanks_and_quotes_can_be_typed(self):
        text = "a value,the group\n1,it's\n2,\"x,y\"\n3,z\n"
        done = run("mann-whitney", "-", "--y", "a value", "--by", "the group", text=text)
        self.assertIn("""--y 'a value' --by 'the group' --groups 'it'\\''s,"x,y"'""", done.stderr)

    def test_columns_that_are_not_there_and_tests_without_groups_are_refused(self):
        for words, says in (
            (["kruskal-wallis", FEEDS, "--y", "weight", "--by", "food"], 'There is no column "food"'),
            (["kruskal-wallis", AIR, "--by", "Month"], "Name the column of values: air_quality!Ozone, air_quality!Solar.R"),
            (["runs", FEEDS, "--y", "weight", "--by", "feed"], "compares no groups"),
            (["wilcoxon", SLEEP, "--y", "extra", "--by", "group"], "with --block"),
            (["friedman", FEEDS, "--y", "weight", "--by", "feed", "--block", "feed"], "has two values"),
        ):
            done = run(*words)
            self.assertEqual((done.returncode, done.stdout), (1, ""), words)
            self.assertIn(says, done.stderr)

    def test_blocks_of_independent_groups_are_no_option(self):
        self.assertEqual(run("mann-whitney", FEEDS, "--by", "feed", "--block", "A").returncode, 2)


class Columns(unittest.TestCase):
    def test_each_have_the_results_that_they_have_alone(self):
        table = results("kruskal-wallis", AIR, "--by", "Month", "--each", "--missing", "omit")
        self.assertEqual([column["column"] for column in table["columns"]],
                         ["Ozone", "Solar.R", "Wind", "Temp", "Day"])
        for column in table["columns"]:
            alone = results("kruskal-wallis", AIR, "--by", "Month", "--y", column["column"], "--missing", "omit")
            self.assertEqual((column["results"], column["missing"]), (alone["results"], alone["missing"]))

    def test_are_rows_of_a_table_in_csv_with_what_is_wrong(self):
        done = run("mann-whitney", AIR, "--y", "Ozone,Temp", "--by", "Month", "--groups", "5,8", "--format", "csv")
        rows = list(csv.DictReader(done.stdout.splitlines()))
        self.assertEqual([row["column"] for row in rows], ["Ozone", "Temp"])
        self.assertIn("air_quality!Ozone lacks 10 values", rows[0]["error"])
        self.assertIn("Add --missing omit", rows[0]["error"])
        self.assertEqual((rows[1]["df.1"], rows[1]["error"]), ("31", ""))
        self.assertEqual(done.returncode, 0)
        self.assertIn("Ozone has no result", done.stderr)

    def test_have_a_report_each_as_text(self):
        done = run("mann-whitney", AIR, "--y", "Wind,Temp", "--by", "Month", "--groups", "5,8")
        self.assertEqual(done.stdout.count("Mann-Whitney Test Results for:"), 2)
        self.assertIn("Set 1 Range = air_quality!$C$1:$C$154", done.stdout)

    def test_without_any_result_are_a_failure(self):
        done = run("mann-whitney", "-", "--by", "g", "--each", "--format", "csv", text="g,a\n1,2\n2,2\n3,1\n")
        self.assertEqual(done.returncode, 1)
        self.assertIn("the test compares two", done.stdout)

    def test_are_saved_and_no_pages(self):
        with tempfile.TemporaryDirectory() as folder:
            path = pathlib.Path(folder) / "table.csv"
            words = ["runs", AIR, "--y", "Wind,Temp", "--each", "--cut", "median", "--save", str(path)]
            self.assertEqual(run(*words).returncode, 0)
            self.assertTrue(path.read_text(encoding="utf-8").startswith("column,runs,expected"))
        self.assertEqual(run("runs", AIR, "--each", "--format", "html").returncode, 2)

    def test_are_not_planned_but_refused(self):
        self.assertEqual(run("runs", AIR, "--each", "--plan").returncode, 2)
        several = run("median", AIR, "--y", "Wind,Temp", "--by", "Month", "--plan")
        self.assertEqual((several.returncode, several.stdout), (1, ""))

    def test_may_be_more_than_a_sheet_has(self):
        many = 20000
        rows = ["group," + ",".join(f"c{i}" for i in range(many))]
        rows += [name + "," + ",".join(str((i + row) % 4) for i in range(many)) for row, name in enumerate("xyxy")]
        text = "\n".join(rows)
        table = results("mann-whitney", "-", "--by", "group", "--each", "--y", f"c0,c{many - 1}", text=text)
        self.assertEqual([column["column"] for column in table["columns"]], ["c0", f"c{many - 1}"])
        self.assertIn("more columns", run("mann-whitney", "-", "--by", "group", text=text).stderr)


class Descriptions(unittest.TestCase):
    def test_say_what_each_column_holds(self):
        description = json.loads(run("describe", AIR, "--format", "json").stdout)
        sheet = description["sheets"][0]
        self.assertEqual((sheet["sheet"], sheet["rows"], sheet["headers"]), ("air_quality", 153, True))
        # R: summary(airquality$Ozone); length(unique(na.omit(airquality$Ozone)))
        self.assertEqual(sheet["columns"][0], {"column": "A", "header": "Ozone", "kind": "numbers", "count": 116,
                                               "missing": 37, "distinct": 67, "min": 1, "median": 31.5, "max": 168})

    def test_tell_the_kinds_apart(self):
        text = "n,t,d,b,m\n1,x,2020-01-01,TRUE,1\n2,y,2020-01-02,FALSE,z\n"
        columns = json.loads(run("describe", "-", "--format", "json", text=text).stdout)["sheets"][0]["columns"]
        self.assertEqual([column["kind"] for column in columns], ["numbers", "texts", "dates", "logical", "mixed"])

    def test_suggest_commands_that_work(self):
        for file in (AIR, FEEDS, SLEEP, *(str(path) for path in EXAMPLES.glob("*.csv"))):
            commands = json.loads(run("describe", file, "--format", "json").stdout)["commands"]
            self.assertTrue(commands, file)
            for command in commands:
                done = run(*shlex.split(command)[1:])
                self.assertEqual(done.returncode, 0, command + "\n" + done.stderr)

    def test_read_the_file_in_suggestions_as_they_did(self):
        text = "# years\n1,5 1.000,5\n3,5 1.001,5\n4 1.003\n"
        words = ["--delimiter", "space", "--decimal", ",", "--thousands", ".", "--encoding", "latin1",
                 "--comment", "# y", "--no-headers", "--na", "-9"]
        commands = json.loads(run("describe", "-", *words, "--format", "json", text=text).stdout)["commands"]
        self.assertTrue(commands)
        for command in commands:
            self.assertIn(shlex.join(words), command)
            self.assertEqual(run(*shlex.split(command)[1:], text=text).returncode, 0, command)

    def test_count_na_among_true_and_false_as_missing(self):
        text = "ok,y\nTRUE,1.5\nNA,2.5\nFALSE,3.5\nTRUE,4.5\nFALSE,5.5\n"
        description = json.loads(run("describe", "-", "--format", "json", text=text).stdout)
        ok = description["sheets"][0]["columns"][0]
        self.assertEqual((ok["kind"], ok["missing"], ok["distinct"]), ("logical", 1, 2))
        self.assertEqual(description["commands"], ["tbvnonpara mann-whitney - --y y --by ok --missing omit"])

    def test_match_the_shape_of_the_data(self):
        commands = json.loads(run("describe", SLEEP, "--format", "json").stdout)["commands"]
        self.assertIn(f"tbvnonpara wilcoxon {SLEEP} --y extra --by group --block ID", commands)

    def test_of_three_columns_side_by_side_are_of_blocks(self):
        text = "r1,r2,r3\n5.4,5.5,5.55\n5.85,5.7,5.75\n5.2,5.6,5.5\n5.55,5.5,5.4\n"
        for table in (text, text.replace("r1", ",r1").replace("\n5", "\nx,5")):
            commands = json.loads(run("describe", "-", "--format", "json", text=table).stdout)["commands"]
            self.assertIn("tbvnonpara friedman -", commands)
            self.assertEqual(run("friedman", "-", text=table).returncode, 0)

    def test_take_no_options_of_tests(self):
        self.assertEqual(run("describe", FEEDS, "--by", "feed").returncode, 2)
        self.assertEqual(run("describe", FEEDS, "--format", "html").returncode, 2)

    def test_of_an_empty_file_suggest_nothing(self):
        done = run("describe", "-", text="")
        self.assertEqual((done.returncode, done.stdout), (0, "stdin: 0 rows, no headers\n"))


class Plans(unittest.TestCase):
    def test_count_and_stop(self):
        done = run("mann-whitney", AIR, "--y", "Ozone", "--by", "Month", "--groups", "5,8", "--missing", "omit", "--plan")
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertEqual(done.stdout.splitlines()[1:],
                         ["using air_quality!A1:A154 by air_quality!E1:E154 (first row is headers)",
                          "groups: 5 (26), 8 (26)",
                          "left out: 91 of 153 rows of other groups, 10 of 62 values that are missing"])

    def test_are_for_programs_too(self):
        plan = results("spearman", AIR, "--y", "Wind", "--x", "Temp", "--plan")
        self.assertEqual(plan["ranges"]["y"], "air_quality!C1:C154")
        self.assertEqual(plan["groups"], [{"name": "Wind", "n": 153}, {"name": "Temp", "n": 153}])

    def test_refuse_what_the_test_would(self):
        self.assertEqual(run("spearman", AIR, "--y", "Ozone", "--x", "Temp", "--plan").returncode, 1)


class Rows(unittest.TestCase):
    TEXT = "before,4,5,7,9\nafter,6,8,NA,12\ngroup,a,b,a,b\n"

    def test_are_columns_when_the_table_is_turned_over(self):
        upright = "\n".join(",".join(row) for row in zip(*(line.split(",") for line in self.TEXT.splitlines())))
        for words in (["wilcoxon", "--y", "before", "--x", "after"], ["kruskal-wallis", "--y", "before", "--by", "group"]):
            turned = results(*words, "-", "--transpose", "--missing", "omit", text=self.TEXT)
            self.assertEqual(turned["results"], results(*words, "-", "--missing", "omit", text=upright)["results"])

    def test_are_named_where_they_stand_in_the_file(self):
        done = run("wilcoxon", "-", "--transpose", "--y", "before", "--x", "after", "--missing", "omit", text=self.TEXT)
        self.assertIn("using stdin!A1:E1 and stdin!A2:E2", done.stderr)
        self.assertIn("Set 2 Range = stdin!$A$2:$E$2", done.stdout)
        refused = run("wilcoxon", "-", "--transpose", "--y", "before", "--x", "after", text=self.TEXT)
        self.assertIn('stdin!D2 holds the text "NA"', refused.stderr)

    def test_more_than_a_sheet_has_columns_are_tested_each(self):
        rows = ["group," + ",".join("abababab")]
        rows += [f"gene{i}," + ",".join(str((i * j) % 7) for j in range(8)) for i in range(20000)]
        text = "\n".join(rows)
        words = ["mann-whitney", "-", "--transpose", "--by", "group", "--each", "--y", "gene5,gene19999"]
        table = results(*words, text=text)
        self.assertEqual([column["address"] for column in table["columns"]],
                         ["stdin!$A$7:$I$7", "stdin!$A$20001:$I$20001"])
        self.assertIn("more than the 16384", run("median", "-", "--transpose", "--by", "group", text=text).stderr)

    def test_leave_no_report_beside_them(self):
        self.assertEqual(run("wilcoxon", "-", "--transpose", "--output", "stdin!H1", text=self.TEXT).returncode, 2)


class Conditions(unittest.TestCase):
    def test_rows_are_taken_as_if_the_others_were_not_there(self):
        rows = [line.split(",") for line in (EXAMPLES / "air_quality.csv").read_text(encoding="utf-8").splitlines()]
        kept = [rows[0]] + [row for row in rows[1:] if row[4] in ("7", "8") and float(row[2]) < 10]
        by_hand = results("spearman", "-", "--y", "Temp", "--x", "Wind",
                          text="\n".join(",".join(row) for row in kept))
        report = results("spearman", AIR, "--y", "Temp", "--x", "Wind", "--where", "Month in 7,8", "--where", "Wind<10")
        self.assertEqual(report["results"], by_hand["results"])
        self.assertEqual(report["rows"]["unfulfilled"], len(rows) - len(kept))

    def test_nothing_left_says_what_there_is(self):
        done = run("kruskal-wallis", FEEDS, "--by", "feed", "--where", "feed = corn")
        self.assertEqual(done.returncode, 1)
        self.assertIn("feeds!feed holds horsebean, linseed,", done.stderr)

    def test_what_is_no_condition_is_refused(self):
        for condition, says in (("feed < m", "neither a number nor a date"), ("feed", "compares nothing"),
                                ("food = corn", "begins with no column of the table. The columns are A"),
                                ("weight > 1,5", "write decimals with a point")):
            done = run("kruskal-wallis", FEEDS, "--by", "feed", "--where", condition)
            self.assertEqual(done.returncode, 1, condition)
            self.assertIn(says, done.stderr)


class Headers(unittest.TestCase):
    TEXT = "1999,2000\n1,2\n2,5\n3,4\n"

    def test_that_are_numbers_are_pointed_out(self):
        done = run("mann-whitney", "-", "--y", "1999", "--x", "2000", text=self.TEXT)
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn('There is no column "1999": the number 1999 in A1 is taken for data.', done.stderr)
        self.assertIn("Add --headers", done.stderr)

    def test_that_are_numbers_name_columns_when_told(self):
        report = results("mann-whitney", "-", "--headers", "--y", "1999", "--x", "2000", text=self.TEXT)
        self.assertEqual(report["results"]["df"], [3, 3])


class MissingValues(unittest.TestCase):
    NAMES = "y,g\n1,a\n4,a\n3,b\n2,b\n5,NA\n6,NA\n"

    def test_among_names_are_pointed_out_as_a_group(self):
        done = run("kruskal-wallis", "-", "--by", "g", text=self.NAMES)
        self.assertEqual(done.returncode, 0)
        self.assertIn('One of the groups is called "NA". If that stands for a missing name, add --na NA --missing omit.',
                      done.stderr)

    def test_among_names_are_left_out_when_told(self):
        done = run("kruskal-wallis", "-", "--by", "g", "--na", "NA", "--missing", "omit", text=self.NAMES)
        self.assertNotIn("One of the groups", done.stderr)
        self.assertIn("left out: 2 of 6 rows without a group", done.stderr)

    def test_are_refused_with_their_number_their_place_and_the_option(self):
        done = run("spearman", AIR, "--y", "Ozone", "--x", "Temp")
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn('air_quality!Ozone lacks 37 values of 153, the first where air_quality!A6 holds the text "NA".', done.stderr)
        self.assertIn("--missing omit", done.stderr)

    def test_are_left_out_pair_by_pair_and_counted(self):
        rows = [line.split(",") for line in (EXAMPLES / "air_quality.csv").read_text(encoding="utf-8").splitlines()]
        by_hand = results("spearman", "-", "--y", "Ozone", "--x", "Temp",
                          text="\n".join(",".join(row) for row in rows if row[0] != "NA"))
        report = results("spearman", AIR, "--y", "Ozone", "--x", "Temp", "--missing", "omit")
        self.assertEqual(report["results"], by_hand["results"])
        self.assertEqual(report["missing"], {"dropped": 37, "rows": 153, "of": "pairs"})

    def test_are_never_a_category_of_numbers(self):
        text = "x\n1\nNA\n2\n1\n2\n1\n"
        self.assertEqual(run("runs", "-", text=text).returncode, 1)
        report = results("runs", "-", "--missing", "omit", text=text)
        self.assertEqual(report["results"]["categories"], [1, 2])
        self.assertEqual(report["missing"], {"dropped": 1, "rows": 6, "of": "values"})

    def test_leave_hyphens_and_names_among_texts_alone(self):
        report = results("runs", "-", "--missing", "omit", text="s\n+\n-\n-\n+\nNA\n+\n")
        self.assertEqual(report["results"]["categories"], ["+", "-"])

    def test_may_be_words_of_the_users(self):
        text = "a,b\n1,2\n-999,3\nnone,4\n5,7\n6,1\n2,9\n"
        report = results("spearman", "-", "--missing", "omit", "--na", "none,-999", text=text)
        self.assertEqual(report["missing"], {"dropped": 2, "rows": 6, "of": "pairs"})

    def test_other_texts_are_refused_all_the_same(self):
        done = run("mann-whitney", "-", "--missing", "omit", text="a,b\n1,2\nhigh,3\n")
        self.assertEqual(done.returncode, 1)
        self.assertIn('stdin!A3 holds the text "high"; every value of stdin!a must be a number.', done.stderr)


class Dates(unittest.TestCase):
    def test_are_numbers_where_a_test_takes_numbers(self):
        dates = results("spearman", "-", text="day,x\n2020-03-01,1\n2020-02-01,5\n2020-03-02 12:00,3\n2021-01-01,4\n")
        days = results("spearman", "-", text="day,x\n43891,1\n43862,5\n43892.5,3\n44197,4\n")
        self.assertEqual(dates["results"], days["results"])

    def test_stay_categories_in_a_sequence(self):
        report = results("runs", "-", text="day\n2020-03-01\n2020-03-02\n2020-03-01\n2020-03-01\n")
        self.assertEqual(report["results"]["categories"], ["2020-03-01", "2020-03-02"])

    def test_without_an_order_are_refused(self):
        done = run("spearman", "-", text="day,x\n1/3/2020,1\n2/3/2020,5\n3/3/2020,3\n")
        self.assertEqual(done.returncode, 1)
        self.assertIn("day and month cannot be told apart", done.stderr)


if __name__ == "__main__":
    unittest.main(argv=["tables_test.py"])
