// SPDX-License-Identifier: Apache-2.0
// The switch of a library that is built with ZEVO_FAST_PATH=OFF.
#include <gtest/gtest.h>
#include <zevo/platform/fastpath/FastPath.h>

namespace zevo {
namespace {

TEST(FastPathLeftOutTest, CannotBeTurnedOn) {
  EXPECT_FALSE(IsFastPathOn());
  SetFastPath(true);
  EXPECT_FALSE(IsFastPathOn());
}

}  // namespace
}  // namespace zevo
