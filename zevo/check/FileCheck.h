// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_FILECHECK_H_
#define ZEVO_CHECK_FILECHECK_H_

#include <zevo/check/CheckedFile.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/check/Findings.h>
#include <zevo/check/Rule.h>

#include <cstddef>
#include <span>
#include <vector>

namespace zevo {

/// The check of one file: gives each entity to the rules that are on. What a rule throws is a fault of the rule:
/// message 701 names it. What the host's function throws, and a lack of memory, come out as they are.
class FileCheck {
 public:
  FileCheck(const CheckSettings& settings, Findings& findings, std::span<const Rule> rules = AllRules());

  /// Takes the next entity of the file. Violations of the schema in it must have been told.
  void Judge(const ScannedEntity& entity);
  /// The file is through.
  void End();

 private:
  struct ActiveRule {
    size_t number;
    const Rule* rule;
  };

  template <class Run>
  void RunRules(const Run& run);
  template <class Facts>
  void JudgeAs(const ScannedEntity& entity, Facts& facts, void (*Rule::*judge)(const Facts&, Judgement&));

  Findings& findings_;
  CheckedFile file_;
  std::vector<ActiveRule> active_;
  // Kept for their memory.
  HeaderFacts header_;
  AccountFacts account_;
  PartyFacts party_;
  ProductFacts product_;
  TaxTableFacts tax_table_;
  SectionFacts section_;
  JournalFacts journal_;
  TransactionFacts transaction_;
  InvoiceFacts invoice_;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_FILECHECK_H_
