// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/InvoiceAssembly.h"

#include <memory>
#include <string>
#include <utility>

#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/dataset/RecordFile.h"
#include "tools/saft/words/CreateWords.h"

namespace zevo::saft {
namespace {

bool HasOrder(const InvoiceLine& line) { return line.OrderReferences() != nullptr; }

bool HasCreditNote(const InvoiceLine& line) {
  return line.References() != nullptr && line.References()->CreditNote()->Count() > 0;
}

}  // namespace

InvoiceAssembly::InvoiceAssembly(Dataset& dataset, const RowIndex& index, Telling telling)
    : dataset_(dataset),
      index_(index),
      telling_(telling),
      lines_(dataset.Open(Dataset::kInvoiceLines, RecordFile::Reading::kAgain)),
      orders_(dataset.Open(Dataset::kOrderReferences,
                           telling == Telling::kYes ? RecordFile::Reading::kAlterations : RecordFile::Reading::kAgain)),
      credit_notes_(dataset.Open(Dataset::kCreditNotes, RecordFile::Reading::kAgain)) {}

void InvoiceAssembly::Complete(Invoice& invoice, uint32_t row) {
  namesakes_.clear();
  parts_.clear();
  AddLines(invoice, row);
  AddOrders(invoice, row);
  AddCreditNotes(invoice, row);
}

uint32_t InvoiceAssembly::RowOf(std::string_view file, const InvoiceLine& line, size_t place) const {
  const size_t number = Dataset::NumberOf(file);
  for (const Part& part : parts_) {
    if (part.file == number && part.line == &line && place-- == 0) return part.row;
  }
  return 0;
}

void InvoiceAssembly::AddLines(Invoice& invoice, uint32_t row) {
  for (const ChildRows::Row& place : index_.invoice_lines.Of(row)) {
    lines_.GoTo(place.offset, place.row);
    auto line = std::make_shared<InvoiceLine>();
    lines_.Fill(*line);
    if (invoice.Line()->Append(line)) continue;
    if (Tells()) lines_.NoteRepeatedKey();
    InvoiceLine* const first = invoice.Line()->Item(std::to_string(line->LineNumber())).get();
    std::vector<InvoiceLine*>& lines = namesakes_[first].lines;
    if (lines.empty()) lines.push_back(first);
    lines.push_back(line.get());
  }
}

void InvoiceAssembly::AddOrders(const Invoice& invoice, uint32_t row) {
  for (const ChildRows::Row& place : index_.order_references.Of(row)) {
    orders_.GoTo(place.offset, place.row);
    InvoiceLine* const line = LineFor(orders_, invoice, &Namesakes::with_order, &HasOrder);
    if (line == nullptr) continue;
    if (HasOrder(*line)) {
      if (Tells()) orders_.NoteSecond();
      continue;
    }
    auto order = std::make_shared<OrderReferences>();
    orders_.Fill(*order);
    line->set_OrderReferences(std::move(order));
    parts_.push_back({orders_.Number(), line, place.row});
  }
}

void InvoiceAssembly::AddCreditNotes(const Invoice& invoice, uint32_t row) {
  for (const ChildRows::Row& place : index_.credit_notes.Of(row)) {
    credit_notes_.GoTo(place.offset, place.row);
    InvoiceLine* const line = LineFor(credit_notes_, invoice, &Namesakes::with_credit_note, &HasCreditNote);
    if (line == nullptr) continue;
    auto note = std::make_shared<CreditNote>();
    credit_notes_.Fill(*note);
    std::shared_ptr<References> references = line->References();
    if (!references) {
      references = std::make_shared<References>();
      line->set_References(references);
    }
    if (!references->CreditNote()->Append(std::move(note)) && Tells()) credit_notes_.NoteRepeatedKey();
    parts_.push_back({credit_notes_.Number(), line, place.row});
  }
}

// The number says nothing of which line is meant where several have it. A line has one order, and mostly one credit
// note, so rows go to these lines in turn, and what is left over to the first.
InvoiceLine* InvoiceAssembly::LineFor(RecordFile& rows, const Invoice& invoice, size_t Namesakes::*with,
                                      bool (*has)(const InvoiceLine&)) {
  InvoiceLine* const first = LineOf(rows, invoice);
  const auto found = namesakes_.find(first);
  if (found == namesakes_.end()) return first;
  if (Tells()) rows.NoteGuess();
  const std::vector<InvoiceLine*>& lines = found->second.lines;
  size_t& place = found->second.*with;
  while (place < lines.size() && has(*lines[place])) ++place;
  return place < lines.size() ? lines[place] : first;
}

// The line of an invoice that a row names: of several the first. It may be among the rows that were lost.
InvoiceLine* InvoiceAssembly::LineOf(RecordFile& rows, const Invoice& invoice) {
  try {
    return invoice.Line()->Item(std::to_string(CountFromCell(rows.Parent(1)))).get();
  } catch (const Error&) {
    const bool lost = dataset_.Faults().IsIncomplete(lines_.Number());
    if (Tells() && !lost) rows.AddErrorAtParent(1, Say(words::kNoSuchLine));
    return nullptr;
  }
}

}  // namespace zevo::saft
