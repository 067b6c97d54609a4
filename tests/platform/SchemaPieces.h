// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_SCHEMAPIECES_H_
#define ZEVO_TESTS_PLATFORM_SCHEMAPIECES_H_

#include <string>
#include <string_view>

namespace zevo::testing {

/// A schema for the namespace urn:t with this content.
inline std::string SchemaOfUrnT(std::string_view content) {
  return std::string("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns='urn:t' targetNamespace='urn:t'>")
      .append(content)
      .append("</xs:schema>");
}

/// A piece of text for each number; "#" stands for the number and "+" for the next.
inline std::string Each(int count, std::string_view piece) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    for (const char c : piece) {
      if (c == '#' || c == '+') {
        text += std::to_string(c == '#' ? i : i + 1);
      } else {
        text += c;
      }
    }
  }
  return text;
}

/// A complex type.
inline std::string Type(std::string_view name, std::string_view content) {
  return std::string("<xs:complexType name='").append(name).append("'>").append(content).append("</xs:complexType>");
}

/// `occurs` are attributes.
inline std::string Sequence(std::string_view content, std::string_view occurs = {}) {
  return std::string("<xs:sequence ").append(occurs).append(">").append(content).append("</xs:sequence>");
}

/// Elements that need not be there.
inline std::string Optional(int count) { return Each(count, "<xs:element name='e#' minOccurs='0'/>"); }

/// A simple type.
inline std::string Restriction(std::string_view name, std::string_view base, std::string_view facets) {
  return std::string("<xs:simpleType name='")
      .append(name)
      .append("'><xs:restriction base='")
      .append(base)
      .append("'>")
      .append(facets)
      .append("</xs:restriction></xs:simpleType>");
}

/// The simple type `t`, a text of this pattern.
inline std::string Pattern(std::string_view expression) {
  return Restriction("t", "xs:string", std::string("<xs:pattern value='").append(expression).append("'/>"));
}
}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_SCHEMAPIECES_H_
