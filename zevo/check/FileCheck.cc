// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/FileCheck.h>

#include <zevo/Error.h>
#include <zevo/check/Judgement.h>

#include <exception>
#include <new>
#include <string>

namespace zevo {
namespace {

// What a rule threw, which is being handled.
[[noreturn]] void RaiseFaultOf(const Rule& rule) {
  std::string told(rule.info.id);
  try {
    throw;
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const Error& error) {
    if (error.Number() == static_cast<int32_t>(RunTimeError::kOutOfMemory)) throw;
    told.append(" (").append(error.what()).append(")");
  } catch (const std::exception& error) {
    told.append(" (").append(error.what()).append(")");
  } catch (...) {  // whatever it is, the rule has it
  }
  throw Error(kErrorBase + static_cast<int32_t>(Message::kRuleFailed), "AuditFileChecker.CheckAuditFile",
              "Há um erro deste programa na regra " + told + "; comunique-o, por favor");
}

// None where the rule that looks at signatures is off: to verify them takes long.
const PublicKeys& KeysFor(const Findings& findings, const PublicKeys& keys) {
  static const PublicKeys kNone{};
  return findings.IsOn(*RuleOf("HASH-CHAIN")) ? keys : kNone;
}

}  // namespace

FileCheck::FileCheck(const CheckSettings& settings, Findings& findings, std::span<const Rule> rules)
    : findings_(findings), file_(settings.most_of_a_rule, KeysFor(findings, settings.public_keys)) {
  for (size_t i = 0; i < rules.size(); ++i) {
    if (!findings.IsOn(i)) continue;
    const Rule& rule = rules[i];
    Add(i, rule, rule.header, header_);
    Add(i, rule, rule.account, account_);
    Add(i, rule, rule.party, party_);
    Add(i, rule, rule.product, product_);
    Add(i, rule, rule.tax_table, tax_table_);
    Add(i, rule, rule.section, section_);
    Add(i, rule, rule.journal, journal_);
    Add(i, rule, rule.transaction, transaction_);
    Add(i, rule, rule.invoice, invoice_);
    if (rule.at_end != nullptr) at_end_.push_back({i, &rule});
  }
}

template <class Facts>
void FileCheck::Add(size_t number, const Rule& rule, void (*judge)(const Facts&, Judgement&), Judged<Facts>& judged) {
  if (rule.entity != nullptr || judge != nullptr) judged.rules.push_back({number, &rule, rule.entity, judge});
}

template <class Rules, class Run>
void FileCheck::RunRules(const Rules& rules, const Run& run) {
  const Rule* at = nullptr;
  try {
    for (const auto& active : rules) {
      at = active.rule;
      Judgement judgement(file_, findings_, active.number);
      run(active, judgement);
    }
  } catch (...) {
    if (findings_.HasHostThrown()) throw;
    RaiseFaultOf(*at);
  }
}

template <class Facts>
void FileCheck::JudgeAs(const ScannedEntity& entity, Judged<Facts>& judged) {
  Facts& facts = judged.facts;
  TakeFacts(entity, facts);
  file_.Take(facts);
  RunRules(judged.rules, [&](const ActiveRule<Facts>& active, Judgement& judgement) {
    if (active.entity != nullptr) active.entity(facts, judgement);
    if (active.judge != nullptr) active.judge(facts, judgement);
  });
  findings_.EndEntity(facts);
}

void FileCheck::Judge(const ScannedEntity& entity) {
  switch (entity.Kind()) {
    case EntityKind::kHeader:
      return JudgeAs(entity, header_);
    case EntityKind::kGeneralLedger:
      return JudgeAs(entity, account_);
    case EntityKind::kCustomer:
    case EntityKind::kSupplier:
      return JudgeAs(entity, party_);
    case EntityKind::kProduct:
      return JudgeAs(entity, product_);
    case EntityKind::kTaxTable:
      return JudgeAs(entity, tax_table_);
    case EntityKind::kGeneralLedgerEntries:
    case EntityKind::kSalesInvoices:
      return JudgeAs(entity, section_);
    case EntityKind::kJournal:
      return JudgeAs(entity, journal_);
    case EntityKind::kTransaction:
      return JudgeAs(entity, transaction_);
    case EntityKind::kInvoice:
      return JudgeAs(entity, invoice_);
  }
}

void FileCheck::End() {
  file_.End();
  RunRules(at_end_, [](const EndingRule& active, Judgement& judgement) { active.rule->at_end(judgement); });
  findings_.End();
}

}  // namespace zevo
