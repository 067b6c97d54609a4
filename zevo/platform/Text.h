// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_TEXT_H_
#define ZEVO_PLATFORM_TEXT_H_

#include <zevo/Utf8.h>
#include <zevo/platform/ByteScan.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

namespace zevo {

// UTF-8. A character is a code point; bytes that are not UTF-8 count as they come and are never split off a sequence.

/// A byte of a text as a number.
constexpr unsigned char Byte(char c) { return static_cast<unsigned char>(c); }

/// The first `characters` characters of a text.
std::string_view Leftmost(std::string_view text, int characters);

/// Without the spaces (nothing but U+0020) at both ends.
inline std::string_view TrimSpaces(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

/// Whether a text is a literal: compared at once, where a comparison of any two texts goes through them.
template <size_t kSize>
bool Is(std::string_view text, const char (&literal)[kSize]) {
  return text.size() == kSize - 1 && std::memcmp(text.data(), literal, kSize - 1) == 0;
}

/// The white space of XML: spaces, tabs and line ends.
constexpr bool IsWhiteSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

/// Without white space at both ends.
inline std::string_view TrimWhiteSpace(std::string_view text) {
  while (!text.empty() && IsWhiteSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsWhiteSpace(text.back())) text.remove_suffix(1);
  return text;
}

/// Whether a text has nothing but white space, or nothing at all. What is in front of a tag, where most such texts
/// stand, are blanks behind a line end.
inline bool IsWhiteSpace(std::string_view text) {
  while (text.size() >= WordBlocks::kBytes) {
    if (WordBlocks::FindOther(WordBlocks::Load(text.data()), ' ') == 0) {
      text.remove_prefix(WordBlocks::kBytes);
    } else if (IsWhiteSpace(text.front())) {
      text.remove_prefix(1);
    } else {
      return false;
    }
  }
  return std::ranges::all_of(text, [](char c) { return IsWhiteSpace(c); });
}

/// Whether a text holds a control character, such as a tab or a line break, or one of some other ASCII characters, of
/// which the space is none.
template <char... kCharacters>
bool HoldsControlOrAnyOf(std::string_view text) {
  return ByteScan<StopBytes<0x20, false, kCharacters...>>::Finds(text);
}

/// The text with every `from` in it, taken from left to right, replaced by `to`.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

void AppendCharacter(char32_t character, std::string& text);

/// Scans that stop at control characters and outside ASCII.
using PrintableAscii = ByteScan<StopBytes<0x20, true>>;

/// Whether a text is UTF-8 and holds no character that XML 1.0 forbids.
bool IsXmlText(std::string_view text);

/// Raises error 5, with the name of the element and what is wrong, for a text that is none.
void RequireXmlText(std::string_view element, std::string_view text);
/// Raises that error.
[[noreturn]] void ThrowNoXmlText(std::string_view element);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_TEXT_H_
