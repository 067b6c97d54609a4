' SPDX-License-Identifier: Apache-2.0
' Shows every element of the invoices of an audit file, where it stands, and whatever the records of the file cannot hold.
' Usage: cscript ScanFile.vbs FILE.xml
Option Explicit

Dim file, entity, element, problem
Set file = CreateObject("ZevoAdapters11.AuditFileScanner")
file.AuditFileName = WScript.Arguments(0)
Check file.OpenAuditFile

' Behind the last record there may be problems too.
Do
  Check file.ReadNext(entity)
  If file.Kind = "Invoice" Then
    WScript.Echo file.TextOf("InvoiceNo") & " is signed " & file.TextOf("Hash")
    If IsNull(file.TextOf("TransactionID")) Then WScript.Echo "  and tells no transaction"
    For Each element In file.Elements
      WScript.Echo element.Place.Line & ":" & element.Place.Column & Space(2 * element.Depth + 1) & element.Name & " " & _
        element.Text
    Next
  End If
  For Each problem In file.Problems
    WScript.Echo problem.Fault & " at " & problem.Path & ": " & problem.Description(1)
  Next
Loop Until entity Is Nothing
Check file.CloseAuditFile

Sub Check(succeeded)
  If succeeded Then Exit Sub
  WScript.Echo file.AuditException.Source & ": " & file.AuditException.Description & " [" & file.AuditException.Number & "]"
  WScript.Quit 1
End Sub
