// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/ContentModel.h>

#include <algorithm>
#include <utility>

namespace zevo {
namespace {

template <class Value>
void Append(std::vector<Value>& to, const std::vector<Value>& more) {
  to.insert(to.end(), more.begin(), more.end());
}

template <class Value>
bool Contains(const std::vector<Value>& values, Value value) {
  return std::ranges::find(values, value) != values.end();
}

}  // namespace

ContentModel::Part ContentModel::Of(Child child) {
  if (places_.size() > kMostPlaces) throw TooLarge();
  const auto state = static_cast<State>(places_.size());
  places_.push_back({.child = child});
  return {.may_be_empty = false, .first = {state}, .last = {state}};
}

ContentModel::Part ContentModel::Then(Part before, const Part& after) {
  Connect(before.last, after.first);
  if (before.may_be_empty) Append(before.first, after.first);
  if (!after.may_be_empty) before.last.clear();
  Append(before.last, after.last);
  before.may_be_empty = before.may_be_empty && after.may_be_empty;
  return before;
}

ContentModel::Part ContentModel::Either(Part one, const Part& other) {
  Append(one.first, other.first);
  Append(one.last, other.last);
  one.may_be_empty = one.may_be_empty || other.may_be_empty;
  return one;
}

ContentModel::Part ContentModel::Optional(Part part) {
  part.may_be_empty = true;
  return part;
}

ContentModel::Part ContentModel::Repeated(Part part) {
  Connect(part.last, part.first);
  return part;
}

void ContentModel::Finish(const Part& whole) {
  places_[kStart].following = whole.first;
  places_[kStart].may_end = whole.may_be_empty;
  for (const State last : whole.last) places_[last].may_end = true;
  // Each way once.
  std::vector<State> seen_from(places_.size(), UINT32_MAX);
  for (State state = 0; state < places_.size(); ++state) {
    std::erase_if(places_[state].following, [&](State next) { return std::exchange(seen_from[next], state) == state; });
  }
}

void ContentModel::Connect(const std::vector<State>& from, const std::vector<State>& to) {
  ways_ += from.size() * to.size();
  if (ways_ > kMostWays) throw TooLarge();
  for (const State state : from) Append(places_[state].following, to);
}

std::optional<ContentModel::State> ContentModel::Next(State state, Child child) const {
  for (const State next : places_[state].following) {
    if (places_[next].child == child) return next;
  }
  return std::nullopt;
}

bool ContentModel::MayEnd(State state) const { return places_[state].may_end; }

std::vector<ContentModel::Child> ContentModel::Allowed(State state) const {
  std::vector<Child> children;
  for (const State next : places_[state].following) {
    if (!Contains(children, places_[next].child)) children.push_back(places_[next].child);
  }
  return children;
}

bool ContentModel::Repeats(Child child) const {
  for (State state = 1; state < places_.size(); ++state) {
    if (places_[state].child == child && Reaches(state, child)) return true;
  }
  return false;
}

bool ContentModel::Continues(State state, Child child) const {
  return child == kEnd ? MayEnd(state) : Next(state, child).has_value();
}

std::optional<ContentModel::Gap> ContentModel::Lacking(State from, Child child) const {
  // All states by the number of steps that lead to them, until the child follows on some.
  std::vector<std::vector<State>> steps{{from}};
  std::vector<bool> seen(places_.size());
  const auto continues = [&](State state) { return Continues(state, child); };
  while (std::ranges::none_of(steps.back(), continues)) {
    std::vector<State> next;
    for (const State state : steps.back()) {
      for (const State following : places_[state].following) {
        if (seen[following]) continue;
        seen[following] = true;
        next.push_back(following);
      }
    }
    if (next.empty()) return std::nullopt;
    steps.push_back(std::move(next));
  }
  // Backwards, those that lead there in as many steps.
  std::erase_if(steps.back(), [&](State state) { return !continues(state); });
  for (size_t i = steps.size() - 1; i-- > 1;) {
    const std::vector<State>& goals = steps[i + 1];
    std::erase_if(steps[i], [&](State state) {
      const std::vector<State>& following = places_[state].following;
      return std::ranges::none_of(following, [&](State next) { return Contains(goals, next); });
    });
  }
  Gap gap;
  for (size_t i = 1; i < steps.size(); ++i) {
    Alternatives& alternatives = gap.lacking.emplace_back();
    for (const State state : steps[i]) {
      if (!Contains(alternatives, places_[state].child)) alternatives.push_back(places_[state].child);
    }
  }
  const State last = steps.back().front();
  gap.behind = child == kEnd ? last : Next(last, child).value_or(last);
  return gap;
}

}  // namespace zevo
