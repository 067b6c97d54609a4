// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/Windows1252.h>

#include <zevo/platform/Text.h>

namespace zevo {

bool IsWindows1252(std::string_view text) {
  while (!text.empty()) {
    if (ToWindows1252(TakeCharacter(text)) < 0) return false;
  }
  return true;
}

}  // namespace zevo
