// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_WORDS_SEVERITYNAME_H_
#define ZEVO_TOOLS_SAFT_WORDS_SEVERITYNAME_H_

#include <zevo/adapters.h>

#include <array>
#include <cstddef>
#include <string_view>

namespace zevo::saft {

/// What programs call a severity, whatever the language: "error", "warning", "information" or "off".
constexpr std::string_view NameOf(Severity severity) {
  constexpr std::array<std::string_view, 4> kNames{"off", "information", "warning", "error"};
  return kNames[static_cast<size_t>(severity)];
}

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_WORDS_SEVERITYNAME_H_
