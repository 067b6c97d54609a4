// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SchemaDocument.h>

#include <zevo/platform/DocumentBuilder.h>
#include <zevo/platform/File.h>
#include <zevo/platform/HostErrorHandlers.h>
#include <zevo/platform/Parser.h>

#include <algorithm>
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
  explicit Declarations(Document& document) : builder_(document, Indentation::kKept) {}

  void StartElement(const ParsedName& name, std::span<const ParsedAttribute> attributes) override {
    ++depth_;
    attributes_.clear();
    for (const ParsedAttribute& attribute : attributes) {
      const std::string_view local = attribute.name.local;
      const std::string_view prefix = TextOf(attribute.name.prefix);
      if (prefix == kDeclaration || (prefix.empty() && local == kDeclaration)) {
        const bool isDefault = prefix.empty();
        bindings_.push_back({isDefault ? std::string_view() : local, attribute.value == kSchemaNamespace, depth_});
      } else if (prefix.empty()) {
        attributes_.push_back(
            {{attribute.name.local, nullptr, AttributeNumber(attribute.name.number)}, attribute.value});
      }
    }
    const bool own = IsOfSchemas(TextOf(name.prefix));
    const ParsedName foreign{kForeignName, nullptr, kForeignNumber};
    builder_.StartElement(own ? ParsedName{name.local, nullptr, ElementNumber(name.number)} : foreign, attributes_);
  }
  void EndElement(const ParsedName& name) override {
    builder_.EndElement(name);
    while (!bindings_.empty() && bindings_.back().depth == depth_) bindings_.pop_back();
    --depth_;
  }
  void Characters(std::string_view) override {}

 private:
  // What a prefix means in an element and all that is inside it. The texts of names last as long as the parse.
  struct Binding {
    std::string_view prefix;
    bool of_schemas;
    int depth;
  };

  static constexpr std::string_view kDeclaration = "xmlns";

  // The parser gives a name one number, but its prefix may mean XML Schema here and something else there; and elements
  // lose their prefixes. So the numbers for the builder are made here: 1 for all foreign elements, even ones for
  // elements of the schema, odd ones for attributes.
  static constexpr uint32_t kForeignNumber = 1;
  static uint32_t ElementNumber(uint32_t parsed) { return parsed * 2; }
  static uint32_t AttributeNumber(uint32_t parsed) { return parsed * 2 + 1; }

  static std::string_view TextOf(const char* prefix) { return prefix == nullptr ? std::string_view() : prefix; }

  // The innermost binding counts.
  bool IsOfSchemas(std::string_view prefix) const {
    const auto binding = std::find_if(bindings_.rbegin(), bindings_.rend(),
                                      [&](const Binding& candidate) { return candidate.prefix == prefix; });
    return binding != bindings_.rend() && binding->of_schemas;
  }

  DocumentBuilder builder_;
  std::vector<ParsedAttribute> attributes_;
  std::vector<Binding> bindings_;
  int depth_ = 0;
};

}  // namespace

void LoadSchemaDocument(std::string_view bytes, std::string_view errorSource, Document& document) {
  Declarations declarations(document);
  InputBytes input(bytes);
  const HostErrorHandlers aside;
  // Its elements have attributes, so that the fast path would soon give it up.
  Raise(Parser(input).ParseWithLibxml2(declarations), errorSource);
}

}  // namespace zevo
