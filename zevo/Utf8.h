// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_UTF8_H_
#define ZEVO_UTF8_H_

#include <zevo/Api.h>

#include <cstddef>
#include <string_view>

namespace zevo {

// Texts in UTF-8, taken apart. A character is a code point. Well-formed is what has no overlong form, no surrogate and
// nothing beyond U+10FFFF.

/// What `TakeCharacter` gives for a byte that begins no well-formed character.
inline constexpr char32_t kNotUtf8 = 0xFFFFFFFF;

/// Takes the character at the front off a text, which is not empty: its code point, or `kNotUtf8` with one byte taken
/// off.
ZEVO_API char32_t TakeCharacter(std::string_view& text);

/// Whether all of a text is well-formed.
ZEVO_API bool IsUtf8(std::string_view text);

/// The number of characters in a text. Of what is not well-formed, every byte counts but those that
/// could only go on with a character.
ZEVO_API size_t CharactersIn(std::string_view text);

/// Whether a byte goes on with a character rather than beginning one.
constexpr bool IsContinuation(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

}  // namespace zevo

#endif  // ZEVO_UTF8_H_
