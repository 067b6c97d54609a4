// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_SUPPORT_CODEPOINTS_H_
#define ZEVO_TESTS_SUPPORT_CODEPOINTS_H_

#include <string>

namespace zevo::testing {

inline constexpr char32_t kLastCodePoint = 0x10FFFF;

/// Whether XML takes the code point as a character.
constexpr bool IsXmlCharacter(char32_t c) {
  if (c < 0x20) return c == '\t' || c == '\n' || c == '\r';
  return (c < 0xD800 || c > 0xDFFF) && c != 0xFFFE && c != 0xFFFF;
}

/// The code point in UTF-8, also one that UTF-8 has no place for.
inline std::string Utf8Of(char32_t c) {
  const auto continuing = [c](int shift) { return static_cast<char>(0x80U | (c >> shift & 0x3FU)); };
  if (c < 0x80) return {static_cast<char>(c)};
  if (c < 0x800) return {static_cast<char>(0xC0U | c >> 6), continuing(0)};
  if (c < 0x10000) return {static_cast<char>(0xE0U | c >> 12), continuing(6), continuing(0)};
  return {static_cast<char>(0xF0U | c >> 18), continuing(12), continuing(6), continuing(0)};
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_SUPPORT_CODEPOINTS_H_
