// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/LetterCase.h>

#include <string_view>

namespace zevo {
namespace {

TEST(LetterCaseTest, LettersOfWindows1252AreEqualInBothCases) {
  const struct {
    std::string_view upper, lower;
  } kRows[] = {
      {"", ""},
      {"ABCDEFGHIJKLMNOPQRSTUVWXYZ", "abcdefghijklmnopqrstuvwxyz"},
      {"ÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ", "àáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ"},
      {"ŒŠŽŸ", "œšžÿ"},
      {"AÇÃO 1/2", "ação 1/2"},
  };
  for (const auto& row : kRows) {
    EXPECT_TRUE(EqualIgnoringCase(row.upper, row.lower)) << row.upper;
    EXPECT_TRUE(EqualIgnoringCase(row.lower, row.upper)) << row.upper;
    EXPECT_EQ(FoldCase(row.upper), FoldCase(row.lower));
  }
}

TEST(LetterCaseTest, WhatIsNoLetterPairDiffers) {
  const struct {
    std::string_view left, right;
  } kRows[] = {
      {"a", "b"}, {"a", "á"},  {"a", "a "}, {"", "a"},  {"[", "{"}, {"@", "`"}, {"×", "÷"},
      {"ß", "ÿ"}, {"ß", "ss"}, {"¡", "ñ"},  {"€", "¬"}, {"Ã", "ï"}, {"1", "Q"},
  };
  for (const auto& row : kRows) EXPECT_FALSE(EqualIgnoringCase(row.left, row.right)) << row.left << " " << row.right;
}

TEST(LetterCaseTest, EveryByteSequenceIsTakenAsItIs) {
  EXPECT_EQ(FoldCase("\xC3"), "\xC3");
  EXPECT_EQ(FoldCase("a\xC5"), "a\xC5");
  EXPECT_EQ(FoldCase("\xE2\x82\xAC\xF0\x9F\x98\x80"), "\xE2\x82\xAC\xF0\x9F\x98\x80");
  EXPECT_FALSE(EqualIgnoringCase("\xC3\x83", "\xC3\xC3"));
}

}  // namespace
}  // namespace zevo
