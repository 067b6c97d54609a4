// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/platform/SchemaDocument.h>
#include <zevo/platform/SchemaSyntax.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/SchemaPieces.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

TEST(SchemaSyntaxTest, NamesInAListAreToldWithoutTheirPrefixes) {
  std::vector<std::string> names;
  ForEachName(" xs:int\t\n p:a:b c\r", [&](std::string_view name) { names.emplace_back(name); });
  EXPECT_THAT(names, ElementsAre("int", "a:b", "c"));
  EXPECT_EQ(CountNames(" xs:int\t\n p:a:b c\r"), 3);
  EXPECT_EQ(CountNames(" \t"), 0);
}

TEST(SchemaSyntaxTest, AnAttributeThatIsNotThereIsEmpty) {
  Document document;
  LoadSchemaDocument(testing::SchemaOfUrnT(""), "Test", document);
  EXPECT_EQ(ValueOf(document.Root(), "targetNamespace"), "urn:t");
  EXPECT_EQ(ValueOf(document.Root(), "name"), "");
}

TEST(SchemaSyntaxTest, ElementsComeInTheOrderOfTheDocument) {
  Document document;
  LoadSchemaDocument(testing::SchemaOfUrnT("<xs:a><xs:b/>text<xs:c><xs:d/></xs:c></xs:a><xs:e/>"), "Test", document);
  const auto namesUnder = [](Element root) {
    std::string names;
    ForEachElement(root, [&](Element element) { names.append(element.Name()).append(" "); });
    return names;
  };
  EXPECT_EQ(namesUnder(document.Root()), "schema a b c d e ");
  EXPECT_EQ(namesUnder(document.FirstChild(document.Root(), "a")), "a b c d ");
}

}  // namespace
}  // namespace zevo
