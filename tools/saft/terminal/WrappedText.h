// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TERMINAL_WRAPPEDTEXT_H_
#define ZEVO_TOOLS_SAFT_TERMINAL_WRAPPEDTEXT_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace zevo::saft {

/// So many spaces stand in front of the first line, and of the others.
struct Indents {
  size_t first = 0;
  size_t others = 0;
};

/// A text in lines of at most `width` characters, its colours not counted, broken where spaces are; a word that is
/// longer has a line of its own. Without the last line break.
std::string WrappedText(std::string_view text, size_t width, const Indents& indents);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TERMINAL_WRAPPEDTEXT_H_
