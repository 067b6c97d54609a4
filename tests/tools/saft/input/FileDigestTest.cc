// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/input/FileDigest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "tools/saft/errors/Failure.h"

namespace zevo::saft {
namespace {

// Of the examples of the standard, FIPS 180-4.
TEST(FileDigestTest, IsSha256InHexadecimalDigits) {
  const testing::TemporaryFolder folder;
  EXPECT_EQ(FileDigest(folder.Write("a", "")), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(FileDigest(folder.Write("a", "abc")), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(FileDigest(folder.Write("a", std::string(1'000'000, 'a'))),
            "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
  // Longer than a piece that is read at once.
  EXPECT_NE(FileDigest(folder.Write("a", std::string(3'000'000, 'a'))),
            FileDigest(folder.Write("b", std::string(2'999'999, 'a') + "b")));
}

TEST(FileDigestTest, TellsAFileThatIsNotThere) {
  const testing::TemporaryFolder folder;
  EXPECT_THROW(FileDigest(folder.Path("none")), Failure);
}

}  // namespace
}  // namespace zevo::saft
