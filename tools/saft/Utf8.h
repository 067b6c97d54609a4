// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_UTF8_H_
#define ZEVO_TOOLS_SAFT_UTF8_H_

#include <cstddef>
#include <string_view>

namespace zevo::saft {

/// The length in bytes of the character that a text, which is not empty, begins with; 0 when it is not well-formed.
size_t FirstLength(std::string_view text);

/// The code point of one well-formed character.
char32_t CodePointOf(std::string_view character);

/// Whether all of a text is well-formed UTF-8: no overlong form, no surrogate, nothing beyond U+10FFFF.
bool IsUtf8(std::string_view text);

/// The number of characters in a well-formed text.
size_t CharactersIn(std::string_view text);

/// Whether two texts differ in nothing but the case of the letters A to Z.
bool EqualIgnoringAsciiCase(std::string_view left, std::string_view right);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_UTF8_H_
