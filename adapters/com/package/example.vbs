' Double-clicked, this says whether TBVNonPara.clsNonPara can be created on this machine, and what to do next.
' In the application itself the object is used from a module: import TBVNonPara.bas and run one of its examples.
Option Explicit
Dim request, told
told = "TBVNonPara.clsNonPara is not registered. Run register.cmd in this folder, then try again."
On Error Resume Next
Set request = CreateObject("TBVNonPara.clsNonPara")
If Err.Number = 0 Then
    request.Method = 0                    ' tbvNPMannU; settings need no application
    request.YRange = "A1:A9"              ' addresses do
    told = "TBVNonPara.clsNonPara is registered. It works inside the spreadsheet application: open a workbook there, " & _
           "import TBVNonPara.bas from this folder into its macros and run ExampleMannWhitney."
    If Err.Number <> 0 Then told = told & vbCrLf & vbCrLf & "(Here it says: " & Err.Description & ")"
    Err.Clear
    CreateObject("TBVNonPara.clsNonParaDetails").Confidence = 95
    If Err.Number = 0 Then told = told & vbCrLf & vbCrLf & "TBVNonPara.clsNonParaDetails is registered, too."
End If
On Error GoTo 0
WScript.Echo told
