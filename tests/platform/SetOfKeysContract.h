// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_SETOFKEYSCONTRACT_H_
#define ZEVO_TESTS_PLATFORM_SETOFKEYSCONTRACT_H_

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zevo::testing {

/// What is true of every set of keys of a file.
template <class Set>
class SetOfKeysContract : public ::testing::Test {};

TYPED_TEST_SUITE_P(SetOfKeysContract);

TYPED_TEST_P(SetOfKeysContract, KnowsWhatWasAdded) {
  TypeParam keys;
  EXPECT_EQ(keys.Count(), 0U);
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

TYPED_TEST_P(SetOfKeysContract, OfManyAndLongKeysEachIsThereOnce) {
  TypeParam keys;
  const std::string long_key(100, 'k');
  const auto key = [&](int i) { return (i % 2 == 0 ? long_key : std::string()) + std::to_string(i); };
  for (int i = 0; i < 100'000; ++i) ASSERT_TRUE(keys.Add(key(i))) << i;
  for (int i = 0; i < 100'000; ++i) ASSERT_FALSE(keys.Add(key(i))) << i;
  for (int i = 0; i < 100'000; ++i) ASSERT_TRUE(keys.Has(key(i))) << i;
  for (int i = 100'000; i < 200'000; ++i) ASSERT_FALSE(keys.Has(key(i))) << i;
  EXPECT_EQ(keys.Count(), 100'000U);
}

// What is found must not depend on how the keys follow each other.
TYPED_TEST_P(SetOfKeysContract, InAnyOrderEachKeyIsThereOnce) {
  const std::vector<std::string> texts{"9", "10",  "010", "10", "A", "9", "", "A", std::string(80, '1'),
                                       "B", "010", "C"};
  TypeParam keys;
  std::string added;
  for (const std::string& text : texts) added += keys.Add(text) ? '+' : '-';
  EXPECT_EQ(added, "+++-+-+-++-+");
  EXPECT_FALSE(keys.Add(std::string(80, '1')));
  EXPECT_FALSE(keys.Has(std::string(81, '1')));
  for (const std::string& text : texts) EXPECT_TRUE(keys.Has(text)) << text;
  EXPECT_EQ(keys.Count(), 8U);
}

// The bytes of a key, NULs among them.
TYPED_TEST_P(SetOfKeysContract, EveryByteOfAKeyCounts) {
  TypeParam keys;
  for (const size_t size : {size_t{1}, size_t{22}, size_t{23}, size_t{24}, size_t{25}, size_t{64}, size_t{65}}) {
    const std::string key(size, '\0');
    EXPECT_TRUE(keys.Add(key)) << size;
    for (size_t i = 0; i < size; ++i) {
      std::string other = key;
      other[i] = '\x80';
      EXPECT_FALSE(keys.Has(other)) << size << ", " << i;
    }
  }
  EXPECT_EQ(keys.Count(), 7U);
}

REGISTER_TYPED_TEST_SUITE_P(SetOfKeysContract, KnowsWhatWasAdded, OfManyAndLongKeysEachIsThereOnce,
                            InAnyOrderEachKeyIsThereOnce, EveryByteOfAKeyCounts);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_SETOFKEYSCONTRACT_H_
