// SPDX-License-Identifier: Apache-2.0
// Writes a file, validates it, counts what is in it and streams it. What goes by reference cannot come back in this
// language. company.js FOLDER
var folder = WScript.Arguments(0);
var failures = 0;

function expect(what, got, wanted) {
  if (got === wanted) return;
  WScript.Echo("wrong: " + what + " is " + got + " and not " + wanted);
  ++failures;
}
function create(name, values) {
  var object = new ActiveXObject("ZevoAdapters11." + name);
  for (var property in values) object[property] = values[property];
  return object;
}
function check(file, what, succeeded) {
  if (succeeded) return;
  WScript.Echo("failed: " + what + ": " + file.AuditException.Source + " " + file.AuditException.Description);
  ++failures;
}

// The euro sign, an accent and a character of another script.
var name = "Caf\u00E9 \u20AC \u4E2D";
var path = folder + "\\\u00E1 \u4E2D.xml";

var header = create("Header", {
  CompanyID: "500000000", TaxRegistrationNumber: "500000000", TaxAccountingBasis: 92, CompanyName: name,
  BusinessName: name, FiscalYear: 2012, StartDate: "2012-01-01", EndDate: "2012-12-31", TaxEntity: "Global",
  SoftwareCertificateNumber: "0", ProductID: "Prova/Prova", ProductVersion: "1"
});
header.CompanyAddress.AddressDetail = "Rua Direita, 1";
header.CompanyAddress.City = "Lisboa";
header.CompanyAddress.PostalCode = "1100-001";
expect("name", header.CompanyName, name);

var customer = create("Customer", { CustomerID: "C1", AccountID: "21", CustomerTaxID: "999999990", CompanyName: name });
customer.BillingAddress.AddressDetail = customer.BillingAddress.City = "Porto";
customer.BillingAddress.PostalCode = "4000-001";
var product = create("Product", { ProductType: 51, ProductCode: "P1", ProductDescription: name, ProductNumberCode: "P1" });
var entry = create("TaxTableEntry", { TaxCountryRegion: "PT", TaxCode: "NOR", Description: "Normal", TaxPercentage: 23 });
var table = create("TaxTable");
table.TaxTableEntry.Add(entry);
var totals = create("SalesInvoices");
var invoice = create("Invoice", {
  InvoiceNo: "FT A/1", InvoiceStatus: 81, Hash: "0", HashControl: "0", Period: "1", InvoiceDate: "2012-01-10",
  InvoiceType: 41, SystemEntryDate: "2012-01-10T10:00:00", CustomerID: "C1"
});
invoice.DocumentTotals.NetTotal = 10.25;
invoice.DocumentTotals.GrossTotal = 10.25;
var line = create("InvoiceLine", {
  LineNumber: 1, ProductCode: "P1", ProductDescription: name, Quantity: 1, UnitOfMeasure: "UN", UnitPrice: 10.25,
  TaxPointDate: "2012-01-10", Description: name, CreditAmount: 10.25
});
line.Tax = create("Tax", { TaxCountryRegion: "PT", TaxCode: "NOR", TaxPercentage: 23 });
invoice.Line.Add(line);
expect("line", invoice.Line.Item("1").ProductDescription, name);
expect("lines", invoice.Line.Count, 1);
for (var lines = new Enumerator(invoice.Line), count = 0; !lines.atEnd(); lines.moveNext(), ++count) {
  expect("each line", lines.item().LineNumber, 1);
}
expect("lines walked", count, 1);

var file = create("AuditFile", { AuditFileName: path });
check(file, "create", file.CreateAuditFile());
check(file, "header", file.CreateHeader(header));
check(file, "customer", file.CreateCustomer(customer));
check(file, "product", file.CreateProduct(product));
check(file, "tax table", file.CreateTaxTable(table));
check(file, "sales", file.CreateSalesInvoices(totals));
check(file, "invoice", file.CreateInvoice(invoice, totals));
check(file, "totals", file.UpdateSalesInvoices(totals));
expect("entries", totals.NumberOfEntries, 1);
expect("credit", totals.TotalCredit, 10.25);
check(file, "save", file.UpdateAuditFile());
check(file, "close", file.CloseAuditFile());
check(file, "validate", file.ValidateAuditFile());

var reader = create("AuditFileReader", { AuditFileName: path });
check(reader, "open", reader.OpenAuditFile());
expect("customers", reader.Customers(), 1);
expect("invoices", reader.Invoices(), 1);
expect("transactions", reader.Transactions(), 0);
check(reader, "header", reader.ReadHeader(null));
check(reader, "close", reader.CloseAuditFile());

// The record does not come back, but all that the file has of it can be asked for.
var scanner = create("AuditFileScanner", { AuditFileName: path });
check(scanner, "open", scanner.OpenAuditFile());
var kinds = [];
do {
  check(scanner, "next", scanner.ReadNext(null));
  kinds.push(scanner.Kind);
  if (scanner.Kind !== "Invoice") continue;
  expect("hash", scanner.TextOf("Hash"), "0");
  expect("name in a line", scanner.TextOf("Line/ProductDescription"), name);
  expect("no such element", scanner.TextOf("TransactionID"), null);
  expect("second element", scanner.Elements(2).Name, "InvoiceNo");
  for (var elements = new Enumerator(scanner.Elements), texts = ""; !elements.atEnd(); elements.moveNext()) {
    if (elements.item().Name === "CustomerID") texts += elements.item().Text;
  }
  expect("customer", texts, "C1");
  expect("problems", scanner.Problems.Count, 0);
} while (scanner.Kind !== "");
expect("kinds", kinds.join(" "), "Header Customer Product TaxTable SalesInvoices Invoice ");
check(scanner, "close", scanner.CloseAuditFile());

var events = [];
var handler = {
  ReadEntity: function(entityName, entity) {
    events.push(entityName);
    if (entityName === "Header") expect("name read", entity.CompanyName, name);
    if (entityName === "Customer") expect("city read", entity.BillingAddress.City, "Porto");
    if (entityName === "Invoice") expect("amount read", entity.Line.Item(1).CreditAmount, 10.25);
  },
  FinishedReading: function() { events.push("finished"); }
};
var streamer = create("AuditFileStreamer", { AuditFileName: path });
check(streamer, "open", streamer.OpenAuditFile());
var bridge = new ActiveXObject("ZevoTest.EventBridge");
bridge.Connect(streamer, handler);
streamer.ReadAuditFile();
bridge.Disconnect();
expect("events", events.join(" "), "Header Customer Product TaxTable SalesInvoices Invoice finished");

var checker = create("AuditFileChecker", { AuditFileName: path, Language: 1 });
var found = [];
bridge.Connect(checker, { Found: function(finding) { found.push(finding.Rule); } });
check(checker, "check", checker.CheckAuditFile());
bridge.Disconnect();
var kept = [];
for (var findings = new Enumerator(checker.Findings); !findings.atEnd(); findings.moveNext()) {
  kept.push(findings.item().Rule);
  expect("message", findings.item().Message, checker.MessageOf(findings.item()));
}
expect("any findings", found.length > 0, true);
expect("findings", kept.join(" "), found.join(" "));
expect("severity", checker.Severity("GL-BALANCE"), 3);
checker.Severity("GL-BALANCE") = 2;
expect("severity set", checker.Severity("GL-BALANCE"), 2);
expect("rule", checker.Rules("GL-BALANCE").Title.length > 0, true);
expect("schema", checker.CountOf("SCHEMA"), 0);
expect("schema errors", checker.CountOfSeverity("SCHEMA", 3), 0);
expect("invoices", checker.RecordsOf("Invoice"), 1);

try {
  invoice.Line.Item(2);
  expect("bad position", "no error", "an error");
} catch (e) {
  expect("bad position", e.number & 0xFFFF, 9);
}
try {
  create("Supplier").ShipToAddress;
  expect("obsolete property", "no error", "an error");
} catch (e) {
  expect("obsolete property", e.number, -1);
}
try {
  file.CreateHeader(invoice);
  expect("record of another class", "no error", "an error");
} catch (e) {
  expect("record of another class", e.number & 0xFFFF, 5);
}
if (failures === 0) WScript.Echo("all is well");
