"""What the dialog shows, takes, says and remembers."""

import time
import unittest

import uno  # noqa: F401
from com.sun.star.accessibility.AccessibleRole import (CHECK_BOX, LABEL, LIST_ITEM, PUSH_BUTTON, RADIO_BUTTON,
                                                       TEXT)
from com.sun.star.accessibility.AccessibleStateType import CHECKED

from dialog_case import AFTER, BEFORE, DialogCase
from office import Office, TestCase, filter_rows
from screen import Screen, wait_for


class Dialog(DialogCase):
    def test_a_selection_fills_the_fields_and_ok_gives_the_report(self):
        self.open_dialog("A1:B7")
        self.assertEqual(self.field("First range:").text, "$Data.$A$1:$A$7")
        self.assertEqual(self.field("Second range:").text, "$Data.$B$1:$B$7")
        self.run_and_wait()
        cells = self.last_cells()
        self.assertEqual(cells[0][0], "Mann-Whitney Test Results for:")
        self.assertEqual(cells[1][0], "Set 1 Range = Data!$A$1:$A$7")
        # By hand: of the 36 pairs 34 have Before below After (18 is above 17 and 16).
        self.assertIn(34.0, [cell for row in cells for cell in row])
        self.assertEqual(list(self.document.UndoManager.AllUndoActionTitles)[0], "Mann-Whitney Test Results")
        self.picture("report")

    def test_a_selection_over_a_filter_names_the_whole_ranges_and_takes_the_visible_rows(self):
        filter_rows(self.document, "A1:C7", 0, 13)
        self.open_dialog("A1:B7")
        self.assertEqual(self.field("First range:").text, "$Data.$A$1:$A$7")
        self.assertEqual(self.field("Second range:").text, "$Data.$B$1:$B$7")
        box = self.control("Visible rows only (2 of 7 are filtered out or hidden)", CHECK_BOX)
        self.assertTrue(box.has(CHECKED))
        self.tick("Descriptive tables")
        self.check_layout()
        self.picture("filtered")
        self.addCleanup(self.restore_boxes)
        self.run_and_wait()
        cells = self.last_cells()
        self.assertEqual(cells[1][0], "Set 1 Range = Data!$A$1:$A$7")
        # 12 and 11 are hidden, and 17 and 16 with them.
        self.assertEqual(next(row for row in cells if row[0] == "Sum")[1:3], (15 + 18 + 14 + 13, 21 + 23 + 19 + 24))

    def test_rows_hidden_by_hand_are_told_of_and_taken_unless_the_user_says_otherwise(self):
        self.open_dialog("A1:B7")
        self.assertFalse([e.name for e in self.dialog.walk() if e.name.startswith("Visible rows")])
        self.press("Close")
        wait_for(lambda: self.find() is None)
        self.sheet.getRows().getByIndex(3).IsVisible = False
        self.open_dialog("A1:B7")
        box = self.control("Visible rows only (1 of 7 are filtered out or hidden)", CHECK_BOX)
        self.assertFalse(box.has(CHECKED))
        self.field("First range:").type("Data!C1:C2")
        self.field("Second range:").type("Data!C1:C3")
        self.assertTrue(wait_for(lambda: not [e for e in self.dialog.walk() if e.name.startswith("Visible rows")]))

    def test_rows_that_are_filtered_while_the_dialog_is_open_are_told_of_first(self):
        self.open_dialog("A1:B7")
        filter_rows(self.document, "A1:C7", 0, 13)
        self.press("OK")
        text = "Other rows are hidden now than before; check the choice of rows and press OK again."
        box = "Visible rows only (2 of 7 are filtered out or hidden)"
        self.assertTrue(wait_for(lambda: self.control(box, CHECK_BOX) is not None))
        # Where the window was activated in between, the box was there already and the run has begun.
        if self.find():
            self.assertTrue(text in self.texts() or self.control(box, CHECK_BOX).has(CHECKED))
            self.assertEqual(self.document.Sheets.Count, 1)
            self.run_and_wait()
        self.assertEqual(self.last_cells()[0][0], "Mann-Whitney Test Results for:")

    def test_several_selected_areas_fill_the_fields_as_the_test_takes_them(self):
        areas = self.document.createInstance("com.sun.star.sheet.SheetCellRanges")
        for address in ("A1:A7", "C1:C7"):
            areas.addRangeAddress(self.sheet.getCellRangeByName(address).RangeAddress, False)
        self.document.CurrentController.select(areas)
        self.open_dialog()
        self.assertEqual(self.field("First range:").text, "$Data.$A$1:$A$7")
        self.assertEqual(self.field("Second range:").text, "$Data.$C$1:$C$7")
        self.choose("Test:", "Friedman test")
        self.assertTrue(wait_for(lambda: "Data ranges:" in self.texts()))
        self.assertEqual(self.field("Data ranges:").text, "$Data.$A$1:$A$7;$Data.$C$1:$C$7")
        self.choose("Test:", "Mann-Whitney U test")

    def test_an_error_is_shown_beside_its_field_and_everything_typed_stays(self):
        self.open_dialog()
        self.field("First range:").type("Data!A1:A7")
        self.field("Second range:").type("")
        self.press("OK")
        text = ("The second range is missing: the test compares two columns, and only Data!A1:A7 was given. "
                "Name the other.")
        self.assertTrue(wait_for(lambda: text in self.texts()))
        self.assertEqual(self.field("First range:").text, "Data!A1:A7")
        message = self.control(text, LABEL).box
        second = self.field("Second range:").box
        self.assertGreaterEqual(message[1], second[1] + second[3])
        self.assertLess(message[1] - second[1] - second[3], 15)
        self.field("Second range:").type("Data!B1:B7")
        self.run_and_wait()
        self.assertEqual(self.last_cells()[0][0], "Mann-Whitney Test Results for:")

    def test_an_error_in_the_data_names_the_cell_beside_the_range_that_holds_it(self):
        self.sheet.getCellRangeByName("B4").String = "n/a"
        self.open_dialog("A1:B7")
        self.press("OK")
        text = ('Data!B4 holds the text "n/a"; every cell below the header must be a number. '
                'Tick "Leave out missing values".')
        self.assertTrue(wait_for(lambda: text in self.texts()))
        self.assertGreater(self.control(text, LABEL).box[1], self.field("Second range:").box[1])

    def test_what_is_shown_follows_the_test(self):
        self.open_dialog("A1:C7")
        self.choose("Test:", "Kruskal-Wallis test")
        self.assertTrue(wait_for(lambda: "Data ranges:" in self.texts()))
        self.assertEqual(self.field("Data ranges:").text, "$Data.$A$1:$C$7")
        self.assertNotIn("Alternative:", self.texts())
        self.assertNotIn("Second range:", self.texts())
        self.picture("groups")
        self.choose("Test:", "Wilcoxon paired-sample test")
        self.assertTrue(wait_for(lambda: "Second range:" in self.texts()))
        self.assertIsNotNone(self.control("Leave zero differences unranked", CHECK_BOX))
        self.assertIn("Before mostly larger than After", self.items())
        self.choose("Alternative:", "Before mostly smaller than After")
        self.picture("pairs")
        self.choose("Alternative:", "the two differ")
        self.choose("Test:", "Mann-Whitney U test")
        self.assertTrue(wait_for(lambda: self.control("Leave zero differences unranked", CHECK_BOX) is None))
        self.assertIn("Before tends to be larger", self.items())

    def items(self):
        return [e.name for e in self.dialog.walk() if e.role == LIST_ITEM]

    def wait_for_item(self, item):
        self.assertTrue(wait_for(lambda: item in self.items(), 30), self.items())

    def test_the_alternatives_name_the_samples_by_their_labels(self):
        self.sheet.getCellRangeByName("C1").String = "Concentration a week later"
        self.open_dialog("A1:B7")
        self.wait_for_item("Before tends to be larger")
        self.choose("Alternative:", "Before tends to be smaller")
        self.field("First range:").type("Data!B1:B7")
        self.wait_for_item("After tends to be smaller")
        chosen = [e.text for e in self.dialog.walk() if e.role == TEXT]
        self.assertIn("After tends to be smaller", chosen)
        self.field("First range:").type("Data!B1:")
        self.wait_for_item("first tends to be smaller")
        self.field("First range:").type("Data!C1:C7")
        self.wait_for_item("Concentr…k later tends to be larger")
        self.tick("Labels in the first row", False)
        self.wait_for_item("first tends to be larger")
        self.tick("Labels in the first row")
        self.choose("Test:", "Wilcoxon paired-sample test")
        self.wait_for_item("Concentr…k later mostly larger than After")
        self.check_layout()
        self.choose("Test:", "Mann-Whitney U test")
        self.choose("Alternative:", "the two differ")

    def test_the_report_goes_to_a_cell_that_is_free(self):
        self.open_dialog("A1:B7")
        self.control("a cell:", RADIO_BUTTON).click()
        self.field("a cell:").type("Data!A3")
        self.press("OK")
        text = ("Data!A3 holds a value and the report needs Data!A3:D11; clear these cells, choose another place "
                "or allow overwriting.")
        self.assertTrue(wait_for(lambda: text in self.texts()))
        self.picture("occupied")
        self.field("a cell:").type("Data!E2")
        self.run_and_wait()
        self.assertEqual(self.document.Sheets.Count, 1)
        self.assertEqual(self.sheet.getCellRangeByName("E2").String, "Mann-Whitney Test Results for:")
        self.open_dialog()
        self.control("a new sheet", RADIO_BUTTON).click()

    def test_a_new_sheet_is_called_after_its_test(self):
        for name in ("Mann-Whitney", "Mann-Whitney (2)"):
            self.document.CurrentController.ActiveSheet = self.sheet
            self.open_dialog("A1:B7")
            self.run_and_wait()
            self.assertEqual(self.document.Sheets.ElementNames[-1], name)
            self.assertEqual(self.last_cells()[0][0], "Mann-Whitney Test Results for:")

    def test_settings_are_remembered_while_the_document_is_open(self):
        self.open_dialog("A1:B7")
        self.choose("Test:", "Spearman rank correlation")
        self.control("Descriptive tables", CHECK_BOX).click()
        self.press("Close")
        self.assertTrue(wait_for(lambda: self.find() is None))
        self.open_dialog()
        self.assertIn("Spearman rank correlation", [e.text for e in self.dialog.walk() if e.role == TEXT])
        self.choose("Test:", "Mann-Whitney U test")
        self.control("Descriptive tables", CHECK_BOX).click()

    def test_nothing_is_cut_and_nothing_overlaps(self):
        self.open_dialog("A1:C7")
        for test in ("Mann-Whitney U test", "Wilcoxon paired-sample test", "Sign test", "Friedman test",
                     "Wald-Wolfowitz runs test"):
            with self.subTest(test=test):
                self.choose("Test:", test)
                time.sleep(0.3)
                self.check_layout()
        self.choose("Test:", "Mann-Whitney U test")

    def test_it_speaks_german_where_calc_does(self):
        self.document.CurrentController.select(self.sheet.getCellRangeByName("A1:B7"))
        with self.in_german():
            self.wait_for_item("Before tendenziell größer")
            self.field("Zweiter Bereich:").type("")
            self.press("OK")
            self.assertTrue(wait_for(lambda: "Dieser Test braucht einen zweiten Bereich." in self.texts()))
            self.choose("Test:", "Wilcoxon-Test für Paare")
            time.sleep(0.3)
            self.check_layout()
            self.picture("german")

    def test_a_long_run_can_be_cancelled_before_its_report_is_placed(self):
        rows = tuple((value,) for value in range(400000))
        for column in range(2):
            self.sheet.getCellRangeByPosition(column, 10, column, 10 + len(rows) - 1).setDataArray(rows)
        self.open_dialog()
        self.addCleanup(self.restore_boxes)
        self.tick("Descriptive tables")
        self.tick("Labels in the first row", False)
        self.field("First range:").type("Data!A11:A400010")
        self.field("Second range:").type("Data!B11:B400010")
        # Found before the run begins: to look for it might take longer than the run.
        button = self.control("Close", PUSH_BUTTON)
        idle = self.screen.bottom_line()
        self.press("OK")
        self.assertTrue(wait_for(lambda: button.name == "Cancel"))
        self.assertTrue(wait_for(lambda: self.screen.bottom_line() != idle), "no progress is shown")
        self.picture("running")
        button.click()
        self.assertTrue(wait_for(lambda: "The test was cancelled; nothing was placed." in self.texts()))
        self.assertEqual(self.document.Sheets.Count, 1)
        self.assertEqual(self.field("First range:").text, "Data!A11:A400010")
        self.assertFalse(self.document.hasControllersLocked())
        self.assertTrue(wait_for(lambda: self.screen.bottom_line() == idle), "the progress stays")

    def restore_boxes(self):
        self.document = self.office.open_with([BEFORE, AFTER])
        self.open_dialog()
        self.tick("Descriptive tables", False)
        self.tick("Labels in the first row")
        self.tearDown()


class LastWindow(TestCase):
    def test_closing_it_ends_the_office_whatever_was_computed(self):
        with Screen(), Office(visible=True) as own:
            document = own.open_with([BEFORE, AFTER])
            request = own.create("TBVNonPara.clsNonPara")
            request.YRange, request.XRange = "A2:A7", "B2:B7"
            request.OutputRange = "D1"
            request.Results()
            document.setModified(False)
            own.dispatch(document, ".uno:Quit")
            self.assertEqual(own.wait(), 0)


if __name__ == "__main__":
    unittest.main()
