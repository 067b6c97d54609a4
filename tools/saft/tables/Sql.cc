// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/Sql.h"

namespace zevo::saft {

std::string QuotedName(std::string_view name) {
  std::string quoted = "\"";
  for (const char c : name) quoted.append(c == '"' ? 2 : 1, c);
  return quoted += '"';
}

std::string IndexOn(const TableShape& table, const std::vector<std::string>& columns) {
  std::string name = table.name;
  std::string list;
  for (const std::string& column : columns) {
    name.append("_by_").append(column);
    list.append(list.empty() ? "" : ", ").append(QuotedName(column));
  }
  return QuotedName(name) + " ON " + QuotedName(table.name) + " (" + list + ")";
}

}  // namespace zevo::saft
