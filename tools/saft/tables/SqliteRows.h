// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_SQLITEROWS_H_
#define ZEVO_TOOLS_SAFT_TABLES_SQLITEROWS_H_

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tools/saft/tables/TableShape.h"

struct sqlite3;
struct sqlite3_context;

namespace zevo::saft {

/// Rows of a table that wait to be inserted. A statement of SQLite reads all of them as a virtual table, which is much
/// sooner than to run one for each.
class SqliteRows {
 public:
  /// The table must outlive it.
  explicit SqliteRows(const TableShape& table) : table_(table) {}
  SqliteRows(const SqliteRows&) = delete;
  SqliteRows& operator=(const SqliteRows&) = delete;

  /// Makes the virtual table, among the temporary ones of a connection, which must end before the rows. Gives a result
  /// code of SQLite.
  int Attach(sqlite3* database);
  /// The virtual table, as SQL takes it.
  std::string Name() const;

  /// Adds a row. What the cells refer to is not needed afterwards.
  void Add(std::span<const Cell> cells);
  void Clear();
  size_t Count() const { return values_.size() / table_.columns.size(); }
  /// How much memory they take.
  size_t Bytes() const { return values_.size() * sizeof(Value) + texts_.size(); }

  /// The columns of the virtual table, as SQLite has them declared.
  std::string Declaration() const;
  /// Makes a cell the result of a function of SQLite. It refers to the row.
  void Give(size_t row, size_t column, sqlite3_context* to) const;

 private:
  // In `texts_`, which moves while it grows.
  struct Text {
    size_t start;
    size_t size;
  };
  using Value = std::variant<std::monostate, int64_t, double, Text>;

  Value ValueOf(const Cell& cell, ColumnType type);

  const TableShape& table_;
  std::vector<Value> values_;  // of all rows
  std::string texts_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_SQLITEROWS_H_
