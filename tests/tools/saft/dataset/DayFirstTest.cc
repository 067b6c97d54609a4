// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/DayFirst.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {
namespace {

std::optional<std::string> Day(const std::string& cell) { return DateFromDayFirst(cell, TextKind::kDate); }
std::optional<std::string> DayAndTime(const std::string& cell) { return DateFromDayFirst(cell, TextKind::kDateTime); }

class DayFirstTest : public ::testing::Test {
 protected:
  ~DayFirstTest() override { Speak(Language::kEnglish); }

  // Why a cell is no date.
  static std::string Refused(const std::string& cell, TextKind kind = TextKind::kDate) {
    try {
      return "taken as " + DateFromDayFirst(cell, kind).value_or(cell);
    } catch (const BadValue& bad) {
      return bad.what();
    }
  }
};

TEST_F(DayFirstTest, TheDayComesFirst) {
  EXPECT_EQ(Day("31/12/2012"), "2012-12-31");
  EXPECT_EQ(Day("03/04/2012"), "2012-04-03");
  EXPECT_EQ(Day("3/4/2012"), "2012-04-03");
  EXPECT_EQ(Day("31-12-2012"), "2012-12-31");
  EXPECT_EQ(Day("1-2-2012"), "2012-02-01");
  EXPECT_EQ(Day("31.12.2012"), "2012-12-31");
  EXPECT_EQ(Day("29/02/2012"), "2012-02-29");
}

TEST_F(DayFirstTest, ATimeMayFollow) {
  EXPECT_EQ(DayAndTime("10/01/2012 12:38"), "2012-01-10T12:38:00");
  EXPECT_EQ(DayAndTime("10/01/2012 12:38:54"), "2012-01-10T12:38:54");
  EXPECT_EQ(DayAndTime("10-1-2012 9:05"), "2012-01-10T09:05:00");
  EXPECT_EQ(DayAndTime("10/01/2012 23:59:59"), "2012-01-10T23:59:59");
  EXPECT_EQ(DayAndTime("10/01/2012 00:00:00"), "2012-01-10T00:00:00");
  EXPECT_EQ(DayAndTime("10/01/2012"), "2012-01-10");
}

TEST_F(DayFirstTest, OtherTextsAreNoneOfThese) {
  for (const char* text :
       {"", "2012-12-31", "2012-01-10T12:38:54", "2012/12/31", "hoje", "31", "31/12", "31.12", "31.12-2012",
        "31/12-2012", "31-12/2012", "/12/2012", "31//2012", "031/12/2012", "1/123/2012"}) {
    EXPECT_EQ(Day(text), std::nullopt) << text;
    EXPECT_EQ(DayAndTime(text), std::nullopt) << text;
  }
}

TEST_F(DayFirstTest, DaysThatDoNotExistAreRefused) {
  const std::string reason = "there is no such day; the day comes first, then the month";
  for (const char* cell :
       {"12/13/2012", "31/02/2012", "29/02/2013", "31/04/2012", "32/01/2012", "0/1/2012", "1/0/2012"}) {
    EXPECT_EQ(Refused(cell), reason) << cell;
  }
  EXPECT_EQ(Refused("12/13/2012 10:00", TextKind::kDateTime), reason);
}

TEST_F(DayFirstTest, YearsHaveFourDigits) {
  EXPECT_EQ(Refused("31/12/12"), "the year must have four digits, as in 31/12/2012");
  EXPECT_EQ(Refused("31-12-12 10:00", TextKind::kDateTime), "the year must have four digits, as in 31/12/2012");
  for (const char* cell : {"31/12/", "31/12/2", "31/12/012", "31/12/20122"}) {
    EXPECT_EQ(Refused(cell), "not a date such as 31/12/2012") << cell;
  }
}

TEST_F(DayFirstTest, NothingElseMayFollow) {
  for (const char* cell : {"31/12/2012x", "31/12/2012/1", "31/12/2012 10:00", "31/12/2012 "}) {
    EXPECT_EQ(Refused(cell), "not a date such as 31/12/2012") << cell;
  }
  for (const char* time : {"T10:00", " 24:00", " 10:60", " 10:00:60", " 10", " 10:0", " 100:00", " 10:00:0",
                           " 10:00:", " :00", " 10:00:00.5", " 10:00 x", "  10:00", " 10h00"}) {
    EXPECT_EQ(Refused(std::string("31/12/2012") + time, TextKind::kDateTime),
              "not a date and time such as 31/12/2012 14:30")
        << time;
  }
}

TEST_F(DayFirstTest, SpeaksPortuguese) {
  Speak(Language::kPortuguese);
  EXPECT_EQ(Refused("31/02/2012"), "esse dia não existe; o dia vem primeiro, depois o mês");
  EXPECT_EQ(Refused("31/12/12"), "o ano tem de ter quatro algarismos, como em 31/12/2012");
  EXPECT_EQ(Refused("31/12/2012 10"), "não é uma data como 31/12/2012");
  EXPECT_EQ(Refused("31/12/2012 10", TextKind::kDateTime), "não é uma data e hora como 31/12/2012 14:30");
}

}  // namespace
}  // namespace zevo::saft
