"""Tables as people keep them, in the dialog: missing values."""

import unittest

import uno  # noqa: F401
from com.sun.star.accessibility.AccessibleRole import CHECK_BOX

from dialog_case import DialogCase
from screen import wait_for


class Missing(DialogCase):
    def boxes(self):
        return [e.name for e in self.dialog.walk() if e.role == CHECK_BOX and e.name.startswith("Leave out")]

    def wait_for_box(self, name):
        self.assertTrue(wait_for(lambda: self.control(name, CHECK_BOX) is not None), self.boxes())

    def figures(self):
        """The line below the headings of the test's table."""
        cells = self.last_cells()
        return next(cells[row + 1] for row in range(len(cells)) if cells[row][0] in ("U", "T"))

    def note(self):
        sheets = self.document.Sheets
        return [note.String for note in sheets.getByIndex(sheets.Count - 1).getAnnotations()]

    def test_they_are_told_of_and_refused_until_they_are_to_be_left_out(self):
        self.sheet.getCellRangeByName("B4").String = "NA"
        self.open_dialog("A1:B7")
        self.assertEqual(self.boxes(), ["Leave out missing values (1 of 12 values)"])
        self.press("OK")
        text = ('Data!B4 holds the text "NA"; every cell below the header must be a number. '
                'Tick "Leave out missing values".')
        self.assertTrue(wait_for(lambda: text in self.texts()), self.texts())
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
        self.assertTrue(wait_for(lambda: text in self.texts()), self.texts())
        self.assertEqual(self.document.Sheets.Count, 1)


if __name__ == "__main__":
    unittest.main()
