"""The details that the dialog puts beside a report: on which sheet, of which data, and what happens without them."""

import unittest

import uno  # noqa: F401
from com.sun.star.accessibility.AccessibleRole import CHECK_BOX, COMBO_BOX, LABEL, RADIO_BUTTON
from com.sun.star.accessibility.AccessibleStateType import CHECKED

from dialog_case import AFTER, BEFORE, LATER, DialogCase
from office import cells_of
from screen import wait_for

DETAILS = "Effect sizes, intervals and comparisons"
ADJUSTED = "Adjustment of P:"


class Details(DialogCase):
    def tearDown(self):
        if not self.find():
            self.open_dialog()
        self.choose("Test:", "Mann-Whitney U test")
        super().tearDown()

    def want_details(self, confidence=None):
        self.tick(DETAILS)
        self.assertTrue(wait_for(lambda: "Confidence (%):" in self.texts()), self.texts())
        if confidence:
            self.field("Confidence (%):").type(confidence)

    def names(self):
        return list(self.document.Sheets.ElementNames)

    def details(self, name="Details"):
        return cells_of(self.document.Sheets.getByName(name))

    def run_and_wait(self):
        self.press("OK")
        self.assertTrue(wait_for(lambda: self.find() is None), self.find() and self.texts())

    def row(self, title, name="Details"):
        return next(row for row in self.details(name) if row[0] == title)

    def wait_for_text(self, text):
        self.assertTrue(wait_for(lambda: text in self.texts()), self.texts())

    def check_superiority(self, part, name="Details"):
        """How many of all pairs have the first one larger."""
        self.assertAlmostEqual(self.row("Before larger, share of pairs", name)[1], part, 14)

    def run_in_columns(self, first, second):
        """The details of the same data in columns of their own."""
        self.document.CurrentController.ActiveSheet = self.sheet
        for place, column in ((10, first), (11, second)):
            cells = self.sheet.getCellRangeByPosition(place, 0, place, len(column) - 1)
            cells.setDataArray(tuple((value,) for value in column))
        self.open_dialog(f"K1:L{max(len(first), len(second))}")
        self.field("First range:").type(f"Data!K1:K{len(first)}")
        self.field("Second range:").type(f"Data!L1:L{len(second)}")
        self.run_and_wait()
        return self.details("Details (2)")


class OnTheirSheet(Details):
    def test_they_stand_behind_the_report_and_go_with_it_in_one_undo(self):
        self.document.UndoManager.clear()
        self.open_dialog("A1:B7")
        self.want_details()
        self.assertEqual(self.field("Confidence (%):").text, "95")
        self.assertIsNone(self.control(ADJUSTED, COMBO_BOX))
        self.check_layout()
        self.picture("details")
        self.run_and_wait()
        self.assertEqual(self.names(), ["Data", "Mann-Whitney", "Details"])
        self.assertEqual(self.document.CurrentController.ActiveSheet.Name, "Mann-Whitney")
        self.assertTrue(self.details()[1][0].startswith("Report = 'Mann-Whitney'!$A$1:"))
        # By hand: 2 of the 36 pairs have Before above After, and 8 of the 924 arrangements are as far off.
        self.check_superiority(2 / 36)
        self.assertAlmostEqual(self.row("Exact")[2], 8 / 924, 14)
        self.document.CurrentController.ActiveSheet = self.document.Sheets.getByName("Details")
        self.picture("details_sheet")
        self.assertEqual(list(self.document.UndoManager.AllUndoActionTitles), ["Mann-Whitney Test Results"])
        self.document.UndoManager.undo()
        self.assertEqual(self.names(), ["Data"])
        self.assertEqual(self.document.UndoManager.AllUndoActionTitles, ())
        self.document.UndoManager.redo()
        self.assertEqual(self.names(), ["Data", "Mann-Whitney", "Details"])
        self.check_superiority(2 / 36)

    def test_columns_are_wide_enough_for_what_stands_in_them(self):
        self.open_dialog("A1:B7")
        self.want_details()
        self.run_and_wait()
        columns = self.document.Sheets.getByName("Details").getColumns()
        longest = max((row[0] for row in self.details() if any(row[1:])), key=len)
        # Letters of ten points are more than a millimetre wide on average.
        self.assertGreater(columns.getByIndex(0).Width, 100 * len(longest))
        self.assertLess(columns.getByIndex(0).Width, 300 * len(longest))

    def test_each_run_takes_the_next_free_name(self):
        for name in ("Details", "Details (2)"):
            self.document.CurrentController.ActiveSheet = self.sheet
            self.open_dialog("A1:B7")
            self.want_details()
            self.run_and_wait()
            self.assertIn(name, self.names())
        self.assertEqual(self.names(), ["Data", "Mann-Whitney", "Details", "Mann-Whitney (2)", "Details (2)"])

    def test_several_groups_are_compared_as_the_user_chooses(self):
        self.open_dialog("A1:C7")
        self.choose("Test:", "Kruskal-Wallis test")
        self.want_details("90")
        self.assertTrue(wait_for(lambda: self.control(ADJUSTED, COMBO_BOX) is not None))
        self.choose(ADJUSTED, "Bonferroni")
        self.check_layout()
        self.picture("details_groups")
        self.run_and_wait()
        words = [row[0] for row in self.details()]
        self.assertTrue([w for w in words if "90 % CI" in w], words)
        self.assertTrue([w for w in words if "P adjusted by Bonferroni" in w], words)
        for pair in ("Before - After", "Before - Later", "After - Later"):
            p, adjusted = self.row(pair)[3:5]
            self.assertAlmostEqual(adjusted, min(1, 3 * p), 14)

    def test_what_was_chosen_is_remembered_while_the_document_is_open(self):
        self.open_dialog("A1:C7")
        self.choose("Test:", "Friedman test")
        self.want_details("99,5")
        self.choose(ADJUSTED, "Benjamini-Hochberg")
        self.press("Close")
        self.assertTrue(wait_for(lambda: self.find() is None))
        self.open_dialog()
        self.assertTrue(self.control(DETAILS, CHECK_BOX).has(CHECKED))
        self.assertEqual(self.field("Confidence (%):").text, "99,5")
        self.run_and_wait()
        words = [row[0] for row in self.details()]
        self.assertTrue([w for w in words if "99.5 % CI" in w], words)
        self.assertTrue([w for w in words if "P adjusted by Benjamini and Hochberg" in w], words)

    def test_a_confidence_that_is_none_is_told_of_below_its_field(self):
        self.open_dialog("A1:B7")
        for text in ("0.95", "100", "much", ""):
            self.want_details()
            self.field("Confidence (%):").type(text)
            self.press("OK")
            self.wait_for_text("Choose a confidence from 50 to 99.9 per cent.")
            self.assertEqual(self.field("Confidence (%):").text, text)
        message = self.control("Choose a confidence from 50 to 99.9 per cent.", LABEL).box
        self.assertGreaterEqual(message[1], self.field("Confidence (%):").box[1])
        self.check_layout()
        self.assertEqual(self.names(), ["Data"])
        self.tick(DETAILS, False)
        self.assertTrue(wait_for(lambda: "Confidence (%):" not in self.texts()))
        self.run_and_wait()
        self.assertEqual(self.names(), ["Data", "Mann-Whitney"])


class OfTheData(Details):
    def test_what_the_report_covers_was_read_before(self):
        self.open_dialog("A1:B7")
        self.want_details()
        self.control("a cell:", RADIO_BUTTON).click()
        self.field("a cell:").type("Data!A1")
        self.tick("Replace what the cells there hold")
        self.run_and_wait()
        self.assertEqual(self.names(), ["Data", "Details"])
        self.check_superiority(2 / 36)
        self.document.UndoManager.undo()
        self.assertEqual(self.names(), ["Data"])
        self.assertEqual(self.sheet.getCellRangeByName("A2").Value, 12)

    def test_groups_in_one_column_have_the_details_of_their_columns(self):
        values = [(value, column[0]) for column in (BEFORE, AFTER) for value in column[1:]]
        self.sheet.getCellRangeByName("E1:F13").setDataArray((("value", "group"), *values))
        self.open_dialog("E1:F13")
        self.tick("Groups in one column")
        self.assertTrue(wait_for(lambda: "Group range:" in self.texts()))
        self.want_details()
        self.check_layout()
        self.run_and_wait()
        self.check_superiority(2 / 36)
        long = self.details()
        self.open_dialog()
        self.tick("Groups in one column", False)
        self.press("Close")
        self.assertTrue(wait_for(lambda: self.find() is None))
        self.assertEqual(long[2:], self.run_in_columns(BEFORE, AFTER)[2:])

    def test_hidden_rows_and_missing_values_take_no_part(self):
        self.sheet.getCellRangeByName("B4").String = "NA"
        self.sheet.getCellRangeByName("B6").String = "NA"
        self.sheet.getRows().getByIndex(3).IsVisible = False
        self.open_dialog("A1:B7")
        self.want_details()
        self.tick("Visible rows only (1 of 7 are filtered out or hidden)")
        box = "Leave out missing values (1 of 10 values)"
        self.assertTrue(wait_for(lambda: self.control(box, CHECK_BOX) is not None))
        self.tick(box)
        self.run_and_wait()
        # By hand: 12, 15, 18, 14 and 13 against 17, 21, 23 and 24; 18 is above 17.
        self.check_superiority(1 / 20)

    def test_hidden_rows_alone_take_no_part_either(self):
        self.sheet.getRows().getByIndex(3).IsVisible = False
        self.open_dialog("A1:B7")
        self.want_details()
        self.tick("Visible rows only (1 of 7 are filtered out or hidden)")
        self.run_and_wait()
        # By hand: 11 and 16 go.
        self.check_superiority(1 / 25)

    def test_each_test_has_details(self):
        self.sheet.getCellRangeByName("D1:D7").setDataArray((("sign",), (1,), (1,), (-1,), (1,), (0,), (1,)))
        wanted = [
            ("Mann-Whitney U test", "A1:B7", "Before larger, share of pairs"),
            ("Wilcoxon paired-sample test", "A1:B7", "Exact"),
            ("Spearman rank correlation", "A1:B7", "Exact"),
            ("Sign test", "D1:D7", "Exact binomial"),
            ("Mood median test", "A1:C7", "Before - After"),
            ("Friedman test", "A1:C7", "Before - After"),
            ("Kruskal-Wallis test", "A1:C7", "Before - After"),
            ("Wald-Wolfowitz runs test", "D1:D7", "Exact"),
        ]
        for number, (test, data, row) in enumerate(wanted, 1):
            with self.subTest(test=test):
                self.document.CurrentController.ActiveSheet = self.sheet
                self.open_dialog()
                self.choose("Test:", test)
                self.press("Close")
                self.assertTrue(wait_for(lambda: self.find() is None))
                self.open_dialog(data)
                self.want_details()
                self.run_and_wait()
                name = "Details" if number == 1 else f"Details ({number})"
                self.assertTrue(any(isinstance(cell, float) for cell in self.row(row, name)[1:]), self.details(name))


class Without(Details):
    def test_a_document_that_takes_no_sheet_takes_the_report(self):
        self.document.UndoManager.clear()
        self.open_dialog("A1:B7")
        self.want_details()
        self.control("a cell:", RADIO_BUTTON).click()
        self.field("a cell:").type("Data!E2")
        self.document.protect("")
        self.press("OK")
        self.wait_for_text("The report was placed, but without effect sizes, intervals and comparisons: The document's "
                           "structure is protected, so it takes no new sheet; remove the protection.")
        self.check_layout()
        self.assertEqual(self.names(), ["Data"])
        self.assertEqual(self.sheet.getCellRangeByName("E2").String, "Mann-Whitney Test Results for:")
        self.document.unprotect("")
        for _ in range(2):  # that the protection went, and the report
            self.document.UndoManager.undo()
        self.assertEqual(self.sheet.getCellRangeByName("E2").String, "")

    def test_an_error_of_the_test_leaves_neither(self):
        self.sheet.getCellRangeByName("B4").String = "many"
        self.open_dialog("A1:B7")
        self.want_details()
        self.press("OK")
        self.wait_for_text('Data!B4 holds the text "many"; every cell below the header must be a number.')
        self.assertEqual(self.names(), ["Data"])


class InGerman(Details):
    def tearDown(self):
        DialogCase.tearDown(self)

    def test_they_are_offered_in_the_offices_language(self):
        self.document.CurrentController.select(self.sheet.getCellRangeByName("A1:C7"))
        with self.in_german():
            self.choose("Test:", "Kruskal-Wallis-Test")
            self.tick("Effektgrößen, Intervalle und Vergleiche")
            self.assertTrue(wait_for(lambda: "Adjustierung von P:" in self.texts()), self.texts())
            self.choose("Adjustierung von P:", "keine")
            self.field("Konfidenzniveau (%):").type("viel")
            self.press("OK")
            self.wait_for_text("Bitte ein Konfidenzniveau von 50 bis 99,9 Prozent angeben.")
            self.check_layout()
            self.picture("details_german")
            self.tick("Effektgrößen, Intervalle und Vergleiche", False)


if __name__ == "__main__":
    unittest.main()
