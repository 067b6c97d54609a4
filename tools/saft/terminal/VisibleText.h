// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TERMINAL_VISIBLETEXT_H_
#define ZEVO_TOOLS_SAFT_TERMINAL_VISIBLETEXT_H_

#include <string>
#include <string_view>

namespace zevo::saft {

/// A text of somebody else's as it may go to a terminal: what would act on it or hide there, which is control
/// characters, line breaks, marks of direction and bytes that are not UTF-8, is shown as an escape such as \n, \x1B or
/// \u202E. Such a text comes through once more as it is.
std::string Visible(std::string_view text);

/// Lines of text made visible, each for itself.
std::string VisibleLines(std::string_view text);

/// A text between quotation marks for a message of one line: visible, and no more than the first characters of a long
/// one, with its length after it.
std::string Quoted(std::string_view text);

/// What somebody else says of a text that may be long: visible, and a thousand characters of it at most.
std::string Abridged(std::string_view text);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TERMINAL_VISIBLETEXT_H_
