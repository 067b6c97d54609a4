// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_FIRSTPLACES_H_
#define ZEVO_TOOLS_SAFT_DATASET_FIRSTPLACES_H_

#include <algorithm>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace zevo::saft {

/// A row of a dataset. Places are in the order of its files and their rows.
struct RowPlace {
  size_t file = 0;  ///< its number among `Dataset::Files`
  int64_t row = 0;  ///< the line on which it begins; 0 for the file as a whole

  // NOLINTNEXTLINE(modernize-use-nullptr): the check takes what the compiler writes for a null pointer
  friend auto operator<=>(const RowPlace&, const RowPlace&) = default;
};

/// What is told of the first few places of many, which are found in any order.
class FirstPlaces {
 public:
  struct Told {
    RowPlace place;
    std::string text;
  };

  explicit FirstPlaces(size_t most) : most_(most) {}

  /// Counts one; `describe` is called for its text if it is among the first. Of one place, the one added first is.
  template <class Describe>
  void Add(const RowPlace& place, Describe&& describe) {
    ++count_;
    if (first_.size() == most_ && !(place < first_.back().place)) return;
    first_.insert(std::ranges::upper_bound(first_, place, {}, &Told::place), Told{place, describe()});
    if (first_.size() > most_) first_.pop_back();
  }

  /// How many were added.
  size_t Count() const { return count_; }
  const std::vector<Told>& First() const { return first_; }

 private:
  size_t most_;
  size_t count_ = 0;
  std::vector<Told> first_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_FIRSTPLACES_H_
