// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_PLATFORM_FASTPATH_FASTSCHEMA_H_
#define ZEVO_PLATFORM_FASTPATH_FASTSCHEMA_H_

#include <zevo/TextHash.h>
#include <zevo/platform/SchemaTables.h>
#include <zevo/platform/fastpath/FastType.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

/// A schema laid out for a walk that decides as little as it can. Every place that an element may have in a document is
/// a context: what an element is, and what it is to keys, follows from its context alone. States are those of all
/// content models, one after the other; a way leads from one to the next by the name of a child. Never changes.
class FastSchema {
 public:
  using Name = uint32_t;
  using State = uint32_t;

  /// Of elements that the schema does not have.
  static constexpr Name kNoName = 0;
  /// Before the root, and without a way on, as in an element with a text.
  static constexpr State kDocument = 0;
  static constexpr State kEnd = 1;

  /// A part that elements of a context have in a key.
  struct Role {
    uint32_t constraint;
    uint32_t field = 0;
  };
  struct Roles {
    std::vector<Role> scopes;    // the element has the constraint
    std::vector<Role> selected;  // its fields make a key or a reference
    std::vector<Role> fields;
  };
  struct Context {
    ElementType::Content content = ElementType::Content::kNothing;
    State start = kEnd;
    const FastType* type = nullptr;      // of a text
    const std::string* fixed = nullptr;  // the only text
    const Roles* roles = nullptr;
  };
  struct Way {
    Name name;
    uint32_t context;
    State next;
  };
  struct Constraint {
    IdentityConstraint::Kind kind;
    uint32_t first_field;  // among the fields of all constraints
    uint32_t fields;
    uint32_t refers_to = 0;  // of a reference: the key
  };

  /// Null for a schema that has more than this can say: elements inside themselves, too many contexts, keys that are
  /// neither texts nor numbers. Refers to the tables, which must outlive it.
  static std::unique_ptr<const FastSchema> Of(const SchemaTables& tables);

  FastSchema() = default;
  FastSchema(const FastSchema&) = delete;
  FastSchema& operator=(const FastSchema&) = delete;

  /// Empty where there is none.
  std::string_view Namespace() const { return namespace_; }
  /// `qualified` is whether it is in the schema's namespace.
  Name Find(std::string_view local, bool qualified) const;
  /// Null where no such element may come.
  const Way* Follow(State state, Name name) const {
    const Way* const end = ways_.data() + states_[state + 1].first_way;
    for (const Way* way = ways_.data() + states_[state].first_way; way != end; ++way) {
      if (way->name == name) return way;
    }
    return nullptr;
  }
  bool MayEnd(State state) const { return states_[state].may_end; }
  const Context& At(uint32_t context) const { return contexts_[context]; }
  const std::vector<Constraint>& Constraints() const { return constraints_; }
  /// Of all constraints.
  uint32_t Fields() const { return fields_; }

 private:
  class Maker;

  struct StateRow {
    uint32_t first_way;
    bool may_end;
  };

  std::string_view namespace_;
  TextMap<Name> qualified_;
  TextMap<Name> unqualified_;
  std::vector<StateRow> states_;  // and one that ends the last
  std::vector<Way> ways_;
  std::vector<Context> contexts_;
  std::deque<FastType> types_;
  std::deque<Roles> roles_;
  std::vector<Constraint> constraints_;
  uint32_t fields_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_PLATFORM_FASTPATH_FASTSCHEMA_H_
