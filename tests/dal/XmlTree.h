// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_DAL_XMLTREE_H_
#define ZEVO_TESTS_DAL_XMLTREE_H_

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zevo::testing {

/// A node of a document as libxml2's own tree reads it: what other software finds in a file.
struct XmlNode {
  enum class Kind { kDocument, kElement, kText, kCData, kComment, kInstruction };

  Kind kind = Kind::kDocument;
  std::string name;           ///< local name of an element, target of an instruction
  std::string prefix;         ///< of an element
  std::string namespace_uri;  ///< of an element
  std::string text;           ///< of any other node
  std::vector<std::pair<std::string, std::string>> declarations;  ///< prefix, empty for the default one, and URI
  std::vector<std::pair<std::string, std::string>> attributes;    ///< qualified name and value
  std::vector<XmlNode> children;

  /// The only element directly under this one, or the first of that name. Fails the test when there is none.
  const XmlNode& Child(std::string_view name) const;
  /// The texts directly under this one, joined.
  std::string Text() const;
};

/// Fails the test when the bytes are not a well-formed document.
XmlNode ParseXml(std::string_view bytes);

/// Everything that a document holds, one node a line, with the namespaces of its elements.
std::string Dump(const XmlNode& node);

/// The elements and texts under a node, as XML without attributes, prefixes and white space between elements.
std::string Content(const XmlNode& node);

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_DAL_XMLTREE_H_
