"""The macro module that Windows users import, as it stands, in the office's VBA mode: every example and every helper.

The object that the examples create is the add-in's; the workbook that they would open is not needed by it.
"""

import pathlib
import unittest

from office import Office, TestCase, cells_of

ROOT = pathlib.Path(__file__).resolve().parents[3]
MODULE = ROOT / "adapters/com/package/TBVNonPara.bas"

# What the office lacks of a Windows application: its classes, and boxes that nobody has to answer.
SURROUNDINGS = """
Option VBASupport 1
Public message As String
Function CreateObject(name)
    CreateObject = CreateUnoService(name)
End Function
Function MsgBox(text)
    message = text
End Function
"""
CALLS = """
Function AddressIn(sheetName) As String
    ActiveWorkbook.Worksheets.Add
    ActiveWorkbook.ActiveSheet.Name = sheetName
    AddressIn = AddressFor(ActiveWorkbook.Worksheets(sheetName).Range("B2:C3"))
End Function
Function Told() As String
    Told = message
End Function
Function WordsFor(number) As String
    WordsFor = ErrorText(CLng(number), "its own words")
End Function
"""

# A number that each report must hold, worked by hand.
EXAMPLES = [
    ("ExampleMannWhitney", "Mann-Whitney Test Results for:", 1 / 70),  # one of the 70 ways to share 8 ranks
    ("ExampleWilcoxon", "Wilcoxon Paired-Sample Test Results for:", 0.25),  # two of 16 signs, in both tails
    ("ExampleSpearman", "Spearman Rank Correlation Results for:", 0.9),  # 1 - 6 * 2 / 120
    ("ExampleSign", "Sign Test Results for:", 0.375),  # (1 + 5) / 32, in both tails
    ("ExampleMedian", "Mood Median Test Results for:", "Grand Median = 6.5"),
    ("ExampleFriedman", "Friedman Test Results for:", 6.5),  # rank sums 4, 11, 9
    ("ExampleKruskalWallis", "Kruskal-Wallis Test Results for:", 7.2),  # rank sums 6, 15, 24
    ("ExampleRuns", "Wald-Wolfowitz Runs Test Results for:", 5),  # as many as expected
]


def is_there(wanted, cells):
    if isinstance(wanted, str):
        return wanted in cells
    return any(isinstance(cell, float) and abs(cell - wanted) < 1e-12 for cell in cells)


class MacroModule(TestCase):

    @classmethod
    def setUpClass(cls):
        cls.office = cls.enterClassContext(Office())
        cls.document = cls.office.open(MacroExecutionMode=4)
        libraries = cls.document.BasicLibraries
        if not libraries.hasByName("Standard"):
            libraries.createLibrary("Standard")
        libraries.loadLibrary("Standard")
        source = SURROUNDINGS + MODULE.read_text(encoding="ascii") + CALLS
        libraries.getByName("Standard").insertByName("Module", source)
        libraries.VBACompatibilityMode = True

    @classmethod
    def tearDownClass(cls):
        cls.document.close(True)

    def call(self, name, *arguments):
        script = self.document.getScriptProvider().getScript(
            f"vnd.sun.star.script:Standard.Module.{name}?language=Basic&location=document")
        return script.invoke(arguments, (), ())[0]

    def test_each_example_comes_to_its_report_on_a_sheet_of_its_own(self):
        for name, title, number in EXAMPLES:
            with self.subTest(name=name):
                before = set(self.document.Sheets.ElementNames)
                self.call(name)
                (added,) = set(self.document.Sheets.ElementNames) - before
                self.assertEqual(self.call("Told"), "")
                cells = [cell for row in cells_of(self.document.Sheets.getByName(added)) for cell in row]
                self.assertIn(title, cells)
                self.assertTrue(is_there(number, cells), cells)

    def test_an_address_names_its_sheet_in_quotes(self):
        self.assertEqual(self.call("AddressIn", "It's one"), "'It''s one'!$B$2:$C$3")

    def test_bare_numbers_get_words_and_other_errors_keep_theirs(self):
        self.assertEqual(self.call("WordsFor", -2147216493), "There is no data range.")
        self.assertEqual(self.call("WordsFor", 1004), "its own words")


if __name__ == "__main__":
    unittest.main()
