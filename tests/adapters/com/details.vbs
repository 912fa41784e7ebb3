' Drives the class of the details as a macro would, on a peer application in this process.
Option Explicit
Dim application

Sub Fail(what)
    WScript.Echo "FAILED: " & what
    WScript.Quit 1
End Sub

Sub Expect(what, found, wanted)
    If found <> wanted Then Fail what & ": """ & found & """ instead of """ & wanted & """"
End Sub

Sub ExpectNear(what, found, wanted)
    If Abs(found - wanted) > 1E-12 Then Fail what & ": " & found & " instead of " & wanted
End Sub

' "Student" (1908), ten patients after two drugs.
Set application = CreateObject("TBVPeer.InProcess")
application.AddSheet "Data"
Dim rows, row, column
rows = Array(Array("Drug1", "Drug2"), Array(0.7, 1.9), Array(-1.6, 0.8), Array(-0.2, 1.1), Array(-1.2, 0.1), _
             Array(-0.1, -0.1), Array(3.4, 4.4), Array(3.7, 5.5), Array(0.8, 1.6), Array(0, 4.6), Array(2, 3.4))
For row = 0 To 10
    For column = 0 To 1
        application.Range("Data!A1").Cells(row + 1, column + 1).Value = rows(row)(column)
    Next
Next
Expect "hook", application.Hook, 0

Dim details, larger, told
Set details = CreateObject("TBVNonPara.clsNonParaDetails")
details.Method = 0                          ' before YRange, which is checked against it
details.Headers = True
details.YRange = "Data!A1:A11"
details.XRange = "Data!B1:B11"
details.Confidence = 90
details.Calculate
larger = details.Value("effect.superiority")
told = "Drug1 is larger in " & larger * 100 & " % of the pairs, P = " & details.Value("p.exact.two")
If IsEmpty(details.Value("robust.t")) Then told = told & "; the samples are separated"
details.WriteTo "Data!E1", True             ' without a place: to OutputRange or to a sheet of its own

' 25.5 of 100 pairs, and 12,160 of the 184,756 ways to deal twenty ranks.
ExpectNear "superiority", larger, 0.255
ExpectNear "P", details.Value("p.exact.two"), 12160 / 184756
Expect "confidence", details.Value("level"), 0.9
If InStr(told, "25.5 %") = 0 Or InStr(told, "separated") <> 0 Then Fail told
Expect "title", application.Range("Data!E1").Value, "Details"
Expect "source", application.Range("Data!E2").Value, "Data = Data!$A$1:$A$11, Data!$B$1:$B$11"
Expect "no sheet is left", application.Worksheets.Count, 1
If InStr(details.Text, "Drug2 tends to be larger than Drug1") = 0 Then Fail details.Text
If InStr(details.Json, """mann-whitney""") = 0 Then Fail details.Json

' A sheet of its own.
details.WriteTo
Expect "two sheets", application.Worksheets.Count, 2
Expect "sheet", application.Range("Details!A1").Value, "Details"

' What went wrong.
On Error Resume Next
details.WriteTo "Data!E1"
Expect "occupied", Err.Number, -2147216473
Expect "occupied", Err.Source, "Line 0 in TBVNonPara.clsNonParaDetails.WriteTo"
Err.Clear
told = details.Value("effect.shft")
Expect "wrong name", Err.Number, 5
Expect "wrong name", Err.Source, "Line 0 in TBVNonPara.clsNonParaDetails.GetValue"
Err.Clear
told = details.Value
Expect "no name", Err.Number, 449
Err.Clear
details.Text = "x"
Expect "setting what is read", Err.Number, 438
Err.Clear
details.Adjust = "sidak"
Expect "adjustment", Err.Number, 5
Err.Clear
details.Control = "Drug1"
details.Calculate
Expect "control", Err.Source, "Line 0 in TBVNonPara.clsNonParaDetails.Calculate"
Err.Clear
told = details.Value("effect.superiority")
Expect "gone after an error", Err.Number, 91
Err.Clear
On Error GoTo 0

Set details = Nothing
application.Unhook
If application.Objects > 3 Then Fail application.Objects & " objects are left"
WScript.Echo "passed"
