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
  /// A rule that is on, with its functions that judge facts.
  template <class Facts>
  struct ActiveRule {
    size_t number;
    const Rule* rule;
    void (*entity)(const EntityFacts&, Judgement&);
    void (*judge)(const Facts&, Judgement&);
  };
  /// A kind of facts with the rules that look at it: an entity costs nothing for others.
  template <class Facts>
  struct Judged {
    Facts facts;  // kept for its memory
    std::vector<ActiveRule<Facts>> rules;
  };

  template <class Facts>
  void Add(size_t number, const Rule& rule, void (*judge)(const Facts&, Judgement&), Judged<Facts>& judged);
  template <class Rules, class Run>
  void RunRules(const Rules& rules, const Run& run);
  template <class Facts>
  void JudgeAs(const ScannedEntity& entity, Judged<Facts>& judged);

  Findings& findings_;
  CheckedFile file_;
  Judged<HeaderFacts> header_;
  Judged<AccountFacts> account_;
  Judged<PartyFacts> party_;
  Judged<ProductFacts> product_;
  Judged<TaxTableFacts> tax_table_;
  Judged<SectionFacts> section_;
  Judged<JournalFacts> journal_;
  Judged<TransactionFacts> transaction_;
  Judged<InvoiceFacts> invoice_;
  struct EndingRule {
    size_t number;
    const Rule* rule;
  };
  std::vector<EndingRule> at_end_;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_FILECHECK_H_
