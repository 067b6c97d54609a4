// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/SignedText.h>

#include <string>
#include <string_view>

namespace zevo {
namespace {

TEST(SignedTextTest, PartsStandAsTheyAreWritten) {
  EXPECT_EQ(SignedText("2010-05-18", "2010-05-18T11:22:19", "FAC 001/14", *Decimal::FromText("3.12")),
            "2010-05-18;2010-05-18T11:22:19;FAC 001/14;3.12;");
}

TEST(SignedTextTest, TheTotalHasTwoDecimals) {
  const auto total = [](std::string_view text) { return SignedText("", "", "", *Decimal::FromText(text)).substr(3); };
  EXPECT_EQ(total("12"), "12.00;");
  EXPECT_EQ(total("12.1"), "12.10;");
  EXPECT_EQ(total("12.105000"), "12.11;");
  EXPECT_EQ(total("12.104999"), "12.10;");
  EXPECT_EQ(total("0"), "0.00;");
  EXPECT_EQ(total("-0.004"), "0.00;");
  EXPECT_EQ(total("-5.5"), "-5.50;");
  EXPECT_EQ(total("+1234567.89"), "1234567.89;");
}

}  // namespace
}  // namespace zevo
