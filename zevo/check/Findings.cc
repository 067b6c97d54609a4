// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/Findings.h>

#include <zevo/TextHash.h>
#include <zevo/check/FileRules.h>
#include <zevo/check/KeptElement.h>
#include <zevo/check/Rule.h>

#include <algorithm>
#include <string>
#include <utility>

namespace zevo {
namespace {

// An element as findings and violations name it. A violation may come before it is known whether the first of a name is
// the only one, so "Line[1]" is "Line".
std::string ElementKey(const std::optional<EntityKind>& kind, std::string_view key, std::string_view path) {
  const std::string_view record = kind ? zevo::NameOf(*kind) : std::string_view();
  std::string name;
  name.reserve(record.size() + key.size() + path.size() + 2);
  name.append(record).append(1, '\0').append(key).append(1, '\0');
  constexpr std::string_view kFirst = "[1]";
  for (size_t first = path.find(kFirst); first != std::string_view::npos; first = path.find(kFirst)) {
    name.append(path.substr(0, first));
    path.remove_prefix(first + kFirst.size());
  }
  return name.append(path);
}

// No file makes more of them be kept: those beyond are counted alone.
constexpr size_t kMostAlike = 1000;

/// What the schema has against an element.
enum class Told : uint8_t { kViolation, kUnreadable };

template <class T>
std::string ElementKey(const T& told) {
  return ElementKey(told.kind, told.key, told.path);
}

}  // namespace

Findings::Findings(const CheckSettings& settings, const Sink& found, bool schemaViolated)
    : settings_(settings), found_(found), schema_violated_(schemaViolated), counts_(settings.severities.size()) {}

// What a host sets is for the findings of the rule's own severity; those that it tells softer are never harder for it.
Severity Findings::SeverityOf(size_t rule, Severity told) const {
  const Severity set = settings_.severities[rule];
  return told == AllRules()[rule].info.severity ? set : std::min(set, told);
}

bool Findings::Wants(size_t rule) const { return schema_violated_ || IsTold(rule); }

// Whether the next finding of the rule is told, not only counted.
bool Findings::IsTold(size_t rule) const {
  return found_ && (settings_.most_of_a_rule == 0 || counts_[rule].all < Most());
}

void Findings::Tell(size_t rule, Finding finding) {
  if (!IsOn(rule)) return;
  if (schema_violated_) {
    held_.push_back({rule, std::move(finding)});
  } else {
    Raise(rule, std::move(finding));
  }
}

void Findings::Count(size_t rule, Severity severity, size_t findings) {
  if (IsOn(rule) && findings > 0) Add(rule, SeverityOf(rule, severity), findings);
}

void Findings::Add(size_t rule, Severity severity, size_t findings) {
  const auto more = static_cast<int64_t>(findings);
  FindingCount& count = counts_[rule];
  count.all += more;
  count.of_severity[static_cast<size_t>(severity)] += more;
  total_ += more;
  worst_ = std::max(worst_, severity);
}

void Findings::Raise(size_t rule, Finding finding) {
  finding.rule = AllRules()[rule].info.id;
  finding.severity = SeverityOf(rule, finding.severity);
  const bool told = IsTold(rule);
  Add(rule, finding.severity, 1);
  if (!told) return;
  in_host_ = true;
  found_(finding);
  in_host_ = false;
}

bool Findings::CountAlike(const Sentence& sentence, const std::string& found, const std::string& expected) {
  const auto alike = alike_by_key_.find({&sentence, found, expected});
  if (alike == alike_by_key_.end()) return false;
  ++alike->second->count;
  return true;
}

void Findings::TellAlike(size_t rule, Finding finding) {
  if (!IsOn(rule)) return;
  if (alike_.size() == kMostAlike) return Add(rule, SeverityOf(rule, finding.severity), 1);
  AlikeKey key{finding.wording.sentence, finding.found, finding.expected};
  alike_by_key_.emplace(std::move(key), &alike_.emplace_back(Alike{rule, std::move(finding)}));
}

void Findings::Tell(Violation violation) {
  if (waiting_.size() == kMostWaiting) {
    Settle(waiting_.front());
    waiting_.pop_front();
  }
  waiting_.push_back(std::move(violation));
}

void Findings::EndEntity(const EntityFacts& entity) {
  if (!schema_violated_) return;
  const int64_t end = entity.entity->PlaceOf(entity.entity->Count() - 1).offset;
  const auto behind = std::ranges::find_if(waiting_, [&](const Violation& each) { return each.place.offset > end; });
  Settle(static_cast<size_t>(behind - waiting_.begin()));
}

void Findings::End() {
  for (Alike& alike : alike_) {
    alike.finding.difference = std::to_string(alike.count);
    Tell(alike.rule, std::move(alike.finding));
  }
  Settle(waiting_.size());
}

bool Findings::SilencesSchema(const Held& held) const {
  return held.finding.severity == Severity::kError || AllRules()[held.rule].stands_for_schema;
}

// The held findings, then so many of the violations that wait.
void Findings::Settle(size_t violations) {
  if (!held_.empty()) SettleHeld(violations);
  for (; violations > 0; --violations) {
    Settle(waiting_.front());
    waiting_.pop_front();
  }
}

// Of the same element, READ is told before any rule, an error before the schema's violation, and that before what is
// softer.
void Findings::SettleHeld(size_t violations) {
  TextMap<Told> at;  // by elements that violations are of
  for (size_t i = 0; i < violations; ++i) {
    const Violation& violation = waiting_[i];
    if (!MayBeToldByRules(violation.path)) continue;
    Told& told = at[ElementKey(violation)];
    told = RuleOf(violation) == RulesOfViolations().read ? Told::kUnreadable : std::max(told, Told::kViolation);
  }
  for (Held& held : held_) {
    const std::string name = ElementKey(held.finding);
    const auto told = at.find(name);
    if (told != at.end() && (told->second == Told::kUnreadable || !SilencesSchema(held))) continue;
    // Of entities that are gone, or of more violations than wait.
    if (violated_.Has(name)) continue;
    // Violations may come late, when the key of their record does.
    if (SilencesSchema(held)) told_.Add(name);
    Raise(held.rule, std::move(held.finding));
  }
  held_.clear();
}

void Findings::Settle(const Violation& violation) {
  const size_t rule = RuleOf(violation);
  if (!IsOn(rule)) return;
  if (IsDangling(violation) && IsOn(RulesOfViolations().references)) return;  // told at the end
  if (MayBeToldByRules(violation.path)) {
    const std::string element = ElementKey(violation);
    if (told_.Has(element)) return;
    violated_.Add(element);
  }
  if (IsTold(rule)) {
    Raise(rule, FindingOf(violation));
  } else {
    Add(rule, SeverityOf(rule, Severity::kError), 1);
  }
}

// Which of the rules tells a violation.
size_t Findings::RuleOf(const Violation& violation) const {
  const ViolationRules& rules = RulesOfViolations();
  return IsUnreadable(violation) && IsOn(rules.read) ? rules.read : rules.schema;
}

CheckVerdict Findings::Verdict() const {
  switch (worst_) {
    case Severity::kError:
      return CheckVerdict::kErrors;
    case Severity::kWarning:
      return CheckVerdict::kWarnings;
    case Severity::kInformation:
    case Severity::kOff:
      return CheckVerdict::kClean;
  }
  return CheckVerdict::kNotJudged;
}

}  // namespace zevo
