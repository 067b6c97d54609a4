// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/VisibleText.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "tools/saft/Utf8.h"

namespace zevo::saft {
namespace {

// In characters.
constexpr size_t kMostQuoted = 60;
constexpr size_t kMostTold = 1000;

struct CodePoints {
  char32_t first;
  char32_t last;
};

// Beyond ASCII: C1, marks of direction, separators of lines and paragraphs, the byte order mark.
constexpr std::array<CodePoints, 7> kHidden{{{0x80, 0x9F},
                                             {0x61C, 0x61C},
                                             {0x200E, 0x200F},
                                             {0x2028, 0x2029},
                                             {0x202A, 0x202E},
                                             {0x2066, 0x2069},
                                             {0xFEFF, 0xFEFF}}};

void AppendHex(std::string& text, char32_t value, int digits) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  while (digits-- > 0) text += kDigits[(value >> (4 * digits)) & 0xF];
}

void AppendVisible(std::string& text, std::string_view character) {
  const auto byte = static_cast<unsigned char>(character[0]);
  if (byte >= 0x20 && byte < 0x7F) {
    text += character;
  } else if (byte == '\n') {
    text += "\\n";
  } else if (byte == '\r') {
    text += "\\r";
  } else if (byte == '\t') {
    text += "\\t";
  } else if (character.size() == 1) {
    AppendHex(text += "\\x", byte, 2);
  } else {
    const char32_t point = CodePointOf(character);
    if (std::ranges::any_of(kHidden, [&](auto range) { return point >= range.first && point <= range.last; })) {
      AppendHex(text += "\\u", point, 4);
    } else {
      text += character;
    }
  }
}

struct Front {
  size_t bytes;
  size_t length;  // of the whole text, in characters
};

Front FrontOf(std::string_view text, size_t most) {
  Front front{0, 0};
  for (size_t at = 0; at < text.size(); ++front.length) {
    at += std::max<size_t>(FirstLength(text.substr(at)), 1);
    if (front.length < most) front.bytes = at;
  }
  return front;
}

std::string InBrackets(size_t length) { return " (" + std::to_string(length) + " characters)"; }

}  // namespace

std::string Visible(std::string_view text) {
  std::string visible;
  while (!text.empty()) {
    const size_t length = std::max<size_t>(FirstLength(text), 1);
    AppendVisible(visible, text.substr(0, length));
    text.remove_prefix(length);
  }
  return visible;
}

std::string VisibleLines(std::string_view text) {
  std::string lines;
  for (size_t end = text.find('\n'); end != std::string_view::npos; end = text.find('\n')) {
    lines.append(Visible(text.substr(0, end))) += '\n';
    text.remove_prefix(end + 1);
  }
  return lines.append(Visible(text));
}

std::string Quoted(std::string_view text) {
  const auto [shown, length] = FrontOf(text, kMostQuoted);
  return "\"" + Visible(text.substr(0, shown)) + (shown < text.size() ? "…\"" + InBrackets(length) : "\"");
}

std::string Abridged(std::string_view text) {
  const auto [shown, length] = FrontOf(text, kMostTold);
  return Visible(text.substr(0, shown)) + (shown < text.size() ? "…" + InBrackets(length) : "");
}

}  // namespace zevo::saft
