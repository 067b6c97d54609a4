// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/DigestSet.h>

#include <gtest/gtest.h>
#include <malloc.h>

#include <string>

#include "tests/platform/SetOfKeysContract.h"
#include "tests/support/Sanitizers.h"

namespace zevo::testing {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(DigestSet, SetOfKeysContract, DigestSet);

TEST(DigestSetTest, HasAllOfAnotherOrNot) {
  DigestSet keys;
  DigestSet some;
  EXPECT_TRUE(keys.HasAllOf(some));
  for (int i = 0; i < 10'000; ++i) {
    keys.Add(std::to_string(i));
    if (i % 7 == 0) some.Add(std::to_string(i));
  }
  EXPECT_TRUE(keys.HasAllOf(some));
  EXPECT_FALSE(some.HasAllOf(keys));
  EXPECT_FALSE(DigestSet().HasAllOf(some));
  some.Add("x");
  EXPECT_FALSE(keys.HasAllOf(some));
}

// Of all that the heap holds for it, what lies between its blocks included.
TEST(DigestSetTest, AKeyTakes20To27BytesAndHardlyMoreWhileTheSetGrows) {
  if (testing::kSanitized) GTEST_SKIP() << "a sanitizer has a heap of its own";
  constexpr size_t kKeys = 1'000'000;
  const auto heap = [] {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
  };
  const size_t before = heap();
  DigestSet keys;
  for (size_t i = 0; i < kKeys; ++i) {
    keys.Add(Digest{0x9E3779B97F4A7C15U * (i + 1), i + 1});
    if (i < 10'000 || i % 1'000 != 0) continue;
    const double bytes = static_cast<double>(heap() - before) / static_cast<double>(i + 1);
    ASSERT_GE(bytes, 19) << i;
    ASSERT_LE(bytes, 28) << i;
  }
  EXPECT_EQ(keys.Count(), kKeys);
}

}  // namespace
}  // namespace zevo::testing
