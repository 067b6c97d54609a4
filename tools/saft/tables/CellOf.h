// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_CELLOF_H_
#define ZEVO_TOOLS_SAFT_TABLES_CELLOF_H_

#include <optional>
#include <string_view>

#include "tools/saft/tables/TableShape.h"

namespace zevo::saft {

/// The cell that a text of an audit file, without white space at its ends, is in a column of a type; nothing when it is
/// no value of the type. A date or time is taken without its time zone.
std::optional<Cell> CellOf(std::string_view text, ColumnType type);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_CELLOF_H_
