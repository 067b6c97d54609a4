// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/TextHash.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/ChosenKeys.h"

namespace zevo {
namespace {

TEST(TextHashMapTest, IsAskedWithAnyText) {
  TextMap<int> map;
  map.emplace("Évora", 1);
  map.emplace("", 2);
  const std::string_view text = "Évora, Portugal";
  EXPECT_EQ(map.find(text.substr(0, 6))->second, 1);
  EXPECT_EQ(map.find(std::string_view())->second, 2);
  EXPECT_EQ(map.find(text), map.end());
}

TEST(TextHashMapTest, ChosenKeysAreSpread) {
  const std::vector<std::string> keys = testing::KeysOfOneHash(10'000);
  TextMap<int> map;
  for (const std::string& key : keys) map.emplace(key, 0);
  EXPECT_EQ(map.size(), keys.size());
  size_t fullest = 0;
  for (size_t bucket = 0; bucket < map.bucket_count(); ++bucket) fullest = std::max(fullest, map.bucket_size(bucket));
  EXPECT_LT(fullest, 20U);
}

}  // namespace
}  // namespace zevo
