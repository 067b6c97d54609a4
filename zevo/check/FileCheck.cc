// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/FileCheck.h>

#include <zevo/check/Judgement.h>

namespace zevo {

FileCheck::FileCheck(const CheckSettings& settings, Findings& findings)
    : findings_(findings), file_(settings.most_of_a_rule, settings.public_keys) {
  const std::span<const Rule> rules = AllRules();
  for (size_t i = 0; i < rules.size(); ++i) {
    if (findings.IsOn(i)) active_.push_back({i, &rules[i]});
  }
}

template <class Facts>
void FileCheck::JudgeAs(const ScannedEntity& entity, Facts& facts, void (*Rule::*judge)(const Facts&, Judgement&)) {
  TakeFacts(entity, facts);
  file_.Take(facts);
  for (const ActiveRule& active : active_) {
    Judgement judgement(file_, findings_, active.number);
    if (active.rule->entity != nullptr) active.rule->entity(facts, judgement);
    if (active.rule->*judge != nullptr) (active.rule->*judge)(facts, judgement);
  }
  findings_.EndEntity(facts);
}

void FileCheck::Judge(const ScannedEntity& entity) {
  switch (entity.Kind()) {
    case EntityKind::kHeader:
      return JudgeAs(entity, header_, &Rule::header);
    case EntityKind::kGeneralLedger:
      return JudgeAs(entity, account_, &Rule::account);
    case EntityKind::kCustomer:
    case EntityKind::kSupplier:
      return JudgeAs(entity, party_, &Rule::party);
    case EntityKind::kProduct:
      return JudgeAs(entity, product_, &Rule::product);
    case EntityKind::kTaxTable:
      return JudgeAs(entity, tax_table_, &Rule::tax_table);
    case EntityKind::kGeneralLedgerEntries:
    case EntityKind::kSalesInvoices:
      return JudgeAs(entity, section_, &Rule::section);
    case EntityKind::kJournal:
      return JudgeAs(entity, journal_, &Rule::journal);
    case EntityKind::kTransaction:
      return JudgeAs(entity, transaction_, &Rule::transaction);
    case EntityKind::kInvoice:
      return JudgeAs(entity, invoice_, &Rule::invoice);
  }
}

void FileCheck::End() {
  for (const ActiveRule& active : active_) {
    Judgement judgement(file_, findings_, active.number);
    if (active.rule->at_end != nullptr) active.rule->at_end(judgement);
  }
  findings_.End();
}

}  // namespace zevo
