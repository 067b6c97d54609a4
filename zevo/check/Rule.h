// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_RULE_H_
#define ZEVO_CHECK_RULE_H_

#include <zevo/check/EntityFacts.h>
#include <zevo/model/Finding.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace zevo {

class Judgement;

/// A rule: what is told of it, and the functions that judge. They get the facts of each entity in the order of the
/// file, once what is known of the whole file has taken them in. Those that a rule does not need are null.
struct Rule {
  RuleInfo info;
  /// Tells what the schema refuses too, though softer than an error: the schema's finding is left out.
  bool stands_for_schema = false;

  void (*entity)(const EntityFacts&, Judgement&) = nullptr;  ///< of any kind
  void (*header)(const HeaderFacts&, Judgement&) = nullptr;
  void (*account)(const AccountFacts&, Judgement&) = nullptr;
  void (*party)(const PartyFacts&, Judgement&) = nullptr;  ///< a customer or a supplier
  void (*product)(const ProductFacts&, Judgement&) = nullptr;
  void (*tax_table)(const TaxTableFacts&, Judgement&) = nullptr;
  void (*section)(const SectionFacts&, Judgement&) = nullptr;
  void (*journal)(const JournalFacts&, Judgement&) = nullptr;
  void (*transaction)(const TransactionFacts&, Judgement&) = nullptr;
  void (*invoice)(const InvoiceFacts&, Judgement&) = nullptr;
  void (*at_end)(Judgement&) = nullptr;  ///< behind the last entity of a file that is read to its end
};

/// All rules, family by family. A rule is known by its place among them.
std::span<const Rule> AllRules();
/// What is told of each, in the same order.
std::span<const RuleInfo> AllRuleInfos();
/// Where a rule is; nothing for an identifier of none.
std::optional<size_t> RuleOf(std::string_view id);

}  // namespace zevo

#endif  // ZEVO_CHECK_RULE_H_
