// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SCHEMATABLES_H_
#define ZEVO_PLATFORM_SCHEMATABLES_H_

#include <zevo/TextHash.h>
#include <zevo/platform/ContentModel.h>
#include <zevo/platform/SimpleType.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

struct ElementType;

/// Of the attributes with which a file speaks of its schema.
inline constexpr std::string_view kInstanceNamespace = "http://www.w3.org/2001/XMLSchema-instance";

/// What an element is called, as far as a schema tells names apart: its local name, and whether it is in the namespace
/// of the schema. Where the schema has none, no name is.
struct SchemaName {
  std::string local;
  bool qualified = false;

  friend bool operator==(const SchemaName&, const SchemaName&) = default;
};

/// A key, a list of unique values, or references to a key.
struct IdentityConstraint {
  enum class Kind : uint8_t { kUnique, kKey, kReference };
  using Path = std::vector<SchemaName>;  // of elements, from the parent down

  Kind kind;
  Path selector;
  std::vector<Path> fields;
  size_t refers_to = 0;  // of a reference: the key, among those of the same element
};

struct ElementDeclaration {
  SchemaName name;
  const ElementType* type = nullptr;
  std::optional<std::string> fixed = {};
  std::vector<IdentityConstraint> constraints = {};
};

struct ElementType {
  enum class Content : uint8_t {
    kAnything,
    kText,
    kElements,
    kNothing,
  };

  Content content = Content::kNothing;
  std::shared_ptr<const SimpleType> text = {};           // of a text
  ContentModel model = {};                               // of elements
  std::vector<const ElementDeclaration*> children = {};  // by their numbers in the model
  std::vector<bool> repeats = {};                        // by the same: whether there may be several
  TextMap<ContentModel::Child> by_name = {};             // of elements in the schema's namespace
  TextMap<ContentModel::Child> by_unqualified_name = {};

  std::optional<ContentModel::Child> Find(std::string_view local, bool qualified) const;
};

/// A schema as data, for walks over files that must tell more than whether a file is valid. It is made from a schema
/// that libxml2 has compiled, and never changes.
class SchemaTables {
 public:
  /// Null for a schema that has more than these tables can say: other content than sequences and choices of elements,
  /// or texts; attributes; types derived by more than restriction of one simple type; elements that stand for others,
  /// or may be nil; defaults; identities by other paths than child by child.
  static std::unique_ptr<const SchemaTables> Of(std::string_view schema);
  /// The same of one that LoadSchemaDocument has read into a document.
  static std::unique_ptr<const SchemaTables> Of(std::string_view schema, const Document& document);

  SchemaTables() = default;
  SchemaTables(const SchemaTables&) = delete;
  SchemaTables& operator=(const SchemaTables&) = delete;

  /// Empty where there is none.
  const std::string& Namespace() const { return namespace_; }
  /// A global declaration, or null.
  const ElementDeclaration* Find(std::string_view local, bool qualified) const;
  /// All global declarations, in the order of the schema.
  const std::vector<const ElementDeclaration*>& Globals() const { return globals_; }

 private:
  class Maker;

  std::string namespace_;
  std::deque<ElementDeclaration> declarations_;
  std::deque<ElementType> types_;
  std::vector<const ElementDeclaration*> globals_;
  TextMap<const ElementDeclaration*> global_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMATABLES_H_
