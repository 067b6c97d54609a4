' SPDX-License-Identifier: Apache-2.0
' Writes a file of every kind of record both ways, validates it, reads it back and streams it.
' company.vbs FOLDER
Option Explicit

Dim folder, failures
folder = WScript.Arguments(0)
failures = 0

Dim files
Set files = CreateObject("Scripting.FileSystemObject")

WriteInMemory folder & "\Jo" & Chr(227) & "o's file.xml"
ReadBack folder & "\Jo" & Chr(227) & "o's file.xml"
Scan folder & "\Jo" & Chr(227) & "o's file.xml"
Stream folder & "\Jo" & Chr(227) & "o's file.xml"
AbortStream folder & "\Jo" & Chr(227) & "o's file.xml"
Judge folder & "\Jo" & Chr(227) & "o's file.xml"
FailInHandler folder & "\Jo" & Chr(227) & "o's file.xml"
WriteFrontToBack folder & "\front to back.xml"
ReadBack folder & "\front to back.xml"
FailureCases
If failures = 0 Then WScript.Echo "all is well"

Sub Expect(what, got, wanted)
  If got = wanted Then Exit Sub
  WScript.Echo "wrong: " & what & " is " & got & " and not " & wanted
  failures = failures + 1
End Sub

Sub Check(file, what, succeeded)
  If succeeded Then Exit Sub
  WScript.Echo "failed: " & what & ": " & file.AuditException.Source & " " & file.AuditException.Description
  failures = failures + 1
End Sub

Function SampleHeader()
  Dim header
  Set header = CreateObject("ZevoAdapters11.Header")
  header.CompanyID = "500000000"
  header.TaxRegistrationNumber = "500000000"
  header.TaxAccountingBasis = 93
  header.CompanyName = "Caf" & Chr(233) & " Central, Lda."
  header.BusinessName = "Caf" & Chr(233)
  header.CompanyAddress.AddressDetail = "Rua Direita, 1"
  header.CompanyAddress.City = "Lisboa"
  header.CompanyAddress.PostalCode = "1100-001"
  header.FiscalYear = "2012"
  header.StartDate = "2012-01-01"
  header.EndDate = "2012-12-31"
  header.TaxEntity = "Global"
  header.SoftwareCertificateNumber = "0"
  header.ProductID = "Prova/Prova"
  header.ProductVersion = "1"
  Set SampleHeader = header
End Function

Function SampleAccount()
  Set SampleAccount = CreateObject("ZevoAdapters11.GeneralLedger")
  SampleAccount.AccountID = "21"
  SampleAccount.AccountDescription = "Clientes"
  SampleAccount.OpeningDebitBalance = 10.5
End Function

Function SampleCustomer(id)
  Dim customer
  Set customer = CreateObject("ZevoAdapters11.Customer")
  customer.CustomerID = id
  customer.AccountID = "21"
  customer.CustomerTaxID = "999999990"
  customer.CompanyName = "Cliente " & id
  customer.BillingAddress.AddressDetail = "Desconhecido"
  customer.BillingAddress.City = "Desconhecido"
  customer.BillingAddress.PostalCode = "0000-000"
  Set customer.ShipToAddress = CreateObject("ZevoAdapters11.AddressStructure")
  customer.ShipToAddress.AddressDetail = "Armaz" & Chr(233) & "m"
  customer.ShipToAddress.City = "Porto"
  customer.ShipToAddress.PostalCode = "4000-001"
  Set SampleCustomer = customer
End Function

Function SampleSupplier()
  Dim supplier
  Set supplier = CreateObject("ZevoAdapters11.Supplier")
  supplier.SupplierID = "F1"
  supplier.AccountID = "22"
  supplier.SupplierTaxID = "500000000"
  supplier.CompanyName = "Fornecedor"
  supplier.BillingAddress.AddressDetail = "Rua"
  supplier.BillingAddress.City = "Braga"
  supplier.BillingAddress.PostalCode = "4700-001"
  Set SampleSupplier = supplier
End Function

Function SampleProduct()
  Dim product
  Set product = CreateObject("ZevoAdapters11.Product")
  product.ProductType = 51
  product.ProductCode = "P1"
  product.ProductDescription = "Caf" & Chr(233)
  product.ProductNumberCode = "P1"
  Set SampleProduct = product
End Function

Function SampleTaxTable()
  Dim table, entry
  Set table = CreateObject("ZevoAdapters11.TaxTable")
  Set entry = CreateObject("ZevoAdapters11.TaxTableEntry")
  entry.TaxCountryRegion = "PT"
  entry.TaxCode = "NOR"
  entry.Description = "Taxa normal"
  entry.TaxPercentage = 23
  table.TaxTableEntry.Add entry
  Expect "entries", table.TaxTableEntry.Count, 1
  Set SampleTaxTable = table
End Function

Function SampleJournal()
  Set SampleJournal = CreateObject("ZevoAdapters11.Journal")
  SampleJournal.JournalID = "VENDAS"
  SampleJournal.Description = "Vendas"
End Function

Function SampleTransaction(number)
  Dim transaction
  Set transaction = CreateObject("ZevoAdapters11.Transaction")
  transaction.TransactionID = "2012-01-10 VENDAS " & number
  transaction.Period = "1"
  transaction.TransactionDate = "2012-01-10"
  transaction.SourceID = "eu"
  transaction.Description = "Venda"
  transaction.DocArchivalNumber = "1"
  transaction.TransactionType = 71
  transaction.GLPostingDate = "2012-01-10T10:00:00"
  AddEntry transaction, "1", "21", 12.3, 0
  AddEntry transaction, "2", "71", 0, 12.3
  Set SampleTransaction = transaction
End Function

Sub AddEntry(transaction, id, account, debit, credit)
  Dim line
  Set line = CreateObject("ZevoAdapters11.TransactionLine")
  line.RecordID = id
  line.AccountID = account
  line.SystemEntryDate = "2012-01-10T10:00:00"
  line.Description = "Linha"
  line.DebitAmount = debit
  line.CreditAmount = credit
  transaction.Line.Add line
End Sub

Function SampleInvoice(number, customer)
  Dim invoice, line, tax
  Set invoice = CreateObject("ZevoAdapters11.Invoice")
  invoice.InvoiceNo = "FT A/" & number
  invoice.InvoiceStatus = 81
  invoice.Hash = "0"
  invoice.HashControl = "0"
  invoice.Period = "1"
  invoice.InvoiceDate = "2012-01-10"
  invoice.InvoiceType = 41
  invoice.SystemEntryDate = "2012-01-10T10:00:00"
  invoice.CustomerID = customer
  invoice.DocumentTotals.TaxPayable = 2.3
  invoice.DocumentTotals.NetTotal = 10
  invoice.DocumentTotals.GrossTotal = 12.3
  Set line = CreateObject("ZevoAdapters11.InvoiceLine")
  line.LineNumber = 1
  line.ProductCode = "P1"
  line.ProductDescription = "Caf" & Chr(233)
  line.Quantity = 2
  line.UnitOfMeasure = "UN"
  line.UnitPrice = 5
  line.TaxPointDate = "2012-01-10"
  line.Description = "Caf" & Chr(233)
  line.CreditAmount = 10
  Set tax = CreateObject("ZevoAdapters11.Tax")
  tax.TaxCountryRegion = "PT"
  tax.TaxCode = "NOR"
  tax.TaxPercentage = 23
  Set line.Tax = tax
  invoice.Line.Add line
  Set SampleInvoice = invoice
End Function

Sub WriteInMemory(path)
  Dim file, entries, sales, j, t
  Set file = CreateObject("ZevoAdapters11.AuditFile")
  file.AuditFileName = path
  Check file, "create", file.CreateAuditFile
  Check file, "header", file.CreateHeader(SampleHeader)
  Check file, "account", file.CreateGeneralLedger(SampleAccount)
  Check file, "customer", file.CreateCustomer(SampleCustomer("C1"))
  Check file, "customer", file.CreateCustomer(SampleCustomer("C2"))
  Check file, "supplier", file.CreateSupplier(SampleSupplier)
  Check file, "product", file.CreateProduct(SampleProduct)
  Check file, "tax table", file.CreateTaxTable(SampleTaxTable)
  Set entries = CreateObject("ZevoAdapters11.GeneralLedgerEntries")
  Check file, "entries", file.CreateGeneralLedgerEntries(entries)
  Set j = SampleJournal
  Check file, "journal", file.CreateJournal(j)
  Set t = SampleTransaction(1)
  Check file, "transaction", file.CreateTransaction(t, j, entries)
  Check file, "transaction", file.CreateTransaction(SampleTransaction(2), j, entries)
  Expect "entries written", entries.NumberOfEntries, 2
  Expect "sum of debits", entries.TotalDebit, 24.6
  Check file, "totals", file.UpdateGeneralLedgerEntries(entries)
  Set sales = CreateObject("ZevoAdapters11.SalesInvoices")
  Check file, "sales", file.CreateSalesInvoices(sales)
  Check file, "invoice", file.CreateInvoice(SampleInvoice(1, "C1"), sales)
  Check file, "invoice", file.CreateInvoice(SampleInvoice(2, "C2"), sales)
  Check file, "totals", file.UpdateSalesInvoices(sales)
  Check file, "save", file.UpdateAuditFile
  Check file, "close", file.CloseAuditFile
  Check file, "validate", file.ValidateAuditFile
  Expect "the file", files.FileExists(path), True
End Sub

Sub WriteFrontToBack(path)
  Dim file, header, account, customer, supplier, product, table, entries, j, t, sales, i
  Set file = CreateObject("ZevoAdapters11.AuditFileStreamWriter")
  file.AuditFileName = path
  Check file, "create", file.CreateAuditFile
  Set header = SampleHeader
  Check file, "header", file.CreateHeader(header)
  Set account = SampleAccount
  Check file, "account", file.CreateGeneralLedger(account)
  Check file, "customer", file.CreateCustomer(SampleCustomer("C1"))
  Set customer = SampleCustomer("C2")
  Check file, "customer", file.CreateCustomer(customer)
  Set supplier = SampleSupplier
  Check file, "supplier", file.CreateSupplier(supplier)
  Set product = SampleProduct
  Check file, "product", file.CreateProduct(product)
  Set table = SampleTaxTable
  Check file, "tax table", file.CreateTaxTable(table)
  Set entries = CreateObject("ZevoAdapters11.GeneralLedgerEntries")
  entries.NumberOfEntries = 2
  entries.TotalDebit = 24.6
  entries.TotalCredit = 24.6
  Check file, "entries", file.BeginGeneralLedgerEntries(entries)
  Set j = SampleJournal
  Check file, "journal", file.BeginJournal(j)
  Set t = SampleTransaction(1)
  Check file, "transaction", file.CreateTransaction(t)
  Set t = SampleTransaction(2)
  Check file, "transaction", file.CreateTransaction(t)
  Check file, "end of journal", file.EndJournal
  Check file, "end of entries", file.EndGeneralLedgerEntries
  Set sales = CreateObject("ZevoAdapters11.SalesInvoices")
  sales.NumberOfEntries = 2
  sales.TotalCredit = 20
  Check file, "sales", file.BeginSalesInvoices(sales)
  Set i = SampleInvoice(1, "C1")
  Check file, "invoice", file.CreateInvoice(i)
  Set i = SampleInvoice(2, "C2")
  Check file, "invoice", file.CreateInvoice(i)
  Check file, "end of sales", file.EndSalesInvoices
  Check file, "close", file.CloseAuditFile

  Dim validator
  Set validator = CreateObject("ZevoAdapters11.AuditFile")
  validator.AuditFileName = path
  Check validator, "validate", validator.ValidateAuditFile
End Sub

Sub ReadBack(path)
  Dim file, header, account, customer, supplier, product, j, t, sales, invoice, line, count
  Set file = CreateObject("ZevoAdapters11.AuditFileReader")
  file.AuditFileName = path
  Check file, "open", file.OpenAuditFile
  Check file, "header", file.ReadHeader(header)
  Expect "name", header.CompanyName, "Caf" & Chr(233) & " Central, Lda."
  Expect "customers", file.Customers, 2
  Expect "suppliers", file.Suppliers, 1
  Expect "products", file.Products, 1
  Expect "accounts", file.GeneralLedgers, 1
  Expect "entries of the tax table", file.TaxTableEntrys, 1
  Expect "invoices", file.Invoices, 2
  Expect "journals", file.Journals, 1
  Expect "transactions", file.Transactions, 2
  Check file, "account", file.ReadGeneralLedger(account)
  Expect "balance", account.OpeningDebitBalance, 10.5
  count = 0
  Check file, "customer", file.ReadCustomer(customer)
  Do Until customer Is Nothing
    count = count + 1
    Expect "customer", customer.CustomerID, "C" & count
    Expect "ship-to address", customer.ShipToAddress.City, "Porto"
    Check file, "customer", file.ReadCustomer(customer)
  Loop
  Expect "customers read", count, 2
  Check file, "supplier", file.ReadSupplier(supplier)
  Expect "supplier", supplier.CompanyName, "Fornecedor"
  Check file, "product", file.ReadProduct(product)
  Expect "product", product.ProductDescription, "Caf" & Chr(233)
  Check file, "journal", file.ReadJournal(j)
  Expect "transactions of the journal", file.Transactions(j), 2
  count = 0
  Check file, "transaction", file.ReadTransaction(t, j)
  Do Until t Is Nothing
    count = count + 1
    Expect "lines", t.Line.Count, 2
    Expect "debit", t.Line("1").DebitAmount, 12.3
    Expect "credit", t.Line(2).CreditAmount, 12.3
    Check file, "transaction", file.ReadTransaction(t, j)
  Loop
  Expect "transactions read", count, 2
  Check file, "sales", file.ReadSalesInvoices(sales)
  Expect "entries", sales.NumberOfEntries, 2
  Expect "credit", sales.TotalCredit, 20
  count = 0
  Check file, "invoice", file.ReadInvoice(invoice)
  Do Until invoice Is Nothing
    count = count + 1
    For Each line In invoice.Line
      Expect "quantity", line.Quantity, 2
      Expect "rate", line.Tax.TaxPercentage, 23
    Next
    Check file, "invoice", file.ReadInvoice(invoice)
  Loop
  Expect "invoices read", count, 2
  Check file, "close", file.CloseAuditFile
End Sub

Sub Scan(path)
  Dim file, entity, first, element, problem, kinds, texts, number, source
  Set file = CreateObject("ZevoAdapters11.AuditFileScanner")
  file.AuditFileName = path
  Expect "reading before opening", file.ReadNext(entity), False
  Expect "its number", file.AuditException.Number, -2147221499
  Check file, "open", file.OpenAuditFile
  Expect "kind before the first", file.Kind, ""
  Expect "text before the first", IsNull(file.TextOf("")), True
  Do
    Check file, "next", file.ReadNext(entity)
    kinds = kinds & file.Kind & " "
    Select Case file.Kind
      Case "Header"
        Set first = file.Elements
        Expect "trading name", entity.BusinessName, "Caf" & Chr(233)
        Expect "same elements", first Is file.Elements, True
      Case "Transaction"
        Expect "journal", file.JournalID, "VENDAS"
      Case "Invoice"
        Expect "hash", entity.Hash, "0"
        Expect "its text", file.TextOf("Hash"), "0"
        Expect "text in a line", file.TextOf("Line[1]/ProductDescription"), "Caf" & Chr(233)
        Expect "no such line", IsNull(file.TextOf("Line[2]")), True
        Expect "its place", file.PlaceOf("Line[2]").Line, 0
        Expect "first element", file.Elements(1).Name, "Invoice"
        Expect "its depth", file.Elements.Item(1).Depth, 0
        Expect "its place", file.Elements(1).Place.Offset, file.Place.Offset
        texts = 0
        For Each element In file.Elements
          If element.Text <> "" Then texts = texts + 1
        Next
        Expect "texts", texts, 27
        On Error Resume Next
        Set element = file.Elements(file.Elements.Count + 1)
        number = Err.Number: source = Err.Source
        Err.Clear
        On Error Goto 0
        Expect "bad position", number, 9
        Expect "its source", source, "ZevoAdapters11"
    End Select
    For Each problem In file.Problems
      WScript.Echo "wrong: " & problem.Description & " / " & problem.Description(1)
      failures = failures + 1
    Next
  Loop Until entity Is Nothing
  Expect "kinds", kinds, "Header GeneralLedger Customer Customer Supplier Product TaxTable " & _
    "GeneralLedgerEntries Journal Transaction Transaction SalesInvoices Invoice Invoice  "
  Expect "bytes", file.BytesRead, files.GetFile(path).Size
  Check file, "close", file.CloseAuditFile
  ' What was read before is still there.
  Set file = Nothing
  Expect "elements of the header", first(1).Name, "Header"

  Set file = CreateObject("ZevoAdapters11.AuditFileScanner")
  file.AuditFileName = path
  Check file, "open", file.OpenAuditFile
  Check file, "next", file.ReadNext(entity)
  file.AbortReading
  Expect "reading after an abort", file.ReadNext(entity), False
  Expect "no record", entity Is Nothing, True
  Expect "its number", file.AuditException.Number, -2147221003
End Sub

Class Handler
  Public Names
  Public Finished
  Public Streamer
  Public AbortAt
  Public FailAt
  Public Count

  Public Sub ReadEntity(entityName, entity)
    Count = Count + 1
    If entity Is Nothing Then
      Names = Names & entityName & "! "
    Else
      Names = Names & entityName & " "
    End If
    If entityName = "Customer" Then Expect "city", entity.BillingAddress.City, "Desconhecido"
    If Count = AbortAt Then Streamer.AbortReading
    If Count = FailAt Then Err.Raise 11, "handler", "no more"
  End Sub

  Public Sub FinishedReading()
    Finished = True
  End Sub
End Class

Function Connected(path, handler)
  Dim streamer
  Set streamer = CreateObject("ZevoAdapters11.AuditFileStreamer")
  streamer.AuditFileName = path
  Check streamer, "open", streamer.OpenAuditFile
  Set handler.Streamer = streamer
  Set Connected = streamer
End Function

Sub Stream(path)
  Dim streamer, h, bridge
  Set h = New Handler
  Set streamer = Connected(path, h)
  Set bridge = CreateObject("ZevoTest.EventBridge")
  bridge.Connect streamer, h
  streamer.ReadAuditFile True
  Expect "finished", h.Finished, True
  ' The entry of the tax table has a rate and no amount.
  Expect "events", h.Names, "Header GeneralLedger Customer Customer Supplier Product TaxTable! " & _
    "GeneralLedgerEntries Journal Transaction Transaction SalesInvoices Invoice Invoice "
  bridge.Disconnect
  Set h.Streamer = Nothing
End Sub

Sub AbortStream(path)
  Dim streamer, h, bridge
  Set h = New Handler
  h.AbortAt = 3
  Set streamer = Connected(path, h)
  Set bridge = CreateObject("ZevoTest.EventBridge")
  bridge.Connect streamer, h
  Expect "result of an aborted reading", streamer.ReadAuditFile, False
  Expect "events before the abort", h.Names, "Header GeneralLedger Customer "
  Expect "number of the abort", streamer.AuditException.Number, -2147221003
  bridge.Disconnect
  Set h.Streamer = Nothing
End Sub

Sub FailInHandler(path)
  Dim streamer, h, bridge
  Set h = New Handler
  h.FailAt = 2
  Set streamer = Connected(path, h)
  Set bridge = CreateObject("ZevoTest.EventBridge")
  bridge.Connect streamer, h
  Expect "result of a failed reading", streamer.ReadAuditFile, False
  Expect "number of the failure", streamer.AuditException.Number, 11
  bridge.Disconnect
  Set h.Streamer = Nothing
End Sub

Class FindingHandler
  Public Rules
  Public Last
  Public Checker
  Public Aborts

  Public Sub Found(finding)
    Rules = Rules & finding.Rule & " "
    Set Last = finding
    If Aborts Then Checker.AbortChecking
  End Sub
End Class

Sub Judge(path)
  Dim checker, h, bridge, finding, rules, number
  Set checker = CreateObject("ZevoAdapters11.AuditFileChecker")
  Expect "check without a name", checker.CheckAuditFile, False
  Expect "its number", checker.AuditException.Number, -2147221503
  Expect "no verdict", checker.Verdict, 3
  checker.AuditFileName = path
  checker.Language = 1
  checker.MostFindings = 1
  checker.Severity("GL-BALANCE") = 0
  Expect "severity", checker.Severity("GL-BALANCE"), 0
  Set h = New FindingHandler
  Set bridge = CreateObject("ZevoTest.EventBridge")
  bridge.Connect checker, h
  Check checker, "check", checker.CheckAuditFile
  bridge.Disconnect
  Expect "verdict", checker.Verdict, 2
  ' The account 71 of the entries is not in the file.
  Expect "unknown accounts", checker.CountOf("ACC-REF") > 1, True
  For Each finding In checker.Findings
    rules = rules & finding.Rule & " "
    If finding.Rule = "ACC-REF" Then
      Expect "kind", finding.Kind, "Transaction"
      Expect "key", finding.Key, "2012-01-10 VENDAS 1"
      Expect "element", finding.Path, "Line[2]/AccountID"
      Expect "found", finding.Found, "71"
      Expect "severity", finding.Severity, 3
      Expect "message", checker.MessageOf(finding), finding.Message
    End If
  Next
  Expect "events", h.Rules, rules
  Expect "last event", h.Last Is checker.Findings(checker.Findings.Count), True
  Expect "rule", checker.Rules("ACC-REF").Id, "ACC-REF"
  Expect "first rule", checker.Rules(1).Id, checker.Rules.Item(1).Id
  On Error Resume Next
  checker.Severity("none") = 0
  number = Err.Number
  Err.Clear
  On Error Goto 0
  Expect "unknown rule", number, 5

  h.Aborts = True
  Set h.Checker = checker
  bridge.Connect checker, h
  Expect "aborted check", checker.CheckAuditFile, False
  Expect "its number", checker.AuditException.Number, -2147221003
  bridge.Disconnect
  Set h.Checker = Nothing
End Sub

Sub FailureCases()
  Dim file, supplier, invoice, address, number, source, description
  Set file = CreateObject("ZevoAdapters11.AuditFile")
  Expect "create without a name", file.CreateAuditFile, False
  Expect "its number", file.AuditException.Number, -2147221503
  Expect "its source", file.AuditException.Source, "AuditFile.CreateAuditFile"
  Expect "its description", file.AuditException.Description, _
    "N" & Chr(227) & "o foi indicado o nome do ficheiro SAFT-PT."
  file.CloseAuditFile
  Expect "after a success", file.AuditException Is Nothing, True

  file.AuditFileName = folder & "\no record.xml"
  Check file, "create", file.CreateAuditFile
  Expect "no record", file.CreateHeader(Nothing), False
  Expect "its number", file.AuditException.Number, 91
  Expect "its description", file.AuditException.Description, _
    "Vari" & Chr(225) & "vel de objeto n" & Chr(227) & "o definida."
  Check file, "close", file.CloseAuditFile

  Set supplier = CreateObject("ZevoAdapters11.Supplier")
  On Error Resume Next
  Set address = supplier.ShipToAddress
  number = Err.Number: source = Err.Source: description = Err.Description
  Err.Clear
  On Error Goto 0
  Expect "obsolete property", number, -1
  Expect "its source", source, "Supplier"
  Expect "its description", description, "Propriedade obsoleta, ser" & Chr(225) & " removida na pr" & Chr(243) & _
    "xima vers" & Chr(227) & "o"

  Set invoice = CreateObject("ZevoAdapters11.Invoice")
  On Error Resume Next
  Set address = invoice.Line(5)
  number = Err.Number: source = Err.Source
  Err.Clear
  On Error Goto 0
  Expect "bad position", number, 9
  Expect "its source", source, "ZevoAdapters11"
  On Error Resume Next
  Set address = invoice.Line("x")
  number = Err.Number
  Err.Clear
  On Error Goto 0
  Expect "unknown key", number, 5

  On Error Resume Next
  file.CreateHeader invoice
  number = Err.Number
  Err.Clear
  On Error Goto 0
  Expect "record of another class", number, 13
  On Error Resume Next
  invoice.InvoiceType = "FT"
  number = Err.Number
  Err.Clear
  On Error Goto 0
  Expect "text for a number", number, 13
End Sub
