// SPDX-License-Identifier: Apache-2.0
#include <zevo/Utf8.h>

#include <zevo/platform/ByteScan.h>

#include <algorithm>

namespace zevo {
namespace {

using Ascii = ByteScan<StopBytes<0, true>>;

}  // namespace

char32_t TakeCharacter(std::string_view& text) {
  const auto lead = static_cast<unsigned char>(text.front());
  size_t length = 1;
  char32_t character = lead;
  char32_t least = 0;
  if (lead >= 0xF0) {
    length = 4;
    character = lead & 0x07U;
    least = 0x10000;
  } else if (lead >= 0xE0) {
    length = 3;
    character = lead & 0x0FU;
    least = 0x800;
  } else if (lead >= 0xC0) {
    length = 2;
    character = lead & 0x1FU;
    least = 0x80;
  }
  bool valid = lead < 0x80 || (lead >= 0xC2 && lead <= 0xF4 && text.size() >= length);
  for (size_t i = 1; valid && i < length; ++i) {
    valid = IsContinuation(text[i]);
    character = (character << 6) | (static_cast<unsigned char>(text[i]) & 0x3FU);
  }
  valid = valid && character >= least && character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF);
  text.remove_prefix(valid ? length : 1);
  return valid ? character : kNotUtf8;
}

bool IsUtf8(std::string_view text) {
  for (;;) {
    text.remove_prefix(Ascii::Run(text));
    if (text.empty()) return true;
    if (TakeCharacter(text) == kNotUtf8) return false;
  }
}

size_t CharactersIn(std::string_view text) {
  return text.size() - static_cast<size_t>(std::ranges::count_if(text, IsContinuation));
}

}  // namespace zevo
