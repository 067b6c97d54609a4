#include <zevo/platform/SchemaDocument.h>

#include <zevo/platform/DocumentBuilder.h>
#include <zevo/platform/File.h>
#include <zevo/platform/Parser.h>

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
    for (const ParsedAttribute& attribute : attributes) {
      if (attribute.name.prefix == nullptr) attributes_.push_back(attribute);
    }
    const bool own = name.uri != nullptr && name.uri == kSchemaNamespace;
    builder_.StartElement({own ? name.local : kForeignName, nullptr}, attributes_);
  }
  void EndElement(const ParsedName& name) override { builder_.EndElement(name); }
  void Characters(std::string_view) override {}

 private:
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
