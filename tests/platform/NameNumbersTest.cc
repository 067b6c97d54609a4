// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/NameNumbers.h>

#include <cstdint>
#include <vector>

#include "tests/support/ProcessorTime.h"
#include "tests/support/Sanitizers.h"

namespace zevo {
namespace {

TEST(NameNumbersTest, AreGivenInTheOrderInWhichNamesCome) {
  const char names[] = "abc";
  NameNumbers numbers;
  EXPECT_EQ(numbers.Of(names + 1), 1U);
  EXPECT_EQ(numbers.Of(names), 2U);
  EXPECT_EQ(numbers.Of(names + 1), 1U);
  EXPECT_EQ(numbers.Of(names + 2), 3U);
}

TEST(NameNumbersTest, TellPrefixesApart) {
  const char names[] = "abc";
  NameNumbers numbers;
  EXPECT_EQ(numbers.Of(names, nullptr), 1U);
  EXPECT_EQ(numbers.Of(names, names + 1), 2U);
  EXPECT_EQ(numbers.Of(names + 1, names), 3U);
  EXPECT_EQ(numbers.Of(names, names + 2), 4U);
  EXPECT_EQ(numbers.Of(names, names + 1), 2U);
  EXPECT_EQ(numbers.Of(names, nullptr), 1U);
}

TEST(NameNumbersTest, StayWhatTheyAreAsTheyGrowMany) {
  const std::vector<char> names(20'000);
  NameNumbers numbers;
  for (int round = 0; round < 2; ++round) {
    for (size_t i = 0; i < names.size(); ++i) {
      ASSERT_EQ(numbers.Of(&names[i], i % 2 == 0 ? nullptr : names.data()), i + 1);
    }
  }
}

// Who makes a file decides how far apart its names lie in memory.
TEST(NameNumbersTest, TakeNoLongerWhereverTheNamesLie) {
  if (testing::kSanitized) GTEST_SKIP() << "a sanitizer distorts time";
  for (const uint64_t distance : {1U, 8U, 4'181U, 65'536U, 832'040U, 1U << 24, 1U << 30}) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): nobody reads what is there.
    const auto name = [&](uint64_t i) { return reinterpret_cast<const char*>(0x7F0000000000 + i * distance); };
    NameNumbers numbers;
    EXPECT_LT(testing::ProcessorSeconds([&] {
                for (int round = 0; round < 20; ++round) {
                  for (uint32_t i = 0; i < 10'000; ++i) {
                    if (numbers.Of(name(i)) != i + 1) ADD_FAILURE() << i;
                  }
                }
              }),
              0.05)
        << distance;
  }
}

}  // namespace
}  // namespace zevo
