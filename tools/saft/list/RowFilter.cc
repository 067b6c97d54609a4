// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/list/RowFilter.h"

#include <algorithm>
#include <string_view>

#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ListWords.h"

namespace zevo::saft {

RowFilter::RowFilter(const std::vector<std::string>& conditions, const RecordColumns& columns) {
  for (const std::string& condition : conditions) {
    const size_t equals = condition.find('=');
    if (equals == std::string::npos) throw Failure(Say(words::kNoCondition, Quoted(condition)));
    const size_t column = columns.PlaceOf(condition.substr(0, equals));
    const Property* const property = columns.Columns()[column].property;
    std::string value = condition.substr(equals + 1);
    const bool isAmount = property != nullptr && IsDecimal(*property);
    conditions_.push_back({column, value, isAmount ? Decimal::FromText(value) : std::nullopt});
  }
}

bool RowFilter::Passes(const Row& row) const {
  return std::ranges::all_of(conditions_, [&](const Condition& condition) {
    const std::string_view cell = row.cells[condition.column].value_or(std::string_view());
    if (cell == condition.value) return true;
    return condition.number && condition.number == Decimal::FromText(cell);
  });
}

}  // namespace zevo::saft
