// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SchemaCost.h>

#include <zevo/platform/SchemaLimits.h>
#include <zevo/platform/SchemaSyntax.h>

#include <cmath>
#include <vector>

namespace zevo {
namespace {

bool IsModelGroup(std::string_view name) { return IsOneOf(name, {"sequence", "choice", "all", "group"}); }

// Facets whose values must be valid for the type that is restricted: libxml2 validates each.
bool HasValueOfBase(std::string_view facet) {
  return IsOneOf(facet, {"enumeration", "minInclusive", "maxInclusive", "minExclusive", "maxExclusive"});
}

// What is known of a definition; empty for one that leads back to itself, which libxml2 refuses.
template <class Value>
Value KnownOf(const std::unordered_map<const Node*, Value>& known, Element definition) {
  const auto found = known.find(definition.node());
  return found == known.end() ? Value() : found->second;
}

}  // namespace

SchemaCost::SchemaCost(Element schema, const SchemaReferences& references)
    : document_(schema.Owner()), references_(references) {
  CountSubstitutions();
  for (const Element definition : references.InOrder()) Measure(definition);
  ForEachElement(schema, [&](Element element) { Weigh(element); });
}

// Counts how many elements may stand for each other one, directly or through others. The order is followed backwards,
// so that members come before their heads.
void SchemaCost::CountSubstitutions() {
  double pairs = 0;
  const std::vector<Element>& order = references_.InOrder();
  std::for_each(order.rbegin(), order.rend(), [&](Element member) {
    const auto name = member.Attribute("substitutionGroup");
    const Element head = name ? references_.Find(*name, {"element"}) : Element();
    if (!head) return;
    const double members = 1 + KnownOf(substitutes_, member);
    substitutes_[head.node()] += members;
    pairs += members;
  });
  Spend(pairs * 50e-9, pairs * 14);
}

// Keeps what others refer to. In the order of the references all that a definition refers to is known by then.
void SchemaCost::Measure(Element definition) {
  const std::string_view kind = definition.Name();
  if (kind == "complexType") models_.emplace(definition.node(), ModelOf(definition));
  if (kind == "group") models_.emplace(definition.node(), TermOf(definition));
  if (IsOneOf(kind, {"simpleType", "complexType"})) scopes_.emplace(definition.node(), ScopeOf(definition));
}

// Adds what an element costs: a content model, a pattern or values to be validated.
void SchemaCost::Weigh(Element element) {
  const std::string_view name = element.Name();
  if (name == "complexType") {
    SpendOnModel(ModelOf(element), element);
  } else if (name == "pattern") {
    const AutomatonSize size = AutomatonSize::OfPattern(ValueOf(element, "value"));
    SpendOnAutomaton(size, element);
  } else if (IsOneOf(name, {"simpleType", "simpleContent"})) {
    WeighValues(element);
  } else if (IsOneOf(name, {"element", "attribute"})) {
    for (const std::string_view attribute : {"default", "fixed"}) {
      if (const auto value = element.Attribute(attribute)) SpendOnValue(*value, TypeOf(element));
    }
  }
}

// The content of a complex type: that of the type it extends, then its own.
SchemaCost::Model SchemaCost::ModelOf(Element type) const {
  Model model;
  const auto add = [&](const Model& more) {
    model.size.Then(more.size);
    model.particles += more.particles;
  };
  Element content = type;
  if (const Element complex = document_.FirstChild(type, "complexContent")) {
    content = document_.FirstChild(complex, "restriction");
    if (const Element extension = document_.FirstChild(complex, "extension")) {
      content = extension;
      add(KnownOf(models_, TypeNamed(ValueOf(extension, "base"))));
    }
  }
  if (content) {
    for (const Element child : content.Children()) {
      if (IsModelGroup(child.Name())) add(ParticleOf(child));
    }
  }
  return model;
}

SchemaCost::Model SchemaCost::ParticleOf(Element particle) const {
  Model model = TermOf(particle);
  const auto times = [&](std::string_view attribute) {
    std::string_view count = particle.Attribute(attribute).value_or("1");
    count = count.substr(std::min(count.find_first_not_of(" \t\r\n+-0"), count.size()));
    return count.substr(0, count.find_last_not_of(" \t\r\n") + 1);
  };
  const auto several = [&](std::string_view attribute) {
    return times(attribute).size() > 1 || times(attribute) > "1";
  };
  if (several("minOccurs") || several("maxOccurs")) {
    // A choice is always repeated by a counter, and a sequence where there is any limit.
    const bool counted = particle.Name() != "sequence" || several("minOccurs") || times("maxOccurs") != "unbounded";
    counted ? model.size.Counted() : model.size.Repeated();
  }
  if (times("minOccurs").empty()) model.size.Optional();
  return model;
}

SchemaCost::Model SchemaCost::TermOf(Element particle) const {
  const std::string_view name = particle.Name();
  if (name == "any") return {AutomatonSize::Wildcard(std::max(2, CountNames(ValueOf(particle, "namespace")))), 1};
  if (name == "element") {
    const Element head = references_.Find(ValueOf(particle, "ref"), {"element"});
    return {AutomatonSize::Symbols(1 + KnownOf(substitutes_, head)), 1};
  }
  if (name == "group" && particle.Attribute("ref")) {
    return KnownOf(models_, references_.Find(ValueOf(particle, "ref"), {"group"}));
  }
  Model model;
  bool first = true;
  for (const Element child : particle.Children()) {
    if (!IsModelGroup(child.Name()) && !IsOneOf(child.Name(), {"element", "any"})) continue;
    const Model part = ParticleOf(child);
    model.particles += part.particles;
    if (first) {
      model.size = part.size;
    } else if (name == "sequence") {
      model.size.Then(part.size);
    } else {
      model.size.Or(part.size);
    }
    first = false;
  }
  if (name == "all") model.size.InAnyOrder();
  if (name != "group") model.size.Grouped();
  return model;
}

SchemaCost::Scope SchemaCost::ScopeOf(Element type) const {
  Scope scope{1};
  const bool isSimple = type.Name() == "simpleType";
  const Element definition = isSimple ? type : document_.FirstChild(type, "simpleContent");
  for (const Element variety : definition ? definition.Children() : ElementRange(Element())) {
    scope.Add(BaseOf(variety));
    for (const Element facet : variety.Children()) {
      ++scope.types;
      if (facet.Name() != "pattern") continue;
      ++scope.patterns;
      scope.widest = std::max(scope.widest, AutomatonSize::OfPattern(ValueOf(facet, "value")).Widest());
    }
  }
  return scope;
}

// The scope of the types that a restriction, a list or a union is made of.
SchemaCost::Scope SchemaCost::BaseOf(Element variety) const {
  Scope scope;
  for (const std::string_view attribute : kBaseAttributes) {
    ForEachName(ValueOf(variety, attribute),
                [&](std::string_view name) { scope.Add(KnownOf(scopes_, TypeNamed(name))); });
  }
  for (const Element child : variety.Children()) {
    if (child.Name() == "simpleType") scope.Add(ScopeOf(child));
  }
  return scope;
}

SchemaCost::Scope SchemaCost::TypeOf(Element declaration) const {
  const Element referred = references_.Find(ValueOf(declaration, "ref"), {"attribute"});
  if (referred) declaration = referred;
  Scope scope = KnownOf(scopes_, TypeNamed(ValueOf(declaration, "type")));
  if (const Element type = document_.FirstChild(declaration, "simpleType")) scope.Add(ScopeOf(type));
  return scope;
}

void SchemaCost::WeighValues(Element type) {
  const Element restriction = document_.FirstChild(type, "restriction");
  if (!restriction) return;
  const Scope base = BaseOf(restriction);
  for (const Element facet : restriction.Children()) {
    if (HasValueOfBase(facet.Name())) SpendOnValue(ValueOf(facet, "value"), base);
  }
}

void SchemaCost::SpendOnAutomaton(const AutomatonSize& size, Element within) {
  if (size.EmptyRepetitions() > SchemaLimits::kEmptyRepetitions) {
    throw SchemaLimits::Passed{
        "repete em mais de 8 sítios do mesmo conteúdo, ou do mesmo padrão, o que pode estar vazio", within};
  }
  // Each counter adds transitions to every state, and most where what goes without one is repeated too. Every two are
  // compared, and for each of the first all that its state leads to is looked through. Wildcards take longer to
  // compare. All factors are measured.
  const double counters = size.EmptyCounters();
  const bool mixed = size.EmptyRepetitions() > size.EmptyCounters();
  const double times = 1.8 + std::pow(counters, 2.4) * (mixed ? 4.4 : 2.2);
  const double comparison = size.Letters() > size.States() ? 10.4e-9 : 7.3e-9;
  Spend(size.Comparisons() * times * comparison + size.States() * 1e-6, size.Transitions() * 70 + size.States() * 450);
  // For each state of a group that is removed, those that lead there are looked through.
  Spend(size.Groups() * (size.Groups() + size.States()) * 3e-9, size.Groups() * 900);
  // Each transition that a walk finds is looked for among those that are there already.
  const double widest = size.Widest() * std::max(1.0, counters);
  Spend((size.WalkSteps() + size.WalkEnds() * widest) * (10e-9 + widest * 0.5e-9), 0);
}

void SchemaCost::SpendOnModel(const Model& model, Element type) {
  if (model.particles > SchemaLimits::kParticles) {
    throw SchemaLimits::Passed{"tem um conteúdo de mais de 500 elementos", type};
  }
  SpendOnAutomaton(model.size, type);
  // libxml2 makes a table with a cell for every state and every name.
  Spend(0, (model.size.States() + 1) * (model.size.Letters() + 1) * 12);
}

// libxml2 tries every way through a pattern, up to kMostSteps steps.
void SchemaCost::SpendOnValue(std::string_view value, const Scope& scope) {
  constexpr double kMostSteps = 1e7;
  const auto length = static_cast<double>(value.size());
  const double steps = std::min(std::pow(scope.widest, length), kMostSteps) + length;
  Spend(scope.types * 60e-9 + scope.patterns * (1e-6 + steps * (15e-9 + scope.widest * 4e-9)), 0);
}

}  // namespace zevo
