// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/words/Text.h"

namespace zevo::saft {

std::string Filled(std::string_view text, std::span<const std::string> values) {
  std::string filled;
  for (size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{')) {
    filled.append(text.substr(0, at)).append(values[static_cast<size_t>(text[at + 1] - '1')]);
    text.remove_prefix(at + 3);
  }
  return filled.append(text);
}

}  // namespace zevo::saft
