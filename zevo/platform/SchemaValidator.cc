#include <zevo/platform/SchemaValidator.h>

#include <libxml/parser.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlschemas.h>
#include <libxml/xmlschemastypes.h>
#include <zevo/Error.h>
#include <zevo/TextHash.h>
#include <zevo/platform/File.h>
#include <zevo/platform/Parser.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/TextDecoder.h>
#include <zevo/platform/XmlError.h>

#include <algorithm>
#include <mutex>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

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

// What a schema must not do: pull in others, which would be read from wherever it says, or grow without bounds when its
// definitions, each naming the next one twice, are put in each other's places.
class Restrictions : public NoEvents {
 public:
  Restrictions(std::string_view source, std::string_view targetNamespace)
      : source_(source), target_namespace_(targetNamespace) {}

  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override {
    const std::string_view local = name.local;
    if (depth_ == 0 && local == "schema") RequireNamespace(attributes);
    if (local == "include" || local == "import" || local == "redefine") RefuseLocation(attributes);
    ++depth_;
    if (depth_ == kDefinitionDepth) current_ = &definitions_[std::string(ValueOf(attributes, "name"))];
    if (depth_ < kDefinitionDepth) return;
    ++current_->elements;
    if (local == "group" || local == "attributeGroup") Note(ValueOf(attributes, "ref"));
    for (const std::string_view reference : {"base", "itemType", "memberTypes"}) Note(ValueOf(attributes, reference));
  }
  void EndElement(const ParsedName&) override { --depth_; }

  /// To be called after the last element.
  void CheckGrowth() {
    size_t elements = 0;
    for (auto& [name, definition] : definitions_) {
      elements += Grown(definition, 0);
      if (elements > kMostElements) Refuse(XML_ERR_USER_STOP, kTooLarge);
    }
  }

 private:
  struct Definition {
    size_t elements = 0;
    std::vector<std::string> references;
    std::optional<size_t> grown;  // zero while it is being counted: a definition in itself is an error of its own
  };

  static constexpr int kDefinitionDepth = 2;
  static constexpr size_t kMostElements = 100'000;
  static constexpr int kLongestChain = 500;
  static constexpr std::string_view kTooLarge = "As definições do esquema remetem umas para outras vezes de mais";

  [[noreturn]] void Refuse(int number, std::string_view reason) const { throw XmlError(number, source_, reason, 0, 0); }

  static std::string_view ValueOf(std::span<const ParsedAttribute> attributes, std::string_view name) {
    for (const ParsedAttribute& attribute : attributes) {
      if (attribute.name.prefix == nullptr && attribute.name.local == name) return attribute.value;
    }
    return {};
  }

  void RequireNamespace(std::span<const ParsedAttribute> attributes) const {
    const std::string_view found = ValueOf(attributes, "targetNamespace");
    if (found == target_namespace_) return;
    const auto named = [](std::string_view name, std::string_view none) {
      return name.empty() ? std::string(none) : std::string("do espaço de nomes «").append(name).append("»");
    };
    Refuse(XML_ERR_USER_STOP, "O esquema é " + named(found, "de nenhum espaço de nomes") + ", mas " +
                                  (target_namespace_.empty() ? "não pode ter espaço de nomes"
                                                             : "tem de ser " + named(target_namespace_, {})));
  }

  void RefuseLocation(std::span<const ParsedAttribute> attributes) const {
    for (const ParsedAttribute& attribute : attributes) {
      if (std::string_view(attribute.name.local) != "schemaLocation") continue;
      Refuse(XML_SCHEMAP_SRC_INCLUDE, "O esquema remete para outro ficheiro");
    }
  }

  // A list of qualified names; definitions are known by what follows the prefix.
  void Note(std::string_view names) {
    constexpr std::string_view kSpaces = " \t\r\n";
    for (size_t begin = names.find_first_not_of(kSpaces); begin != std::string_view::npos;) {
      const std::string_view name = names.substr(begin, names.find_first_of(kSpaces, begin) - begin);
      current_->references.emplace_back(name.substr(name.find(':') + 1));
      begin = names.find_first_not_of(kSpaces, begin + name.size());
    }
  }

  size_t Grown(Definition& definition, int chain) {
    if (definition.grown) return *definition.grown;
    if (chain > kLongestChain) Refuse(XML_ERR_USER_STOP, kTooLarge);
    definition.grown = 0;
    size_t elements = definition.elements;
    for (const std::string& reference : definition.references) {
      const auto found = definitions_.find(reference);
      if (found == definitions_.end()) continue;
      elements = std::min(elements + Grown(found->second, chain + 1), kMostElements + 1);
    }
    definition.grown = elements;
    return elements;
  }

  std::string_view source_;
  std::string_view target_namespace_;
  int depth_ = 0;
  Definition* current_ = nullptr;
  TextMap<Definition> definitions_;
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
  const std::string source(source_);
  Restrictions restrictions(source_, target_namespace_);
  InputBytes input(bytes);
  Parser(input, source).Parse(restrictions);
  restrictions.CheckGrowth();
  const std::string text = Utf8Of(bytes);

  FirstError first{source, std::nullopt};
  const std::unique_ptr<xmlSchemaParserCtxt, Deleter<xmlSchemaFreeParserCtxt>> context(
      xmlSchemaNewMemParserCtxt(text.data(), static_cast<int>(text.size())));
  if (!context) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  xmlSchemaSetParserStructuredErrors(context.get(), &FirstError::Take, &first);
  schema_->compiled.reset(xmlSchemaParse(context.get()));
  if (first.error) throw Error(*first.error);
  if (!schema_->compiled) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
}

void SchemaValidator::Validate(const std::string& file) {
  schema_at_fault_ = true;
  const std::unique_ptr<xmlSchemaValidCtxt, Deleter<xmlSchemaFreeValidCtxt>> context(
      xmlSchemaNewValidCtxt(schema_->compiled.get()));
  if (!context) throw MakeRunTimeError(RunTimeError::kOutOfMemory);
  schema_at_fault_ = false;
  try {
    NoEvents events;
    Parser(file, std::string(source_)).Parse(events, context.get());
    if (xmlSchemaIsValid(context.get()) != 1) {
      throw XmlError(XML_SCHEMAV_INTERNAL, source_, "A validação não chegou ao fim", 0, 0);
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
