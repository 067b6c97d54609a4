// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_ENTRIESWRITER_H_
#define ZEVO_TOOLS_SAFT_CREATE_ENTRIESWRITER_H_

#include <zevo/adapters.h>

#include <ostream>

#include "tools/saft/create/AuditFileOutput.h"
#include "tools/saft/create/SectionTotals.h"
#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/RowIndex.h"

namespace zevo::saft {

/// Writes the general ledger entries of a dataset: its journals with their transactions, and the totals. All files are
/// looked through first, then each transaction is put together and written.
class EntriesWriter {
 public:
  /// What the user should know goes to `notes`.
  EntriesWriter(Dataset& dataset, RowIndex& index, AuditFileOutput& output, std::ostream& notes)
      : dataset_(dataset), index_(index), output_(output), notes_(notes) {}

  void Write();

 private:
  // These tell whether there is such a file.
  bool CheckJournals();
  bool CheckTransactions();
  void CheckLines();
  void WriteSection();
  void WriteTransactions(const Journal& journal, uint32_t row, RecordFile& transactions, RecordFile& lines);

  Dataset& dataset_;
  RowIndex& index_;
  AuditFileOutput& output_;
  std::ostream& notes_;
  bool has_journals_ = false;
  SectionTotals totals_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_ENTRIESWRITER_H_
