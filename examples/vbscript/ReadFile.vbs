' SPDX-License-Identifier: Apache-2.0
' Lists the customers and the invoices of an audit file. Usage: cscript ReadFile.vbs FILE.xml
Option Explicit

Dim file, customer, invoice, line
Set file = CreateObject("ZevoAdapters11.AuditFileReader")
file.AuditFileName = WScript.Arguments(0)
Check file.OpenAuditFile
WScript.Echo file.Customers & " customers, " & file.Invoices & " invoices"

' The same variable is read into again and again, until nothing is left.
Check file.ReadCustomer(customer)
Do Until customer Is Nothing
  WScript.Echo customer.CustomerID & ": " & customer.CompanyName & ", " & customer.BillingAddress.City
  Check file.ReadCustomer(customer)
Loop

Check file.ReadInvoice(invoice)
Do Until invoice Is Nothing
  WScript.Echo invoice.InvoiceNo & " of " & invoice.InvoiceDate & " to " & invoice.CustomerID
  For Each line In invoice.Line
    WScript.Echo "  " & line.LineNumber & " " & line.ProductDescription & ": " & line.Quantity & " " & line.UnitOfMeasure
  Next
  Check file.ReadInvoice(invoice)
Loop
Check file.CloseAuditFile

Sub Check(succeeded)
  If succeeded Then Exit Sub
  WScript.Echo file.AuditException.Source & ": " & file.AuditException.Description & " [" & file.AuditException.Number & "]"
  WScript.Quit 1
End Sub
