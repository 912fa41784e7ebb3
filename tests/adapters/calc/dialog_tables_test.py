"""Tables as people keep them, in the dialog: missing values, and groups in one column."""

import csv
import pathlib
import time
import unittest

import uno  # noqa: F401
from com.sun.star.accessibility.AccessibleRole import CHECK_BOX, LIST, LIST_ITEM, PUSH_BUTTON
from TBVNonPara.TBVNPMethod import (tbvNPFriedman, tbvNPKWallis, tbvNPMannU, tbvNPMedian, tbvNPSign, tbvNPSpearman,
                                    tbvNPWilcoxon)

from dialog_case import DialogCase
from office import cells_of, filter_rows
from screen import wait_for

ROOT = pathlib.Path(__file__).resolve().parents[3]
# A table as it is published, the test, its number, whether it pairs, and figures that R gives (tests/reference).
PUBLISHED = [
    ("plants.csv", "Mann-Whitney U test", tbvNPMannU, False, ("u", "p")),
    ("depression.csv", "Wilcoxon paired-sample test", tbvNPWilcoxon, True, ("t", "p")),
    ("tuna.csv", "Spearman rank correlation", tbvNPSpearman, True, ("rs",)),
    ("maize.csv", "Sign test", tbvNPSign, True, ("positive", "p")),
    ("sprays.csv", "Mood median test", tbvNPMedian, False, ("chiSquare", "logLikelihood")),
    ("rounding.csv", "Friedman test", tbvNPFriedman, True, ("chiSquare", "p")),
    ("chicks.csv", "Kruskal-Wallis test", tbvNPKWallis, False, ("chiSquare", "f")),
]


def example(name):
    with open(ROOT / "examples" / name, encoding="utf-8", newline="") as file:
        return list(csv.reader(file))


def wide(name):
    """The columns of an example, labels first."""
    rows = example(name)
    return [[row[place] for row in rows if row[place] != ""] for place in range(len(rows[0]))]


def number(cell):
    try:
        return float(cell)
    except ValueError:
        return cell


def stacked(columns):
    """The same as a table in long form: values, groups and blocks."""
    rows = [(float(value), column[0], f"row {block}") for column in columns
            for block, value in enumerate(column[1:])]
    return [["value"] + [row[0] for row in rows], ["group"] + [row[1] for row in rows],
            ["block"] + [row[2] for row in rows]]


def reference(name, result):
    with open(ROOT / "tests" / "reference" / "examples.csv", encoding="utf-8", newline="") as file:
        return next(float(row["value"]) for row in csv.DictReader(file)
                    if row["file"] == name and row["options"] in ("", "--tails two") and row["result"] == result)


class Tables(DialogCase):
    def put(self, columns, left=0, sheet=None):
        for place, column in enumerate(columns, left):
            cells = (sheet or self.sheet).getCellRangeByPosition(place, 0, place, len(column) - 1)
            cells.setDataArray(tuple((number(value),) for value in column))

    def last_sheet(self):
        return self.document.Sheets.getByIndex(self.document.Sheets.Count - 1)

    def boxes(self):
        return [e.name for e in self.dialog.walk() if e.role == CHECK_BOX and e.name.startswith("Leave out")]

    def wait_for_box(self, name):
        self.assertTrue(wait_for(lambda: self.control(name, CHECK_BOX) is not None), self.boxes())

    def figures(self):
        """The line below the headings of the test's table."""
        cells = self.last_cells()
        return next(cells[row + 1] for row in range(len(cells)) if cells[row][0] in ("U", "T"))

    def note(self):
        return [note.String for note in self.last_sheet().getAnnotations()]

    def wait_for_text(self, text):
        self.assertTrue(wait_for(lambda: text in self.texts()), self.texts())


class Missing(Tables):
    def test_they_are_told_of_and_refused_until_they_are_to_be_left_out(self):
        self.sheet.getCellRangeByName("B4").String = "NA"
        self.open_dialog("A1:B7")
        self.assertEqual(self.boxes(), ["Leave out missing values (1 of 12 values)"])
        self.press("OK")
        text = ('Data!B4 holds the text "NA"; every cell below the header must be a number. '
                'Tick "Leave out missing values".')
        self.wait_for_text(text)
        self.assertEqual(self.document.Sheets.Count, 1)
        self.check_layout()
        self.tick(self.boxes()[0])
        self.run_and_wait()
        # By hand: of 30 pairs 29 have Before below After; of the 462 arrangements 2 are as far off.
        self.assertEqual(self.figures()[0], 29)
        self.assertAlmostEqual(self.figures()[3], 4 / 462, 12)
        self.assertEqual(self.last_cells()[2][0], "Set 2 Range = Data!$B$1:$B$7")
        self.assertEqual(self.note(), ["Left out: 1 of 12 values that are missing"])
        self.document.UndoManager.undo()
        self.assertEqual(self.document.Sheets.Count, 1)
        self.assertEqual(self.sheet.getCellRangeByName("B4").String, "NA")

    def test_of_pairs_both_values_go(self):
        self.sheet.getCellRangeByName("A3").String = ""
        self.sheet.getCellRangeByName("B5").Formula = "=NA()"
        self.open_dialog("A1:B7")
        self.choose("Test:", "Wilcoxon paired-sample test")
        self.wait_for_box("Leave out missing values (2 of 6 pairs)")
        self.tick("Leave out missing values (2 of 6 pairs)")
        self.run_and_wait()
        # By hand: the four differences that remain are all negative, one of 16 arrangements at either end.
        self.assertEqual(self.figures()[0:2], (0, 4))
        self.assertAlmostEqual(self.figures()[2], 2 / 16, 12)
        self.assertEqual(self.note(), ["Left out: 2 of 6 pairs with missing values"])

    def test_only_visible_rows_are_counted_where_only_they_take_part(self):
        self.sheet.getCellRangeByName("B4").String = "NA"
        self.sheet.getCellRangeByName("B6").String = "NA"
        self.sheet.getRows().getByIndex(3).IsVisible = False
        self.open_dialog("A1:B7")
        self.wait_for_box("Leave out missing values (2 of 12 values)")
        self.tick("Visible rows only (1 of 7 are filtered out or hidden)")
        self.wait_for_box("Leave out missing values (1 of 10 values)")
        self.tick("Leave out missing values (1 of 10 values)")
        self.run_and_wait()
        # By hand: 12, 15, 18, 14 and 13 against 17, 21, 23 and 24.
        self.assertEqual(self.figures()[0:3], (19, 5, 4))
        self.assertEqual(self.note(), ["Visible rows only. Left out as filtered or hidden:\n"
                                       "Data!A1:A7: 1 of 6 rows\nData!B1:B7: 1 of 6 rows\n"
                                       "Left out: 1 of 10 values that are missing"])

    def test_what_is_no_number_is_refused_also_then(self):
        self.sheet.getCellRangeByName("B4").String = "NA"
        self.sheet.getCellRangeByName("B6").String = "many"
        self.open_dialog("A1:B7")
        self.assertEqual(self.boxes(), [])
        self.sheet.getCellRangeByName("B6").Value = 19
        self.field("Second range:").type("Data!B1:B6")
        self.wait_for_box("Leave out missing values (1 of 11 values)")
        self.tick("Leave out missing values (1 of 11 values)")
        self.sheet.getCellRangeByName("B5").String = "many"
        self.press("OK")
        text = 'Data!B5 holds the text "many"; every value of Data!After must be a number.'
        self.wait_for_text(text)
        self.assertEqual(self.document.Sheets.Count, 1)



class LongTable(Tables):
    def setUp(self):
        super().setUp()
        self.sheet.getCellRangeByName("A1:C7").clearContents(1 | 4)

    def tearDown(self):
        if self.find():
            self.choose("Test:", "Mann-Whitney U test")
        super().tearDown()

    def open_long(self, columns, test, selection=None):
        self.put(columns)
        self.open_dialog(selection or f"A1:{'ABC'[len(columns) - 1]}{len(columns[0])}")
        self.choose("Test:", test)
        self.tick("Groups in one column")
        self.assertTrue(wait_for(lambda: "Group range:" in self.texts()))

    def lines(self):
        """The groups as the list shows them."""
        marks = ("\u2610", "\u2611")
        return [e.name for e in self.dialog.walk() if e.role == LIST_ITEM and e.name.startswith(marks)]

    def list(self):
        return next(e for e in self.dialog.walk() if e.role == LIST and e.name.startswith("Groups"))

    def go_to(self, place):
        """To a group of the list, by mouse and keys. Two clicks within half a second would be a double one, which ticks."""
        time.sleep(0.6)
        left, top, width, _ = self.list().box
        self.screen.mouse("mousemove", left + width // 2, top + 8, "click", 1, "key", "Home", *["Down"] * place)

    def tick_groups(self, *places):
        for place in places:
            before = self.lines()
            self.go_to(place)
            self.screen.mouse("key", "space")
            self.assertTrue(wait_for(lambda: self.lines() != before), before)

    def report_of_columns(self, columns, method):
        """The report on the same data in columns, by a macro."""
        sheets = self.document.Sheets
        sheets.insertNewByName("Wide", sheets.Count)
        self.put(columns, sheet=sheets.getByName("Wide"))
        request = self.office.create("TBVNonPara.clsNonPara")
        request.Method, request.Headers = method, True
        if method in (tbvNPMedian, tbvNPFriedman, tbvNPKWallis):
            request.YRange = f"Wide!A1:{chr(ord('A') + len(columns) - 1)}{max(map(len, columns))}"
        else:
            request.YRange, request.XRange = (f"Wide!{letter}1:{letter}{len(column)}"
                                              for letter, column in zip("AB", columns))
        request.Results()
        return cells_of(self.last_sheet())

    def test_published_tables_have_the_reports_of_their_columns(self):
        for name, test, method, paired, results in PUBLISHED:
            with self.subTest(test=test):
                columns = wide(name)
                table = stacked(columns)
                self.open_long(table if paired else table[:2], test)
                self.assertEqual(self.lines(), [f"\u2611 {c[0]} ({len(c) - 1})" for c in columns])
                self.check_layout()
                self.run_and_wait()
                long = self.last_cells()
                figures = [cell for row in long for cell in row if isinstance(cell, float)]
                for result in results:
                    wanted = reference(name, result)
                    self.assertTrue([f for f in figures if abs(f - wanted) <= 1e-12 * abs(wanted)], (result, figures))
                addresses = [row[0] for row in long[1:3] if " = " in row[0]]
                self.assertEqual({address.split(" = ")[1] for address in addresses},
                                 {f"Data!$A$1:$A${len(table[0])}"})
                of_columns = self.report_of_columns(columns, method)
                self.assertEqual(long[1 + len(addresses):], of_columns[1 + len(addresses):])
                self.tearDown()
                self.setUp()

    def test_two_of_six_groups_are_ticked(self):
        rows = example("feeds.csv")
        self.open_long([[row[1] for row in rows], [row[2] for row in rows]], "Mann-Whitney U test")
        self.assertEqual(self.lines()[:2], ["\u2610 horsebean (10)", "\u2610 linseed (12)"])
        self.press("OK")
        self.wait_for_text("Tick two groups.")
        self.check_layout()
        self.tick_groups(5, 1)
        self.picture("long")
        self.assertEqual([line for line in self.lines() if line[0] == "\u2611"],
                         ["\u2611 linseed (12)", "\u2611 casein (12)"])
        self.tick_groups(0)
        self.press("OK")
        self.wait_for_text("Tick two groups.")
        self.tick_groups(0)
        self.choose("Alternative:", "linseed tends to be smaller")
        self.run_and_wait()
        cells = self.last_cells()
        # As R's wilcox.test: of the 144 pairs 15.5 have casein below linseed.
        self.assertEqual(self.figures()[0:3], (128.5, 12, 12))
        self.assertEqual([row[0] for row in cells[1:3]], ["Set 1 Range = Data!$A$1:$A$72",
                                                          "Set 2 Range = Data!$A$1:$A$72"])
        self.assertIn("(linseed < casein)", cells[4][0])
        self.assertEqual(self.note(), ["Groups of $Data.$B$1:$B$72: linseed (12), casein (12)\n"
                                       "Left out: 47 of 71 rows of other groups"])
        self.assertEqual(self.document.Sheets.Count, 2)
        self.document.UndoManager.undo()
        self.assertEqual(self.document.Sheets.Count, 1)

    def test_a_click_on_a_tick_changes_it_and_a_group_can_be_moved(self):
        self.open_long(stacked([["high", 3, 4, 5], ["low", 1, 2, 6]])[:2], "Mann-Whitney U test")
        left, top, _, _ = self.list().box
        for wanted in ("\u2610 high (3)", "\u2611 high (3)"):
            self.screen.mouse("mousemove", left + 8, top + 8, "click", 1)
            self.assertTrue(wait_for(lambda: self.lines()[0] == wanted, 30), self.lines())
        self.go_to(0)
        self.assertEqual(self.lines(), ["\u2611 high (3)", "\u2611 low (3)"])
        self.control("Move the group down", PUSH_BUTTON).click()
        self.assertTrue(wait_for(lambda: self.lines() == ["\u2611 low (3)", "\u2611 high (3)"]), self.lines())
        self.choose("Alternative:", "low tends to be smaller")
        self.run_and_wait()
        self.assertIn("(low < high)", self.last_cells()[4][0])

    def test_the_ranges_may_stand_on_any_sheet(self):
        sheets = self.document.Sheets
        sheets.insertNewByName("Other", 1)
        values, groups, blocks = stacked([["a", 3, 4, 5, 9], ["b", 1, 2, 6, 7]])
        self.put([values])
        self.put([groups, blocks], 3, sheets.getByName("Other"))
        self.open_dialog()
        self.choose("Test:", "Wilcoxon paired-sample test")
        self.tick("Groups in one column")
        for label, address in (("Value range:", "Data!A1:A9"), ("Group range:", "Other!D1:D9"),
                               ("Block range:", "Other!E1:E9")):
            self.field(label).type(address)
        self.assertTrue(wait_for(lambda: self.lines() == ["\u2611 a (4)", "\u2611 b (4)"]), self.lines())
        self.tick("Labels in the first row")
        self.run_and_wait()
        # By hand: the differences are 2, 2, -1 and 2.
        self.assertEqual(self.figures()[0:2], (1, 4))
        self.assertEqual(self.last_cells()[1][0], "Set 1 Range = Data!$A$1:$A$9")

    def test_what_is_missing_is_refused_or_left_out_with_its_block(self):
        values, groups, blocks = stacked([["a", 3, 4, 5, 9, 8], ["b", 1, 2, 6, 7, 4]])
        values[3], groups[10] = "NA", ""
        self.open_long([values, groups, blocks], "Wilcoxon paired-sample test")
        self.press("OK")
        self.wait_for_text('Data!group names no group in 1 row; the first is Data!B11. '
                           'Tick "Leave out missing values".')
        self.assertEqual(self.document.Sheets.Count, 1)
        self.tick("Leave out missing values (2 of 5 pairs, 1 of 10 rows without a name)")
        self.run_and_wait()
        # By hand: rows 2 and 4 go; the differences 2, 2 and 2 are all positive.
        self.assertEqual(self.figures()[0:2], (0, 3))
        self.assertEqual(self.note(), ["Groups of $Data.$B$1:$B$11: a (3), b (3)\n"
                                       "Left out: 1 of 10 rows without a group or block, "
                                       "2 of 5 pairs with missing values"])

    def test_a_range_that_is_wanting_is_told_of_beside_its_field(self):
        self.open_long(stacked([["a", 3, 4, 5], ["b", 1, 2, 6]]), "Wilcoxon paired-sample test")
        self.field("Block range:").type("")
        self.press("OK")
        self.wait_for_text("Choose the range that says which values belong together.")
        self.field("Block range:").type("Data!B1:B7")
        self.press("OK")
        self.wait_for_text('The block "a" of Data!group has two values of "a": Data!A2 and Data!A3; every block takes '
                           'one of each.')
        self.field("Block range:").type("Data!C1:C6")
        self.press("OK")
        self.wait_for_text("Data!value has 6 rows, Data!block 5; rows belong together, so make them equally long.")
        self.field("Group range:").type("Nowhere!B1")
        self.press("OK")
        self.wait_for_text("Nowhere!B1 is no range of this document; correct its address.")
        self.field("Group range:").type("Data!B1:C7")
        self.press("OK")
        self.wait_for_text("Choose one column.")
        self.assertEqual(self.document.Sheets.Count, 1)

    def test_the_rows_of_a_filter_are_left_out_of_values_and_groups_alike(self):
        values, groups, _ = stacked([["a", 13, 4, 15], ["b", 11, 12, 6]])
        self.put([values, groups])
        filter_rows(self.document, "A1:B7", 0, 10)
        self.open_dialog("A1:B7")
        self.tick("Groups in one column")
        self.assertTrue(wait_for(lambda: self.lines() == ["\u2611 a (2)", "\u2611 b (2)"]), self.lines())
        self.tick("Visible rows only (2 of 7 are filtered out or hidden)", False)
        self.assertTrue(wait_for(lambda: self.lines() == ["\u2611 a (3)", "\u2611 b (3)"]), self.lines())
        self.tick("Visible rows only (2 of 7 are filtered out or hidden)")
        self.run_and_wait()
        self.assertEqual(self.figures()[0:3], (4, 2, 2))
        self.assertTrue(self.note()[0].startswith("Visible rows only. Left out as filtered or hidden:\nData!A1:A7: 2"))

    def test_it_speaks_german_where_calc_does(self):
        values, groups, blocks = stacked([["a", 3, 4, 5], ["b", 1, 2, 6]])
        values[3] = "NA"
        self.put([values, groups, blocks])
        self.document.CurrentController.select(self.sheet.getCellRangeByName("A1:C7"))
        with self.in_german():
            self.choose("Test:", "Wilcoxon-Test für Paare")
            self.tick("Gruppen in einer Spalte")
            self.assertTrue(wait_for(lambda: self.field("Blockbereich:").text == "$Data.$C$1:$C$7"))
            self.assertIsNotNone(self.control("Fehlende Werte auslassen (1 von 3 Paaren)", CHECK_BOX))
            self.press("OK")
            self.wait_for_text("Fehlende Werte in Data!value: 1 von 6, zuerst in Data!A4. Bitte „Fehlende Werte "
                               "auslassen“ ankreuzen.")
            self.check_layout()
            self.field("Blockbereich:").type("")
            self.press("OK")
            self.wait_for_text("Bitte den Bereich angeben, der sagt, welche Werte zusammengehören.")
        self.assertEqual(self.document.Sheets.Count, 1)

    def test_runs_take_no_groups(self):
        self.open_long(stacked([["a", 3, 4, 5], ["b", 1, 2, 6]])[:2], "Kruskal-Wallis test")
        self.choose("Test:", "Wald-Wolfowitz runs test")
        self.assertTrue(wait_for(lambda: self.control("Groups in one column", CHECK_BOX) is None))
        self.assertEqual(self.lines(), [])


if __name__ == "__main__":
    unittest.main()
