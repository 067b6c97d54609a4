// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SELECTION_H_
#define ZEVO_PLATFORM_SELECTION_H_

#include <zevo/platform/Document.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// A selection of elements by an expression: names of children, one below the other with "/" between them, or "//" in
/// front of the first for all elements under the base's document; the last may carry a predicate that asks for a
/// child's whole text, as in `Journal[JournalID = "A"]`. Names are local names. Any other expression is an error (1207,
/// the number that libxml2 gives an invalid expression) and never selects more than it says.
class Selection {
 public:
  explicit Selection(std::string_view expression);

  Element First(Element base) const;
  /// In the order of the document.
  std::vector<Element> All(Element base) const;

 private:
  struct Predicate {
    std::string child;
    std::string text;
  };

  bool Matches(Element element) const;
  bool EndsInSteps(Element element) const;
  template <class Visitor>
  bool Visit(Element base, size_t step, Visitor& visitor) const;
  template <class Visitor>
  void VisitAll(Element base, Visitor visitor) const;

  bool anywhere_ = false;
  std::vector<std::string> steps_;
  std::optional<Predicate> predicate_;
};

/// The first element that a name, with a query put behind it, selects under `base`. Quicker than a Selection where the
/// name is no more than that.
Element SelectFirst(Element base, std::string_view name, std::string_view query);

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SELECTION_H_
