// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_INVOICESWRITER_H_
#define ZEVO_TOOLS_SAFT_CREATE_INVOICESWRITER_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <unordered_map>
#include <vector>

#include "tools/saft/create/AuditFileOutput.h"
#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/RecordTable.h"

namespace zevo::saft {

/// Writes the sales invoices of a dataset with their lines, orders and credit notes, and the totals.
class InvoicesWriter {
 public:
  InvoicesWriter(Dataset& dataset, AuditFileOutput& output) : dataset_(dataset), output_(output) {}

  void Write();

 private:
  using Invoices = RecordTable<Invoice>;
  /// The lines of an invoice that have one number, and how many of them, from the first, have what a row brings.
  struct Namesakes {
    std::vector<InvoiceLine*> lines;
    size_t with_order = 0;
    size_t with_credit_note = 0;
  };

  Invoices ReadInvoices();
  void ReadLines(const Invoices& invoices);
  void ReadOrders(const Invoices& invoices);
  void ReadCreditNotes(const Invoices& invoices);
  InvoiceLine& LineFor(RecordFile& rows, const Invoices& invoices, size_t Namesakes::*with,
                       bool (*has)(const InvoiceLine&));
  void WriteSection(Invoices& invoices);

  Dataset& dataset_;
  AuditFileOutput& output_;
  std::unordered_map<const InvoiceLine*, Namesakes> namesakes_;  // by the first of them
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_INVOICESWRITER_H_
