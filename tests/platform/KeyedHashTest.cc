// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/KeyedHash.h>

#include <cstdint>
#include <set>
#include <string>

namespace zevo {
namespace {

TEST(KeyedHashTest, IsTheSameForTheSameText) {
  const std::string text = "FT A/12";
  EXPECT_EQ(KeyedHash(text), KeyedHash(std::string(text)));
  EXPECT_EQ(KeyedHash({}), KeyedHash(""));
}

// Whatever place in a text differs, and by whatever bit: a quarter to three quarters of the hash's bits do.
TEST(KeyedHashTest, DiffersWhereverATextDoes) {
  for (size_t size = 1; size <= 40; ++size) {
    const std::string text(size, 'a');
    for (size_t at = 0; at < size; ++at) {
      std::string other = text;
      other[at] = 'b';
      const int differing = __builtin_popcountll(KeyedHash(text) ^ KeyedHash(other));
      EXPECT_GE(differing, 10) << size << " characters, differing at " << at;
      EXPECT_LE(differing, 54) << size << " characters, differing at " << at;
    }
  }
}

TEST(KeyedHashTest, TellsTextsOfEveryLengthApart) {
  std::set<uint64_t> hashes;
  for (size_t size = 0; size < 1000; ++size) hashes.insert(KeyedHash(std::string(size, '\0')));
  EXPECT_EQ(hashes.size(), 1000U);
}

TEST(KeyedHashTest, ADigestIsTheSameForTheSameTextOnlyAndNeverZero) {
  std::set<Digest> digests{Digest{}};
  for (size_t size = 0; size < 200; ++size) {
    const std::string text(size, 'x');
    EXPECT_EQ(KeyedDigest(text), KeyedDigest(std::string(text)));
    EXPECT_TRUE(digests.insert(KeyedDigest(text)).second) << size;
  }
}

}  // namespace
}  // namespace zevo
