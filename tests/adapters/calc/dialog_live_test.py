"""What the dialog puts beside a report or into it besides numbers: the picture of the data, and formulas for figures."""

import unittest

import uno  # noqa: F401
from com.sun.star.accessibility.AccessibleRole import CHECK_BOX, RADIO_BUTTON
from com.sun.star.accessibility.AccessibleStateType import CHECKED, ENABLED
from com.sun.star.table.CellContentType import FORMULA

from dialog_case import AFTER, BEFORE, DialogCase
from office import cells_of, property_value
from screen import wait_for

PICTURE = "Picture of the data"
LIVE = "Keep figures live: they follow the data"
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
        """A window that changes while it is looked at is not found: only twice is gone."""
        self.press("OK")
        self.assertTrue(wait_for(lambda: self.find() is None))

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


class Live(Ticks):
    def run_live(self, test="Mann-Whitney U test", data="A1:B7", alternative=None):
        self.open_for(test, data)
        if alternative:
            self.choose("Alternative:", alternative)
        self.tick(LIVE)
        self.run_and_wait()
        return self.document.Sheets.getByIndex(self.document.Sheets.Count - 1)

    def plain_report(self, test, data, alternative=None):
        self.open_for(test, data)
        if alternative:
            self.choose("Alternative:", alternative)
        self.tick(LIVE, False)
        self.run_and_wait()
        return self.document.Sheets.getByIndex(self.document.Sheets.Count - 1)

    def formulas(self, sheet):
        """The cells of a report that hold a formula, by their addresses."""
        found = {}
        for row, cells in enumerate(cells_of(sheet)):
            for column in range(len(cells)):
                cell = sheet.getCellByPosition(column, row)
                if cell.Type == FORMULA:
                    found["ABCDEFG"[column] + str(row + 1)] = cell
        return found

    def test_figures_follow_the_data_and_go_with_the_report(self):
        self.document.UndoManager.clear()
        report = self.run_live()
        self.assertEqual(list(self.formulas(report)), ["A7", "B7", "C7", "D7"])
        self.assertEqual(report.getCellRangeByName("D7").Formula.upper(),
                         "=COM.TBVNONPARA.FUNCTIONS.MANNWHITNEYTEST($DATA.$A$2:$A$7;$DATA.$B$2:$B$7)")
        self.assertEqual(report.getCellRangeByName("D7").FormulaLocal, "=MANNWHITNEY.TEST($Data.$A$2:$A$7,$Data.$B$2:$B$7)")
        # By hand: 34 of the 36 pairs have After above Before, and 8 of the 924 arrangements are as far off.
        self.assertEqual(report.getCellRangeByName("A7").Value, 34)
        self.assertAlmostEqual(report.getCellRangeByName("D7").Value, 8 / 924, 14)
        self.assertEqual(report.getCellRangeByName("D7").String, "0.0087")
        self.assertEqual(list(self.document.UndoManager.AllUndoActionTitles), ["Mann-Whitney Test Results"])
        self.sheet.getCellRangeByName("A5").Value = 1  # 18, the value that was above 17 and 16
        self.assertEqual(report.getCellRangeByName("A7").Value, 36)
        self.assertAlmostEqual(report.getCellRangeByName("D7").Value, 2 / 924, 14)
        self.undo()
        self.assertEqual(report.getCellRangeByName("A7").Value, 34)
        self.undo()
        self.assertEqual(self.names(), ["Data"])
        self.document.UndoManager.redo()
        self.assertEqual(len(self.formulas(self.sheet_named("Mann-Whitney"))), 4)

    def test_a_label_that_is_a_number_is_no_datum(self):
        self.sheet.getCellRangeByName("A1:B1").setDataArray(((2019, 2020),))
        self.open_dialog("A1:B7")
        self.tick("Labels in the first row")
        self.tick(LIVE)
        self.run_and_wait()
        self.assertEqual(self.sheet_named("Mann-Whitney").getCellRangeByName("A7").Value, 34)
        self.assertEqual(len(self.formulas(self.sheet_named("Mann-Whitney"))), 4)

    def check_same(self, plain, live, number):
        """So many figures are formulas, and nothing else differs."""
        formulas = self.formulas(live)
        self.assertEqual(len(formulas), number, list(formulas))
        for address, cell in formulas.items():
            value = plain.getCellRangeByName(address)
            self.assertEqual(cell.String, value.String, address)
            self.assertAlmostEqual(cell.Value, value.Value, delta=1e-12 * max(1, abs(value.Value)))
        for row, other in zip(cells_of(plain), cells_of(live)):
            self.assertEqual([c for c in row if isinstance(c, str)], [c for c in other if isinstance(c, str)])

    def test_figures_of_approximations_are_those_of_the_plain_report(self):
        rows = 260  # above 50,000 pairs U is approximated, T above far fewer
        self.sheet.getCellRangeByName(f"H1:I{rows}").setDataArray(tuple((row % 97, row * 7 % 89 + 3) for row in range(rows)))
        for test, alternative in (("Mann-Whitney U test", "first tends to be smaller"),
                                  ("Wilcoxon paired-sample test", "first mostly smaller than second"),
                                  ("Wilcoxon paired-sample test", "first mostly larger than second"),
                                  ("Spearman rank correlation", "one falls as the other rises")):
            with self.subTest(test=test, alternative=alternative):
                plain = self.plain_report(test, f"H1:I{rows}", alternative)
                live = self.run_live(test, f"H1:I{rows}", alternative)
                self.check_same(plain, live, 4 if test.startswith("Mann") else 3)
        self.open_dialog()
        self.choose("Alternative:", "the two are correlated")

    def test_each_figure_of_each_test_is_that_of_the_plain_report(self):
        self.sheet.getCellRangeByName("D1:D7").setDataArray((("sign",), (1,), (1,), (-1,), (1,), (0,), (1,)))
        less = "Before tends to be smaller"
        wanted = [
            ("Mann-Whitney U test", "A1:B7", less, 4),
            ("Mann-Whitney U test", "A1:B7", "Before tends to be larger", 4),
            ("Wilcoxon paired-sample test", "A1:B7", None, 3),
            ("Wilcoxon paired-sample test", "A1:C7", "Before mostly larger than After", 3),
            ("Wilcoxon paired-sample test", "A1:C7", "Before mostly smaller than After", 3),
            ("Spearman rank correlation", "A1:B7", "they rise together", 3),
            ("Sign test", "D1:D7", "more plus than minus", 4),
            ("Sign test", "A1:B7", "Before mostly smaller than After", 4),
            ("Mood median test", "A1:B7", None, 12),
            ("Mood median test", "A1:C7", None, 6),
            ("Friedman test", "A1:C7", None, 7),
            ("Kruskal-Wallis test", "A1:C7", None, 7),
            ("Wald-Wolfowitz runs test", "D1:D7", "fewer runs than expected", 4),
            ("Wald-Wolfowitz runs test", "D1:D7", "the order is not random", 4),
        ]
        for test, data, alternative, number in wanted:
            with self.subTest(test=test, data=data, alternative=alternative):
                plain = self.plain_report(test, data, alternative)
                live = self.run_live(test, data, alternative)
                self.check_same(plain, live, number)
        self.open_dialog()
        for test in ("Wilcoxon paired-sample test", "Mann-Whitney U test"):
            self.choose("Test:", test)
            self.choose("Alternative:", "the two differ")

    def test_several_areas_of_groups_are_one_formula(self):
        self.open_for("Kruskal-Wallis test", "A1:B7")
        self.field("Data ranges:").type("Data!A1:B7;Data!C1:C6")
        self.tick(LIVE)
        self.run_and_wait()
        report = self.sheet_named("Kruskal-Wallis")
        self.assertEqual(len(self.formulas(report)), 7)
        first = next(iter(self.formulas(report).values()))
        self.assertIn("($Data.$A$2:$B$7;$Data.$C$2:$C$6", first.Formula)
        self.document.CurrentController.select(first)
        self.picture("live_report")

    def test_a_sheet_with_a_name_in_quotes_is_found(self):
        self.sheet.Name = "It's 2"
        self.run_live()
        self.assertEqual(len(self.formulas(self.sheet_named("Mann-Whitney"))), 4)

    def test_they_are_saved_as_formulas(self):
        self.run_live()
        again = self.save_and_open("live.ods")
        try:
            report = again.Sheets.getByName("Mann-Whitney")
            self.assertEqual(len(self.formulas(report)), 4)
            again.Sheets.getByIndex(0).getCellRangeByName("A5").Value = 1
            self.assertEqual(report.getCellRangeByName("A7").Value, 36)
        finally:
            again.close(True)

    def test_a_report_at_a_cell_of_the_data_sheet_is_live_too(self):
        self.open_dialog("A1:B7")
        self.tick(LIVE)
        self.control("a cell:", RADIO_BUTTON).click()
        self.field("a cell:").type("Data!E2")
        self.run_and_wait()
        self.assertEqual(self.sheet.getCellRangeByName("E8").Value, 34)
        self.assertEqual(self.sheet.getCellRangeByName("E8").Type, FORMULA)
        self.undo()
        self.assertEqual(self.sheet.getCellRangeByName("E8").String, "")

    def check_numbers(self, sheet, words):
        self.wait_for_text(words)
        self.check_layout()
        self.assertEqual(self.formulas(sheet), {})

    def test_over_its_own_data_it_stays_numbers(self):
        self.open_dialog("A1:B7")
        self.tick(LIVE)
        self.control("a cell:", RADIO_BUTTON).click()
        self.field("a cell:").type("Data!A1")
        self.tick("Replace what the cells there hold")
        self.press("OK")
        self.check_numbers(self.sheet, "The report was placed, but its figures do not follow the data: the report "
                                       "stands on its own data.")

    def test_without_automatic_calculation_it_stays_numbers(self):
        self.document.enableAutomaticCalculation(False)
        self.open_dialog("A1:B7")
        self.tick(LIVE)
        self.press("OK")
        self.wait_for_text("The report was placed, but its figures do not follow the data: Calc computes here only when "
                           "it is told to (Data > Calculate > AutoCalculate).")
        self.assertEqual(self.formulas(self.sheet_named("Mann-Whitney")), {})

    def test_what_a_formula_does_not_give_stays_a_number(self):
        # Left out of the report; in a cell an error is passed on.
        self.sheet.getCellRangeByName("A7").Formula = "=NA()"
        self.open_dialog("A1:B7")
        self.tick("Leave out missing values (1 of 12 values)")
        self.tick(LIVE)
        self.press("OK")
        self.wait_for_text("The report was placed. No formula gives the same for these figures, so they stay numbers: U, "
                           "DF 1, DF 2, P.")
        report = self.sheet_named("Mann-Whitney")
        self.assertEqual(self.formulas(report), {})
        self.assertEqual(report.getCellRangeByName("A7").Value, 28)  # by hand: 13 was below all six
        self.assertEqual(report.getCellRangeByName("B7").Value, 5)

    def test_missing_values_are_passed_over_as_in_the_report(self):
        self.sheet.getCellRangeByName("A7").String = "NA"
        self.open_dialog("A1:B7")
        self.tick("Leave out missing values (1 of 12 values)")
        self.tick(LIVE)
        self.run_and_wait()
        self.assertEqual(len(self.formulas(self.sheet_named("Mann-Whitney"))), 4)

    def live_box(self):
        return next(e for e in self.dialog.walk() if e.role == CHECK_BOX and e.name.startswith("Keep figures live"))

    def check_not_offered(self, reason):
        name = f"Keep figures live (not {reason})"
        self.assertTrue(wait_for(lambda: self.live_box().name == name), self.live_box().name)
        self.assertFalse(self.live_box().has(ENABLED))
        self.check_layout()

    def check_offered(self):
        self.assertTrue(wait_for(lambda: self.live_box().name == LIVE), self.live_box().name)
        self.assertTrue(self.live_box().has(ENABLED))

    def test_it_is_not_offered_where_no_formula_computes_the_same(self):
        self.sheet.getRows().getByIndex(3).IsVisible = False
        self.open_dialog("A1:B7")
        self.tick(LIVE)
        self.tick(VISIBLE)
        self.check_not_offered("with visible rows only")
        self.tick(VISIBLE, False)
        self.check_offered()
        self.choose("Test:", "Wilcoxon paired-sample test")
        self.tick("Leave zero differences unranked")
        self.check_not_offered("with zero differences unranked")
        self.tick("Leave zero differences unranked", False)
        self.check_offered()
        self.tick("Groups in one column")
        self.check_not_offered("with groups in one column")
        self.tick("Groups in one column", False)
        self.check_offered()
        self.tick(VISIBLE)
        self.check_not_offered("with visible rows only")
        self.run_and_wait()
        self.assertEqual(self.formulas(self.sheet_named("Wilcoxon")), {})
        self.open_dialog()
        self.assertTrue(self.live_box().has(CHECKED))

    def test_both_are_ticked_and_run_by_keyboard(self):
        self.open_dialog("A1:B7")
        left, top, _, _ = self.field("First range:").box
        self.screen.mouse("mousemove", left + 5, top + 5, "click", 1)
        for key, box in (("alt+p", PICTURE), ("alt+w", LIVE)):
            self.screen.mouse("key", key)
            self.assertTrue(wait_for(lambda name=box: self.control(name, CHECK_BOX).has(CHECKED), 30), box)
        self.screen.mouse("key", "Return")
        self.assertTrue(wait_for(lambda: self.find() is None))
        self.assertEqual(self.names(), ["Data", "Mann-Whitney", "Details"])
        self.assertEqual(len(self.formulas(self.sheet_named("Mann-Whitney"))), 4)

    def test_all_three_go_together(self):
        self.document.UndoManager.clear()
        self.open_dialog("A1:B7")
        for box in (DETAILS, PICTURE, LIVE):
            self.tick(box)
        self.run_and_wait()
        self.assertEqual(self.names(), ["Data", "Mann-Whitney", "Details"])
        self.assertEqual(len(self.formulas(self.sheet_named("Mann-Whitney"))), 4)
        self.assertEqual(self.sheet_named("Details").DrawPage.Count, 1)
        self.assertEqual(len(self.document.UndoManager.AllUndoActionTitles), 1)
        self.undo()
        self.assertEqual(self.names(), ["Data"])


class InGerman(Ticks):
    def tearDown(self):
        DialogCase.tearDown(self)

    def test_they_are_offered_in_the_offices_language(self):
        self.document.CurrentController.select(self.sheet.getCellRangeByName("A1:B7"))
        with self.in_german():
            for box in ("Diagramm der Daten", "Kennwerte als Formeln, die mitrechnen"):
                self.assertIsNotNone(self.control(box, CHECK_BOX), box)
            self.choose("Test:", "Wilcoxon-Test für Paare")
            self.tick("Gruppen in einer Spalte")
            name = "Kennwerte als Formeln (nicht bei Gruppen in einer Spalte)"
            self.assertTrue(wait_for(lambda: self.control(name, CHECK_BOX) is not None))
            self.check_layout()
            self.tick("Gruppen in einer Spalte", False)


if __name__ == "__main__":
    unittest.main()
