// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/platform/File.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "tests/platform/Replacement.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

// What is so on every system; FileTest.cc has what is so on some.

namespace zevo {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::kNew;
using testing::kOld;
using testing::ReadBytes;
using testing::Replace;

class FileReplacementTest : public ::testing::Test {
 protected:
  testing::TemporaryFolder folder_;
};

TEST_F(FileReplacementTest, TakesThePlaceOfAFileOrOfNone) {
  const std::string file = folder_.Path("São João €.xml");
  for (const std::string_view content : {kOld, kNew, std::string_view("short")}) {
    Replace(file, content);
    EXPECT_EQ(ReadBytes(file), content);
    EXPECT_EQ(folder_.Names().size(), 1U);
  }
}

TEST_F(FileReplacementTest, NothingWrittenIsAnEmptyFile) {
  const std::string file = folder_.Write("file", kOld);
  FileReplacement(file).Commit();
  EXPECT_EQ(ReadBytes(file), "");
}

TEST_F(FileReplacementTest, TheOldFileStaysUntilTheCommit) {
  const std::string file = folder_.Write("file", kOld);
  FileReplacement replacement(file);
  replacement.Write(kNew);
  EXPECT_EQ(ReadBytes(file), kOld);
  replacement.Commit();
  EXPECT_EQ(ReadBytes(file), kNew);
  EXPECT_THAT(folder_.Names(), ElementsAre("file"));
}

TEST_F(FileReplacementTest, WithoutACommitNothingChangesAndNothingIsLeftOver) {
  const std::string file = folder_.Write("file", kOld);
  FileReplacement(file).Write(kNew);
  FileReplacement(folder_.Path("new")).Write(kNew);
  EXPECT_EQ(ReadBytes(file), kOld);
  EXPECT_THAT(folder_.Names(), ElementsAre("file"));
}

TEST_F(FileReplacementTest, TwoReplacementsOfOneFileDoNotMeet) {
  const std::string file = folder_.Write("file", kOld);
  FileReplacement first(file);
  FileReplacement second(file);
  first.Write("first");
  second.Write("second");
  first.Commit();
  EXPECT_EQ(ReadBytes(file), "first");
  second.Commit();
  EXPECT_EQ(ReadBytes(file), "second");
  EXPECT_THAT(folder_.Names(), ElementsAre("file"));
}

TEST_F(FileReplacementTest, AnotherNameOfTheFileKeepsTheOldContent) {
  const std::string file = folder_.Write("file", kOld);
  std::filesystem::create_hard_link(file, folder_.Path("other"));
  Replace(file, kNew);
  EXPECT_EQ(ReadBytes(file), kNew);
  EXPECT_EQ(ReadBytes(folder_.Path("other")), kOld);
}

TEST_F(FileReplacementTest, ANameInTheCurrentFolder) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.Path(""));
  Replace("file", kOld);
  Replace("file", kNew);
  std::filesystem::current_path(before);
  EXPECT_EQ(ReadBytes(folder_.Path("file")), kNew);
  EXPECT_THAT(folder_.Names(), ElementsAre("file"));
}

TEST_F(FileReplacementTest, WhatADeadProcessLeftIsDeleted) {
  for (const char* name : {"zevo-1-0.tmp", "zevo-1-1.tmp", "zevo-4294967295-123.tmp"}) {
    folder_.Write(name, "left behind");
  }
  folder_.Write("zevo-1.tmp", "no name of ours");
  std::filesystem::create_directory(folder_.Path("zevo-1-2.tmp"));
  Replace(folder_.Path("file"), kNew);
  EXPECT_THAT(folder_.Names(), ElementsAre("file", "zevo-1-2.tmp", "zevo-1.tmp"));
}

TEST_F(FileReplacementTest, WhatIsBeingWrittenIsNotTakenForLeftBehind) {
  const std::string file = folder_.Write("file", kOld);
  FileReplacement replacement(file);
  replacement.Write(kNew);
  for (const char* other : {"1", "2", "file"}) Replace(folder_.Path(other), "other");
  EXPECT_EQ(folder_.Names().size(), 4U);
  replacement.Commit();
  EXPECT_EQ(ReadBytes(file), kNew);
  EXPECT_THAT(folder_.Names(), ElementsAre("1", "2", "file"));
}

}  // namespace
}  // namespace zevo
