// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/KeySet.h>

#include <string>

namespace zevo {
namespace {

TEST(KeySetTest, KnowsWhatWasAdded) {
  KeySet keys;
  EXPECT_FALSE(keys.Has("C1"));
  EXPECT_TRUE(keys.Add("C1"));
  EXPECT_FALSE(keys.Add("C1"));
  EXPECT_TRUE(keys.Has("C1"));
  EXPECT_FALSE(keys.Has("c1"));
  EXPECT_FALSE(keys.Has(""));
  EXPECT_TRUE(keys.Add(""));
  EXPECT_TRUE(keys.Has(""));
  EXPECT_EQ(keys.Count(), 2U);
}

TEST(KeySetTest, OfManyAndLongKeysEachIsThereOnce) {
  KeySet keys;
  const std::string long_key(100, 'k');
  const auto key = [&](int i) { return (i % 2 == 0 ? long_key : std::string()) + std::to_string(i); };
  for (int i = 0; i < 100'000; ++i) ASSERT_TRUE(keys.Add(key(i))) << i;
  for (int i = 0; i < 100'000; ++i) ASSERT_FALSE(keys.Add(key(i))) << i;
  for (int i = 100'000; i < 200'000; ++i) ASSERT_FALSE(keys.Has(key(i))) << i;
  EXPECT_EQ(keys.Count(), 100'000U);
}

}  // namespace
}  // namespace zevo
