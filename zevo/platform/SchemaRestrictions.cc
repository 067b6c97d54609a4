// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SchemaRestrictions.h>

#include <libxml/xmlerror.h>
#include <zevo/Error.h>
#include <zevo/platform/SchemaCost.h>
#include <zevo/platform/SchemaLimits.h>
#include <zevo/platform/SchemaReferences.h>
#include <zevo/platform/SchemaSyntax.h>
#include <zevo/platform/XmlProblem.h>

#include <string>
#include <utility>

namespace zevo {
namespace {

[[noreturn]] void Raise(int number, std::string reason, std::string_view errorSource) {
  throw AsError({.number = number, .reason = std::move(reason), .fault = XmlProblem::Fault::kSchema}, errorSource);
}

// The reason and the definition at fault, if one is given.
std::string SentenceOf(const SchemaLimits::Passed& limit, Element schema) {
  std::string text = "O esquema " + limit.reason;
  if (Element definition = limit.within) {
    while (definition.Parent() != schema) definition = definition.Parent();
    text.append(", em «").append(ValueOf(definition, "name")).append("»");
  }
  return text;
}

void RequireNamespace(Element schema, std::string_view wanted) {
  const std::string_view found = ValueOf(schema, "targetNamespace");
  if (found == wanted) return;
  const auto named = [](std::string_view name, std::string_view none) {
    return name.empty() ? std::string(none) : std::string("do espaço de nomes «").append(name).append("»");
  };
  throw SchemaLimits::Passed{"é " + named(found, "de nenhum espaço de nomes") + ", mas " +
                             (wanted.empty() ? "não pode ter espaço de nomes" : "tem de ser " + named(wanted, {}))};
}

void RequireFewElementsOfOneFile(Element schema, std::string_view errorSource) {
  int elements = 0;
  ForEachElement(schema, [&](Element element) {
    if (++elements > SchemaLimits::kElements) throw SchemaLimits::Passed{"tem mais de 10 000 elementos"};
    if (IsOneOf(element.Name(), {"include", "import", "redefine"}) && element.Attribute("schemaLocation")) {
      Raise(XML_SCHEMAP_SRC_INCLUDE, "O esquema remete para outro ficheiro", errorSource);
    }
  });
}

void RequireModestCost(Element schema) {
  const SchemaReferences references(schema);
  const SchemaCost cost(schema, references);
  if (cost.Seconds() > SchemaLimits::kSeconds) throw SchemaLimits::Passed{"levaria tempo de mais a preparar"};
  if (cost.Bytes() > SchemaLimits::kBytes) throw SchemaLimits::Passed{"levaria memória de mais a preparar"};
}

}  // namespace

void RequireModestSchema(const Document& document, std::string_view targetNamespace, std::string_view errorSource) {
  const Element schema = document.Root();
  // What is no schema is left to libxml2, which refuses it.
  if (schema.Name() != "schema") return;
  try {
    RequireNamespace(schema, targetNamespace);
    RequireFewElementsOfOneFile(schema, errorSource);
    RequireModestCost(schema);
  } catch (const SchemaLimits::Passed& limit) {
    Raise(XML_ERR_USER_STOP, SentenceOf(limit, schema), errorSource);
  }
}

}  // namespace zevo
