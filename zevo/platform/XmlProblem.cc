// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/XmlProblem.h>

#include <utility>

namespace zevo {

XmlProblem UnreadableFile(const Error& error) {
  return {.number = error.Number(), .reason = error.Description(), .fault = XmlProblem::Fault::kUnreadable};
}

Error AsError(const XmlProblem& problem, std::string_view source) {
  constexpr std::string_view kBlanks = " \t\r\n";
  const auto& [line, column, offset] = problem.place;
  std::string description = problem.reason.substr(0, problem.reason.find_last_not_of(kBlanks) + 1);
  if (line > 0) {
    if (!description.empty()) description += ' ';
    description.append("(linha ").append(std::to_string(line));
    if (column > 0) description.append(", coluna ").append(std::to_string(column));
    description += ')';
  }
  return Error(problem.number, std::string(source), std::move(description));
}

void Raise(const std::optional<XmlProblem>& problem, std::string_view source) {
  if (problem) throw AsError(*problem, source);
}

}  // namespace zevo
