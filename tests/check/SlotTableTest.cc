// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/SlotTable.h>

#include <vector>

namespace zevo {
namespace {

TEST(SlotTableTest, FindsWhatWasAdded) {
  SlotTable table;
  std::vector<uint64_t> things;
  const auto find = [&](uint64_t thing) {
    return table.Find(thing * 7, [&](uint32_t at) { return things[at] == thing; });
  };
  EXPECT_EQ(find(0), std::nullopt);
  for (uint64_t thing = 0; thing < 10'000; ++thing) {
    table.Add(thing * 7, [&](uint32_t at) { return things[at] * 7; });
    things.push_back(thing);
  }
  for (uint64_t thing = 0; thing < 10'000; ++thing) ASSERT_EQ(find(thing), thing);
  EXPECT_EQ(find(10'000), std::nullopt);
}

TEST(SlotTableTest, OfThingsWithOneHashEachIsFoundTheFirstFirst) {
  SlotTable table;
  for (int i = 0; i < 100; ++i) table.Add(5, [](uint32_t) { return uint64_t{5}; });
  EXPECT_EQ(table.Find(5, [](uint32_t) { return true; }), 0U);
  EXPECT_EQ(table.Find(5, [](uint32_t at) { return at >= 70; }), 70U);
  EXPECT_EQ(table.Find(6, [](uint32_t at) { return at > 100; }), std::nullopt);
}

}  // namespace
}  // namespace zevo
