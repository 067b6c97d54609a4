// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/SqliteRows.h"

#include <sqlite3.h>

#include <charconv>
#include <memory>
#include <new>
#include <system_error>

#include "tools/saft/tables/Sql.h"

namespace zevo::saft {
namespace {

struct RowsTable : sqlite3_vtab {
  const SqliteRows* rows;
};

struct RowsCursor : sqlite3_vtab_cursor {
  const SqliteRows* rows;
  size_t row;
};

RowsCursor& CursorOf(sqlite3_vtab_cursor* cursor) { return *static_cast<RowsCursor*>(cursor); }

int Connect(sqlite3* database, void* rows, int /*count*/, const char* const* /*arguments*/, sqlite3_vtab** made,
            char** /*error*/) {
  try {
    auto table = std::make_unique<RowsTable>();
    table->rows = static_cast<const SqliteRows*>(rows);
    const int result = sqlite3_declare_vtab(database, table->rows->Declaration().c_str());
    if (result == SQLITE_OK) *made = table.release();
    return result;
  } catch (const std::bad_alloc&) {
    return SQLITE_NOMEM;
  }
}

int Disconnect(sqlite3_vtab* table) {
  delete static_cast<RowsTable*>(table);
  return SQLITE_OK;
}

int OpenCursor(sqlite3_vtab* table, sqlite3_vtab_cursor** opened) {
  auto* const cursor = new (std::nothrow) RowsCursor();
  if (cursor == nullptr) return SQLITE_NOMEM;
  cursor->rows = static_cast<RowsTable*>(table)->rows;
  *opened = cursor;
  return SQLITE_OK;
}

int CloseCursor(sqlite3_vtab_cursor* cursor) {
  delete &CursorOf(cursor);
  return SQLITE_OK;
}

// The rows from the first to the last are the only thing there is to ask for.
sqlite3_module RowsModule() {
  sqlite3_module module{};
  module.xCreate = module.xConnect = Connect;
  module.xBestIndex = [](sqlite3_vtab*, sqlite3_index_info*) { return SQLITE_OK; };
  module.xDisconnect = module.xDestroy = Disconnect;
  module.xOpen = OpenCursor;
  module.xClose = CloseCursor;
  module.xFilter = [](sqlite3_vtab_cursor* cursor, int, const char*, int, sqlite3_value**) {
    CursorOf(cursor).row = 0;
    return SQLITE_OK;
  };
  module.xNext = [](sqlite3_vtab_cursor* cursor) {
    ++CursorOf(cursor).row;
    return SQLITE_OK;
  };
  module.xEof = [](sqlite3_vtab_cursor* cursor) {
    return CursorOf(cursor).row >= CursorOf(cursor).rows->Count() ? 1 : 0;
  };
  module.xColumn = [](sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
    CursorOf(cursor).rows->Give(CursorOf(cursor).row, static_cast<size_t>(column), context);
    return SQLITE_OK;
  };
  module.xRowid = [](sqlite3_vtab_cursor* cursor, sqlite3_int64* row) {
    *row = static_cast<sqlite3_int64>(CursorOf(cursor).row);
    return SQLITE_OK;
  };
  return module;
}

}  // namespace

int SqliteRows::Attach(sqlite3* database) {
  static const sqlite3_module kModule = RowsModule();
  const std::string name = "rows_of_" + table_.name;
  if (const int result = sqlite3_create_module(database, name.c_str(), &kModule, this); result != SQLITE_OK) {
    return result;
  }
  const std::string sql = "CREATE VIRTUAL TABLE " + Name() + " USING " + QuotedName(name);
  return sqlite3_exec(database, sql.c_str(), nullptr, nullptr, nullptr);
}

std::string SqliteRows::Name() const { return "temp." + QuotedName("rows_of_" + table_.name); }

std::string SqliteRows::Declaration() const {
  std::string sql;
  for (const TableColumn& column : table_.columns) {
    sql.append(sql.empty() ? "CREATE TABLE declared (" : ", ").append(QuotedName(column.name));
  }
  return sql + ")";
}

void SqliteRows::Add(std::span<const Cell> cells) {
  const size_t first = values_.size();
  values_.resize(first + cells.size());
  for (size_t i = 0; i < cells.size(); ++i) values_[first + i] = ValueOf(cells[i], table_.columns[i].type);
}

void SqliteRows::Clear() {
  values_.clear();
  texts_.clear();
}

// A number is as the database would take it from its text, but sooner.
SqliteRows::Value SqliteRows::ValueOf(const Cell& cell, ColumnType type) {
  if (const auto* const number = std::get_if<int64_t>(&cell)) return *number;
  const auto* const text = std::get_if<std::string_view>(&cell);
  if (text == nullptr) return {};
  if (type != ColumnType::kNumber) {
    const Text there{.start = texts_.size(), .size = text->size()};
    texts_ += *text;
    return there;
  }
  const char* const begin = text->data() + (text->starts_with('+') ? 1 : 0);
  const char* const end = text->data() + text->size();
  int64_t whole = 0;
  if (const auto [at, error] = std::from_chars(begin, end, whole); error == std::errc() && at == end) return whole;
  double number = 0;
  std::from_chars(begin, end, number);
  return number;
}

void SqliteRows::Give(size_t row, size_t column, sqlite3_context* to) const {
  const Value& value = values_[row * table_.columns.size() + column];
  if (const auto* const text = std::get_if<Text>(&value)) {
    return sqlite3_result_text64(to, texts_.data() + text->start, text->size, SQLITE_STATIC, SQLITE_UTF8);
  }
  if (const auto* const whole = std::get_if<int64_t>(&value)) return sqlite3_result_int64(to, *whole);
  if (const auto* const number = std::get_if<double>(&value)) return sqlite3_result_double(to, *number);
  // Else it is NULL as it is.
}

}  // namespace zevo::saft
