// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/check/RulesCommand.h"

#include <zevo/adapters.h>

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <span>
#include <string_view>

#include "tools/saft/check/RuleSeverity.h"
#include "tools/saft/terminal/Table.h"
#include "tools/saft/words/CheckWords.h"
#include "tools/saft/words/UsageWords.h"

namespace zevo::saft {
namespace {

void PrintTable(std::span<const RuleInfo> rules) {
  Table table(3);
  for (const RuleInfo& rule : rules) {
    table.Add({std::string(rule.id), std::string(WordOf(rule.severity)), std::string(TitleOf(rule))});
  }
  table.Print(std::cout);
}

// In lines of a page's width.
void PrintWrapped(std::string_view text) {
  constexpr size_t kWidth = 100;  // characters
  size_t column = 0;
  while (!text.empty()) {
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(text.size(), word.size() + 1));
    const size_t width = CharactersIn(word);
    const bool fits = column + 1 + width <= kWidth;
    if (column > 0) std::cout << (fits ? " " : "\n");
    std::cout << (column > 0 && fits ? "" : "  ") << word;
    column = column > 0 && fits ? column + 1 + width : 2 + width;
  }
  std::cout << '\n';
}

// With the days for which it demands the rule.
std::string SourceOf(const RuleInfo& rule) {
  std::string source(rule.source);
  if (!rule.since.empty()) source.append(", ").append(Say(words::kRuleSince, rule.since));
  if (!rule.until.empty()) source.append(", ").append(Say(words::kRuleUntil, rule.until));
  return source;
}

void PrintWhole(const RuleInfo& rule) {
  std::cout << rule.id << ": " << TitleOf(rule) << " (" << WordOf(rule.severity) << ")\n";
  PrintWrapped(ExplanationOf(rule));
  if (!rule.source.empty()) PrintWrapped(Say(words::kRuleSource, SourceOf(rule)));
}

std::string JsonOf(std::span<const RuleInfo> rules) {
  using Json = nlohmann::ordered_json;
  Json all = Json::array();
  for (const RuleInfo& rule : rules) {
    all.push_back({
        {"id", rule.id},
        {"severity", NameOf(rule.severity)},
        {"title", TitleOf(rule)},
        {"explanation", ExplanationOf(rule)},
        {"source", rule.source},
        {"since", rule.since},
        {"until", rule.until},
    });
  }
  return all.dump(1);
}

}  // namespace

RulesCommand::RulesCommand(CLI::App& options) {
  options.add_option(Say(words::kRuleArgument), rules_, Say(words::kRulesOf))->option_text(" ");
  options.add_flag("--json", json_, Say(words::kRulesJson))->option_text(" ");
  options.footer(Say(words::kRulesHelp));
}

ExitCode RulesCommand::Run() const {
  std::vector<RuleInfo> rules;
  for (const std::string& id : rules_) rules.push_back(RuleNamed(id));
  if (json_) {
    std::cout << JsonOf(rules_.empty() ? AuditFileChecker::Rules() : rules) << '\n';
  } else if (rules_.empty()) {
    PrintTable(AuditFileChecker::Rules());
  } else {
    for (const RuleInfo& rule : rules) {
      if (&rule != &rules.front()) std::cout << '\n';
      PrintWhole(rule);
    }
  }
  return kDone;
}

}  // namespace zevo::saft
