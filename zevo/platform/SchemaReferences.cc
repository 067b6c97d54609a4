// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SchemaReferences.h>

#include <zevo/platform/SchemaLimits.h>
#include <zevo/platform/SchemaSyntax.h>

#include <algorithm>
#include <string>

namespace zevo {
namespace {

// References lead to nothing else. A schema may have definitions of any number of other, unknown kinds.
bool MayBeReferredTo(Element definition) {
  return IsOneOf(definition.Name(), {"element", "attribute", "simpleType", "complexType", "group", "attributeGroup"});
}

}  // namespace

SchemaReferences::SchemaReferences(Element schema) {
  Collect(schema);
  for (Definition& definition : definitions_) FindReferencesOf(definition);
  RequireShortChains();
}

Element SchemaReferences::Find(std::string_view name, std::initializer_list<std::string_view> kinds) const {
  const auto named = by_name_.find(WithoutPrefix(name));
  if (named == by_name_.end()) return {};
  for (const Definition* definition : named->second) {
    if (IsOneOf(definition->node.Name(), kinds)) return definition->node;
  }
  return {};
}

void SchemaReferences::Collect(Element schema) {
  for (const Element node : schema.Children()) {
    Definition& definition = definitions_.emplace_back();
    definition.node = node;
    if (!MayBeReferredTo(node)) continue;
    std::vector<Definition*>& named = by_name_[std::string(ValueOf(node, "name"))];
    if (std::ranges::none_of(named, [&](const Definition* other) { return other->node.Name() == node.Name(); })) {
      named.push_back(&definition);
    }
  }
}

void SchemaReferences::FindReferencesOf(Definition& definition) {
  std::vector<Element> around;
  ForEachElement(definition.node, [&](Element element) {
    while (!around.empty() && around.back() != element.Parent()) around.pop_back();
    around.push_back(element);
    const auto depth = static_cast<int>(around.size());
    definition.nesting = std::max(definition.nesting, depth);
    definition.elements += 1 + CountNames(ValueOf(element, "namespace"));
    const auto refer = [&](std::string_view attribute, bool takesIn) {
      ForEachName(ValueOf(element, attribute), [&](std::string_view name) {
        const auto found = by_name_.find(name);
        if (found == by_name_.end()) return;
        for (Definition* to : found->second) definition.references.push_back({to, depth, takesIn});
      });
    };
    refer("ref", IsOneOf(element.Name(), {"group", "attributeGroup"}));
    for (const std::string_view attribute : kBaseAttributes) refer(attribute, true);
    for (const std::string_view attribute : {"type", "substitutionGroup"}) refer(attribute, false);
  });
}

void SchemaReferences::RequireShortChains() {
  double elements = 0;
  std::vector<Definition*> open;
  for (Definition& definition : definitions_) {
    if (definition.state == Definition::State::kUnseen) open.push_back(&definition);
    while (!open.empty()) {
      Definition& last = *open.back();
      last.state = Definition::State::kOpen;
      if (last.next < last.references.size()) {
        Definition* const to = last.references[last.next++].to;
        if (to->state == Definition::State::kUnseen) open.push_back(to);
        continue;
      }
      open.pop_back();
      Finish(last);
    }
    elements += definition.elements;
    if (elements > SchemaLimits::kGrownElements) {
      throw SchemaLimits::Passed{"tem definições que remetem umas para outras vezes de mais", definition.node};
    }
  }
}

// Sums up a definition once all that it refers to is finished, except what leads back to it.
void SchemaReferences::Finish(Definition& definition) {
  for (const auto& [to, depth, takesIn] : definition.references) {
    if (to->state != Definition::State::kDone) continue;
    definition.chain = std::max(definition.chain, to->chain + 1);
    definition.nesting = std::max(definition.nesting, to->nesting + depth);
    if (takesIn) {
      definition.elements = std::min(definition.elements + to->elements, SchemaLimits::kGrownElements + 1.0);
    }
  }
  if (definition.chain > SchemaLimits::kChain) {
    throw SchemaLimits::Passed{"tem definições que remetem umas para outras vezes de mais: são mais de 500 em cadeia",
                               definition.node};
  }
  if (definition.nesting > SchemaLimits::kNesting) {
    throw SchemaLimits::Passed{"tem definições que remetem umas para outras vezes de mais: são mais de 2000 níveis",
                               definition.node};
  }
  definition.state = Definition::State::kDone;
  order_.push_back(definition.node);
}

}  // namespace zevo
