// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_WINDOWS1252_H_
#define ZEVO_PLATFORM_WINDOWS1252_H_

#include <array>
#include <cstdint>
#include <string_view>

namespace zevo {

// The code page of the files. Five bytes have no character there. They are read as the C1 controls of the same number,
// as Windows does, but never written: other software refuses them.

/// The characters of the bytes 0x80 to 0x9F; the other bytes stand for the character of the same number.
inline constexpr std::array<char16_t, 32> kWindows1252Upper = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr char32_t FromWindows1252(unsigned char byte) {
  return byte >= 0x80 && byte < 0xA0 ? kWindows1252Upper[byte - 0x80U] : byte;
}

/// The byte of a character, or -1 when the code page does not have it.
constexpr int ToWindows1252(char32_t character) {
  if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<int>(character);
  if (character < 0xA0) return -1;
  for (unsigned i = 0; i < kWindows1252Upper.size(); ++i) {
    if (kWindows1252Upper[i] == character) return static_cast<int>(0x80 + i);
  }
  return -1;
}

/// Whether the code page has every character of a UTF-8 text.
bool IsWindows1252(std::string_view text);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_WINDOWS1252_H_
