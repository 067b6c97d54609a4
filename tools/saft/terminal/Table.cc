// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/terminal/Table.h"

#include <zevo/adapters.h>

#include <algorithm>
#include <utility>

#include "tools/saft/terminal/VisibleText.h"

namespace zevo::saft {

void Table::Add(std::vector<std::string> cells) {
  widths_.resize(std::max(widths_.size(), cells.size()));
  for (size_t column = 0; column < cells.size(); ++column) {
    cells[column] = Visible(cells[column]);
    widths_[column] = std::max(widths_[column], CharactersIn(cells[column]));
  }
  rows_.push_back(std::move(cells));
}

void Table::Print(std::ostream& out) const {
  for (const auto& cells : rows_) {
    std::string line;
    for (size_t column = 0; column < cells.size(); ++column) {
      const std::string blanks(widths_[column] - CharactersIn(cells[column]), ' ');
      line.append("  ").append(column < left_columns_ ? cells[column] + blanks : blanks + cells[column]);
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
  }
}

}  // namespace zevo::saft
