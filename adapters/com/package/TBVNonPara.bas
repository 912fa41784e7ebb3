Attribute VB_Name = "NonparametricTests"
Option Explicit

' Eight nonparametric tests for macros. Import this file into a workbook or an add-in and run one of the examples at
' its end: each makes a sheet of its own with data, runs a test on them and writes the report beside them.
'
' The object is created by its registration or, without one, from the folder of the workbook that holds this module:
' the folder must then hold TBVNonPara.dll and TBVNonPara.manifest. That folder, or the application, must also
' have tbv2007.xlam: reports are built on its sheet "Results".

' The tests, for Method.
Public Const tbvNPMannU As Long = 0
Public Const tbvNPWilcoxon As Long = 1
Public Const tbvNPSpearman As Long = 2
Public Const tbvNPSign As Long = 3
Public Const tbvNPMedian As Long = 4
Public Const tbvNPFriedman As Long = 5
Public Const tbvNPKWallis As Long = 6
Public Const tbvNPWWRuns As Long = 7

' The alternatives, for Tails.
Public Const tbvNPTwoTailed As Long = 0
Public Const tbvNPVar1GTVar2 As Long = 1
Public Const tbvNPVar1LTVar2 As Long = 2

' The errors, for Err.Number.
Public Const tbvNPBadOutputRange As Long = -2147216503
Public Const tbvNPBadYRange As Long = -2147216495
Public Const tbvNPBadXRange As Long = -2147216494
Public Const tbvNPNoYRange As Long = -2147216493
Public Const tbvNPNoXRange As Long = -2147216492
Public Const tbvNPUnequalPairs As Long = -2147216486
Public Const tbvNPTextInData As Long = -2147216484
Public Const tbvNPBooleanInData As Long = -2147216483
Public Const tbvNPErrorInData As Long = -2147216482
Public Const tbvNPBlankInData As Long = -2147216481
Public Const tbvNPNoData As Long = -2147216480
Public Const tbvNPOutputOffSheet As Long = -2147216474
Public Const tbvNPOutputOccupied As Long = -2147216473
Public Const tbvNPNoContingencyTable As Long = -2147216464
Public Const tbvNPTooFewGroups As Long = -2147216456
Public Const tbvNPTooFewRows As Long = -2147216454
Public Const tbvNPYRangeColumns As Long = -2147216452
Public Const tbvNPXRangeColumns As Long = -2147216451
Public Const tbvNPNoApplication As Long = -2147216444
Public Const tbvNPApplicationElsewhere As Long = -2147216443
Public Const tbvNPRunInProgress As Long = -2147216442
Public Const tbvNPInvalidSignSymbols As Long = -2147215504

' A new request, with the workbook open that its report is built in.
Public Function NewRequest() As Object
    OpenReportWorkbook ThisWorkbook.Path
    On Error Resume Next
    Set NewRequest = CreateObject("TBVNonPara.clsNonPara")
    On Error GoTo 0
    If NewRequest Is Nothing Then Set NewRequest = NewRequestFrom(ThisWorkbook.Path)
End Function

' A new request from the library in a folder, where nothing is registered.
Public Function NewRequestFrom(folder As String) As Object
    Dim context As Object
    Set context = CreateObject("Microsoft.Windows.ActCtx")
    context.Manifest = folder & "\TBVNonPara.manifest"
    Set NewRequestFrom = context.CreateObject("TBVNonPara.clsNonPara")
End Function

' Opens the workbook with the sheet "Results" from a folder, unless it or the older one is open.
Public Sub OpenReportWorkbook(folder As String)
    If IsOpen("tbv2007.xlam") Or IsOpen("Tabvance.xla") Then Exit Sub
    If Dir(folder & "\tbv2007.xlam") <> "" Then Workbooks.Open folder & "\tbv2007.xlam"
End Sub

Private Function IsOpen(bookName As String) As Boolean
    Dim book As Object
    On Error Resume Next
    Set book = Workbooks(bookName)
    On Error GoTo 0
    IsOpen = Not book Is Nothing
End Function

' A range as the text that YRange, XRange and OutputRange take: 'My sheet'!$A$1:$A$9, with its workbook in front when
' that is not the active one.
Public Function AddressFor(area As Object) As String
    Dim sheetName As String
    sheetName = area.Worksheet.Name
    If area.Worksheet.Parent.Name <> ActiveWorkbook.Name Then
        sheetName = "[" & area.Worksheet.Parent.Name & "]" & sheetName
    End If
    AddressFor = "'" & Replace(sheetName, "'", "''") & "'!" & area.Address
End Function

' What to tell the user of an error: the library's bare numbers in words, anything else as it came.
Public Function ErrorText(number As Long, description As String) As String
    Select Case number
        Case tbvNPBadOutputRange: ErrorText = "The place for the report is no cell of the workbook."
        Case tbvNPBadYRange: ErrorText = "The address of the data cannot be found."
        Case tbvNPBadXRange: ErrorText = "The address of the second range cannot be found."
        Case tbvNPNoYRange: ErrorText = "There is no data range."
        Case tbvNPNoXRange: ErrorText = "This test needs a second range."
        Case tbvNPUnequalPairs: ErrorText = "The two ranges differ in their number of rows."
        Case tbvNPTooFewGroups: ErrorText = "This test compares several groups; name two columns or more."
        Case tbvNPTooFewRows: ErrorText = "There are fewer than two rows of data."
        Case tbvNPYRangeColumns: ErrorText = "This test takes one column of data."
        Case tbvNPXRangeColumns: ErrorText = "The second range has several columns."
        Case tbvNPInvalidSignSymbols: ErrorText = "A cell is neither 1, -1 nor 0."
        Case 91: ErrorText = "The workbook tbv2007.xlam is not open, or there is no such test."
        Case Else: ErrorText = description
    End Select
End Function

' Runs a request and says what went wrong, if anything did.
Private Sub RunAndTell(request As Object)
    Dim number As Long, description As String
    On Error Resume Next
    request.Results False
    number = Err.Number
    description = Err.Description
    On Error GoTo 0
    If number <> 0 Then MsgBox "Error " & number & ": " & ErrorText(number, description)
End Sub

' A new sheet of the active workbook with columns of data from A1 on: a label each, and values.
Private Function NewData(labels As Variant, rows As Variant) As Object
    Dim row As Long, column As Long
    Set NewData = ActiveWorkbook.Worksheets.Add
    For column = 0 To UBound(labels)
        NewData.Cells(1, column + 1).Value = labels(column)
        For row = 0 To UBound(rows)
            NewData.Cells(row + 2, column + 1).Value = rows(row)(column)
        Next
    Next
End Function

' A request on columns of such a sheet, with descriptive statistics; the report goes to H1.
Private Function NewExample(method As Long, data As Object, first As String, second As String) As Object
    Set NewExample = NewRequest()
    NewExample.Method = method          ' before YRange, which is checked against it
    NewExample.Headers = True
    NewExample.OutputDescriptives = True
    NewExample.YRange = AddressFor(data.Range(first))
    If second <> "" Then NewExample.XRange = AddressFor(data.Range(second))
    NewExample.OutputRange = AddressFor(data.Range("H1"))
End Function

Public Sub ExampleMannWhitney()
    Dim data As Object, request As Object
    Set data = NewData(Array("Old", "New"), Array(Array(14, 21), Array(17, 25), Array(11, 19), Array(16, 23)))
    Set request = NewExample(tbvNPMannU, data, "A1:A5", "B1:B5")
    request.Tails = tbvNPVar1LTVar2     ' the first sample is below the second
    RunAndTell request
End Sub

Public Sub ExampleWilcoxon()
    Dim data As Object, request As Object
    Set data = NewData(Array("Before", "After"), _
                       Array(Array(140, 132), Array(155, 155), Array(148, 141), Array(162, 153), Array(151, 152)))
    Set request = NewExample(tbvNPWilcoxon, data, "A1:A6", "B1:B6")
    request.IgnoreTies = True           ' leave the pair without a difference out
    RunAndTell request
End Sub

Public Sub ExampleSpearman()
    Dim data As Object
    Set data = NewData(Array("Age", "Height"), _
                       Array(Array(2, 86), Array(4, 102), Array(6, 116), Array(8, 114), Array(10, 138)))
    RunAndTell NewExample(tbvNPSpearman, data, "A1:A6", "B1:B6")
End Sub

Public Sub ExampleSign()
    Dim data As Object
    Set data = NewData(Array("Change"), Array(Array(1), Array(1), Array(-1), Array(0), Array(1), Array(1)))
    RunAndTell NewExample(tbvNPSign, data, "A1:A7", "")
End Sub

Public Sub ExampleMedian()
    Dim data As Object
    Set data = NewData(Array("North", "South"), _
                       Array(Array(3, 9), Array(5, 8), Array(4, 2), Array(6, 11), Array(7, 12)))
    RunAndTell NewExample(tbvNPMedian, data, "A1:B6", "")
End Sub

Public Sub ExampleFriedman()
    Dim data As Object
    Set data = NewData(Array("Red", "Green", "Blue"), _
                       Array(Array(3, 5, 4), Array(2, 6, 5), Array(1, 4, 3), Array(4, 5, 6)))
    RunAndTell NewExample(tbvNPFriedman, data, "A1:C5", "")
End Sub

Public Sub ExampleKruskalWallis()
    Dim data As Object
    Set data = NewData(Array("Low", "Middle", "High"), Array(Array(1, 4, 9), Array(2, 6, 8), Array(3, 5, 7)))
    RunAndTell NewExample(tbvNPKWallis, data, "A1:C4", "")
End Sub

Public Sub ExampleRuns()
    Dim data As Object
    Set data = NewData(Array("Side"), Array(Array("left"), Array("left"), Array("right"), Array("left"), _
                                            Array("right"), Array("right"), Array("right"), Array("left")))
    RunAndTell NewExample(tbvNPWWRuns, data, "A1:A9", "")
End Sub
