// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/ChildRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<uint32_t> RowsOf(const ChildRows& rows, uint32_t parent) {
  std::vector<uint32_t> numbers;
  for (const ChildRows::Row& row : rows.Of(parent)) numbers.push_back(row.row);
  return numbers;
}

TEST(ChildRowsTest, AParentHasItsRowsInTheOrderOfTheirFile) {
  ChildRows rows;
  for (const ChildRows::Row& row : {ChildRows::Row{10, 2, 7}, {20, 3, 5}, {30, 4, 7}, {40, 5, 5}, {50, 6, 9}}) {
    rows.Add(row);
  }
  rows.Sort();
  EXPECT_THAT(RowsOf(rows, 5), ElementsAre(3, 5));
  EXPECT_THAT(RowsOf(rows, 7), ElementsAre(2, 4));
  EXPECT_THAT(RowsOf(rows, 9), ElementsAre(6));
  EXPECT_THAT(RowsOf(rows, 8), IsEmpty());
}

}  // namespace
}  // namespace zevo::saft
