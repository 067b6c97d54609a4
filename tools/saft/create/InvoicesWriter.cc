// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/InvoicesWriter.h"

#include <memory>
#include <string>

#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/dataset/RecordFile.h"

namespace zevo::saft {
namespace {

// The line of an invoice that a credit note names in its second parent column.
InvoiceLine& LineOf(const Invoice& invoice, const RecordFile& notes) {
  try {
    return *invoice.Line()->Item(std::to_string(CountFromCell(notes.Parent(1))));
  } catch (const BadValue& bad) {
    notes.FailAtParent(1, bad.what());
  } catch (const Error&) {
    notes.FailAtParent(1, "no such line in its invoice");
  }
}

}  // namespace

void InvoicesWriter::Write() {
  Invoices invoices = ReadInvoices();
  ReadLines(invoices);
  ReadCreditNotes(invoices);
  if (!invoices.Rows().empty()) WriteSection(invoices);
}

InvoicesWriter::Invoices InvoicesWriter::ReadInvoices() {
  RecordFile rows = dataset_.Open<Invoice>(Dataset::kInvoices, {.key = "InvoiceNo"});
  Invoices invoices(rows);
  while (rows.Next()) invoices.Take(rows);
  return invoices;
}

void InvoicesWriter::ReadLines(const Invoices& invoices) {
  RecordFile rows = dataset_.Open<InvoiceLine>(Dataset::kInvoiceLines, {.key = "LineNumber", .parents = {"InvoiceNo"}});
  while (rows.Next()) {
    const Invoice& invoice = invoices.ParentOf(rows);
    auto line = std::make_shared<InvoiceLine>();
    rows.Fill(*line);
    AddToParent(*invoice.Line(), std::move(line), rows);
  }
}

void InvoicesWriter::ReadCreditNotes(const Invoices& invoices) {
  RecordFile rows =
      dataset_.Open<CreditNote>(Dataset::kCreditNotes, {.key = "Reference", .parents = {"InvoiceNo", "LineNumber"}});
  while (rows.Next()) {
    InvoiceLine& line = LineOf(invoices.ParentOf(rows), rows);
    auto note = std::make_shared<CreditNote>();
    rows.Fill(*note);
    if (!line.References()) line.set_References(std::make_shared<References>());
    AddToParent(*line.References()->CreditNote(), std::move(note), rows);
  }
}

void InvoicesWriter::WriteSection(Invoices& invoices) {
  SalesInvoices section;
  SetTotals(section, invoices.SumOf([](Totals& sum, const Invoice& invoice) {
    if (CountsInTotals(invoice)) sum.Add(invoice);
  }));
  dataset_.Altered().AddTotals("SalesInvoices", TotalsIn(section));
  output_.Begin(section);
  for (auto& [invoice, row] : invoices.Rows()) {
    output_.Write(*invoice, {invoices.Path(), row});
    invoice.reset();  // Frees its memory: the file holds it from here on.
  }
}

}  // namespace zevo::saft
