// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/parserInternals.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/ValidationPlug.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "tests/platform/SchemaOf.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

struct Free {
  void operator()(xmlParserCtxt* parser) const { xmlFreeParserCtxt(parser); }
  void operator()(xmlSchemaValidCtxt* validation) const { xmlSchemaFreeValidCtxt(validation); }
};

// Parses a text with a validation that allows nothing but <a><b/></a>, and takes down what comes in its order.
class ValidationPlugTest : public ::testing::Test {
 protected:
  void Parse(std::string_view text) {
    xmlSAXHandler sax{};
    sax.initialized = XML_SAX2_MAGIC;
    sax.startElementNs = [](void* self, const xmlChar* local, const xmlChar* prefix, const xmlChar* uri, int,
                            const xmlChar**, int, int, const xmlChar**) {
      auto& test = *static_cast<ValidationPlugTest*>(self);
      test.log_.append("<").append(reinterpret_cast<const char*>(local));
      test.plug_->StartElement(local, prefix, uri);
    };
    sax.endElementNs = [](void* self, const xmlChar* local, const xmlChar*, const xmlChar*) {
      auto& test = *static_cast<ValidationPlugTest*>(self);
      test.log_.append(">").append(reinterpret_cast<const char*>(local));
      if (test.plug_) test.plug_->EndElement();
    };
    sax.serror = [](void*, xmlErrorPtr error) {
      static_cast<ValidationPlugTest*>(static_cast<xmlParserCtxt*>(error->ctxt)->_private)->log_ += "?";
    };
    const auto read = [](void* from, char* buffer, int size) {
      auto& rest = *static_cast<std::string_view*>(from);
      const size_t length = rest.copy(buffer, static_cast<size_t>(size));
      rest.remove_prefix(length);
      return static_cast<int>(length);
    };
    const std::unique_ptr<xmlParserCtxt, Free> parser(
        xmlCreateIOParserCtxt(&sax, this, read, nullptr, &text, XML_CHAR_ENCODING_UTF8));
    parser->_private = this;
    const xmlSAXHandler* const own = parser->sax;
    xmlSchemaSetValidStructuredErrors(
        validation_.get(), [](void* self, xmlErrorPtr) { static_cast<ValidationPlugTest*>(self)->log_ += "!"; }, this);
    plug_.emplace(*parser, *validation_);
    EXPECT_NE(parser->sax, own);
    xmlParseDocument(parser.get());
    log_ += "|";
    plug_.reset();
    EXPECT_EQ(parser->sax, own);
    EXPECT_EQ(parser->userData, this);
  }

  testing::TemporaryFolder folder_;
  CompiledSchema schema_{
      SchemaSource(folder_.Write("schema.xsd", testing::SchemaOf("<xs:element name='a'><xs:complexType><xs:sequence>"
                                                                 "<xs:element name='b' minOccurs='0'/>"
                                                                 "</xs:sequence></xs:complexType></xs:element>"))),
      {},
      "S"};
  std::unique_ptr<xmlSchemaValidCtxt, Free> validation_{xmlSchemaNewValidCtxt(schema_.Get())};
  std::optional<ValidationPlug> plug_;
  std::string log_;
};

TEST_F(ValidationPlugTest, TheHandlerGetsEventsBeforeTheValidation) {
  Parse("<a><b/><c/></a>");
  EXPECT_EQ(log_, "<a<b>b<c!>c>a|");
  EXPECT_EQ(xmlSchemaIsValid(validation_.get()), 0);
}

TEST_F(ValidationPlugTest, ErrorsOfTheParserStillReachTheHandler) {
  Parse("<a><b></a></a>");
  EXPECT_THAT(log_, ::testing::StartsWith("<a<b?"));
}

TEST_F(ValidationPlugTest, WhatIsOpenAtTheEndIsEndedFromTheInnermostOn) {
  Parse("<a><b>");
  EXPECT_EQ(log_, "<a<b?|>b>a");
}

TEST_F(ValidationPlugTest, OneValidationListensInOnParserAfterParser) {
  for (const std::string_view text : {"<a><c>", "<a><b/></a>"}) {
    log_.clear();
    Parse(text);
  }
  EXPECT_EQ(log_, "<a<b>b>a|");
  EXPECT_EQ(xmlSchemaIsValid(validation_.get()), 1);
}

}  // namespace
}  // namespace zevo
