Attribute VB_Name = "AuditFiles"
' SPDX-License-Identifier: Apache-2.0
' Exports the first invoices of the sample company, reads a file back, and looks through all of one. Needs a reference to
' "Zevo Adapters 11" (Tools, References). In the Immediate window: ExportInvoices "C:\Temp\saft.xml", and ReadFile or ScanFile
' with the same name.
Option Explicit

Private file As AuditFile

Public Sub ExportInvoices(ByVal path As String)
  Dim totals As SalesInvoices
  Dim sale As Invoice
  Set file = New AuditFile
  file.AuditFileName = path
  Check file.CreateAuditFile, file

  WriteHeader
  WriteCustomer "C0001", "Restaurante O Púcaro Rachado, Lda.", "544722019", "Rua Direita, 41", "Viseu", "3500-115"
  WriteCustomer "C0020", "Estalagem do Covão, Lda.", "549438696", "Estrada das Penhas, km 3", "Covilhã", "6200-073"
  WriteProduct "M005", "Marmelada caseira, tigela 400 g"
  WriteProduct "Q001", "Queijo de ovelha curado amanteigado"
  WriteProduct "V003", "Vinho branco Dão ""Carqueja Brava"" 2011 0,75 L"
  WriteProduct "V009", "Aguardente vínica velha 0,50 L"
  WriteTaxTable

  ' The totals are added up as the invoices are written, and go into the file at the end.
  Set totals = New SalesInvoices
  Check file.CreateSalesInvoices(totals), file

  Set sale = NewInvoice("FT A/1", "2012-01-10", "2012-01-10T12:38:54", "C0001", 109.3, 475.2)
  AddLine sale, 1, "M005", "Marmelada caseira, tigela 400 g", 72, "UN", 3.1, 0, 223.2, "NOR", 23
  AddLine sale, 2, "V009", "Aguardente vínica velha 0,50 L", 15, "UN", 16.8, 0, 252, "NOR", 23
  Check file.CreateInvoice(sale, totals), file

  Set sale = NewInvoice("FT A/2", "2012-01-11", "2012-01-11T09:32:03", "C0020", 90.36, 987.32)
  AddLine sale, 1, "V003", "Vinho branco Dão ""Carqueja Brava"" 2011 0,75 L", 144, "UN", 3.25, 23.4, 444.6, "INT", 13
  AddLine sale, 2, "Q001", "Queijo de ovelha curado amanteigado", 38.6, "KG", 14.8, 28.56, 542.72, "RED", 6
  Check file.CreateInvoice(sale, totals), file

  Check file.UpdateSalesInvoices(totals), file
  Check file.UpdateAuditFile, file
  Check file.CloseAuditFile, file
  Check file.ValidateAuditFile, file
  Debug.Print totals.NumberOfEntries & " invoices are in " & path & ", which the schema accepts."
End Sub

Public Sub ReadFile(ByVal path As String)
  Dim reader As AuditFileReader
  Dim buyer As Customer
  Dim sale As Invoice
  Dim item As InvoiceLine
  Set reader = New AuditFileReader
  reader.AuditFileName = path
  Check reader.OpenAuditFile, reader
  Debug.Print reader.Customers & " customers, " & reader.Invoices & " invoices"

  ' The same variable is read into again and again, until nothing is left. A record that cannot be read leaves something
  ' in it, too: a loop that does not look at the result may never end.
  Check reader.ReadCustomer(buyer), reader
  Do Until buyer Is Nothing
    Debug.Print buyer.CustomerID & ": " & buyer.CompanyName & ", " & buyer.BillingAddress.City
    Check reader.ReadCustomer(buyer), reader
  Loop

  Check reader.ReadInvoice(sale), reader
  Do Until sale Is Nothing
    Debug.Print sale.InvoiceNo & " of " & sale.InvoiceDate & " to " & sale.CustomerID
    For Each item In sale.Line
      Debug.Print "  " & item.LineNumber & " " & item.ProductDescription & ": " & item.Quantity & " " & item.UnitOfMeasure
    Next
    Check reader.ReadInvoice(sale), reader
  Loop
  Check reader.CloseAuditFile, reader
End Sub

' Lists the invoices with their signatures, and whatever the records of the file cannot hold.
Public Sub ScanFile(ByVal path As String)
  Dim scanner As AuditFileScanner
  Dim entity As Object
  Dim difference As Problem
  Dim records As Long
  Set scanner = New AuditFileScanner
  scanner.AuditFileName = path
  Check scanner.OpenAuditFile, scanner

  ' Behind the last record there may be problems too.
  Do
    Check scanner.ReadNext(entity), scanner
    If scanner.Kind <> "" Then records = records + 1
    If scanner.Kind = "Invoice" Then Debug.Print entity.InvoiceNo & " is signed " & entity.Hash
    For Each difference In scanner.Problems
      Debug.Print scanner.Kind & ": " & difference.Description
    Next
  Loop Until entity Is Nothing
  Debug.Print records & " records in " & scanner.BytesRead & " bytes"
  Check scanner.CloseAuditFile, scanner
End Sub

' Every operation tells whether it succeeded; what went wrong is in the AuditException of its object.
Private Sub Check(ByVal succeeded As Boolean, ByVal source As Object)
  If succeeded Then Exit Sub
  Err.Raise vbObjectError + 1, source.AuditException.Source, source.AuditException.Description
End Sub

Private Sub WriteHeader()
  Dim title As Header
  Set title = New Header
  title.CompanyID = "Viseu 548807523"
  title.TaxRegistrationNumber = "548807523"
  title.TaxAccountingBasis = tabF
  title.CompanyName = "Alforge & Candeia – Produtos Regionais, Lda."
  title.BusinessName = "Alforge & Candeia"
  title.CompanyAddress.AddressDetail = "Zona Industrial de Coimbrões, Lote 27"
  title.CompanyAddress.City = "Viseu"
  title.CompanyAddress.PostalCode = "3500-618"
  title.FiscalYear = "2012"
  title.StartDate = "2012-01-01"
  title.EndDate = "2012-12-31"
  title.TaxEntity = "Global"
  title.SoftwareCertificateNumber = "0"
  title.ProductID = "Exporta/Exemplo"
  title.ProductVersion = "1.0"
  Check file.CreateHeader(title), file
End Sub

Private Sub WriteCustomer(ByVal id As String, ByVal companyName As String, ByVal taxID As String, _
                          ByVal address As String, ByVal city As String, ByVal postalCode As String)
  Dim buyer As Customer
  Set buyer = New Customer
  buyer.CustomerID = id
  buyer.AccountID = "Desconhecido"
  buyer.CustomerTaxID = taxID
  buyer.CompanyName = companyName
  buyer.BillingAddress.AddressDetail = address
  buyer.BillingAddress.City = city
  buyer.BillingAddress.PostalCode = postalCode
  Check file.CreateCustomer(buyer), file
End Sub

Private Sub WriteProduct(ByVal code As String, ByVal description As String)
  Dim article As Product
  Set article = New Product
  article.ProductType = ptP
  article.ProductCode = code
  article.ProductDescription = description
  article.ProductNumberCode = code
  Check file.CreateProduct(article), file
End Sub

Private Sub WriteTaxTable()
  Dim table As TaxTable
  Set table = New TaxTable
  AddRate table, "NOR", "Taxa normal – Continente", 23
  AddRate table, "INT", "Taxa intermédia – Continente", 13
  AddRate table, "RED", "Taxa reduzida – Continente", 6
  Check file.CreateTaxTable(table), file
End Sub

Private Sub AddRate(ByVal table As TaxTable, ByVal code As String, ByVal description As String, _
                    ByVal percentage As Currency)
  Dim entry As TaxTableEntry
  Set entry = New TaxTableEntry
  entry.TaxCountryRegion = "PT"
  entry.TaxCode = code
  entry.Description = description
  entry.TaxPercentage = percentage
  table.TaxTableEntry.Add entry
End Sub

Private Function NewInvoice(ByVal number As String, ByVal day As String, ByVal entered As String, _
                            ByVal customerID As String, ByVal taxPayable As Currency, ByVal net As Currency) As Invoice
  Dim sale As Invoice
  Set sale = New Invoice
  sale.InvoiceNo = number
  sale.InvoiceStatus = isN
  sale.Hash = "0"
  sale.HashControl = "0"
  sale.Period = "1"
  sale.InvoiceDate = day
  sale.InvoiceType = itFT
  sale.SystemEntryDate = entered
  sale.CustomerID = customerID
  sale.DocumentTotals.TaxPayable = taxPayable
  sale.DocumentTotals.NetTotal = net
  sale.DocumentTotals.GrossTotal = taxPayable + net
  Set NewInvoice = sale
End Function

' The credit is what is left of quantity by price when the discount is off.
Private Sub AddLine(ByVal sale As Invoice, ByVal number As Long, ByVal productCode As String, _
                    ByVal description As String, ByVal quantity As Currency, ByVal unit As String, _
                    ByVal price As Currency, ByVal discount As Currency, ByVal credit As Currency, _
                    ByVal taxCode As String, ByVal percentage As Single)
  Dim item As InvoiceLine
  Dim rate As Tax
  Set item = New InvoiceLine
  item.LineNumber = number
  item.ProductCode = productCode
  item.ProductDescription = description
  item.Quantity = quantity
  item.UnitOfMeasure = unit
  item.UnitPrice = price
  item.TaxPointDate = sale.InvoiceDate
  item.Description = description
  item.CreditAmount = credit
  item.SettlementAmount = discount
  Set rate = New Tax
  rate.TaxCountryRegion = "PT"
  rate.TaxCode = taxCode
  rate.TaxPercentage = percentage
  Set item.Tax = rate
  sale.Line.Add item
End Sub
