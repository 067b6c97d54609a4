// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <libxml/xmlerror.h>
#include <zevo/platform/SchemaDocument.h>

#include <string>

#include "tests/support/Errors.h"

namespace zevo {
namespace {

// The elements of a document with their attributes, as far as they have any.
std::string Told(Element element) {
  std::string text(element.Name());
  for (const char* name : {"name", "type"}) {
    if (const auto value = element.Attribute(name)) text.append(" ").append(name).append("=").append(*value);
  }
  text += "(";
  for (const Element child : element.Children()) text += Told(child);
  return text + ")";
}

std::string Loaded(std::string_view bytes) {
  Document document;
  LoadSchemaDocument(bytes, "Test", document);
  return Told(document.Root());
}

TEST(SchemaDocumentTest, ElementsOfTheNamespaceHaveTheirLocalNamesWhateverTheirPrefix) {
  EXPECT_EQ(Loaded("<a:schema xmlns:a='http://www.w3.org/2001/XMLSchema'><element xmlns='http://www.w3.org/2001/"
                   "XMLSchema' name='e' type='t'/></a:schema>"),
            "schema(element name=e type=t())");
}

TEST(SchemaDocumentTest, ElementsOfOthersHaveNoNameOfASchema) {
  EXPECT_EQ(Loaded("<xs:schema xmlns:xs='urn:x'><schema/></xs:schema>"), "?(?())");
  EXPECT_EQ(Loaded("<s:schema xmlns:s='http://www.w3.org/2001/XMLSchema' xmlns:x='urn:x'><x:element name='e'>"
                   "<s:element/></x:element><element/></s:schema>"),
            "schema(? name=e(element())?())");
}

TEST(SchemaDocumentTest, APrefixStandsForWhatItIsInnermostBoundTo) {
  EXPECT_EQ(
      Loaded("<s:schema xmlns:s='http://www.w3.org/2001/XMLSchema' xmlns='http://www.w3.org/2001/XMLSchema'>"
             "<group xmlns:s='urn:x'><s:group/><all/></group><s:choice><any xmlns=''/></s:choice><any/></s:schema>"),
      "schema(group(?()all())choice(?())any())");
}

TEST(SchemaDocumentTest, AttributesWithAPrefixTextsAndCommentsAreLeftOut) {
  EXPECT_EQ(Loaded("<s:schema xmlns:s='http://www.w3.org/2001/XMLSchema' s:type='x'>text<!-- -->"
                   "<s:element s:name='no' name='yes'><![CDATA[x]]></s:element></s:schema>"),
            "schema(element name=yes())");
}

TEST(SchemaDocumentTest, WhatIsNotWellFormedIsRefusedAsTheParserDoes) {
  EXPECT_ERROR(Loaded("<a>"), XML_ERR_TAG_NOT_FINISHED, "Test");
  EXPECT_ERROR(Loaded("<!DOCTYPE a><a/>"), XML_ERR_USER_STOP, "Test");
}

}  // namespace
}  // namespace zevo
