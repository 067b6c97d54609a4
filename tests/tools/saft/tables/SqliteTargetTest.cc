// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/SqliteTarget.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <future>
#include <iostream>
#include <mutex>
#include <streambuf>
#include <string>
#include <thread>

#include "tests/tools/saft/tables/TargetTest.h"
#include "tools/saft/errors/Failure.h"

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;
using ::testing::ThrowsMessage;

// What is told on the standard error meanwhile.
class CerrText {
 public:
  CerrText() : before_(std::cerr.rdbuf(&text_)) {}
  CerrText(const CerrText&) = delete;
  CerrText& operator=(const CerrText&) = delete;
  ~CerrText() { std::cerr.rdbuf(before_); }

  std::string Text() const {
    const std::lock_guard lock(text_.mutex);
    return text_.text;
  }

 private:
  // Threads write and read it.
  struct Buffer : std::streambuf {
    std::streamsize xsputn(const char* bytes, std::streamsize size) override {
      const std::lock_guard lock(mutex);
      text.append(bytes, static_cast<size_t>(size));
      return size;
    }
    int overflow(int byte) override {
      const char c = static_cast<char>(byte);
      return xsputn(&c, 1) == 1 ? byte : -1;
    }
    mutable std::mutex mutex;
    std::string text;
  };
  Buffer text_;
  std::streambuf* before_;
};

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
  EXPECT_THAT([&] { SqliteTarget(folder_.Path("no/books.db"), tables_, views_); },
              ThrowsMessage<Failure>(folder_.Path("no/books.db") + ": There is no such folder"));
}

TEST_F(SqliteTargetTest, WaitsForWhoWritesButNotForEver) {
  Add(*Open(), 1, "x");
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(file_.c_str(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
  const std::string waiting = "saft: " + file_ + ": another program is using the database; waiting until it ends\n";
  {
    const CerrText told;
    EXPECT_THAT(
        [&] { SqliteTarget(file_, tables_, views_, std::chrono::milliseconds(200)); },
        ThrowsMessage<Failure>(file_ + ": another program is using the database; close it, or wait until it ends, "
                                       "and run the command again"));
    EXPECT_EQ(told.Text(), waiting);
  }
  const CerrText told;
  auto opened = std::async(std::launch::async, [&] { return Open(); });
  while (told.Text().empty()) std::this_thread::yield();
  ASSERT_EQ(sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr), SQLITE_OK);
  Add(*opened.get(), 2, "y");
  EXPECT_EQ(told.Text(), waiting);
  sqlite3_close(other);
  EXPECT_THAT(Items(), ElementsAre("1|1|x|", "2|1|y|"));
}

// Two exports into a database that there was not, of which the one that made it fails.
TEST_F(SqliteTargetTest, KeepsWhatAnotherAdded) {
  auto maker = Open();
  Add(*Open(), 1, "x");
  maker = nullptr;
  EXPECT_THAT(Items(), ElementsAre("1|1|x|"));
}

TEST_F(SqliteTargetTest, WritesIntoNoDatabaseThatIsGone) {
  auto maker = Open();
  const auto second = Open();
  maker = nullptr;
  EXPECT_THAT([&] { second->Begin(); },
              ThrowsMessage<Failure>(file_ + ": the database was removed meanwhile; run the command again"));
}

TEST_F(SqliteTargetTest, LeavesNothingOfADatabaseThatCannotBeMade) {
  const std::vector<TableShape> wrong{tables_[0], {"items", {{"a", ColumnType::kText}, {"a", ColumnType::kText}}}};
  EXPECT_THROW(SqliteTarget(file_, wrong, views_), Failure);
  EXPECT_TRUE(database_->IsEmpty());
}

// Those before it are inserted by then.
TEST_F(SqliteTargetTest, ARowThatCannotBeInsertedLeavesTheDatabaseAsItWas) {
  Add(*Open(), 1, "x");
  {
    const auto target = Open();
    target->Begin();
    target->Drop(1);
    for (int64_t i = 1; i <= 10'000; ++i) AddItem(*target, 2, i, "y");
    AddItem(*target, 2, 10'000, "y");
    AddItem(*target, 2, 10'001, "y");
    EXPECT_THROW(EndFile(*target, 2), Failure);
  }
  EXPECT_THAT(Items(), ElementsAre("1|1|x|"));
  EXPECT_THAT(Rows("SELECT file_id FROM files"), ElementsAre("1"));
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
