// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/tools/saft/PageTest.h"

namespace zevo {
namespace {

class CheckPageTest : public testing::PageTest {};

TEST_F(CheckPageTest, ThePageIsWhatAUserSees) {
  std::filesystem::create_directory(folder_.Path("examples"));
  std::filesystem::create_directory_symlink(ZEVO_COMPANY_FOLDER, folder_.Path("examples/company"));
  RunPage(testing::ReadBytes(CHECK_PAGE), 8);
}

}  // namespace
}  // namespace zevo
