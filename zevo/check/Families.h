// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_FAMILIES_H_
#define ZEVO_CHECK_FAMILIES_H_

#include <zevo/check/Rule.h>

#include <span>

namespace zevo {

// The families of rules, one file each. The order is that of AllRules, and of findings of one entity.
std::span<const Rule> FileRules();
std::span<const Rule> HeaderRules();
std::span<const Rule> PartyRules();
std::span<const Rule> AccountRules();
std::span<const Rule> KeyRules();
std::span<const Rule> LedgerRules();
std::span<const Rule> SectionRules();
std::span<const Rule> NumberRules();
std::span<const Rule> DateRules();
std::span<const Rule> DocumentRules();
std::span<const Rule> LineRules();
std::span<const Rule> TotalRules();
std::span<const Rule> TaxRules();
std::span<const Rule> CreditNoteRules();
std::span<const Rule> HashRules();

inline constexpr std::span<const Rule> (*kFamilies[])() = {
    FileRules, HeaderRules,   PartyRules, AccountRules, KeyRules, LedgerRules,     SectionRules, NumberRules,
    DateRules, DocumentRules, LineRules,  TotalRules,   TaxRules, CreditNoteRules, HashRules};

}  // namespace zevo

#endif  // ZEVO_CHECK_FAMILIES_H_
