// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/terminal/VisibleText.h"

#include <zevo/adapters.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "tools/saft/words/ProblemWords.h"

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

bool IsHidden(char32_t point) {
  return std::ranges::any_of(kHidden, [&](auto range) { return point >= range.first && point <= range.last; });
}

void AppendVisible(std::string& text, char32_t point, std::string_view bytes) {
  if (point == '\n') {
    text += "\\n";
  } else if (point == '\r') {
    text += "\\r";
  } else if (point == '\t') {
    text += "\\t";
  } else if (point < 0x20 || point == 0x7F || point == kNotUtf8) {
    AppendHex(text += "\\x", static_cast<unsigned char>(bytes[0]), 2);
  } else if (IsHidden(point)) {
    AppendHex(text += "\\u", point, 4);
  } else {
    text += bytes;
  }
}

struct Front {
  size_t bytes;
  size_t length;  // of the whole text, in characters
};

Front FrontOf(std::string_view text, size_t most) {
  Front front{0, 0};
  for (std::string_view rest = text; !rest.empty(); ++front.length) {
    TakeCharacter(rest);
    if (front.length < most) front.bytes = text.size() - rest.size();
  }
  return front;
}

std::string InBrackets(size_t length) { return " (" + Say(words::kCharacters, length) + ")"; }

}  // namespace

std::string Visible(std::string_view text) {
  std::string visible;
  while (!text.empty()) {
    std::string_view rest = text;
    const char32_t point = TakeCharacter(rest);
    AppendVisible(visible, point, text.substr(0, text.size() - rest.size()));
    text = rest;
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
