' Drives the registered server as a macro would, on a peer application in this process.
Option Explicit
Dim application, request, overWrite

Sub Fail(what)
    WScript.Echo "FAILED: " & what
    WScript.Quit 1
End Sub

Sub Expect(what, found, wanted)
    If VarType(found) <> VarType(wanted) And Not (IsNumeric(found) And IsNumeric(wanted)) Then
        Fail what & ": " & TypeName(found) & " instead of " & TypeName(wanted)
    End If
    If found <> wanted Then Fail what & ": """ & found & """ instead of """ & wanted & """"
End Sub

' What the last statement came to.
Sub ExpectError(what, number, source, description)
    Dim found
    found = Err.Number & "|" & Err.Source & "|" & Err.Description
    Err.Clear
    If found <> number & "|" & source & "|" & description Then
        Fail what & ": """ & found & """ instead of """ & number & "|" & source & "|" & description & """"
    End If
End Sub

Sub NewRequest(method)
    Set request = CreateObject("TBVNonPara.clsNonPara")
    request.Method = method
    request.Headers = True
End Sub

Sub ExpectReport(method, y, x, title)
    NewRequest method
    request.Tails = 0
    request.OutputDescriptives = True
    request.IgnoreTies = True
    request.YRange = y
    request.XRange = x
    request.OutputRange = "Data!J1"
    request.Results True
    Expect title, application.Range("Data!J1").Value, title
End Sub

Set application = CreateObject("TBVPeer.InProcess")
application.AddSheet "Data"
Dim rows, row, column
rows = Array(Array("a", "b", "s", "g"), Array(1, 4.5, 1, 1), Array(2, 5, -1, 1), Array(3.5, 6, 1, 2), _
             Array(3, 2.5, 0, 2), Array(5, 9, 1, 2))
For row = 0 To 5
    For column = 0 To 3
        application.Range("Data!A1").Cells(row + 1, column + 1).Value = rows(row)(column)
    Next
Next

' Without an application the settings hold and the ranges say what is missing.
NewRequest 0
On Error Resume Next
request.YRange = "Data!A1:A6"
Expect "no application", Err.Number, -2147216444
If InStr(Err.Description, "macro") = 0 Then Fail "no application: " & Err.Description
Err.Clear
On Error GoTo 0

Expect "hook", application.Hook, 0

' Each of the eight tests to a report.
ExpectReport 0, "Data!A1:A6", "Data!B1:B6", "Mann-Whitney Test Results for:"
ExpectReport 1, "Data!A1:A6", "Data!B1:B6", "Wilcoxon Paired-Sample Test Results for:"
ExpectReport 2, "Data!A1:A6", "Data!B1:B6", "Spearman Rank Correlation Results for:"
ExpectReport 3, "Data!A1:A6", "Data!B1:B6", "Sign Test Results for:"
ExpectReport 4, "Data!A1:B6", "", "Mood Median Test Results for:"
ExpectReport 5, "Data!A1:C6", "", "Friedman Test Results for:"
ExpectReport 6, "Data!A1:B6", "", "Kruskal-Wallis Test Results for:"
ExpectReport 7, "Data!D1:D6", "", "Wald-Wolfowitz Runs Test Results for:"

' The optional argument in every form that a script has.
Dim occupied
occupied = -2147216473
NewRequest 0
request.YRange = "Data!A1:A6"
request.XRange = "Data!B1:B6"
request.OutputRange = "Data!J1"
On Error Resume Next
request.Results
Expect "left out", Err.Number, occupied
Expect "left out", Err.Source, "Line 0 in TBVNonPara.clsNonPara.Results"
Err.Clear
request.Results False
Expect "False", Err.Number, occupied
Err.Clear
overWrite = False
request.Results overWrite
Expect "a variable that is False", Err.Number, occupied
Err.Clear
overWrite = True
request.Results overWrite
Expect "a variable that is True", Err.Number, 0
request.Results (overWrite)
Expect "a value that is True", Err.Number, 0
request.Results 1
Expect "a number", Err.Number, 0
request.Results True, True
Expect "too many arguments", Err.Number, 450
Err.Clear
Dim read
read = request.Method
Expect "reading", Err.Number, 438
Err.Clear
request.Engine = 1
Expect "another member", Err.Number, 438
Err.Clear

' The errors of the settings and of a run.
Const inResults = "Line 0 in TBVNonPara.clsNonPara.Results"
request.Method = "Mann"
Expect "a text for a number", Err.Number, 13
Err.Clear
request.Method = 8
ExpectError "a method outside the list", 0, "", ""
request.Method = -1
ExpectError "a method below the list", 0, "", ""
request.YRange = ""
ExpectError "YRange empty", -2147216493, "", ""
request.YRange = "Nowhere!A1"
ExpectError "YRange", -2147216495, "", ""
request.XRange = "Nowhere!A1"
ExpectError "XRange", -2147216494, "", ""
request.OutputRange = "Nowhere!A1"
ExpectError "OutputRange", -2147216503, "", ""
request.Method = 0
request.YRange = "Data!A1:B6"
ExpectError "two columns of data", -2147216452, "", ""
request.XRange = "Data!A1:B6"
ExpectError "two columns of the second", -2147216451, "", ""
request.Method = 6
request.YRange = "Data!A1:A6"
ExpectError "one group", -2147216456, "", ""

NewRequest 0
request.Results
ExpectError "no data", -2147216493, inResults, ""
request.YRange = "Data!A1:A6"
request.Results
ExpectError "no second range", -2147216492, inResults, ""
request.Method = 1
request.XRange = "Data!B1:B5"
request.Results
ExpectError "unequal pairs", -2147216486, inResults, ""
NewRequest 7
request.YRange = "Data!A1:A2"
request.Results
ExpectError "one row", -2147216454, inResults, ""
NewRequest 3
request.YRange = "Data!A1:A6"
request.Results
ExpectError "codes", -2147215504, inResults, ""
NewRequest 8
request.YRange = "Data!A1:A6"
request.Results
ExpectError "no report", 91, inResults, "Object variable or With block variable not set"
On Error GoTo 0

' Everything is let go of; what is left is the application and the range that was asked for last.
Set request = Nothing
application.Unhook
If application.Objects > 3 Then Fail application.Objects & " objects are left"
WScript.Echo "passed"
