"""The menu entry and the dialog on a screen: seen, filled in, picked with the mouse, photographed."""

import os
import pathlib
import time
import unittest

import uno  # noqa: F401
from com.sun.star.accessibility.AccessibleRole import (CHECK_BOX, COMBO_BOX, LABEL, LIST_ITEM, MENU_BAR,
                                                       PUSH_BUTTON, RADIO_BUTTON, TEXT)

from office import Office, TestCase, cells_of, property_value
from screen import Element, Screen, wait_for, window, window_now, windows

COMMAND = "org.tbvnonpara.calc:dialog"
TITLE = "Nonparametric Tests"
PICTURES = os.environ.get("TBVNONPARA_PICTURES")
BEFORE = ["Before", 12, 15, 11, 18, 14, 13]
AFTER = ["After", 17, 21, 16, 23, 19, 24]


def setUpModule():
    global screen, office
    screen = unittest.enterModuleContext(Screen())
    office = unittest.enterModuleContext(Office(visible=True))


class Dialog(TestCase):
    def setUp(self):
        self.document = office.open_with([BEFORE, AFTER, ["Later", 16, 14, 13, 12, 20, 19]])
        self.sheet = self.document.Sheets.getByIndex(0)

    def tearDown(self):
        opened = self.find()
        if opened:
            opened.find("Close").click()
        wait_for(lambda: self.find() is None)
        self.document.close(True)

    @staticmethod
    def find():
        return window_now(office, TITLE)

    def open_dialog(self, selection=None):
        if selection:
            self.document.CurrentController.select(self.sheet.getCellRangeByName(selection))
        office.dispatch(self.document, COMMAND)
        self.dialog = window(office, TITLE)
        self.assertIsNotNone(self.dialog)
        return self.dialog

    def picture(self, name):
        if PICTURES:
            time.sleep(0.5)
            screen.picture(pathlib.Path(PICTURES) / (name + ".png"))

    def field(self, label):
        """The field whose accessible name is the label before it."""
        def look():
            for element in self.dialog.walk():
                if element.name == label and element.role == TEXT:
                    return element
            return None
        return wait_for(look)

    def control(self, name, role):
        return next((e for e in self.dialog.walk() if e.name == name and e.role == role), None)

    def texts(self):
        return [element.name for element in self.dialog.walk() if element.role == LABEL]

    def choose(self, label, item):
        for element in self.dialog.walk():
            if element.role == LIST_ITEM and element.name == item:
                parent = element.context.getAccessibleParent().getAccessibleContext()
                parent.selectAccessibleChild(element.context.getAccessibleIndexInParent())
                return
        self.fail(item)

    def press(self, name):
        self.control(name, PUSH_BUTTON).click()

    def run_and_wait(self):
        self.press("OK")
        self.assertTrue(wait_for(lambda: self.find() is None))

    def last_cells(self):
        sheets = self.document.Sheets
        return cells_of(sheets.getByIndex(sheets.Count - 1))

    def test_the_menu_opens_the_dialog_from_data_statistics(self):
        main = next(w for w in windows(office) if w.name.startswith("Untitled"))
        menu = next(child for child in main.children if child.role == MENU_BAR)
        # A menu has its entries once it is open.
        for name in ("Data", "Statistics"):
            menu = wait_for(lambda: next((entry for entry in menu.children if entry.name == name), None))
            menu.click()
        self.assertTrue(wait_for(lambda: "Nonparametric Tests..." in [e.name for e in menu.children]))
        self.picture("menu")
        next(entry for entry in menu.children if entry.name == "Nonparametric Tests...").click()
        self.assertIsNotNone(window(office, TITLE))

    def test_a_selection_fills_the_fields_and_ok_gives_the_report(self):
        self.open_dialog("A1:B7")
        self.assertEqual(self.field("First range:").text, "$Data.$A$1:$A$7")
        self.assertEqual(self.field("Second range:").text, "$Data.$B$1:$B$7")
        self.picture("dialog")
        self.run_and_wait()
        cells = self.last_cells()
        self.assertEqual(cells[0][0], "Mann-Whitney Test Results for:")
        self.assertEqual(cells[1][0], "Set 1 Range = Data!$A$1:$A$7")
        # By hand: of the 36 pairs 34 have Before below After (18 is above 17 and 16).
        self.assertIn(34.0, [cell for row in cells for cell in row])
        self.assertEqual(list(self.document.UndoManager.AllUndoActionTitles)[0], "Mann-Whitney Test Results")
        self.picture("report")

    def test_an_error_is_shown_beside_its_field_and_everything_typed_stays(self):
        self.open_dialog()
        self.field("First range:").type("Data!A1:A7")
        self.field("Second range:").type("")
        self.press("OK")
        self.assertTrue(wait_for(lambda: "This test needs a second range." in self.texts()))
        self.assertEqual(self.field("First range:").text, "Data!A1:A7")
        message = self.control("This test needs a second range.", LABEL).box
        second = self.field("Second range:").box
        self.assertGreaterEqual(message[1], second[1] + second[3])
        self.assertLess(message[1] - second[1] - second[3], 15)
        self.picture("error")
        self.field("Second range:").type("Data!B1:B7")
        self.run_and_wait()
        self.assertEqual(self.last_cells()[0][0], "Mann-Whitney Test Results for:")

    def test_an_error_in_the_data_names_the_cell_beside_the_range_that_holds_it(self):
        self.sheet.getCellRangeByName("B4").String = "n/a"
        self.open_dialog("A1:B7")
        self.press("OK")
        text = "Data!B4 holds a text; every cell of the data must be a number."
        self.assertTrue(wait_for(lambda: text in self.texts()))
        self.assertGreater(self.control(text, LABEL).box[1], self.field("Second range:").box[1])

    def test_a_range_is_picked_with_the_mouse(self):
        self.open_dialog()
        self.field("First range:").type("")
        self.field("Second range:").type("Data!B1:B7")
        pickers = [e for e in self.dialog.walk() if e.role == PUSH_BUTTON and e.name == "Select"]
        pickers[0].click()
        self.assertTrue(wait_for(lambda: any(w.name.startswith("Select a range") for w in windows(office))))
        self.picture("picking")
        start, end = self.cell_on_screen("A1"), self.cell_on_screen("A7")
        screen.mouse("mousemove", *start, "mousedown", 1)
        for step in range(1, 11):
            screen.mouse("mousemove", *(a + (b - a) * step // 10 for a, b in zip(start, end)))
        time.sleep(0.3)
        screen.mouse("mouseup", 1)
        self.dialog = window(office, TITLE)
        self.assertTrue(wait_for(lambda: self.field("First range:").text != ""))
        self.assertEqual(self.field("First range:").text.replace("$", "").split(".")[-1], "A1:A7")
        self.run_and_wait()
        self.assertEqual(self.last_cells()[1][0], "Set 1 Range = Data!$A$1:$A$7")

    def cell_on_screen(self, address):
        """The middle of a cell, by the accessibility of the sheet."""
        place = self.sheet.getCellRangeByName(address).RangeAddress
        controller = self.document.CurrentController
        main = Element(controller.Frame.ComponentWindow.getAccessibleContext())
        table = next(e for e in main.walk() if "Sheet" in e.name and
                     hasattr(e.context, "getAccessibleCellAt"))
        cell = Element(table.context.getAccessibleCellAt(place.StartRow, place.StartColumn)
                       .getAccessibleContext())
        left, top, width, height = cell.box
        return left + width // 2, top + height // 2

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
        items = [e.name for e in self.dialog.walk() if e.role == LIST_ITEM]
        self.assertIn("first mostly larger than second", items)
        self.picture("pairs")
        self.choose("Test:", "Mann-Whitney U test")
        self.assertTrue(wait_for(lambda: self.control("Leave zero differences unranked", CHECK_BOX) is None))
        self.assertIn("first tends to be larger", [e.name for e in self.dialog.walk()])

    def test_the_report_goes_to_a_cell_that_is_free(self):
        self.open_dialog("A1:B7")
        self.control("a cell:", RADIO_BUTTON).click()
        self.field("a cell:").type("Data!A3")
        self.press("OK")
        text = "Data!A3 already holds a value; choose another place or let it be replaced."
        self.assertTrue(wait_for(lambda: text in self.texts()))
        self.picture("occupied")
        self.field("a cell:").type("Data!E2")
        self.run_and_wait()
        self.assertEqual(self.document.Sheets.Count, 1)
        self.assertEqual(self.sheet.getCellRangeByName("E2").String, "Mann-Whitney Test Results for:")
        self.open_dialog()
        self.control("a new sheet", RADIO_BUTTON).click()

    def test_settings_are_remembered_while_the_office_runs(self):
        self.open_dialog("A1:B7")
        self.choose("Test:", "Spearman rank correlation")
        self.control("Descriptive tables", CHECK_BOX).click()
        self.press("Close")
        self.assertTrue(wait_for(lambda: self.find() is None))
        self.open_dialog()
        self.assertIn("Spearman rank correlation", [e.text for e in self.dialog.walk() if e.role == TEXT])
        self.choose("Test:", "Mann-Whitney U test")
        self.control("Descriptive tables", CHECK_BOX).click()

    def test_the_same_command_brings_the_open_dialog_to_the_front(self):
        self.open_dialog()
        office.dispatch(self.document, COMMAND)
        time.sleep(0.5)
        self.assertEqual(len([w for w in windows(office) if w.name == TITLE]), 1)

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
        provider = office.create("com.sun.star.configuration.ConfigurationProvider")
        settings = provider.createInstanceWithArguments(
            "com.sun.star.configuration.ConfigurationUpdateAccess",
            (property_value("nodepath", "/org.openoffice.Setup/L10N"),))
        before = settings.ooLocale
        settings.ooLocale = "de"
        settings.commitChanges()
        try:
            self.document.CurrentController.select(self.sheet.getCellRangeByName("A1:B7"))
            office.dispatch(self.document, COMMAND)
            self.dialog = window(office, "Nichtparametrische Tests")
            self.field("Zweiter Bereich:").type("")
            self.press("OK")
            self.assertTrue(wait_for(lambda: "Dieser Test braucht einen zweiten Bereich." in self.texts()))
            self.choose("Test:", "Wilcoxon-Test für Paare")
            time.sleep(0.3)
            self.check_layout()
            self.picture("german")
            self.choose("Test:", "Mann-Whitney-U-Test")
            self.press("Schließen")
            self.assertTrue(wait_for(lambda: window_now(office, "Nichtparametrische Tests") is None))
        finally:
            settings.ooLocale = before
            settings.commitChanges()

    def check_layout(self):
        left, top, width, height = self.dialog.box
        roles = (LABEL, TEXT, PUSH_BUTTON, CHECK_BOX, RADIO_BUTTON, COMBO_BOX)
        boxes = []
        for element in self.dialog.children:
            if element.role in roles and element.box[2] > 10:
                boxes.append((element.name, element.role, element.box))
        for name, _, (x, y, w, h) in boxes:
            self.assertTrue(x >= left and y >= top and x + w <= left + width and y + h <= top + height, name)
        for i, (name, _, a) in enumerate(boxes):
            for other, _, b in boxes[i + 1:]:
                apart = (a[0] + a[2] <= b[0] or b[0] + b[2] <= a[0] or
                         a[1] + a[3] <= b[1] or b[1] + b[3] <= a[1])
                self.assertTrue(apart, f"{name} and {other}")

    def test_a_long_run_can_be_cancelled_before_its_report_is_placed(self):
        rows = tuple((value,) for value in range(400000))
        for column in range(2):
            self.sheet.getCellRangeByPosition(column, 10, column, 10 + len(rows) - 1).setDataArray(rows)
        self.open_dialog()
        self.control("Descriptive tables", CHECK_BOX).click()
        self.control("Labels in the first row", CHECK_BOX).click()
        self.field("First range:").type("Data!A11:A400010")
        self.field("Second range:").type("Data!B11:B400010")
        self.press("OK")
        cancel = wait_for(lambda: self.control("Cancel", PUSH_BUTTON))
        self.picture("running")
        cancel.click()
        self.assertTrue(wait_for(lambda: "The test was cancelled; nothing was placed." in self.texts(), 30))
        self.assertEqual(self.document.Sheets.Count, 1)
        self.assertEqual(self.field("First range:").text, "Data!A11:A400010")
        self.assertFalse(self.document.hasControllersLocked())
        self.control("Descriptive tables", CHECK_BOX).click()
        self.control("Labels in the first row", CHECK_BOX).click()

    def test_escape_closes_the_dialog(self):
        self.open_dialog()
        self.field("First range:").context.grabFocus()
        left, top, _, _ = self.field("First range:").box
        screen.mouse("mousemove", left + 5, top + 5, "click", 1, "key", "Escape")
        self.assertTrue(wait_for(lambda: self.find() is None))

    def test_letters_with_alt_go_to_their_fields(self):
        self.open_dialog()
        left, top, _, _ = self.field("First range:").box
        screen.mouse("mousemove", left + 5, top + 5, "click", 1, "key", "alt+s", "type", "B9")
        self.assertTrue(wait_for(lambda: self.field("Second range:").text == "B9"))
        screen.mouse("key", "Tab", "Tab")


class LastWindow(TestCase):
    def test_closing_it_ends_the_office_whatever_was_computed(self):
        with Office(visible=True) as own:
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
