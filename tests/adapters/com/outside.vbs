' The application and the object live in another process; the script reaches both from outside.
Option Explicit
Dim application, request
Set application = CreateObject("TBVPeer.OutOfProcess")
application.AddSheet "Data"
Dim row
For row = 1 To 3
    application.Range("Data!A1").Cells(row, 1).Value = row
    application.Range("Data!A1").Cells(row, 2).Value = row + 3
Next
application.Hook
Set request = application.CreateObject("TBVNonPara.clsNonPara")
request.Tails = 2
request.YRange = "Data!A1:A3"
request.XRange = "Data!B1:B3"
request.OutputRange = "Data!E1"
Dim overWrite
overWrite = True
request.Results overWrite
If application.Range("Data!E1").Value <> "Mann-Whitney Test Results for:" Then WScript.Quit 1
If application.Range("Data!E7").Value <> 9 Then WScript.Quit 1
If Abs(application.Range("Data!H7").Value - 0.05) > 1E-15 Then WScript.Quit 1

' Errors cross the processes whole.
On Error Resume Next
request.Results
If Err.Number <> -2147216473 Or Err.Source <> "Line 0 in TBVNonPara.clsNonPara.Results" Then WScript.Quit 1
If InStr(Err.Description, "Data!") = 0 Then WScript.Quit 1
Err.Clear

' Details by name, a member with and without its arguments.
On Error GoTo 0
Dim details
Set details = application.CreateObject("TBVNonPara.clsNonParaDetails")
details.YRange = "Data!A1:A3"
details.XRange = "Data!B1:B3"
details.OutputRange = "Data!J1"
details.Calculate
If Abs(details.Value("p.exact.two") - 0.1) > 1E-15 Then WScript.Quit 1
If Not IsEmpty(details.Value("robust.t")) Then WScript.Quit 1
details.WriteTo
details.WriteTo "Data!J1", overWrite
If application.Range("Data!J1").Value <> "Details" Then WScript.Quit 1
On Error Resume Next
details.WriteTo "Data!J1"
If Err.Number <> -2147216473 Or Err.Source <> "Line 0 in TBVNonPara.clsNonParaDetails.WriteTo" Then WScript.Quit 1
Err.Clear
Set details = Nothing

' An object of this process refuses the application of the other one.
application.Publish
Dim own
Set own = CreateObject("TBVNonPara.clsNonPara")
own.YRange = "Data!A1:A3"
If Err.Number <> -2147216443 Or InStr(Err.Description, "another process") = 0 Then WScript.Quit 1
Err.Clear
On Error GoTo 0
application.Withdraw
Set own = Nothing
Set request = Nothing
application.Unhook
Set application = Nothing
WScript.Echo "passed"
