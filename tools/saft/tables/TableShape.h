// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_TABLESHAPE_H_
#define ZEVO_TOOLS_SAFT_TABLES_TABLESHAPE_H_

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zevo::saft {

/// What the cells of a column are.
enum class ColumnType {
  kText,
  kInteger,
  kNumber,  ///< decimal, of any length
  kDate,    ///< yyyy-mm-dd, a day of the calendar
  kTime,    ///< yyyy-mm-ddThh:mm:ss, with fractions perhaps
};

struct TableColumn {
  std::string name;
  ColumnType type;
};

/// The table with the rows that those of another belong to.
struct TableParent {
  std::string table;
  std::string column;  ///< of the other: the position of the row
};

/// A table, whatever holds it in the end. Its first columns are `kKeyColumns`: no two rows have the same there.
struct TableShape {
  std::string name;
  std::vector<TableColumn> columns;
  /// Columns by which rows are looked up, alone or together.
  std::vector<std::vector<std::string>> indexes = {};
  std::optional<TableParent> parent = std::nullopt;
};

/// A query over the tables, by a name. What it refers to is theirs, or another one's that stands before it. Databases
/// understand it all alike.
struct TableView {
  std::string_view name;
  std::string_view query;
};

/// The table with a row for each audit file.
inline constexpr std::string_view kFilesTable = "files";
/// The file that a row comes from, and its number among the file's rows in the table, from 1 on.
inline constexpr std::string_view kFileColumn = "file_id";
inline constexpr std::string_view kPositionColumn = "position";
inline constexpr size_t kKeyColumns = 2;

/// A cell of a row: nothing; a whole number, of `kInteger`; or a text, of any other type, which is one of the type.
using Cell = std::variant<std::monostate, int64_t, std::string_view>;

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_TABLESHAPE_H_
