// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TESTS_MODEL_SCHEMATEXT_H_
#define ZEVO_TESTS_MODEL_SCHEMATEXT_H_

#include <zevo/model/Options.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo::testing {

/// A schema document of those declarations.
inline std::string SchemaOf(std::string_view declarations) {
  std::string text = R"(<?xml version="1.0"?><xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">)";
  return text.append(declarations).append("</xs:schema>");
}

/// A simple type with a greatest length.
inline std::string LimitedType(std::string_view name, std::string_view maxLength) {
  std::string text = R"(<xs:simpleType name=")";
  text.append(name).append(R"("><xs:restriction base="xs:string"><xs:maxLength value=")").append(maxLength);
  return text.append(R"("/></xs:restriction></xs:simpleType>)");
}

/// The declarations around and of the element at a path, such as "/AuditFile/Header/City": a global one when the path
/// has a single step.
inline std::string ElementAt(std::string_view path, std::string_view type) {
  const size_t end = path.find('/', 1);
  std::string text = R"(<xs:element name=")";
  text.append(path.substr(1, end == std::string_view::npos ? end : end - 1));
  if (end == std::string_view::npos) return text.append(R"(" type=")").append(type).append(R"("/>)");
  text.append(R"("><xs:complexType><xs:sequence>)").append(ElementAt(path.substr(end), type));
  return text.append("</xs:sequence></xs:complexType></xs:element>");
}

/// A schema that limits the elements at those paths, each to its own length.
inline std::string SchemaLimiting(std::initializer_list<std::pair<std::string_view, std::string_view>> limits) {
  std::string text;
  for (const auto& [path, maxLength] : limits) {
    const std::string type = "Limit" + std::string(maxLength);
    text.append(LimitedType(type, maxLength)).append(ElementAt(path, type));
  }
  return SchemaOf(text);
}

/// Sets the options of the thread to a schema of that text with checks on, and puts back what they were.
class UseSchemaText {
 public:
  explicit UseSchemaText(std::string_view text) {
    Options().set_SchemaLocation(folder_.Write("schema.xsd", text));
    Options().set_ValidateOnAssignment(true);
  }

 private:
  TemporaryFolder folder_;
  UseSchema restored_;
};

}  // namespace zevo::testing

#endif  // ZEVO_TESTS_MODEL_SCHEMATEXT_H_
