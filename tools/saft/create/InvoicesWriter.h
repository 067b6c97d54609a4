// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_INVOICESWRITER_H_
#define ZEVO_TOOLS_SAFT_CREATE_INVOICESWRITER_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <vector>

#include "tools/saft/create/AuditFileOutput.h"
#include "tools/saft/create/InvoiceSigning.h"
#include "tools/saft/create/SectionTotals.h"
#include "tools/saft/dataset/ChildRows.h"
#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/ParentFinder.h"
#include "tools/saft/dataset/RowIndex.h"

namespace zevo::saft {

/// Writes the sales invoices of a dataset with their lines, orders and credit notes, and the totals. All files are
/// looked through first, then each invoice is put together, signed and written.
class InvoicesWriter {
 public:
  /// Without `signing` documents keep what their rows say.
  InvoicesWriter(Dataset& dataset, RowIndex& index, AuditFileOutput& output, InvoiceSigning* signing)
      : dataset_(dataset), index_(index), output_(output), signing_(signing) {}

  void Write();

 private:
  void CheckInvoices();
  void CheckLines();
  /// Those of a file whose rows belong to lines.
  template <class T>
  void CheckParts(RecordFile parts, ChildRows& rows);
  void WriteSection();

  Dataset& dataset_;
  RowIndex& index_;
  AuditFileOutput& output_;
  InvoiceSigning* signing_;
  bool has_invoices_ = false;
  std::vector<uint32_t> uncounted_;  // rows of the invoices that do not count in totals
  SectionTotals totals_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_INVOICESWRITER_H_
