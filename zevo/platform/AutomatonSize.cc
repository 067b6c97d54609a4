// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/AutomatonSize.h>

#include <zevo/platform/Text.h>

#include <algorithm>

namespace zevo {
namespace {

// Reads a regular expression by its precedence: alternatives of sequences of quantified atoms.
class Expression {
 public:
  explicit Expression(std::string_view text) : left_(text) {}

  AutomatonSize Read() {
    AutomatonSize size = Alternatives(0);
    // What stops the reading early is a closing bracket too many, which libxml2 refuses.
    while (!left_.empty()) {
      left_.remove_prefix(1);
      size.Then(Alternatives(0));
    }
    return size;
  }

 private:
  // libxml2 refuses expressions that are nested deeper.
  static constexpr int kDeepest = 100;

  AutomatonSize Alternatives(int depth) {
    AutomatonSize size = Sequence(depth);
    while (Take('|')) size.Or(Sequence(depth));
    return size;
  }

  AutomatonSize Sequence(int depth) {
    AutomatonSize size;
    while (!left_.empty() && left_.front() != '|' && left_.front() != ')') {
      AutomatonSize atom = Atom(depth);
      while (Quantify(atom)) {
      }
      size.Then(atom);
    }
    return size;
  }

  AutomatonSize Atom(int depth) {
    if (depth < kDeepest && Take('(')) {
      AutomatonSize size = Alternatives(depth + 1);
      Take(')');
      size.Grouped();
      return size;
    }
    if (left_.front() == '[') {
      SkipClass();
    } else if (Take('\\')) {
      const bool isProperty = left_.starts_with('p') || left_.starts_with('P');
      if (!left_.empty()) TakeCharacter(left_);
      if (isProperty && left_.starts_with('{')) SkipTo('}');
    } else {
      TakeCharacter(left_);
    }
    return AutomatonSize::Symbols(1);
  }

  // A class may subtract another, which stands inside it in brackets of its own: [a-z-[aeiou]].
  void SkipClass() {
    int open = 0;
    do {
      if (Take('\\')) {
        if (!left_.empty()) left_.remove_prefix(1);
        continue;
      }
      if (left_.front() == '[') ++open;
      if (left_.front() == ']') --open;
      left_.remove_prefix(1);
    } while (open > 0 && !left_.empty());
  }

  void SkipTo(char end) { left_.remove_prefix(std::min(left_.find(end), left_.size() - 1) + 1); }

  bool Quantify(AutomatonSize& atom) {
    if (left_.empty()) return false;
    const char sign = left_.front();
    if (sign == '{') {
      const bool fromZero = left_.starts_with("{0");
      SkipTo('}');
      atom.Counted();
      if (fromZero) atom.Optional();
      return true;
    }
    if (sign != '?' && sign != '*' && sign != '+') return false;
    left_.remove_prefix(1);
    if (sign != '?') atom.Repeated();
    if (sign != '+') atom.Optional();
    return true;
  }

  bool Take(char c) {
    if (!left_.starts_with(c)) return false;
    left_.remove_prefix(1);
    return true;
  }

  std::string_view left_;
};

}  // namespace

AutomatonSize AutomatonSize::Symbols(double count) {
  AutomatonSize size;
  size.states_ = size.letters_ = size.first_ = size.last_ = count;
  size.may_be_empty_ = false;
  size.empty_ = {.ways = 0, .steps = count};
  return size;
}

AutomatonSize AutomatonSize::Wildcard(double count) {
  AutomatonSize size = Symbols(count);
  size.states_ = size.last_ = 1;
  return size;
}

AutomatonSize AutomatonSize::OfPattern(std::string_view expression) { return Expression(expression).Read(); }

void AutomatonSize::Then(const AutomatonSize& next) {
  AddRepetitions(next.empty_);
  AddWalks(empty_.ends - 1, next.empty_);
  empty_.steps += empty_.ways * next.empty_.steps;
  empty_.ways *= next.empty_.ways;
  empty_.ends = next.empty_.ends;
  if (next.may_be_empty_ && states_ > 0) empty_.ends = std::max(empty_.ends, 1.0);
  if (states_ == 0) {
    const Empty empty = empty_;
    const double groups = groups_;
    *this = next;
    empty_ = empty;
    groups_ += groups;
    return;
  }
  states_ += next.states_;
  groups_ += next.groups_;
  letters_ += next.letters_;
  // Each state that may end this part gets a transition to each symbol that may begin the next.
  comparisons_ += 2 * next.first_ * last_transitions_ + last_ * next.first_ * next.first_ + next.comparisons_;
  transitions_ += last_ * next.first_ + next.transitions_;
  last_transitions_ += last_ * next.first_;
  last_widest_ += next.first_;
  widest_ = std::max({widest_, last_widest_, next.widest_});
  if (may_be_empty_) first_ += next.first_;
  if (next.may_be_empty_) {
    last_ += next.last_;
    last_transitions_ += next.last_transitions_;
    last_widest_ = std::max(last_widest_, next.last_widest_);
  } else {
    last_ = next.last_;
    last_transitions_ = next.last_transitions_;
    last_widest_ = next.last_widest_;
  }
  may_be_empty_ = may_be_empty_ && next.may_be_empty_;
  if (next.states_ > 0) repeated_ = false;
}

void AutomatonSize::Or(const AutomatonSize& other) {
  states_ += other.states_;
  groups_ += other.groups_;
  letters_ += other.letters_;
  first_ += other.first_;
  last_ += other.last_;
  last_transitions_ += other.last_transitions_;
  last_widest_ = std::max(last_widest_, other.last_widest_);
  transitions_ += other.transitions_;
  comparisons_ += other.comparisons_;
  widest_ = std::max(widest_, other.widest_);
  AddRepetitions(other.empty_);
  empty_.steps += other.empty_.steps;
  empty_.ways += other.empty_.ways;
  empty_.ends += other.empty_.ends;
  may_be_empty_ = may_be_empty_ || other.may_be_empty_;
  repeated_ = false;
}

// libxml2 makes one state of it, to which every part leads back.
void AutomatonSize::InAnyOrder() {
  states_ = last_ = 1;
  transitions_ = last_transitions_ = last_widest_ = widest_ = first_;
  comparisons_ = first_ * first_;
}

void AutomatonSize::Optional() {
  may_be_empty_ = true;
  empty_.ways += 1;
}

void AutomatonSize::Repeated() {
  if (may_be_empty_) ++empty_.repetitions;
  if (states_ == 0) return;
  AddWalks(empty_.ends - 1, empty_);
  empty_.walk_steps += empty_.steps + empty_.ways;
  empty_.ends = std::max(empty_.ends, 1.0);
  // What is repeated already has these transitions.
  if (repeated_) return;
  comparisons_ += 2 * first_ * last_transitions_ + last_ * first_ * first_;
  transitions_ += last_ * first_;
  last_transitions_ += last_ * first_;
  last_widest_ += first_;
  widest_ = std::max(widest_, last_widest_);
  // It ends in a state of its own.
  states_ += 1;
  last_ += 1;
  repeated_ = true;
}

void AutomatonSize::Counted() {
  if (may_be_empty_) ++empty_.counters;
  Repeated();
}

void AutomatonSize::AddWalks(double count, const Empty& through) {
  if (count <= 0) return;
  empty_.walk_steps += count * through.steps;
  empty_.walk_ends += count * through.ways;
}

void AutomatonSize::AddRepetitions(const Empty& part) {
  empty_.walk_steps += part.walk_steps;
  empty_.walk_ends += part.walk_ends;
  empty_.repetitions += part.repetitions;
  empty_.counters += part.counters;
}

// Transitions of a state by the same symbol are merged, so it has at most one for each symbol.
double AutomatonSize::Transitions() const { return std::min(first_ + transitions_, (states_ + 1) * letters_); }

double AutomatonSize::Comparisons() const {
  return std::min(first_ * first_ + comparisons_, (states_ + 1) * letters_ * letters_);
}

double AutomatonSize::Widest() const { return std::max(1.0, std::min(std::max(first_, widest_), letters_)); }

}  // namespace zevo
