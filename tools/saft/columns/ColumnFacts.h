// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_COLUMNS_COLUMNFACTS_H_
#define ZEVO_TOOLS_SAFT_COLUMNS_COLUMNFACTS_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "tools/saft/dataset/RecordKind.h"

namespace zevo::saft {

/// Whether a dataset must have a column for "saft create" to make a valid file of it.
enum class Needed {
  kYes,
  kNo,   ///< its element may be absent, or comes by itself
  kOr,   ///< it or its partner: the element of one of them is there, where both are 0 as well
  kWith  ///< as soon as another column of its group is filled
};

/// What the cells of a column are.
enum class ValueType { kText, kDate, kDateAndTime, kAmount, kWholeNumber, kFlag, kCode };

/// What there is to know of a column of a dataset, but for its meaning.
struct ColumnFacts {
  std::string name;
  Needed needed = Needed::kNo;
  /// The group of `kWith`, such as "ShipToAddress"; empty for others.
  std::string group;
  /// The other column of a pair of which the file holds one; empty for others.
  std::string partner;
  ValueType type = ValueType::kText;
  std::optional<int32_t> max_length;
  /// The least and the greatest value; empty without.
  std::string least;
  std::string greatest;
  /// The values allowed. A column of texts takes others besides, which match the pattern.
  std::vector<std::string> codes;
  /// What a text must match, in the language of XML Schema; empty without.
  std::string pattern;
  /// What stands in the file where the column is not filled; empty where that is nothing, or no valid text.
  std::string preset;
};

/// Those of a kind of record, which a file of a dataset has, in the order of the columns.
std::vector<ColumnFacts> FactsOf(const RecordKind& kind, const SchemaFacts& schema);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_COLUMNS_COLUMNFACTS_H_
