// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_MERGE_MERGEWRITER_H_
#define ZEVO_TOOLS_SAFT_MERGE_MERGEWRITER_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <span>
#include <vector>

#include "tools/saft/dataset/KeyIndex.h"
#include "tools/saft/merge/ElementOutput.h"
#include "tools/saft/merge/EntityReader.h"
#include "tools/saft/merge/MergePlan.h"

namespace zevo::saft {

/// Makes one file of those to merge, reading them side by side: what a file has in another order than is written is
/// read from its beginning again.
class MergeWriter {
 public:
  /// The plan is kept by reference.
  MergeWriter(const MergePlan& plan, ElementOutput& output, MergeProgress& progress);

  void Write();

 private:
  template <class Visit>
  void ForEach(EntityKind kind, const Visit& visit);

  void WriteHeader();
  void WriteMasters(EntityKind kind, const MasterRecords& records);
  void WriteAccount(const AuditFileScanner& scanner, const OpeningBalances& opening);
  void WriteTaxTable();
  void WriteTaxEntries(size_t source, std::span<const ScannedElement> elements, KeyIndex& known);
  void WriteEntries();
  void WriteInvoices();
  void WriteTotals(const MergedTotals& totals);

  const MergePlan& plan_;
  ElementOutput& output_;
  std::vector<EntityReader> readers_;  // of the files
  std::vector<ScannedElement> account_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_MERGE_MERGEWRITER_H_
