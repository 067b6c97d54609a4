// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/DecimalText.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace zevo::saft
