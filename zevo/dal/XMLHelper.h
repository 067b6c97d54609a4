// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DAL_XMLHELPER_H_
#define ZEVO_DAL_XMLHELPER_H_

#include <zevo/dal/ElementName.h>
#include <zevo/platform/Document.h>

#include <array>
#include <bitset>
#include <cstddef>
#include <string>
#include <string_view>

namespace zevo {

/// The text of the first element of a name anywhere in the serialised XML of a node: what stands between the first
/// start tag without attributes and prefix, as letters go, and the next markup, unescaped; line breaks of every kind
/// and tabs become spaces, one each, and spaces at the ends go away. Empty when there is no such tag.
std::string ElementText(std::string_view name, Element node);

/// The same for many names of one node, without serialising it: the tree is walked once, no further than asked for.
/// Only where it holds comments, CDATA sections or instructions, in which a tag could hide, is the serialised XML
/// searched. The document must number its names as kElementNames does, and must not change meanwhile.
class ElementTexts {
 public:
  explicit ElementTexts(Element node);

  /// Valid until the next call.
  std::string_view operator[](ElementName name);

 private:
  static constexpr size_t kNames = kElementNames.size() + 1;

  uint32_t Note(const Node& node);
  const Node* WalkTo(uint32_t name);
  std::string_view Cleaned(std::string_view text);
  std::string_view Searched(ElementName name);

  Element node_;
  const Node* walked_;  // the last node seen; null at the end of the tree
  bool hides_tags_ = false;
  std::bitset<kNames> noted_;
  // The first node of each name noted; the others are left as they are, which is cheaper than clearing them all for
  // each record.
  std::array<const Node*, kNames> first_;
  std::string cleaned_;
};

}  // namespace zevo

#endif  // ZEVO_DAL_XMLHELPER_H_
