// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/xmlerror.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/SchemaSource.h>

#include <string>
#include <string_view>

#include "tests/platform/Numbered.h"
#include "tests/platform/SchemaOf.h"
#include "tests/platform/WatchedFile.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using ::testing::HasSubstr;
using testing::SchemaOf;
using ::testing::StartsWith;

constexpr std::string_view kSource = "Test.Validate";
constexpr std::string_view kShippedNamespace = "urn:OECD:StandardAuditFile-Tax:PT_1.01_01";

class CompiledSchemaTest : public ::testing::Test {
 protected:
  CompiledSchema Compiled(std::string_view schema, std::string_view targetNamespace = {}) {
    return CompiledSchema(SchemaSource(folder_.Write("schema.xsd", schema)), targetNamespace, kSource);
  }
  Error ErrorOfSchema(std::string_view schema, std::string_view targetNamespace = {}) {
    const Error error = testing::ErrorOf([&] { Compiled(schema, targetNamespace); });
    EXPECT_EQ(error.Source(), kSource);
    EXPECT_THAT(error.Description(), StartsWith(folder_.Path("schema.xsd") + ": "));
    return error;
  }

  testing::TemporaryFolder folder_;
};

TEST_F(CompiledSchemaTest, TheShippedSchemaCompiles) {
  EXPECT_NO_THROW(CompiledSchema(SchemaSource(ZEVO_SCHEMA_FILE), kShippedNamespace, kSource));
  EXPECT_NO_THROW(CompiledSchema(SchemaSource::BuiltIn(), kShippedNamespace, kSource));
}

TEST_F(CompiledSchemaTest, HasTheNameOfItsSource) {
  EXPECT_EQ(Compiled(SchemaOf("<xs:element name='a'/>")).Name(), folder_.Path("schema.xsd"));
}

TEST_F(CompiledSchemaTest, AFileThatIsMissingIsARunTimeErrorWithTheSourceOfValidation) {
  EXPECT_ERROR(CompiledSchema(SchemaSource(folder_.Path("none.xsd")), {}, kSource), RunTimeError::kFileNotFound,
               kSource);
}

TEST_F(CompiledSchemaTest, ASchemaThatIsNoneIsRefused) {
  EXPECT_GT(ErrorOfSchema("<xs:schema").Number(), 0);
  EXPECT_GT(ErrorOfSchema("<a/>").Number(), 0);
  EXPECT_GT(ErrorOfSchema("").Number(), 0);
  const Error error = ErrorOfSchema(SchemaOf("\n<xs:element name='a' type='none'/>"));
  EXPECT_EQ(error.Number(), XML_SCHEMAP_SRC_RESOLVE);
  EXPECT_THAT(error.Description(), HasSubstr("(linha 2"));
}

TEST_F(CompiledSchemaTest, ASchemaWithADocumentTypeIsRefusedAndNothingItNamesIsRead) {
  testing::WatchedFile secret(folder_, "secret", "<!ENTITY e 'x'>");
  for (const std::string& type :
       {std::string("<!DOCTYPE xs:schema>"), "<!DOCTYPE xs:schema SYSTEM 'file://" + secret.Path() + "'>",
        "<!DOCTYPE xs:schema [<!ENTITY % p SYSTEM '" + secret.Path() + "'> %p;]>"}) {
    EXPECT_EQ(ErrorOfSchema(type + SchemaOf("<xs:element name='a'/>")).Number(), XML_ERR_USER_STOP);
  }
  EXPECT_FALSE(secret.WasOpened());
}

class CompiledSchemaReferenceTest : public CompiledSchemaTest,
                                    public ::testing::WithParamInterface<std::string_view> {};

TEST_P(CompiledSchemaReferenceTest, ToAnotherSchemaIsRefusedAndTheOtherIsNotRead) {
  testing::WatchedFile other(folder_, "other.xsd", SchemaOf("<xs:element name='b'/>"));
  for (const std::string& location : {other.Path(), "file://" + other.Path(), std::string("other.xsd")}) {
    std::string reference(GetParam());
    reference.replace(reference.find("OTHER"), 5, location);
    const Error error = ErrorOfSchema(SchemaOf(reference + "<xs:element name='a'/>"));
    EXPECT_GT(error.Number(), 0);
    EXPECT_EQ(error.Source(), kSource);
  }
  EXPECT_FALSE(other.WasOpened());
}

INSTANTIATE_TEST_SUITE_P(All, CompiledSchemaReferenceTest,
                         ::testing::Values("<xs:include schemaLocation='OTHER'/>",
                                           "<xs:import namespace='urn:o' schemaLocation='OTHER'/>",
                                           "<xs:import schemaLocation='OTHER'/>",
                                           "<xs:redefine schemaLocation='OTHER'/>",
                                           "<xs:annotation/><xs:include schemaLocation='OTHER'/>"),
                         testing::Numbered());

TEST_F(CompiledSchemaTest, AnImportWithoutALocationReadsNothing) {
  testing::WatchedFile other(folder_, "other.xsd", SchemaOf("<xs:element name='b'/>"));
  for (const std::string& name : {other.Path(), "file://" + other.Path()}) {
    EXPECT_NO_THROW(Compiled(SchemaOf("<xs:import namespace='" + name + "'/><xs:element name='a'/>")));
  }
  EXPECT_FALSE(other.WasOpened());
}

TEST_F(CompiledSchemaTest, ASchemaOfAnotherNamespaceIsRefusedWithBothNames) {
  const auto errorOf = [&](std::string_view attribute) {
    return ErrorOfSchema(std::string("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' ")
                             .append(attribute)
                             .append("><xs:element name='a'/></xs:schema>"),
                         "urn:wanted");
  };
  for (const std::string_view attribute : {"targetNamespace='urn:other'", "targetNamespace='urn:wanted '"}) {
    const Error error = errorOf(attribute);
    EXPECT_EQ(error.Number(), XML_ERR_USER_STOP);
    EXPECT_THAT(error.Description(), HasSubstr("do espaço de nomes «urn:"));
    EXPECT_THAT(error.Description(), HasSubstr("tem de ser do espaço de nomes «urn:wanted»"));
  }
  EXPECT_THAT(errorOf("").Description(), HasSubstr("de nenhum espaço de nomes"));
  EXPECT_THAT(errorOf("xmlns:o='urn:o' o:targetNamespace='urn:wanted'").Description(),
              HasSubstr("de nenhum espaço de nomes"));
  EXPECT_THAT(
      ErrorOfSchema("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' targetNamespace='urn:x'/>").Description(),
      HasSubstr("não pode ter espaço de nomes"));
}

// What goes wrong in regular expressions libxml2 prints, unless somebody takes it.
TEST_F(CompiledSchemaTest, NothingIsPrinted) {
  ::testing::internal::CaptureStderr();
  for (const std::string_view pattern : {"[", "(a", "\\y"}) {
    EXPECT_EQ(ErrorOfSchema(testing::SchemaOfPattern(pattern)).Number(), XML_SCHEMAP_REGEXP_INVALID) << pattern;
  }
  ErrorOfSchema(SchemaOf("<xs:element name='a' substitutionGroup='none' default='x' fixed='y'/>"));
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace zevo
