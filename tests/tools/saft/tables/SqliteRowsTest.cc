// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/SqliteRows.h"

#include <gmock/gmock.h>
#include <sqlite3.h>

#include <string>
#include <vector>

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A column of each type.
class SqliteRowsTest : public ::testing::Test {
 protected:
  SqliteRowsTest() {
    EXPECT_EQ(sqlite3_open(":memory:", &database_), SQLITE_OK);
    EXPECT_EQ(rows_.Attach(database_), SQLITE_OK);
  }
  ~SqliteRowsTest() override { EXPECT_EQ(sqlite3_close(database_), SQLITE_OK); }

  void Add(const std::vector<Cell>& cells) { rows_.Add(cells); }
  // The rows with their cells as SQL writes them.
  std::vector<std::string> Read() {
    std::vector<std::string> read;
    const std::string sql =
        "SELECT quote(id)||' '||quote(name)||' '||quote(amount)||' '||quote(day)||' '||quote(time) FROM " +
        rows_.Name();
    const auto take = [](void* to, int, char** texts, char**) {
      static_cast<std::vector<std::string>*>(to)->emplace_back(texts[0]);
      return 0;
    };
    EXPECT_EQ(sqlite3_exec(database_, sql.c_str(), take, &read, nullptr), SQLITE_OK);
    return read;
  }

  const TableShape table_{"items",
                          {{"id", ColumnType::kInteger},
                           {"name", ColumnType::kText},
                           {"amount", ColumnType::kNumber},
                           {"day", ColumnType::kDate},
                           {"time", ColumnType::kTime}}};
  SqliteRows rows_{table_};
  sqlite3* database_ = nullptr;
};

TEST_F(SqliteRowsTest, AreReadAsATable) {
  Add({int64_t{1}, "Pão", "10.50", "2012-01-31", "2012-01-31T10:00:00"});
  Add({int64_t{-2}, "", "+7", Cell(), Cell()});
  Add({Cell(), Cell(), Cell(), Cell(), Cell()});
  EXPECT_THAT(Read(), ElementsAre("1 'Pão' 10.5 '2012-01-31' '2012-01-31T10:00:00'", "-2 '' 7 NULL NULL",
                                  "NULL NULL NULL NULL NULL"));
  EXPECT_EQ(rows_.Count(), 3U);
}

// What NUMERIC makes of the text is what is there.
TEST_F(SqliteRowsTest, NumbersAreThoseThatTheDatabaseTakesFromTheirTexts) {
  const std::vector<std::string> texts{"0",
                                       "-0",
                                       "0010.50",
                                       "+7.",
                                       "-.5",
                                       "0.1",
                                       "12345.67",
                                       "-99999999999999.99",
                                       "123456789012345678",
                                       "9223372036854775807",
                                       "9223372036854775808",
                                       "123456789012345678901234567890.5",
                                       "0.00000000000000000000000000001",
                                       "3.0"};
  for (const std::string& text : texts) Add({Cell(), text, text, Cell(), Cell()});
  std::string differing;
  const std::string sql =
      "CREATE TABLE taken (text TEXT, number NUMERIC); INSERT INTO taken SELECT name, amount FROM " + rows_.Name() +
      "; CREATE TABLE cast_by_it (number NUMERIC); INSERT INTO cast_by_it SELECT ltrim(name, '+') FROM " +
      rows_.Name() +
      "; SELECT text FROM taken JOIN cast_by_it ON taken.rowid = cast_by_it.rowid "
      "WHERE typeof(taken.number) <> typeof(cast_by_it.number) OR taken.number <> cast_by_it.number";
  const auto take = [](void* to, int, char** found, char**) {
    static_cast<std::string*>(to)->append(found[0]).append(" ");
    return 0;
  };
  ASSERT_EQ(sqlite3_exec(database_, sql.c_str(), take, &differing, nullptr), SQLITE_OK) << sqlite3_errmsg(database_);
  EXPECT_EQ(differing, "");
}

TEST_F(SqliteRowsTest, HoldTheirTextsThemselves) {
  std::string text(100, 'x');
  for (int i = 0; i < 1000; ++i) Add({int64_t{i}, text, Cell(), Cell(), Cell()});
  text.assign(100, 'y');
  EXPECT_EQ(Read().at(999), "999 '" + std::string(100, 'x') + "' NULL NULL NULL");
  EXPECT_GE(rows_.Bytes(), 100'000U);
}

TEST_F(SqliteRowsTest, AreReadAnewOnceCleared) {
  Add({int64_t{1}, "a", Cell(), Cell(), Cell()});
  EXPECT_THAT(Read(), ElementsAre("1 'a' NULL NULL NULL"));
  rows_.Clear();
  EXPECT_THAT(Read(), IsEmpty());
  EXPECT_EQ(rows_.Bytes(), 0U);
  Add({int64_t{2}, "b", Cell(), Cell(), Cell()});
  EXPECT_THAT(Read(), ElementsAre("2 'b' NULL NULL NULL"));
}

}  // namespace
}  // namespace zevo::saft
