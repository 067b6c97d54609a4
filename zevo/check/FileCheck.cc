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
  static const PublicKeys kNone;
  return findings.IsOn(*RuleOf("HASH-CHAIN")) ? keys : kNone;
}

}  // namespace

FileCheck::FileCheck(const CheckSettings& settings, Findings& findings, std::span<const Rule> rules)
    : findings_(findings), file_(settings.most_of_a_rule, KeysFor(findings, settings.public_keys)) {
  for (size_t i = 0; i < rules.size(); ++i) {
    if (findings.IsOn(i)) active_.push_back({i, &rules[i]});
  }
}

template <class Run>
void FileCheck::RunRules(const Run& run) {
  const Rule* at = nullptr;
  try {
    for (const ActiveRule& active : active_) {
      at = active.rule;
      Judgement judgement(file_, findings_, active.number);
      run(*active.rule, judgement);
    }
  } catch (...) {
    if (findings_.HasHostThrown()) throw;
    RaiseFaultOf(*at);
  }
}

template <class Facts>
void FileCheck::JudgeAs(const ScannedEntity& entity, Facts& facts, void (*Rule::*judge)(const Facts&, Judgement&)) {
  TakeFacts(entity, facts);
  file_.Take(facts);
  RunRules([&](const Rule& rule, Judgement& judgement) {
    if (rule.entity != nullptr) rule.entity(facts, judgement);
    if (rule.*judge != nullptr) (rule.*judge)(facts, judgement);
  });
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
  file_.End();
  RunRules([](const Rule& rule, Judgement& judgement) {
    if (rule.at_end != nullptr) rule.at_end(judgement);
  });
  findings_.End();
}

}  // namespace zevo
