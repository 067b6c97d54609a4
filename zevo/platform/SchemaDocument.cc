#include <zevo/platform/SchemaDocument.h>

#include <zevo/platform/DocumentBuilder.h>
#include <zevo/platform/File.h>
#include <zevo/platform/Parser.h>

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace zevo {
namespace {

constexpr std::string_view kSchemaNamespace = "http://www.w3.org/2001/XMLSchema";
constexpr const char* kForeignName = "?";

class Declarations : public ParserHandler {
 public:
  explicit Declarations(Document& document) : builder_(document) {}

  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override {
    attributes_.clear();
    for (ParsedAttribute attribute : attributes) {
      if (attribute.name.prefix != nullptr) continue;
      attribute.name.number = AttributeNumber(attribute.name.number);
      attributes_.push_back(attribute);
    }
    const bool own = name.uri != nullptr && name.uri == kSchemaNamespace;
    const ParsedName foreign{kForeignName, nullptr, kForeignNumber};
    builder_.StartElement(own ? ParsedName{name.local, nullptr, ElementNumber(name.number)} : foreign, attributes_);
  }
  void EndElement(const ParsedName& name) override { builder_.EndElement(name); }
  void Characters(std::string_view) override {}

 private:
  // The same name may be one of the schema's here and a foreign one there, as its prefix goes: numbers are given anew,
  // and a declaration of a namespace keeps 0.
  static constexpr uint32_t kForeignNumber = 1;
  static uint32_t ElementNumber(uint32_t parsed) { return parsed * 2; }
  static uint32_t AttributeNumber(uint32_t parsed) { return parsed == 0 ? 0 : parsed * 2 + 1; }

  DocumentBuilder builder_;
  std::vector<ParsedAttribute> attributes_;
};

}  // namespace

void LoadSchemaDocument(std::string_view bytes, std::string_view errorSource, Document& document) {
  Declarations declarations(document);
  InputBytes input(bytes);
  Parser(input, std::string(errorSource)).Parse(declarations);
}

}  // namespace zevo
