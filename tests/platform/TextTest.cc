// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/Text.h>

#include <string>
#include <string_view>
#include <tuple>

#include "tests/support/Errors.h"
#include "tests/support/NotUtf8.h"

namespace zevo {
namespace {

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

TEST(TextTest, WhiteSpaceHasNoOtherByteAtAnyPlaceOfATextOfAnyLength) {
  for (size_t length = 0; length < 40; ++length) {
    for (const char filling : {' ', '\n'}) {
      const std::string blank(length, filling);
      EXPECT_TRUE(IsWhiteSpace(blank)) << length;
      for (size_t at = 0; at < length; ++at) {
        for (int byte = 0; byte < 256; ++byte) {
          std::string text = blank;
          text[at] = static_cast<char>(byte);
          const bool expected = byte == ' ' || byte == '\t' || byte == '\n' || byte == '\r';
          EXPECT_EQ(IsWhiteSpace(text), expected) << length << ' ' << at << ' ' << byte;
        }
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

TEST(TextTest, WhatIsNotUtf8IsNoXmlText) {
  for (const std::string_view text : testing::kNotWellFormed) {
    EXPECT_FALSE(IsXmlText(text)) << ::testing::PrintToString(text);
    EXPECT_FALSE(IsXmlText("0123456789" + std::string(text))) << ::testing::PrintToString(text);
  }
}

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
