// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/WorkbookTarget.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/tools/saft/tables/SampleTables.h"
#include "tests/tools/saft/tables/Workbooks.h"
#include "tools/saft/errors/Failure.h"

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::ThrowsMessage;

class WorkbookTargetTest : public ::testing::Test {
 protected:
  // Makes the workbook with a file.
  void Make(const std::vector<testing::SampleItem>& items, bool replace = false,
            uint32_t most = WorkbookTarget::kMostRows) {
    WorkbookTarget target(book_, tables_, replace, most);
    testing::AddFile(target, 1, items);
    target.Finish();
    changed_ = target.Changed();
  }
  std::vector<std::string> Lines() const { return testing::LinesOfWorkbook(book_); }

  static constexpr const char* kFiles = "files: bold, frozen at A2, filter A1:G2";
  static constexpr const char* kFile =
      R"(1 1 "a.xml" "00" "501234560" 2012-01-01T00:00:00 as yyyy-mm-dd 2012-12-31T00:00:00 as yyyy-mm-dd)";

  const std::vector<TableShape> tables_ = testing::SampleTables();
  testing::TemporaryFolder folder_;
  const std::string book_ = folder_.Path("book.xlsx");
  int64_t changed_ = 0;
};

TEST_F(WorkbookTargetTest, HasASheetForEachTableWithRowsAndCellsOfTheirTypes) {
  Make({{.name = "Pão", .amount = "0010.50", .day = "2012-02-29", .time = "2012-01-01T23:59:59"}, {.name = ""}});
  EXPECT_THAT(Lines(), ElementsAre(kFiles, kFile, "items: bold, frozen at A2, filter A1:G3",
                                   "1 1 1 \"Pão\" 10.5 as #,##0.00######## 2012-02-29T00:00:00 as yyyy-mm-dd "
                                   "2012-01-01T23:59:59 as yyyy-mm-dd\\ hh:mm:ss",
                                   "1 2 1 - - - -"));
  EXPECT_EQ(changed_, 0);
}

TEST_F(WorkbookTargetTest, NoTextIsAFormula) {
  Make({{.name = "=1+1"}, {.name = "+1"}, {.name = "-1"}, {.name = "@SUM(A1)"}, {.name = "007"}, {.name = "{=1}"}});
  EXPECT_THAT(Lines(), ElementsAre(kFiles, kFile, "items: bold, frozen at A2, filter A1:G7", "1 1 1 \"=1+1\" - - -",
                                   "1 2 1 \"+1\" - - -", "1 3 1 \"-1\" - - -", "1 4 1 \"@SUM(A1)\" - - -",
                                   "1 5 1 \"007\" - - -", "1 6 1 \"{=1}\" - - -"));
}

TEST_F(WorkbookTargetTest, WhatIsNoCellIsATextAndNoted) {
  const std::string letters(32768, 'x');
  const std::string digits = "1" + std::string(400, '0');
  const std::string_view fuller = letters;
  const std::string_view full = fuller.substr(1);
  const std::string_view enormous = digits;
  Make({{.name = full, .amount = "1234567890123.45", .day = "1900-03-01"},
        {.amount = "12345678901234.56"},
        {.amount = enormous},
        {.day = "1900-02-28"},
        {.time = "1900-02-28T10:00:00"},
        {.time = "2012-01-01T10:00:00.250"},
        {.time = "2012-01-01T10:00:00.2505"},
        {.name = fuller}});
  EXPECT_THAT(Lines(), ElementsAre(kFiles, kFile, "items: bold, frozen at A2, filter A1:G9",
                                   "1 1 1 32767 characters 1234567890123.45 as #,##0.00######## "
                                   "1900-03-01T00:00:00 as yyyy-mm-dd -",
                                   "1 2 1 - \"12345678901234.56\" - -", "1 3 1 - 401 characters - -",
                                   "1 4 1 - - \"1900-02-28\" -", "1 5 1 - - - \"1900-02-28T10:00:00\"",
                                   "1 6 1 - - - 2012-01-01T10:00:00.250000 as yyyy-mm-dd\\ hh:mm:ss",
                                   "1 7 1 - - - \"2012-01-01T10:00:00.2505\"", "1 8 1 32767 characters - - -",
                                   "notes: bold, frozen at A2, filter A1:D7",
                                   R"("items" 3 "amount" "a number of more than 15 digits: it is a text")",
                                   R"("items" 4 "amount" "a number of more than 15 digits: it is a text")",
                                   R"("items" 5 "day" "a date before 1900-03-01: it is a text")",
                                   R"("items" 6 "time" "a date before 1900-03-01: it is a text")",
                                   R"("items" 8 "time" "a fraction of a millisecond: the time is a text")",
                                   R"("items" 9 "name" "a text of more than 32,767 characters: it was cut")"));
  EXPECT_EQ(changed_, 6);
}

TEST_F(WorkbookTargetTest, WholeNumbersOfManyDigitsAreTexts) {
  WorkbookTarget target(book_, tables_, false);
  target.Begin();
  target.Add(1, std::vector<Cell>{int64_t{1}, int64_t{-999'999'999'999'999}, int64_t{9'007'199'254'740'993}, Cell(),
                                  Cell(), Cell(), Cell()});
  target.EndFile();
  target.Finish();
  EXPECT_THAT(Lines(),
              ElementsAre("files: bold, frozen at A2, filter A1:G1", "items: bold, frozen at A2, filter A1:G2",
                          "1 -999999999999999 \"9007199254740993\" - - - -", "notes: bold, frozen at A2, filter A1:D2",
                          R"("items" 2 "file_position" "a number of more than 15 digits: it is a text")"));
}

TEST_F(WorkbookTargetTest, WhatHasNoRoomInASheetGoesOnInAnother) {
  Make({{.name = "a"}, {.name = "b"}, {.name = "c"}, {.name = "d", .day = "0001-01-01"}, {.name = "e"}}, false, 3);
  EXPECT_THAT(Lines(),
              ElementsAre(kFiles, kFile, "items: bold, frozen at A2, filter A1:G3", "1 1 1 \"a\" - - -",
                          "1 2 1 \"b\" - - -", "items (2): bold, frozen at A2, filter A1:G3", "1 3 1 \"c\" - - -",
                          "1 4 1 \"d\" - \"0001-01-01\" -", "notes: bold, frozen at A2, filter A1:D2",
                          "\"items (2)\" 3 \"day\" \"a date before 1900-03-01: it is a text\"",
                          "items (3): bold, frozen at A2, filter A1:G2", "1 5 1 \"e\" - - -"));
}

TEST_F(WorkbookTargetTest, TheSameRowsMakeTheSameBytes) {
  Make({{.name = "a", .amount = "1.10"}});
  const std::string bytes = testing::ReadBytes(book_);
  Make({{.name = "a", .amount = "1.10"}}, true);
  EXPECT_EQ(testing::ReadBytes(book_), bytes);
}

TEST_F(WorkbookTargetTest, AFileIsReplacedOnlyWhenThatIsSaid) {
  folder_.Write("book.xlsx", "old");
  EXPECT_THAT([&] { Make({}); }, ThrowsMessage<Failure>(book_ + ": is there already; --replace replaces it"));
  EXPECT_EQ(testing::ReadBytes(book_), "old");
  Make({}, true);
  EXPECT_THAT(Lines(), ElementsAre(kFiles, kFile));
}

TEST_F(WorkbookTargetTest, NothingStaysOfWhatIsNotFinished) {
  {
    WorkbookTarget target(book_, tables_, false);
    testing::AddFile(target, 1, {{.name = "a"}});
  }
  EXPECT_THAT(folder_.Names(), IsEmpty());
}

// As a full disk does, a limit takes a part of what is written.
TEST_F(WorkbookTargetTest, WhatCannotBeWrittenIsAFailure) {
  std::signal(SIGXFSZ, SIG_IGN);
  struct rlimit before {};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  constexpr int kItems = 300;
  bool made = false;
  int failures = 0;
  for (rlim_t limit = 0; !made; limit += 500) {
    const struct rlimit less { limit, before.rlim_max };
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &less), 0);
    try {
      Make(std::vector<testing::SampleItem>(kItems, {.name = "a"}));
      made = true;
    } catch (const Failure& failure) {
      ++failures;
      EXPECT_THAT(failure.what(), ::testing::StartsWith(book_ + ": "));
    }
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    EXPECT_EQ(folder_.Names().empty(), !made) << limit;
  }
  EXPECT_GT(failures, 20);
  EXPECT_EQ(Lines().size(), kItems + 3U);
}

}  // namespace
}  // namespace zevo::saft
