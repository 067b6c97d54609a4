// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/check/RulesCommand.h"

#include <unistd.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <span>
#include <string_view>

#include "tools/saft/check/RuleSeverity.h"
#include "tools/saft/terminal/Table.h"
#include "tools/saft/terminal/TerminalWidth.h"
#include "tools/saft/terminal/WrappedText.h"
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

// In lines of a page's width, or of the terminal's where that is narrower.
void PrintWrapped(std::string_view text) {
  constexpr size_t kPage = 100;  // characters
  const size_t width = std::min(kPage, TerminalWidth(STDOUT_FILENO).value_or(kPage));
  std::cout << WrappedText(text, width, {.first = 2, .others = 2}) << '\n';
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
