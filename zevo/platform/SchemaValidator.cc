// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SchemaValidator.h>

#include <libxml/xmlerror.h>
#include <libxml/xmlschemas.h>
#include <zevo/Error.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/File.h>
#include <zevo/platform/HostErrorHandlers.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/TextDecoder.h>
#include <zevo/platform/fastpath/FastNames.h>
#include <zevo/platform/fastpath/FastParse.h>
#include <zevo/platform/fastpath/FastPath.h>
#include <zevo/platform/fastpath/FastValidation.h>

#include <span>
#include <string_view>

namespace zevo {
namespace {

struct NoEvents : ParserHandler {
  void StartElement(const ParsedName&, std::span<const ParsedAttribute>) override {}
  void EndElement(const ParsedName&) override {}
  void Characters(std::string_view) override {}
};

// Passes what comes on the fast path to a validation.
class ValidationEvents {
 public:
  explicit ValidationEvents(FastValidation& validation) : validation_(validation) {}

  static bool Standalone() { return true; }
  bool StartElement(const FastName& name, std::span<const ParsedAttribute> attributes) {
    return validation_.StartElement(name.Parsed(), attributes);
  }
  bool EndElement(const FastName&) { return validation_.EndElement(); }
  bool EndEmptyTag(const FastName&) { return validation_.EndElement(); }
  bool Leaf(const FastName& name, std::string_view text) { return validation_.Leaf(name.Parsed(), text); }
  bool Characters(std::string_view text) { return validation_.Characters(text); }
  bool Comment(std::string_view text) { return validation_.Comment(text); }

 private:
  FastValidation& validation_;
};

}  // namespace

void SchemaValidator::Free::operator()(xmlSchemaValidCtxt* context) const { xmlSchemaFreeValidCtxt(context); }

SchemaValidator::SchemaValidator(const CompiledSchema& schema) : schema_(schema) {
  const HostErrorHandlers aside;
  context_.reset(xmlSchemaNewValidCtxt(schema.Get()));
  if (!context_) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
}

void SchemaValidator::Validate(const std::string& file, const ProblemSink& found) {
  std::optional<InputFile> input;
  try {
    input.emplace(file);
  } catch (const Error& error) {
    found(UnreadableFile(error));
    return;
  }
  Validate(*input, found);
}

void SchemaValidator::Validate(ByteSource& input, const ProblemSink& found) {
  std::optional<XmlProblem> unreadable;
  bool valid = false;
  try {
    valid = IsSurelyValid(input, unreadable);
  } catch (const Error& error) {
    unreadable = UnreadableFile(error);
  }
  if (unreadable) {
    found(*unreadable);
  } else if (!valid) {
    Validate(Parser(input), found);
  }
}

bool SchemaValidator::IsSurelyValid(ByteSource& input, std::optional<XmlProblem>& unreadable) const {
  if (schema_.Fast() == nullptr || !IsFastPathOn() || !input.CanRestart()) return false;
  if constexpr (kHasFastPath) {
    TextDecoder decoder(input);
    FastNames names;
    FastValidation validation(*schema_.Fast());
    ValidationEvents events(validation);
    uint64_t bytes_read = 0;
    FastParse<ValidationEvents> parse(decoder, names, events, bytes_read);
    // What is asked of libxml2 about a text must not be told to the host.
    const HostErrorHandlers aside;
    auto outcome = FastOutcome::kGoesOn;
    while (outcome == FastOutcome::kGoesOn) outcome = parse.ParsePiece();
    if (outcome == FastOutcome::kThrough && validation.IsValid()) return true;
    unreadable = parse.Problem();
    if (!unreadable) input.Restart();
  }
  return false;
}

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
