"""A client in Python: each of the eight tests, and every error of the library."""

import pathlib
import unittest

import uno
from com.sun.star.lang import IllegalArgumentException
from TBVNonPara import AnalysisException
from TBVNonPara.TBVNPMethod import tbvNPKWallis
from TBVNonPara.TBVNPTails import tbvNPVar1LTVar2

from cases import COLUMNS, EIGHT_TESTS, ERRORS, IN_RESULTS, OBJECT_ERROR, holds, open_data
from office import Office, TestCase, cells_of


def setUpModule():
    global office
    office = unittest.enterModuleContext(Office())


class Client(TestCase):
    def setUp(self):
        self.document = open_data(office)
        self.request = office.create("TBVNonPara.clsNonPara")
        self.request.Headers = True

    def tearDown(self):
        self.document.close(True)

    def raised(self, number, source, work):
        with self.assertRaises(AnalysisException) as caught:
            work()
        self.assertEqual(caught.exception.Number, number)
        self.assertEqual(caught.exception.Source, source)
        self.assertIn(str(number), caught.exception.Message)

    def last_sheet(self):
        sheets = self.document.Sheets
        return sheets.getByIndex(sheets.Count - 1)

    def test_runs_each_of_the_eight_tests(self):
        for method, title, first, second, probability in EIGHT_TESTS:
            with self.subTest(title=title, first=first):
                request = office.create("TBVNonPara.clsNonPara")
                request.Method = method
                request.Headers = True
                request.OutputDescriptives = True
                request.YRange = first
                request.XRange = second
                request.Results()
                self.assertTrue(holds(self.last_sheet(), title, probability), cells_of(self.last_sheet()))

    def test_tells_every_error_by_number_and_source(self):
        for what, number, source, method, first, second, output in ERRORS:
            with self.subTest(what=what):
                request = office.create("TBVNonPara.clsNonPara")
                request.Method = method
                request.Headers = True

                def work():
                    for name, address in (("YRange", first), ("XRange", second), ("OutputRange", output)):
                        if address is not None:
                            setattr(request, name, address)
                    request.Results()
                self.raised(number, source, work)
                self.assertEqual(self.document.Sheets.Count, 1)

    def test_reading_a_property_gives_nothing_back(self):
        self.assertIsNone(self.request.Method)

    def test_refuses_a_text_for_a_number(self):
        def work():
            self.request.Method = "abc"
        self.raised(13, "", work)

    def test_takes_the_argument_in_every_form(self):
        self.request.YRange = "Data!A1:A7"
        self.request.XRange = "Data!B1:B7"
        self.request.OutputRange = "Data!Q1"
        self.request.Results()
        self.raised(OBJECT_ERROR + 5031, IN_RESULTS, lambda: self.request.Results(False))
        self.request.Results(True)
        self.request.Results(1)

    def test_takes_addresses_in_both_notations_and_of_named_ranges(self):
        names = self.document.NamedRanges
        address = uno.createUnoStruct("com.sun.star.table.CellAddress")
        names.addNewByName("Scores", "$Data.$B$1:$B$7", address, 0)
        for first, second in (("Data!$A$1:$A$7", "$Data.$B$1:$B$7"), ("A1:A7", "Scores"),
                              ("'Data'!A7:A1", "B1:B7")):
            with self.subTest(first=first):
                request = office.create("TBVNonPara.clsNonPara")
                request.Headers = True
                request.Tails = tbvNPVar1LTVar2
                request.YRange = first
                request.XRange = second
                request.Results()
                cells = cells_of(self.last_sheet())
                self.assertEqual(cells[1][0], "Set 1 Range = Data!$A$1:$A$7")
                self.assertEqual(cells[2][0], "Set 2 Range = Data!$B$1:$B$7")
                self.document.CurrentController.ActiveSheet = self.document.Sheets.getByIndex(0)

    def test_takes_the_names_of_a_sheet_and_of_database_ranges(self):
        address = uno.createUnoStruct("com.sun.star.table.CellAddress")
        sheet = self.document.Sheets.getByName("Data")
        sheet.NamedRanges.addNewByName("Local", "$Data.$A$1:$A$7", address, 0)
        self.document.NamedRanges.addNewByName("Local", "$Data.$B$1:$B$7", address, 0)
        self.document.DatabaseRanges.addNewByName("Table1",
                                                  sheet.getCellRangeByName("C1:C7").RangeAddress)
        self.request.YRange, self.request.XRange = "Local", "table1"
        self.request.Results()
        cells = cells_of(self.last_sheet())
        self.assertEqual(cells[1][0], "Set 1 Range = Data!$A$1:$A$7")
        self.assertEqual(cells[2][0], "Set 2 Range = Data!$C$1:$C$7")

    def test_works_on_a_hidden_document_that_it_is_given(self):
        hidden = office.open(Hidden=True)
        try:
            hidden.Sheets.getByIndex(0).getCellRangeByName("A1:B3").setDataArray(((1, 4), (2, 5), (3, 6)))
            request = office.context.ServiceManager.createInstanceWithArgumentsAndContext(
                "TBVNonPara.clsNonPara", (hidden,), office.context)
            request.YRange, request.XRange, request.OutputRange = "A1:A3", "B1:B3", "D1"
            request.Results()
            self.assertEqual(cells_of(hidden.Sheets.getByIndex(0))[0][3], "Mann-Whitney Test Results for:")
            # By hand: of the 20 ways to choose three ranks of six, one is as low.
            self.assertEqual(cells_of(hidden.Sheets.getByIndex(0))[6][6], 0.1)
            self.assertEqual(self.document.Sheets.Count, 1)
            with self.assertRaises(IllegalArgumentException):
                office.context.ServiceManager.createInstanceWithArgumentsAndContext(
                    "TBVNonPara.clsNonPara", ("hidden",), office.context)
        finally:
            hidden.close(True)

    def test_tells_who_gives_a_range_for_its_address_how_to_name_it(self):
        cells = self.document.Sheets.getByName("Data").getCellRangeByName("A1:A7")
        for what in (cells, cells.getCellByPosition(0, 0), cells.queryVisibleCells()):
            def work():
                self.request.YRange = what
            self.raised(13, "", work)
            with self.assertRaises(AnalysisException) as caught:
                work()
            self.assertIn("pass its AbsoluteName", caught.exception.Message)

    def test_keeps_areas_in_the_order_given_and_unmerged(self):
        self.request.Method = tbvNPKWallis
        self.request.YRange = "Data!C1:C7;A1:A7,$Data.$B$1:$B$7"
        self.request.Results()
        self.assertEqual(cells_of(self.last_sheet())[1][0],
                         "Data Range = Data!$C$1:$C$7,$A$1:$A$7,$B$1:$B$7")

    def test_trims_whole_columns_to_what_is_used(self):
        self.request.YRange = "Data!A:A"
        self.request.XRange = "Data!B:B"
        self.request.Results()
        self.assertEqual(cells_of(self.last_sheet())[1][0], "Set 1 Range = Data!$A$1:$A$7")

    def test_takes_sheet_names_with_quotes_and_commas(self):
        self.document.Sheets.getByIndex(0).Name = "It's, ok"
        self.request.YRange = "'It''s, ok'!A1:A7"
        self.request.XRange = "$'It''s, ok'.B1:B7"
        self.request.Results()
        self.assertEqual(cells_of(self.last_sheet())[1][0], "Set 1 Range = It's, ok!$A$1:$A$7")

    def test_refuses_a_boolean_and_an_error_in_the_data(self):
        sheet = self.document.Sheets.getByName("Data")
        self.request.XRange = "Data!B1:B7"
        for formula, offset in (("TRUE", 5021), ("=TRUE()", 5021), ("=1=1", 5021), ("=1/0", 5022),
                                ("=NA()", 5022), ("=\"\"", 5020)):
            with self.subTest(formula=formula):
                cell = sheet.getCellRangeByName("A3")
                cell.setFormula(formula)
                if formula == "TRUE":
                    cell.NumberFormat = 99
                self.request.YRange = "Data!A1:A7"
                self.raised(OBJECT_ERROR + offset, IN_RESULTS, self.request.Results)
                cell.clearContents(1023)

    def test_a_label_that_looks_like_a_number_or_a_formula_stays_a_text(self):
        sheet = self.document.Sheets.getByName("Data")
        sheet.getCellRangeByName("A1").String = "2019"
        sheet.getCellRangeByName("B1").String = "=x"
        self.request.OutputDescriptives = True
        self.request.YRange = "Data!A1:A7"
        self.request.XRange = "Data!B1:B7"
        self.request.Results()
        cells = cells_of(self.last_sheet())
        self.assertEqual(cells[6][1:3], ("2019", "=x"))


class FullCycle(TestCase):
    def test_starts_runs_and_ends(self):
        with Office() as own:
            document = own.open_with(COLUMNS)
            request = own.create("TBVNonPara.clsNonPara")
            request.YRange, request.XRange = "A2:A7", "B2:B7"
            request.Results()
            self.assertEqual(document.Sheets.Count, 2)
        self.assertEqual(own.process.returncode, 0)
        self.assertFalse(pathlib.Path(own.folder).exists())


if __name__ == "__main__":
    unittest.main()
