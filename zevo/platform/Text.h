#ifndef ZEVO_PLATFORM_TEXT_H_
#define ZEVO_PLATFORM_TEXT_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace zevo {

// UTF-8. A character is a code point; bytes that are not UTF-8 count as they come and are never split off a sequence.

/// The first `characters` characters of a text.
std::string_view Leftmost(std::string_view text, int characters);

/// Without the spaces (nothing but U+0020) at both ends.
std::string_view TrimSpaces(std::string_view text);

/// Takes the character at the front off a text: its code point, or kNotUtf8 with one byte taken off.
char32_t TakeCharacter(std::string_view& text);
inline constexpr char32_t kNotUtf8 = 0xFFFFFFFF;

/// The text with every `from` in it, taken from left to right, replaced by `to`.
std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to);

void AppendCharacter(char32_t character, std::string& text);

/// Whether a text is UTF-8 and holds no character that XML 1.0 forbids.
bool IsXmlText(std::string_view text);

/// Raises error 5, with the name of the element, for a text that is none.
void RequireXmlText(std::string_view element, std::string_view text);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_TEXT_H_
