// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_AUTOMATONSIZE_H_
#define ZEVO_PLATFORM_AUTOMATONSIZE_H_

#include <string_view>

namespace zevo {

/// The size of the automaton that libxml2 makes of a content model or of a pattern: a state for each element or
/// character that is written, with a transition for each one that may come next. It is put together from that of the
/// parts, as they are, so that it takes no more time than to read them. Sizes grow fast, so they are floating-point
/// numbers. Made without arguments it is that of no content.
class AutomatonSize {
 public:
  /// An element or character, or one of several, each with a state of its own.
  static AutomatonSize Symbols(double count);
  /// One state for any of several.
  static AutomatonSize Wildcard(double count);
  /// That of a regular expression of XML Schema. What is none, and libxml2 refuses, has some size.
  static AutomatonSize OfPattern(std::string_view expression);

  /// This followed by another.
  void Then(const AutomatonSize& next);
  /// This or another.
  void Or(const AutomatonSize& other);
  /// All of the parts put together by Or, in any order.
  void InAnyOrder();
  void Optional() { may_be_empty_ = true; }
  /// One or more times.
  void Repeated();

  bool MayBeEmpty() const { return may_be_empty_; }
  double States() const { return states_; }
  /// Different symbols at most.
  double Letters() const { return letters_; }
  double Transitions() const;
  /// The sum of the squares of the transitions of each state: what it takes to look whether they exclude each other.
  double Comparisons() const;
  /// The most transitions of one state.
  double Widest() const;
  /// How many parts that may be empty are repeated. Each multiplies the ways from one state to another.
  int EmptyRepetitions() const { return empty_repetitions_; }

 private:
  double states_ = 0;
  double letters_ = 0;
  double first_ = 0;             // transitions from the start
  double last_ = 0;              // states after which nothing need come
  double last_transitions_ = 0;  // from those
  double last_widest_ = 0;
  double transitions_ = 0;
  double comparisons_ = 0;
  double widest_ = 0;
  int empty_repetitions_ = 0;
  bool may_be_empty_ = true;
  bool repeated_ = false;  // as a whole
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_AUTOMATONSIZE_H_
