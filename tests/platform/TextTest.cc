// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/Text.h>

#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "tests/platform/Numbered.h"
#include "tests/support/Errors.h"

namespace zevo {
namespace {

std::vector<char32_t> Characters(std::string_view text) {
  std::vector<char32_t> characters;
  while (!text.empty()) characters.push_back(TakeCharacter(text));
  return characters;
}

std::string Utf8(char32_t character) {
  std::string text;
  AppendCharacter(character, text);
  return text;
}

TEST(TextTest, AControlOrAnotherCharacterIsFoundAtEveryPlaceOfATextOfAnyLength) {
  for (size_t length = 0; length < 40; ++length) {
    const std::string plain(length, '\x89');
    EXPECT_FALSE(HoldsControlOrAnyOf<>(plain));
    EXPECT_FALSE(HoldsControlOrAnyOf<'&'>(plain));
    for (size_t at = 0; at < length; ++at) {
      for (int byte = 0; byte < 256; ++byte) {
        std::string text = plain;
        text[at] = static_cast<char>(byte);
        EXPECT_EQ(HoldsControlOrAnyOf<>(text), byte < ' ') << length << ' ' << at << ' ' << byte;
        EXPECT_EQ((HoldsControlOrAnyOf<'&', '<'>(text)), byte < ' ' || byte == '&' || byte == '<')
            << length << ' ' << at << ' ' << byte;
      }
    }
  }
}

TEST(TextTest, LeftmostCountsCharacters) {
  struct Row {
    std::string_view text;
    int characters;
    std::string_view leftmost;
  };
  for (const Row& row : {
           Row{"", 0, ""},
           Row{"", 5, ""},
           Row{"abc", 0, ""},
           Row{"abc", 2, "ab"},
           Row{"abc", 3, "abc"},
           Row{"abc", 2147483647, "abc"},
           Row{"ação", 3, "açã"},
           Row{"ação", 4, "ação"},
           Row{"€uro", 1, "€"},
           Row{"a😀b", 2, "a😀"},
           Row{"a😀b", 1, "a"},
       }) {
    EXPECT_EQ(Leftmost(row.text, row.characters), row.leftmost) << row.text << " " << row.characters;
  }
}

TEST(TextTest, TrimSpacesTakesNothingButSpacesOffBothEnds) {
  struct Row {
    std::string_view text;
    std::string_view trimmed;
  };
  for (const Row& row : {
           Row{"", ""},
           Row{"   ", ""},
           Row{"  a b  ", "a b"},
           Row{"\ta\n", "\ta\n"},
           Row{" \t ", "\t"},
           Row{"\u00A0a\u00A0", "\u00A0a\u00A0"},
       }) {
    EXPECT_EQ(TrimSpaces(row.text), row.trimmed) << '"' << row.text << '"';
  }
}

TEST(TextTest, CharactersComeOffTheFrontOneByOne) {
  EXPECT_EQ(Characters("aç€😀"), (std::vector<char32_t>{'a', 0xE7, 0x20AC, 0x1F600}));
}

TEST(TextTest, EveryCodePointSurvivesAppendAndTake) {
  for (char32_t c = 1; c <= 0x10FFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    const std::string utf8 = Utf8(c);
    std::string_view rest = utf8;
    ASSERT_EQ(TakeCharacter(rest), c);
    ASSERT_TRUE(rest.empty()) << std::hex << static_cast<uint32_t>(c);
  }
}

TEST(TextTest, TheEncodingTakesOneToFourBytes) {
  EXPECT_EQ(Utf8(0x7F), "\x7F");
  EXPECT_EQ(Utf8(0x80), "\xC2\x80");
  EXPECT_EQ(Utf8(0x7FF), "\xDF\xBF");
  EXPECT_EQ(Utf8(0x800), "\xE0\xA0\x80");
  EXPECT_EQ(Utf8(0xFFFF), "\xEF\xBF\xBF");
  EXPECT_EQ(Utf8(0x10000), "\xF0\x90\x80\x80");
  EXPECT_EQ(Utf8(0x10FFFF), "\xF4\x8F\xBF\xBF");
}

class TextNotUtf8Test : public ::testing::TestWithParam<std::string_view> {};

TEST_P(TextNotUtf8Test, GiveNoCharacterAndLoseOneByte) {
  std::string_view text = GetParam();
  const size_t size = text.size();
  EXPECT_EQ(TakeCharacter(text), kNotUtf8);
  EXPECT_EQ(text.size(), size - 1);
}

TEST_P(TextNotUtf8Test, AreNoXmlText) {
  EXPECT_FALSE(IsXmlText(GetParam()));
  EXPECT_FALSE(IsXmlText("0123456789" + std::string(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(All, TextNotUtf8Test,
                         ::testing::Values("\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xC3", "\xC3(", "\xE0\x80\xAF",
                                           "\xE0\x9F\xBF", "\xE2\x82", "\xE2\x82(", "\xED\xA0\x80", "\xED\xBF\xBF",
                                           "\xF0\x80\x80\xAF", "\xF0\x8F\xBF\xBF", "\xF0\x9F\x98", "\xF0\x9F\x98(",
                                           "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFE", "\xFF"),
                         testing::Numbered());

TEST(TextTest, XmlTextHoldsTabAndLineEndsButNoOtherControl) {
  for (char c = 1; c < 0x20; ++c) {
    const bool allowed = c == '\t' || c == '\n' || c == '\r';
    // In a short text and behind eight characters, which are looked at together.
    EXPECT_EQ(IsXmlText(std::string(1, c)), allowed) << static_cast<int>(c);
    EXPECT_EQ(IsXmlText("12345678" + std::string(1, c) + "12345678"), allowed) << static_cast<int>(c);
  }
  EXPECT_FALSE(IsXmlText(std::string_view("\0", 1)));
}

TEST(TextTest, XmlTextEndsAtTheNoncharacters) {
  EXPECT_TRUE(IsXmlText(""));
  EXPECT_TRUE(IsXmlText("\x7F\u0080\u009F\uFFFD"));
  EXPECT_TRUE(IsXmlText(Utf8(0x10FFFF)));
  EXPECT_FALSE(IsXmlText(Utf8(0xFFFE)));
  EXPECT_FALSE(IsXmlText(Utf8(0xFFFF)));
}

TEST(TextTest, ATextThatXmlCannotHoldIsAnErrorThatNamesTheElement) {
  RequireXmlText("City", "\u00c9vora\n");
  const Error error = testing::ErrorOf([] { RequireXmlText("City", "a\x01"); });
  EXPECT_EQ(error.Number(), static_cast<int32_t>(RunTimeError::kInvalidCall));
  EXPECT_EQ(error.Source(), kRunTimeSource);
  EXPECT_NE(error.Description().find("City"), std::string::npos);
}

}  // namespace
}  // namespace zevo
