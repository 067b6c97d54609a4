// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_SCHEMA_XMLPARTS_H_
#define ZEVO_TESTS_SCHEMA_XMLPARTS_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zevo::testing {

/// An element that can be changed at will, and written down as it then is.
struct XmlPart {
  std::string name;
  std::string attributes;  // with a blank in front
  std::string text;        // behind the start tag
  std::vector<XmlPart> children;

  bool IsText() const { return children.empty(); }

  /// Each element begins a line.
  void Write(std::string& out) const {
    out.append("<").append(name).append(attributes).append(">").append(text);
    for (const XmlPart& child : children) child.Write(out += '\n');
    out.append("</").append(name).append(">");
  }
};

/// Reads an element off the front of a text that has elements and texts only.
inline XmlPart TakePart(std::string_view& text) {
  XmlPart part;
  text.remove_prefix(text.find('<') + 1);
  const std::string_view tag = text.substr(0, text.find('>'));
  part.name = tag.substr(0, tag.find(' '));
  part.attributes = tag.substr(part.name.size());
  text.remove_prefix(tag.size() + 1);
  const std::string_view content = text.substr(0, text.find('<'));
  while (text[text.find('<') + 1] != '/') part.children.push_back(TakePart(text));
  if (part.children.empty()) part.text = content;
  text.remove_prefix(text.find('>') + 1);
  return part;
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_SCHEMA_XMLPARTS_H_
