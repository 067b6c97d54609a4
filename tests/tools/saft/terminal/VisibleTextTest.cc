// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/terminal/VisibleText.h"

#include <gtest/gtest.h>

#include <string>

namespace zevo::saft {
namespace {

TEST(VisibleTextTest, WhatCanBeReadStaysAsItIs) {
  const std::string text = "Pão – 5 € \\x1B \"日本\" \xF0\x9F\x8D\x9E";
  EXPECT_EQ(Visible(text), text);
  EXPECT_EQ(Visible(""), "");
}

TEST(VisibleTextTest, ControlCharactersBecomeEscapes) {
  EXPECT_EQ(Visible(std::string_view("\0\x01\x1B[2J\x7F", 7)), "\\x00\\x01\\x1B[2J\\x7F");
  EXPECT_EQ(Visible("a\r\n\tb"), "a\\r\\n\\tb");
  EXPECT_EQ(Visible("\xC2\x80\xC2\x9B\xC2\x9F\xC2\xA0"), "\\u0080\\u009B\\u009F\xC2\xA0");
}

TEST(VisibleTextTest, MarksOfDirectionAndSeparatorsBecomeEscapes) {
  EXPECT_EQ(Visible("\u200D\u200E\u200F\u2010"), "\u200D\\u200E\\u200F\u2010");
  EXPECT_EQ(Visible("\u2027\u2028\u2029\u202A\u202E\u202F"), "\u2027\\u2028\\u2029\\u202A\\u202E\u202F");
  EXPECT_EQ(Visible("\u2065\u2066\u2069\u206A"), "\u2065\\u2066\\u2069\u206A");
  EXPECT_EQ(Visible("\u061C\uFEFFa\uFEFF"), "\\u061C\\uFEFFa\\uFEFF");
}

TEST(VisibleTextTest, BytesThatAreNotUtf8BecomeEscapes) {
  EXPECT_EQ(Visible("Jos\xE9 é\xC0\xAF\xED\xA0\x80\xE2\x82"), "Jos\\xE9 é\\xC0\\xAF\\xED\\xA0\\x80\\xE2\\x82");
}

TEST(VisibleTextTest, LinesStayLines) { EXPECT_EQ(VisibleLines("a\x01\n\n\tb\nc"), "a\\x01\n\n\\tb\nc"); }

TEST(VisibleTextTest, ALongTextIsQuotedInPart) {
  const std::string sixty(60, '7');
  EXPECT_EQ(Quoted(sixty), "\"" + sixty + "\"");
  EXPECT_EQ(Quoted(sixty + "8"), "\"" + sixty + "…\" (61 characters)");
  EXPECT_EQ(Quoted(std::string(1000000, '7')), "\"" + sixty + "…\" (1000000 characters)");
}

TEST(VisibleTextTest, ALongReasonIsToldInPart) {
  const std::string thousand(1000, '7');
  EXPECT_EQ(Abridged(thousand), thousand);
  EXPECT_EQ(Abridged(thousand + "\n8"), thousand + "… (1002 characters)");
}

TEST(VisibleTextTest, LengthsAreOfCharacters) {
  std::string euros;
  for (int i = 0; i < 60; ++i) euros += "€";
  EXPECT_EQ(Quoted(euros), "\"" + euros + "\"");
  EXPECT_EQ(Quoted(euros + "€\xFF"), "\"" + euros + "…\" (62 characters)");
}

}  // namespace
}  // namespace zevo::saft
