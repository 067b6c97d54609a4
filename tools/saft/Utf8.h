#ifndef ZEVO_TOOLS_SAFT_UTF8_H_
#define ZEVO_TOOLS_SAFT_UTF8_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace zevo::saft {

/// Whether all of a text is well-formed UTF-8: no overlong form, no surrogate, nothing beyond U+10FFFF.
bool IsUtf8(std::string_view text);

/// The number of characters in a well-formed text.
size_t CharactersIn(std::string_view text);

/// Whether two texts differ in nothing but the case of the letters A to Z.
bool EqualIgnoringAsciiCase(std::string_view left, std::string_view right);

/// A text between quotation marks for a message of one line: control characters, and every byte beyond ASCII of a text
/// that is not UTF-8, are shown as escapes.
std::string Quoted(std::string_view text);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_UTF8_H_
