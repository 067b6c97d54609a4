// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_SCHEMAFACTS_H_
#define ZEVO_FACADES_SCHEMAFACTS_H_

#include <zevo/Api.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// What a schema says of an element at one place of the file.
struct ElementFacts {
  /// Whether it must be there wherever the element around it is. One of a choice that must be there counts as required:
  /// `in_choice` tells.
  bool required = false;
  /// Whether it is one of several of which only one may be there.
  bool in_choice = false;
  /// The built-in type that its text is restricted from, without a prefix: "string", "integer", "decimal", "date",
  /// "dateTime"; empty where the schema names none, as for an element with others inside.
  std::string type;
  /// The least length of the text in characters.
  std::optional<int32_t> min_length;
  /// The greatest length of the text in characters.
  std::optional<int32_t> max_length;
  /// The least value, as the schema has it: "2000-01-01", "1"; empty without.
  std::string least;
  /// The greatest value; empty without.
  std::string greatest;
  /// The values allowed, where the schema lists them.
  std::vector<std::string> values;
  /// The patterns, in the language of XML Schema, each of which the text must match as a whole.
  std::vector<std::string> patterns;
  /// The only value allowed, which an empty element has too.
  std::optional<std::string> fixed;
};

/// What the schema in use says of the elements of a file: for programs that tell people, or check beforehand, what a
/// file needs. Content in sequences, choices and "all" is known, not what stands in groups or is an extension. An
/// object is used by one thread at a time.
class ZEVO_API SchemaFacts {
 public:
  /// Reads the schema that `Options` names on this thread, or the built-in one. Raises error 53 without a schema, what
  /// reading a file raises, and the parser's number and reason for what is not well-formed.
  SchemaFacts();
  SchemaFacts(const SchemaFacts&) = delete;
  SchemaFacts& operator=(const SchemaFacts&) = delete;
  ~SchemaFacts();

  /// The facts of the element at a path such as "/AuditFile/MasterFiles/Customer/BillingAddress/City", letter case
  /// included; nothing where the schema has no such element.
  std::optional<ElementFacts> Of(std::string_view path) const;

 private:
  class Declarations;
  std::unique_ptr<const Declarations> declarations_;
};

}  // namespace zevo

#endif  // ZEVO_FACADES_SCHEMAFACTS_H_
