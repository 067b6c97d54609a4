#include <zevo/model/Validations.h>

#include <zevo/Error.h>
#include <zevo/model/HelperTransformations.h>
#include <zevo/model/LetterCase.h>
#include <zevo/platform/DocumentBuilder.h>
#include <zevo/platform/File.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/Text.h>

#include <limits>

namespace zevo {
namespace {

// Deeper than any schema nests its declarations; a schema whose references run in a circle ends here.
constexpr int kDeepest = 64;

std::string AttributeText(Element element, std::string_view name) {
  return std::string(element.Attribute(name).value_or(std::string_view()));
}

Element ChildNamed(Element parent, std::string_view name) { return parent.Owner().FirstChild(parent, name); }

Element MaxLengthOf(Element simpleType) {
  const Element restriction = ChildNamed(simpleType, "restriction");
  return restriction ? ChildNamed(restriction, "maxLength") : Element();
}

bool IsElement(Element node) { return node.Name() == "element"; }

}  // namespace

void Validations::LoadSchema(const SchemaSource& source) {
  loaded_ = false;
  types_.clear();
  elements_.clear();
  first_references_.clear();
  globals_.clear();
  document_.Clear();
  try {
    const std::string bytes = source.Read();
    InputBytes input(bytes);
    DocumentBuilder builder(document_);
    Parser(input, std::string()).Parse(builder);
  } catch (const Error& error) {
    if (error.Number() == static_cast<int32_t>(RunTimeError::kOutOfMemory)) throw;
    return;
  }
  const Element schema = document_.Root();
  if (schema.Name() == "schema") {
    Node* const top = schema.node();
    for (Node* node = top; node != nullptr; node = document_.Following(node, top)) {
      const Element element(node);
      if (node->Kind() != NodeKind::kElement || !IsElement(element)) continue;
      first_references_.try_emplace(AttributeText(element, "ref"), element);
    }
    for (const Element child : schema.Children()) {
      if (IsElement(child)) globals_.try_emplace(AttributeText(child, "name"), child);
    }
    FillTypeTable();
    for (const Element child : schema.Children()) {
      if (IsElement(child)) FillElementTable(child, true);
    }
  }
  loaded_ = true;
}

void Validations::FillTypeTable() {
  for (const Element type : document_.Root().Children()) {
    if (type.Name() != "simpleType" || !MaxLengthOf(type)) continue;
    types_.try_emplace(FoldCase(AttributeText(type, "name")), type);
  }
}

void Validations::FillElementTable(Element element, bool topLevel) {
  if (!topLevel && IsElement(element) && element.Attribute("type")) {
    elements_.try_emplace(FoldCase(ElementPath(element, 0)), element);
  }
  for (const Element child : element.Children()) FillElementTable(child, false);
}

// The names of the elements around a declaration. A global one stands where it is first referred to.
std::string Validations::ElementPath(Element element, int depth) const {
  std::string own;
  if (IsElement(element)) {
    const std::string name = AttributeText(element, element.Attribute("name") ? "name" : "ref");
    own = "/" + name;
  }
  const Element parent = element.Parent();
  if (depth > kDeepest || !parent) return {};
  if (parent != document_.Root()) return ElementPath(parent, depth + 1) + own;
  const auto name = element.Attribute("name");
  if (!name) return {};
  const auto reference = first_references_.find(*name);
  if (reference == first_references_.end()) return own;
  return ElementPath(reference->second.Parent(), depth + 1) + own;
}

int Validations::MaxLength(std::string_view key) const {
  if (!loaded_) return kNoLimit;
  Element declaration;
  if (const auto found = elements_.find(FoldCase(key)); found != elements_.end()) {
    declaration = found->second;
  } else {
    const std::string_view name = key.substr(key.rfind('/') + 1);
    const auto global = globals_.find(name);
    if (global == globals_.end()) return kNoLimit;
    declaration = global->second;
  }
  const auto type = declaration.Attribute("type");
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
