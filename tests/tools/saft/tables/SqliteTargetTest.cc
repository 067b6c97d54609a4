// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/SqliteTarget.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <filesystem>

#include "tests/tools/saft/tables/TargetTest.h"
#include "tools/saft/errors/Failure.h"

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;
using ::testing::ThrowsMessage;

class SqliteTargetTest : public testing::TargetTest {
 protected:
  SqliteTargetTest() : TargetTest(testing::DatabaseKind::kSqlite) {}

  const std::string file_ = database_->Name();
};

TEST_F(SqliteTargetTest, HoldsWholeNumbersExactlyAndOthersAsDoubles) {
  const auto target = Open();
  Add(*target, 1, "a", "0010.50");
  Add(*target, 2, Cell(), "+7.");
  Add(*target, 3, "", "-123456789012345678");
  EXPECT_THAT(Rows("SELECT typeof(name), typeof(amount) FROM items"),
              ElementsAre("text|real", "null|integer", "text|integer"));
}

TEST_F(SqliteTargetTest, IndexesItsKeys) {
  Add(*Open(), 1, "x");
  EXPECT_THAT(Rows("SELECT name FROM sqlite_master WHERE type = 'index' AND sql IS NOT NULL"),
              ElementsAre("items_by_name"));
}

TEST_F(SqliteTargetTest, RefusesWhatIsNotItsDatabase) {
  folder_.Write("books.db", "not a database, but as long as one has to be for anybody to look at what it begins with");
  EXPECT_THAT([&] { Open(); }, ThrowsMessage<Failure>(file_ + ": it is no database of SQLite"));
  std::filesystem::remove(file_);
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(file_.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_THAT([&] { Open(); }, ThrowsMessage<Failure>(file_ + ": another program is using the database"));
  sqlite3_close(other);
  EXPECT_TRUE(std::filesystem::exists(file_));
  EXPECT_THAT([&] { SqliteTarget(folder_.Path("no/books.db"), tables_, views_); },
              ThrowsMessage<Failure>(folder_.Path("no/books.db") + ": the database cannot be opened or made"));
}

// A file has some 100,000 lines, a group of companies a million.
TEST_F(SqliteTargetTest, AMillionAmountsAreSummedToTheCent) {
  constexpr int64_t kRows = 1'000'000;
  {
    const auto target = Open();
    target->Begin();
    int64_t cents = 0;
    for (int64_t i = 1; i <= kRows; ++i) {
      cents = (cents * 7 + 13) % 999'983;
      std::string amount = std::to_string(cents / 100) + "." + std::to_string(100 + cents % 100).substr(1);
      AddItem(*target, 1, i, Cell(), amount);
    }
    target->EndFile();
  }
  EXPECT_THAT(Rows("SELECT round(sum(amount), 2) = sum(CAST(round(amount * 100) AS INTEGER)) / 100.0, "
                   "sum(amount) > 4000000000 FROM items"),
              ElementsAre("1|1"));
}

}  // namespace
}  // namespace zevo::saft
