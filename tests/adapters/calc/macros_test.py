"""A client in Basic, with and without VBA support: each of the eight tests, and errors as a macro sees them."""

import unittest

from cases import EIGHT_TESTS, ERRORS, OBJECT_ERROR, holds, open_data
from office import Office, TestCase

# One request; the answer is what the macro was told of an error, or nothing.
MACRO = """
Function Analyse(test, firstRange, secondRange, place) As String
    Dim request As Object
    On Error GoTo Failed
    request = CreateUnoService("TBVNonPara.clsNonPara")
    request.Method = test
    request.Headers = True
    request.OutputDescriptives = True
    If firstRange <> "-" Then request.YRange = firstRange
    If secondRange <> "-" Then request.XRange = secondRange
    If place <> "-" Then request.OutputRange = place
    request.Results
    Analyse = ""
    Exit Function
Failed:
    Analyse = Err & "|" & Error$
End Function

Function Widths(test) As String
    Dim request As Object, narrow As Integer, whole As Long, wide As Double
    narrow = test : whole = test : wide = test
    request = CreateUnoService("TBVNonPara.clsNonPara")
    request.Method = narrow : request.Method = whole : request.Method = wide
    request.Method = TBVNonPara.TBVNPMethod.tbvNPKWallis
    request.Method = CStr(test)
    request.YRange = "Data!D1:D7"
    request.Headers = True
    request.Results
    Widths = ""
End Function

Function Refuses(given) As String
    Dim request As Object
    On Error GoTo Failed
    request = CreateUnoService("TBVNonPara.clsNonPara")
    request.Method = given
    Refuses = ""
    Exit Function
Failed:
    Refuses = Err & "|" & Error$
End Function

Function Forms(dummy) As String
    Dim request As Object
    request = CreateUnoService("TBVNonPara.clsNonPara")
    request.Headers = True
    request.YRange = "Data!A1:A7"
    request.XRange = "Data!B1:B7"
    request.OutputRange = "Data!Q1"
    request.Results
    request.Results(True)
    request.Results OverWrite:=True
    request.Results(OverWrite:=True)
    On Error GoTo Failed
    request.Results()
    Forms = "not refused"
    Exit Function
Failed:
    Forms = Err & "|" & Error$
End Function

Function Reading(dummy) As String
    Dim request As Object
    request = CreateUnoService("TBVNonPara.clsNonPara")
    Reading = TypeName(request.Method)
End Function
"""


class PlainMacro(TestCase):
    source = MACRO

    @classmethod
    def setUpClass(cls):
        cls.office = cls.enterClassContext(Office())
        libraries = cls.office.create("com.sun.star.script.ApplicationScriptLibraryContainer")
        libraries.loadLibrary("Standard")
        libraries.getByName("Standard").insertByName("Client", cls.source)

    def setUp(self):
        self.document = open_data(self.office)

    def tearDown(self):
        self.document.close(True)

    def call(self, function, *arguments):
        providers = self.office.create("com.sun.star.script.provider.MasterScriptProviderFactory")
        script = providers.createScriptProvider("").getScript(
            f"vnd.sun.star.script:Standard.Client.{function}?language=Basic&location=application")
        return script.invoke(arguments, (), ())[0]

    def test_runs_each_of_the_eight_tests(self):
        for method, title, first, second, probability in EIGHT_TESTS:
            with self.subTest(title=title):
                self.assertEqual(self.call("Analyse", method, first, second, "-"), "")
                sheets = self.document.Sheets
                self.assertTrue(holds(sheets.getByIndex(sheets.Count - 1), title, probability))

    def test_is_told_every_error_as_error_440_with_number_and_source(self):
        for what, number, source, method, *addresses in ERRORS:
            with self.subTest(what=what):
                told = self.call("Analyse", method, *("-" if a is None else a for a in addresses))
                basic, text = told.split("|", 1)
                self.assertEqual(basic, "440")
                self.assertIn(f"Error {number}: ", text)
                self.assertIn(source, text)

    def test_may_pass_numbers_of_every_width_and_constants(self):
        self.assertEqual(self.call("Widths", 3), "")

    def test_is_refused_a_text_for_a_number(self):
        number, text = self.call("Refuses", "abc").split("|", 1)
        self.assertEqual(number, "440")
        self.assertIn("Error 13: Type mismatch", text)

    def test_may_write_the_call_in_every_form(self):
        number, text = self.call("Forms", 0).split("|", 1)
        self.assertEqual(number, "440")
        self.assertIn(str(OBJECT_ERROR + 5031), text)

    def test_reads_nothing_from_a_property(self):
        self.assertEqual(self.call("Reading", 0), "Empty")


class MacroWithVba(PlainMacro):
    source = "Option VBASupport 1\n" + MACRO


if __name__ == "__main__":
    unittest.main()
