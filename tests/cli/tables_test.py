"""Tables in long form, conditions and missing values: tables_test.py PROGRAM PROJECT_FOLDER."""

import json
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
                                ("food = corn", "begins with no column")):
            done = run("kruskal-wallis", FEEDS, "--by", "feed", "--where", condition)
            self.assertEqual(done.returncode, 1, condition)
            self.assertIn(says, done.stderr)


class MissingValues(unittest.TestCase):
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
