// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/dal/TextStream.h>

#include <functional>
#include <string>

#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using testing::ErrorOf;
using testing::ReadBytes;
using testing::TemporaryFolder;

class TextStreamTest : public ::testing::Test {
 protected:
  TextStreamTest() { stream_.set_FileName(folder_.Path("text")); }
  std::string Bytes() const { return ReadBytes(folder_.Path("text")); }

  TemporaryFolder folder_;
  TextStream stream_;
};

TEST_F(TextStreamTest, IsOpenFromOpeningToClosing) {
  EXPECT_FALSE(stream_.IsOpen());
  stream_.OpenStream();
  EXPECT_TRUE(stream_.IsOpen());
  stream_.CloseStream();
  EXPECT_FALSE(stream_.IsOpen());
  stream_.CloseStream();
}

TEST_F(TextStreamTest, WritesCharactersInWindows1252AndLinesWithCrLf) {
  stream_.CreateStream();
  stream_.WriteChars("preço: 5 € ");
  stream_.WriteLine("São <&>");
  stream_.WriteChars("Ω");
  stream_.CloseStream();
  EXPECT_EQ(Bytes(), "pre\xE7o: 5 \x80 S\xE3o <&>\r\n&#937;");
}

TEST_F(TextStreamTest, OpeningEmptiesTheFile) {
  folder_.Write("text", "what was there");
  stream_.OpenStream();
  stream_.CloseStream();
  EXPECT_EQ(Bytes(), "");
}

TEST_F(TextStreamTest, DeletingClosesFirstAndAMissingFileIsNoFailure) {
  stream_.CreateStream();
  stream_.DeleteStream();
  EXPECT_FALSE(stream_.IsOpen());
  EXPECT_TRUE(folder_.Names().empty());
  stream_.DeleteStream();
}

TEST_F(TextStreamTest, RenamingMovesTheFileAndTakesTheName) {
  folder_.Write("text", "x");
  stream_.RenameStream(folder_.Path("other"));
  EXPECT_EQ(stream_.FileName(), folder_.Path("other"));
  EXPECT_EQ(ReadBytes(folder_.Path("other")), "x");
  EXPECT_ERROR(stream_.RenameStream(folder_.Path("no/folder")), RunTimeError::kFileNotFound, "ZevoAdapters11");
  EXPECT_EQ(stream_.FileName(), folder_.Path("other"));
}

TEST_F(TextStreamTest, DestructionClosesTheFile) {
  {
    TextStream stream;
    stream.set_FileName(folder_.Path("text"));
    stream.CreateStream();
    stream.WriteChars("kept");
  }
  EXPECT_EQ(Bytes(), "kept");
}

TEST_F(TextStreamTest, WritingToAClosedStreamIsABadFile) {
  EXPECT_ERROR(stream_.WriteChars("x"), RunTimeError::kBadFileName, "ZevoAdapters11");
  EXPECT_ERROR(stream_.WriteLine("x"), RunTimeError::kBadFileName, "ZevoAdapters11");
}

TEST_F(TextStreamTest, AFolderCannotBeOpened) {
  stream_.set_FileName(folder_.Path(""));
  EXPECT_ERROR(stream_.OpenStream(), RunTimeError::kPathFileAccess, "ZevoAdapters11");
  EXPECT_FALSE(stream_.IsOpen());
}

TEST_F(TextStreamTest, AFullDiskShowsAtTheLatestWhenFlushedAndFromThenOn) {
  stream_.set_FileName("/dev/full");
  stream_.OpenStream();
  stream_.WriteChars("held back");
  EXPECT_ERROR(stream_.Flush(), RunTimeError::kDiskFull, "ZevoAdapters11");
  EXPECT_ERROR(stream_.Flush(), RunTimeError::kDiskFull, "ZevoAdapters11");
  stream_.CloseStream();
}

TEST_F(TextStreamTest, AFullDiskShowsInTheWriteThatFillsTheBuffer) {
  stream_.set_FileName("/dev/full");
  stream_.OpenStream();
  stream_.RequireWhole();
  const std::string piece(1000, 'x');
  const Error error = ErrorOf([&] {
    for (int i = 0; i < 1000; ++i) stream_.WriteChars(piece);
  });
  EXPECT_EQ(error.Number(), static_cast<int32_t>(RunTimeError::kDiskFull));
  EXPECT_NE(error.Description().find("No space left on device"), std::string::npos) << error.Description();

  // Every later write, long or short, raises the same.
  const std::function<void()> kWrites[] = {
      [&] { stream_.WriteStartTag("City"); }, [&] { stream_.WriteChars("x"); },
      [&] { stream_.WriteEndTag("City"); },   [&] { stream_.WriteLine(std::string(1'000'000, 'x')); },
      [&] { stream_.RequireWhole(); },        [&] { stream_.Flush(); },
      [&] { stream_.WriteChars("x"); },       [&] { stream_.RequireWhole(); },
  };
  for (const auto& write : kWrites) EXPECT_EQ(ErrorOf(write).what(), std::string(error.what()));

  stream_.CloseStream();
  stream_.set_FileName(folder_.Path("text"));
  stream_.OpenStream();
  stream_.WriteChars("written");
  stream_.RequireWhole();
  stream_.Flush();
  EXPECT_EQ(Bytes(), "written");
}

}  // namespace
}  // namespace zevo
