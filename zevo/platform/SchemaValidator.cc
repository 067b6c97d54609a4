// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SchemaValidator.h>

#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlschemas.h>
#include <libxml/xmlschemastypes.h>
#include <zevo/Error.h>
#include <zevo/platform/File.h>
#include <zevo/platform/HostErrorHandlers.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/SchemaDocument.h>
#include <zevo/platform/SchemaRestrictions.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/TextDecoder.h>
#include <zevo/platform/XmlProblem.h>

#include <mutex>
#include <optional>
#include <string_view>

namespace zevo {
namespace {

template <auto kFree>
struct Deleter {
  template <class T>
  void operator()(T* object) const {
    kFree(object);
  }
};

// The first error that compiling a schema reports.
struct FirstError {
  std::optional<XmlProblem> problem;

  static void Take(void* self, xmlErrorPtr reported) {
    auto& first = *static_cast<FirstError*>(self);
    if (first.problem || reported->level < XML_ERR_ERROR) return;
    first.problem = {.number = reported->code,
                     .reason = reported->message == nullptr ? "" : reported->message,
                     .fault = XmlProblem::Fault::kSchema,
                     .place = {reported->line, reported->int2}};
  }
};

struct NoEvents : ParserHandler {
  void StartElement(const ParsedName&, std::span<const ParsedAttribute>) override {}
  void EndElement(const ParsedName&) override {}
  void Characters(std::string_view) override {}
};

// The text of a schema in UTF-8, which its declaration then tells too.
std::string Utf8Of(std::string_view bytes) {
  InputBytes input(bytes);
  TextDecoder decoder(input);
  std::string text;
  constexpr size_t kPiece = size_t{64} * 1024;
  for (size_t got = kPiece; got > 0;) {
    const size_t length = text.size();
    text.resize(length + kPiece);
    got = decoder.Read(text.data() + length, kPiece);
    text.resize(length + got);
  }
  if (const auto encoding = DeclaredEncoding(text)) {
    text.replace(static_cast<size_t>(encoding->data() - text.data()), encoding->size(), "UTF-8");
  }
  return text;
}

}  // namespace

struct SchemaValidator::Schema {
  struct Free {
    void operator()(xmlSchema* schema) const { xmlSchemaFree(schema); }
  };
  std::unique_ptr<xmlSchema, Free> compiled;
};

SchemaValidator::SchemaValidator(std::string_view source, std::string_view targetNamespace)
    : source_(source), target_namespace_(targetNamespace) {}
SchemaValidator::~SchemaValidator() = default;

void SchemaValidator::Compile(const SchemaSource& schema) {
  schema_at_fault_ = true;
  schema_ = std::make_unique<Schema>();
  name_ = schema.Name();
  std::string bytes;
  try {
    bytes = schema.Read();
  } catch (const Error& error) {
    throw Error(error.Number(), std::string(source_), error.Description());
  }
  try {
    Compile(bytes);
  } catch (const Error& error) {
    Blame(error);
  }
  schema_at_fault_ = false;
}

void SchemaValidator::Compile(std::string_view bytes) {
  // libxml2 makes its table of built-in types when it is first wanted, with no thought of threads.
  static std::once_flag once;
  std::call_once(once, xmlSchemaInitTypes);
  // Read by our own parser first, so that a schema meets the same refusals as any file.
  {
    Document document;
    LoadSchemaDocument(bytes, source_, document);
    RequireModestSchema(document, target_namespace_, source_);
  }
  const std::string text = Utf8Of(bytes);
  const HostErrorHandlers aside;

  FirstError first;
  const std::unique_ptr<xmlSchemaParserCtxt, Deleter<xmlSchemaFreeParserCtxt>> context(
      xmlSchemaNewMemParserCtxt(text.data(), static_cast<int>(text.size())));
  if (!context) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  xmlSchemaSetParserStructuredErrors(context.get(), &FirstError::Take, &first);
  schema_->compiled.reset(xmlSchemaParse(context.get()));
  Raise(first.problem, source_);
  if (!schema_->compiled) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
}

void SchemaValidator::Validate(const std::string& file) {
  schema_at_fault_ = true;
  const HostErrorHandlers aside;
  const std::unique_ptr<xmlSchemaValidCtxt, Deleter<xmlSchemaFreeValidCtxt>> context(
      xmlSchemaNewValidCtxt(schema_->compiled.get()));
  if (!context) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  schema_at_fault_ = false;
  try {
    NoEvents events;
    Raise(Parser(file).Parse(events, context.get()), source_);
    if (xmlSchemaIsValid(context.get()) != 1) {
      const XmlProblem unfinished{.number = XML_SCHEMAV_INTERNAL,
                                  .reason = "A validação não chegou ao fim",
                                  .fault = XmlProblem::Fault::kSchema};
      throw AsError(unfinished, source_);
    }
  } catch (const Error& error) {
    if (error.Number() != XML_SCHEMAV_INTERNAL) throw;
    schema_at_fault_ = true;
    Blame(error);
  }
}

// Where memory runs out, the schema is not named.
void SchemaValidator::Blame(const Error& error) const {
  if (error.Number() == static_cast<int32_t>(RunTimeError::kOutOfMemory)) throw Error(error);
  throw Error(error.Number(), std::string(source_), name_ + ": " + error.Description());
}

}  // namespace zevo
