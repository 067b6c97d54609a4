' SPDX-License-Identifier: Apache-2.0
' Exports the first invoices of the sample company and checks the file against the schema.
' Usage: cscript ExportInvoices.vbs FILE.xml
Option Explicit

' Script hosts do not see the enumerations of the type library.
Const tabF = 92, ptP = 51, itFT = 41, isN = 81

Dim file
Set file = CreateObject("ZevoAdapters11.AuditFile")
file.AuditFileName = WScript.Arguments(0)
Check file.CreateAuditFile

WriteHeader
WriteCustomer "C0001", "Restaurante O Púcaro Rachado, Lda.", "544722019", "Rua Direita, 41", "Viseu", "3500-115"
WriteCustomer "C0020", "Estalagem do Covão, Lda.", "549438696", "Estrada das Penhas, km 3", "Covilhã", "6200-073"
WriteProduct "M005", "Marmelada caseira, tigela 400 g"
WriteProduct "Q001", "Queijo de ovelha curado amanteigado"
WriteProduct "V003", "Vinho branco Dão ""Carqueja Brava"" 2011 0,75 L"
WriteProduct "V009", "Aguardente vínica velha 0,50 L"
WriteTaxTable

' The totals are added up as the invoices are written, and go into the file at the end.
Dim totals, invoice
Set totals = CreateObject("ZevoAdapters11.SalesInvoices")
Check file.CreateSalesInvoices(totals)

Set invoice = NewInvoice("FT A/1", "2012-01-10", "2012-01-10T12:38:54", "C0001", "109.30", "475.20")
AddLine invoice, 1, "M005", "Marmelada caseira, tigela 400 g", "72", "UN", "3.10", "0", "223.20", "NOR", 23
AddLine invoice, 2, "V009", "Aguardente vínica velha 0,50 L", "15", "UN", "16.80", "0", "252.00", "NOR", 23
Check file.CreateInvoice(invoice, totals)

Set invoice = NewInvoice("FT A/2", "2012-01-11", "2012-01-11T09:32:03", "C0020", "90.36", "987.32")
AddLine invoice, 1, "V003", "Vinho branco Dão ""Carqueja Brava"" 2011 0,75 L", "144", "UN", "3.25", "23.40", "444.60", "INT", 13
AddLine invoice, 2, "Q001", "Queijo de ovelha curado amanteigado", "38.6", "KG", "14.80", "28.56", "542.72", "RED", 6
Check file.CreateInvoice(invoice, totals)

Check file.UpdateSalesInvoices(totals)
Check file.UpdateAuditFile
Check file.CloseAuditFile
Check file.ValidateAuditFile
WScript.Echo totals.NumberOfEntries & " invoices are in " & file.AuditFileName & ", which the schema accepts."

' Every operation tells whether it succeeded; what went wrong is in AuditException.
Sub Check(succeeded)
  If succeeded Then Exit Sub
  WScript.Echo file.AuditException.Source & ": " & file.AuditException.Description & " [" & file.AuditException.Number & "]"
  WScript.Quit 1
End Sub

' An amount written with a point, whatever the regional settings.
Function Amount(text)
  Dim point
  point = InStr(text, ".")
  If point = 0 Then
    Amount = CCur(text)
  Else
    Amount = CCur(Left(text, point - 1) & Mid(text, point + 1)) / 10 ^ (Len(text) - point)
  End If
End Function

Sub WriteHeader()
  Dim header
  Set header = CreateObject("ZevoAdapters11.Header")
  header.CompanyID = "Viseu 548807523"
  header.TaxRegistrationNumber = "548807523"
  header.TaxAccountingBasis = tabF
  header.CompanyName = "Alforge & Candeia – Produtos Regionais, Lda."
  header.BusinessName = "Alforge & Candeia"
  header.CompanyAddress.AddressDetail = "Zona Industrial de Coimbrões, Lote 27"
  header.CompanyAddress.City = "Viseu"
  header.CompanyAddress.PostalCode = "3500-618"
  header.FiscalYear = "2012"
  header.StartDate = "2012-01-01"
  header.EndDate = "2012-12-31"
  header.TaxEntity = "Global"
  header.SoftwareCertificateNumber = "0"
  header.ProductID = "Exporta/Exemplo"
  header.ProductVersion = "1.0"
  Check file.CreateHeader(header)
End Sub

Sub WriteCustomer(id, name, taxID, address, city, postalCode)
  Dim customer
  Set customer = CreateObject("ZevoAdapters11.Customer")
  customer.CustomerID = id
  customer.AccountID = "Desconhecido"
  customer.CustomerTaxID = taxID
  customer.CompanyName = name
  customer.BillingAddress.AddressDetail = address
  customer.BillingAddress.City = city
  customer.BillingAddress.PostalCode = postalCode
  Check file.CreateCustomer(customer)
End Sub

Sub WriteProduct(code, description)
  Dim product
  Set product = CreateObject("ZevoAdapters11.Product")
  product.ProductType = ptP
  product.ProductCode = code
  product.ProductDescription = description
  product.ProductNumberCode = code
  Check file.CreateProduct(product)
End Sub

Sub WriteTaxTable()
  Dim table
  Set table = CreateObject("ZevoAdapters11.TaxTable")
  AddRate table, "NOR", "Taxa normal – Continente", 23
  AddRate table, "INT", "Taxa intermédia – Continente", 13
  AddRate table, "RED", "Taxa reduzida – Continente", 6
  Check file.CreateTaxTable(table)
End Sub

Sub AddRate(table, code, description, percentage)
  Dim entry
  Set entry = CreateObject("ZevoAdapters11.TaxTableEntry")
  entry.TaxCountryRegion = "PT"
  entry.TaxCode = code
  entry.Description = description
  entry.TaxPercentage = percentage
  table.TaxTableEntry.Add entry
End Sub

Function NewInvoice(number, day, entered, customerID, tax, net)
  Dim invoice
  Set invoice = CreateObject("ZevoAdapters11.Invoice")
  invoice.InvoiceNo = number
  invoice.InvoiceStatus = isN
  invoice.Hash = "0"
  invoice.HashControl = "0"
  invoice.Period = "1"
  invoice.InvoiceDate = day
  invoice.InvoiceType = itFT
  invoice.SystemEntryDate = entered
  invoice.CustomerID = customerID
  invoice.DocumentTotals.TaxPayable = Amount(tax)
  invoice.DocumentTotals.NetTotal = Amount(net)
  invoice.DocumentTotals.GrossTotal = Amount(tax) + Amount(net)
  Set NewInvoice = invoice
End Function

' The credit is what is left of quantity by price when the discount is off.
Sub AddLine(invoice, number, product, description, quantity, unit, price, discount, credit, taxCode, percentage)
  Dim line, tax
  Set line = CreateObject("ZevoAdapters11.InvoiceLine")
  line.LineNumber = number
  line.ProductCode = product
  line.ProductDescription = description
  line.Quantity = Amount(quantity)
  line.UnitOfMeasure = unit
  line.UnitPrice = Amount(price)
  line.TaxPointDate = invoice.InvoiceDate
  line.Description = description
  line.CreditAmount = Amount(credit)
  line.SettlementAmount = Amount(discount)
  Set tax = CreateObject("ZevoAdapters11.Tax")
  tax.TaxCountryRegion = "PT"
  tax.TaxCode = taxCode
  tax.TaxPercentage = percentage
  Set line.Tax = tax
  invoice.Line.Add line
End Sub
