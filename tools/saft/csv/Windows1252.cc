// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/csv/Windows1252.h"

#include <array>
#include <cstddef>

namespace zevo::saft {
namespace {

// Where it differs from Latin-1, whose bytes are the code points: 0x80 to 0x9F.
constexpr size_t kFirst = 0x80;
constexpr std::array<std::string_view, 32> kCharacters{
    "€",    "\x81", "‚", "ƒ", "„", "…", "†", "‡", "ˆ", "‰", "Š", "‹", "Œ", "\x8D", "Ž", "\x8F",
    "\x90", "‘",    "’", "“", "”", "•", "–", "—", "˜", "™", "š", "›", "œ", "\x9D", "ž", "Ÿ"};

}  // namespace

std::string Utf8FromWindows1252(std::string_view text) {
  std::string utf8;
  utf8.reserve(text.size());
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < kFirst) {
      utf8 += c;
    } else if (byte < kFirst + kCharacters.size()) {
      utf8 += kCharacters[byte - kFirst];
    } else {
      utf8 += static_cast<char>(0xC0U | (byte >> 6U));
      utf8 += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return utf8;
}

}  // namespace zevo::saft
