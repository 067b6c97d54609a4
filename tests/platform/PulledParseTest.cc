// SPDX-License-Identifier: Apache-2.0
// What a parse in pieces has of its own; that it comes to what a whole one does is tested with that: see Parsing.h.

#include <zevo/platform/PulledParse.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/Parsing.h"
#include "tests/support/Errors.h"

namespace zevo {
namespace {

using testing::InUtf16BigEndian;
using testing::InUtf16LittleEndian;
using testing::Repeated;

/// Asks for the place of each start tag.
class Places : public ParserHandler {
 public:
  void StartElement(const ParsedName& name, std::span<const ParsedAttribute>) override {
    places.push_back(parse->StartTagPlace(name.local));
  }
  void EndElement(const ParsedName&) override {}
  void Characters(std::string_view) override {}

  PulledParse* parse = nullptr;
  std::vector<FilePlace> places;
};

class PulledParseTest : public ::testing::Test {
 protected:
  std::vector<FilePlace> PlacesIn(std::string_view bytes) {
    Places places;
    PulledParse parse(parsing_.Folder().Write("file.xml", bytes), places);
    places.parse = &parse;
    while (parse.Feed()) continue;
    EXPECT_FALSE(parse.Problem()) << parse.Problem()->reason;
    return places.places;
  }

  testing::Parsing parsing_;
};

// The places of a file of several pieces, with everything in it that may stand before a tag or in one.
std::string ManyTags(std::string_view declaration) {
  std::string file(declaration);
  file += "<a>\n";
  for (int i = 0; i < 9'000; ++i) {
    file += "  <b x='1>2' y=\"&lt;é\">çã😀&amp;</b><!-- < é <c> --><c/>\r\n<d\n  z='\n'\t/><![CDATA[<e>]]>";
    if (i % 500 == 0) file += Repeated("texto longo, é longo ", 400);
  }
  return file + "</a>";
}

// Where the start tags of ManyTags begin, in a text of UTF-8, found by hand.
std::vector<FilePlace> TagsIn(std::string_view text) {
  std::vector<FilePlace> places;
  FilePlace at{1, 1, 0};
  bool inComment = false;
  for (size_t i = 0; i < text.size(); ++i) {
    const std::string_view rest = text.substr(i);
    if (rest.starts_with("<!--") || rest.starts_with("<![CDATA[")) inComment = true;
    if (inComment && (rest.starts_with("-->") || rest.starts_with("]]>"))) inComment = false;
    const bool isTag = rest.size() > 1 && rest[0] == '<' && rest[1] >= 'a' && rest[1] <= 'd';
    if (isTag && !inComment) places.push_back(at);
    ++at.offset;
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte == '\n') {
      ++at.line;
      at.column = 1;
    } else if ((byte & 0xC0U) != 0x80) {
      ++at.column;
    }
  }
  return places;
}

TEST_F(PulledParseTest, TellsWhereEveryStartTagBegins) {
  const std::string file = ManyTags("<?xml version='1.0'?>\n");
  ASSERT_GT(file.size(), 900'000u);
  EXPECT_EQ(PlacesIn(file), TagsIn(file));
}

TEST_F(PulledParseTest, CountsOffsetsInTheBytesOfTheFile) {
  const std::string utf8 = "<a>\né<b/>€<c/>\xF0\x9F\x98\x80<d/></a>";
  const std::vector<FilePlace> expected = TagsIn(utf8);
  EXPECT_EQ(PlacesIn(utf8), expected);

  std::vector<FilePlace> marked = expected;
  for (FilePlace& place : marked) place.offset += 3;
  EXPECT_EQ(PlacesIn("\xEF\xBB\xBF" + utf8), marked);

  std::vector<FilePlace> wide = expected;
  const int64_t characters[] = {0, 5, 10, 15};
  // The character beyond U+FFFF takes four bytes.
  const int64_t more[] = {0, 0, 0, 2};
  for (size_t i = 0; i < wide.size(); ++i) wide[i].offset = 2 + 2 * characters[i] + more[i];
  EXPECT_EQ(PlacesIn("\xFF\xFE" + InUtf16LittleEndian(utf8)), wide);
  EXPECT_EQ(PlacesIn("\xFE\xFF" + InUtf16BigEndian(utf8)), wide);

  const std::string windows = "<?xml version='1.0' encoding='windows-1252'?><a>\n\xE9<b/>\x80<c/></a>";
  EXPECT_EQ(PlacesIn(windows), (std::vector<FilePlace>{{1, 46, 45}, {2, 2, 50}, {2, 7, 55}}));
}

// The parser takes the first ">" for the end of a tag, which is none in a value.
TEST_F(PulledParseTest, NeverGivesTheParserAPartOfATag) {
  const std::string tag = "<b x='>" + Repeated(">", 60'000) + "'/>";
  for (size_t before = 0; before < 12; ++before) {
    const std::string file = "<a>" + Repeated("<c/>", before * 5'000 + before) + tag + tag + tag + "</a>";
    EXPECT_EQ(PlacesIn(file), TagsIn(file));
  }
}

TEST_F(PulledParseTest, ALongTextOrCommentGoesInPieces) {
  parsing_.ExpectAccepted("<a>" + Repeated("é", 400'000) + "<b/><!--" + Repeated("à", 400'000) + "--></a>");
}

TEST_F(PulledParseTest, ReadsNoFurtherThanAsked) {
  Places places;
  const std::string file = parsing_.Folder().Write("file.xml", "<a>" + Repeated("<b/>", 1'000'000) + "</a>");
  PulledParse parse(file, places);
  places.parse = &parse;
  EXPECT_TRUE(parse.Feed());
  EXPECT_LT(parse.BytesRead(), 1'000'000u);
  EXPECT_LT(places.places.size(), 100'000u);
  EXPECT_GT(places.places.size(), 1'000u);
}

// Also where all bytes were taken in and not all were parsed.
TEST_F(PulledParseTest, TwoThatParsedAsManyPiecesAreJustAsFar) {
  const std::string file = parsing_.Folder().Write("file.xml", "<a>" + Repeated("<b/>", 100'000) + "</a>");
  Places ahead_places;
  PulledParse ahead(file, ahead_places);
  ahead_places.parse = &ahead;
  Places places;
  PulledParse parse(file, places);
  places.parse = &parse;
  EXPECT_EQ(ahead.Pieces(), 0u);
  while (true) {
    const bool more = ahead.Feed();
    while (parse.Pieces() < ahead.Pieces()) parse.Feed();
    EXPECT_EQ(parse.Pieces(), ahead.Pieces());
    EXPECT_EQ(places.places.size(), ahead_places.places.size());
    if (!more) break;
  }
  EXPECT_GT(parse.Pieces(), 3u);
  EXPECT_EQ(places.places.size(), 100'001u);
}

class Thrower : public ParserHandler {
  void StartElement(const ParsedName&, std::span<const ParsedAttribute>) override { throw std::runtime_error("seen"); }
  void EndElement(const ParsedName&) override {}
  void Characters(std::string_view) override {}
};

TEST_F(PulledParseTest, WhatTheHandlerThrowsEndsIt) {
  Thrower thrower;
  PulledParse parse(parsing_.Folder().Write("file.xml", "<a/>"), thrower);
  EXPECT_THROW(parse.Feed(), std::runtime_error);
  EXPECT_FALSE(parse.Feed());
  EXPECT_FALSE(parse.Problem());
}

TEST_F(PulledParseTest, AFileThatIsNotThereIsAProblem) {
  Thrower nobody;
  const std::string file = parsing_.Folder().Path("none.xml");
  PulledParse parse(file, nobody);
  EXPECT_FALSE(parse.Feed());
  EXPECT_EQ(parse.BytesRead(), 0u);
  const auto whole = Parser(file).Parse(nobody);
  ASSERT_TRUE(parse.Problem() && whole);
  EXPECT_EQ(parse.Problem()->number, static_cast<int32_t>(RunTimeError::kFileNotFound));
  EXPECT_EQ(parse.Problem()->reason, whole->reason);
  EXPECT_EQ(parse.Problem()->fault, XmlProblem::Fault::kUnreadable);
}

// Where a tag is broken, the parser tells of it before it fails, and the tag may have begun in a piece before.
TEST_F(PulledParseTest, ABrokenTagHasNoPlaceInThePieceBehindIt) {
  for (const std::string_view bytes : {"<H\x01<", "<a><b\x01<c/></a>", "<a b='<", "<a><b c<d></a>"}) {
    Places places;
    PulledParse parse(parsing_.Folder().Write("file.xml", bytes), places);
    places.parse = &parse;
    while (parse.Feed()) continue;
    EXPECT_TRUE(parse.Problem()) << bytes;
    for (const FilePlace& place : places.places) EXPECT_LE(place.offset, static_cast<int64_t>(bytes.size())) << bytes;
  }
}

}  // namespace
}  // namespace zevo
