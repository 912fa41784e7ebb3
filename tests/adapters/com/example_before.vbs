' What stands before the example in its test: a peer application in the script's own process.
Option Explicit
Dim application
Set application = CreateObject("TBVPeer.InProcess")
application.AddSheet "Data"
application.Range("Data!A1").Value = "Before"
application.Range("Data!B1").Value = "After"
Dim number
For number = 1 To 3
    application.Range("Data!A1").Cells(number + 1, 1).Value = number
    application.Range("Data!B1").Cells(number + 1, 1).Value = number + 3
Next
application.Hook
CompareColumns
If application.Range("Data!D1").Value <> "Mann-Whitney Test Results for:" Then WScript.Quit 1
application.Unhook
WScript.Echo "passed"

