// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Text.h>

#include <zevo/Error.h>
#include <zevo/platform/ByteScan.h>

#include <algorithm>

namespace zevo {
namespace {

bool IsXmlCharacter(char32_t c) {
  if (c < 0x20) return c == '\t' || c == '\n' || c == '\r';
  return c != 0xFFFE && c != 0xFFFF && c != kNotUtf8;
}

}  // namespace

std::string_view Leftmost(std::string_view text, int characters) {
  // A character takes at least one byte.
  if (text.size() <= static_cast<size_t>(characters)) return text;
  size_t end = 0;
  for (int taken = 0; end < text.size(); ++end) {
    if (!IsContinuation(text[end]) && taken++ == characters) break;
  }
  return text.substr(0, end);
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string replaced;
  for (size_t at = text.find(from); at != std::string_view::npos; at = text.find(from)) {
    replaced.append(text.substr(0, at)).append(to);
    text.remove_prefix(at + from.size());
  }
  return replaced.append(text);
}

void AppendCharacter(char32_t c, std::string& text) {
  const auto append = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
  if (c < 0x80) {
    append(c);
  } else if (c < 0x800) {
    append(0xC0 | (c >> 6));
    append(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    append(0xE0 | (c >> 12));
    append(0x80 | ((c >> 6) & 0x3F));
    append(0x80 | (c & 0x3F));
  } else {
    append(0xF0 | (c >> 18));
    append(0x80 | ((c >> 12) & 0x3F));
    append(0x80 | ((c >> 6) & 0x3F));
    append(0x80 | (c & 0x3F));
  }
}

bool IsXmlText(std::string_view text) {
  for (;;) {
    text.remove_prefix(PrintableAscii::Run(text));
    if (text.empty()) return true;
    if (!IsXmlCharacter(TakeCharacter(text))) return false;
  }
}

void RequireXmlText(std::string_view element, std::string_view text) {
  if (!IsXmlText(text)) ThrowNoXmlText(element);
}

void ThrowNoXmlText(std::string_view element) {
  throw MakeRunTimeError(RunTimeError::kInvalidCall, std::string(element).append(": carácter não permitido em XML"));
}

}  // namespace zevo
