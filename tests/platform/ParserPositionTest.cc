// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>
#include <zevo/platform/ParserPosition.h>

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {
namespace {

using ::testing::ElementsAre;

struct FreeContext {
  void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};

// A parser that is given a text in pieces, and takes down where it is at each start of an element.
class Watched {
 public:
  Watched(std::string_view text, size_t piece) : rest_(text), piece_(piece) {
    xmlSAXHandler sax{};
    sax.initialized = XML_SAX2_MAGIC;
    sax.startElementNs = [](void* self, const xmlChar*, const xmlChar*, const xmlChar*, int, const xmlChar**, int, int,
                            const xmlChar**) {
      auto& watched = *static_cast<Watched*>(self);
      watched.places.push_back(watched.position.Place());
      watched.bytes.push_back(watched.position.Bytes());
    };
    context_.reset(xmlCreateIOParserCtxt(&sax, this, &Watched::Read, nullptr, this, XML_CHAR_ENCODING_UTF8));
    position.Watch(*context_);
    xmlParseDocument(context_.get());
  }

  ParserPosition position;
  std::vector<FilePlace> places;
  std::vector<size_t> bytes;
  // Where the text is from which each piece begins.
  std::vector<FilePlace> pieces;

 private:
  static int Read(void* self, char* buffer, int size) {
    auto& watched = *static_cast<Watched*>(self);
    watched.position.Follow();
    watched.pieces.push_back(watched.position.PlaceOfMore());
    const size_t length = std::min({watched.piece_, watched.rest_.size(), static_cast<size_t>(size)});
    watched.rest_.copy(buffer, length);
    watched.rest_.remove_prefix(length);
    return static_cast<int>(length);
  }

  std::string_view rest_;
  size_t piece_;
  std::unique_ptr<xmlParserCtxt, FreeContext> context_;
};

TEST(ParserPositionTest, WithoutAParserItIsTheBeginning) {
  ParserPosition position;
  position.Follow();
  EXPECT_EQ(position.Place(), (FilePlace{1, 1}));
  EXPECT_EQ(position.PlaceOfMore(), (FilePlace{1, 1}));
}

TEST(ParserPositionTest, LinesAndColumnsAreOfCharactersAndBytesOfUtf8) {
  const std::string text = "<a>\nçã€<b/>\n  😀<c/></a>";
  for (const size_t piece : {size_t{1}, size_t{7}, size_t{4000}}) {
    const Watched watched(text, piece);
    EXPECT_THAT(watched.places, ElementsAre(FilePlace{1, 3}, FilePlace{2, 6}, FilePlace{3, 6})) << piece;
    EXPECT_THAT(watched.bytes, ElementsAre(2, 13, 24)) << piece;
  }
}

TEST(ParserPositionTest, LinesBeyondSixteenBitsAreRight) {
  const Watched watched("<a>" + std::string(150'000, '\n') + "é<b/></a>", 4000);
  EXPECT_THAT(watched.places, ElementsAre(FilePlace{1, 3}, FilePlace{150'001, 4}));
}

TEST(ParserPositionTest, TheNextPieceBeginsBehindAllThatWasGiven) {
  const std::string text = "<a>é\n<b/>é<c/></a>";
  for (size_t piece = 1; piece <= 10; ++piece) {
    const Watched watched(text, piece);
    FilePlace place{1, 1};
    size_t at = 0;
    for (const FilePlace& found : watched.pieces) {
      // A piece may end within a character.
      EXPECT_EQ(found, place) << piece << " at " << at;
      for (const char c : std::string_view(text).substr(std::min(at, text.size()), piece)) {
        if (c == '\n') {
          place = {place.line + 1, 1};
        } else if ((static_cast<unsigned char>(c) & 0xC0U) != 0x80) {
          ++place.column;
        }
      }
      at += piece;
    }
  }
}

// The count that libxml2 keeps, which begins anew after 32 bits.
TEST(ParserPositionTest, ColumnsGoOnBeyondThirtyTwoBits) {
  xmlParserCtxt parser{};
  xmlParserInput input{};
  parser.input = &input;
  ParserPosition position;
  position.Watch(parser);
  const auto at = [&](int line, uint32_t column) {
    input.line = line;
    input.col = static_cast<int>(column);
    position.Follow();
    return position.Place();
  };
  EXPECT_EQ(at(1, 0x7FFFFFFF), (FilePlace{1, 0x7FFFFFFF}));
  EXPECT_EQ(at(1, 0xFFFFFFFF), (FilePlace{1, 0xFFFFFFFF}));
  EXPECT_EQ(at(1, 5), (FilePlace{1, 0x100000005}));
  EXPECT_EQ(at(1, 0xFFFFFFFE), (FilePlace{1, 0x1FFFFFFFE}));
  EXPECT_EQ(at(1, 6), (FilePlace{1, 0x200000006}));
  EXPECT_EQ(at(2, 3), (FilePlace{2, 3}));
  EXPECT_EQ(at(2, 9), (FilePlace{2, 9}));
}

}  // namespace
}  // namespace zevo
