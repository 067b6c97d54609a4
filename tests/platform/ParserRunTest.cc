// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <zevo/Error.h>
#include <zevo/platform/File.h>
#include <zevo/platform/ParserRun.h>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tests/platform/Events.h"
#include "tests/platform/Parsing.h"
#include "tests/platform/RichFile.h"
#include "tests/support/Errors.h"

namespace zevo {
namespace {

// Gives its bytes, then fails where it is told to.
class Bytes : public ByteSource {
 public:
  explicit Bytes(std::string_view bytes, bool fails = false) : rest_(bytes), fails_(fails) {}

  size_t Read(char* bytes, size_t size) override {
    if (rest_.empty() && fails_) throw MakeRunTimeError(RunTimeError::kPathFileAccess);
    const size_t length = rest_.copy(bytes, size);
    rest_.remove_prefix(length);
    return length;
  }

 private:
  std::string_view rest_;
  bool fails_;
};

// A run, and a driver that hands the parser the bytes piece by piece.
class Piecewise {
 public:
  Piecewise(ByteSource& input, ParserHandler& handler) : decoder_(input), run_(decoder_, handler, none_, bytes_read_) {
    xmlSAXHandler callbacks = ParserRun::Callbacks();
    parser_ = xmlCreatePushParserCtxt(&callbacks, &run_, nullptr, 0, nullptr);
    run_.Begin(parser_, nullptr);
  }

  // Whether there was another piece.
  bool Feed() {
    std::array<char, 16> piece;
    const int length = run_.Deliver(piece.data(), static_cast<int>(piece.size()));
    xmlParseChunk(parser_, piece.data(), length, length == 0);
    return length > 0;
  }

  std::optional<XmlProblem> FeedAll() {
    while (Feed()) {
    }
    return run_.End();
  }

  uint64_t BytesRead() const { return bytes_read_; }

 private:
  uint64_t bytes_read_ = 0;
  ProblemSink none_;
  TextDecoder decoder_;
  ParserRun run_;
  xmlParserCtxt* parser_ = nullptr;
};

TEST(ParserRunTest, TellsAFileThatComesInPiecesAsItTellsAWhole) {
  Bytes input(testing::kRichFile);
  testing::Events events;
  Piecewise driver(input, events);
  EXPECT_EQ(driver.FeedAll(), std::nullopt);
  EXPECT_EQ(events.log, testing::Parsing().EventsOf(testing::kRichFile));
  EXPECT_EQ(driver.BytesRead(), testing::kRichFile.size());
}

TEST(ParserRunTest, DeliversNothingOnceItHasStopped) {
  const std::string file = "<a></b>" + std::string(100'000, ' ');
  Bytes input(file);
  testing::Events events;
  Piecewise driver(input, events);
  EXPECT_TRUE(driver.Feed());
  EXPECT_FALSE(driver.Feed());
  const std::optional<XmlProblem> problem = driver.FeedAll();
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->number, XML_ERR_TAG_NAME_MISMATCH);
  EXPECT_EQ(events.log, "<a>");
}

TEST(ParserRunTest, KeepsWhatTheInputAndTheHandlerRaiseForTheEnd) {
  struct Thrown {};
  struct Thrower : testing::NoEvents {
    void EndElement(const ParsedName&) override { throw Thrown(); }
  };
  Bytes whole("<a/>");
  Thrower thrower;
  Piecewise thrown(whole, thrower);
  EXPECT_THROW(thrown.FeedAll(), Thrown);

  Bytes broken("<a>", true);
  testing::NoEvents events;
  Piecewise unreadable(broken, events);
  const std::optional<XmlProblem> problem = unreadable.FeedAll();
  ASSERT_TRUE(problem);
  EXPECT_EQ(problem->fault, XmlProblem::Fault::kUnreadable);
  EXPECT_EQ(problem->number, static_cast<int>(RunTimeError::kPathFileAccess));
}

TEST(ParserRunTest, MayBeGivenUpInTheMiddle) {
  Bytes input(testing::kRichFile);
  testing::NoEvents events;
  Piecewise driver(input, events);
  for (int i = 0; i < 10; ++i) EXPECT_TRUE(driver.Feed());
}

TEST(ParserRunTest, BeginsOnlyWithAParser) {
  Bytes input("<a/>");
  testing::NoEvents events;
  TextDecoder decoder(input);
  uint64_t bytesRead = 0;
  const ProblemSink none;
  ParserRun run(decoder, events, none, bytesRead);
  EXPECT_ERROR(run.Begin(nullptr, nullptr), static_cast<int>(RunTimeError::kOutOfMemory), "ZevoAdapters11");
}

}  // namespace
}  // namespace zevo
