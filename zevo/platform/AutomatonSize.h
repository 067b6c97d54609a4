// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_AUTOMATONSIZE_H_
#define ZEVO_PLATFORM_AUTOMATONSIZE_H_

#include <string_view>

namespace zevo {

/// The size of the automaton that libxml2 makes of a content model or of a pattern: a state for each element or
/// character that is written, with a transition for each one that may come next. The size of the whole is computed from
/// the sizes of its parts, in one pass over them; the automaton itself is not made. Sizes grow fast, so they are
/// floating-point numbers. The default is the size of empty content.
class AutomatonSize {
 public:
  /// An element or character, or one of several, each with a state of its own.
  static AutomatonSize Symbols(double count);
  /// One state for any of several.
  static AutomatonSize Wildcard(double count);
  /// The size of a regular expression of XML Schema. An invalid one, which libxml2 refuses later, has any size.
  static AutomatonSize OfPattern(std::string_view expression);

  /// This followed by another.
  void Then(const AutomatonSize& next);
  /// This or another.
  void Or(const AutomatonSize& other);
  /// Turns a choice, made by Or, into "all of these, in any order".
  void InAnyOrder();
  void Optional();
  /// One or more times.
  void Repeated();

  bool MayBeEmpty() const { return may_be_empty_; }
  double States() const { return states_; }
  /// The greatest number of different symbols.
  double Letters() const { return letters_; }
  double Transitions() const;
  /// The sum of the squares of the transitions of each state: libxml2 compares every two of them to see whether the
  /// automaton is deterministic.
  double Comparisons() const;
  /// The most transitions of one state.
  double Widest() const;
  /// How many parts that may be empty are repeated. Each multiplies the ways from one state to another.
  int EmptyRepetitions() const { return empty_repetitions_; }
  /// The most ways to go once round a repeated part without a symbol: 1,024 for ten parts that may be empty in two ways
  /// each. libxml2 walks each of them.
  double WaysRound() const { return ways_round_; }
  /// The most alternatives of a repeated choice that are repeated themselves and may be empty.
  double LoopsInChoice() const { return loops_in_choice_; }

 private:
  void AddLoops(const AutomatonSize& part);

  double states_ = 0;
  double letters_ = 0;
  double first_ = 0;             // transitions from the start
  double last_ = 0;              // states in which the content may end
  double last_transitions_ = 0;  // from those
  double last_widest_ = 0;
  double transitions_ = 0;
  double comparisons_ = 0;
  double widest_ = 0;
  int empty_repetitions_ = 0;
  double ways_round_ = 0;
  double loops_in_choice_ = 0;
  double empty_ways_ = 1;  // through this
  double loops_ = 0;       // alternatives of this that are repeated and may be empty
  bool may_be_empty_ = true;
  bool repeated_ = false;  // whether Repeated was called for the whole
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_AUTOMATONSIZE_H_
