// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/PostgresTarget.h"

#include <gmock/gmock.h>

#include <future>
#include <iostream>
#include <sstream>

#include "tests/tools/saft/tables/TargetTest.h"
#include "tools/saft/errors/Failure.h"

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;
using ::testing::ThrowsMessage;

class PostgresTargetTest : public testing::TargetTest {
 protected:
  PostgresTargetTest() : TargetTest(testing::DatabaseKind::kPostgres) {}
};

TEST_F(PostgresTargetTest, AmountsComeBackAsTheyWereWritten) {
  const auto target = Open();
  Add(*target, 1, Cell(), "123456789012345678901234567890.12");
  Add(*target, 2, Cell(), "-0.123456789012345678901234567890");
  Add(*target, 3, Cell(), "0.10");
  EXPECT_THAT(Rows("SELECT amount::text FROM items ORDER BY file_id"),
              ElementsAre("123456789012345678901234567890.12", "-0.123456789012345678901234567890", "0.10"));
}

TEST_F(PostgresTargetTest, ColumnsHaveTypes) {
  const std::vector<TableShape> tables{{"all_types",
                                        {{"file_id", ColumnType::kInteger},
                                         {"position", ColumnType::kInteger},
                                         {"text", ColumnType::kText},
                                         {"number", ColumnType::kNumber},
                                         {"day", ColumnType::kDate},
                                         {"time", ColumnType::kTime}}}};
  PostgresTarget target(database_->Name(), tables, {});
  target.Begin();
  target.Add(0, std::vector<Cell>{INT64_MIN, INT64_MAX, "x", "1", "0001-01-01", "9999-12-31T23:59:59.123456"});
  target.EndFile();
  EXPECT_THAT(Rows("SELECT * FROM all_types"),
              ElementsAre("-9223372036854775808|9223372036854775807|x|1|0001-01-01|9999-12-31 23:59:59.123456"));
  EXPECT_THAT(Rows("SELECT data_type FROM information_schema.columns WHERE table_schema = current_schema() "
                   "ORDER BY ordinal_position"),
              ElementsAre("bigint", "bigint", "text", "numeric", "date", "timestamp without time zone"));
}

TEST_F(PostgresTargetTest, IndexesItsKeys) {
  Add(*Open(), 1, "x");
  Add(*Open(), 2, "x");
  EXPECT_THAT(
      Rows("SELECT tablename, indexname FROM pg_indexes WHERE schemaname = current_schema() ORDER BY indexname"),
      ElementsAre("files|files_pkey", "items|items_by_name", "items|items_pkey"));
}

// Rights to views, and views of others on them, would go with them; and who reads one would hold up an export.
TEST_F(PostgresTargetTest, LeavesViewsAloneThatAreRight) {
  Add(*Open(), 1, "x");
  Rows("CREATE VIEW mine AS SELECT * FROM total; GRANT SELECT ON total TO PUBLIC");
  const auto before = Rows(
      "SELECT xmin, relacl FROM pg_class WHERE relname = 'total' AND relnamespace = "
      "current_schema()::regnamespace");
  Add(*Open(), 2, "y", "2");
  EXPECT_THAT(Rows("SELECT * FROM mine"), ElementsAre("2"));
  EXPECT_EQ(Rows("SELECT xmin, relacl FROM pg_class WHERE relname = 'total' AND relnamespace = "
                 "current_schema()::regnamespace"),
            before);
}

TEST_F(PostgresTargetTest, WaitsForAnotherExport) {
  std::ostringstream told;
  std::streambuf* const before = std::cerr.rdbuf(told.rdbuf());
  const auto first = Open();
  const auto second = Open();
  first->Begin();
  auto files = std::async(std::launch::async, [&] {
    second->Begin();
    return second->Files();
  });
  // The other one waits, and has said so.
  while (Rows("SELECT 1 FROM pg_locks WHERE locktype = 'advisory' AND NOT granted AND pid IN (SELECT pid FROM "
              "pg_stat_activity WHERE query LIKE '%advisory%')")
             .empty()) {
  }
  EndFile(*first, 1);
  const std::vector<LoadedFile> seen = files.get();
  std::cerr.rdbuf(before);
  ASSERT_EQ(seen.size(), 1U);
  EXPECT_EQ(seen[0].id, 1);
  EXPECT_EQ(told.str(), "saft: " + database_->Shown() + ": another export is writing here; waiting until it ends\n");
}

TEST_F(PostgresTargetTest, RefusesAViewInPlaceOfATable) {
  Rows(
      "CREATE VIEW items AS SELECT 1::bigint AS file_id, 1::bigint AS position, ''::text AS name, 1::numeric AS "
      "amount");
  EXPECT_THAT([&] { Open(); },
              ThrowsMessage<Failure>(database_->Shown() + ": it already has a table items with other columns"));
}

TEST_F(PostgresTargetTest, SaysWhereThereIsNoPermission) {
  const std::string schema = Rows("SELECT current_schema()").at(0);
  Rows("CREATE ROLE " + schema + " LOGIN; GRANT USAGE ON SCHEMA " + schema + " TO " + schema);
  std::string name = database_->Name();
  name.replace(name.find("trial@"), 5, schema);
  const auto target = OpenTarget(name, {}, tables_, views_);
  EXPECT_THAT([&] { target->Begin(); },
              ThrowsMessage<Failure>(database_->Shown() + ": there is no permission to write into the database"));
  Rows("DROP OWNED BY " + schema + "; DROP ROLE " + schema);
}

TEST_F(PostgresTargetTest, SaysWhereADatabaseDoesNotTakeAllCharacters) {
  const std::string latin = Rows("SELECT current_schema()").at(0);
  Rows("CREATE DATABASE " + latin + " ENCODING LATIN1 LOCALE 'C' TEMPLATE template0");
  std::string name = database_->Name();
  name = name.substr(0, name.find("options=")).replace(name.find("postgres?"), 8, latin);
  {
    const auto target = OpenTarget(name, {}, tables_, views_);
    Add(*target, 1, "Pão");
    EXPECT_THAT([&] { Add(*target, 2, "–"); },
                ThrowsMessage<Failure>("postgresql:///" + latin +
                                       ": the database does not take all characters of the file: its encoding must "
                                       "be UTF8"));
  }
  Rows("DROP DATABASE " + latin + " WITH (FORCE)");
}

}  // namespace
}  // namespace zevo::saft
