"""The dialog as desktops show it: the GTK look, light and dark, and where the desktops put the buttons."""

import os
import pathlib
import tempfile
import threading
import unittest
import urllib.parse
import urllib.request

import uno  # noqa: F401
from com.sun.star.accessibility.AccessibleRole import CHECK_BOX, COMBO_BOX, LABEL, PUSH_BUTTON, RADIO_BUTTON, TEXT

from dialog_case import DialogCase
from screen import wait_for, window, windows

TESTS = ("Mann-Whitney U test", "Wilcoxon paired-sample test", "Spearman rank correlation", "Sign test",
         "Mood median test", "Friedman test", "Kruskal-Wallis test", "Wald-Wolfowitz runs test")
MISSING = ("The second range is missing: the test compares two columns, and only $Data.$A$1:$A$7 was given. "
           "Name the other.")


def brightness(colour):
    """The relative luminance of the contrast rules for the web."""
    parts = [((colour >> shift) & 0xFF) / 255 for shift in (16, 8, 0)]
    linear = [part / 12.92 if part <= 0.03928 else ((part + 0.055) / 1.055) ** 2.4 for part in parts]
    return 0.2126 * linear[0] + 0.7152 * linear[1] + 0.0722 * linear[2]


def contrast(one, other):
    low, high = sorted((brightness(one), brightness(other)))
    return (high + 0.05) / (low + 0.05)


class DesktopLook(DialogCase):
    shown = "dialog"  # the name of its picture

    def show_details(self):
        self.open_dialog("A1:C7")
        self.choose("Test:", "Kruskal-Wallis test")
        self.tick("Effect sizes, intervals and comparisons")
        self.assertTrue(wait_for(lambda: "Adjustment of P:" in self.texts()))
        self.check_layout()
        self.picture(self.shown + "_details")
        self.field("Confidence (%):").type("much")
        self.press("OK")
        message = "Choose a confidence from 50 to 99.9 per cent."
        self.assertTrue(wait_for(lambda: message in self.texts()))
        self.check_layout()
        label = self.control(message, LABEL).context
        self.assertGreaterEqual(contrast(label.getForeground(), self.dialog.context.getBackground()), 4.5)
        self.choose("Test:", "Mann-Whitney U test")

    def show_error(self):
        self.open_dialog("A1:B7")
        self.picture(self.shown)
        self.field("Second range:").type("")
        self.press("OK")
        self.assertTrue(wait_for(lambda: MISSING in self.texts()))

    def check_message(self):
        """Large enough a contrast for small letters, by the contrast rules for the web."""
        self.show_error()
        message = self.control(MISSING, LABEL).context
        self.assertGreaterEqual(contrast(message.getForeground(), self.dialog.context.getBackground()), 4.5)


class LightGtk(DesktopLook):
    look = {"look": "gtk3", "GTK_THEME": "Adwaita"}

    @classmethod
    def setUpClass(cls):
        folder = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.opened = folder / "opened"
        browser = folder / "xdg-open"
        browser.write_text(f'#!/bin/sh\nprintf "%s\\n" "$1" >>"{cls.opened}"\n')
        browser.chmod(0o755)
        cls.look = {**LightGtk.look, "PATH": f"{folder}:{os.environ['PATH']}"}
        super().setUpClass()

    def rows(self):
        """Top and bottom of every line of the dialog, from top to bottom."""
        roles = (TEXT, COMBO_BOX, CHECK_BOX, RADIO_BUTTON, PUSH_BUTTON)
        boxes = sorted((e.box for e in self.dialog.children if e.role in roles), key=lambda box: box[1])
        rows = []
        for left, top, width, height in boxes:
            if rows and top + height // 2 < rows[-1][1]:
                rows[-1] = (rows[-1][0], max(rows[-1][1], top + height))
            else:
                rows.append((top, top + height))
        return rows

    def test_rows_do_not_touch(self):
        self.open_dialog("A1:C7")
        # Test, alternative, groups in one column, two ranges, two places of the report, overwriting, five boxes, the
        # buttons.
        for test, number in (("Mann-Whitney U test", 14), ("Wilcoxon paired-sample test", 15), ("Friedman test", 12)):
            with self.subTest(test=test):
                self.choose("Test:", test)
                self.assertTrue(wait_for(lambda: len(self.rows()) == number), self.rows())
                rows = self.rows()
                gaps = [below[0] - above[1] for above, below in zip(rows, rows[1:])]
                self.assertGreaterEqual(min(gaps), 3, gaps)
                self.check_layout()
        self.choose("Test:", "Mann-Whitney U test")

    def test_details_are_asked_for_without_overlaps(self):
        self.show_details()

    def test_a_table_in_long_form_is_taken_without_overlaps(self):
        self.open_dialog("A1:C7")
        self.choose("Test:", "Wilcoxon paired-sample test")
        self.tick("Groups in one column")
        self.assertTrue(wait_for(lambda: "Block range:" in self.texts()))
        self.check_layout()
        self.choose("Test:", "Mann-Whitney U test")

    def test_an_error_can_be_read(self):
        self.check_message()
        self.picture("error")

    def test_help_opens_the_page_of_the_chosen_test(self):
        self.open_dialog("A1:C7")
        for number, test in enumerate(TESTS, 1):
            with self.subTest(test=test):
                self.choose("Test:", test)
                self.press("Help")
                pages = wait_for(lambda count=number: self.pages(count), 60)
                page = pathlib.Path(urllib.request.url2pathname(urllib.parse.urlparse(pages[-1]).path))
                self.assertIn(f"<h1>{test}</h1>", page.read_text(encoding="utf-8"))
        self.choose("Test:", "Mann-Whitney U test")

    def pages(self, number):
        """What was opened, once it is so many."""
        pages = self.opened.read_text(encoding="utf-8").split() if self.opened.exists() else []
        return pages if len(pages) == number else None


class DarkGtk(DesktopLook):
    look = {"look": "gtk3", "GTK_THEME": "Adwaita:dark"}
    shown = "dark"

    def test_details_are_asked_for_without_overlaps(self):
        self.show_details()

    def test_an_error_can_be_read(self):
        self.check_message()


class LargeGtk(DesktopLook):
    """Everything twice as large, as on a screen with small pixels."""

    look = {"look": "gtk3", "GTK_THEME": "Adwaita", "GDK_SCALE": "2", "width": 2560, "height": 1600}
    shown = "large"

    def test_the_screen_is_what_it_shall_be(self):
        # In the units of the desktop the screen is half as wide.
        _, _, width, _ = self.main_window()
        self.assertEqual(width, 1280)

    def main_window(self):
        return next(w.box for w in windows(self.office) if w.name.startswith("Untitled"))

    def test_nothing_is_cut_and_nothing_overlaps(self):
        self.open_dialog("A1:C7")
        for test, row in (("Mann-Whitney U test", "Alternative:"), ("Kruskal-Wallis test", "Data ranges:"),
                          ("Wilcoxon paired-sample test", "Alternative:")):
            with self.subTest(test=test):
                self.choose("Test:", test)
                self.assertTrue(wait_for(lambda: row in self.texts()))
                self.check_layout()
        self.tick("Groups in one column")
        self.assertTrue(wait_for(lambda: "Block range:" in self.texts()))
        self.check_layout()

    def test_details_are_asked_for_without_overlaps(self):
        self.show_details()

    def test_an_error_can_be_read(self):
        self.check_message()
        self.check_layout()

    def test_german_needs_no_more_room(self):
        self.document.CurrentController.select(self.sheet.getCellRangeByName("A1:C7"))
        with self.in_german():
            self.check_layout()
            self.choose("Test:", "Wilcoxon-Test für Paare")
            self.tick("Effektgrößen, Intervalle und Vergleiche")
            self.tick("Gruppen in einer Spalte")
            self.assertTrue(wait_for(lambda: "Konfidenzniveau (%):" in self.texts()))
            self.check_layout()
            self.picture(self.shown + "_german")


class LargeDarkGtk(LargeGtk):
    look = {**LargeGtk.look, "GTK_THEME": "Adwaita:dark"}
    shown = "large_dark"


class LargeLetters(LargeGtk):
    """Letters alone are twice as large, for those who see badly."""

    look = {"look": "gtk3", "GTK_THEME": "Adwaita", "GDK_DPI_SCALE": "2", "width": 2560, "height": 1600}
    shown = "large_letters"

    def test_the_screen_is_what_it_shall_be(self):
        _, _, width, _ = self.open_dialog().box
        self.assertGreater(width, 1000)


class LargePlain(LargeLetters):
    """The office's own look, which knows no dark one."""

    look = {"SAL_FORCEDPI": "192", "width": 2560, "height": 1600}
    shown = "large_plain"

    def test_the_screen_is_what_it_shall_be(self):
        _, _, width, _ = self.open_dialog().box
        self.assertGreater(width, 850)


class Plain(DialogCase):
    def buttons_of(self, dialog, names):
        """The names of the buttons from left to right."""
        found = [e for e in dialog.walk() if e.role == PUSH_BUTTON and e.name in names]
        return [e.name.replace("Close", "Cancel") for e in sorted(found, key=lambda e: e.box[0])]

    def test_the_buttons_stand_as_in_the_dialogs_of_the_office(self):
        # The thread looks nothing up: two threads that ask for a method at the same time may both miss it.
        execute = self.office.create("com.sun.star.frame.DispatchHelper").executeDispatch
        frame = self.document.CurrentController.Frame
        own = threading.Thread(target=execute, args=(frame, ".uno:DescriptiveStatisticsDialog", "", 0, ()), daemon=True)
        own.start()
        dialog = window(self.office, "Descriptive Statistics")
        wanted = self.buttons_of(dialog, ("Help", "OK", "Cancel"))
        self.assertEqual(len(wanted), 3)
        dialog.find("Cancel", PUSH_BUTTON).click()
        own.join()
        self.open_dialog("A1:B7")
        self.assertEqual(self.buttons_of(self.dialog, ("Help", "OK", "Close")), wanted)


class Plasma(Plain):
    look = {"OOO_FORCE_DESKTOP": "plasma5"}


if __name__ == "__main__":
    unittest.main()
