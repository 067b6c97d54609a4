// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/InvoicesWriter.h"

#include <algorithm>

#include "tools/saft/create/InvoiceAssembly.h"
#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/dataset/RecordFile.h"

namespace zevo::saft {

void InvoicesWriter::Write() {
  CheckInvoices();
  CheckLines();
  // Which orders are left out is known later: of these nothing else is told.
  CheckParts<OrderReferences>(dataset_.Open(Dataset::kOrderReferences, RecordFile::Reading::kFaults),
                              index_.order_references);
  CheckParts<CreditNote>(dataset_.Open(Dataset::kCreditNotes), index_.credit_notes);
  if (has_invoices_) WriteSection();
}

void InvoicesWriter::CheckInvoices() {
  RecordFile rows = dataset_.Open(Dataset::kInvoices);
  while (rows.Next()) {
    Invoice invoice;
    rows.Fill(invoice);
    if (!TakeKey(rows, invoice, index_.Of(EntityKind::kInvoice))) continue;
    has_invoices_ = true;
    if (CountsInTotals(invoice)) {
      totals_.AddEntry(rows);
    } else {
      uncounted_.push_back(rows.Row());
    }
  }
}

void InvoicesWriter::CheckLines() {
  RecordFile rows = dataset_.Open(Dataset::kInvoiceLines);
  ParentFinder invoices(dataset_, Dataset::kInvoices, index_.Of(EntityKind::kInvoice));
  while (rows.Next()) {
    InvoiceLine line;
    rows.Fill(line);
    const auto invoice = invoices.Find(rows);
    if (!invoice || !rows.HasKey()) continue;
    index_.invoice_lines.Add({rows.Offset(), rows.Row(), *invoice});
    if (!std::ranges::binary_search(uncounted_, *invoice)) totals_.AddLine(line, rows);
  }
  index_.invoice_lines.Sort();
  // An order or a credit note may be of a line whose number cannot be read.
  Errors& errors = dataset_.Faults();
  if (errors.CountIn(rows.Number()) > 0) errors.SetIncomplete(rows.Number());
}

template <class T>
void InvoicesWriter::CheckParts(RecordFile parts, ChildRows& rows) {
  ParentFinder invoices(dataset_, Dataset::kInvoices, index_.Of(EntityKind::kInvoice));
  while (parts.Next()) {
    T part;
    parts.Fill(part);
    const auto invoice = invoices.Find(parts);
    if (!invoice) continue;
    try {
      CountFromCell(parts.Parent(1));
      rows.Add({parts.Offset(), parts.Row(), *invoice});
    } catch (const BadValue& bad) {
      parts.AddErrorAtParent(1, bad.what());
    }
  }
  rows.Sort();
}

void InvoicesWriter::WriteSection() {
  SalesInvoices section;
  SetTotals(section, totals_.Sums());
  dataset_.Altered().AddTotals("SalesInvoices", totals_.Sums());
  output_.Begin(section);
  InvoiceAssembly assembly(dataset_, index_, InvoiceAssembly::Telling::kYes);
  RecordFile invoices = dataset_.Open(Dataset::kInvoices, RecordFile::Reading::kAgain);
  while (invoices.Next()) {
    if (index_.Of(EntityKind::kInvoice).Find(invoices.Key()) != invoices.Row()) continue;
    Invoice invoice;
    invoices.Fill(invoice);
    assembly.Complete(invoice, invoices.Row());
    if (signing_ != nullptr) signing_->Sign(invoice, invoices);
    output_.Write(invoice);
  }
}

}  // namespace zevo::saft
