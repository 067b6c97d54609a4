// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/check/RuleSeverity.h"

#include <algorithm>
#include <array>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/NearestName.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/CheckWords.h"
#include "tools/saft/words/ErrorWords.h"

namespace zevo::saft {
namespace {

struct NamedSeverity {
  std::string_view name;
  Text<> word;
};
// In the order of `Severity`.
constexpr std::array kSeverityNames{
    NamedSeverity{NameOf(Severity::kOff), words::kOff},
    NamedSeverity{NameOf(Severity::kInformation), words::kInformation},
    NamedSeverity{NameOf(Severity::kWarning), words::kWarning},
    NamedSeverity{NameOf(Severity::kError), words::kError},
};

}  // namespace

std::string_view WordOf(Severity severity) {
  return kSeverityNames[static_cast<size_t>(severity)].word.In(SpokenLanguage());
}

std::string_view TitleOf(const RuleInfo& rule) { return rule.title[static_cast<size_t>(SpokenLanguage())]; }
std::string_view ExplanationOf(const RuleInfo& rule) { return rule.explanation[static_cast<size_t>(SpokenLanguage())]; }

const RuleInfo& RuleNamed(std::string_view id) {
  const std::span<const RuleInfo> rules = AuditFileChecker::Rules();
  const auto rule = std::ranges::find(rules, id, &RuleInfo::id);
  if (rule != rules.end()) return *rule;
  throw Failure(Say(words::kUnknownRule, Quoted(id)) + DidYouMean(id, rules, &RuleInfo::id));
}

RuleSeverity MakeRuleSeverity(std::string_view rule, std::string_view severity) {
  const std::string_view known = RuleNamed(rule).id;
  const auto named = std::ranges::find(kSeverityNames, severity, &NamedSeverity::name);
  if (named != kSeverityNames.end()) {
    return {std::string(known), static_cast<Severity>(named - kSeverityNames.begin())};
  }
  throw Failure(Say(words::kUnknownSeverity, known, Quoted(severity)) +
                DidYouMean(severity, kSeverityNames, &NamedSeverity::name));
}

RuleSeverity TakeRuleSeverity(std::string_view text) {
  const size_t equals = text.find('=');
  if (equals == std::string_view::npos) throw Failure(Say(words::kNoSeverity, Quoted(text)));
  return MakeRuleSeverity(text.substr(0, equals), text.substr(equals + 1));
}

}  // namespace zevo::saft
