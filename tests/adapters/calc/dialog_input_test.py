"""The menu entry, the keys and the mouse: how the dialog is opened, moved through and picked into."""

import pathlib
import shutil
import time
import unittest

import uno  # noqa: F401
from com.sun.star.accessibility.AccessibleRole import MENU_BAR, RADIO_BUTTON
from com.sun.star.accessibility.AccessibleStateType import CHECKED
from com.sun.star.awt.Key import N
from com.sun.star.awt.KeyModifier import MOD1, MOD2
from com.sun.star.container import NoSuchElementException

from dialog_case import COMMAND, PICK, TITLE, DialogCase
from screen import wait_for, window, windows

REGISTRY = pathlib.Path(shutil.which("soffice")).resolve().parents[1] / "share" / "registry"


class Input(DialogCase):
    def test_the_menu_opens_the_dialog_from_data_statistics(self):
        main = next(w for w in windows(self.office) if w.name.startswith("Untitled"))
        menu = next(child for child in main.children if child.role == MENU_BAR)
        # A menu has its entries once it is open.
        for name in ("Data", "Statistics"):
            menu = wait_for(lambda: next((entry for entry in menu.children if entry.name == name), None))
            menu.click()
        self.assertTrue(wait_for(lambda: "Nonparametric Tests..." in [e.name for e in menu.children]))
        self.picture("menu")
        next(entry for entry in menu.children if entry.name == "Nonparametric Tests...").click()
        self.assertIsNotNone(window(self.office, TITLE))

    def test_the_sheet_can_be_worked_on_while_the_dialog_is_open(self):
        self.open_dialog()
        self.screen.mouse("mousemove", *self.cell_on_screen("E3"), "click", 1)
        self.assertTrue(wait_for(lambda: self.document.CurrentSelection.AbsoluteName == "$Data.$E$3"))
        self.assertIsNotNone(self.find())

    def test_a_key_opens_it(self):
        self.screen.mouse("mousemove", *self.cell_on_screen("E3"), "click", 1, "key", "ctrl+alt+n")
        self.assertIsNotNone(window(self.office, TITLE))

    def test_the_key_has_no_other_meaning(self):
        manager = self.office.create("com.sun.star.ui.ModuleUIConfigurationManagerSupplier") \
            .getUIConfigurationManager("com.sun.star.sheet.SpreadsheetDocument").getShortCutManager()
        ours = [key for key in manager.AllKeyEvents if manager.getCommandByKeyEvent(key) == COMMAND]
        self.assertEqual([(key.KeyCode, key.Modifiers) for key in ours], [(N, MOD1 | MOD2)])
        everywhere = self.office.create("com.sun.star.ui.GlobalAcceleratorConfiguration")
        with self.assertRaises(NoSuchElementException):
            everywhere.getCommandByKeyEvent(ours[0])
        # Nor did the spreadsheet give it one that the add-in has taken away.
        for file in REGISTRY.glob("*.xcd"):
            self.assertNotIn('"N_MOD1_MOD2"', file.read_text(encoding="utf-8"), file)

    def test_the_tab_key_goes_from_top_to_bottom(self):
        self.open_dialog("A1:B7")
        self.control("a new sheet", RADIO_BUTTON).click()
        order = ["First range:", PICK + "First range", "Second range:", PICK + "Second range", "a new sheet",
                 "Labels in the first row", "Descriptive tables", "Effect sizes, intervals and comparisons",
                 "Picture of the data", "Keep figures live: they follow the data", "Help", "Close", "OK", "Test:", "Alternative:", "Groups in one column", "First range:"]
        left, top, _, _ = self.field("First range:").box
        self.screen.mouse("mousemove", left + 5, top + 5, "click", 1)
        for place, name in enumerate(order):
            self.assertTrue(wait_for(lambda: self.focused() == name, 30), (place, name, self.focused()))
            self.screen.mouse("key", "Tab")

    def test_every_picker_says_what_it_picks(self):
        self.open_dialog()
        wanted = ["Select a range: First range", "Select a range: Second range", "Select a range: a cell"]
        self.assertEqual([picker.name for picker in self.pickers()], wanted)
        self.assertEqual([picker.context.getToolTipText() for picker in self.pickers()], wanted)

    def test_a_range_is_picked_with_the_mouse(self):
        self.open_dialog()
        self.field("First range:").type("")
        self.field("Second range:").type("Data!B1:B7")
        self.tick("Labels in the first row")
        picked = self.pick("First range:", "A1", "A7")
        self.assertEqual(picked.replace("$", "").split(".")[-1], "A1:A7")
        self.run_and_wait()
        self.assertEqual(self.last_cells()[1][0], "Set 1 Range = Data!$A$1:$A$7")

    def test_another_range_of_groups_is_added_to_those_that_the_field_holds(self):
        self.open_dialog()
        self.choose("Test:", "Kruskal-Wallis test")
        self.assertTrue(wait_for(lambda: "Data ranges:" in self.texts()))
        self.field("Data ranges:").type("Data!A1:A7")
        self.assertEqual(self.pick("Data ranges:", "C1", "C7"), "Data!A1:A7;$Data.$C$1:$C$7")
        self.choose("Test:", "Mann-Whitney U test")

    def test_the_same_command_brings_the_open_dialog_to_the_front(self):
        self.open_dialog()
        self.office.dispatch(self.document, COMMAND)
        time.sleep(0.5)
        self.assertEqual(self.office.within("titles").count(TITLE), 1)

    def test_escape_closes_the_dialog(self):
        self.open_dialog()
        self.field("First range:").context.grabFocus()
        left, top, _, _ = self.field("First range:").box
        self.screen.mouse("mousemove", left + 5, top + 5, "click", 1, "key", "Escape")
        self.assertTrue(wait_for(lambda: self.find() is None))

    def test_alt_and_c_choose_a_cell_for_the_report(self):
        self.open_dialog()
        self.assertFalse(self.control("a cell:", RADIO_BUTTON).has(CHECKED))
        left, top, _, _ = self.field("First range:").box
        self.screen.mouse("mousemove", left + 5, top + 5, "click", 1, "key", "alt+c")
        self.assertTrue(wait_for(lambda: self.control("a cell:", RADIO_BUTTON).has(CHECKED), 30))

    def test_letters_with_alt_go_to_their_fields(self):
        self.open_dialog()
        left, top, _, _ = self.field("First range:").box
        self.screen.mouse("mousemove", left + 5, top + 5, "click", 1, "key", "alt+s", "type", "B9")
        self.assertTrue(wait_for(lambda: self.field("Second range:").text == "B9"))
        self.screen.mouse("key", "Tab", "Tab")


if __name__ == "__main__":
    unittest.main()
