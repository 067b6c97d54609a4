// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_FINDINGS_H_
#define ZEVO_CHECK_FINDINGS_H_

#include <zevo/check/EntityFacts.h>
#include <zevo/check/KeySet.h>
#include <zevo/check/PublicKeys.h>
#include <zevo/model/Finding.h>
#include <zevo/model/Violation.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <set>
#include <span>
#include <string>
#include <tuple>
#include <vector>

namespace zevo {

/// How many severities there are.
inline constexpr size_t kSeverities = static_cast<size_t>(Severity::kError) + 1;

/// What a host wants of a check.
struct CheckSettings {
  std::vector<Severity> severities;  ///< of the rules, in their order
  size_t most_of_a_rule = 20;        ///< findings that are told; 0 for all
  PublicKeys public_keys = {};       ///< of the documents' signatures
};

/// How many findings of a rule there are.
struct FindingCount {
  int64_t all = 0;
  std::array<int64_t, kSeverities> of_severity{};
};

/// Where everything that is found comes together, and the one place that knows severities, what silences what, how much
/// is told and in which order.
///
/// In a file that the schema allows findings are told as they come. In another the findings of an entity wait until the
/// violations in it are known, so that each fault is told once. Violations wait for the entity that they may be in; of
/// more than `kMostWaiting` the oldest are told without it, and silence what the entity's rules find in their elements.
class Findings {
 public:
  using Sink = std::function<void(const Finding&)>;

  /// Violations that wait.
  static constexpr size_t kMostWaiting = 10'000;

  /// What it is given must outlive it. `schemaViolated` is whether violations will come.
  Findings(const CheckSettings& settings, const Sink& found, bool schemaViolated);

  bool IsOn(size_t rule) const { return settings_.severities[rule] != Severity::kOff; }
  /// Whether another finding of the rule needs more than to be counted.
  bool Wants(size_t rule) const;
  /// Whether this is the first call with the sentence, of those that are told once a file.
  bool IsFirst(const Sentence& sentence) { return once_.insert(&sentence).second; }
  /// A finding with the severity that the rule tells it with.
  void Tell(size_t rule, Finding finding);
  /// Findings that are not wanted, with that severity.
  void Count(size_t rule, Severity severity, size_t findings);

  /// Whether a finding that is told at the end has the same sentence and values, which are not empty: it counts for one
  /// more then.
  bool CountAlike(const Sentence& sentence, const std::string& found, const std::string& expected);
  /// A finding to be told at the end, the difference being for how many it counts.
  void TellAlike(size_t rule, Finding finding);

  /// What the schema does not allow, in the order of a diagnosis. Before rules judge the entity that it may be in.
  void Tell(Violation violation);
  /// An entity is through, and all violations in it were told.
  void EndEntity(const EntityFacts& entity);
  /// There is no more to come.
  void End();

  /// Whether the host's function has thrown.
  bool HasHostThrown() const { return in_host_; }

  /// Of the rules, in their order.
  std::span<const FindingCount> Counts() const { return counts_; }
  /// Of all rules.
  int64_t Total() const { return total_; }
  CheckVerdict Verdict() const;

 private:
  struct Held {
    size_t rule;
    Finding finding;
  };

  struct Alike {
    size_t rule;
    Finding finding;
    size_t count = 1;
  };
  using AlikeKey = std::tuple<const Sentence*, std::string, std::string>;

  Severity SeverityOf(size_t rule, Severity told) const;
  bool SilencesSchema(const Held& held) const;
  size_t RuleOf(const Violation& violation) const;
  int64_t Most() const { return static_cast<int64_t>(settings_.most_of_a_rule); }
  bool IsTold(size_t rule) const;
  void Settle(size_t violations);
  void SettleHeld(size_t violations);
  void Settle(const Violation& violation);
  void Add(size_t rule, Severity severity, size_t findings);
  void Raise(size_t rule, Finding finding);

  const CheckSettings& settings_;
  const Sink& found_;
  bool schema_violated_;
  std::vector<FindingCount> counts_;
  int64_t total_ = 0;
  bool in_host_ = false;
  Severity worst_ = Severity::kOff;
  std::set<const Sentence*> once_;
  std::deque<Alike> alike_;
  std::map<AlikeKey, Alike*> alike_by_key_;
  std::vector<Held> held_;         // of the entity at hand
  std::deque<Violation> waiting_;  // of entities to come
  KeySet violated_;                // elements that the schema was told of, and rules may speak of
  KeySet told_;                    // elements that a rule has told in place of the schema
};

}  // namespace zevo

#endif  // ZEVO_CHECK_FINDINGS_H_
