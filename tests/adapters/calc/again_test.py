"""The test of a report once more, in its place: what it follows, what survives a file, what it refuses."""

import unittest

import uno  # noqa: F401
from com.sun.star.accessibility.AccessibleRole import PUSH_BUTTON, RADIO_BUTTON

from dialog_case import DialogCase
from office import property_value
from screen import wait_for, windows

AGAIN = "org.tbvnonpara.calc:again"
TITLE_OF_REPORT = "Mann-Whitney Test Results for:"
NO_REPORT = ("The cursor stands in no report that can be repeated. Put it into a report that the dialog has placed, "
             "and choose Test Again.")
LOST = ("The test was not repeated: cells of its data, or their sheet, have been deleted. Choose the data in the "
        "dialog.")
CHANGED = "Cells of this report were changed after it was placed. Replace the whole report?"


class AgainCase(DialogCase):
    def place(self, cell="E2", sheet=None):
        """A report of A and B at a cell."""
        self.document.CurrentController.ActiveSheet = sheet or self.sheet
        self.open_dialog("A1:B7")
        self.control("a cell:", RADIO_BUTTON).click()
        self.field("a cell:").type("Data!" + cell)
        self.press("OK")
        self.wait_until_closed()

    def tearDown(self):
        self.document.CurrentController.ActiveSheet = self.document.Sheets.getByIndex(0)
        self.open_dialog()
        self.control("a new sheet", RADIO_BUTTON).click()
        self.press("Close")
        self.wait_until_closed()
        super().tearDown()

    def wait_until_closed(self):
        self.assertTrue(wait_for(lambda: self.find() is None))

    def again(self, cell="E2", document=None):
        """Chooses the entry with the cursor in a cell."""
        document = document or self.document
        sheet = document.CurrentController.ActiveSheet
        document.CurrentController.select(sheet.getCellRangeByName(cell))
        self.office.dispatch(document, AGAIN)

    def u(self, cell="E8", sheet=None):
        return (sheet or self.sheet).getCellRangeByName(cell).Value

    def message(self, words, answer="OK"):
        """Waits for a message and presses one of its buttons."""
        def look():
            for candidate in windows(self.office):
                if candidate.find(words):
                    return candidate
            return None
        box = wait_for(look)
        self.assertIsNotNone(box, words)
        button = next(e for e in box.walk() if e.role == PUSH_BUTTON and e.name == answer)
        button.click()
        self.assertTrue(wait_for(lambda: not look()))

    def wait_for_u(self, wanted, document=None):
        sheet = document.Sheets.getByIndex(0) if document else self.sheet
        self.assertTrue(wait_for(lambda: self.u(sheet=sheet) == wanted, 30), self.u(sheet=sheet))
        self.wait_for_end(document)

    def wait_for_end(self, document=None):
        """A report that is seen is not whole yet: its step of Undo ends after what stands beside it."""
        self.assertTrue(wait_for((document or self.document).UndoManager.isUndoPossible, 30))

    def steps(self):
        return list(self.document.UndoManager.AllUndoActionTitles)

    def names(self):
        return list(self.document.NamedRanges.ElementNames)

    def settle(self):
        """What was begun is done when the main thread has come to what was asked of it later."""
        for _ in range(3):
            self.office.on_main_thread(lambda: None)

    def numbers(self, address):
        return [value for row in self.sheet.getCellRangeByName(address).DataArray for value in row]


class Again(AgainCase):
    def test_a_report_is_repeated_in_its_place_and_one_undo_takes_that_back(self):
        self.place()
        # By hand: Before lies below After in 34 of the 36 pairs.
        self.assertEqual(self.u(), 34)
        self.sheet.getCellRangeByName("A5").Value = 10  # in place of 18, which was above 17 and 16
        steps = len(self.steps())
        self.again("F4")
        self.wait_for_u(36)
        self.assertEqual(self.document.Sheets.Count, 1)
        self.assertEqual(self.sheet.getCellRangeByName("E2").String, TITLE_OF_REPORT)
        self.assertEqual(len(self.steps()), steps + 1)
        self.assertEqual(self.steps()[0], "Mann-Whitney Test Results")
        self.document.UndoManager.undo()
        self.assertEqual(self.u(), 34)
        self.again()
        self.wait_for_u(36)
        self.assertEqual(self.names(), ["TBVNonPara_report_1"])

    def test_undo_of_a_report_takes_what_was_kept_of_it_too(self):
        self.place()
        self.assertEqual(self.names(), ["TBVNonPara_report_1"])
        self.document.UndoManager.undo()
        self.assertEqual(self.names(), [])
        self.again()
        self.message(NO_REPORT)

    def test_it_follows_inserted_rows_and_a_report_that_was_moved(self):
        self.place()
        self.sheet.getRows().insertByIndex(3, 2)
        for row, (before, after) in enumerate(((11, 30), (12, 31)), 3):
            self.sheet.getCellByPosition(0, row).Value, self.sheet.getCellByPosition(1, row).Value = before, after
        rest = self.sheet.getCellRangeByName("E1:H20").RangeAddress
        target = self.sheet.getCellRangeByName("J3").CellAddress
        self.sheet.moveRange(target, rest)
        self.again("J4")
        # Eight of each now: two more below all of the eight others but none, and 18 above 17 and 16.
        self.assertTrue(wait_for(lambda: 62.0 in self.numbers("J4:M14"), 30), self.numbers("J1:M20"))
        self.wait_for_end()
        self.assertEqual(self.sheet.getCellRangeByName("J5").String, "Set 1 Range = Data!$A$1:$A$9")

    def test_it_is_kept_in_files(self):
        self.place()
        for name, kind in (("kept.ods", "calc8"), ("kept.xlsx", "Calc MS Excel 2007 XML")):
            with self.subTest(name):
                file = self.office.folder / name
                self.document.storeToURL(file.as_uri(), (property_value("FilterName", kind),))
                opened = self.office.open(file.as_uri())
                try:
                    sheet = opened.Sheets.getByIndex(0)
                    sheet.getCellRangeByName("A5").Value = 10
                    self.again(document=opened)
                    self.wait_for_u(36, opened)
                finally:
                    opened.close(True)

    def test_live_figures_and_descriptives_are_no_change_and_come_again(self):
        self.open_dialog("A1:B7")
        self.tick("Keep figures live: they follow the data")
        self.tick("Descriptive tables")
        self.press("Close")
        self.wait_until_closed()
        self.place()
        cells = self.sheet.getCellRangeByName("E2:L40")
        self.assertIn("=", "".join(f[:1] for row in cells.FormulaArray for f in row))
        self.sheet.getCellRangeByName("A5").Value = 10
        sums = [row for row in cells.DataArray if row[0] == "Sum"]
        self.again()
        self.assertTrue(wait_for(lambda: [r for r in cells.DataArray if r[0] == "Sum"] != sums, 30))
        self.wait_for_end()
        self.assertIn("=", "".join(f[:1] for row in cells.FormulaArray for f in row))

    def test_cells_that_the_user_changed_are_replaced_only_when_the_user_says_so(self):
        self.place()
        self.sheet.getCellRangeByName("H9").String = "my note"
        self.sheet.getCellRangeByName("G8").String = "other"
        self.sheet.getCellRangeByName("A5").Value = 10
        steps = self.steps()
        self.again()
        self.message(CHANGED, "No")
        self.settle()
        self.assertEqual(self.u(), 34)
        self.assertEqual(self.steps(), steps)
        self.again()
        self.message(CHANGED, "Yes")
        self.wait_for_u(36)
        self.assertNotEqual(self.sheet.getCellRangeByName("G8").String, "other")

    def test_the_cursor_elsewhere_gets_an_answer(self):
        self.place()
        steps = self.steps()
        self.again("C3")
        self.message(NO_REPORT)
        self.assertEqual(self.steps(), steps)

    def test_a_sheet_of_data_that_is_gone_changes_nothing(self):
        self.open_dialog("A1:B7")
        self.control("a new sheet", RADIO_BUTTON).click()
        self.run_and_wait()
        self.wait_until_closed()
        report = self.document.Sheets.getByName("Mann-Whitney")
        self.document.Sheets.insertNewByName("Other", 0)
        self.document.Sheets.removeByName("Data")
        before = report.getCellRangeByName("A1:D9").DataArray
        self.document.CurrentController.ActiveSheet = report
        self.again("A1")
        self.message(LOST)
        self.assertEqual(report.getCellRangeByName("A1:D9").DataArray, before)

    def test_data_that_cannot_be_tested_leave_the_report_as_it_was(self):
        self.place()
        self.sheet.getCellRangeByName("B4").String = "n/a"
        before = self.sheet.getCellRangeByName("E2:H10").DataArray
        self.again()
        self.message('The test was not repeated: Data!B4 holds the text "n/a"; every cell below the header must be a '
                     'number.')
        self.assertEqual(self.sheet.getCellRangeByName("E2:H10").DataArray, before)


class Growing(AgainCase):
    """Reports that need another number of cells than before: ranks of groups, a row for each group."""

    def long_table(self, number):
        """Groups in one column: how many there are is seen when the test runs."""
        rows = [("value", "group")] + [(float(i * 7 % 31), f"g{i % number}") for i in range(24)]
        self.sheet.getCellRangeByName("A30:B54").setDataArray(tuple(rows))

    def place_groups(self):
        self.open_dialog()
        self.choose("Test:", "Mood median test")
        self.tick("Groups in one column")
        self.field("Value range:").type("Data!A30:A54")
        self.field("Group range:").type("Data!B30:B54")
        self.control("a cell:", RADIO_BUTTON).click()
        self.field("a cell:").type("Data!E30")
        self.press("OK")
        self.wait_until_closed()

    def tearDown(self):
        self.open_dialog()
        self.tick("Groups in one column", False)
        self.choose("Test:", "Mann-Whitney U test")
        self.press("Close")
        self.wait_until_closed()
        super().tearDown()

    def used(self):
        return [(r, c, v) for r, row in enumerate(self.sheet.getCellRangeByName("E30:P60").DataArray)
                for c, v in enumerate(row) if v != ""]

    def test_it_takes_free_cells_where_it_grows_and_leaves_none_of_its_own_where_it_shrinks(self):
        self.long_table(2)
        self.place_groups()
        small = self.used()
        self.long_table(5)
        self.again("E30")
        self.assertTrue(wait_for(lambda: len(self.used()) > len(small), 30))
        self.wait_for_end()
        self.long_table(2)
        self.again("E30")
        self.assertTrue(wait_for(lambda: self.used() == small, 30), self.used())
        self.wait_for_end()

    def test_it_grows_over_no_cell_of_the_user(self):
        self.long_table(2)
        self.place_groups()
        small = self.used()
        self.long_table(6)
        self.again("E30")
        self.assertTrue(wait_for(lambda: len(self.used()) > len(small), 30))
        self.wait_for_end()
        grown = {(row, column) for row, column, _ in self.used()}
        self.document.UndoManager.undo()
        self.assertEqual(self.used(), small)
        row, column = max(grown, key=lambda place: place[1])  # groups are columns of the tables
        mine = self.sheet.getCellByPosition(4 + column, 29 + row)
        mine.String = "mine"
        before, steps = self.used(), self.steps()
        self.again("E30")
        self.message("The test was not repeated: its report needs more cells than before, and "
                     f"{'EFGHIJKLMNOP'[column]}{30 + row} holds a value. Clear that cell or move it, and try again.")
        self.assertEqual(self.used(), before)
        self.assertEqual(self.steps(), steps)
        self.assertEqual(mine.String, "mine")


if __name__ == "__main__":
    unittest.main()
