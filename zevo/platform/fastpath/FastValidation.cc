// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastValidation.h>

#include <zevo/platform/Text.h>

#include <algorithm>
#include <cstring>

namespace zevo {
namespace {

using Content = ElementType::Content;

// Of a name that was not looked up yet.
constexpr FastSchema::Name kNotYet = UINT32_MAX;

bool IsLocation(std::string_view name) { return name == "schemaLocation" || name == "noNamespaceSchemaLocation"; }

}  // namespace

FastValidation::FastValidation(const FastSchema& schema)
    : schema_(schema), tuples_(schema.Fields()), keys_(schema.Constraints().size()) {}

bool FastValidation::StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) {
  if (!attributes.empty() && (!open_.empty() || !TakeAttributes(attributes))) return false;
  const FastSchema::Way* const way = schema_.Follow(state_, NameOf(name));
  if (way == nullptr) return false;
  open_.push_back({context_, way->next});
  context_ = &schema_.At(way->context);
  state_ = context_->start;
  text_.clear();
  if (context_->roles != nullptr) Begin(*context_->roles);
  return true;
}

bool FastValidation::EndElement() {
  const Context& context = *context_;
  if (context.content == Content::kText || context.content == Content::kAnything) {
    if (!Takes(context, text_) || !TakeFields(context, text_)) return false;
  } else if (!schema_.MayEnd(state_)) {
    return false;
  }
  if (context.roles != nullptr && !End(*context.roles)) return false;
  context_ = open_.back().context;
  state_ = open_.back().state;
  open_.pop_back();
  return true;
}

bool FastValidation::Leaf(const ParsedName& name, std::string_view text) {
  const FastSchema::Way* const way = schema_.Follow(state_, NameOf(name));
  if (way == nullptr) return false;
  const Context& context = schema_.At(way->context);
  // What is no text is rare.
  if (context.content != Content::kText) {
    return StartElement(name, {}) && (text.empty() || Characters(text)) && EndElement();
  }
  if (!Takes(context, text)) return false;
  state_ = way->next;
  if (context.roles == nullptr) return true;
  Begin(*context.roles);
  return TakeFields(context, text) && End(*context.roles);
}

bool FastValidation::Characters(std::string_view text) {
  switch (context_->content) {
    case Content::kText:
    case Content::kAnything:
      text_ += text;
      return true;
    case Content::kElements:
      return IsWhiteSpace(text);
    case Content::kNothing:
      return text.empty();
  }
  return false;
}

bool FastValidation::Takes(const Context& context, std::string_view text) {
  // An element without a text has the fixed one. Whether that is one of its type is left to libxml2.
  if (context.fixed != nullptr && text != *context.fixed) return text.empty() && context.type == nullptr;
  return context.type == nullptr || context.type->Takes(text);
}

FastSchema::Name FastValidation::NameOf(const ParsedName& name) {
  if (name.number >= names_.size()) names_.resize(name.number + 1, kNotYet);
  FastSchema::Name& known = names_[name.number];
  if (known == kNotYet) known = Find(name);
  return known;
}

FastSchema::Name FastValidation::Find(const ParsedName& name) const {
  const auto uri = NamespaceOf(name.prefix == nullptr ? "" : name.prefix);
  if (!uri) return FastSchema::kNoName;
  if (uri->empty()) return schema_.Find(name.local, false);
  return *uri == schema_.Namespace() ? schema_.Find(name.local, true) : FastSchema::kNoName;
}

std::optional<std::string_view> FastValidation::NamespaceOf(std::string_view prefix) const {
  const auto bound = std::ranges::find(bindings_, prefix, &Binding::prefix);
  if (bound != bindings_.end()) return bound->uri;
  return prefix.empty() ? std::optional(std::string_view()) : std::nullopt;
}

// Declarations come before other attributes. Of those, libxml2 looks at no location, whatever it says.
bool FastValidation::TakeAttributes(std::span<const ParsedAttribute> attributes) {
  for (const auto& [name, value] : attributes) {
    const bool bare = name.prefix == nullptr;
    if (std::string_view(bare ? name.local : name.prefix) == "xmlns") {
      bindings_.push_back({bare ? "" : name.local, std::string(value)});
    } else if (bare || NamespaceOf(name.prefix) != kInstanceNamespace || !IsLocation(name.local)) {
      return false;
    }
  }
  return true;
}

void FastValidation::Begin(const FastSchema::Roles& roles) {
  for (const Role& role : roles.selected) {
    const FastSchema::Constraint& constraint = schema_.Constraints()[role.constraint];
    std::fill_n(tuples_.begin() + constraint.first_field, constraint.fields, Digest{});
  }
}

bool FastValidation::TakeFields(const Context& context, std::string_view text) {
  if (context.roles == nullptr || context.roles->fields.empty()) return true;
  const auto key = text.empty() ? std::nullopt : context.type->KeyOf(text);
  if (!key) return false;
  return std::ranges::all_of(context.roles->fields, [&](const Role& role) {
    Digest& field = tuples_[schema_.Constraints()[role.constraint].first_field + role.field];
    if (field != Digest{}) return false;
    field = *key;
    return true;
  });
}

bool FastValidation::End(const FastSchema::Roles& roles) {
  return std::ranges::all_of(roles.selected, [&](const Role& role) { return CompleteTuple(role); }) &&
         CloseScopes(roles.scopes);
}

bool FastValidation::CompleteTuple(const Role& role) {
  const FastSchema::Constraint& constraint = schema_.Constraints()[role.constraint];
  const auto fields = std::span(tuples_).subspan(constraint.first_field, constraint.fields);
  // A key must be whole; without a field, unique values and references are none.
  if (std::ranges::find(fields, Digest{}) != fields.end()) return constraint.kind != IdentityConstraint::Kind::kKey;
  const Digest tuple =
      fields.size() == 1 ? fields[0] : KeyedDigest({reinterpret_cast<const char*>(fields.data()), fields.size_bytes()});
  DigestSet& keys = keys_[role.constraint];
  if (constraint.kind != IdentityConstraint::Kind::kReference) return keys.Add(tuple);
  if (!keys_[constraint.refers_to].Has(tuple)) keys.Add(tuple);
  return true;
}

bool FastValidation::CloseScopes(std::span<const Role> scopes) {
  for (const Role& role : scopes) {
    const FastSchema::Constraint& constraint = schema_.Constraints()[role.constraint];
    if (constraint.kind != IdentityConstraint::Kind::kReference) continue;
    if (!keys_[constraint.refers_to].HasAllOf(keys_[role.constraint])) return false;
  }
  for (const Role& role : scopes) keys_[role.constraint] = DigestSet();
  return true;
}

}  // namespace zevo
