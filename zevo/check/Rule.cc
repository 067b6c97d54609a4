// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/Rule.h>

#include <zevo/check/Families.h>

#include <algorithm>
#include <vector>

namespace zevo {
namespace {

std::vector<Rule> RulesOfAllFamilies() {
  std::vector<Rule> rules;
  for (const auto family : kFamilies) {
    const std::span<const Rule> more = family();
    rules.insert(rules.end(), more.begin(), more.end());
  }
  return rules;
}

std::vector<RuleInfo> InfosOf(std::span<const Rule> rules) {
  std::vector<RuleInfo> infos;
  for (const Rule& rule : rules) infos.push_back(rule.info);
  return infos;
}

}  // namespace

std::span<const Rule> AllRules() {
  static const std::vector<Rule> kRules = RulesOfAllFamilies();
  return kRules;
}

std::span<const RuleInfo> AllRuleInfos() {
  static const std::vector<RuleInfo> kInfos = InfosOf(AllRules());
  return kInfos;
}

std::optional<size_t> RuleOf(std::string_view id) {
  const std::span<const Rule> rules = AllRules();
  const auto rule = std::ranges::find(rules, id, [](const Rule& one) { return one.info.id; });
  if (rule == rules.end()) return std::nullopt;
  return static_cast<size_t>(rule - rules.begin());
}

}  // namespace zevo
