' SPDX-License-Identifier: Apache-2.0
' The little of a worksheet of Excel that an example uses, for scripts of vba-to-vbs. It has a title and the invoices FT A/1,
' FT A/2 and FT A/3, of which the first two are marked from before. Behind the script, it tells its marks in a line.
Dim theSheet
Function ActiveSheet()
  If IsEmpty(theSheet) Then Set theSheet = New Worksheet
  Set ActiveSheet = theSheet
End Function

Class Worksheet
  Private cells_

  Private Sub Class_Initialize()
    Dim row, cell
    Set cells_ = CreateObject("Scripting.Dictionary")
    For row = 1 To 4
      Set cell = New FirstCell
      cell.Value = "FT A/" & (row - 1)
      If row = 2 Or row = 3 Then
        cell.AddComment "before"
        cell.Interior.Color = RGB(1, 2, 3)
      End If
      cells_.Add row, cell
    Next
    Cells(1, 1).Value = "InvoiceNo"
  End Sub

  Public Function Cells(row, column)
    If column <> 1 Then Err.Raise 9
    Set Cells = cells_(row)
  End Function
  Public Property Get UsedRange()
    Set UsedRange = Me
  End Property
  Public Property Get Rows()
    Set Rows = Me
  End Property
  Public Property Get Count()
    Count = 4
  End Property

  Public Sub Show()
    Dim row, shown
    For row = 1 To 4
      If row > 1 Then shown = shown & "; "
      shown = shown & row & ": " & Cells(row, 1).Marks
    Next
    WScript.Echo shown
  End Sub
End Class

' The first cell of a row, which is the row and its interior too.
Class FirstCell
  Public Value
  Public Color
  Public Comment

  Private Sub Class_Initialize()
    Set Comment = Nothing
  End Sub
  Public Property Get EntireRow()
    Set EntireRow = Me
  End Property
  Public Property Get Interior()
    Set Interior = Me
  End Property
  Public Property Let ColorIndex(index)
    If index <> -4142 Then Err.Raise 5
    Color = Empty
  End Property
  Public Sub ClearComments()
    Set Comment = Nothing
  End Sub
  ' As there, a cell that has a comment takes no other.
  Public Sub AddComment(text)
    If Not Comment Is Nothing Then Err.Raise 1004
    Set Comment = New CellComment
    Comment.Text = text
  End Sub

  Public Function Marks()
    Marks = "plain"
    If Not IsEmpty(Color) Then Marks = Hex(Color)
    If Not Comment Is Nothing Then Marks = Marks & ", " & Replace(Comment.Text, vbLf, " | ")
  End Function
End Class

Class CellComment
  Public Text
End Class

ActiveSheet.Show
