// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/Utf8.h"

#include <algorithm>
#include <cstdint>

namespace zevo::saft {
namespace {

bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

size_t FirstLength(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  if (lead < 0x80) return 1;
  const size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
  if (!std::ranges::all_of(text.substr(1, length - 1), IsContinuation)) return 0;
  const auto second = static_cast<unsigned char>(text[1]);
  const bool overlong = (lead == 0xE0 && second < 0xA0) || (lead == 0xF0 && second < 0x90);
  const bool surrogate = lead == 0xED && second >= 0xA0;
  const bool beyond = lead == 0xF4 && second >= 0x90;
  return overlong || surrogate || beyond ? 0 : length;
}

char32_t CodePointOf(std::string_view character) {
  const auto lead = static_cast<unsigned char>(character[0]);
  if (lead < 0x80) return lead;
  char32_t point = lead & (0xFFU >> (character.size() + 1));
  for (const char c : character.substr(1)) point = point << 6 | (static_cast<unsigned char>(c) & 0x3FU);
  return point;
}

bool IsUtf8(std::string_view text) {
  while (!text.empty()) {
    const size_t length = FirstLength(text);
    if (length == 0) return false;
    text.remove_prefix(length);
  }
  return true;
}

size_t CharactersIn(std::string_view text) {
  return text.size() - static_cast<size_t>(std::ranges::count_if(text, IsContinuation));
}

bool EqualIgnoringAsciiCase(std::string_view left, std::string_view right) {
  return std::ranges::equal(left, right, {}, &AsciiLower, &AsciiLower);
}

}  // namespace zevo::saft
