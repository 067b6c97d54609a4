// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/SchemaFacts.h>

#include <zevo/model/internal/OptionsMapping.h>
#include <zevo/platform/Document.h>
#include <zevo/platform/SchemaDocument.h>
#include <zevo/platform/SchemaSyntax.h>

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

namespace zevo {
namespace {

/// The place of an element in what another one holds.
struct Particle {
  Element element;
  bool required = true;
  bool in_choice = false;
};

std::optional<int32_t> CountOf(std::string_view text) {
  int32_t count = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), count);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return count;
}

// A facet that was set nearer to the element counts.
void SetOnce(std::optional<int32_t>& length, std::string_view value) {
  if (!length) length = CountOf(value);
}
void SetOnce(std::string& limit, std::string_view value) {
  if (limit.empty()) limit = value;
}

void AddFacets(Element restriction, ElementFacts& facts) {
  std::vector<std::string> values;
  std::string pattern;
  for (const Element facet : restriction.Children()) {
    const std::string_view name = facet.Name();
    const std::string_view value = ValueOf(facet, "value");
    if (IsOneOf(name, {"length", "minLength"})) SetOnce(facts.min_length, value);
    if (IsOneOf(name, {"length", "maxLength"})) SetOnce(facts.max_length, value);
    if (name == "minInclusive") SetOnce(facts.least, value);
    if (name == "maxInclusive") SetOnce(facts.greatest, value);
    if (name == "enumeration") values.emplace_back(value);
    // Patterns beside each other are alternatives.
    if (name == "pattern") pattern.append(pattern.empty() ? "" : "|").append(value);
  }
  if (facts.values.empty()) facts.values = std::move(values);
  if (!pattern.empty()) facts.patterns.push_back(std::move(pattern));
}

}  // namespace

class SchemaFacts::Declarations {
 public:
  Declarations() {
    const SchemaSource& source = OptionsMapping::OfThisThread().Schema();
    LoadSchemaDocument(source.Read(), source.Name(), document_);
  }

  std::optional<ElementFacts> Of(std::string_view path) const {
    if (!path.starts_with('/')) return std::nullopt;
    Particle found;
    bool global = true;
    for (std::string_view left = path; !left.empty(); global = false) {
      left.remove_prefix(1);
      const std::string_view name = left.substr(0, left.find('/'));
      left.remove_prefix(name.size());
      const Element content = global ? found.element : ContentOf(found.element);
      found = global ? Particle{Global("element", name)} : Find(name, content, {});
      if (!found.element) return std::nullopt;
    }
    ElementFacts facts;
    facts.required = found.required;
    facts.in_choice = found.in_choice;
    AddText(Declared(found.element), facts);
    return facts;
  }

 private:
  Element Global(std::string_view kind, std::string_view name) const {
    for (const Element child : document_.Root().Children()) {
      if (child.Name() == kind && ValueOf(child, "name") == WithoutPrefix(name)) return child;
    }
    return Element();
  }

  // What a reference refers to, or the declaration itself.
  Element Declared(Element element) const {
    const auto name = element.Attribute("ref");
    return name ? Global("element", *name) : element;
  }

  // The complex type of an element; nothing where it has none.
  Element ContentOf(Element element) const {
    const Element declared = Declared(element);
    if (!declared) return Element();
    if (const auto type = declared.Attribute("type")) return Global("complexType", *type);
    return document_.FirstChild(declared, "complexType");
  }

  // The element of a name in a complex type or a part of it. `around` is what holds of the part.
  static Particle Find(std::string_view name, Element part, const Particle& around) {
    if (!part) return {};
    for (const Element child : part.Children()) {
      Particle place = around;
      if (ValueOf(child, "minOccurs") == "0") place.required = false;
      if (child.Name() == "element") {
        if (WithoutPrefix(ValueOf(child, child.Attribute("ref") ? "ref" : "name")) != name) continue;
        place.element = child;
        return place;
      }
      if (!IsOneOf(child.Name(), {"sequence", "choice", "all"})) continue;
      if (child.Name() == "choice") place.in_choice = true;
      if (const Particle found = Find(name, child, place); found.element) return found;
    }
    return {};
  }

  void AddText(Element declared, ElementFacts& facts) const {
    if (!declared) return;
    if (const auto fixed = declared.Attribute("fixed")) facts.fixed = *fixed;
    std::string_view type = ValueOf(declared, "type");
    Element simple = type.empty() ? document_.FirstChild(declared, "simpleType") : Global("simpleType", type);
    std::vector<Element> seen;  // types may refer to each other in a circle
    while (simple && std::ranges::find(seen, simple) == seen.end()) {
      seen.push_back(simple);
      const Element restriction = document_.FirstChild(simple, "restriction");
      if (!restriction) return;
      AddFacets(restriction, facts);
      type = ValueOf(restriction, "base");
      simple = type.empty() ? document_.FirstChild(restriction, "simpleType") : Global("simpleType", type);
    }
    if (!simple && !Global("complexType", type)) facts.type = WithoutPrefix(type);
  }

  Document document_;
};

SchemaFacts::SchemaFacts() : declarations_(std::make_unique<Declarations>()) {}
SchemaFacts::~SchemaFacts() = default;

std::optional<ElementFacts> SchemaFacts::Of(std::string_view path) const { return declarations_->Of(path); }

}  // namespace zevo
