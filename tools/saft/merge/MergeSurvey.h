// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_MERGE_MERGESURVEY_H_
#define ZEVO_TOOLS_SAFT_MERGE_MERGESURVEY_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/saft/dataset/KeyIndex.h"
#include "tools/saft/input/ProblemReport.h"
#include "tools/saft/merge/EntityReader.h"
#include "tools/saft/merge/MergePlan.h"
#include "tools/saft/merge/MergeReport.h"

namespace zevo::saft {

/// Reads the files to merge once, the earliest period first, and tells whatever is wrong with them.
class MergeSurvey {
 public:
  MergeSurvey(MergeReport& report, MergeProgress& progress) : report_(report), progress_(progress) {}

  /// The plan is of use where nothing is told that keeps the files from being merged.
  MergePlan Read(const std::vector<std::string>& files);

  /// What of the files cannot be copied.
  const std::vector<ProblemReport>& Problems() const { return problems_; }

 private:
  using Journal = std::list<MergedJournal>::iterator;
  struct SeenJournal {
    Journal journal;
    bool is_new;  ///< in this file
  };

  void TakeHeader(const std::string& file);
  void CompareHeaders();
  void ReadFile(size_t source);
  void Take(size_t source, const EntityReader& reader);
  void TakeMaster(size_t source, const AuditFileScanner& scanner);
  void TakeDocument(size_t source, const AuditFileScanner& scanner, KeyIndex& keys);
  void TakeProblems(const AuditFileScanner& scanner);
  void TakeJournal(const AuditFileScanner& scanner);
  void TakeTransaction(size_t source, const EntityReader& reader);
  Journal JournalOf(std::string_view id);
  void OrderJournals();

  /// The totals that the section of a file has.
  struct SectionTexts {
    bool is_there = false;
    std::optional<std::string> entries;
    std::optional<std::string> debit;
    std::optional<std::string> credit;
  };
  static void TakeSection(const AuditFileScanner& scanner, SectionTexts& texts);
  void EndSection(size_t source, EntityKind kind, const SectionTexts& texts, MergedSection& section);

  MergeReport& report_;
  MergeProgress& progress_;
  MergePlan plan_;
  std::vector<ProblemReport> problems_;
  KeyIndex invoices_;      // by InvoiceNo, the file from 1
  KeyIndex transactions_;  // by TransactionID
  TextMap<Journal> journals_;

  // Of the file that is being read.
  SectionTexts entries_texts_;
  SectionTexts invoices_texts_;
  std::vector<SeenJournal> seen_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_MERGE_MERGESURVEY_H_
