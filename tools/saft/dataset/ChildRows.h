// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_CHILDROWS_H_
#define ZEVO_TOOLS_SAFT_DATASET_CHILDROWS_H_

#include <algorithm>
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
  auto Of(uint32_t parent) const { return std::ranges::equal_range(rows_, parent, {}, &Row::parent); }

 private:
  std::deque<Row> rows_;  // which grows without a copy of itself
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_CHILDROWS_H_
