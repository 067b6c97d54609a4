// SPDX-License-Identifier: Apache-2.0
#include "tests/dal/XmlTree.h"

#include <gtest/gtest.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include <memory>

namespace zevo::testing {
namespace {

std::string Copy(const xmlChar* text) { return text == nullptr ? "" : reinterpret_cast<const char*>(text); }

std::string QualifiedName(const xmlNs* space, const xmlChar* name) {
  return space == nullptr || space->prefix == nullptr ? Copy(name) : Copy(space->prefix) + ":" + Copy(name);
}

XmlNode::Kind KindOf(const xmlNode* node) {
  switch (node->type) {
    case XML_DOCUMENT_NODE:
      return XmlNode::Kind::kDocument;
    case XML_ELEMENT_NODE:
      return XmlNode::Kind::kElement;
    case XML_TEXT_NODE:
      return XmlNode::Kind::kText;
    case XML_CDATA_SECTION_NODE:
      return XmlNode::Kind::kCData;
    case XML_COMMENT_NODE:
      return XmlNode::Kind::kComment;
    case XML_PI_NODE:
      return XmlNode::Kind::kInstruction;
    default:
      ADD_FAILURE() << "a node of kind " << node->type;
      return XmlNode::Kind::kText;
  }
}

XmlNode Convert(xmlNode* from) {
  XmlNode node;
  node.kind = KindOf(from);
  const bool hasContent = node.kind == XmlNode::Kind::kElement || node.kind == XmlNode::Kind::kDocument;
  if (node.kind == XmlNode::Kind::kElement) {
    node.name = Copy(from->name);
    if (from->ns != nullptr) {
      node.prefix = Copy(from->ns->prefix);
      node.namespace_uri = Copy(from->ns->href);
    }
    for (const xmlNs* space = from->nsDef; space != nullptr; space = space->next) {
      node.declarations.emplace_back(Copy(space->prefix), Copy(space->href));
    }
    for (xmlAttr* attribute = from->properties; attribute != nullptr; attribute = attribute->next) {
      xmlChar* value = xmlNodeListGetString(from->doc, attribute->children, 1);
      node.attributes.emplace_back(QualifiedName(attribute->ns, attribute->name), Copy(value));
      xmlFree(value);
    }
  }
  if (node.kind == XmlNode::Kind::kInstruction) node.name = Copy(from->name);
  if (!hasContent) node.text = Copy(from->content);
  for (xmlNode* child = hasContent ? from->children : nullptr; child != nullptr; child = child->next) {
    node.children.push_back(Convert(child));
  }
  return node;
}

std::string EscapedText(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

void DumpTo(const XmlNode& node, const std::string& indent, std::string& dump) {
  static constexpr const char* kKinds[] = {"document", "element", "text", "cdata", "comment", "instruction"};
  dump += indent + kKinds[static_cast<int>(node.kind)];
  if (!node.prefix.empty()) dump += " " + node.prefix + ":";
  if (!node.name.empty()) dump += " " + node.name;
  if (!node.namespace_uri.empty()) dump += " in " + node.namespace_uri;
  for (const auto& [prefix, uri] : node.declarations) dump.append(" xmlns:").append(prefix).append("=").append(uri);
  for (const auto& [name, value] : node.attributes) dump.append(" @").append(name).append("=[").append(value) += "]";
  if (!node.text.empty()) dump += " [" + node.text + "]";
  dump += "\n";
  for (const XmlNode& child : node.children) DumpTo(child, indent + "  ", dump);
}

}  // namespace

const XmlNode& XmlNode::Child(std::string_view wanted) const {
  for (const XmlNode& child : children) {
    if (child.kind == Kind::kElement && child.name == wanted) return child;
  }
  ADD_FAILURE() << "no " << wanted << " under " << name;
  static const XmlNode none;
  return none;
}

std::string XmlNode::Text() const {
  std::string joined;
  for (const XmlNode& child : children) {
    if (child.kind == Kind::kText || child.kind == Kind::kCData) joined += child.text;
  }
  return joined;
}

XmlNode ParseXml(std::string_view bytes) {
  const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
      xmlReadMemory(bytes.data(), static_cast<int>(bytes.size()), "test", nullptr,
                    XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_HUGE),
      &xmlFreeDoc);
  if (!document) {
    ADD_FAILURE() << "not well-formed: " << bytes;
    return {};
  }
  return Convert(reinterpret_cast<xmlNode*>(document.get()));
}

std::string Dump(const XmlNode& node) {
  std::string dump;
  DumpTo(node, "", dump);
  return dump;
}

std::string Content(const XmlNode& node) {
  bool hasElements = false;
  for (const XmlNode& child : node.children) hasElements |= child.kind == XmlNode::Kind::kElement;
  if (!hasElements) return EscapedText(node.Text());
  std::string content;
  for (const XmlNode& child : node.children) {
    if (child.kind != XmlNode::Kind::kElement) continue;
    const std::string inner = Content(child);
    content += inner.empty() ? "<" + child.name + "/>" : "<" + child.name + ">" + inner + "</" + child.name + ">";
  }
  return content;
}

}  // namespace zevo::testing
