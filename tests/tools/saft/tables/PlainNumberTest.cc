// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/PlainNumber.h"

#include <gtest/gtest.h>

namespace zevo::saft {
namespace {

TEST(PlainNumberTest, HasNoSignInFrontAndADigitOnBothSidesOfThePoint) {
  EXPECT_EQ(PlainNumber("92.26"), "92.26");
  EXPECT_EQ(PlainNumber("+.5"), "0.5");
  EXPECT_EQ(PlainNumber("-.50"), "-0.50");
  EXPECT_EQ(PlainNumber("007."), "7");
  EXPECT_EQ(PlainNumber("000"), "0");
  EXPECT_EQ(PlainNumber("0."), "0");
  EXPECT_EQ(PlainNumber("-00.10"), "-0.10");
  EXPECT_EQ(PlainNumber("123456789012345678901234567890.10"), "123456789012345678901234567890.10");
}

TEST(PlainNumberTest, ZerosAtTheEndsAreNotSignificant) {
  EXPECT_EQ(SignificantDigits("0.00"), 0U);
  EXPECT_EQ(SignificantDigits("0.0120"), 2U);
  EXPECT_EQ(SignificantDigits("12300"), 3U);
  EXPECT_EQ(SignificantDigits("-100.01"), 5U);
  EXPECT_EQ(SignificantDigits("1234567.12345678"), 15U);
}

}  // namespace
}  // namespace zevo::saft
