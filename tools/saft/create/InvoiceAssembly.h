// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_INVOICEASSEMBLY_H_
#define ZEVO_TOOLS_SAFT_CREATE_INVOICEASSEMBLY_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/RowIndex.h"

namespace zevo::saft {

/// Puts invoices together: lines, orders and credit notes, from the rows of their files, which were looked through
/// before.
class InvoiceAssembly {
 public:
  /// Whether what becomes of the rows is told.
  enum class Telling { kYes, kNo };

  InvoiceAssembly(Dataset& dataset, const RowIndex& index, Telling telling);

  /// Adds to an invoice all that belongs to its row.
  void Complete(Invoice& invoice, uint32_t row);

  /// The row of an order or credit note that a line of the invoice completed last has, from 0; 0 where there is none.
  uint32_t RowOf(std::string_view file, const InvoiceLine& line, size_t place) const;

 private:
  /// The lines of the invoice that have one number, and how many of them, from the first, have what a row brings.
  struct Namesakes {
    std::vector<InvoiceLine*> lines;
    size_t with_order = 0;
    size_t with_credit_note = 0;
  };
  /// A row that belongs to a line.
  struct Part {
    size_t file;  // its number
    const InvoiceLine* line;
    uint32_t row;
  };

  void AddLines(Invoice& invoice, uint32_t row);
  void AddOrders(const Invoice& invoice, uint32_t row);
  void AddCreditNotes(const Invoice& invoice, uint32_t row);
  InvoiceLine* LineFor(RecordFile& rows, const Invoice& invoice, size_t Namesakes::*with,
                       bool (*has)(const InvoiceLine&));
  InvoiceLine* LineOf(RecordFile& rows, const Invoice& invoice);
  bool Tells() const { return telling_ == Telling::kYes; }

  Dataset& dataset_;
  const RowIndex& index_;
  Telling telling_;
  RecordFile lines_;
  RecordFile orders_;
  RecordFile credit_notes_;
  std::unordered_map<const InvoiceLine*, Namesakes> namesakes_;  // by the first of them
  std::vector<Part> parts_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_INVOICEASSEMBLY_H_
