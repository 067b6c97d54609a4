// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <zevo/check/OutOfOrder.h>

#include <numeric>
#include <vector>

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<uint32_t> Of(const std::vector<int>& values) {
  std::vector<uint32_t> things(values.size());
  std::iota(things.begin(), things.end(), 0U);
  return OutOfOrder(things, [&](uint32_t thing) { return values[thing]; });
}

TEST(OutOfOrderTest, OfValuesThatNeverDecreaseNoneStandsOut) {
  EXPECT_THAT(Of({}), IsEmpty());
  EXPECT_THAT(Of({7}), IsEmpty());
  EXPECT_THAT(Of({1, 1, 2, 5, 5}), IsEmpty());
}

TEST(OutOfOrderTest, TheOneThatContradictsTheOthersDoes) {
  EXPECT_THAT(Of({1, 2, 9, 3, 4, 5}), ElementsAre(2));
  EXPECT_THAT(Of({5, 6, 7, 1, 8, 9}), ElementsAre(3));
  EXPECT_THAT(Of({9, 1, 2, 3}), ElementsAre(0));
  EXPECT_THAT(Of({1, 2, 3, 0}), ElementsAre(3));
  EXPECT_THAT(Of({1, 9, 2, 3, 4, 0, 5, 6}), ElementsAre(1, 5));
}

TEST(OutOfOrderTest, OfTwoTheLaterDoes) {
  EXPECT_THAT(Of({2, 1}), ElementsAre(1));
  EXPECT_THAT(Of({1, 9, 2}), ElementsAre(2));
  EXPECT_THAT(Of({4, 3, 2, 1}), ElementsAre(1, 2, 3));
  EXPECT_THAT(Of({3, 4, 1, 2}), ElementsAre(2, 3));
}

TEST(OutOfOrderTest, ManyValuesTakeNoTimeThatGrowsWithTheirSquare) {
  std::vector<int> values(300'000);
  for (size_t i = 0; i < values.size(); ++i) values[i] = static_cast<int>((i * 7919) % values.size());
  EXPECT_GT(Of(values).size(), values.size() / 2);
}

RC_GTEST_PROP(OutOfOrderPropertyTest, NoFewerDo, (const std::vector<uint8_t>& bytes)) {
  std::vector<int> values;
  for (const uint8_t byte : bytes) values.push_back(byte % 16);
  if (values.size() > 12) values.resize(12);
  const std::vector<uint32_t> standing_out = Of(values);
  const auto in_order_without = [&](unsigned without) {
    int last = -1;
    for (size_t i = 0; i < values.size(); ++i) {
      if ((without >> i & 1U) != 0) continue;
      if (values[i] < last) return false;
      last = values[i];
    }
    return true;
  };
  unsigned without = 0;
  for (const uint32_t place : standing_out) without |= 1U << place;
  RC_ASSERT(in_order_without(without));
  for (unsigned other = 0; other < 1U << values.size(); ++other) {
    if (static_cast<size_t>(__builtin_popcount(other)) < standing_out.size()) RC_ASSERT(!in_order_without(other));
  }
}

}  // namespace
}  // namespace zevo
