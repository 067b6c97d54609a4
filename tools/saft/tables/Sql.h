// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_SQL_H_
#define ZEVO_TOOLS_SAFT_TABLES_SQL_H_

#include <string>
#include <string_view>
#include <vector>

#include "tools/saft/tables/TableShape.h"

namespace zevo::saft {

/// A name as SQL takes it whatever it is.
std::string QuotedName(std::string_view name);
/// What follows on CREATE INDEX for some columns of a table: a name of its own, the table, the columns.
std::string IndexOn(const TableShape& table, const std::vector<std::string>& columns);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_SQL_H_
