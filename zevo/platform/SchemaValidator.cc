#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlschemas.h>
#include <zevo/Error.h>
#include <zevo/platform/Document.h>
#include <zevo/platform/DocumentBuilder.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/SchemaValidator.h>
#include <zevo/platform/Serializer.h>
#include <zevo/platform/XmlError.h>

#include <array>
#include <optional>
#include <string_view>
#include <utility>

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
  const std::string& source;
  std::optional<Error> error;

  static void Take(void* self, xmlErrorPtr reported) {
    auto& first = *static_cast<FirstError*>(self);
    if (first.error || reported->level < XML_ERR_ERROR) return;
    first.error = XmlError(reported->code, first.source, reported->message == nullptr ? "" : reported->message,
                           reported->line, reported->int2);
  }
};

// A schema that pulls in others would have them read from wherever it says.
void RefuseReferences(const Document& schema, const std::string& source) {
  for (const Element child : schema.Root().Children()) {
    for (const std::string_view name : {"include", "import", "redefine"}) {
      if (child.Name() == name && child.Attribute("schemaLocation")) {
        throw XmlError(XML_SCHEMAP_SRC_INCLUDE, source, "O esquema remete para outro ficheiro: " + std::string(name), 1,
                       1);
      }
    }
  }
}

struct NoEvents : ParserHandler {
  void StartElement(const ParsedName&, std::span<const ParsedAttribute>) override {}
  void EndElement(const ParsedName&) override {}
  void Characters(std::string_view) override {}
};

}  // namespace

struct SchemaValidator::Schema {
  std::unique_ptr<xmlDoc, Deleter<xmlFreeDoc>> document;
  std::unique_ptr<xmlSchema, Deleter<xmlSchemaFree>> compiled;
};

SchemaValidator::SchemaValidator(const std::string& schemaFile, std::string source)
    : schema_(std::make_unique<Schema>()), source_(std::move(source)) {
  // Read by our own parser first, so that a schema meets the same refusals as any file, then handed on in UTF-8.
  Document document;
  DocumentBuilder builder(document);
  Parser(schemaFile, source_).Parse(builder);
  RefuseReferences(document, source_);
  const std::string text = SerializeToUtf8(document);

  FirstError first{source_, std::nullopt};
  const std::unique_ptr<xmlSchemaParserCtxt, Deleter<xmlSchemaFreeParserCtxt>> context(
      xmlSchemaNewMemParserCtxt(text.data(), static_cast<int>(text.size())));
  if (!context) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  xmlSchemaSetParserStructuredErrors(context.get(), &FirstError::Take, &first);
  schema_->compiled.reset(xmlSchemaParse(context.get()));
  if (first.error) throw *first.error;
  if (!schema_->compiled) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
}

SchemaValidator::~SchemaValidator() = default;

void SchemaValidator::Validate(const std::string& file) {
  const std::unique_ptr<xmlSchemaValidCtxt, Deleter<xmlSchemaFreeValidCtxt>> context(
      xmlSchemaNewValidCtxt(schema_->compiled.get()));
  if (!context) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  NoEvents events;
  Parser(file, source_).Parse(events, context.get());
  if (xmlSchemaIsValid(context.get()) != 1) {
    throw XmlError(XML_SCHEMAV_INTERNAL, source_, "O ficheiro não é válido", 1, 1);
  }
}

}  // namespace zevo
