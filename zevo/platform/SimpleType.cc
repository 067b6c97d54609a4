// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SimpleType.h>

#include <libxml/schemasInternals.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlschemastypes.h>
#include <zevo/Error.h>
#include <zevo/platform/SchemaSyntax.h>

#include <algorithm>
#include <array>
#include <utility>

namespace zevo {
namespace {

constexpr const char* kXmlSchema = "http://www.w3.org/2001/XMLSchema";

struct FreeValue {
  void operator()(xmlSchemaVal* value) const { xmlSchemaFreeValue(value); }
};
struct FreeText {
  void operator()(xmlChar* text) const { xmlFree(text); }
};

const xmlChar* Xml(const std::string& text) { return reinterpret_cast<const xmlChar*>(text.c_str()); }

struct FacetRow {
  std::string_view name;
  xmlSchemaTypeType type;
  int32_t number;
};
constexpr auto kFacetRows = std::to_array<FacetRow>({
    {"length", XML_SCHEMA_FACET_LENGTH, XML_SCHEMAV_CVC_LENGTH_VALID},
    {"minLength", XML_SCHEMA_FACET_MINLENGTH, XML_SCHEMAV_CVC_MINLENGTH_VALID},
    {"maxLength", XML_SCHEMA_FACET_MAXLENGTH, XML_SCHEMAV_CVC_MAXLENGTH_VALID},
    {"minInclusive", XML_SCHEMA_FACET_MININCLUSIVE, XML_SCHEMAV_CVC_MININCLUSIVE_VALID},
    {"maxInclusive", XML_SCHEMA_FACET_MAXINCLUSIVE, XML_SCHEMAV_CVC_MAXINCLUSIVE_VALID},
    {"minExclusive", XML_SCHEMA_FACET_MINEXCLUSIVE, XML_SCHEMAV_CVC_MINEXCLUSIVE_VALID},
    {"maxExclusive", XML_SCHEMA_FACET_MAXEXCLUSIVE, XML_SCHEMAV_CVC_MAXEXCLUSIVE_VALID},
    {"totalDigits", XML_SCHEMA_FACET_TOTALDIGITS, XML_SCHEMAV_CVC_TOTALDIGITS_VALID},
    {"fractionDigits", XML_SCHEMA_FACET_FRACTIONDIGITS, XML_SCHEMAV_CVC_FRACTIONDIGITS_VALID},
    {"pattern", XML_SCHEMA_FACET_PATTERN, XML_SCHEMAV_CVC_PATTERN_VALID},
    {"enumeration", XML_SCHEMA_FACET_ENUMERATION, XML_SCHEMAV_CVC_ENUMERATION_VALID},
});

// Types that are lists, or mean something only where they stand.
bool IsOutOfReach(std::string_view name) {
  return IsOneOf(name, {"anyType", "QName", "NOTATION", "ID", "IDREF", "IDREFS", "ENTITY", "ENTITIES", "NMTOKENS"});
}

bool IsLength(xmlSchemaTypeType facet) {
  return facet == XML_SCHEMA_FACET_LENGTH || facet == XML_SCHEMA_FACET_MINLENGTH || facet == XML_SCHEMA_FACET_MAXLENGTH;
}

// A decimal number without what does not change its value.
std::string ShortestNumber(std::string_view text) {
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
  if (text.find('.') != std::string_view::npos) {
    text = text.substr(0, text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.remove_suffix(1);
  }
  if (text.empty()) return "0";
  return std::string(negative ? "-" : "").append(text);
}

}  // namespace

void SimpleType::FreeFacet::operator()(xmlSchemaFacet* facet) const { xmlSchemaFreeFacet(facet); }

std::shared_ptr<const SimpleType> SimpleType::BuiltIn(std::string_view name) {
  if (IsOutOfReach(name)) return nullptr;
  xmlSchemaType* const found = xmlSchemaGetPredefinedType(Xml(std::string(name)), BAD_CAST kXmlSchema);
  if (found == nullptr) return nullptr;
  auto type = std::make_shared<SimpleType>();
  type->built_in_ = found;
  type->name_ = reinterpret_cast<const char*>(found->name);
  if (IsOneOf(name, {"string", "anySimpleType"})) type->white_space_ = WhiteSpace::kPreserve;
  if (name == "normalizedString") type->white_space_ = WhiteSpace::kReplace;
  return type;
}

std::shared_ptr<const SimpleType> SimpleType::Restricted(std::shared_ptr<const SimpleType> base, Element restriction) {
  auto type = std::make_shared<SimpleType>();
  type->built_in_ = base->built_in_;
  type->name_ = base->name_;
  type->white_space_ = base->white_space_;
  type->base_ = std::move(base);
  for (const Element facet : restriction.Children()) {
    if (IsOneOf(facet.Name(), {"annotation", "simpleType"})) continue;
    if (!type->Add(facet.Name(), ValueOf(facet, "value"))) return nullptr;
  }
  return type;
}

bool SimpleType::Add(std::string_view facet, std::string_view value) {
  if (facet == "whiteSpace") {
    if (value == "replace") white_space_ = WhiteSpace::kReplace;
    if (value == "collapse") white_space_ = WhiteSpace::kCollapse;
    return true;
  }
  const auto row = std::ranges::find(kFacetRows, facet, &FacetRow::name);
  if (row == kFacetRows.end()) return false;
  Facets& kind = row->type == XML_SCHEMA_FACET_PATTERN       ? patterns_
                 : row->type == XML_SCHEMA_FACET_ENUMERATION ? enumeration_
                                                             : limits_;
  kind.push_back({row->number, std::string(value), nullptr});
  Facet& added = kind.back();
  added.compiled.reset(xmlSchemaNewFacet());
  if (!added.compiled) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  added.compiled->type = row->type;
  // libxml2 neither copies nor frees it.
  added.compiled->value = Xml(added.value);
  return xmlSchemaCheckFacet(added.compiled.get(), built_in_, nullptr, nullptr) == 0;
}

std::string SimpleType::Normalized(std::string_view text) const {
  std::string value(text);
  if (white_space_ == WhiteSpace::kPreserve) return value;
  const std::unique_ptr<xmlChar, FreeText> changed(white_space_ == WhiteSpace::kReplace
                                                       ? xmlSchemaWhiteSpaceReplace(Xml(value))
                                                       : xmlSchemaCollapseString(Xml(value)));
  // Null where there is nothing to change.
  return changed ? std::string(reinterpret_cast<const char*>(changed.get())) : value;
}

// libxml2 takes white space off for patterns and enumerations alone, though the types would have it so. Its numbers are
// taken with blanks around them all the same, its dates and times are not.
bool SimpleType::TakesWhiteSpaceOff() const {
  for (const SimpleType* step = this; step != nullptr; step = step->base_.get()) {
    if (!step->patterns_.empty() || !step->enumeration_.empty()) return true;
  }
  return false;
}

// A fault is negative where libxml2 breaks down.
std::optional<SimpleType::Refusal> SimpleType::Judge(std::string_view text, bool breakdownRefuses) const {
  const std::string normalized = TakesWhiteSpaceOff() ? Normalized(text) : std::string(text);
  const xmlChar* const value = Xml(normalized);
  xmlSchemaVal* made = nullptr;
  const int type_fault = xmlSchemaValPredefTypeNodeNoNorm(built_in_, value, &made, nullptr);
  const std::unique_ptr<xmlSchemaVal, FreeValue> typed(made);
  const auto is_refused = [&](int fault) { return fault > 0 || (breakdownRefuses && fault < 0); };
  if (is_refused(type_fault)) return Refusal{XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, std::string(name_)};
  const auto value_type = static_cast<xmlSchemaValType>(built_in_->builtInType);
  const auto space = static_cast<xmlSchemaWhitespaceValueType>(white_space_);
  const auto refuses = [&](const Facet& facet) {
    unsigned long length = 0;  // NOLINT(google-runtime-int): libxml2's type
    const int fault =
        IsLength(facet.compiled->type)
            ? xmlSchemaValidateLengthFacetWhtsp(facet.compiled.get(), value_type, value, typed.get(), &length, space)
            : xmlSchemaValidateFacetWhtsp(facet.compiled.get(), space, value_type, value, typed.get(), space);
    return is_refused(fault);
  };
  for (const SimpleType* step = this; step != nullptr; step = step->base_.get()) {
    for (const Facet& facet : step->limits_) {
      if (refuses(facet)) return Refusal{facet.number, facet.value};
    }
  }
  // Of enumerations, the innermost counts.
  const SimpleType* coded = this;
  while (coded != nullptr && coded->enumeration_.empty()) coded = coded->base_.get();
  if (coded != nullptr && std::ranges::all_of(coded->enumeration_, refuses)) {
    Refusal refusal{XML_SCHEMAV_CVC_ENUMERATION_VALID, {}};
    for (const Facet& facet : coded->enumeration_) {
      if (!refusal.allowed.empty()) refusal.allowed += ", ";
      refusal.allowed += facet.value;
    }
    return refusal;
  }
  // Of the patterns of one restriction one is enough; each restriction counts.
  for (const SimpleType* step = this; step != nullptr; step = step->base_.get()) {
    if (!step->patterns_.empty() && std::ranges::all_of(step->patterns_, refuses)) {
      return Refusal{XML_SCHEMAV_CVC_PATTERN_VALID, step->patterns_.front().value};
    }
  }
  return std::nullopt;
}

bool SimpleType::IsString() const {
  switch (built_in_->builtInType) {
    case XML_SCHEMAS_STRING:
    case XML_SCHEMAS_NORMSTRING:
    case XML_SCHEMAS_TOKEN:
    case XML_SCHEMAS_LANGUAGE:
    case XML_SCHEMAS_NMTOKEN:
    case XML_SCHEMAS_NAME:
    case XML_SCHEMAS_NCNAME:
      return true;
    default:
      return false;
  }
}

std::optional<std::string> SimpleType::Comparable(std::string_view text) const {
  const int type = built_in_->builtInType;
  if (IsString()) return "s" + Normalized(text);
  const bool whole = type >= XML_SCHEMAS_INTEGER && type <= XML_SCHEMAS_UBYTE;
  if (whole || type == XML_SCHEMAS_DECIMAL) return "n" + ShortestNumber(Normalized(text));
  return std::nullopt;
}

}  // namespace zevo
