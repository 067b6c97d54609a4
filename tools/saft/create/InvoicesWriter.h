// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_INVOICESWRITER_H_
#define ZEVO_TOOLS_SAFT_CREATE_INVOICESWRITER_H_

#include <zevo/adapters.h>

#include "tools/saft/create/AuditFileOutput.h"
#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/RecordTable.h"

namespace zevo::saft {

/// Writes the sales invoices of a dataset with their lines and credit notes, and the totals.
class InvoicesWriter {
 public:
  InvoicesWriter(Dataset& dataset, AuditFileOutput& output) : dataset_(dataset), output_(output) {}

  void Write();

 private:
  using Invoices = RecordTable<Invoice>;

  Invoices ReadInvoices();
  void ReadLines(const Invoices& invoices);
  void ReadCreditNotes(const Invoices& invoices);
  void WriteSection(Invoices& invoices);

  Dataset& dataset_;
  AuditFileOutput& output_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_INVOICESWRITER_H_
