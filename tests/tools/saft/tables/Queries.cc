// SPDX-License-Identifier: Apache-2.0
#include "tests/tools/saft/tables/Queries.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace zevo::testing {
namespace {

int TakeRow(void* rows, int columns, char** texts, char** /*names*/) {
  std::string row;
  for (int i = 0; i < columns; ++i) row.append(i > 0 ? "|" : "").append(texts[i] == nullptr ? "" : texts[i]);
  static_cast<std::vector<std::string>*>(rows)->push_back(row);
  return 0;
}

}  // namespace

std::vector<std::string> RowsOf(const std::string& database, const std::string& query) {
  sqlite3* opened = nullptr;
  EXPECT_EQ(sqlite3_open_v2(database.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK) << database;
  std::vector<std::string> rows;
  EXPECT_EQ(sqlite3_exec(opened, query.c_str(), &TakeRow, &rows, nullptr), SQLITE_OK) << sqlite3_errmsg(opened);
  sqlite3_close(opened);
  return rows;
}

}  // namespace zevo::testing
