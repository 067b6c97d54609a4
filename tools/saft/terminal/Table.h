// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TERMINAL_TABLE_H_
#define ZEVO_TOOLS_SAFT_TERMINAL_TABLE_H_

#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

namespace zevo::saft {

/// Rows of text whose columns are aligned for people to read: some to the left, then all to the right.
class Table {
 public:
  explicit Table(size_t leftColumns) : left_columns_(leftColumns) {}

  /// A row has a cell for every column.
  void Add(std::vector<std::string> cells);
  void Print(std::ostream& out) const;

 private:
  size_t left_columns_;
  std::vector<size_t> widths_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TERMINAL_TABLE_H_
