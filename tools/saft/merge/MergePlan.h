// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_MERGE_MERGEPLAN_H_
#define ZEVO_TOOLS_SAFT_MERGE_MERGEPLAN_H_

#include <zevo/adapters.h>

#include <array>
#include <cstddef>
#include <list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/saft/input/FileState.h"
#include "tools/saft/merge/ElementCopy.h"
#include "tools/saft/merge/EntityReader.h"
#include "tools/saft/merge/MasterRecords.h"
#include "tools/saft/merge/MergedTotals.h"
#include "tools/saft/merge/Period.h"

namespace zevo::saft {

/// A file to merge.
struct MergeSource {
  std::string name;  ///< as the user gave it
  std::optional<FileState> state;
  Period period;
  std::string company;
  std::string basis;
  std::string start_date;   ///< as the header has it
  std::string fiscal_year;  ///< as the header has it
  ElementCopy header;
  std::array<RecordRange, kEntityKinds> records;  ///< by kind, transactions left out
};

/// A journal of all files.
struct MergedJournal {
  std::string id;
  ElementCopy elements;                                      ///< of the last file that has it
  std::vector<std::pair<size_t, RecordRange>> transactions;  ///< by file
};

/// A section of all files; files without it add nothing.
struct MergedSection {
  bool is_there = false;
  MergedTotals totals;
};

/// The master records of which a key tells which are the same.
inline constexpr std::array kKeyedMasters{EntityKind::kGeneralLedger, EntityKind::kCustomer, EntityKind::kSupplier,
                                          EntityKind::kProduct};

/// All that has to be known of the files before one is made of them.
struct MergePlan {
  std::vector<MergeSource> sources;  ///< the earliest period first
  std::array<MasterRecords, kKeyedMasters.size()> masters;
  std::list<MergedJournal> journals;  ///< in their order
  MergedSection entries;
  MergedSection invoices;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_MERGE_MERGEPLAN_H_
