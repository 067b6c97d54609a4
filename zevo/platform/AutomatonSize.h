// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_AUTOMATONSIZE_H_
#define ZEVO_PLATFORM_AUTOMATONSIZE_H_

#include <string_view>

namespace zevo {

/// The size of the automaton that libxml2 makes of a content model or of a pattern: a state for each element or
/// character that is written, and for each repetition, with a transition for each one that may come next. The size of
/// the whole is computed from the sizes of its parts, in one pass over them; the automaton itself is not made. Sizes
/// grow fast, so they are floating-point numbers. The default is the size of empty content.
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
  /// The same by a counter, which libxml2 needs for other limits than none.
  void Counted();

  /// In brackets, or a group of a content model.
  void Grouped() { groups_ += 1; }

  bool MayBeEmpty() const { return may_be_empty_; }
  double States() const { return states_; }
  /// The groups that it is made of, each of which has states that are removed later.
  double Groups() const { return groups_; }
  /// The greatest number of different symbols.
  double Letters() const { return letters_; }
  double Transitions() const;
  /// The sum of the squares of the transitions of each state: libxml2 compares every two of them to see whether the
  /// automaton is deterministic.
  double Comparisons() const;
  /// The most transitions of one state.
  double Widest() const;
  /// How many parts that may be empty are repeated.
  int EmptyRepetitions() const { return empty_.repetitions; }
  /// How many of them by a counter. A transition that may lead through several is there once for each of their
  /// counters.
  int EmptyCounters() const { return empty_.counters; }
  /// The steps that libxml2 walks without a symbol: from the end of what is repeated back to its beginning, and from
  /// each end of a choice on into what follows. It goes every way there is, 1,024 through ten parts that may be empty
  /// in two ways each.
  double WalkSteps() const { return empty_.walk_steps; }
  /// How many of these ways come to a state that hands on all its transitions.
  double WalkEnds() const { return empty_.walk_ends; }

 private:
  // How this is gone through without a symbol.
  struct Empty {
    double ways = 1;
    double steps = 0;  // along all ways, as far as they lead
    double ends = 0;   // states of alternatives from which what follows is walked
    double walk_steps = 0;
    double walk_ends = 0;
    int repetitions = 0;
    int counters = 0;
  };

  void AddWalks(double count, const Empty& through);
  void AddRepetitions(const Empty& part);

  double states_ = 0;
  double groups_ = 0;
  double letters_ = 0;
  double first_ = 0;             // transitions from the start
  double last_ = 0;              // states in which the content may end
  double last_transitions_ = 0;  // from those
  double last_widest_ = 0;
  double transitions_ = 0;
  double comparisons_ = 0;
  double widest_ = 0;
  Empty empty_;
  bool may_be_empty_ = true;
  bool repeated_ = false;  // whether Repeated was called for the whole
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_AUTOMATONSIZE_H_
