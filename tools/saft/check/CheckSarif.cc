// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/check/CheckSarif.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <string_view>

#include "tools/saft/check/RuleSeverity.h"
#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {
namespace {

using Json = nlohmann::ordered_json;

size_t NumberOf(std::string_view rule) {
  const std::span<const RuleInfo> rules = AuditFileChecker::Rules();
  return static_cast<size_t>(std::ranges::find(rules, rule, &RuleInfo::id) - rules.begin());
}

std::string_view LevelOf(Severity severity) {
  switch (severity) {
    case Severity::kError:
      return "error";
    case Severity::kWarning:
      return "warning";
    case Severity::kInformation:
      return "note";
    case Severity::kOff:
      break;
  }
  return "none";
}

Json MessageOf(std::string_view text) { return {{"text", text}}; }

/// The files of a run, each once: a user may name one twice.
class Artifacts {
 public:
  /// What stands for a file in a location.
  Json LocationOf(const CheckReport& report) {
    const std::string uri = UriOf(report.file);
    const auto [known, added] = numbers_.try_emplace(uri, all_.size());
    if (added) all_.push_back({{"location", {{"uri", uri}}}});
    return {{"uri", uri}, {"index", known->second}};
  }
  const Json& All() const { return all_; }

 private:
  Json all_ = Json::array();
  std::map<std::string, size_t> numbers_;
};

Json RulesToJson() {
  Json all = Json::array();
  for (const RuleInfo& rule : AuditFileChecker::Rules()) {
    Json json = {
        {"id", rule.id},
        {"name", TitleOf(rule)},
        {"shortDescription", MessageOf(TitleOf(rule))},
        {"fullDescription", MessageOf(ExplanationOf(rule))},
        {"defaultConfiguration", {{"level", LevelOf(rule.severity)}}},
    };
    if (!rule.source.empty()) json["properties"] = {{"source", rule.source}};
    all.push_back(std::move(json));
  }
  return all;
}

// The severities that were chosen, of a rule the last.
Json OverridesToJson(const CheckChoices& choices) {
  std::map<size_t, Severity> chosen;
  for (const auto& [rule, severity] : choices.severities) chosen.insert_or_assign(NumberOf(rule), severity);
  Json all = Json::array();
  for (const auto& [number, severity] : chosen) {
    const Json configuration =
        severity == Severity::kOff ? Json{{"enabled", false}} : Json{{"level", LevelOf(severity)}};
    all.push_back({{"configuration", configuration},
                   {"descriptor", {{"id", AuditFileChecker::Rules()[number].id}, {"index", number}}}});
  }
  return all;
}

Json LocationOf(const Finding& finding, const Json& artifact) {
  Json physical = {{"artifactLocation", artifact}};
  if (finding.place.line > 0) {
    physical["region"] = {{"startLine", finding.place.line}};
    if (finding.place.column > 0) physical["region"]["startColumn"] = finding.place.column;
  }
  Json location = {{"physicalLocation", std::move(physical)}};
  std::string element(finding.kind ? NameOf(*finding.kind) : std::string_view());
  if (!finding.key.empty()) element.append(" ").append(finding.key);
  if (!element.empty() && !finding.path.empty()) element.append("/");
  element.append(finding.path);
  if (element.empty()) return location;
  Json logical = {{"fullyQualifiedName", element}, {"kind", "element"}};
  if (!finding.key.empty()) logical["name"] = finding.key;
  location["logicalLocations"] = Json::array({std::move(logical)});
  return location;
}

Json ResultOf(const Finding& finding, const Json& artifact) {
  Json json = {
      {"ruleId", finding.rule},
      {"ruleIndex", NumberOf(finding.rule)},
      {"level", LevelOf(finding.severity)},
      {"message", MessageOf(Describe(finding, SpokenLanguage()))},
      {"locations", Json::array({LocationOf(finding, artifact)})},
  };
  Json values = Json::object();
  if (!finding.found.empty()) values["found"] = finding.found;
  if (!finding.expected.empty()) values["expected"] = finding.expected;
  if (!finding.difference.empty()) values["difference"] = finding.difference;
  if (!values.empty()) json["properties"] = std::move(values);
  return json;
}

Json InvocationOf(std::span<const CheckReport> reports, Artifacts& artifacts, const CheckChoices& choices,
                  int exit_code) {
  Json notifications = Json::array();
  for (const CheckReport& report : reports) {
    if (report.error.empty()) continue;
    notifications.push_back(
        {{"level", "error"},
         {"message", MessageOf(report.error)},
         {"locations", Json::array({{{"physicalLocation", {{"artifactLocation", artifacts.LocationOf(report)}}}}})}});
  }
  return {
      {"executionSuccessful", notifications.empty()},
      {"exitCode", exit_code},
      {"ruleConfigurationOverrides", OverridesToJson(choices)},
      {"toolExecutionNotifications", notifications},
  };
}

bool IsPlain(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         std::string_view("-._~/").find(c) != std::string_view::npos;
}

}  // namespace

std::string UriOf(const std::string& file) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string uri(file.starts_with('/') ? "file://" : "");
  for (const char c : file) {
    if (IsPlain(c)) {
      uri += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      uri.append(1, '%').append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 0xF]);
    }
  }
  return uri;
}

std::string SarifOf(std::span<const CheckReport> reports, const CheckChoices& choices, int exit_code) {
  Artifacts artifacts;
  Json results = Json::array();
  for (const CheckReport& report : reports) {
    const Json artifact = artifacts.LocationOf(report);
    for (const Finding& finding : report.findings) results.push_back(ResultOf(finding, artifact));
  }
  const Json invocation = InvocationOf(reports, artifacts, choices, exit_code);
  const Json driver = {{"name", "saft"}, {"version", SAFT_VERSION}, {"rules", RulesToJson()}};
  const Json run = {
      {"tool", {{"driver", driver}}},      {"language", SpokenLanguage() == Language::kPortuguese ? "pt" : "en"},
      {"columnKind", "unicodeCodePoints"}, {"invocations", Json::array({invocation})},
      {"artifacts", artifacts.All()},      {"results", std::move(results)},
  };
  const Json document = {
      {"$schema", "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json"},
      {"version", "2.1.0"},
      {"runs", Json::array({run})},
  };
  return document.dump(1, ' ', false, Json::error_handler_t::replace);
}

}  // namespace zevo::saft
