// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/input/KeyText.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/TemporaryFolder.h"
#include "tools/saft/errors/Failure.h"

namespace zevo::saft {
namespace {

TEST(KeyTextTest, IsTheTextOfAFile) {
  const testing::TemporaryFolder folder;
  EXPECT_EQ(KeyTextOf(folder.Write("key.pem", "-----BEGIN\n")), "-----BEGIN\n");
  EXPECT_EQ(KeyTextOf(folder.Write("empty.pem", "")), "");
  EXPECT_EQ(KeyTextOf(folder.Write("long.pem", std::string(100'000, 'x'))).size(), 65'536U);
}

TEST(KeyTextTest, FailsWithWhatIsNoFile) {
  const testing::TemporaryFolder folder;
  EXPECT_THROW(KeyTextOf(folder.Path("none.pem")), Failure);
  EXPECT_THROW(KeyTextOf("/dev/zero"), Failure);
  EXPECT_THROW(KeyTextOf("."), Failure);
}

}  // namespace
}  // namespace zevo::saft
