// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/NumberedOrder.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace zevo {
namespace {

TEST(NumberedOrderTest, NumbersInTextsCountAsSuch) {
  constexpr std::array<std::string_view, 16> kAscending{"",  " ",  "0",   "1",  "1 A", "1 B",    "9",       "10",
                                                        "A", "A1", "A1B", "A9", "A10", "A99 V2", "A99 V10", "\xC3\x81"};
  for (size_t left = 0; left < kAscending.size(); ++left) {
    for (size_t right = 0; right < kAscending.size(); ++right) {
      EXPECT_EQ(IsNumberedBefore(kAscending[left], kAscending[right]), left < right)
          << kAscending[left] << " and " << kAscending[right];
    }
  }
}

TEST(NumberedOrderTest, ZerosInFrontAreNothing) {
  for (const auto& [left, right] : {std::array<std::string_view, 2>{"A 01", "A 1"}, {"0", "00"}, {"A", "A"}}) {
    EXPECT_FALSE(IsNumberedBefore(left, right)) << left;
    EXPECT_FALSE(IsNumberedBefore(right, left)) << left;
  }
  EXPECT_TRUE(IsNumberedBefore("A 01 X", "A 1 Y"));
  EXPECT_TRUE(IsNumberedBefore("A 1 X", "A 01 Y"));
  EXPECT_TRUE(IsNumberedBefore("A 007", "A 10"));
  EXPECT_FALSE(IsNumberedBefore("A 10", "A 007"));
}

TEST(NumberedOrderTest, NumbersMayBeOfAnyLength) {
  EXPECT_TRUE(IsNumberedBefore("99999999999999999999999", "100000000000000000000000"));
  EXPECT_TRUE(IsNumberedBefore("100000000000000000000000", "100000000000000000000001"));
}

}  // namespace
}  // namespace zevo
