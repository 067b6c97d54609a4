// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_INPUT_SCANNEDELEMENTS_H_
#define ZEVO_TOOLS_SAFT_INPUT_SCANNEDELEMENTS_H_

#include <zevo/adapters.h>

#include <algorithm>
#include <cstddef>
#include <span>
#include <string_view>

namespace zevo::saft {

/// The text of an element without the white space at its ends, which is no part of what it says.
inline std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kWhiteSpace = " \t\r\n";
  text.remove_prefix(std::min(text.find_first_not_of(kWhiteSpace), text.size()));
  return text.substr(0, text.find_last_not_of(kWhiteSpace) + 1);
}

/// Goes through the elements that stand directly in one of them: calls `visit(size_t child)` with each.
template <class Visit>
void ForEachChild(std::span<const ScannedElement> elements, size_t element, const Visit& visit) {
  const int depth = elements[element].depth;
  for (size_t inside = element + 1; inside < elements.size() && elements[inside].depth > depth; ++inside) {
    if (elements[inside].depth == depth + 1) visit(inside);
  }
}

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_INPUT_SCANNEDELEMENTS_H_
