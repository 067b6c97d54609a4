// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/terminal/WrappedText.h"

#include <zevo/adapters.h>

#include <algorithm>

namespace zevo::saft {
namespace {

// Without the escapes that colour it, such as "\x1B[31m".
size_t WidthOf(std::string_view word) {
  size_t width = 0;
  while (!word.empty()) {
    const size_t escape = std::min(word.find('\x1B'), word.size());
    width += CharactersIn(word.substr(0, escape));
    word.remove_prefix(escape);
    const size_t end = word.find('m');
    word.remove_prefix(end == std::string_view::npos ? word.size() : end + 1);
  }
  return width;
}

}  // namespace

std::string WrappedText(std::string_view text, size_t width, const Indents& indents) {
  std::string wrapped(indents.first, ' ');
  size_t column = indents.first;
  bool begins = true;  // a line
  while (!text.empty()) {
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(text.size(), word.size() + 1));
    const size_t word_width = WidthOf(word);
    if (!begins && column + 1 + word_width > width) {
      wrapped.append(1, '\n').append(indents.others, ' ');
      column = indents.others;
      begins = true;
    }
    if (!begins) {
      wrapped += ' ';
      ++column;
    }
    wrapped += word;
    column += word_width;
    begins = false;
  }
  return wrapped;
}

}  // namespace zevo::saft
