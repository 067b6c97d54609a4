// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_LIST_ROWFILTER_H_
#define ZEVO_TOOLS_SAFT_LIST_ROWFILTER_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "tools/saft/dataset/RecordColumns.h"
#include "tools/saft/dataset/RowReader.h"

namespace zevo::saft {

/// Lets those records pass that have all of some values.
class RowFilter {
 public:
  /// Each condition is COLUMN=VALUE. Fails with one that is not, or that names no column.
  RowFilter(const std::vector<std::string>& conditions, const RecordColumns& columns);

  /// An amount is compared as a number, all else letter by letter. An element that is not there is as an empty one.
  bool Passes(const Row& row) const;

 private:
  struct Condition {
    size_t column;
    std::string value;
    std::optional<Decimal> number;  // of an amount
  };

  std::vector<Condition> conditions_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_LIST_ROWFILTER_H_
