// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/KeySet.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

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

// What is found must not depend on how the keys follow each other.
TEST(KeySetTest, InAnyOrderEachKeyIsThereOnce) {
  const std::vector<std::string> texts{"9", "10",  "010", "10", "A", "9", "", "A", std::string(80, '1'),
                                       "B", "010", "C"};
  KeySet keys;
  std::string added;
  for (const std::string& text : texts) added += keys.Add(text) ? '+' : '-';
  EXPECT_EQ(added, "+++-+-+-++-+");
  EXPECT_FALSE(keys.Add(std::string(80, '1')));
  EXPECT_EQ(keys.Find("C"), 7U);
}

}  // namespace
}  // namespace zevo
