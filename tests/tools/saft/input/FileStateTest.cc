// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/input/FileState.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "tests/support/TemporaryFolder.h"
#include "tools/saft/errors/Failure.h"

namespace zevo::saft {
namespace {

using ::testing::ThrowsMessage;

class FileStateTest : public ::testing::Test {
 protected:
  testing::TemporaryFolder folder_;
  const std::string file_ = folder_.Write("a.xml", "before");
  const std::optional<FileState> before_ = StateOf(file_);
};

TEST_F(FileStateTest, AFileThatNobodyTouchesIsUnchanged) {
  EXPECT_TRUE(before_);
  EXPECT_NO_THROW(RequireUnchanged(file_, before_));
  EXPECT_NO_THROW(RequireUnchanged(folder_.Path("none"), StateOf(folder_.Path("none"))));
}

TEST_F(FileStateTest, AnotherSizeAndAnotherTimeAreChanges) {
  const auto changed = ThrowsMessage<Failure>(file_ + ": was changed while it was read; run the command again");
  std::filesystem::last_write_time(file_, before_->written + std::chrono::seconds(1));
  EXPECT_THAT([&] { RequireUnchanged(file_, before_); }, changed);
  folder_.Write("a.xml", "and after");
  std::filesystem::last_write_time(file_, before_->written);
  EXPECT_THAT([&] { RequireUnchanged(file_, before_); }, changed);
  std::filesystem::remove(file_);
  EXPECT_THAT([&] { RequireUnchanged(file_, before_); },
              ThrowsMessage<Failure>(file_ + ": was removed while it was read"));
}

}  // namespace
}  // namespace zevo::saft
