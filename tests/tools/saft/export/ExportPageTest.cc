// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/tools/saft/PageTest.h"
#include "tools/saft/export/AuditViews.h"

namespace zevo {
namespace {

class ExportPageTest : public testing::PageTest {};

TEST_F(ExportPageTest, ThePageIsWhatAUserSees) {
  if (RunInShell("command -v sqlite3").code != 0) GTEST_SKIP() << "the page shows sqlite3, which is not installed";
  std::filesystem::create_directory(folder_.Path("examples"));
  std::filesystem::create_directory_symlink(ZEVO_COMPANY_FOLDER, folder_.Path("examples/company"));
  WriteMonths(".");
  RunPage(testing::ReadBytes(EXPORT_PAGE), 12);
}

TEST_F(ExportPageTest, ThePageShowsEveryView) {
  const std::string page = testing::ReadBytes(EXPORT_PAGE);
  for (const saft::TableView& view : saft::AuditViews()) {
    EXPECT_NE(page.find(std::string(" FROM ").append(view.name).append(" ")), std::string::npos) << view.name;
  }
}

}  // namespace
}  // namespace zevo
