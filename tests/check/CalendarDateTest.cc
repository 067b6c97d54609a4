// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/CalendarDate.h>

#include <string>
#include <string_view>

namespace zevo {
namespace {

std::string DateOf(std::string_view text) {
  const auto date = CalendarDate::FromText(text);
  return date ? date->Text() : "none";
}

TEST(CalendarDateTest, ADateIsOfTheCalendar) {
  EXPECT_EQ(DateOf("2008-03-05"), "2008-03-05");
  EXPECT_EQ(DateOf(" \n2008-02-29\t"), "2008-02-29");
  EXPECT_EQ(DateOf("12008-12-31"), "12008-12-31");
  EXPECT_EQ(DateOf("-0044-03-15"), "-0044-03-15");
  for (const std::string_view text :
       {"", "2008", "2008-3-5", "08-03-05", "2008/03/05", "2008-00-01", "2008-13-01", "2008-01-00", "2008-01-32",
        "2009-02-29", "1900-02-29", "0000-01-01", "02008-01-01", "2008-01-01x", "2008-01-01T00:00:00", "+2008-01-01"}) {
    EXPECT_EQ(DateOf(text), "none") << text;
  }
}

TEST(CalendarDateTest, ATimeZoneLeavesTheDate) {
  for (const std::string_view zone : {"Z", "+00:00", "-14:00", "+13:59"}) {
    const std::string text = std::string("2008-03-05").append(zone);
    EXPECT_EQ(DateOf(text), "2008-03-05") << text;
    EXPECT_TRUE(HasZone(text)) << text;
  }
  EXPECT_FALSE(HasZone(" 2008-03-05 "));
  for (const std::string_view zone : {"z", "+1:00", "+14:01", "+15:00", "+00:60", "ZZ", "+0000"}) {
    EXPECT_EQ(DateOf(std::string("2008-03-05").append(zone)), "none") << zone;
  }
}

TEST(CalendarDateTest, ATimeIsToTheSecondAndSaysWhatMoreItHas) {
  const auto time = CalendarTime::FromText("2008-03-05T23:59:58");
  ASSERT_TRUE(time);
  EXPECT_EQ(time->date.Text(), "2008-03-05");
  EXPECT_EQ(time->hour, 23);
  EXPECT_EQ(time->minute, 59);
  EXPECT_EQ(time->second, 58);
  EXPECT_FALSE(time->has_fraction || time->has_zone);
  EXPECT_TRUE(CalendarTime::FromText("2008-03-05T23:59:58.25")->has_fraction);
  EXPECT_TRUE(CalendarTime::FromText("2008-03-05T23:59:58Z")->has_zone);
  EXPECT_EQ(CalendarTime::FromText("2008-03-05T24:00:00.0")->hour, 24);
  for (const std::string_view text :
       {"2008-03-05", "2008-03-05 10:00:00", "2008-03-05T10:00", "2008-03-05T24:00:01", "2008-03-05T24:00:00.1",
        "2008-03-05T25:00:00", "2008-03-05T10:60:00", "2008-03-05T10:00:60", "2008-03-05T10:00:00."}) {
    EXPECT_FALSE(CalendarTime::FromText(text)) << text;
  }
}

TEST(CalendarDateTest, ATimeIsWrittenToTheSecond) {
  EXPECT_EQ(CalendarTime::FromText("2008-03-05T09:05:08.25Z")->Text(), "2008-03-05T09:05:08");
  EXPECT_EQ(CalendarTime::FromText("0999-12-31T24:00:00")->Text(), "0999-12-31T24:00:00");
}

TEST(CalendarDateTest, DaysAndYearsFollowEachOther) {
  const auto date = [](std::string_view text) { return *CalendarDate::FromText(text); };
  EXPECT_EQ(date("2008-02-28").NextDay(), date("2008-02-29"));
  EXPECT_EQ(date("2008-02-29").NextDay(), date("2008-03-01"));
  EXPECT_EQ(date("2008-12-31").NextDay(), date("2009-01-01"));
  EXPECT_EQ(date("2008-03-02").DayBefore(), date("2008-03-01"));
  EXPECT_EQ(date("2008-03-01").DayBefore(), date("2008-02-29"));
  EXPECT_EQ(date("2009-01-01").DayBefore(), date("2008-12-31"));
  EXPECT_EQ(date("2008-10-01").YearLater(), date("2009-10-01"));
  EXPECT_EQ(date("2008-02-29").YearLater(), date("2009-03-01"));
  EXPECT_LT(date("2008-09-30"), date("2008-10-01"));
  EXPECT_LT(date("2008-12-31"), date("2009-01-01"));
}

}  // namespace
}  // namespace zevo
