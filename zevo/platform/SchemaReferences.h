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
/// may be long, so nothing here calls itself.
class SchemaReferences {
 public:
  /// Throws SchemaLimits::Passed where chains of references are too long, or what comes out, where definitions are put
  /// for each other's names, is too large. `schema` is the root of a document that must outlive this.
  explicit SchemaReferences(Element schema);
  SchemaReferences(const SchemaReferences&) = delete;
  SchemaReferences& operator=(const SchemaReferences&) = delete;

  /// All definitions, what is referred to before what refers to it. Where references lead in a circle, one of them is
  /// left out of account.
  const std::vector<Element>& InOrder() const { return order_; }

  /// The first definition of a name whose kind is one of `kinds`, such as "simpleType", or nothing. The name may have a
  /// prefix.
  Element Find(std::string_view name, std::initializer_list<std::string_view> kinds) const;

 private:
  struct Definition {
    struct Reference {
      Definition* to;
      int depth;      // of the element that refers
      bool takes_in;  // what it refers to is put for it
    };
    enum class State { kUnseen, kOpen, kDone };

    Element node;
    std::vector<Reference> references;
    State state = State::kUnseen;
    size_t next = 0;  // the reference to follow
    // With what is referred to. Before that, without.
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
