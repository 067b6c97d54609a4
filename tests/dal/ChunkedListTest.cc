// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/ChunkedList.h>

#include <gtest/gtest.h>

#include <numeric>
#include <vector>

namespace zevo {
namespace {

struct Three {
  int numbers[3];
};

ChunkedList<Three> Counted(int count) {
  ChunkedList<Three> list;
  for (int i = 0; i < count; ++i) list.Add({{i, i + 1, i + 2}});
  return list;
}

std::vector<int> FirstsOf(const ChunkedList<Three>& list) {
  std::vector<int> firsts;
  for (size_t i = 0; i < list.Size(); ++i) firsts.push_back(list[i].numbers[0]);
  return firsts;
}

TEST(ChunkedListTest, ItemsStayWhereTheyAreWhileItGrows) {
  constexpr int kCount = 1'000'000;
  constexpr int kChunk = 256;
  ChunkedList<Three> list = Counted(kChunk);
  const Three* const first = &list[0];
  for (int i = kChunk; i < kCount; ++i) list.Add({{i, i + 1, i + 2}});
  EXPECT_EQ(&list[0], first);
  ASSERT_EQ(list.Size(), size_t{kCount});
  for (int i = 0; i < kCount; ++i) ASSERT_EQ(list[static_cast<size_t>(i)].numbers[2], i + 2);
  list.Last().numbers[0] = -1;
  EXPECT_EQ(list[kCount - 1].numbers[0], -1);
}

TEST(ChunkedListTest, TakesHardlyMoreThanItsItems) {
  EXPECT_EQ(ChunkedList<Three>().Capacity(), 0U);
  EXPECT_EQ(Counted(1).Capacity(), 8 * sizeof(Three));
  EXPECT_EQ(Counted(9).Capacity(), 16 * sizeof(Three));
  EXPECT_EQ(Counted(257).Capacity(), 512 * sizeof(Three));
  EXPECT_EQ(Counted(1'000'000).Capacity(), 1'000'192 * sizeof(Three));
}

TEST(ChunkedListTest, HasItsItemsWhateverTheirNumber) {
  for (int count = 0; count < 1'100; ++count) {
    std::vector<int> expected(static_cast<size_t>(count));
    std::iota(expected.begin(), expected.end(), 0);
    ChunkedList<Three> list = Counted(count);
    EXPECT_EQ(FirstsOf(list), expected);
    list.Clear();
    for (const int item : expected) list.Add({{item, 0, 0}});
    EXPECT_EQ(FirstsOf(list), expected);
  }
}

TEST(ChunkedListTest, ClearedItKeepsItsMemory) {
  ChunkedList<Three> list = Counted(1'000);
  const size_t capacity = list.Capacity();
  list.Clear();
  EXPECT_EQ(list.Size(), 0U);
  list.Add({{7, 8, 9}});
  EXPECT_EQ(FirstsOf(list), std::vector{7});
  EXPECT_EQ(list.Capacity(), capacity);
}

TEST(ChunkedListTest, ACopyIsOfItsOwn) {
  ChunkedList<Three> list = Counted(3);
  const ChunkedList<Three> copy = list;
  ChunkedList<Three> longer = Counted(1'000);
  longer = list;
  list[0].numbers[0] = 9;
  list.Add({});
  EXPECT_EQ(FirstsOf(copy), (std::vector{0, 1, 2}));
  EXPECT_EQ(FirstsOf(longer), (std::vector{0, 1, 2}));
  const ChunkedList<Three>& same = longer;
  longer = same;
  EXPECT_EQ(FirstsOf(longer), (std::vector{0, 1, 2}));
}

}  // namespace
}  // namespace zevo
