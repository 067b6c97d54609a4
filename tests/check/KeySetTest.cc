// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/KeySet.h>

#include <cstdint>
#include <optional>
#include <string>

#include "tests/platform/SetOfKeysContract.h"

namespace zevo::testing {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(KeySet, SetOfKeysContract, KeySet);

TEST(KeySetTest, TellsWhichOneAKeyIs) {
  KeySet keys;
  EXPECT_EQ(keys.Find("A 1"), std::nullopt);
  for (int i = 0; i < 100; ++i) keys.Add("A " + std::to_string(i));
  for (int i = 0; i < 100; ++i) ASSERT_EQ(keys.Find("A " + std::to_string(i)), static_cast<uint32_t>(i));
  for (int i = 99; i >= 0; --i) ASSERT_EQ(keys.Find("A " + std::to_string(i)), static_cast<uint32_t>(i));
  EXPECT_EQ(keys.Find("A 100"), std::nullopt);
  EXPECT_FALSE(keys.Add("A 7"));
  EXPECT_EQ(keys.Find("A 7"), 7U);
  EXPECT_TRUE(keys.Add("A 100"));
  EXPECT_EQ(keys.Find("A 100"), 100U);
}

TEST(KeySetTest, NumbersKeysAsTheyComeInAnyOrder) {
  KeySet keys;
  for (const char* const text : {"9", "10", "010", "10", "A", "9", "", "B"}) keys.Add(text);
  EXPECT_EQ(keys.Find("010"), 2U);
  EXPECT_EQ(keys.Find(""), 4U);
  EXPECT_EQ(keys.Find("B"), 5U);
  EXPECT_EQ(keys.Find("9"), 0U);
}

}  // namespace
}  // namespace zevo::testing
