// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_ENTRIESWRITER_H_
#define ZEVO_TOOLS_SAFT_CREATE_ENTRIESWRITER_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <ostream>
#include <vector>

#include "tools/saft/create/AuditFileOutput.h"
#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/RecordTable.h"

namespace zevo::saft {

/// Writes the general ledger entries of a dataset: its journals with their transactions, and the totals.
class EntriesWriter {
 public:
  /// What the user should know goes to `notes`.
  EntriesWriter(Dataset& dataset, AuditFileOutput& output, std::ostream& notes)
      : dataset_(dataset), output_(output), notes_(notes) {}

  void Write();

 private:
  struct Journals {
    RecordTable<Journal> table;
    bool has_file;
  };
  /// The transactions, and for each of them the place of its journal.
  struct Transactions {
    RecordTable<Transaction> table;
    std::vector<size_t> journals;
    bool has_file;
  };

  Journals ReadJournals();
  Transactions ReadTransactions(const RecordTable<Journal>& journals);
  void ReadLines(const RecordTable<Transaction>& transactions);
  void WriteSection(RecordTable<Journal>& journals, Transactions& transactions);

  Dataset& dataset_;
  AuditFileOutput& output_;
  std::ostream& notes_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_ENTRIESWRITER_H_
