// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/terminal/TerminalWidth.h"

#include <sys/ioctl.h>

namespace zevo::saft {

std::optional<size_t> TerminalWidth(int descriptor) {
  winsize size{};
  if (ioctl(descriptor, TIOCGWINSZ, &size) != 0 || size.ws_col == 0) return std::nullopt;
  return size.ws_col;
}

}  // namespace zevo::saft
