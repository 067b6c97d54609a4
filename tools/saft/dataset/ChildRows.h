// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_CHILDROWS_H_
#define ZEVO_TOOLS_SAFT_DATASET_CHILDROWS_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <deque>

namespace zevo::saft {

/// The rows of a file that belong to rows of another one: where they are. It takes 17 bytes for each.
class ChildRows {
 public:
  struct Row {
    uint64_t offset;
    uint32_t row;
    uint32_t parent;  ///< the row that it belongs to
  };

  /// Rows one after the other; valid until one is added.
  class Range {
   public:
    using Iterator = std::deque<Row>::const_iterator;

    Range(Iterator begin, Iterator end) : begin_(begin), end_(end) {}
    Iterator begin() const { return begin_; }
    Iterator end() const { return end_; }
    size_t size() const { return static_cast<size_t>(end_ - begin_); }
    const Row& operator[](size_t place) const { return begin_[static_cast<std::ptrdiff_t>(place)]; }

   private:
    Iterator begin_;
    Iterator end_;
  };

  /// Takes a row. Rows come in the order of their file.
  void Add(const Row& row) { rows_.push_back(row); }

  /// To be called once, when all are there.
  void Sort() {
    const auto order = [](const Row& left, const Row& right) {
      return left.parent != right.parent ? left.parent < right.parent : left.offset < right.offset;
    };
    if (!std::ranges::is_sorted(rows_, order)) std::ranges::sort(rows_, order);
  }

  /// Those of a parent, in the order of their file.
  Range Of(uint32_t parent) const {
    const auto before = [](const Row& row, uint32_t wanted) { return row.parent < wanted; };
    const auto behind = [](uint32_t wanted, const Row& row) { return wanted < row.parent; };
    const auto first = std::lower_bound(rows_.begin(), rows_.end(), parent, before);
    return {first, std::upper_bound(first, rows_.end(), parent, behind)};
  }

 private:
  std::deque<Row> rows_;  // which grows without a copy of itself
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_CHILDROWS_H_
