"""What the dialog puts beside a report besides numbers: the picture of the data."""

import unittest

import uno  # noqa: F401
from com.sun.star.accessibility.AccessibleRole import CHECK_BOX, RADIO_BUTTON
from com.sun.star.accessibility.AccessibleStateType import CHECKED

from dialog_case import AFTER, BEFORE, DialogCase
from office import cells_of, property_value
from screen import wait_for

PICTURE = "Picture of the data"
DETAILS = "Effect sizes, intervals and comparisons"
ROUNDED = 10  # hundredths of a millimetre
VISIBLE = "Visible rows only (1 of 7 are filtered out or hidden)"


class Ticks(DialogCase):
    def tearDown(self):
        if not self.find():
            self.open_dialog()
        self.choose("Test:", "Mann-Whitney U test")
        super().tearDown()

    def names(self):
        return list(self.document.Sheets.ElementNames)

    def sheet_named(self, name):
        return self.document.Sheets.getByName(name)

    def wait_for_text(self, text):
        self.assertTrue(wait_for(lambda: text in self.texts()), self.texts())

    def open_for(self, test, data):
        """The dialog for a test, with data filled in as it takes them."""
        self.document.CurrentController.ActiveSheet = self.sheet
        self.open_dialog()
        self.choose("Test:", test)
        self.press("Close")
        self.assertTrue(wait_for(lambda: self.find() is None))
        self.open_dialog(data)

    def run_and_wait(self):
        self.press("OK")
        self.assertTrue(wait_for(lambda: self.find() is None), self.find() and self.texts())

    def undo(self):
        self.document.UndoManager.undo()

    def save_and_open(self, name):
        file = self.office.folder / name
        self.document.storeToURL(file.as_uri(), (property_value("FilterName", "calc8"),))
        return self.office.open(file.as_uri(), Hidden=True)


class Picture(Ticks):
    def pictures(self, name="Details"):
        page = self.sheet_named(name).DrawPage
        return [page.getByIndex(i) for i in range(page.Count)]

    def want_picture(self, data="A1:B7"):
        self.open_dialog(data)
        self.tick(PICTURE)

    def check_apart(self, name="Details"):
        """Nothing that stands in cells lies below the picture."""
        picture, = self.pictures(name)
        left, top = picture.Position.X, picture.Position.Y
        sheet = self.sheet_named(name)
        for row, cells in enumerate(cells_of(sheet)):
            for column, value in enumerate(cells):
                cell = sheet.getCellByPosition(column, row)
                if value == "" or cell.Position.Y >= top + picture.Size.Height or \
                        cell.Position.Y + cell.Size.Height <= top + ROUNDED:
                    continue
                self.assertLessEqual(cell.Position.X + cell.Size.Width, left, value)

    def test_it_stands_beside_the_tables_and_goes_with_the_report(self):
        self.document.UndoManager.clear()
        self.want_picture()
        self.tick(DETAILS)
        self.assertTrue(wait_for(lambda: "Confidence (%):" in self.texts()))
        self.check_layout()
        self.run_and_wait()
        picture, = self.pictures()
        self.assertEqual(picture.Title, "The groups")
        self.assertIn("Medians: Before 13.5 (11 to 18), After 20 (16 to 24).", picture.Description)
        self.assertEqual(picture.Graphic.MimeType, "image/svg+xml")
        self.assertEqual(picture.Size.Width, 16933)  # 640 pixels of 1/96 inch
        self.check_apart()
        place = picture.Anchor.CellAddress
        above = self.sheet_named("Details").getCellByPosition(place.Column, place.Row - 1)
        self.assertEqual(above.String, picture.Description)
        controller = self.document.CurrentController
        controller.ActiveSheet = self.sheet_named("Details")
        controller.ZoomValue = 75
        self.picture("picture_sheet")
        self.assertEqual(list(self.document.UndoManager.AllUndoActionTitles), ["Mann-Whitney Test Results"])
        self.undo()
        self.assertEqual(self.names(), ["Data"])
        self.document.UndoManager.redo()
        self.assertEqual(len(self.pictures()), 1)

    def test_alone_it_has_the_sheet_for_itself(self):
        self.want_picture()
        self.run_and_wait()
        self.assertEqual(self.names(), ["Data", "Mann-Whitney", "Details"])
        picture, = self.pictures()
        words = [row[0] for row in cells_of(self.sheet_named("Details"))]
        self.assertEqual(words[0], "Details")
        self.assertTrue(words[1].startswith("Report = 'Mann-Whitney'!$A$1:"))
        # By hand, of 11 to 18 and 16 to 24.
        self.assertEqual(words[2], "Points, quartiles as a box and the median as a line. Medians: Before 13.5, After 20.")
        self.assertEqual(picture.Description, words[2])
        self.check_apart()

    def test_it_is_of_the_rows_that_take_part(self):
        self.sheet.getCellRangeByName("B6").String = "NA"
        self.sheet.getRows().getByIndex(3).IsVisible = False
        self.want_picture()
        self.tick(VISIBLE)
        box = "Leave out missing values (1 of 10 values)"
        self.assertTrue(wait_for(lambda: self.control(box, CHECK_BOX) is not None))
        self.tick(box)
        self.run_and_wait()
        # By hand: 12, 15, 18, 14 and 13 against 17, 21, 23 and 24.
        self.assertIn("Medians: Before 14, After 22.", self.pictures()[0].Description)

    def test_it_is_of_the_groups_of_one_column(self):
        values = [(value, column[0]) for column in (BEFORE, AFTER) for value in column[1:]]
        self.sheet.getCellRangeByName("E1:F13").setDataArray((("value", "group"), *values))
        self.open_dialog("E1:F13")
        self.tick("Groups in one column")
        self.assertTrue(wait_for(lambda: "Group range:" in self.texts()))
        self.tick(PICTURE)
        self.check_layout()
        self.run_and_wait()
        self.assertIn("Medians: Before 13.5, After 20.", self.pictures()[0].Description)
        self.open_dialog()
        self.tick("Groups in one column", False)

    def test_each_test_has_one(self):
        self.sheet.getCellRangeByName("D1:D7").setDataArray((("sign",), (1,), (1,), (-1,), (1,), (0,), (1,)))
        wanted = [
            ("Mann-Whitney U test", "A1:B7", "The groups"),
            ("Wilcoxon paired-sample test", "A1:B7", "The differences of the pairs"),
            ("Spearman rank correlation", "A1:B7", "Scatter of the ranks"),
            ("Sign test", "D1:D7", "The signs"),
            ("Mood median test", "A1:C7", "The groups"),
            ("Friedman test", "A1:C7", "The groups"),
            ("Kruskal-Wallis test", "A1:C7", "The groups"),
            ("Wald-Wolfowitz runs test", "D1:D7", "The sequence"),
        ]
        for number, (test, data, title) in enumerate(wanted, 1):
            for details in (False, True):
                with self.subTest(test=test, details=details):
                    self.open_for(test, data)
                    self.tick(PICTURE)
                    self.tick(DETAILS, details)
                    self.run_and_wait()
                    sheets = 2 * number - 1 + details
                    name = "Details" if sheets == 1 else f"Details ({sheets})"
                    self.assertEqual([picture.Title for picture in self.pictures(name)], [title])
                    self.check_apart(name)

    def test_it_is_saved_with_what_it_shows(self):
        self.want_picture()
        self.run_and_wait()
        again = self.save_and_open("picture.ods")
        try:
            picture = again.Sheets.getByName("Details").DrawPage.getByIndex(0)
            self.assertEqual(picture.Title, "The groups")
            self.assertIn("Medians: Before 13.5", picture.Description)
            self.assertEqual(picture.Graphic.MimeType, "image/svg+xml")
        finally:
            again.close(True)

    def test_a_document_that_takes_no_sheet_takes_the_report(self):
        self.want_picture()
        self.control("a cell:", RADIO_BUTTON).click()
        self.field("a cell:").type("Data!E2")
        self.document.protect("")
        reason = "The document's structure is protected, so it takes no new sheet; remove the protection."
        self.press("OK")
        self.wait_for_text("The report was placed, but without a picture: " + reason)
        self.tick(DETAILS)
        self.tick("Replace what the cells there hold")
        self.press("OK")
        self.wait_for_text("The report was placed, but without its details and a picture: " + reason)
        self.check_layout()
        self.assertEqual(self.sheet.getCellRangeByName("E2").String, "Mann-Whitney Test Results for:")
        self.document.unprotect("")

    def test_it_is_remembered_and_left_out_again(self):
        self.want_picture()
        self.press("Close")
        self.assertTrue(wait_for(lambda: self.find() is None))
        self.open_dialog("A1:B7")
        self.assertTrue(self.control(PICTURE, CHECK_BOX).has(CHECKED))
        self.tick(PICTURE, False)
        self.run_and_wait()
        self.assertEqual(self.names(), ["Data", "Mann-Whitney"])


class InGerman(Ticks):
    def tearDown(self):
        DialogCase.tearDown(self)

    def test_it_is_offered_in_the_offices_language(self):
        self.document.CurrentController.select(self.sheet.getCellRangeByName("A1:B7"))
        with self.in_german():
            self.assertIsNotNone(self.control("Diagramm der Daten", CHECK_BOX))
            self.check_layout()


if __name__ == "__main__":
    unittest.main()
