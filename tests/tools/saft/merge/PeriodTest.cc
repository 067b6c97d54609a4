// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/merge/Period.h"

#include <gtest/gtest.h>

namespace zevo::saft {
namespace {

TEST(PeriodTest, DaysAreThoseOfTheCalendar) {
  for (const char* day : {"2012-02-29", "2000-01-01", "9999-12-31"}) EXPECT_EQ(TextOf(*DayOf(day)), day);
  for (const char* zoned : {" 2012-01-31\n", "2012-01-31Z", "2012-01-31+01:00", "2012-01-31-01:00"}) {
    EXPECT_EQ(TextOf(*DayOf(zoned)), "2012-01-31");
  }
  for (const char* none : {"", "x", "2011-02-29", "2012-13-01", "2012-00-10", "2012-1-01", "2012/01/01", "2012-01-0x",
                           "2012-01-31T10:00:00", "+012-01-01"}) {
    EXPECT_FALSE(DayOf(none)) << none;
  }
}

TEST(PeriodTest, AYearEndsTheDayBeforeTheNextBegins) {
  const auto isLonger = [](const char* start, const char* end) {
    return Period{*DayOf(start), *DayOf(end)}.IsLongerThanYear();
  };
  EXPECT_FALSE(isLonger("2012-01-01", "2012-12-31"));
  EXPECT_TRUE(isLonger("2012-01-01", "2013-01-01"));
  EXPECT_FALSE(isLonger("2011-10-01", "2012-09-30"));
  EXPECT_FALSE(isLonger("2012-02-29", "2013-02-28"));
  EXPECT_TRUE(isLonger("2012-02-29", "2013-03-01"));
}

}  // namespace
}  // namespace zevo::saft
