// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SchemaTables.h>

#include <zevo/platform/Document.h>
#include <zevo/platform/HostErrorHandlers.h>
#include <zevo/platform/SchemaDocument.h>
#include <zevo/platform/SchemaLimits.h>
#include <zevo/platform/SchemaReferences.h>
#include <zevo/platform/SchemaSyntax.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <charconv>
#include <unordered_map>
#include <utility>

namespace zevo {
namespace {

// Thrown where the schema has more than the tables can say.
struct NotFollowed {};

void Demand(bool condition) {
  if (!condition) throw NotFollowed();
}

bool IsSet(std::string_view value) { return value == "true" || value == "1"; }

// Parts of a schema that the tables can say, or that say nothing of files.
bool IsFollowed(std::string_view element) {
  return IsOneOf(element, {"schema",       "element",      "complexType",  "simpleType",  "sequence",
                           "choice",       "group",        "restriction",  "key",         "keyref",
                           "unique",       "selector",     "field",        "length",      "minLength",
                           "maxLength",    "pattern",      "enumeration",  "whiteSpace",  "minInclusive",
                           "maxInclusive", "minExclusive", "maxExclusive", "totalDigits", "fractionDigits"});
}

}  // namespace

std::optional<ContentModel::Child> ElementType::Find(std::string_view local, bool qualified) const {
  const auto& names = qualified ? by_name : by_unqualified_name;
  const auto found = names.find(local);
  return found == names.end() ? std::nullopt : std::optional(found->second);
}

const ElementDeclaration* SchemaTables::Find(std::string_view local, bool qualified) const {
  if (qualified == namespace_.empty()) return nullptr;
  const auto found = global_.find(local);
  return found == global_.end() ? nullptr : found->second;
}

class SchemaTables::Maker {
 public:
  Maker(SchemaTables& tables, Element schema, std::string_view text)
      : tables_(tables), schema_(schema), text_(text), references_(schema) {
    tables_.namespace_ = ValueOf(schema, "targetNamespace");
    elements_qualified_ = ValueOf(schema, "elementFormDefault") == "qualified";
  }

  void Make() {
    for (const Element child : schema_.Children()) DemandFollowed(child);
    for (const Element child : schema_.Children()) {
      if (child.Name() != "element") continue;
      const ElementDeclaration* declaration = Global(child);
      tables_.globals_.push_back(declaration);
      tables_.global_.emplace(declaration->name.local, declaration);
    }
  }

 private:
  using Child = ContentModel::Child;
  using Part = ContentModel::Part;

  static constexpr int kMostRepetitions = 100;

  static void DemandFollowed(Element element) {
    if (element.Name() == "annotation") return;
    Demand(IsFollowed(element.Name()));
    for (const std::string_view flag : {"abstract", "nillable", "mixed"}) Demand(!IsSet(ValueOf(element, flag)));
    Demand(!element.Attribute("substitutionGroup") && !element.Attribute("default"));
    for (const Element child : element.Children()) DemandFollowed(child);
  }

  Element Definition(std::string_view name, std::initializer_list<std::string_view> kinds) const {
    const Element found = references_.Find(name, kinds);
    Demand(static_cast<bool>(found));
    return found;
  }

  const ElementDeclaration* Global(Element element) { return Declare(element, !tables_.namespace_.empty()); }

  const ElementDeclaration* Local(Element element) {
    const std::string_view form = ValueOf(element, "form");
    const bool qualified = form.empty() ? elements_qualified_ : form == "qualified";
    return Declare(element, qualified && !tables_.namespace_.empty());
  }

  const ElementDeclaration* Declare(Element element, bool qualified) {
    ElementDeclaration*& known = declarations_[element.node()];
    if (known != nullptr) return known;
    ElementDeclaration& declaration = *(known = &tables_.declarations_.emplace_back());
    declaration.name = {std::string(ValueOf(element, "name")), qualified};
    declaration.type = TypeOf(element);
    if (const auto fixed = element.Attribute("fixed")) {
      const ElementType::Content content = declaration.type->content;
      Demand(content == ElementType::Content::kAnything ||
             (content == ElementType::Content::kText && declaration.type->text->KeepsWhiteSpace()));
      declaration.fixed = *fixed;
    }
    AddConstraints(element, declaration);
    Demand(declaration.constraints.empty() || declaration.type->content == ElementType::Content::kElements);
    return &declaration;
  }

  const ElementType* TypeOf(Element element) {
    if (const auto name = element.Attribute("type")) return TypeNamed(*name);
    for (const Element child : element.Children()) {
      if (child.Name() == "simpleType") return TextType(Simple(child));
      if (child.Name() == "complexType") return Complex(child);
    }
    return Anything();
  }

  const ElementType* TypeNamed(std::string_view name) {
    const Element defined = references_.Find(name, {"simpleType", "complexType"});
    if (!defined && WithoutPrefix(name) == "anyType") return Anything();
    if (defined && defined.Name() == "complexType") {
      Demand(!IsBuiltIn(name));
      return Complex(defined);
    }
    const ElementType*& known = named_texts_[std::string(WithoutPrefix(name))];
    if (known == nullptr) known = TextType(SimpleNamed(name));
    return known;
  }

  static bool IsBuiltIn(std::string_view name) {
    return WithoutPrefix(name) == "anyType" || SimpleType::BuiltIn(WithoutPrefix(name)) != nullptr;
  }

  const ElementType* Anything() {
    if (anything_ == nullptr) {
      ElementType& type = tables_.types_.emplace_back();
      type.content = ElementType::Content::kAnything;
      anything_ = &type;
    }
    return anything_;
  }

  const ElementType* TextType(std::shared_ptr<const SimpleType> text) {
    ElementType& type = tables_.types_.emplace_back();
    type.content = ElementType::Content::kText;
    type.text = std::move(text);
    return &type;
  }

  std::shared_ptr<const SimpleType> SimpleNamed(std::string_view name) {
    const Element defined = references_.Find(name, {"simpleType"});
    // Names have lost what their prefixes mean: one that may mean either is not followed.
    if (defined) {
      Demand(!IsBuiltIn(name));
      return Simple(defined);
    }
    auto type = SimpleType::BuiltIn(WithoutPrefix(name));
    Demand(type != nullptr);
    return type;
  }

  std::shared_ptr<const SimpleType> Simple(Element simple) {
    std::shared_ptr<const SimpleType>& known = simple_types_[simple.node()];
    if (known) return known;
    const Document& document = schema_.Owner();
    const Element restriction = document.FirstChild(simple, "restriction");
    Demand(static_cast<bool>(restriction));
    std::shared_ptr<const SimpleType> base;
    if (const auto name = restriction.Attribute("base")) {
      base = SimpleNamed(*name);
    } else {
      const Element inner = document.FirstChild(restriction, "simpleType");
      Demand(static_cast<bool>(inner));
      base = Simple(inner);
    }
    auto type = SimpleType::Restricted(std::move(base), restriction);
    Demand(type != nullptr);
    return simple_types_[simple.node()] = std::move(type);
  }

  const ElementType* Complex(Element complex) {
    ElementType*& known = complex_types_[complex.node()];
    if (known != nullptr) return known;
    ElementType& type = *(known = &tables_.types_.emplace_back());
    for (const Element child : complex.Children()) {
      if (child.Name() == "annotation") continue;
      Demand(IsOneOf(child.Name(), {"sequence", "choice", "group"}));
      type.content = ElementType::Content::kElements;
      type.model.Finish(ParticleOf(child, type));
      for (Child i = 0; i < type.children.size(); ++i) type.repeats.push_back(type.model.Repeats(i));
    }
    return &type;
  }

  Part ParticleOf(Element particle, ElementType& type) {
    const int least = Occurrence(ValueOf(particle, "minOccurs"));
    if (ValueOf(particle, "maxOccurs") == "unbounded") {
      Part whole = type.model.Repeated(TermOf(particle, type));
      for (int i = 1; i < least; ++i) whole = type.model.Then(TermOf(particle, type), whole);
      return least == 0 ? ContentModel::Optional(std::move(whole)) : whole;
    }
    const int most = Occurrence(ValueOf(particle, "maxOccurs"));
    Part whole;
    for (int i = most; i > 0; --i) {
      whole = type.model.Then(TermOf(particle, type), whole);
      if (i > least) whole = ContentModel::Optional(std::move(whole));
    }
    return whole;
  }

  static int Occurrence(std::string_view text) {
    if (text.empty()) return 1;
    int count = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), count);
    Demand(fault == std::errc() && end == text.data() + text.size() && count <= kMostRepetitions);
    return count;
  }

  Part TermOf(Element term, ElementType& type) {
    if (term.Name() == "element") {
      const auto ref = term.Attribute("ref");
      return type.model.Of(Number(ref ? Global(Definition(*ref, {"element"})) : Local(term), type));
    }
    if (term.Name() == "group") {
      for (const Element child : Definition(ValueOf(term, "ref"), {"group"}).Children()) {
        if (child.Name() != "annotation") return ParticleOf(child, type);
      }
      throw NotFollowed();
    }
    Demand(IsOneOf(term.Name(), {"sequence", "choice"}));
    const bool choice = term.Name() == "choice";
    std::optional<Part> whole;
    for (const Element child : term.Children()) {
      if (child.Name() == "annotation") continue;
      Part part = ParticleOf(child, type);
      if (!whole) {
        whole = std::move(part);
      } else {
        whole = choice ? ContentModel::Either(std::move(*whole), part) : type.model.Then(std::move(*whole), part);
      }
    }
    // What a choice of nothing allows, validators do not agree on.
    Demand(whole || !choice);
    return whole ? std::move(*whole) : Part();
  }

  // The number of a child in the model of a type; declarations of one name have to say the same.
  static Child Number(const ElementDeclaration* declaration, ElementType& type) {
    auto& names = declaration->name.qualified ? type.by_name : type.by_unqualified_name;
    const auto [found, added] = names.emplace(declaration->name.local, static_cast<Child>(type.children.size()));
    if (added) {
      type.children.push_back(declaration);
    } else {
      const ElementDeclaration* const known = type.children[found->second];
      Demand(known == declaration || (known->type == declaration->type && known->fixed == declaration->fixed &&
                                      known->constraints.empty() && declaration->constraints.empty()));
    }
    return found->second;
  }

  void AddConstraints(Element element, ElementDeclaration& declaration) {
    std::vector<std::string_view> names;
    std::vector<std::string_view> referred;
    for (const Element child : element.Children()) {
      if (!IsOneOf(child.Name(), {"key", "keyref", "unique"})) continue;
      IdentityConstraint constraint{.kind = IdentityConstraint::Kind::kUnique, .selector = {}, .fields = {}};
      if (child.Name() == "key") constraint.kind = IdentityConstraint::Kind::kKey;
      if (child.Name() == "keyref") constraint.kind = IdentityConstraint::Kind::kReference;
      for (const Element part : child.Children()) {
        if (part.Name() == "selector") constraint.selector = PathOf(ValueOf(part, "xpath"));
        if (part.Name() == "field") constraint.fields.push_back(PathOf(ValueOf(part, "xpath")));
      }
      Demand(!constraint.fields.empty());
      names.push_back(ValueOf(child, "name"));
      referred.push_back(WithoutPrefix(ValueOf(child, "refer")));
      declaration.constraints.push_back(std::move(constraint));
    }
    for (size_t i = 0; i < names.size(); ++i) {
      IdentityConstraint& constraint = declaration.constraints[i];
      if (constraint.kind != IdentityConstraint::Kind::kReference) continue;
      const auto key = std::ranges::find(names, referred[i]);
      Demand(key != names.end());
      constraint.refers_to = static_cast<size_t>(key - names.begin());
      const IdentityConstraint& target = declaration.constraints[constraint.refers_to];
      Demand(target.kind != IdentityConstraint::Kind::kReference && target.fields.size() == constraint.fields.size());
    }
  }

  // A path of child steps.
  IdentityConstraint::Path PathOf(std::string_view xpath) {
    IdentityConstraint::Path path;
    std::string_view rest = TrimWhiteSpace(xpath);
    while (!rest.empty()) {
      const std::string_view step = TrimWhiteSpace(rest.substr(0, rest.find('/')));
      rest.remove_prefix(std::min(rest.find('/'), rest.size() - 1) + 1);
      if (step == ".") continue;
      Demand(!step.empty() && step.find_first_of("@*|[]() :") == step.find(':'));
      const bool prefixed = step.find(':') != std::string_view::npos;
      if (prefixed) Demand(MeansTheNamespace(step.substr(0, step.find(':'))));
      Demand(step.find("::") == std::string_view::npos);
      path.push_back({std::string(WithoutPrefix(step)), prefixed});
    }
    return path;
  }

  bool MeansTheNamespace(std::string_view prefix) {
    const auto [known, added] = own_prefixes_.try_emplace(std::string(prefix));
    if (added) known->second = IsDeclaredForTheNamespace(prefix);
    return known->second;
  }

  // Whether a prefix is declared for the schema's own namespace. Declarations are not in the document: they are looked
  // for in the text.
  bool IsDeclaredForTheNamespace(std::string_view prefix) const {
    const std::string declaration = std::string("xmlns:").append(prefix).append("=");
    for (size_t at = text_.find(declaration); at != std::string_view::npos; at = text_.find(declaration, at + 1)) {
      const std::string_view value = text_.substr(at + declaration.size());
      if (value.size() < tables_.namespace_.size() + 2 ||
          value.substr(1, tables_.namespace_.size()) != tables_.namespace_ ||
          value[tables_.namespace_.size() + 1] != value[0]) {
        return false;
      }
    }
    return !tables_.namespace_.empty() && text_.find(declaration) != std::string_view::npos;
  }

  SchemaTables& tables_;
  Element schema_;
  std::string_view text_;
  SchemaReferences references_;
  bool elements_qualified_ = false;
  const ElementType* anything_ = nullptr;
  std::unordered_map<const Node*, ElementDeclaration*> declarations_;
  std::unordered_map<const Node*, ElementType*> complex_types_;
  std::unordered_map<const Node*, std::shared_ptr<const SimpleType>> simple_types_;
  TextMap<const ElementType*> named_texts_;
  TextMap<bool> own_prefixes_;  // those of paths: whether they mean the schema's namespace
};

std::unique_ptr<const SchemaTables> SchemaTables::Of(std::string_view schema) {
  Document document;
  LoadSchemaDocument(schema, {}, document);
  return Of(schema, document);
}

std::unique_ptr<const SchemaTables> SchemaTables::Of(std::string_view schema, const Document& document) {
  const HostErrorHandlers aside;
  auto tables = std::make_unique<SchemaTables>();
  try {
    Maker(*tables, document.Root(), schema).Make();
  } catch (const NotFollowed&) {
    return nullptr;
  } catch (const ContentModel::TooLarge&) {
    return nullptr;
  } catch (const SchemaLimits::Passed&) {
    return nullptr;
  }
  return tables;
}

}  // namespace zevo
