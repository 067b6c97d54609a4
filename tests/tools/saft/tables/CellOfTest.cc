// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/CellOf.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace zevo::saft {
namespace {

// The cell as a text; "-" for none.
std::string Told(std::string_view text, ColumnType type) {
  const auto cell = CellOf(text, type);
  if (!cell) return "-";
  if (const auto* const number = std::get_if<int64_t>(&*cell)) return std::to_string(*number);
  return std::string(std::get<std::string_view>(*cell));
}

TEST(CellOfTest, ATextIsTakenAsItIs) {
  EXPECT_EQ(Told("", ColumnType::kText), "");
  EXPECT_EQ(Told("Pão, =1+1; 'a\"", ColumnType::kText), "Pão, =1+1; 'a\"");
}

TEST(CellOfTest, AWholeNumberHasAtMost64Bits) {
  EXPECT_EQ(Told("12", ColumnType::kInteger), "12");
  EXPECT_EQ(Told("+012", ColumnType::kInteger), "12");
  EXPECT_EQ(Told("-9223372036854775808", ColumnType::kInteger), "-9223372036854775808");
  for (const char* text : {"", "+", "+-1", "1.0", "1 ", "x", "9223372036854775808"}) {
    EXPECT_EQ(Told(text, ColumnType::kInteger), "-") << text;
  }
}

TEST(CellOfTest, ANumberKeepsItsDigits) {
  for (const char* text : {"0.10", "-12.340", "+.5", "7.", "123456789012345678901234567890.12345678901234567890"}) {
    EXPECT_EQ(Told(text, ColumnType::kNumber), text);
  }
  for (const char* text : {"", ".", "1,5", "1e3", "INF", "--1"}) {
    EXPECT_EQ(Told(text, ColumnType::kNumber), "-") << text;
  }
  EXPECT_EQ(Told(std::string(1000, '9'), ColumnType::kNumber), std::string(1000, '9'));
  EXPECT_EQ(Told(std::string(1001, '9'), ColumnType::kNumber), "-");
}

TEST(CellOfTest, ADateIsADayOfTheCalendar) {
  EXPECT_EQ(Told("2012-02-29", ColumnType::kDate), "2012-02-29");
  EXPECT_EQ(Told("2012-02-29Z", ColumnType::kDate), "2012-02-29");
  EXPECT_EQ(Told("2012-02-29+01:00", ColumnType::kDate), "2012-02-29");
  for (const char* text : {"", "2011-02-29", "2012-2-9", "2012-13-01", "0000-01-01", "12012-01-01", "-2012-01-01",
                           "2012-01-01T00:00:00", "2012-01-01 ", "2012-01-01+1"}) {
    EXPECT_EQ(Told(text, ColumnType::kDate), "-") << text;
  }
}

TEST(CellOfTest, ATimeIsOneOfTheDay) {
  EXPECT_EQ(Told("2012-01-01T23:59:59", ColumnType::kTime), "2012-01-01T23:59:59");
  EXPECT_EQ(Told("2012-01-01T23:59:59.250Z", ColumnType::kTime), "2012-01-01T23:59:59.250");
  EXPECT_EQ(Told("2012-01-01T00:00:00-11:00", ColumnType::kTime), "2012-01-01T00:00:00");
  for (const char* text : {"2012-01-01", "2012-01-01T24:00:00", "2012-01-01T00:60:00", "2012-01-01T00:00:60",
                           "2012-02-30T00:00:00", "2012-01-01T00:00", "2012-01-01T00:00:00.", "2012-01-01 00:00:00"}) {
    EXPECT_EQ(Told(text, ColumnType::kTime), "-") << text;
  }
}

}  // namespace
}  // namespace zevo::saft
