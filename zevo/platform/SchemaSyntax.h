// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SCHEMASYNTAX_H_
#define ZEVO_PLATFORM_SCHEMASYNTAX_H_

#include <zevo/platform/Document.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string_view>

namespace zevo {

// How a schema document is written.

/// The value of an attribute, empty where there is none.
inline std::string_view ValueOf(Element element, std::string_view attribute) {
  return element.Attribute(attribute).value_or(std::string_view());
}

/// A qualified name without its prefix: definitions are known by what follows it.
inline std::string_view WithoutPrefix(std::string_view name) { return name.substr(name.find(':') + 1); }

/// Calls `action` with each name in a list of qualified names, without its prefix.
template <class Action>
void ForEachName(std::string_view list, Action&& action) {
  constexpr std::string_view kSpaces = " \t\r\n";
  for (size_t begin; (begin = list.find_first_not_of(kSpaces)) != std::string_view::npos;) {
    list.remove_prefix(begin);
    const std::string_view name = list.substr(0, list.find_first_of(kSpaces));
    list.remove_prefix(name.size());
    action(WithoutPrefix(name));
  }
}

inline int CountNames(std::string_view list) {
  int count = 0;
  ForEachName(list, [&](std::string_view) { ++count; });
  return count;
}

inline bool IsOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
  return std::ranges::find(names, name) != names.end();
}

/// The attributes by which a simple type names those that it is made of.
inline constexpr std::string_view kBaseAttributes[] = {"base", "itemType", "memberTypes"};

/// Calls `action` with an element and all elements inside it, in the order of the document.
template <class Action>
void ForEachElement(Element root, Action&& action) {
  const Document& document = root.Owner();
  for (Node* node = root.node(); node != nullptr; node = document.Following(node, root.node())) {
    if (node->Kind() == NodeKind::kElement) action(Element(node));
  }
}

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMASYNTAX_H_
