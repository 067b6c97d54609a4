// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_MERGE_ELEMENTCOPY_H_
#define ZEVO_TOOLS_SAFT_MERGE_ELEMENTCOPY_H_

#include <zevo/adapters.h>

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zevo::saft {

/// The elements of a record, kept beyond the reading of the next.
class ElementCopy {
 public:
  ElementCopy() = default;
  explicit ElementCopy(std::span<const ScannedElement> elements) {
    elements_.reserve(elements.size());
    for (const ScannedElement& element : elements) {
      elements_.push_back({std::string(element.name), element.depth, std::string(element.text)});
    }
  }

  /// As a scanner gives them, but for the places. Valid as long as the copy is neither changed nor moved.
  std::vector<ScannedElement> Elements() const {
    std::vector<ScannedElement> elements;
    elements.reserve(elements_.size());
    for (const Element& each : elements_) {
      elements.push_back({.name = each.name, .depth = each.depth, .text = each.text, .place = {}});
    }
    return elements;
  }

  /// Gives the elements of a name that stand directly in the record another text.
  void SetText(std::string_view name, std::string_view text) {
    for (Element& each : elements_) {
      if (each.depth == elements_.front().depth + 1 && each.name == name) each.text = text;
    }
  }

 private:
  struct Element {
    std::string name;
    int depth;
    std::string text;
  };
  std::vector<Element> elements_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_MERGE_ELEMENTCOPY_H_
