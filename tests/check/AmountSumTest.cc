// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/AmountSum.h>

#include <string>
#include <string_view>

namespace zevo {
namespace {

NumberFact FactOf(std::string_view text) {
  NumberFact fact;
  const auto number = Decimal::FromText(text);
  fact.state = number ? NumberFact::State::kRead : NumberFact::State::kUnreadable;
  if (number) fact.value = *number;
  return fact;
}

TEST(AmountSumTest, AmountsOfTwoDecimalsAddUpExactly) {
  AmountSum sum;
  sum.Add(FactOf("0.10"));
  sum.Add(FactOf("0.2000"));
  sum.Add(NumberFact());
  EXPECT_EQ(sum.sum.Text(), "0.3");
  EXPECT_TRUE(sum.known);
  EXPECT_TRUE(sum.Allows(*Decimal::FromText("0.30")));
  EXPECT_FALSE(sum.Allows(*Decimal::FromText("0.3001")));
  EXPECT_FALSE(sum.Allows(*Decimal::FromText("0.2999")));
}

TEST(AmountSumTest, EachOfMoreDecimalsMayBeRounded) {
  AmountSum sum;
  sum.Add(FactOf("0.333"));
  sum.Add(FactOf("0.333"));
  EXPECT_TRUE(sum.Allows(*Decimal::FromText("0.676")));
  EXPECT_FALSE(sum.Allows(*Decimal::FromText("0.6761")));
  EXPECT_TRUE(sum.Allows(*Decimal::FromText("0.656")));
  EXPECT_FALSE(sum.Allows(*Decimal::FromText("0.6559")));
}

TEST(AmountSumTest, ANegativeAmountMayHaveBeenMeantOtherwise) {
  AmountSum sum;
  sum.Add(FactOf("40"));
  sum.Add(FactOf("-10"));
  AmountSum other;
  EXPECT_EQ(sum.negative, 10);
  EXPECT_FALSE(sum.Allows(40));
  EXPECT_TRUE(sum.MayAllow(30, other));
  EXPECT_TRUE(sum.MayAllow(50, other));
  EXPECT_FALSE(sum.MayAllow(*Decimal::FromText("50.01"), other));
  EXPECT_FALSE(sum.MayAllow(*Decimal::FromText("29.99"), other));
  other.Add(FactOf("-1"));
  EXPECT_TRUE(sum.MayAllow(51, other));
}

TEST(AmountSumTest, ANegativeAmountMayHaveAnyLength) {
  AmountSum sum;
  sum.Add(FactOf("-" + std::string(20'000, '9')));
  EXPECT_TRUE(sum.MayAllow(*Decimal::FromText(std::string(20'000, '9')), {}));
  EXPECT_FALSE(sum.MayAllow(*Decimal::FromText("1" + std::string(20'000, '0')), {}));
}

TEST(AmountSumTest, SumsAreAddedWithWhatIsKnownOfThem) {
  AmountSum all;
  AmountSum more;
  more.Add(FactOf("0.333"));
  all += more;
  all += more;
  EXPECT_EQ(all.sum.Text(), "0.666");
  EXPECT_EQ(all.inexact, 2);
  EXPECT_TRUE(all.known);
  more.Add(FactOf("x"));
  all += more;
  EXPECT_FALSE(all.known);
}

}  // namespace
}  // namespace zevo
