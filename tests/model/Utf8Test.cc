// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/Utf8.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/CodePoints.h"
#include "tests/support/NotUtf8.h"

namespace zevo {
namespace {

TEST(Utf8Test, CharactersComeOffTheFrontOneByOne) {
  std::string_view text = "aç€😀";
  std::vector<char32_t> characters;
  while (!text.empty()) characters.push_back(TakeCharacter(text));
  EXPECT_EQ(characters, (std::vector<char32_t>{'a', 0xE7, 0x20AC, 0x1F600}));
}

TEST(Utf8Test, EveryCodePointButSurrogatesIsACharacter) {
  for (char32_t c = 0; c <= testing::kLastCodePoint + 1; ++c) {
    const bool character = (c < 0xD800 || c > 0xDFFF) && c <= testing::kLastCodePoint;
    const std::string utf8 = testing::Utf8Of(c);
    std::string_view rest = utf8;
    ASSERT_EQ(TakeCharacter(rest), character ? c : kNotUtf8) << std::hex << static_cast<uint32_t>(c);
    ASSERT_EQ(rest.size(), character ? 0 : utf8.size() - 1) << std::hex << static_cast<uint32_t>(c);
    ASSERT_EQ(IsUtf8(utf8), character) << std::hex << static_cast<uint32_t>(c);
  }
}

TEST(Utf8Test, WhatIsNotWellFormedGivesNoCharacterAndLosesOneByte) {
  for (const std::string_view bytes : testing::kNotWellFormed) {
    std::string_view text = bytes;
    EXPECT_EQ(TakeCharacter(text), kNotUtf8) << ::testing::PrintToString(bytes);
    EXPECT_EQ(text, bytes.substr(1)) << ::testing::PrintToString(bytes);
  }
}

TEST(Utf8Test, ATextIsUtf8WhenAllOfItIs) {
  EXPECT_TRUE(IsUtf8(""));
  EXPECT_TRUE(IsUtf8(std::string_view("a\0\x7Fç€😀", 12)));
  for (const std::string_view bytes : testing::kNotWellFormed) {
    EXPECT_FALSE(IsUtf8(bytes)) << ::testing::PrintToString(bytes);
    EXPECT_FALSE(IsUtf8("Évora, 10 €" + std::string(bytes) + "a")) << ::testing::PrintToString(bytes);
  }
}

TEST(Utf8Test, CharactersAreCounted) {
  EXPECT_EQ(CharactersIn(""), 0U);
  EXPECT_EQ(CharactersIn("aç€😀"), 4U);
  EXPECT_EQ(CharactersIn("\xFF\xC3 \x80"), 3U);
}

}  // namespace
}  // namespace zevo
