#include <zevo/platform/SchemaValidator.h>

#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlschemas.h>
#include <zevo/Error.h>
#include <zevo/platform/File.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/TextDecoder.h>
#include <zevo/platform/XmlError.h>

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

struct NoEvents : ParserHandler {
  void StartElement(const ParsedName&, std::span<const ParsedAttribute>) override {}
  void EndElement(const ParsedName&) override {}
  void Characters(std::string_view) override {}
};

// A schema that pulls in others would have them read from wherever it says.
struct NoReferences : NoEvents {
  explicit NoReferences(const std::string& given) : source(given) {}
  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override {
    const std::string_view local = name.local;
    if (local != "include" && local != "import" && local != "redefine") return;
    for (const ParsedAttribute& attribute : attributes) {
      if (std::string_view(attribute.name.local) != "schemaLocation") continue;
      throw XmlError(XML_SCHEMAP_SRC_INCLUDE, source, "O esquema remete para outro ficheiro", 0, 0);
    }
  }
  const std::string& source;
};

// The content of a file in UTF-8, which its declaration then tells too.
std::string Utf8Of(const std::string& file) {
  InputFile input(file);
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
  std::unique_ptr<xmlSchema, Deleter<xmlSchemaFree>> compiled;
};

SchemaValidator::SchemaValidator(const std::string& schemaFile, std::string source)
    : schema_(std::make_unique<Schema>()), source_(std::move(source)) {
  // Read by our own parser first, so that a schema meets the same refusals as any file.
  NoReferences references(source_);
  Parser(schemaFile, source_).Parse(references);
  const std::string text = Utf8Of(schemaFile);

  FirstError first{source_, std::nullopt};
  const std::unique_ptr<xmlSchemaParserCtxt, Deleter<xmlSchemaFreeParserCtxt>> context(
      xmlSchemaNewMemParserCtxt(text.data(), static_cast<int>(text.size())));
  if (!context) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  xmlSchemaSetParserStructuredErrors(context.get(), &FirstError::Take, &first);
  schema_->compiled.reset(xmlSchemaParse(context.get()));
  if (first.error) throw Error(*first.error);
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
