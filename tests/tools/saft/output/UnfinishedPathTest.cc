// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/output/UnfinishedPath.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tools/saft/errors/Failure.h"

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class UnfinishedPathTest : public ::testing::Test {
 protected:
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.Path("."))) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }
  std::string Refusal(const std::string& place, UnfinishedPath::What what) const {
    try {
      const UnfinishedPath path(folder_.Path(place), what);
    } catch (const Failure& failure) {
      return std::string(failure.what()).substr(folder_.Path(place).size());
    }
    return {};
  }

  testing::TemporaryFolder folder_;
};

TEST_F(UnfinishedPathTest, AFileIsThereWhenItIsPutInPlace) {
  UnfinishedPath file(folder_.Path("list.csv"), UnfinishedPath::kFile);
  std::ofstream(file.Path()) << "whole";
  EXPECT_FALSE(std::filesystem::exists(folder_.Path("list.csv")));
  file.PutInPlace();
  EXPECT_THAT(Names(), ElementsAre("list.csv"));
  EXPECT_EQ(testing::ReadBytes(folder_.Path("list.csv")), "whole");
}

TEST_F(UnfinishedPathTest, AFolderIsThereWithAllThatIsInIt) {
  for (const std::string place : {"new", "slash/"}) {
    UnfinishedPath folder(folder_.Path(place), UnfinishedPath::kFolder);
    std::ofstream(folder.Path() / "a.csv") << "a";
    folder.PutInPlace();
    EXPECT_EQ(testing::ReadBytes(folder_.Path(place + "/a.csv")), "a");
  }
}

TEST_F(UnfinishedPathTest, NothingStaysOfWhatIsNotPutInPlace) {
  {
    const UnfinishedPath file(folder_.Path("list.csv"), UnfinishedPath::kFile);
    const UnfinishedPath folder(folder_.Path("new"), UnfinishedPath::kFolder);
    std::ofstream(folder.Path() / "a.csv") << "a";
  }
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(UnfinishedPathTest, WhatIsThereIsNeverReplaced) {
  folder_.Write("there", "old");
  EXPECT_EQ(Refusal("there", UnfinishedPath::kFile), ": is there already");
  EXPECT_EQ(Refusal("there", UnfinishedPath::kFolder), ": is there already and is no folder");
  std::filesystem::create_directory(folder_.Path("full"));
  folder_.Write("full/a", "old");
  EXPECT_EQ(Refusal("full", UnfinishedPath::kFolder), ": is there already and is not empty");
  EXPECT_EQ(Refusal("full", UnfinishedPath::kFile), ": is there already");
  EXPECT_EQ(Refusal("missing/new", UnfinishedPath::kFolder), ": There is no such folder");
}

TEST_F(UnfinishedPathTest, AFolderIsNoPlaceForAFile) {
  EXPECT_EQ(Refusal("new/", UnfinishedPath::kFile), ": There is no such folder");
  EXPECT_THAT(Names(), IsEmpty());
}

TEST_F(UnfinishedPathTest, AFolderThatIsNamedByItsPlaceStays) {
  std::filesystem::create_directory(folder_.Path("empty"));
  for (const std::string place : {"empty/.", "empty/./", "empty/.."}) {
    EXPECT_THAT(Refusal(place, UnfinishedPath::kFolder), ::testing::EndsWith("is a folder in use; name a new one"))
        << place;
  }
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.Path("empty"));
  EXPECT_EQ(Refusal("empty", UnfinishedPath::kFolder), ": is a folder in use; name a new one");
  std::filesystem::current_path(before);
}

TEST_F(UnfinishedPathTest, AnEmptyFolderGivesWay) {
  std::filesystem::create_directory(folder_.Path("empty"));
  UnfinishedPath folder(folder_.Path("empty"), UnfinishedPath::kFolder);
  std::ofstream(folder.Path() / "a.csv") << "a";
  folder.PutInPlace();
  EXPECT_EQ(testing::ReadBytes(folder_.Path("empty/a.csv")), "a");
}

TEST_F(UnfinishedPathTest, AFolderIsReplacedAsAWhole) {
  std::filesystem::create_directory(folder_.Path("full"));
  folder_.Write("full/old", "old");
  {
    const UnfinishedPath folder(folder_.Path("full"), UnfinishedPath::kFolderInstead);
    std::ofstream(folder.Path() / "new") << "new";
  }
  EXPECT_EQ(testing::ReadBytes(folder_.Path("full/old")), "old");
  UnfinishedPath folder(folder_.Path("full/"), UnfinishedPath::kFolderInstead);
  std::ofstream(folder.Path() / "new") << "new";
  folder.PutInPlace();
  EXPECT_THAT(Names(), ElementsAre("full"));
  EXPECT_FALSE(std::filesystem::exists(folder_.Path("full/old")));
  EXPECT_EQ(testing::ReadBytes(folder_.Path("full/new")), "new");
}

TEST_F(UnfinishedPathTest, AFolderReplacesNoFileAndNoLink) {
  folder_.Write("there", "old");
  EXPECT_EQ(Refusal("there", UnfinishedPath::kFolderInstead), ": is there already and is no folder");
  std::filesystem::create_directory(folder_.Path("full"));
  std::filesystem::create_directory_symlink("full", folder_.Path("link"));
  EXPECT_EQ(Refusal("link", UnfinishedPath::kFolderInstead), ": is there already and is no folder");
}

}  // namespace
}  // namespace zevo::saft
