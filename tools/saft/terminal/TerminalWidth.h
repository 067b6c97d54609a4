// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TERMINAL_TERMINALWIDTH_H_
#define ZEVO_TOOLS_SAFT_TERMINAL_TERMINALWIDTH_H_

#include <cstddef>
#include <optional>

namespace zevo::saft {

/// How many characters a line has on the terminal behind a descriptor; nothing where none is there or it does not tell.
std::optional<size_t> TerminalWidth(int descriptor);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TERMINAL_TERMINALWIDTH_H_
