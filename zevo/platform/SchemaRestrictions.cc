// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SchemaRestrictions.h>

#include <libxml/xmlerror.h>
#include <zevo/Error.h>
#include <zevo/TextHash.h>
#include <zevo/platform/AutomatonSize.h>
#include <zevo/platform/Text.h>
#include <zevo/platform/XmlProblem.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <deque>
#include <initializer_list>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zevo {
namespace {

std::string_view ValueOf(Element element, std::string_view attribute) {
  return element.Attribute(attribute).value_or(std::string_view());
}

// The names in a list of qualified names, without their prefixes: definitions are known by what follows it.
template <class Action>
void ForEachName(std::string_view list, Action&& action) {
  constexpr std::string_view kSpaces = " \t\r\n";
  for (size_t begin; (begin = list.find_first_not_of(kSpaces)) != std::string_view::npos;) {
    list.remove_prefix(begin);
    const std::string_view name = list.substr(0, list.find_first_of(kSpaces));
    list.remove_prefix(name.size());
    action(name.substr(name.find(':') + 1));
  }
}

int CountNames(std::string_view list) {
  int count = 0;
  ForEachName(list, [&](std::string_view) { ++count; });
  return count;
}

bool IsOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
  return std::ranges::find(names, name) != names.end();
}

bool IsModelGroup(std::string_view name) { return IsOneOf(name, {"sequence", "choice", "all", "group"}); }

// Facets whose values are values of the type that is restricted.
bool HasValueOfBase(std::string_view facet) {
  return IsOneOf(facet, {"enumeration", "minInclusive", "maxInclusive", "minExclusive", "maxExclusive"});
}

// Nodes by name; of several the first.
using Globals = TextMap<Element>;

class Restrictions {
 public:
  Restrictions(const Document& document, std::string_view errorSource)
      : document_(document), schema_(document.Root()), source_(errorSource) {}

  void Check(std::string_view targetNamespace) {
    // Whatever else it may be, libxml2 refuses it.
    if (schema_.Name() != "schema") return;
    RequireNamespace(targetNamespace);
    int elements = 0;
    ForEachElement([&](Element element) {
      if (++elements > SchemaLimits::kElements) Refuse("tem mais de 10 000 elementos");
      if (IsOneOf(element.Name(), {"include", "import", "redefine"}) && element.Attribute("schemaLocation")) {
        Raise(XML_SCHEMAP_SRC_INCLUDE, "O esquema remete para outro ficheiro");
      }
    });
    CollectGlobals();
    RequireShortChains();
    CountSubstitutions();
    for (const Global* global : order_) Measure(global->node);
    ForEachElement([&](Element element) { Weigh(element); });
    if (seconds_ > SchemaLimits::kSeconds) Refuse("levaria tempo de mais a preparar");
    if (bytes_ > SchemaLimits::kBytes) Refuse("levaria memória de mais a preparar");
  }

 private:
  [[noreturn]] void Raise(int number, std::string reason) const {
    throw AsError({.number = number, .reason = std::move(reason), .fault = XmlProblem::Fault::kSchema}, source_);
  }

  // Names the definition that an element stands in, if one is given.
  [[noreturn]] void Refuse(std::string_view reason, Element within = {}) const {
    std::string text = "O esquema ";
    text.append(reason);
    if (within) {
      while (within.Parent() != schema_) within = within.Parent();
      text.append(", em «").append(ValueOf(within, "name")).append("»");
    }
    Raise(XML_ERR_USER_STOP, std::move(text));
  }

  template <class Action>
  void ForEachElement(Action&& action) const {
    for (Node* node = schema_.node(); node != nullptr; node = document_.Following(node, schema_.node())) {
      if (node->Kind() == NodeKind::kElement) action(Element(node));
    }
  }

  void RequireNamespace(std::string_view wanted) const {
    const std::string_view found = ValueOf(schema_, "targetNamespace");
    if (found == wanted) return;
    const auto named = [](std::string_view name, std::string_view none) {
      return name.empty() ? std::string(none) : std::string("do espaço de nomes «").append(name).append("»");
    };
    Refuse("é " + named(found, "de nenhum espaço de nomes") + ", mas " +
           (wanted.empty() ? "não pode ter espaço de nomes" : "tem de ser " + named(wanted, {})));
  }

  Globals* GlobalsOf(std::string_view kind) {
    if (kind == "element") return &elements_;
    if (kind == "attribute") return &attributes_;
    if (kind == "group") return &groups_;
    return IsOneOf(kind, {"simpleType", "complexType"}) ? &types_ : nullptr;
  }

  static Element Find(const Globals& globals, std::string_view name) {
    const auto found = globals.find(name.substr(name.find(':') + 1));
    return found == globals.end() ? Element() : found->second;
  }

  // Chains of references, and what comes out where definitions are put for each other's names. Chains may be long, so
  // none of this calls itself.

  struct Global {
    struct Reference {
      Global* to;
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

  void CollectGlobals() {
    TextMap<std::vector<Global*>> definitions;  // one of each kind
    for (const Element node : schema_.Children()) {
      Global& global = globals_.emplace_back();
      global.node = node;
      const std::string name(ValueOf(node, "name"));
      if (Globals* const globals = GlobalsOf(node.Name())) globals->try_emplace(name, node);
      std::vector<Global*>& named = definitions[name];
      if (std::ranges::none_of(named, [&](const Global* other) { return other->node.Name() == node.Name(); })) {
        named.push_back(&global);
      }
    }
    for (Global& global : globals_) {
      std::vector<Element> around;
      for (Node* node = global.node.node(); node != nullptr; node = document_.Following(node, global.node.node())) {
        if (node->Kind() != NodeKind::kElement) continue;
        const Element element(node);
        while (!around.empty() && around.back() != element.Parent()) around.pop_back();
        around.push_back(element);
        const auto depth = static_cast<int>(around.size());
        global.nesting = std::max(global.nesting, depth);
        global.elements += 1 + CountNames(ValueOf(element, "namespace"));
        const auto refer = [&](std::string_view attribute, bool takesIn) {
          ForEachName(ValueOf(element, attribute), [&](std::string_view name) {
            const auto found = definitions.find(name);
            if (found == definitions.end()) return;
            for (Global* to : found->second) global.references.push_back({to, depth, takesIn});
          });
        };
        refer("ref", IsOneOf(element.Name(), {"group", "attributeGroup"}));
        for (const std::string_view attribute : {"base", "itemType", "memberTypes"}) refer(attribute, true);
        for (const std::string_view attribute : {"type", "substitutionGroup"}) refer(attribute, false);
      }
    }
  }

  void RequireShortChains() {
    double elements = 0;
    std::vector<Global*> open;
    for (Global& global : globals_) {
      if (global.state == Global::State::kUnseen) open.push_back(&global);
      while (!open.empty()) {
        Global& last = *open.back();
        last.state = Global::State::kOpen;
        if (last.next < last.references.size()) {
          Global* const to = last.references[last.next++].to;
          if (to->state == Global::State::kUnseen) open.push_back(to);
          continue;
        }
        open.pop_back();
        Finish(last);
      }
      elements += global.elements;
      if (elements > SchemaLimits::kGrownElements) {
        Refuse("tem definições que remetem umas para outras vezes de mais", global.node);
      }
    }
  }

  // Once all that it refers to is finished, save what leads back to it.
  void Finish(Global& global) {
    for (const auto& [to, depth, takesIn] : global.references) {
      if (to->state != Global::State::kDone) continue;
      global.chain = std::max(global.chain, to->chain + 1);
      global.nesting = std::max(global.nesting, to->nesting + depth);
      if (takesIn) global.elements = std::min(global.elements + to->elements, SchemaLimits::kGrownElements + 1.0);
    }
    if (global.chain > SchemaLimits::kChain) {
      Refuse("tem definições que remetem umas para outras vezes de mais: são mais de 500 em cadeia", global.node);
    }
    if (global.nesting > SchemaLimits::kNesting) {
      Refuse("tem definições que remetem umas para outras vezes de mais: são mais de 2000 níveis", global.node);
    }
    global.state = Global::State::kDone;
    order_.push_back(&global);
  }

  // How many elements may stand for another, also by way of others: members come before their heads.
  void CountSubstitutions() {
    double pairs = 0;
    std::for_each(order_.rbegin(), order_.rend(), [&](const Global* global) {
      const Element member = global->node;
      const auto name = member.Attribute("substitutionGroup");
      const Element head = name ? Find(elements_, *name) : Element();
      if (!head) return;
      const double members = 1 + KnownOf(substitutes_, member);
      substitutes_[head.node()] += members;
      pairs += members;
    });
    Spend(pairs * 50e-9, pairs * 14);
  }

  // What others refer to is kept. In the order of the chains all that a definition refers to is known by then.
  void Measure(Element global) {
    const std::string_view kind = global.Name();
    if (kind == "complexType") models_.emplace(global.node(), ModelOf(global));
    if (kind == "group") models_.emplace(global.node(), TermOf(global));
    if (IsOneOf(kind, {"simpleType", "complexType"})) scopes_.emplace(global.node(), ScopeOf(global));
  }

  // Nothing of a definition that leads back to itself, which is an error of its own that libxml2 finds.
  template <class Value>
  static Value KnownOf(const std::unordered_map<const Node*, Value>& known, Element global) {
    const auto found = known.find(global.node());
    return found == known.end() ? Value() : found->second;
  }

  // Content models, patterns and values: what makes work of its own.
  void Weigh(Element element) {
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

  void Spend(double seconds, double bytes) {
    seconds_ += seconds;
    bytes_ += bytes;
  }

  void SpendOnAutomaton(const AutomatonSize& size, Element within) {
    if (size.EmptyRepetitions() > SchemaLimits::kEmptyRepetitions) {
      Refuse("repete em mais de 8 sítios do mesmo conteúdo, ou do mesmo padrão, o que pode estar vazio", within);
    }
    // Wildcards take longer to compare, and more ways from state to state are more to compare.
    const double ways = (size.EmptyRepetitions() + 1.0) * (size.Letters() > size.States() ? 2 : 1);
    Spend(size.Comparisons() * ways * 6.5e-9 + size.States() * 1e-6, size.Transitions() * 70 + size.States() * 450);
  }

  struct Model {
    AutomatonSize size;
    double particles = 0;
  };

  void SpendOnModel(const Model& model, Element type) {
    if (model.particles > SchemaLimits::kParticles) Refuse("tem um conteúdo de mais de 500 elementos", type);
    SpendOnAutomaton(model.size, type);
    // A table of every state and every name.
    Spend(0, (model.size.States() + 1) * (model.size.Letters() + 1) * 12);
  }

  // The content of a complex type: that of the type it extends, then its own.
  Model ModelOf(Element type) const {
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
        add(KnownOf(models_, Find(types_, ValueOf(extension, "base"))));
      }
    }
    if (content) {
      for (const Element child : content.Children()) {
        if (IsModelGroup(child.Name())) add(ParticleOf(child));
      }
    }
    return model;
  }

  Model ParticleOf(Element particle) const {
    Model model = TermOf(particle);
    const auto times = [&](std::string_view attribute) {
      std::string_view count = particle.Attribute(attribute).value_or("1");
      count = count.substr(std::min(count.find_first_not_of(" \t\r\n+-0"), count.size()));
      return count.substr(0, count.find_last_not_of(" \t\r\n") + 1);
    };
    if (times("maxOccurs").size() > 1 || times("maxOccurs") > "1" || times("minOccurs").size() > 1 ||
        times("minOccurs") > "1") {
      model.size.Repeated();
    }
    if (times("minOccurs").empty()) model.size.Optional();
    return model;
  }

  Model TermOf(Element particle) const {
    const std::string_view name = particle.Name();
    if (name == "any") return {AutomatonSize::Wildcard(std::max(2, CountNames(ValueOf(particle, "namespace")))), 1};
    if (name == "element") {
      const Element global = Find(elements_, ValueOf(particle, "ref"));
      return {AutomatonSize::Symbols(1 + KnownOf(substitutes_, global)), 1};
    }
    if (name == "group" && particle.Attribute("ref")) {
      return KnownOf(models_, Find(groups_, ValueOf(particle, "ref")));
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
    return model;
  }

  // What a value of a simple type is looked up in.
  struct Scope {
    double types = 0;  // and their facets
    double patterns = 0;
    double widest = 1;  // of the patterns

    void Add(const Scope& other) {
      types += other.types;
      patterns += other.patterns;
      widest = std::max(widest, other.widest);
    }
  };

  Scope ScopeOf(Element type) const {
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

  // That of the types which a restriction, a list or a union is made of.
  Scope BaseOf(Element variety) const {
    Scope scope;
    for (const std::string_view attribute : {"base", "itemType", "memberTypes"}) {
      ForEachName(ValueOf(variety, attribute),
                  [&](std::string_view name) { scope.Add(KnownOf(scopes_, Find(types_, name))); });
    }
    for (const Element child : variety.Children()) {
      if (child.Name() == "simpleType") scope.Add(ScopeOf(child));
    }
    return scope;
  }

  Scope TypeOf(Element declaration) const {
    if (const Element global = Find(attributes_, ValueOf(declaration, "ref"))) declaration = global;
    Scope scope = KnownOf(scopes_, Find(types_, ValueOf(declaration, "type")));
    if (const Element type = document_.FirstChild(declaration, "simpleType")) scope.Add(ScopeOf(type));
    return scope;
  }

  void WeighValues(Element type) {
    const Element restriction = document_.FirstChild(type, "restriction");
    if (!restriction) return;
    const Scope base = BaseOf(restriction);
    for (const Element facet : restriction.Children()) {
      if (HasValueOfBase(facet.Name())) SpendOnValue(ValueOf(facet, "value"), base);
    }
  }

  // libxml2 tries every way through a pattern, up to so many steps.
  void SpendOnValue(std::string_view value, const Scope& scope) {
    constexpr double kMostSteps = 1e7;
    const auto length = static_cast<double>(value.size());
    const double steps = std::min(std::pow(scope.widest, length), kMostSteps) + length;
    Spend(scope.types * 60e-9 + scope.patterns * (1e-6 + steps * (15e-9 + scope.widest * 4e-9)), 0);
  }

  const Document& document_;
  Element schema_;
  std::string_view source_;
  std::deque<Global> globals_;
  std::vector<const Global*> order_;  // what is referred to before what refers to it
  Globals elements_;
  Globals attributes_;
  Globals groups_;
  Globals types_;
  std::unordered_map<const Node*, double> substitutes_;
  std::unordered_map<const Node*, Model> models_;
  std::unordered_map<const Node*, Scope> scopes_;
  double seconds_ = 0;
  double bytes_ = 0;
};

}  // namespace

void RequireModestSchema(const Document& schema, std::string_view targetNamespace, std::string_view errorSource) {
  Restrictions(schema, errorSource).Check(targetNamespace);
}

}  // namespace zevo
