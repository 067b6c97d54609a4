// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/PlaceCounter.h>

#include <gtest/gtest.h>
#include <zevo/Utf8.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {
namespace {

constexpr CharacterWidth kWidths[] = {CharacterWidth::kAsUtf8, CharacterWidth::kOne, CharacterWidth::kUtf16};

// The place behind a text, counted character by character.
FilePlace Counted(CharacterWidth width, std::string_view text) {
  FilePlace place{1, 1, 0};
  while (!text.empty()) {
    const size_t before = text.size();
    const char32_t character = TakeCharacter(text);
    ++place.column;
    if (character == '\n') {
      ++place.line;
      place.column = 1;
    }
    switch (width) {
      case CharacterWidth::kAsUtf8:
        place.offset += static_cast<int64_t>(before - text.size());
        break;
      case CharacterWidth::kOne:
        ++place.offset;
        break;
      case CharacterWidth::kUtf16:
        place.offset += character > 0xFFFF ? 4 : 2;
        break;
    }
  }
  return place;
}

TEST(PlaceCounterTest, BeginsWhereTheTextDoes) {
  EXPECT_EQ(PlaceCounter(CharacterWidth::kAsUtf8, 3).Place(), (FilePlace{1, 1, 3}));
}

// Every length and every position of a line end and of characters of each length, in one piece and in two.
TEST(PlaceCounterTest, CountsLikeOneWhoTakesCharacterByCharacter) {
  std::vector<std::string> characters;
  for (size_t i = 0; i < 40; ++i) characters.emplace_back("a");
  for (const char* special : {"\n", "é", "€", "😀"}) {
    for (size_t place = 0; place < characters.size(); ++place) {
      for (const char* other : {"a", "\n", "ã"}) {
        std::vector<std::string> changed = characters;
        changed[place] = special;
        changed[(place * 7 + 3) % changed.size()] = other;
        std::string text;
        std::vector<size_t> ends{0};
        for (const std::string& character : changed) ends.push_back((text += character).size());
        for (const size_t end : ends) {
          for (const CharacterWidth width : kWidths) {
            PlaceCounter counter(width, 0);
            counter.Advance(std::string_view(text).substr(0, end));
            ASSERT_EQ(counter.Place(), Counted(width, std::string_view(text).substr(0, end))) << text << " " << end;
            counter.Advance(std::string_view(text).substr(end));
            ASSERT_EQ(counter.Place(), Counted(width, text)) << text << " " << end;
          }
        }
      }
    }
  }
}

// Of sixteen bytes, every set of line ends, and every set of eight characters that take two.
TEST(PlaceCounterTest, CountsAsManyAsThereAre) {
  const auto expect = [](const std::string& text) {
    for (const CharacterWidth width : kWidths) {
      PlaceCounter counter(width, 0);
      counter.Advance(text);
      ASSERT_EQ(counter.Place(), Counted(width, text)) << text;
    }
  };
  for (unsigned set = 0; set < 0x10000; ++set) {
    std::string text;
    for (unsigned bit = 0; bit < 16; ++bit) text += (set >> bit & 1U) != 0 ? '\n' : 'a';
    expect(text);
  }
  for (unsigned set = 0; set < 0x100; ++set) {
    std::string text;
    for (unsigned bit = 0; bit < 8; ++bit) text += (set >> bit & 1U) != 0 ? "é" : "\na";
    expect(text);
  }
  expect("😀😀😀😀");
}

}  // namespace

void PrintTo(const FilePlace& place, std::ostream* out) {
  *out << "line " << place.line << ", column " << place.column << ", offset " << place.offset;
}

}  // namespace zevo
