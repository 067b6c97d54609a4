// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_CELLOF_H_
#define ZEVO_TOOLS_SAFT_TABLES_CELLOF_H_

#include <cstdint>
#include <optional>
#include <string_view>

#include "tools/saft/tables/TableShape.h"

namespace zevo::saft {

/// The cell that a text of an audit file, without white space at its ends, is in a column of a type; nothing when it is
/// no value of the type. A date or time is taken without its time zone.
std::optional<Cell> CellOf(std::string_view text, ColumnType type);

/// A text, or nothing for an empty one.
inline Cell TextOrNothing(std::string_view text) { return text.empty() ? Cell() : Cell(text); }
/// A number, or nothing for 0.
inline Cell NumberOrNothing(int64_t number) { return number == 0 ? Cell() : Cell(number); }

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_CELLOF_H_
