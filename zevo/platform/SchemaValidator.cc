// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SchemaValidator.h>

#include <libxml/xmlerror.h>
#include <libxml/xmlschemas.h>
#include <zevo/Error.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/HostErrorHandlers.h>
#include <zevo/platform/Parser.h>

#include <span>
#include <string_view>

namespace zevo {
namespace {

struct NoEvents : ParserHandler {
  void StartElement(const ParsedName&, std::span<const ParsedAttribute>) override {}
  void EndElement(const ParsedName&) override {}
  void Characters(std::string_view) override {}
};

}  // namespace

void SchemaValidator::Free::operator()(xmlSchemaValidCtxt* context) const { xmlSchemaFreeValidCtxt(context); }

SchemaValidator::SchemaValidator(const CompiledSchema& schema) : schema_(schema) {
  const HostErrorHandlers aside;
  context_.reset(xmlSchemaNewValidCtxt(schema.Get()));
  if (!context_) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
}

void SchemaValidator::Validate(const std::string& file, const ProblemSink& found) { Validate(Parser(file), found); }

void SchemaValidator::Validate(ByteSource& input, const ProblemSink& found) { Validate(Parser(input), found); }

void SchemaValidator::Validate(Parser parser, const ProblemSink& found) {
  const HostErrorHandlers aside;
  bool violated = false;
  NoEvents events;
  std::optional<XmlProblem> problem = parser.Parse(events, context_.get(), [&](const XmlProblem& violation) {
    violated = true;
    return found(violation);
  });
  if (!problem && !violated && xmlSchemaIsValid(context_.get()) != 1) {
    problem = {
        .number = XML_SCHEMAV_INTERNAL, .reason = "A validação não chegou ao fim", .fault = XmlProblem::Fault::kSchema};
  }
  if (!problem) return;
  if (problem->fault == XmlProblem::Fault::kSchema) problem->reason.insert(0, schema_.Name() + ": ");
  found(*problem);
}

std::optional<XmlProblem> SchemaValidator::FirstProblem(const std::string& file) {
  std::optional<XmlProblem> first;
  Validate(file, [&](const XmlProblem& problem) {
    first = problem;
    return false;
  });
  return first;
}

}  // namespace zevo
