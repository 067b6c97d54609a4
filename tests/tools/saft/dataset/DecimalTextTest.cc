// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/DecimalText.h"

#include <gtest/gtest.h>

#include <charconv>
#include <limits>
#include <string>

namespace zevo::saft {
namespace {

TEST(DecimalTextTest, ZerosThatMakeNoDifferenceAreNone) {
  EXPECT_TRUE(IsSameNumber("12.340000", "12.34"));
  EXPECT_TRUE(IsSameNumber("0012", "12"));
  EXPECT_TRUE(IsSameNumber(".5", "0.50"));
  EXPECT_TRUE(IsSameNumber("5.", "+5.0"));
  EXPECT_TRUE(IsSameNumber("-0.00", "0"));
  EXPECT_TRUE(IsSameNumber("", "0"));
  EXPECT_TRUE(IsSameNumber(std::string(1000, '0') + "7", "7"));
}

TEST(DecimalTextTest, EveryOtherDigitMakesADifference) {
  EXPECT_FALSE(IsSameNumber("12.34", "12.340001"));
  EXPECT_FALSE(IsSameNumber("12", "120"));
  EXPECT_FALSE(IsSameNumber("0.5", "0.05"));
  EXPECT_FALSE(IsSameNumber("-1", "1"));
  EXPECT_FALSE(IsSameNumber("9007199254740993", "9007199254740992"));
  EXPECT_FALSE(IsSameNumber("1." + std::string(1000, '0') + "1", "1"));
}

TEST(DecimalTextTest, SinglesHaveTheirShortestDigitsAndNoExponent) {
  EXPECT_EQ(TextFromSingle(0), "0");
  EXPECT_EQ(TextFromSingle(-0.0F), "0");
  EXPECT_EQ(TextFromSingle(23), "23");
  EXPECT_EQ(TextFromSingle(6.5F), "6.5");
  EXPECT_EQ(TextFromSingle(-0.05F), "-0.05");
  EXPECT_EQ(TextFromSingle(0.123456789F), "0.12345679");
  EXPECT_EQ(TextFromSingle(16777217.0F), "16777216");
  EXPECT_EQ(TextFromSingle(1234567.89F), "1234567.9");
  EXPECT_EQ(TextFromSingle(1e12F), "1000000000000");
  EXPECT_EQ(TextFromSingle(std::numeric_limits<float>::max()), "34028235" + std::string(31, '0'));
  EXPECT_EQ(TextFromSingle(1e-30F), "0." + std::string(29, '0') + "1");
}

// Numbers of six digits with up to four decimals, and of seven digits.
TEST(DecimalTextTest, SinglesKeepSixDigitsAndAPoint) {
  const auto expectKept = [](const std::string& text) {
    float value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    ASSERT_TRUE(IsSameNumber(text, TextFromSingle(value))) << text;
  };
  for (int digits = 100000; digits < 1000000; digits += 3) {
    const std::string all = std::to_string(digits);
    for (size_t decimals = 0; decimals <= 4; ++decimals) expectKept(std::string(all).insert(6 - decimals, "."));
  }
  for (int digits = 1000000; digits < 10000000; digits += 7) expectKept(std::to_string(digits));
}

}  // namespace
}  // namespace zevo::saft
