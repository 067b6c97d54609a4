// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/MoneyText.h>

namespace zevo {
namespace {

TEST(MoneyTextTest, HasAtLeastTwoDecimals) {
  const auto of = [](std::string_view text) { return MoneyText(*Decimal::FromText(text)); };
  EXPECT_EQ(of("0"), "0.00");
  EXPECT_EQ(of("-12"), "-12.00");
  EXPECT_EQ(of("49.3"), "49.30");
  EXPECT_EQ(of("49.30"), "49.30");
  EXPECT_EQ(of("49.3050"), "49.305");
}

}  // namespace
}  // namespace zevo
