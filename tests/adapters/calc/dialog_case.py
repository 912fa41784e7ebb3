"""A Calc on a screen with the dialog in it: how its tests find, fill in and photograph it."""

import contextlib
import os
import pathlib
import time

import uno  # noqa: F401
from com.sun.star.accessibility.AccessibleRole import (CHECK_BOX, COMBO_BOX, DIALOG, LABEL, LIST, LIST_ITEM,
                                                       PUSH_BUTTON, RADIO_BUTTON, TABLE, TEXT)
from com.sun.star.accessibility.AccessibleStateType import CHECKED, FOCUSED

from office import Office, TestCase, cells_of, property_value
from screen import Element, Screen, wait_for, window, window_now

COMMAND = "org.tbvnonpara.calc:dialog"
TITLE = "Nonparametric Tests"
PICK = "Select a range: "
PICTURES = os.environ.get("TBVNONPARA_PICTURES")
BEFORE = ["Before", 12, 15, 11, 18, 14, 13]
AFTER = ["After", 17, 21, 16, 23, 19, 24]
LATER = ["Later", 16, 14, 13, 12, 20, 19]


class DialogCase(TestCase):
    """One Calc for all tests of a class, a document of its own for each."""

    look = {}  # what the screen of the class is made with

    @classmethod
    def setUpClass(cls):
        cls.screen = cls.enterClassContext(Screen(**cls.look))
        cls.office = cls.enterClassContext(Office(visible=True))

    def setUp(self):
        self.forget_choices()
        self.document = self.office.open_with([BEFORE, AFTER, LATER])
        self.sheet = self.document.Sheets.getByIndex(0)

    def choices(self):
        """Those that the dialog keeps for other documents."""
        provider = self.office.create("com.sun.star.configuration.ConfigurationProvider")
        return provider.createInstanceWithArguments(
            "com.sun.star.configuration.ConfigurationUpdateAccess",
            (property_value("nodepath", "/org.tbvnonpara.calc/Choices"),))

    def forget_choices(self):
        choices = self.choices()
        for name in choices.ElementNames:
            choices.replaceByName(name, None)
        choices.commitChanges()

    def tearDown(self):
        opened = self.find()
        if opened:
            opened.find("Close").click()
        wait_for(lambda: self.find() is None)
        self.document.close(True)

    @contextlib.contextmanager
    def speaking_german(self):
        provider = self.office.create("com.sun.star.configuration.ConfigurationProvider")
        settings = provider.createInstanceWithArguments(
            "com.sun.star.configuration.ConfigurationUpdateAccess",
            (property_value("nodepath", "/org.openoffice.Setup/L10N"),))
        before = settings.ooLocale
        settings.ooLocale = "de"
        settings.commitChanges()
        try:
            yield
        finally:
            settings.ooLocale = before
            settings.commitChanges()

    @contextlib.contextmanager
    def in_german(self):
        """The office speaks German for a while; the dialog is closed at the end."""
        with self.speaking_german():
            self.office.dispatch(self.document, COMMAND)
            self.dialog = window(self.office, "Nichtparametrische Tests")
            yield
            self.choose("Test:", "Mann-Whitney-U-Test")
            self.press("Schließen")
            self.assertTrue(wait_for(lambda: window_now(self.office, "Nichtparametrische Tests") is None))

    def find(self):
        """The dialog; looked for twice, because one look may pass over it while other windows come and go."""
        return window_now(self.office, TITLE) or window_now(self.office, TITLE)

    def open_dialog(self, selection=None):
        if selection:
            self.document.CurrentController.select(self.sheet.getCellRangeByName(selection))
        self.office.dispatch(self.document, COMMAND)
        self.dialog = window(self.office, TITLE, 60) or self.wake_the_office()
        self.assertIsNotNone(self.dialog)
        return self.dialog

    def wake_the_office(self):
        """Once in some hundred times, on a busy machine, the office does not come to what it was asked for; what helped
        is told."""
        seen = self.office.within("titles")
        self.office.on_main_thread(lambda: None)
        dialog = window(self.office, TITLE, 30)
        if dialog is None:
            self.office.dispatch(self.document, COMMAND)
            dialog = window(self.office, TITLE)
            print("asked twice for the dialog; windows before:", seen)
        else:
            print("another call woke the office; windows before:", seen)
        return dialog

    def picture(self, name):
        if PICTURES:
            time.sleep(0.5)
            self.screen.picture(pathlib.Path(PICTURES) / (name + ".png"))

    def field(self, label):
        """The field whose accessible name is the label before it."""
        return wait_for(lambda: self.dialog.find(label, TEXT))

    def control(self, name, role):
        return self.dialog.find(name, role)

    def texts(self):
        return [element.name for element in self.dialog.walk() if element.role == LABEL]

    def choose(self, label, item):
        entry = self.dialog.find(item, LIST_ITEM)
        self.assertIsNotNone(entry, item)
        entry.context.getAccessibleParent().getAccessibleContext().selectAccessibleChild(
            entry.context.getAccessibleIndexInParent())

    def press(self, name):
        self.control(name, PUSH_BUTTON).click()

    def tick(self, label, wanted=True):
        box = self.control(label, CHECK_BOX)
        if box.has(CHECKED) != wanted:
            box.click()

    def pickers(self):
        return [e for e in self.dialog.walk() if e.role == PUSH_BUTTON and e.name.startswith(PICK)]

    def picker_is_open(self):
        return any(title.startswith("Select a range") for title in self.office.within("titles"))

    def pick(self, label, first, last):
        """Picks a range for the first field with the mouse. On a busy machine a button may go down before the
        sheet waits for it, which picks nothing: then it is picked again."""
        held = self.field(label).text
        for _ in range(5):
            if not self.picker_is_open():
                self.pickers()[0].click()
                self.assertTrue(wait_for(self.picker_is_open))
            self.picture("picking")
            self.drag(first, last)
            self.dialog = window(self.office, TITLE)
            if wait_for(lambda: self.field(label).text != held, 20):
                return self.field(label).text
        return self.fail("nothing was picked")

    def drag(self, first, last):
        time.sleep(0.5)
        start, end = self.cell_on_screen(first), self.cell_on_screen(last)
        self.screen.mouse("mousemove", *start, "mousedown", 1)
        for step in range(1, 11):
            self.screen.mouse("mousemove", *(a + (b - a) * step // 10 for a, b in zip(start, end)))
        time.sleep(0.3)
        self.screen.mouse("mouseup", 1)

    def run_and_wait(self):
        self.press("OK")
        self.assertTrue(wait_for(lambda: self.find() is None))

    def last_cells(self):
        sheets = self.document.Sheets
        return cells_of(sheets.getByIndex(sheets.Count - 1))

    def focused(self):
        """The name of the control that the keyboard works on; a list has the name of its label."""
        names = [e.name for e in self.dialog.walk() if FOCUSED in e.states and e.role not in (LIST_ITEM, DIALOG)]
        return names[0] if names else None

    def cell_on_screen(self, address):
        """The middle of a cell, once it stays there: a new window moves its cells until it has all its bars."""
        before, place = None, self.middle_of_cell(address)
        while before != place:
            time.sleep(0.1)
            before, place = place, self.middle_of_cell(address)
        return place

    def middle_of_cell(self, address):
        place = self.sheet.getCellRangeByName(address).RangeAddress
        controller = self.document.CurrentController
        main = Element(self.office, controller.Frame.ComponentWindow.getAccessibleContext())
        table = next(e for e in main.walk() if "Sheet" in e.name and e.role == TABLE)
        cell = Element(self.office, table.context.getAccessibleCellAt(place.StartRow, place.StartColumn)
                       .getAccessibleContext())
        left, top, width, height = cell.box
        return left + width // 2, top + height // 2

    def check_label(self, element):
        """The letters of a label end within it; those of a box are not told."""
        letters = element.role == LABEL and element.context.getCharacterCount()
        if letters:
            last = element.context.getCharacterBounds(letters - 1)
            _, _, width, height = element.box
            around = 2  # pixels that a letter's place is told too large
            self.assertTrue(last.X + last.Width <= width + around and last.Y + last.Height <= height + around,
                            element.name)

    def check_layout(self):
        left, top, width, height = self.dialog.box
        roles = (LABEL, TEXT, PUSH_BUTTON, CHECK_BOX, RADIO_BUTTON, COMBO_BOX, LIST)
        boxes = []
        for element in self.dialog.children:
            if element.role in roles and element.box[2] > 10:
                boxes.append((element.name, element.role, element.box))
                self.check_label(element)
        for name, _, (x, y, w, h) in boxes:
            self.assertTrue(x >= left and y >= top and x + w <= left + width and y + h <= top + height, name)
        for i, (name, _, a) in enumerate(boxes):
            for other, _, b in boxes[i + 1:]:
                apart = (a[0] + a[2] <= b[0] or b[0] + b[2] <= a[0] or
                         a[1] + a[3] <= b[1] or b[1] + b[3] <= a[1])
                self.assertTrue(apart, f"{name} and {other}")
