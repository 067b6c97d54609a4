// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastSchema.h>

#include <algorithm>
#include <utility>

namespace zevo {
namespace {

constexpr size_t kContexts = 10'000;
constexpr size_t kEntries = 1'000'000;  // of the tables of patterns
constexpr size_t kStates = 50'000;
constexpr size_t kWays = 100'000;

// Thrown where the schema has more than this can say.
struct NotLaidOut {};

void Expect(bool condition) {
  if (!condition) throw NotLaidOut();
}

}  // namespace

// Lays the schema out from its global elements down.
class FastSchema::Maker {
 public:
  Maker(FastSchema& schema, const SchemaTables& tables) : schema_(schema), tables_(tables) {}

  void Make() {
    schema_.namespace_ = tables_.Namespace();
    AddState(false);
    AddState(true);
    for (const ElementDeclaration* root : tables_.Globals()) {
      const uint32_t context = Expand(*root);
      drafts_[kDocument].ways.push_back({NameOf(root->name), context, kEnd});
    }
    for (Draft& draft : drafts_) {
      schema_.states_.push_back({static_cast<uint32_t>(schema_.ways_.size()), draft.may_end});
      schema_.ways_.insert(schema_.ways_.end(), draft.ways.begin(), draft.ways.end());
    }
    schema_.states_.push_back({static_cast<uint32_t>(schema_.ways_.size()), false});
    for (size_t i = 0; i < places_.size(); ++i) schema_.contexts_[i].roles = places_[i].roles;
  }

 private:
  struct Draft {
    std::vector<Way> ways;
    bool may_end;
  };
  // What is known of a context besides.
  struct Place {
    std::vector<std::pair<Name, uint32_t>> children;  // with their contexts
    Roles* roles = nullptr;
  };

  State AddState(bool mayEnd) {
    Expect(drafts_.size() < kStates);
    drafts_.push_back({{}, mayEnd});
    return static_cast<State>(drafts_.size() - 1);
  }

  Name NameOf(const SchemaName& name) {
    auto& names = name.qualified ? schema_.qualified_ : schema_.unqualified_;
    return names.try_emplace(name.local, static_cast<Name>(schema_.qualified_.size() + schema_.unqualified_.size() + 1))
        .first->second;
  }

  const FastType* TypeOf(const std::shared_ptr<const SimpleType>& type) {
    const FastType*& known = types_[type.get()];
    if (known == nullptr) {
      known = &schema_.types_.emplace_back(type);
      entries_ += known->Entries();
      Expect(entries_ <= kEntries);
    }
    return known;
  }

  // The context of an element, with those inside it.
  uint32_t Expand(const ElementDeclaration& declaration) {
    const ElementType& type = *declaration.type;
    Expect(places_.size() < kContexts && std::ranges::find(open_, &type) == open_.end());
    const auto context = static_cast<uint32_t>(places_.size());
    places_.emplace_back();
    Context made{.content = type.content};
    if (declaration.fixed) made.fixed = &*declaration.fixed;
    if (type.content == ElementType::Content::kText) made.type = TypeOf(type.text);
    if (type.content == ElementType::Content::kElements) made.start = static_cast<State>(drafts_.size());
    schema_.contexts_.push_back(made);
    if (type.content == ElementType::Content::kElements) {
      open_.push_back(&type);
      ExpandModel(type, context);
      open_.pop_back();
    }
    if (!declaration.constraints.empty()) AddConstraints(declaration, context);
    return context;
  }

  void ExpandModel(const ElementType& type, uint32_t context) {
    const ContentModel& model = type.model;
    const auto start = static_cast<State>(drafts_.size());
    for (State state = 0; state < model.States(); ++state) AddState(model.MayEnd(state));
    for (const ElementDeclaration* child : type.children) {
      const uint32_t inside = Expand(*child);
      places_[context].children.emplace_back(NameOf(child->name), inside);
    }
    for (State state = 0; state < model.States(); ++state) {
      for (const ContentModel::State next : model.Following(state)) {
        const auto& [name, inside] = places_[context].children[model.ChildOf(next)];
        drafts_[start + state].ways.push_back({name, inside, start + next});
        Expect(++ways_ <= kWays);
      }
    }
  }

  Roles& RolesOf(uint32_t context) {
    Roles*& roles = places_[context].roles;
    if (roles == nullptr) roles = &schema_.roles_.emplace_back();
    return *roles;
  }

  void AddConstraints(const ElementDeclaration& declaration, uint32_t scope) {
    const auto first = static_cast<uint32_t>(schema_.constraints_.size());
    for (const IdentityConstraint& constraint : declaration.constraints) {
      const auto number = static_cast<uint32_t>(schema_.constraints_.size());
      const auto fields = static_cast<uint32_t>(constraint.fields.size());
      schema_.constraints_.push_back({.kind = constraint.kind,
                                      .first_field = schema_.fields_,
                                      .fields = fields,
                                      .refers_to = first + static_cast<uint32_t>(constraint.refers_to)});
      schema_.fields_ += fields;
      RolesOf(scope).scopes.push_back({number});
      const auto selected = Walk(scope, constraint.selector);
      if (!selected) continue;
      RolesOf(*selected).selected.push_back({number});
      for (uint32_t i = 0; i < fields; ++i) {
        const auto field = Walk(*selected, constraint.fields[i]);
        if (!field) continue;
        const FastType* const type = schema_.contexts_[*field].type;
        Expect(type != nullptr && type->HasKeys());
        RolesOf(*field).fields.push_back({number, i});
      }
    }
  }

  // Nothing where a path leads to no element.
  std::optional<uint32_t> Walk(uint32_t context, const IdentityConstraint::Path& path) {
    for (const SchemaName& step : path) {
      const auto& children = places_[context].children;
      const auto found = std::ranges::find(children, NameOf(step), &std::pair<Name, uint32_t>::first);
      if (found == children.end()) return std::nullopt;
      context = found->second;
    }
    return context;
  }

  FastSchema& schema_;
  const SchemaTables& tables_;
  std::vector<Draft> drafts_;  // of states
  std::vector<Place> places_;  // of contexts
  std::vector<const ElementType*> open_;
  std::map<const SimpleType*, const FastType*> types_;
  size_t ways_ = 0;
  size_t entries_ = 0;
};

std::unique_ptr<const FastSchema> FastSchema::Of(const SchemaTables& tables) {
  auto schema = std::make_unique<FastSchema>();
  try {
    Maker(*schema, tables).Make();
  } catch (const NotLaidOut&) {
    return nullptr;
  }
  return schema;
}

FastSchema::Name FastSchema::Find(std::string_view local, bool qualified) const {
  const auto& names = qualified ? qualified_ : unqualified_;
  const auto found = names.find(local);
  return found == names.end() ? kNoName : found->second;
}

}  // namespace zevo
