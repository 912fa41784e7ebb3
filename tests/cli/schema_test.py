"""Checks what the program prints as JSON against docs/report.schema.json: schema_test.py PROGRAM PROJECT_FOLDER.

Whatever is valid must become invalid by a name more and by a name less, so that nothing is printed that the schema
does not know.
"""

import copy
import json
import sys
import unittest

from program import EXAMPLES, PLANTS, PROJECT, run

try:
    import jsonschema
except ImportError:
    sys.exit("FAILED: the Debian package python3-jsonschema is missing; cmake/install_packages check installs it")

SCHEMA = json.loads((PROJECT / "docs/report.schema.json").read_text(encoding="utf-8"))
VALIDATOR = jsonschema.Draft202012Validator(SCHEMA)
TESTS = {"mann-whitney": "sleep", "wilcoxon": "sleep", "spearman": "tuna", "sign": "sleep", "runs": "huron",
         "median": "chicks", "friedman": "rounding", "kruskal-wallis": "chicks"}
EQUAL = "a,b,c\n" + "2,2,2\n" * 6
FEW = "a,b,c\n1,4,2\n2,3,2\n"
OPTIONAL = {"warnings", "details", "missing", "rows", "groups", "cut", "yates", "yatesP", "cochran", "cochranP"}


def objects(value):
    """Every object within a value."""
    if isinstance(value, dict):
        yield value
        value = list(value.values())
    if isinstance(value, list):
        for element in value:
            yield from objects(element)


def example(test):
    return str(EXAMPLES / f"{TESTS[test]}.csv")


class Schema(unittest.TestCase):
    def read(self, *words, status=0, text=None):
        result = run(*words, "--format", "json", text=text)
        self.assertEqual(result.returncode, status, result.stderr)
        return json.loads(result.stdout)

    def check(self, printed, what):
        error = jsonschema.exceptions.best_match(VALIDATOR.iter_errors(printed))
        self.assertIsNone(error, f"{what}: {error and (list(error.absolute_path), error.message)}")
        return printed

    def test_is_one(self):
        jsonschema.Draft202012Validator.check_schema(SCHEMA)

    def test_covers_every_test_with_details_and_without(self):
        for test in TESTS:
            for words in ([], ["--details"], ["--details", "--confidence", "99.9"]):
                printed = self.check(self.read(test, example(test), *words), (test, words))
                self.assertEqual("details" in printed, bool(words))

    def test_covers_what_does_not_exist(self):
        for test in TESTS:
            for text in (EQUAL, FEW):
                words = ["--y", "a"] if test == "runs" else [] if test in ("median", "friedman", "kruskal-wallis") \
                    else ["--y", "a", "--x", "b"]
                result = run(test, "-", *words, "--details", "--headers", "--format", "json", text=text)
                self.check(json.loads(result.stdout), (test, text, result.stderr))

    def test_covers_what_options_add(self):
        ozone = str(EXAMPLES / "air_quality.csv")
        printed = self.check(self.read("kruskal-wallis", ozone, "--y", "Ozone", "--by", "Month", "--missing", "omit",
                                       "--details", "--control", "5", "--adjust", "bh"), "a table in long form")
        self.assertIn("missing", printed)
        self.assertIsNone(printed["details"]["letters"])
        for test, groups in (("kruskal-wallis", "chicks"), ("friedman", "rounding")):
            printed = self.read(test, str(EXAMPLES / f"{groups}.csv"), "--details", "--trend")
            self.assertIsNotNone(self.check(printed, (test, "a trend"))["details"]["trend"])
        lakes = self.read("runs", str(EXAMPLES / "lake_levels.csv"), "--cut", "median", "--details")
        self.assertIn("cut", self.check(lakes, "a cut")["results"])
        signs = self.read("sign", str(EXAMPLES / "maize_signs.csv"), "--details")
        self.assertIsNone(self.check(signs, "codes")["details"]["effect"]["medianDifference"])
        self.check(self.read("wilcoxon", example("wilcoxon"), "--ignore-ties", "--descriptives", "--tails", "greater",
                             "--details"), "descriptives")
        many = "a,b\n" + "".join(f"{i},{i * 7 % 61 + 0.5}\n" for i in range(60))
        for test in ("mann-whitney", "wilcoxon", "spearman"):
            self.check(self.read(test, "-", "--details", text=many), "many values")

    def test_covers_random_arrangements(self):
        rows = [f"{i},{i * 7 % 1511},{i * 11 % 1499},{i * 13 % 1493}" for i in range(1500)]
        wide = "a,b,c,d\n" + "\n".join(rows) + "\n"
        cells = "a\n" + "".join(f"{'xyz'[i * i % 7 % 3]}\n" for i in range(3000))
        for test in TESTS:
            if test == "sign":
                continue
            two = ["--y", "a", "--x", "b"] if test in ("mann-whitney", "wilcoxon", "spearman") else []
            printed = self.read(test, "-", *two, "--details", "--permutations", "49", text=cells if test == "runs" else wide)
            p = self.check(printed, test)["details"]["p"]
            self.assertEqual(p.get("zerosLeftOut", p)["permutations"]["arrangements"], 49, test)

    def test_covers_errors(self):
        self.check(self.read("mann-whitney", "no such file.csv", status=1), "no file")
        self.check(self.read("mann-whitney", PLANTS, "--y", "Z1:Z9", "--x", "A1:A9", status=1), "no numbers")
        self.check(self.read("median", example("median"), "--details", "--control", "straw", status=1), "no control")

    def test_covers_tables_of_columns(self):
        text = "a,b,c\n1,1,x\n1,-1,x\n-1,1,y\n1,-1,y\n-1,-1,y\n"
        for test, words in (("mann-whitney", ["--by", "c"]), ("kruskal-wallis", ["--by", "c"]), ("runs", []),
                            ("sign", [])):
            for details in ([], ["--details", "--adjust", "bh"]):
                printed = self.check(self.read(test, "-", "--each", *words, *details, text=text), (test, details))
                self.assertGreater(len(printed["columns"]), 1)
                self.assertEqual(["details" in column for column in printed["columns"]],
                                 [bool(details)] * len(printed["columns"]))
                printed["columns"][0]["newName"] = 1
                self.assertFalse(VALIDATOR.is_valid(printed), test)
        printed = self.read("kruskal-wallis", "-", "--each", "--y", "a,b", "--by", "c",
                            text="a,b,c\n1,4,x\n2,,x\n3,7,y\n5,6,y\n")
        self.check(printed, "a column that is refused")
        self.assertTrue(any("error" in column for column in printed["columns"]))
        printed = self.read("median", "-", "--each", "--by", "g", "--missing", "omit", "--details", "--control", "z",
                            text="g,a,b\nx,1,3\nx,2,4\ny,3,5\ny,4,9\nz,5,\nz,6,\n")
        self.check(printed, "a column without details")
        self.assertEqual([column.get("note") is None for column in printed["columns"]], [True, False])

    def test_knows_every_name(self):
        for test in TESTS:
            printed = self.read(test, example(test), "--details")
            places = len(list(objects(printed)))
            for place in range(places):
                more = copy.deepcopy(printed)
                where = list(objects(more))[place]
                where["newName"] = 1
                self.assertFalse(VALIDATOR.is_valid(more), (test, where))

    def test_misses_every_name(self):
        for test in TESTS:
            printed = self.read(test, example(test), "--details")
            printed["report"]["rows"] = []
            for place in range(len(list(objects(printed)))):
                for name in set(list(objects(printed))[place]) - OPTIONAL:
                    less = copy.deepcopy(printed)
                    del list(objects(less))[place][name]
                    self.assertFalse(VALIDATOR.is_valid(less), (test, place, name))


if __name__ == "__main__":
    unittest.main()
