// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/check/CheckJson.h"

#include <array>
#include <nlohmann/json.hpp>
#include <numeric>

#include "tools/saft/check/RuleSeverity.h"
#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {
namespace {

using Json = nlohmann::ordered_json;

// In the order of `CheckVerdict`.
constexpr std::array kVerdicts{"clean", "warnings", "errors", "not-judged"};

Json NothingOr(const std::string& text) { return text.empty() ? Json() : Json(text); }

Json ToJson(const Finding& finding) {
  return {
      {"rule", finding.rule},
      {"severity", NameOf(finding.severity)},
      {"kind", finding.kind ? Json(zevo::NameOf(*finding.kind)) : Json()},
      {"key", finding.key},
      {"element", finding.path},
      {"line", finding.place.line},
      {"column", finding.place.column},
      {"found", finding.found},
      {"expected", finding.expected},
      {"difference", finding.difference},
      {"message", Describe(finding, SpokenLanguage())},
  };
}

}  // namespace

std::string JsonOf(const CheckReport& report) {
  Json counts = Json::object();
  const std::span<const RuleInfo> rules = AuditFileChecker::Rules();
  for (size_t i = 0; i < rules.size(); ++i) {
    const int64_t all = std::reduce(report.counts[i].begin(), report.counts[i].end());
    if (all > 0) counts[std::string(rules[i].id)] = all;
  }
  Json findings = Json::array();
  for (const Finding& finding : report.findings) findings.push_back(ToJson(finding));
  const Json json = {
      {"file", report.file},
      {"version", NothingOr(report.version)},
      {"verdict", kVerdicts[static_cast<size_t>(report.verdict)]},
      {"error", NothingOr(report.error)},
      {"counts", std::move(counts)},
      {"findings", std::move(findings)},
  };
  // The name of a file may be no UTF-8.
  return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace zevo::saft
