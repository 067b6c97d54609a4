// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/CompactKey.h>

#include <cstddef>
#include <set>
#include <string>
#include <vector>

namespace zevo {
namespace {

TEST(CompactKeyTest, IsTheSameForTheSameTextOnly) {
  std::vector<std::string> texts{"", std::string(1, '\0'), "FT A/1", "FT A/12", std::string("FT A/1\0", 7)};
  // From such as stand as they are to such as are digests.
  for (size_t size = 1; size < 70; ++size) {
    for (const size_t at : {size_t{0}, size / 2, size - 1}) {
      std::string text(size, 'a');
      text[at] = 'b';
      texts.push_back(text);
    }
    texts.emplace_back(size, 'a');
  }
  const std::set<std::string> different(texts.begin(), texts.end());
  for (const std::string& left : different) {
    for (const std::string& right : different) {
      EXPECT_EQ(CompactKey(left) == CompactKey(std::string(right)), left == right) << left << " and " << right;
    }
  }
}

TEST(CompactKeyTest, HashesAreThoseOfTheText) {
  std::set<uint64_t> hashes;
  for (size_t size = 0; size < 70; ++size) {
    const std::string text(size, 'k');
    EXPECT_EQ(CompactKey(text).Hash(), CompactKey(std::string(text)).Hash());
    EXPECT_EQ(CompactKey(text).QuickHash(), CompactKey(std::string(text)).QuickHash());
    EXPECT_TRUE(hashes.insert(CompactKey(text).Hash()).second) << size;
  }
}

}  // namespace
}  // namespace zevo
