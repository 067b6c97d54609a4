// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/TextDecoder.h>
#include <zevo/platform/Windows1252.h>

#include <array>
#include <string>
#include <string_view>

#include "tests/platform/Numbered.h"
#include "tests/platform/Parsing.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using namespace std::string_literals;

struct Decoded {
  std::string text;
  TextDecoder::Fault fault;
};

Decoded Decode(std::string_view bytes, size_t pieceSize = 4000) {
  InputBytes input(bytes);
  TextDecoder decoder(input);
  Decoded decoded{};
  std::string piece(pieceSize, '\0');
  while (const size_t length = decoder.Read(piece.data(), pieceSize)) decoded.text.append(piece, 0, length);
  decoded.fault = decoder.fault();
  return decoded;
}

std::string Declared(std::string_view encoding) {
  return std::string("<?xml version=\"1.0\" encoding=\"").append(encoding).append("\"?>");
}

void ExpectDecodes(const std::string& bytes, const std::string& text) {
  for (const size_t pieceSize : {4u, 5u, 7u, 64u, 4000u, 1'000'000u}) {
    const Decoded decoded = Decode(bytes, pieceSize);
    EXPECT_EQ(decoded.fault, TextDecoder::Fault::kNone) << pieceSize;
    EXPECT_TRUE(decoded.text == text) << "in pieces of " << pieceSize << ": " << decoded.text.substr(0, 200);
  }
}

constexpr std::string_view kBom = "\xEF\xBB\xBF";
constexpr std::string_view kBomLittleEndian = "\xFF\xFE";
constexpr std::string_view kBomBigEndian = "\xFE\xFF";

TEST(TextDecoderTest, BytesAreUtf8UnlessToldOtherwise) {
  ExpectDecodes("", "");
  ExpectDecodes("<a>São João, 12 €, 😀</a>", "<a>São João, 12 €, 😀</a>");
  ExpectDecodes(std::string(kBom) + "<a>é</a>", "<a>é</a>");
  ExpectDecodes(std::string(kBom) + Declared("UTF-8") + "é", Declared("UTF-8") + "é");
}

TEST(TextDecoderTest, EveryByteOfWindows1252) {
  std::string bytes = Declared("windows-1252");
  std::string text = bytes;
  for (int byte = 1; byte < 256; ++byte) bytes += static_cast<char>(byte);
  for (int byte = 1; byte < 0x80; ++byte) text += static_cast<char>(byte);
  text +=
      "€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸ"
      "\u00A0¡¢£¤¥¦§¨©ª«¬\u00AD®¯°±²³´µ¶·¸¹º»¼½¾¿"
      "ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖ×ØÙÚÛÜÝÞßàáâãäåæçèéêëìíîïðñòóôõö÷øùúûüýþÿ";
  ExpectDecodes(bytes, text);
}

TEST(TextDecoderTest, TheUpperBytesOfLatin1AreTheCharactersOfTheirNumber) {
  ExpectDecodes(Declared("ISO-8859-1") + "\x80\x81\x9F\xA0\xE7\xFF",
                Declared("ISO-8859-1") + "\u0080\u0081\u009F\u00A0çÿ");
}

TEST(TextDecoderTest, AsciiHasNoUpperBytes) {
  ExpectDecodes(Declared("US-ASCII") + "abc\x7F", Declared("US-ASCII") + "abc\x7F");
  const Decoded decoded = Decode(Declared("US-ASCII") + "abc\x80xyz");
  EXPECT_EQ(decoded.text, Declared("US-ASCII") + "abc");
  EXPECT_EQ(decoded.fault, TextDecoder::Fault::kUndecodable);
}

TEST(TextDecoderTest, Utf16InBothOrdersWithMarkWithDeclarationAndWithNeither) {
  const std::string plain = "<a>São, €, 😀\uFFFD</a>";
  ExpectDecodes(std::string(kBomLittleEndian) + testing::InUtf16LittleEndian(plain), plain);
  ExpectDecodes(std::string(kBomBigEndian) + testing::InUtf16BigEndian(plain), plain);
  ExpectDecodes(testing::InUtf16LittleEndian(plain), plain);
  ExpectDecodes(testing::InUtf16BigEndian(plain), plain);
  for (const std::string_view name : {"UTF-16", "utf-16", "UTF-16LE"}) {
    const std::string declared = Declared(name) + plain;
    ExpectDecodes(std::string(kBomLittleEndian) + testing::InUtf16LittleEndian(declared), declared);
    ExpectDecodes(testing::InUtf16LittleEndian(declared), declared);
  }
  for (const std::string_view name : {"UTF-16", "UTF-16BE"}) {
    const std::string declared = Declared(name) + plain;
    ExpectDecodes(std::string(kBomBigEndian) + testing::InUtf16BigEndian(declared), declared);
    ExpectDecodes(testing::InUtf16BigEndian(declared), declared);
  }
}

class TextDecoderDeclarationTest : public ::testing::TestWithParam<std::string> {};

TEST_P(TextDecoderDeclarationTest, OfWindows1252IsUnderstood) { ExpectDecodes(GetParam() + "\x80", GetParam() + "€"); }

INSTANTIATE_TEST_SUITE_P(All, TextDecoderDeclarationTest,
                         ::testing::Values("<?xml version=\"1.0\" encoding=\"windows-1252\"?>",
                                           "<?xml version='1.0' encoding='windows-1252'?>",
                                           "<?xml version='1.0' encoding=\"WINDOWS-1252\" ?>",
                                           "<?xml version=\"1.0\" encoding='Windows-1252' standalone='yes'?>",
                                           "<?xml version=\"1.0\"\n\tencoding \r\n=\t 'windows-1252'\n?>",
                                           "<?xml\tversion = \"1.0\"   encoding\n=\n\"windows-1252\"?>",
                                           "<?xml version=\"1.0\"" + std::string(1200, ' ') +
                                               "encoding=\"windows-1252\"?>"),
                         testing::Numbered());

struct Contradiction {
  std::string bytes;
  TextDecoder::Fault fault;
};

class TextDecoderRefusedDeclarationTest : public ::testing::TestWithParam<Contradiction> {};

TEST_P(TextDecoderRefusedDeclarationTest, GivesNothingButItsFault) {
  const Decoded decoded = Decode(GetParam().bytes);
  EXPECT_EQ(decoded.text, "");
  EXPECT_EQ(decoded.fault, GetParam().fault);
}

INSTANTIATE_TEST_SUITE_P(
    All, TextDecoderRefusedDeclarationTest,
    ::testing::Values(
        Contradiction{Declared("ISO-8859-15"), TextDecoder::Fault::kUnknownEncoding},
        Contradiction{Declared("windows-1251"), TextDecoder::Fault::kUnknownEncoding},
        Contradiction{Declared("windows-12520"), TextDecoder::Fault::kUnknownEncoding},
        Contradiction{Declared(""), TextDecoder::Fault::kUnknownEncoding},
        Contradiction{Declared("UTF-7"), TextDecoder::Fault::kUnknownEncoding},
        Contradiction{Declared("UTF-16"), TextDecoder::Fault::kContradictoryEncoding},
        Contradiction{Declared("UTF-16LE"), TextDecoder::Fault::kContradictoryEncoding},
        Contradiction{std::string(kBom) + Declared("windows-1252"), TextDecoder::Fault::kContradictoryEncoding},
        Contradiction{std::string(kBom) + Declared("ISO-8859-1"), TextDecoder::Fault::kContradictoryEncoding},
        Contradiction{std::string(kBom) + Declared("UTF-16"), TextDecoder::Fault::kContradictoryEncoding},
        Contradiction{std::string(kBomLittleEndian) + testing::InUtf16LittleEndian(Declared("UTF-8")),
                      TextDecoder::Fault::kContradictoryEncoding},
        Contradiction{std::string(kBomLittleEndian) + testing::InUtf16LittleEndian(Declared("windows-1252")),
                      TextDecoder::Fault::kContradictoryEncoding},
        Contradiction{std::string(kBomLittleEndian) + testing::InUtf16LittleEndian(Declared("UTF-16BE")),
                      TextDecoder::Fault::kContradictoryEncoding},
        Contradiction{std::string(kBomBigEndian) + testing::InUtf16BigEndian(Declared("UTF-16LE")),
                      TextDecoder::Fault::kContradictoryEncoding},
        Contradiction{testing::InUtf16BigEndian(Declared("UTF-8")), TextDecoder::Fault::kContradictoryEncoding}),
    testing::Numbered());

TEST(TextDecoderTest, OnlyADeclarationDeclares) {
  const std::string instruction = "<?xml-stylesheet href=\"a.xsl\" encoding=\"KOI8-R\"?><a>é</a>";
  ExpectDecodes(instruction, instruction);
  const std::string text = "<a>\n<?xml version='1.0' encoding='KOI8-R'?></a>";
  ExpectDecodes(text, text);
}

TEST(TextDecoderTest, TheEncodingIsNotTakenFromBehindTheDeclaration) {
  const std::string text = "<?xml version='1.0'?><a encoding='KOI8-R'>é</a>";
  ExpectDecodes(text, text);
}

TEST(TextDecoderTest, WhatComesBeforeANulIsGiven) {
  for (const std::string& start : {"<a>"s, Declared("UTF-8") + "<a>", Declared("windows-1252") + "<a>"}) {
    const Decoded decoded = Decode(start + "\0</a>"s);
    EXPECT_EQ(decoded.text, start);
    EXPECT_EQ(decoded.fault, TextDecoder::Fault::kNul);
  }
  for (const Decoded& decoded : {Decode(testing::InUtf16LittleEndian("<a>\u0001"s) + "\0\0<\0"s),
                                 Decode(testing::InUtf16BigEndian("<a>\u0001"s) + "\0\0\0<"s)}) {
    EXPECT_EQ(decoded.text, "<a>\u0001");
    EXPECT_EQ(decoded.fault, TextDecoder::Fault::kNul);
  }
}

TEST(TextDecoderTest, NothingIsGivenAfterAFault) {
  const testing::TemporaryFolder folder;
  InputFile file(folder.Write("file", "<a>\0more"s));
  TextDecoder decoder(file);
  std::array<char, 64> piece{};
  EXPECT_EQ(decoder.Read(piece.data(), piece.size()), 3u);
  EXPECT_EQ(decoder.Read(piece.data(), piece.size()), 0u);
  EXPECT_EQ(decoder.Read(piece.data(), piece.size()), 0u);
  EXPECT_EQ(decoder.fault(), TextDecoder::Fault::kNul);
}

struct BrokenUtf16 {
  const char* name;
  std::string tail;  // little-endian
};

class TextDecoderUtf16TailTest : public ::testing::TestWithParam<BrokenUtf16> {};

TEST_P(TextDecoderUtf16TailTest, IsUndecodableInBothOrders) {
  const std::string& tail = GetParam().tail;
  std::string swapped = tail;
  for (size_t i = 0; i + 1 < swapped.size(); i += 2) std::swap(swapped[i], swapped[i + 1]);
  for (const Decoded& decoded :
       {Decode(testing::InUtf16LittleEndian("<a>") + tail), Decode(testing::InUtf16BigEndian("<a>") + swapped)}) {
    EXPECT_EQ(decoded.text, "<a>");
    EXPECT_EQ(decoded.fault, TextDecoder::Fault::kUndecodable);
  }
}

INSTANTIATE_TEST_SUITE_P(All, TextDecoderUtf16TailTest,
                         ::testing::Values(BrokenUtf16{"OddByte", "x"}, BrokenUtf16{"HighAtTheEnd", "\x3D\xD8"s},
                                           BrokenUtf16{"HighThenOddByte", "\x3D\xD8\x00"s},
                                           BrokenUtf16{"HighThenLetter", "\x3D\xD8x\0"s},
                                           BrokenUtf16{"HighThenHigh", "\x3D\xD8\x3D\xD8\x00\xDE"s},
                                           BrokenUtf16{"LowAlone", "\x00\xDEx\0"s}),
                         [](const auto& row) { return row.param.name; });

// Characters of every width across the end of the decoder's buffer, at every offset.
class TextDecoderAcrossTheBufferTest : public ::testing::TestWithParam<size_t> {};

constexpr size_t kBufferSize = 256 * 1024;

TEST_P(TextDecoderAcrossTheBufferTest, Utf8) {
  const std::string text = "<a>" + std::string(kBufferSize - 3 - GetParam(), 'x') + "é€😀€é</a>";
  ExpectDecodes(text, text);
}

TEST_P(TextDecoderAcrossTheBufferTest, Utf16) {
  const std::string text = "<a>" + std::string(kBufferSize / 2 - 3 - GetParam(), 'x') + "é€😀😀€é</a>";
  ExpectDecodes(testing::InUtf16LittleEndian(text), text);
  ExpectDecodes(std::string(kBomBigEndian) + testing::InUtf16BigEndian(text), text);
}

TEST_P(TextDecoderAcrossTheBufferTest, Windows1252) {
  const std::string declaration = Declared("windows-1252");
  const std::string filling(kBufferSize - declaration.size() - GetParam(), 'x');
  ExpectDecodes(declaration + filling + "\xE9\x80\xE9\x80\x80" + filling, declaration + filling + "é€é€€" + filling);
}

TEST_P(TextDecoderAcrossTheBufferTest, ANulIsFoundWhereverItLies) {
  const std::string text = "<a>" + std::string(kBufferSize - 3 - GetParam(), 'x');
  const Decoded decoded = Decode(text + "\0x"s);
  EXPECT_TRUE(decoded.text == text);
  EXPECT_EQ(decoded.fault, TextDecoder::Fault::kNul);
}

INSTANTIATE_TEST_SUITE_P(All, TextDecoderAcrossTheBufferTest, ::testing::Range<size_t>(0, 9));

TEST(TextDecoderTest, RaisesWhatReadingTheFileRaises) {
  const testing::TemporaryFolder folder;
  InputFile directory(folder.Path(""));
  EXPECT_ERROR(TextDecoder{directory}, RunTimeError::kPathFileAccess, kRunTimeSource);
}

TEST(TextDecoderTest, TellsHowManyBytesItTook) {
  const std::string bytes = Declared("windows-1252") + std::string(300'000, '\xE9');
  InputBytes input(bytes);
  TextDecoder decoder(input);
  EXPECT_EQ(decoder.BytesTaken(), 64U * 1024);
  std::string piece(1'000'000, '\0');
  while (decoder.Read(piece.data(), piece.size()) > 0) continue;
  EXPECT_EQ(decoder.BytesTaken(), bytes.size());
}

}  // namespace
}  // namespace zevo
