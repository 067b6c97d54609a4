// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_TOOLS_SAFT_TABLES_TARGETTEST_H_
#define ZEVO_TESTS_TOOLS_SAFT_TABLES_TARGETTEST_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/saft/tables/TestDatabase.h"
#include "tools/saft/export/TargetChoice.h"
#include "tools/saft/tables/TableTarget.h"

namespace zevo::testing {

/// Tables of files and items, with a view, in a database of a kind.
class TargetTest : public ::testing::Test {
 protected:
  explicit TargetTest(DatabaseKind kind) : database_(MakeDatabase(kind, folder_)) {}
  void SetUp() override {
    if (!database_) GTEST_SKIP() << kNoServer;
  }

  std::unique_ptr<saft::TableTarget> Open() const { return saft::OpenTarget(database_->Name(), {}, tables_, views_); }
  /// Adds a file with an item.
  static void Add(saft::TableTarget& target, int64_t file, const saft::Cell& name, const saft::Cell& amount = {}) {
    target.Begin();
    AddItem(target, file, 1, name, amount);
    EndFile(target, file);
  }
  static void AddItem(saft::TableTarget& target, int64_t file, int64_t position, const saft::Cell& name,
                      const saft::Cell& amount = {}) {
    target.Add(1, std::vector<saft::Cell>{file, position, name, amount});
  }
  static void EndFile(saft::TableTarget& target, int64_t file) {
    target.Add(0, std::vector<saft::Cell>{file, int64_t{1}, "a.xml", "00", "501234560", "2012-01-01", "2012-12-31"});
    target.EndFile();
  }
  TestDatabase::Rows Rows(const std::string& query) const { return database_->Run(query); }
  TestDatabase::Rows Items() const { return Rows("SELECT * FROM items ORDER BY file_id, position"); }

  const std::vector<saft::TableShape> tables_{{"files",
                                               {{"file_id", saft::ColumnType::kInteger},
                                                {"position", saft::ColumnType::kInteger},
                                                {"name", saft::ColumnType::kText},
                                                {"sha256", saft::ColumnType::kText},
                                                {"tax_registration_number", saft::ColumnType::kText},
                                                {"start_date", saft::ColumnType::kDate},
                                                {"end_date", saft::ColumnType::kDate}}},
                                              {"items",
                                               {{"file_id", saft::ColumnType::kInteger},
                                                {"position", saft::ColumnType::kInteger},
                                                {"name", saft::ColumnType::kText},
                                                {"amount", saft::ColumnType::kNumber}},
                                               {{"name"}}}};
  std::vector<saft::TableView> views_{{"named", "SELECT * FROM items WHERE name IS NOT NULL"},
                                      {"total", "SELECT sum(amount) AS amount FROM named"}};
  TemporaryFolder folder_;
  const std::unique_ptr<TestDatabase> database_;  // null where there is no such server
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_TOOLS_SAFT_TABLES_TARGETTEST_H_
