// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_SCHEMAREFERENCES_H_
#define ZEVO_PLATFORM_SCHEMAREFERENCES_H_

#include <zevo/TextHash.h>
#include <zevo/platform/Document.h>

#include <cstddef>
#include <deque>
#include <initializer_list>
#include <string_view>
#include <vector>

namespace zevo {

/// The definitions of a schema, what is directly under its root, and how they refer to each other. Chains of references
/// may be long, so no function here is recursive.
class SchemaReferences {
 public:
  /// Throws SchemaLimits::Passed where a chain of references is too long, or where there would be too many elements
  /// once every reference is replaced by the definition it names. `schema` is the root of a document that must outlive
  /// this.
  explicit SchemaReferences(Element schema);
  SchemaReferences(const SchemaReferences&) = delete;
  SchemaReferences& operator=(const SchemaReferences&) = delete;

  /// All definitions, each after those that it refers to. Where references lead in a circle, the one that closes it
  /// does not count.
  const std::vector<Element>& InOrder() const { return order_; }

  /// The first definition of a name whose kind is one of `kinds`, such as "simpleType", or nothing. The name may have a
  /// prefix.
  Element Find(std::string_view name, std::initializer_list<std::string_view> kinds) const;

 private:
  struct Definition {
    struct Reference {
      Definition* to;
      int depth;      // of the element that refers
      bool takes_in;  // the reference is replaced by the definition: a group, a base type
    };
    enum class State { kUnseen, kOpen, kDone };

    Element node;
    std::vector<Reference> references;
    State state = State::kUnseen;
    size_t next = 0;  // the reference to follow
    // Of the definition alone until it is finished; then with all that it refers to.
    int chain = 0;
    int nesting = 0;
    double elements = 0;
  };

  void Collect(Element schema);
  void FindReferencesOf(Definition& definition);
  void RequireShortChains();
  void Finish(Definition& definition);

  std::deque<Definition> definitions_;
  TextMap<std::vector<Definition*>> by_name_;  // one of each kind
  std::vector<Element> order_;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_SCHEMAREFERENCES_H_
