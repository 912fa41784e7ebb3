' Compares two columns of the sheet "Data", "Before" in column A and "After" in column B with their labels in row 1,
' and writes the report to D1. The object works for the application that it is created in: copy the procedure into
' a module of a workbook or of an add-in and run it there.

Sub CompareColumns()
    Dim request
    Set request = CreateObject("TBVNonPara.clsNonPara")
    request.Method = 0                    ' tbvNPMannU; set it before YRange
    request.Tails = 2                     ' tbvNPVar1LTVar2: the first sample is below the second
    request.Headers = True
    request.OutputDescriptives = True
    request.YRange = "Data!A1:A4"
    request.XRange = "Data!B1:B4"
    request.OutputRange = "Data!D1"

    On Error Resume Next
    request.Results False                 ' True replaces what the cells hold
    If Err.Number <> 0 Then
        WarnUser Err.Number & " in " & Err.Source & ": " & Err.Description
    End If
End Sub

Sub WarnUser(text)
    MsgBox text
End Sub
