// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/input/ProblemReport.h"

#include <optional>
#include <string_view>

#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ProblemWords.h"

namespace zevo::saft {
namespace {

constexpr size_t kTold = 5;

// Such as: Invoice FT A/12:
std::string Subject(const AuditFileScanner& scanner, const Problem& problem) {
  const std::optional<EntityKind> kind = scanner.Kind();
  if (!kind || problem.path.starts_with('/')) return {};
  const auto key = KeyOf(*kind).empty() ? std::nullopt : scanner.TextOf(KeyOf(*kind));
  return Visible(SentenceName(*kind, key.value_or(std::string_view()), SpokenLanguage())) + ": ";
}

}  // namespace

void ProblemReport::Add(const AuditFileScanner& scanner, const Problem& problem) {
  if (IsInsideStray(problem)) return;
  Places& places = places_[static_cast<size_t>(problem.fault)];
  if (++places.count > static_cast<int64_t>(kTold)) return;
  places.first.push_back(Subject(scanner, problem).append(Abridged(Describe(problem, SpokenLanguage()))));
}

bool ProblemReport::IsInsideStray(const Problem& problem) {
  if (problem.fault != Fault::kUnknownElement || !problem.path.starts_with('/')) return false;
  if (!stray_.empty() && problem.path.starts_with(stray_ + "/")) return true;
  stray_ = problem.path;
  return false;
}

int64_t ProblemReport::Count() const {
  int64_t count = 0;
  for (const Places& places : places_) count += places.count;
  return count;
}

std::vector<std::string> ProblemReport::First() const {
  std::vector<std::string> all;
  for (const Places& places : places_) all.insert(all.end(), places.first.begin(), places.first.end());
  return all;
}

void ProblemReport::Report(std::ostream& out) const {
  for (const auto& [count, first] : places_) {
    if (count == 0) continue;
    const std::string many = SayOf(static_cast<size_t>(count), words::kProblem, words::kProblems);
    out << "saft: " << Visible(file_) << ": " << many << '\n';
    for (const std::string& place : first) out << "  " << place << '\n';
    const int64_t more = count - static_cast<int64_t>(first.size());
    if (more > 0) out << "  " << Say(words::kAndMore, more) << '\n';
  }
}

}  // namespace zevo::saft
