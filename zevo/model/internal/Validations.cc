// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/internal/Validations.h>

#include <zevo/Error.h>
#include <zevo/model/internal/HelperTransformations.h>
#include <zevo/platform/LetterCase.h>
#include <zevo/platform/SchemaDocument.h>
#include <zevo/platform/Text.h>

#include <limits>
#include <unordered_map>
#include <utility>

namespace zevo {
namespace {

std::string AttributeText(Element element, std::string_view name) {
  return std::string(element.Attribute(name).value_or(std::string_view()));
}

// The first length that restricts a type.
Element MaxLengthOf(Element simpleType) {
  for (const Element restriction : simpleType.Children()) {
    if (restriction.Name() != "restriction") continue;
    if (const Element found = simpleType.Owner().FirstChild(restriction, "maxLength")) return found;
  }
  return Element();
}

bool IsElement(Element node) { return node.Name() == "element"; }

// The key of a step: the number of the path above and the name of the element, with letter case folded.
std::string StepOf(uint32_t path, std::string_view name) {
  return std::to_string(path).append("/").append(FoldCase(name));
}

}  // namespace

// Numbers the paths of declarations.
class Validations::PathFinder {
 public:
  explicit PathFinder(Validations& tables) : tables_(tables), schema_(tables.document_.Root()) {}

  // The names of the elements around a declaration, and its own.
  Path Of(Element node) {
    const Element parent = node.Parent();
    if (parent == schema_) return OfGlobal(node);
    const auto [known, added] = paths_.try_emplace(node.node(), kNowhere);
    if (!added) return known->second;
    const Path path = Below(Of(parent), node);
    return paths_[node.node()] = path;
  }

 private:
  // The path of a global declaration leads through the place of its first reference, and so on upwards. Declarations
  // that refer to each other in a circle have no path.
  Path OfGlobal(Element global) {
    std::vector<std::pair<Element, Element>> waiting;  // declarations, with the element around their first reference
    Element node = global;
    while (paths_.try_emplace(node.node(), kNowhere).second) {
      const Element around = AroundReferenceTo(node);
      waiting.emplace_back(node, around);
      node = around ? GlobalAround(around) : Element();
    }
    if (paths_[node.node()] == kNowhere) return kNowhere;
    for (; !waiting.empty(); waiting.pop_back()) {
      const auto [declaration, around] = waiting.back();
      const Path above = around ? Of(around) : kTop;
      paths_[declaration.node()] = declaration.Attribute("name") ? Below(above, declaration) : kTop;
    }
    return paths_[global.node()];
  }

  // The element in which the first reference stands; nothing without a reference, or when it is at the top.
  Element AroundReferenceTo(Element global) const {
    const auto name = global.Attribute("name");
    const auto found = name ? tables_.first_references_.find(*name) : tables_.first_references_.end();
    if (found == tables_.first_references_.end()) return Element();
    const Element around = found->second.Parent();
    return around == schema_ ? Element() : around;
  }

  Element GlobalAround(Element node) const {
    for (Element parent = node.Parent(); parent != schema_; parent = node.Parent()) node = parent;
    return node;
  }

  // A name with a "/" in it counts as several steps.
  Path Below(Path path, Element node) {
    if (!IsElement(node) || path == kNowhere) return path;
    const std::string_view name = node.Attribute(node.Attribute("name") ? "name" : "ref").value_or(std::string_view());
    for (size_t begin = 0;;) {
      const size_t end = name.find('/', begin);
      path = Step(path, name.substr(begin, end - begin));
      if (end == std::string_view::npos) return path;
      begin = end + 1;
    }
  }

  Path Step(Path path, std::string_view name) {
    const auto [step, added] = tables_.steps_.try_emplace(StepOf(path, name), Path());
    if (added) {
      step->second = static_cast<Path>(tables_.elements_.size());
      tables_.elements_.emplace_back();
    }
    return step->second;
  }

  Validations& tables_;
  Element schema_;
  std::unordered_map<const Node*, Path> paths_{{nullptr, kTop}};
};

void Validations::LoadSchema(const SchemaSource& source) {
  loaded_ = false;
  types_.clear();
  steps_.clear();
  elements_.clear();
  first_references_.clear();
  globals_.clear();
  document_.Clear();
  try {
    LoadSchemaDocument(source.Read(), {}, document_);
  } catch (const Error& error) {
    if (error.Number() == static_cast<int32_t>(RunTimeError::kOutOfMemory)) throw;
    return;
  }
  if (document_.Root().Name() == "schema") {
    FillTypeTable();
    FillElementTable();
  }
  loaded_ = true;
}

void Validations::FillTypeTable() {
  for (const Element type : document_.Root().Children()) {
    if (type.Name() != "simpleType" || !MaxLengthOf(type)) continue;
    types_.try_emplace(FoldCase(AttributeText(type, "name")), type);
  }
}

void Validations::FillElementTable() {
  const Element schema = document_.Root();
  for (const Element child : schema.Children()) {
    if (IsElement(child)) globals_.try_emplace(AttributeText(child, "name"), child);
  }
  const auto forEachIn = [&](Element top, auto&& action) {
    for (Node* node = top.node(); node != nullptr; node = document_.Following(node, top.node())) {
      if (node->Kind() == NodeKind::kElement && IsElement(Element(node))) action(Element(node));
    }
  };
  forEachIn(schema, [&](Element element) {
    if (const auto name = element.Attribute("ref")) first_references_.try_emplace(std::string(*name), element);
  });
  elements_.emplace_back();  // kTop
  PathFinder paths(*this);
  for (const Element global : schema.Children()) {
    if (!IsElement(global)) continue;
    forEachIn(global, [&](Element element) {
      if (element == global || !element.Attribute("type")) return;
      const Path path = paths.Of(element);
      if (path != kNowhere && !elements_[path]) elements_[path] = element;
    });
  }
}

// The declaration under a path or, where there is none, the global one of its last name; nothing without either.
Element Validations::Declared(std::string_view key) const {
  Path path = key.starts_with('/') ? kTop : kNowhere;
  for (std::string_view left = key; path != kNowhere && !left.empty();) {
    left.remove_prefix(1);
    const std::string_view name = left.substr(0, left.find('/'));
    left.remove_prefix(name.size());
    const auto step = steps_.find(StepOf(path, name));
    path = step == steps_.end() ? kNowhere : step->second;
  }
  if (path != kNowhere && elements_[path]) return elements_[path];
  const auto global = globals_.find(key.substr(key.rfind('/') + 1));
  return global == globals_.end() ? Element() : global->second;
}

int Validations::MaxLength(std::string_view key) const {
  if (!loaded_) return kNoLimit;
  const Element declaration = Declared(key);
  const auto type = declaration ? declaration.Attribute("type") : std::nullopt;
  if (!type) return kNoLimit;
  const auto found = types_.find(FoldCase(*type));
  if (found == types_.end()) return kNoLimit;
  const int32_t length = IntegerFromText(AttributeText(MaxLengthOf(found->second), "value"));
  if (length > std::numeric_limits<int16_t>::max() || length < std::numeric_limits<int16_t>::min()) {
    throw MakeRunTimeError(RunTimeError::kOverflow);
  }
  // A negative length cannot cut anything off.
  return length < 0 ? kNoLimit : length;
}

std::string Validations::Validate(std::string_view key, std::string_view value, bool reportOnly) const {
  const int limit = reportOnly ? kNoLimit : MaxLength(key);
  return std::string(limit == kNoLimit ? value : Leftmost(value, limit));
}

}  // namespace zevo
