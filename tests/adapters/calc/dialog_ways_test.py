"""The button of the toolbar and the context menus of cells: the ways to the dialog from what is selected."""

import gc
import time
import unittest

import uno  # noqa: F401
from com.sun.star.accessibility.AccessibleRole import POPUP_MENU, PUSH_BUTTON, TOOL_BAR
from com.sun.star.util import CloseVetoException

from dialog_case import AFTER, BEFORE, TITLE, DialogCase
from office import property_value
from screen import Element, wait_for, window, windows

ENTRY = "Nonparametric Tests..."


class Ways(DialogCase):
    look = {"managed": True}

    def tearDown(self):
        if self.opened_menu():
            self.close_menu()
        super().tearDown()

    def select(self, address):
        self.document.CurrentController.select(self.sheet.getCellRangeByName(address))

    def main(self):
        return Element(self.office, self.document.CurrentController.Frame.ContainerWindow.getAccessibleContext())

    def button(self):
        for bar in self.main().walk():
            if bar.role == TOOL_BAR:
                found = bar.find(TITLE, PUSH_BUTTON)
                if found:
                    return found
        return None

    def opened_menu(self):
        return next((w for w in windows(self.office) if w.role == POPUP_MENU and w.children), None)

    def entries(self):
        """What the open menu offers; it may go while it is looked at."""
        menu = self.opened_menu()
        return [entry.name for entry in menu.children] if menu else []

    def context_menu(self, steps):
        """Opens one with the mouse or the keyboard, and gives its entries. A new window moves what it shows until it has
        all its bars: who misses looks again where to click."""
        for _ in range(3):
            time.sleep(0.6)  # Two clicks within half a second are a double one, which opens no menu.
            self.screen.mouse(*steps())
            entries = wait_for(self.entries, 20)
            if entries:
                return entries
        return self.fail("no menu came")

    def menu_of_cell(self, address):
        return self.context_menu(lambda: ("mousemove", *self.cell_on_screen(address), "click", 3))

    def tab_on_screen(self, name):
        tab = next(e for e in self.main().walk() if e.name == name and e.box[1] > 700)
        left, top, width, height = tab.box
        return left + width // 2, top + height // 2

    def close_menu(self):
        self.screen.mouse("key", "Escape")
        self.assertTrue(wait_for(lambda: self.opened_menu() is None))

    def choose_entry(self):
        self.screen.mouse("key", "Up", "Return")  # It is the last one.
        self.dialog = window(self.office, TITLE)
        self.assertIsNotNone(self.dialog)

    def check_ranges(self, first, second):
        self.assertTrue(wait_for(lambda: self.field("First range:").text == first, 30))
        self.assertEqual(self.field("Second range:").text, second)

    def test_the_button_of_the_toolbar_takes_the_selection(self):
        self.select("A1:B7")
        self.assertEqual(self.button().context.getToolTipText(), TITLE)
        self.button().click()
        self.dialog = window(self.office, TITLE)
        self.check_ranges("$Data.$A$1:$A$7", "$Data.$B$1:$B$7")

    def test_the_mouse_finds_the_button(self):
        self.select("B1:C7")
        left, top, width, height = self.button().box
        self.assertGreaterEqual(min(width, height), 16)
        self.screen.mouse("mousemove", left + width // 2, top + height // 2, "click", 1)
        self.dialog = window(self.office, TITLE)
        self.check_ranges("$Data.$B$1:$B$7", "$Data.$C$1:$C$7")

    def test_the_context_menu_takes_the_selection(self):
        self.select("A1:B7")
        entries = self.menu_of_cell("B3")
        self.assertEqual(entries[-1], ENTRY)
        self.assertEqual(entries.count(ENTRY), 1)
        self.picture("context_menu")
        self.choose_entry()
        self.check_ranges("$Data.$A$1:$A$7", "$Data.$B$1:$B$7")

    def test_the_key_of_the_context_menu_does_so_too(self):
        self.select("E9")
        self.screen.mouse("mousemove", *self.cell_on_screen("E9"), "click", 1)
        self.select("B1:C7")
        self.assertEqual(self.context_menu(lambda: ("key", "shift+F10"))[-1], ENTRY)
        self.choose_entry()
        self.check_ranges("$Data.$B$1:$B$7", "$Data.$C$1:$C$7")

    def test_whole_columns_end_with_the_data(self):
        self.select("A:B")
        self.assertEqual(self.menu_of_cell("A9")[-1], ENTRY)
        self.choose_entry()
        self.check_ranges("$Data.$A$1:$A$7", "$Data.$B$1:$B$7")

    def test_a_single_cell_has_the_menu_that_it_had(self):
        self.select("A3")
        self.assertNotIn(ENTRY, self.menu_of_cell("A3"))

    def test_the_other_entries_are_those_of_a_single_cell(self):
        self.select("A3")
        one = self.menu_of_cell("A3")
        self.close_menu()
        self.select("A3:A4")
        several = self.menu_of_cell("A3")
        self.assertEqual(several, one + ["", ENTRY])

    def test_the_menu_of_a_sheet_stays_as_it_is(self):
        self.select("A1:B7")
        entries = self.context_menu(lambda: ("mousemove", *self.tab_on_screen("Data"), "click", 3))
        self.assertIn("Rename Sheet...", entries)
        self.assertNotIn(ENTRY, entries)

    def test_the_entry_speaks_german_where_calc_does(self):
        self.select("A1:B7")
        with self.speaking_german():
            self.assertEqual(self.menu_of_cell("B3")[-1], "Nichtparametrische Tests...")
            self.close_menu()

    def test_the_button_speaks_german_where_calc_does(self):
        provider = self.office.create("com.sun.star.configuration.ConfigurationProvider")
        merged = provider.createInstanceWithArguments(
            "com.sun.star.configuration.ConfigurationAccess",
            (property_value("nodepath", "/org.openoffice.Office.Addons/AddonUI/OfficeToolbarMerging"),
             property_value("Locale", "de")))
        item = merged.getByHierarchicalName("org.tbvnonpara.calc/S1/ToolBarItems/B1")
        self.assertEqual(item.Title, "Nichtparametrische Tests")

    def test_an_open_dialog_takes_another_selection(self):
        self.open_dialog("A1:B7")
        self.select("B1:C7")
        self.button().click()
        self.check_ranges("$Data.$B$1:$B$7", "$Data.$C$1:$C$7")

    def test_an_open_dialog_keeps_what_was_typed(self):
        self.open_dialog("A1:B7")
        self.field("Second range:").type("Data!C1:C7")
        self.select("B1:C7")
        self.button().click()
        self.office.on_main_thread(lambda: None)
        self.office.on_main_thread(lambda: None)
        self.check_ranges("$Data.$A$1:$A$7", "Data!C1:C7")

    def test_every_window_of_a_document_has_the_entry_once(self):
        first = self.document.CurrentController
        self.office.dispatch(self.document, ".uno:NewWindow")
        self.assertTrue(wait_for(lambda: self.document.CurrentController.Frame != first.Frame))
        self.select("A1:B7")
        self.assertEqual(self.menu_of_cell("B3").count(ENTRY), 1)
        self.close_menu()
        self.office.dispatch(self.document, ".uno:CloseWin")
        self.assertTrue(wait_for(lambda: self.document.CurrentController == first))
        self.select("A1:B7")
        self.assertEqual(self.menu_of_cell("B3").count(ENTRY), 1)

    def test_the_office_keeps_a_document_while_its_menu_is_open(self):
        self.select("A1:B7")
        self.assertEqual(self.menu_of_cell("B3")[-1], ENTRY)
        with self.assertRaises(CloseVetoException):
            self.office.on_main_thread(lambda: self.document.close(True))
        self.assertEqual(self.entries()[-1], ENTRY)

    def test_nothing_of_a_window_stays_behind(self):
        other = self.office.open_with([BEFORE, AFTER])
        gone = other.CurrentController.queryAdapter()
        self.assertIsNotNone(gone.queryAdapted())
        self.office.on_main_thread(lambda: other.close(True))
        del other
        gc.collect()
        self.assertTrue(wait_for(lambda: gone.queryAdapted() is None, 30))


if __name__ == "__main__":
    unittest.main()
