// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/SqliteTarget.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/saft/tables/Queries.h"
#include "tools/saft/errors/Failure.h"

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;
using zevo::testing::RowsOf;

class SqliteTargetTest : public ::testing::Test {
 protected:
  SqliteTarget Open() { return {database_, tables_, views_}; }
  // Adds a file with an item.
  static void Add(SqliteTarget& target, int64_t file, const Cell& name, const Cell& amount = {}) {
    target.Begin();
    target.Add(1, std::vector<Cell>{file, int64_t{1}, name, amount});
    target.Add(0, std::vector<Cell>{file, int64_t{1}, "a.xml", "00", "501234560", "2012-01-01", "2012-12-31"});
    target.EndFile();
  }
  std::vector<std::string> Items() const { return RowsOf(database_, "SELECT * FROM items ORDER BY file_id"); }

  const std::vector<TableShape> tables_{{"files",
                                         {{"file_id", ColumnType::kInteger},
                                          {"position", ColumnType::kInteger},
                                          {"name", ColumnType::kText},
                                          {"sha256", ColumnType::kText},
                                          {"tax_registration_number", ColumnType::kText},
                                          {"start_date", ColumnType::kDate},
                                          {"end_date", ColumnType::kDate}}},
                                        {"items",
                                         {{"file_id", ColumnType::kInteger},
                                          {"position", ColumnType::kInteger},
                                          {"name", ColumnType::kText},
                                          {"amount", ColumnType::kNumber}},
                                         {{"name"}}}};
  const std::string views_ = "DROP VIEW IF EXISTS total; CREATE VIEW total AS SELECT sum(amount) AS amount FROM items";
  zevo::testing::TemporaryFolder folder_;
  const std::string database_ = folder_.Path("books.db");
};

TEST_F(SqliteTargetTest, HoldsRowsWithTheirTypes) {
  {
    SqliteTarget target = Open();
    Add(target, 1, "Pão 'd\"água'); DROP TABLE items; --", "0010.50");
    Add(target, 2, Cell(), "+7.");
    Add(target, 3, "", "-123456789012345678");
    target.Finish();
  }
  EXPECT_THAT(Items(),
              ElementsAre("1|1|Pão 'd\"água'); DROP TABLE items; --|10.5", "2|1||7", "3|1||-123456789012345678"));
  EXPECT_THAT(RowsOf(database_, "SELECT typeof(name), typeof(amount) FROM items"),
              ElementsAre("text|real", "null|integer", "text|integer"));
  EXPECT_THAT(RowsOf(database_, "SELECT amount < 0 FROM total"), ElementsAre("1"));
  EXPECT_THAT(RowsOf(database_, "SELECT name FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL"),
              ElementsAre("items_by_name"));
}

TEST_F(SqliteTargetTest, TellsTheFilesThatItHas) {
  {
    SqliteTarget target = Open();
    EXPECT_THAT(target.Files(), IsEmpty());
    Add(target, 1, "x");
  }
  SqliteTarget target = Open();
  const std::vector<LoadedFile> files = target.Files();
  ASSERT_EQ(files.size(), 1U);
  EXPECT_EQ(files[0].id, 1);
  EXPECT_EQ(files[0].name, "a.xml");
  EXPECT_EQ(files[0].sha256, "00");
  EXPECT_EQ(files[0].tax_registration_number, "501234560");
  EXPECT_EQ(files[0].start_date, "2012-01-01");
  EXPECT_EQ(files[0].end_date, "2012-12-31");
}

TEST_F(SqliteTargetTest, DropsAFileWithTheOneThatComesInstead) {
  {
    SqliteTarget target = Open();
    Add(target, 1, "old");
    target.Begin();
    target.Drop(1);
  }
  EXPECT_THAT(Items(), ElementsAre("1|1|old|"));
  {
    SqliteTarget target = Open();
    target.Begin();
    target.Drop(1);
    target.Add(1, std::vector<Cell>{int64_t{1}, int64_t{1}, "new", Cell()});
    target.EndFile();
  }
  EXPECT_THAT(Items(), ElementsAre("1|1|new|"));
}

TEST_F(SqliteTargetTest, KeepsNothingOfAFileThatDoesNotEnd) {
  {
    SqliteTarget target = Open();
    target.Begin();
    target.Add(1, std::vector<Cell>{int64_t{1}, int64_t{1}, "x", Cell()});
  }
  EXPECT_FALSE(std::filesystem::exists(database_));
  {
    SqliteTarget target = Open();
    Add(target, 1, "x");
    target.Begin();
    target.Add(1, std::vector<Cell>{int64_t{2}, int64_t{1}, "y", Cell()});
  }
  EXPECT_THAT(Items(), ElementsAre("1|1|x|"));
}

TEST_F(SqliteTargetTest, RefusesWhatIsNotItsDatabase) {
  folder_.Write("books.db", "not a database, but as long as one has to be for anybody to look at what it begins with");
  EXPECT_THAT([&] { Open(); }, ThrowsMessage<Failure>(database_ + ": it is no database of SQLite"));
  std::filesystem::remove(database_);
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(database_.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "CREATE TABLE items (name)", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_THAT([&] { Open(); }, ThrowsMessage<Failure>(database_ + ": it already has a table items with other columns"));
  ASSERT_EQ(sqlite3_exec(other, "DROP TABLE items; BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_THAT([&] { Open(); }, ThrowsMessage<Failure>(database_ + ": another program is using the database"));
  sqlite3_close(other);
  EXPECT_TRUE(std::filesystem::exists(database_));
  EXPECT_THAT([&] { SqliteTarget(folder_.Path("no/books.db"), tables_, views_); },
              ThrowsMessage<Failure>(folder_.Path("no/books.db") + ": the database cannot be opened or made"));
}

// A file has some 100,000 lines, a group of companies a million.
TEST_F(SqliteTargetTest, AMillionAmountsAreSummedToTheCent) {
  constexpr int64_t kRows = 1'000'000;
  {
    SqliteTarget target = Open();
    target.Begin();
    int64_t cents = 0;
    for (int64_t i = 1; i <= kRows; ++i) {
      cents = (cents * 7 + 13) % 999'983;
      std::string amount = std::to_string(cents / 100) + "." + std::to_string(100 + cents % 100).substr(1);
      target.Add(1, std::vector<Cell>{int64_t{1}, i, Cell(), std::string_view(amount)});
    }
    target.EndFile();
  }
  EXPECT_THAT(RowsOf(database_,
                     "SELECT round(sum(amount), 2) = sum(CAST(round(amount * 100) AS INTEGER)) / 100.0, "
                     "sum(amount) > 4000000000 FROM items"),
              ElementsAre("1|1"));
}

}  // namespace
}  // namespace zevo::saft
