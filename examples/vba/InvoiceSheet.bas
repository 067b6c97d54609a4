Attribute VB_Name = "InvoiceSheet"
' SPDX-License-Identifier: Apache-2.0
' Checks an audit file and marks what is wrong in the active worksheet of Excel, which has the numbers of the invoices in
' column A, from its second row on: a row is red where there is an error, yellow for a warning, blue for what is worth
' knowing, and a comment says what it is. Needs a reference to "Zevo Adapters 11" (Tools, References). In the Immediate
' window, where all that is of no row appears: CheckSheet "C:\Temp\saft.xml".
Option Explicit

Public Sub CheckSheet(ByVal path As String)
  Dim checker As AuditFileChecker
  Dim fault As Finding
  Dim rowOf As Object
  Dim worst As Object
  Dim marked As Long
  Set checker = New AuditFileChecker
  checker.AuditFileName = path
  checker.MostFindings = 0
  Check checker.CheckAuditFile, checker

  Set rowOf = ClearedRows()
  Set worst = CreateObject("Scripting.Dictionary")
  For Each fault In checker.Findings
    If fault.Kind = "Invoice" And rowOf.Exists(fault.Key) Then
      marked = marked + 1
      AddToComment ActiveSheet.Cells(rowOf(fault.Key), 1), fault.Rule & ": " & fault.Message
      If Not worst.Exists(fault.Key) Then worst.Add fault.Key, severityOff
      If fault.Severity > worst(fault.Key) Then
        worst(fault.Key) = fault.Severity
        ActiveSheet.Cells(rowOf(fault.Key), 1).EntireRow.Interior.Color = ColorOf(fault.Severity)
      End If
    Else
      Debug.Print fault.Rule & ": " & fault.Message
    End If
  Next
  Debug.Print checker.Findings.Count & " findings, " & marked & " of them in the sheet"
End Sub

' The rows by the invoices in them, without the marks of an earlier check.
Private Function ClearedRows() As Object
  Dim rowOf As Object
  Dim row As Long
  Dim number As String
  Set rowOf = CreateObject("Scripting.Dictionary")
  For row = 2 To ActiveSheet.UsedRange.Rows.Count
    ActiveSheet.Cells(row, 1).EntireRow.Interior.ColorIndex = xlNone
    ActiveSheet.Cells(row, 1).ClearComments
    number = ActiveSheet.Cells(row, 1).Value
    If number <> "" And Not rowOf.Exists(number) Then rowOf.Add number, row
  Next
  Set ClearedRows = rowOf
End Function

' An invoice may have several findings; a cell has one comment.
Private Sub AddToComment(ByVal cell As Object, ByVal text As String)
  Dim before As String
  If Not cell.Comment Is Nothing Then before = cell.Comment.Text & vbLf
  cell.ClearComments
  cell.AddComment before & text
End Sub

Private Function ColorOf(ByVal severity As Severities) As Long
  Select Case severity
    Case severityError
      ColorOf = RGB(255, 199, 206)
    Case severityWarning
      ColorOf = RGB(255, 235, 156)
    Case Else
      ColorOf = RGB(221, 235, 247)
  End Select
End Function

' Why an operation failed is in the AuditException of its object.
Private Sub Check(ByVal succeeded As Boolean, ByVal source As Object)
  If succeeded Then Exit Sub
  Err.Raise vbObjectError + 1, source.AuditException.Source, source.AuditException.Description
End Sub
