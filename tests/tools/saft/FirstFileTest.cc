// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "tests/tools/saft/PageTest.h"

namespace zevo {
namespace {

class FirstFileTest : public testing::PageTest {};

TEST_F(FirstFileTest, ThePageIsWhatAUserSees) {
  RunPage(testing::ReadBytes(FIRST_FILE_PAGE), 11);
  EXPECT_EQ(Run({"validate", folder_.Path("padaria.xml")}).code, 0);
}

}  // namespace
}  // namespace zevo
