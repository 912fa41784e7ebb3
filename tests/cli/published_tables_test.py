"""Tables as R exports them, against R and in other forms: published_tables_test.py PROGRAM PROJECT_FOLDER."""

import argparse
import csv
import functools
import io
import json
import random
import re
import shlex
import unittest

from program import PROJECT, run

TABLES = PROJECT / "tests/tables"
DELIMITERS = {"write.csv": ",", "write.csv_without_names": ",", "write.csv2": ";", "write.table": " ",
              "write.table_tabs": "\t", "write.table_without_quotes": " "}
COMPARISONS = {
    "=": lambda cell, value: cell == value, "!=": lambda cell, value: cell != value,
    "<": lambda cell, value: cell < value, "<=": lambda cell, value: cell <= value,
    ">": lambda cell, value: cell > value, ">=": lambda cell, value: cell >= value,
}


def commands():
    """What R gives, by file and command: a list of its figures."""
    with open(PROJECT / "tests/reference/tables.csv", newline="", encoding="utf-8") as file:
        found = {}
        for reading in csv.DictReader(file):
            found.setdefault((reading["file"], reading["command"]), []).append(reading)
        return found


@functools.cache
def report(test, file, *words, text=None):
    done = run(test, file, *words, "--format", "json", text=text)
    assert done.returncode == 0, (test, file, words, done.stdout, done.stderr)
    return json.loads(done.stdout)


def figure(results, name):
    """The figure "df.1" is the second one of the list "df"."""
    for part in name.split("."):
        results = results[int(part)] if part.isdigit() else results[part]
    return results


def value(cell):
    try:
        return float(cell)
    except ValueError:
        return cell


class Table:
    """A table of texts; names of rows stand below an empty header."""

    def __init__(self, header, rows):
        self.header = header
        self.rows = rows

    @classmethod
    def read(cls, file):
        with open(TABLES / file, newline="", encoding="utf-8") as lines:
            header, *rows = csv.reader(lines, delimiter=DELIMITERS[file.split("/")[0]])
        if file.startswith("write.csv2"):
            rows = [[re.sub(r"^(-?\d+),(\d+)$", r"\1.\2", cell) for cell in row] for row in rows]
        return cls([""] * (len(rows[0]) - len(header)) + header, rows)

    def place(self, name):
        return self.header.index(name) if name in self.header else ord(name[0]) - ord("A")

    def column(self, name):
        return [row[self.place(name)] for row in self.rows]

    def where(self, conditions):
        """The table without the rows that do not fulfil all conditions; no condition here asks about NA."""
        rows = self.rows
        for condition in conditions:
            name, sign, values = re.fullmatch(r"(.+?)\s*(!=|<=|>=|=|<|>| in )\s*(.+)", condition).groups()
            place = self.place(name)
            if sign == " in ":
                rows = [row for row in rows if row[place] in values.split(",")]
            else:
                rows = [row for row in rows if COMPARISONS[sign](value(row[place]), value(values))]
        return Table(self.header, rows)

    def shuffled(self):
        rows = list(self.rows)
        random.Random(1).shuffle(rows)
        return Table(self.header, rows)

    def text(self):
        text = io.StringIO()
        csv.writer(text).writerows([self.header, *self.rows])
        return text.getvalue()


class Command:
    """A command's words, and those among them that say how to read its table."""

    def __init__(self, file, command):
        self.file = file
        self.test, *self.words = shlex.split(command)
        options = argparse.ArgumentParser(allow_abbrev=False)
        for name in ("--y", "--by", "--block", "--missing", "--na", "--delimiter", "--groups"):
            options.add_argument(name)
        options.add_argument("--where", action="append", default=[])
        self.asked, self.others = options.parse_known_args(self.words)

    def without(self, *names):
        words = list(self.words)
        for name in names:
            while name in words:
                del words[words.index(name):words.index(name) + 2]
        return words

    def values(self, table):
        """The column of values, which is the only one of numbers where none is named."""
        return self.asked.y or next(name for name in table.header if name not in ("", self.asked.by)
                                    and all(isinstance(value(cell), float) for cell in table.column(name)))

    def wide(self, groups):
        """The long table with a column for each group and, where values belong together, a row for each block."""
        table = Table.read(self.file).where(self.asked.where)
        cells = zip(table.column(self.values(table)), table.column(self.asked.by),
                    table.column(self.asked.block) if self.asked.block else table.column(self.asked.by))
        columns = {group: {} for group in groups}
        for row, (cell, group, block) in enumerate(cells):
            if group in columns and cell != "NA":
                columns[group][block if self.asked.block else row] = cell
        if self.asked.block:
            blocks = [block for block in columns[groups[0]] if all(block in column for column in columns.values())]
            return Table(groups, [[columns[group][block] for group in groups] for block in blocks])
        lists = [list(column.values()) for column in columns.values()]
        longest = max(map(len, lists))
        return Table(groups, list(zip(*(cells + [""] * (longest - len(cells)) for cells in lists))))


def commands_on_texts():
    found = [Command(*key) for key in commands()]
    return [command for command in found if command.file.split("/")[0] in DELIMITERS]


class PublishedTables(unittest.TestCase):
    def test_every_figure_is_the_one_of_r(self):
        for (file, command), readings in commands().items():
            test, *words = shlex.split(command)
            results = report(test, str(TABLES / file), *words)["results"]
            for reading in readings:
                expected = float(reading["value"])
                # A probability keeps fewer digits the smaller it is: it is formed as 1 less what is near to 1.
                self.assertLessEqual(abs(figure(results, reading["result"]) - expected), 1e-9 * abs(expected), reading)

    def test_every_table_and_every_test_has_commands(self):
        known = commands()
        files = {str(file.relative_to(TABLES)) for file in TABLES.glob("*/*")}
        self.assertEqual({file for file, _ in known}, files)
        tests = [command.split()[0] for _, command in known]
        self.assertEqual(len(set(tests)), 8)
        self.assertGreaterEqual(min(map(tests.count, tests)), 10)

    def test_a_wide_table_gives_what_the_long_one_gives(self):
        for command in commands_on_texts():
            if command.asked.by:
                long = report(command.test, str(TABLES / command.file), *command.words)
                wide = command.wide([group["name"] for group in long["groups"]])
                results = report(command.test, "-", "--headers", *command.others, text=wide.text())["results"]
                self.assertEqual(results, long["results"], vars(command))

    def test_the_order_of_rows_changes_nothing_but_that_of_groups(self):
        for command in commands_on_texts():
            if command.test == "runs":
                continue
            ordered = report(command.test, str(TABLES / command.file), *command.words)
            words = command.without("--delimiter", "--groups")
            if command.asked.by:
                words += ["--groups", ",".join(f'"{group["name"]}"' for group in ordered["groups"])]
            shuffled = report(command.test, "-", *words, text=Table.read(command.file).shuffled().text())
            self.assertEqual(shuffled["results"], ordered["results"], vars(command))
            self.assertEqual(shuffled.get("groups"), ordered.get("groups"), vars(command))

    def test_a_condition_leaves_what_is_left_by_hand(self):
        for command in commands_on_texts():
            if command.asked.where:
                left = Table.read(command.file).where(command.asked.where)
                by_hand = report(command.test, "-", *command.without("--where", "--delimiter"), text=left.text())
                asked = report(command.test, str(TABLES / command.file), *command.words)
                self.assertEqual(by_hand["results"], asked["results"], vars(command))
                all_rows = len(Table.read(command.file).rows)
                self.assertEqual(asked["rows"]["unfulfilled"], all_rows - len(left.rows), vars(command))


if __name__ == "__main__":
    unittest.main(argv=["published_tables_test.py"])
