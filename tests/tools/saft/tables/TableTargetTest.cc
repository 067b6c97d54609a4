// SPDX-License-Identifier: Apache-2.0
#include "tests/tools/saft/tables/TargetTest.h"

#include <gmock/gmock.h>

#include "tools/saft/errors/Failure.h"

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

// What every database does that tables go to.
class TableTargetTest : public testing::TargetTest, public ::testing::WithParamInterface<testing::DatabaseKind> {
 protected:
  TableTargetTest() : TargetTest(GetParam()) {}
};

TEST_P(TableTargetTest, HoldsRows) {
  {
    const auto target = Open();
    Add(*target, 1, "Pão 'd\"água'); DROP TABLE items; --", "0010.50");
    Add(*target, 2, Cell(), "+7.");
    Add(*target, 3, "", "-123456789012345678");
    target->Finish();
  }
  EXPECT_THAT(Items(),
              ElementsAre("1|1|Pão 'd\"água'); DROP TABLE items; --|10.5", "2|1||7", "3|1||-123456789012345678"));
  EXPECT_THAT(Rows("SELECT file_id FROM items WHERE name IS NULL"), ElementsAre("2"));
}

TEST_P(TableTargetTest, TextsComeBackAsTheyAre) {
  const std::vector<std::string> texts{"\\", "\\N", "\\.",   "\\t\\n", "a\tb", "a\nb\r\n", "\t", "\\\n",
                                       "=1", "%s",  "ção–€", "😀",      "'",    "\"",       "$1;"};
  {
    const auto target = Open();
    target->Begin();
    int64_t position = 0;
    for (const std::string& text : texts) AddItem(*target, 1, ++position, text);
    EndFile(*target, 1);
  }
  EXPECT_EQ(Rows("SELECT name FROM items ORDER BY position"), texts);
}

TEST_P(TableTargetTest, HoldsMoreRowsThanAreHandedOverAtOnce) {
  constexpr int64_t kRows = 20'000;
  const std::string name(100, 'x');
  {
    const auto target = Open();
    target->Begin();
    for (int64_t i = 1; i <= kRows; ++i) AddItem(*target, 1, i, name, "0.01");
    EndFile(*target, 1);
  }
  EXPECT_THAT(Rows("SELECT count(*), min(length(name)), max(position) FROM items"), ElementsAre("20000|100|20000"));
  EXPECT_THAT(Rows("SELECT round(amount, 2) FROM total"), ElementsAre("200"));
}

TEST_P(TableTargetTest, TellsTheFilesThatItHas) {
  {
    const auto target = Open();
    target->Begin();
    EXPECT_THAT(target->Files(), IsEmpty());
    EndFile(*target, 7);
  }
  const auto target = Open();
  target->Begin();
  const std::vector<LoadedFile> files = target->Files();
  ASSERT_EQ(files.size(), 1U);
  EXPECT_EQ(files[0].id, 7);
  EXPECT_EQ(files[0].name, "a.xml");
  EXPECT_EQ(files[0].sha256, "00");
  EXPECT_EQ(files[0].tax_registration_number, "501234560");
  EXPECT_EQ(files[0].start_date, "2012-01-01");
  EXPECT_EQ(files[0].end_date, "2012-12-31");
}

TEST_P(TableTargetTest, DropsAFileWithTheOneThatComesInstead) {
  {
    const auto target = Open();
    Add(*target, 1, "old");
    target->Begin();
    target->Drop(1);
  }
  EXPECT_THAT(Items(), ElementsAre("1|1|old|"));
  {
    const auto target = Open();
    target->Begin();
    target->Drop(1);
    AddItem(*target, 1, 1, "new");
    EndFile(*target, 1);
  }
  EXPECT_THAT(Items(), ElementsAre("1|1|new|"));
  EXPECT_THAT(Rows("SELECT count(*) FROM files"), ElementsAre("1"));
}

TEST_P(TableTargetTest, KeepsNothingOfAFileThatDoesNotEnd) {
  {
    const auto target = Open();
    target->Begin();
    AddItem(*target, 1, 1, "x");
  }
  EXPECT_TRUE(database_->IsEmpty());
  {
    const auto target = Open();
    Add(*target, 1, "x");
    target->Begin();
    AddItem(*target, 2, 1, "y");
  }
  EXPECT_THAT(Items(), ElementsAre("1|1|x|"));
}

TEST_P(TableTargetTest, RefusesATableWithOtherColumns) {
  for (const std::string columns : {"name INTEGER", "file_id BIGINT, position BIGINT, amount TEXT, name TEXT",
                                    "file_id BIGINT, position BIGINT, name TEXT, amount NUMERIC, more TEXT"}) {
    Rows("DROP TABLE IF EXISTS items; CREATE TABLE items (" + columns + ")");
    EXPECT_THAT([&] { Open(); },
                ThrowsMessage<Failure>(database_->Shown() + ": it already has a table items with other columns"))
        << columns;
  }
  EXPECT_THAT(Items(), IsEmpty());
}

TEST_P(TableTargetTest, MakesViewsThatAreOtherwiseAnew) {
  Add(*Open(), 1, "x", "1.25");
  EXPECT_THAT(Rows("SELECT amount FROM total"), ElementsAre("1.25"));
  Add(*Open(), 2, "y", "1.5");
  EXPECT_THAT(Rows("SELECT amount FROM total"), ElementsAre("2.75"));
  views_ = {{"named", "SELECT name FROM items"}, {"total", "SELECT count(name) AS items, 1 AS one FROM named"}};
  Add(*Open(), 3, "z", "1.5");
  EXPECT_THAT(Rows("SELECT items, one FROM total"), ElementsAre("3|1"));
}

INSTANTIATE_TEST_SUITE_P(Databases, TableTargetTest,
                         ::testing::Values(testing::DatabaseKind::kSqlite, testing::DatabaseKind::kPostgres),
                         [](const auto& info) { return testing::NameOf(info.param); });

}  // namespace
}  // namespace zevo::saft
