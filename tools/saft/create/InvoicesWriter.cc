// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/InvoicesWriter.h"

#include <memory>
#include <string>
#include <utility>

#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/dataset/RecordFile.h"

namespace zevo::saft {
namespace {

// The line of an invoice that a row names in its second parent column: of several the first.
InvoiceLine& LineOf(const Invoice& invoice, const RecordFile& rows) {
  try {
    return *invoice.Line()->Item(std::to_string(CountFromCell(rows.Parent(1))));
  } catch (const BadValue& bad) {
    rows.FailAtParent(1, bad.what());
  } catch (const Error&) {
    rows.FailAtParent(1, "no such line in its invoice");
  }
}

// Columns of a file whose rows belong to lines.
KeyColumns InLine(std::string_view key) { return {.key = key, .parents = {"InvoiceNo", "LineNumber"}}; }

bool HasOrder(const InvoiceLine& line) { return line.OrderReferences() != nullptr; }

bool HasCreditNote(const InvoiceLine& line) {
  return line.References() != nullptr && line.References()->CreditNote()->Count() > 0;
}

}  // namespace

void InvoicesWriter::Write() {
  Invoices invoices = ReadInvoices();
  ReadLines(invoices);
  ReadOrders(invoices);
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
    if (AddToParent(*invoice.Line(), line, rows)) continue;
    InvoiceLine* const first = invoice.Line()->Item(std::to_string(line->LineNumber())).get();
    std::vector<InvoiceLine*>& lines = namesakes_[first].lines;
    if (lines.empty()) lines.push_back(first);
    lines.push_back(line.get());
  }
}

void InvoicesWriter::ReadOrders(const Invoices& invoices) {
  RecordFile rows = dataset_.Open<OrderReferences>(Dataset::kOrderReferences, InLine({}));
  while (rows.Next()) {
    InvoiceLine& line = LineFor(rows, invoices, &Namesakes::with_order, &HasOrder);
    if (HasOrder(line)) {
      rows.NoteSecond();
      continue;
    }
    auto order = std::make_shared<OrderReferences>();
    rows.Fill(*order);
    line.set_OrderReferences(std::move(order));
  }
}

void InvoicesWriter::ReadCreditNotes(const Invoices& invoices) {
  RecordFile rows = dataset_.Open<CreditNote>(Dataset::kCreditNotes, InLine("Reference"));
  while (rows.Next()) {
    InvoiceLine& line = LineFor(rows, invoices, &Namesakes::with_credit_note, &HasCreditNote);
    auto note = std::make_shared<CreditNote>();
    rows.Fill(*note);
    if (!line.References()) line.set_References(std::make_shared<References>());
    AddToParent(*line.References()->CreditNote(), std::move(note), rows);
  }
}

// The number says nothing of which line is meant where several have it. A line has one order, and mostly one credit
// note, so rows go to these lines in turn, and what is left over to the first.
InvoiceLine& InvoicesWriter::LineFor(RecordFile& rows, const Invoices& invoices, size_t Namesakes::*with,
                                     bool (*has)(const InvoiceLine&)) {
  InvoiceLine& first = LineOf(invoices.ParentOf(rows), rows);
  const auto found = namesakes_.find(&first);
  if (found == namesakes_.end()) return first;
  rows.NoteGuess();
  const std::vector<InvoiceLine*>& lines = found->second.lines;
  size_t& place = found->second.*with;
  while (place < lines.size() && has(*lines[place])) ++place;
  return place < lines.size() ? *lines[place] : first;
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
