// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_PLATFORM_SCHEMAOF_H_
#define ZEVO_TESTS_PLATFORM_SCHEMAOF_H_

#include <string>
#include <string_view>

namespace zevo::testing {

/// A schema for no namespace with this content.
inline std::string SchemaOf(std::string_view content) {
  return std::string("<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">")
      .append(content)
      .append("</xs:schema>");
}

/// One whose only element is `a`, a text of this pattern.
inline std::string SchemaOfPattern(std::string_view pattern) {
  return SchemaOf("<xs:element name='a'><xs:simpleType><xs:restriction base='xs:string'><xs:pattern value='" +
                  std::string(pattern) + "'/></xs:restriction></xs:simpleType></xs:element>");
}

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_PLATFORM_SCHEMAOF_H_
