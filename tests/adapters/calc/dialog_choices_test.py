"""What the dialog remembers for other documents, and when the office is started again."""

import unittest

import uno  # noqa: F401
from com.sun.star.accessibility.AccessibleRole import CHECK_BOX, RADIO_BUTTON, TEXT
from com.sun.star.accessibility.AccessibleStateType import CHECKED

from dialog_case import AFTER, BEFORE, LATER, DialogCase
from screen import wait_for

DETAILS = "Effect sizes, intervals and comparisons"
PICTURE = "Picture of the data"
LIVE = "Keep figures live: they follow the data"


class Choices(DialogCase):
    def close_dialog(self):
        self.press("Close")
        self.assertTrue(wait_for(lambda: self.find() is None))

    def other_document(self):
        self.document.close(True)
        self.document = self.office.open_with([BEFORE, AFTER, LATER])
        self.sheet = self.document.Sheets.getByIndex(0)

    def chosen(self):
        """What the lists and fields of the dialog show."""
        return [e.text for e in self.dialog.walk() if e.role == TEXT]

    def ticked(self):
        return [e.name for e in self.dialog.walk() if e.role == CHECK_BOX and e.has(CHECKED)]

    def choose_much(self):
        self.open_dialog("A1:B7")
        self.choose("Test:", "Wilcoxon paired-sample test")
        self.assertTrue(wait_for(lambda: self.control("Leave zero differences unranked", CHECK_BOX)))
        self.choose("Alternative:", "Before mostly smaller than After")
        for box in ("Leave zero differences unranked", "Descriptive tables", DETAILS, PICTURE):
            self.tick(box)
        self.assertTrue(wait_for(lambda: "Confidence (%):" in self.texts()))
        self.field("Confidence (%):").type("97,5")

    def check_much(self):
        shown = self.chosen()
        for text in ("Wilcoxon paired-sample test", "first mostly smaller than second", "97,5"):
            self.assertIn(text, shown)
        self.assertEqual(self.ticked(), ["Labels in the first row", "Descriptive tables",
                                         "Leave zero differences unranked", DETAILS, PICTURE])

    def test_another_document_begins_with_the_choices_of_the_last_one(self):
        self.choose_much()
        self.close_dialog()
        self.other_document()
        self.open_dialog()
        self.check_much()

    def test_so_does_the_office_when_it_is_started_again(self):
        self.choose_much()
        self.close_dialog()
        self.document.close(True)
        self.office.restart()
        self.document = self.office.open_with([BEFORE, AFTER])
        self.open_dialog()
        self.check_much()

    def test_ranges_and_the_place_of_the_report_stay_with_their_document(self):
        self.open_dialog("A1:B7")
        self.control("a cell:", RADIO_BUTTON).click()
        self.field("a cell:").type("Data!E2")
        self.tick("Replace what the cells there hold")
        self.tick("Groups in one column")
        self.close_dialog()
        self.other_document()
        self.open_dialog()
        self.assertEqual([self.field(name).text for name in ("First range:", "Second range:", "a cell:")], [""] * 3)
        self.assertTrue(self.control("a new sheet", RADIO_BUTTON).has(CHECKED))
        self.assertEqual(self.ticked(), ["Labels in the first row"])

    def test_the_adjustment_and_live_figures_are_remembered(self):
        self.open_dialog("A1:C7")
        self.choose("Test:", "Kruskal-Wallis test")
        for box in (DETAILS, LIVE):
            self.tick(box)
        self.assertTrue(wait_for(lambda: "Adjustment of P:" in self.texts()))
        self.choose("Adjustment of P:", "Bonferroni")
        self.close_dialog()
        self.other_document()
        self.open_dialog()
        self.assertIn("Kruskal-Wallis test", self.chosen())
        self.assertIn("Bonferroni", self.chosen())
        self.assertEqual(self.ticked(), ["Labels in the first row", DETAILS, LIVE])

    def test_a_selection_says_itself_whether_it_has_labels(self):
        self.open_dialog("A2:B7")
        self.assertEqual(self.ticked(), [])
        self.close_dialog()
        self.other_document()
        self.open_dialog()
        self.assertEqual(self.ticked(), [])
        self.close_dialog()
        self.open_dialog("A1:B7")
        self.assertEqual(self.ticked(), ["Labels in the first row"])

    def test_a_document_keeps_its_own_choices_while_it_is_open(self):
        self.open_dialog("A1:B7")
        self.close_dialog()
        first = self.document
        self.document = self.office.open_with([BEFORE, AFTER])
        self.open_dialog()
        self.choose("Test:", "Spearman rank correlation")
        self.close_dialog()
        self.document.close(True)
        self.document = first
        self.open_dialog()
        self.assertIn("Mann-Whitney U test", self.chosen())

    def test_what_is_no_choice_is_passed_over(self):
        choices = self.choices()
        for name, value in (("Test", "no such test"), ("Alternative", "sideways"), ("Confidence", "much"),
                            ("Adjustment", ""), ("Descriptives", True), ("Details", True)):
            choices.replaceByName(name, value)
        choices.commitChanges()
        self.open_dialog()
        shown = self.chosen()
        for text in ("Mann-Whitney U test", "the two differ", "95"):
            self.assertIn(text, shown)
        self.assertEqual(self.ticked(), ["Labels in the first row", "Descriptive tables", DETAILS])


if __name__ == "__main__":
    unittest.main()
