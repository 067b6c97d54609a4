// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/WorkbookText.h"

#include <zevo/adapters.h>

#include <algorithm>
#include <cstddef>

namespace zevo::saft {
namespace {

constexpr size_t kMostUnits = 32767;
constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

bool IsHexadecimal(char c) { return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }

// Whether a text begins with what stands for a character, such as _x0041_.
bool BeginsWithEscape(std::string_view text) {
  constexpr std::string_view kForm = "_x0000_";
  return std::ranges::equal(text.substr(0, kForm.size()), kForm,
                            [](char c, char form) { return form == '0' ? IsHexadecimal(c) : c == form; });
}

std::string Escape(char c) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto byte = static_cast<unsigned char>(c);
  return {'_', 'x', '0', '0', kDigits[byte >> 4], kDigits[byte & 0xF], '_'};
}

}  // namespace

bool PutWorkbookText(std::string_view text, std::string& cell) {
  cell.clear();
  size_t units = 0;
  while (!text.empty()) {
    const std::string_view before = text;
    const char32_t character = TakeCharacter(text);
    const bool isControl = character < 0x20 && character != '\t' && character != '\n';
    const bool isNone = character == kNotUtf8 || character == 0xFFFE || character == 0xFFFF;
    std::string escape;
    if (isControl || BeginsWithEscape(before)) escape = Escape(before.front());
    units += !escape.empty() ? escape.size() : (character >= 0x10000 && !isNone ? 2 : 1);
    if (units > kMostUnits) return false;
    if (isNone) {
      cell += kReplacement;
    } else {
      cell += escape.empty() ? before.substr(0, before.size() - text.size()) : std::string_view{escape};
    }
  }
  return true;
}

}  // namespace zevo::saft
