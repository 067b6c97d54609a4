// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_COMPONENT_CHECKCOLLECTIONS_H_
#define ZEVO_COMPONENT_CHECKCOLLECTIONS_H_

#include <zevo/Error.h>
#include <zevo/component/ValueCollection.h>
#include <zevo/model/Finding.h>
#include <zevo/model/Language.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace zevo::component {

/// A finding, with the language in which a host is told of it.
struct ToldFinding : Finding {
  Language language;
};

/// A rule, with the language in which a host is told of it.
struct ToldRule : RuleInfo {
  Language language;
};

/// What a check has told so far. Unlike values of an entity, each finding lives by itself: a host may hold one while
/// more are found, and keeps none of the others with it.
class FindingCollection {
 public:
  using ItemType = ToldFinding;

  void Add(std::shared_ptr<ToldFinding> finding) { findings_.push_back(std::move(finding)); }

  int64_t Count() const { return static_cast<int64_t>(findings_.size()); }
  /// The finding at a position, counted from 1. Raises error 9 when there is none.
  const std::shared_ptr<ToldFinding>& Item(int32_t position) const {
    return findings_[IndexOf(position, findings_.size())];
  }
  /// Findings have no keys: raises error 5.
  std::shared_ptr<ToldFinding> Item(std::string_view key) const {
    throw MakeRunTimeError(RunTimeError::kInvalidCall, key);
  }

 private:
  std::vector<std::shared_ptr<ToldFinding>> findings_;
};

/// Rules in their order, in a language.
class RuleInfoCollection final : public ValueCollection<ToldRule> {
 public:
  RuleInfoCollection(std::span<const RuleInfo> rules, Language language) {
    values().reserve(rules.size());
    for (const RuleInfo& rule : rules) values().push_back({rule, language});
  }

  using ValueCollection::Item;
  /// The rule with an identifier. Raises error 5 when there is none.
  std::shared_ptr<ToldRule> Item(std::string_view id) {
    const auto found = std::ranges::find(values(), id, &RuleInfo::id);
    if (found == values().end()) throw MakeRunTimeError(RunTimeError::kInvalidCall, id);
    return {shared_from_this(), &*found};
  }
};

}  // namespace zevo::component

#endif  // ZEVO_COMPONENT_CHECKCOLLECTIONS_H_
