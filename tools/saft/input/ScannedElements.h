// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_INPUT_SCANNEDELEMENTS_H_
#define ZEVO_TOOLS_SAFT_INPUT_SCANNEDELEMENTS_H_

#include <zevo/adapters.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

namespace zevo::saft {

/// The text of an element without the white space at its ends, which is no part of what it says.
inline std::string_view Trimmed(std::string_view text) {
  const auto is_space = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
  while (!text.empty() && is_space(text.front())) text.remove_prefix(1);
  while (!text.empty() && is_space(text.back())) text.remove_suffix(1);
  return text;
}

/// Goes through the elements that stand directly in one of them: calls `visit(size_t child)` with each.
template <class Visit>
void ForEachChild(std::span<const ScannedElement> elements, size_t element, const Visit& visit) {
  const int depth = elements[element].depth;
  for (size_t inside = element + 1; inside < elements.size() && elements[inside].depth > depth; ++inside) {
    if (elements[inside].depth == depth + 1) visit(inside);
  }
}

/// The first element of a name that stands directly in one of them.
inline std::optional<size_t> ChildNamed(std::span<const ScannedElement> elements, size_t element,
                                        std::string_view name) {
  const int depth = elements[element].depth;
  for (size_t inside = element + 1; inside < elements.size() && elements[inside].depth > depth; ++inside) {
    if (elements[inside].depth == depth + 1 && elements[inside].name == name) return inside;
  }
  return std::nullopt;
}

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_INPUT_SCANNEDELEMENTS_H_
