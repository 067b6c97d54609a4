// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/RepeatedInput.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/Error.h>

#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

std::string Take(RepeatedInput& input, size_t size) {
  std::string bytes(size, '\0');
  bytes.resize(input.Read(bytes.data(), bytes.size()));
  return bytes;
}

class RepeatedInputTest : public ::testing::Test {
 protected:
  testing::TemporaryFolder folder_;
};

TEST_F(RepeatedInputTest, AFileIsReadFromItsBeginningEachTime) {
  RepeatedInput input(folder_.Write("a", "abcdef"));
  input.Rewind();
  EXPECT_EQ(Take(input, 4), "abcd");
  EXPECT_TRUE(input.CanRewind());
  input.Rewind();
  EXPECT_EQ(Take(input, 10), "abcdef");
  input.Rewind();
  EXPECT_EQ(Take(input, 2), "ab");
}

TEST_F(RepeatedInputTest, SeveralPassesGoOnAtATime) {
  RepeatedInput input(folder_.Write("a", "abcdef"));
  EXPECT_EQ(Take(input, 3), "abc");
  RepeatedInput other(input, {});
  EXPECT_EQ(Take(other, 2), "ab");
  EXPECT_EQ(Take(input, 2), "de");
  EXPECT_EQ(Take(other, 10), "cdef");
  EXPECT_EQ(Take(input, 10), "f");
}

TEST_F(RepeatedInputTest, AMissingFileIsToldWhenItIsRead) {
  RepeatedInput input(folder_.Path("none"));
  EXPECT_ERROR(Take(input, 1), RunTimeError::kFileNotFound, kRunTimeSource);
}

TEST_F(RepeatedInputTest, TheWatchGetsEvery256KibibytesAndTheEnd) {
  const std::string bytes(600'000, 'x');
  std::vector<int64_t> told;
  RepeatedInput input(folder_.Write("a", bytes), [&](int64_t read) {
    told.push_back(read);
    return true;
  });
  while (!Take(input, 100'000).empty()) {
  }
  EXPECT_THAT(told, ElementsAre(300'000, 600'000));
  told.clear();
  input.Rewind();
  Take(input, 1'000'000);
  EXPECT_THAT(told, ElementsAre(600'000));
}

TEST_F(RepeatedInputTest, TheWatchMayEndIt) {
  RepeatedInput input(folder_.Write("a", "abc"), [](int64_t) { return false; });
  EXPECT_ERROR(Take(input, 10), testing::NumberOf(Message::kReadingAborted), "");
}

}  // namespace
}  // namespace zevo
