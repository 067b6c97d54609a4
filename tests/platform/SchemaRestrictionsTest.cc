// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <libxml/xmlerror.h>
#include <zevo/platform/SchemaRestrictions.h>

#include <string>
#include <string_view>

#include "tests/platform/Parsing.h"
#include "tests/platform/SchemaLimit.h"
#include "tests/platform/SchemaPieces.h"
#include "tests/support/Errors.h"

namespace zevo {
namespace {

using testing::Each;
using testing::SchemaOfUrnT;

TEST(SchemaRestrictionsTest, TheNumberOfElementsIsLimited) {
  testing::ExpectKept({Each(9'999, "<xs:element/>"), Each(10'000, "<xs:element/>"), "mais de 10 000 elementos"});
}

TEST(SchemaRestrictionsTest, AnotherNamespaceIsRefused) {
  const auto refusal = [](std::string_view root) {
    const Error error = testing::ErrorOf([&] { testing::RequireModest(root); });
    EXPECT_EQ(error.Number(), XML_ERR_USER_STOP);
    return error.Description();
  };
  EXPECT_EQ(refusal("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='urn:o'/>"),
            "O esquema é do espaço de nomes «urn:o», mas tem de ser do espaço de nomes «urn:t»");
  EXPECT_EQ(refusal("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'/>"),
            "O esquema é de nenhum espaço de nomes, mas tem de ser do espaço de nomes «urn:t»");
}

TEST(SchemaRestrictionsTest, AnotherFileIsNotPulledIn) {
  for (const std::string_view element : {"include", "import", "redefine"}) {
    const Error error = testing::ErrorOf(
        [&] { testing::RequireModest(SchemaOfUrnT("<xs:" + std::string(element) + " schemaLocation='x'/>")); });
    EXPECT_EQ(error.Number(), XML_SCHEMAP_SRC_INCLUDE);
    EXPECT_EQ(error.Description(), "O esquema remete para outro ficheiro");
  }
}

TEST(SchemaRestrictionsTest, OnlyElementsAndAttributesOfSchemasCount) {
  EXPECT_NO_THROW(testing::RequireModest(
      SchemaOfUrnT("<xs:annotation><o:include xmlns:o='urn:o' schemaLocation='x'/></xs:annotation>"
                   "<xs:import xmlns:o='urn:o' o:schemaLocation='x' namespace='urn:o'/>")));
}

TEST(SchemaRestrictionsTest, WhatIsNoSchemaIsLeftToTheCompiler) { EXPECT_NO_THROW(testing::RequireModest("<other/>")); }

}  // namespace
}  // namespace zevo
