// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_CONTENTMODEL_H_
#define ZEVO_PLATFORM_CONTENTMODEL_H_

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace zevo {

/// Which children an element may have, and in which order: an automaton whose states are the places of a child in the
/// model (a Glushkov automaton). Children are numbered by whoever makes the model. A model is put together from parts,
/// from the inside out, and finished with the outermost.
class ContentModel {
 public:
  using Child = uint32_t;
  using State = uint32_t;

  /// Before the first child.
  static constexpr State kStart = 0;
  /// Stands for the end of the element where a child is asked for.
  static constexpr Child kEnd = UINT32_MAX;

  /// Thrown where a model would have more places, or more ways between them, than a model may have.
  struct TooLarge {};

  /// A part of a model that is being put together. An empty one stands for nothing at all.
  struct Part {
    bool may_be_empty = true;
    std::vector<State> first = {};
    std::vector<State> last = {};
  };
  Part Of(Child child);
  Part Then(Part before, const Part& after);
  static Part Either(Part one, const Part& other);
  static Part Optional(Part part);
  Part Repeated(Part part);
  void Finish(const Part& whole);

  /// Where a child leads to; nothing where it may not follow.
  std::optional<State> Next(State state, Child child) const;
  bool MayEnd(State state) const;
  /// How many states there are: the start, and one for each place of a child.
  size_t States() const { return places_.size(); }
  /// The states that may follow, each once, in the order of the model. Several may be of the same child.
  const std::vector<State>& Following(State state) const { return places_[state].following; }
  /// The child of a state, but for the start.
  Child ChildOf(State state) const { return places_[state].child; }
  /// The children that may follow, each once.
  std::vector<Child> Allowed(State state) const;
  /// Whether a child may come, now or later.
  bool Reaches(State state, Child child) const { return Lacking(state, child).has_value(); }
  /// Whether an element may have several of a child.
  bool Repeats(Child child) const;

  /// Children of which one has to be there.
  using Alternatives = std::vector<Child>;
  struct Gap {
    std::vector<Alternatives> lacking;
    State behind;  // the child, or the last that lacks before the end
  };
  /// What lacks at least where a child comes next, or the end: nothing lacks where it may follow, and there is no
  /// answer where it can come no more.
  std::optional<Gap> Lacking(State from, Child child) const;

 private:
  static constexpr size_t kMostPlaces = 4'000;
  static constexpr size_t kMostWays = 1'000'000;

  void Connect(const std::vector<State>& from, const std::vector<State>& to);
  bool Continues(State state, Child child) const;

  struct Place {
    Child child = kEnd;
    bool may_end = false;
    std::vector<State> following = {};
  };
  std::vector<Place> places_ = std::vector<Place>(1);  // by state; that of the start is no child's
  size_t ways_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_CONTENTMODEL_H_
