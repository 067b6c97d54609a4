// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CHECK_RULESEVERITY_H_
#define ZEVO_TOOLS_SAFT_CHECK_RULESEVERITY_H_

#include <zevo/adapters.h>

#include <string>
#include <string_view>

#include "tools/saft/words/SeverityName.h"

namespace zevo::saft {

/// What people call a severity, in the language spoken.
std::string_view WordOf(Severity severity);

/// What a rule is about, and what must hold, in the language spoken.
std::string_view TitleOf(const RuleInfo& rule);
std::string_view ExplanationOf(const RuleInfo& rule);

/// The rule of an identifier. Fails for one of none, with the nearest that there is.
const RuleInfo& RuleNamed(std::string_view id);

/// How much the findings of a rule are to weigh.
struct RuleSeverity {
  std::string rule;
  Severity severity;
};

/// From the names of both. Fails where one is not known.
RuleSeverity MakeRuleSeverity(std::string_view rule, std::string_view severity);
/// From "RULE=SEVERITY", as it stands on a command line.
RuleSeverity TakeRuleSeverity(std::string_view text);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CHECK_RULESEVERITY_H_
