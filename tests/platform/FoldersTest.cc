// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/Folders.h>

#include <filesystem>

namespace zevo {
namespace {

TEST(FoldersTest, NoCommonFilesFolderOnThisSystem) { EXPECT_EQ(CommonFilesFolder(), ""); }

TEST(FoldersTest, LibraryFolderIsWhereTheLoadedCodeLies) {
  // The objects are linked into this program.
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe");
  EXPECT_EQ(std::filesystem::canonical(LibraryFolder()), program.parent_path());
}

TEST(FoldersTest, JoinedPathHasASeparator) {
  EXPECT_EQ(JoinPath("/usr/lib", "SAF-T-PT_1_01.xsd"), "/usr/lib/SAF-T-PT_1_01.xsd");
  EXPECT_EQ(JoinPath(".", "Zevo/2070"), "./Zevo/2070");
}

}  // namespace
}  // namespace zevo
