// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/internal/Validations.h>

#include <cstdint>
#include <fstream>
#include <string>
#include <string_view>

#include "tests/model/SchemaText.h"
#include "tests/support/Errors.h"
#include "tests/support/ProcessorTime.h"
#include "tests/support/Sanitizers.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using testing::ElementAt;
using testing::LimitedType;
using testing::SchemaLimiting;
using testing::SchemaOf;
using testing::TemporaryFolder;

constexpr std::string_view kName = "/AuditFile/Header/CompanyName";

class ValidationsTest : public ::testing::Test {
 protected:
  void Load(std::string_view text) { validations_.LoadSchema(SchemaSource(folder_.Write("schema.xsd", text))); }
  std::string Cut(std::string_view key, std::string_view value = "abcdefghij") const {
    return validations_.Validate(key, value, false);
  }

  TemporaryFolder folder_;
  Validations validations_;
};

TEST_F(ValidationsTest, CutsALongerValueToExactlyTheLength) {
  Load(SchemaLimiting({{kName, "5"}}));
  EXPECT_TRUE(validations_.IsLoaded());
  EXPECT_EQ(Cut(kName, "abcde"), "abcde");
  EXPECT_EQ(Cut(kName, "abcdef"), "abcde");
  EXPECT_EQ(Cut(kName, "áéíóúâ"), "áéíóú");
  EXPECT_EQ(Cut(kName, "😀😀😀😀😀😀"), "😀😀😀😀😀");
  EXPECT_EQ(Cut(kName, ""), "");
}

TEST_F(ValidationsTest, OnlyReportingCutsNothing) {
  Load(SchemaLimiting({{kName, "5"}}));
  EXPECT_EQ(validations_.Validate(kName, "abcdefghij", true), "abcdefghij");
}

TEST_F(ValidationsTest, NothingIsCutWithoutASchema) {
  EXPECT_FALSE(validations_.IsLoaded());
  EXPECT_EQ(Cut(kName), "abcdefghij");
}

TEST_F(ValidationsTest, KeysAndTypeNamesCompareWithoutRegardToLetterCase) {
  Load(SchemaOf(LimitedType("Cão", "3") + ElementAt("/AuditFile/Header/Website", "cÃO")));
  EXPECT_EQ(Cut("/AuditFile/Header/WebSite"), "abc");
  EXPECT_EQ(Cut("/AUDITFILE/header/website"), "abc");
}

TEST_F(ValidationsTest, LetterCaseCountsInTheNamesOfGlobalElements) {
  Load(SchemaLimiting({{"/OriginatingON", "3"}}));
  EXPECT_EQ(Cut("/Anywhere/OriginatingON"), "abc");
  EXPECT_EQ(Cut("/Anywhere/OriginatingOn"), "abcdefghij");
}

TEST_F(ValidationsTest, AKeyThatIsNotInTheTableUsesTheGlobalElementOfItsLastName) {
  Load(SchemaLimiting({{"/City", "4"}}));
  EXPECT_EQ(Cut("/AuditFile/Header/CompanyAddress/City"), "abcd");
  EXPECT_EQ(Cut("/City"), "abcd");
  EXPECT_EQ(Cut("City"), "abcd");
  EXPECT_EQ(Cut("/City/Other"), "abcdefghij");
}

TEST_F(ValidationsTest, ALocalDeclarationGoesBeforeTheGlobalOne) {
  Load(SchemaLimiting({{"/AccountID", "4"}, {"/AuditFile/GeneralLedgerEntries/AccountID", "6"}}));
  EXPECT_EQ(Cut("/AuditFile/GeneralLedgerEntries/AccountID"), "abcdef");
  EXPECT_EQ(Cut("/AuditFile/MasterFiles/Customer/AccountID"), "abcd");
}

TEST_F(ValidationsTest, ALocalDeclarationOfAGlobalNameIsNoGlobalElement) {
  Load(SchemaLimiting({{"/AuditFile/Header/CompanyName", "4"}}));
  EXPECT_EQ(Cut("/AuditFile/MasterFiles/Customer/CompanyName"), "abcdefghij");
}

TEST_F(ValidationsTest, AGlobalElementStandsWhereItIsFirstReferredTo) {
  Load(SchemaOf(LimitedType("Short", "3") +
                R"(<xs:element name="AuditFile"><xs:complexType><xs:sequence>
                     <xs:element ref="Header"/>
                     <xs:element name="MasterFiles"><xs:complexType><xs:choice>
                       <xs:element ref="Customer"/><xs:element ref="Header"/>
                     </xs:choice></xs:complexType></xs:element>
                   </xs:sequence></xs:complexType></xs:element>
                   <xs:element name="Header"><xs:complexType><xs:all>
                     <xs:element name="Local" type="Short"/>
                   </xs:all></xs:complexType></xs:element>
                   <xs:element name="Customer"><xs:complexType><xs:all>
                     <xs:element name="Inner" type="Short"/>
                   </xs:all></xs:complexType></xs:element>
                   <xs:element name="Unreferred"><xs:complexType><xs:all>
                     <xs:element name="Lonely" type="Short"/>
                   </xs:all></xs:complexType></xs:element>)"));
  EXPECT_EQ(Cut("/AuditFile/Header/Local"), "abc");
  EXPECT_EQ(Cut("/AuditFile/MasterFiles/Header/Local"), "abcdefghij");
  EXPECT_EQ(Cut("/Header/Local"), "abcdefghij");
  EXPECT_EQ(Cut("/AuditFile/MasterFiles/Customer/Inner"), "abc");
  EXPECT_EQ(Cut("/Unreferred/Lonely"), "abc");
}

TEST_F(ValidationsTest, ElementsOfNamedComplexTypesHaveNoPath) {
  Load(SchemaOf(LimitedType("Short", "3") +
                R"(<xs:element name="AuditFile"><xs:complexType><xs:sequence>
                     <xs:element name="Address" type="AddressStructure"/>
                   </xs:sequence></xs:complexType></xs:element>
                   <xs:complexType name="AddressStructure"><xs:sequence>
                     <xs:element name="City" type="Short"/>
                   </xs:sequence></xs:complexType>)"));
  EXPECT_EQ(Cut("/AuditFile/Address/City"), "abcdefghij");
  EXPECT_EQ(Cut("/AuditFile/Address"), "abcdefghij");
}

TEST_F(ValidationsTest, OnlyATopLevelSimpleTypeThatRestrictsTheLengthCounts) {
  Load(SchemaOf(R"(<xs:simpleType name="Unlimited"><xs:restriction base="xs:string"><xs:minLength value="1"/>
                   </xs:restriction></xs:simpleType>
                   <xs:simpleType name="Listed"><xs:list itemType="xs:string"/></xs:simpleType>
                   <xs:element name="A" type="Unlimited"/>
                   <xs:element name="B" type="Listed"/>
                   <xs:element name="C" type="xs:string"/>
                   <xs:element name="D" type="NowhereDeclared"/>
                   <xs:element name="E"><xs:simpleType><xs:restriction base="xs:string"><xs:maxLength value="3"/>
                   </xs:restriction></xs:simpleType></xs:element>)"));
  for (const std::string_view key : {"/A", "/B", "/C", "/D", "/E", "/F"}) EXPECT_EQ(Cut(key), "abcdefghij") << key;
}

TEST_F(ValidationsTest, OtherFacetsAreNotChecked) {
  Load(SchemaOf(R"(<xs:simpleType name="Strict"><xs:restriction base="xs:string"><xs:pattern value="[0-9]+"/>
                   <xs:enumeration value="1"/><xs:minLength value="9"/><xs:maxLength value="12"/>
                   </xs:restriction></xs:simpleType><xs:element name="A" type="Strict"/>)"));
  EXPECT_EQ(Cut("/A", "x"), "x");
  EXPECT_EQ(Cut("/A", "abcdefghijklm"), "abcdefghijkl");
}

TEST_F(ValidationsTest, TheSchemaMayUseAnotherPrefix) {
  for (const std::string_view prefix : {"xsd:", "s:", ""}) {
    std::string text = SchemaLimiting({{"/AuditFile/Header/CompanyName", "3"}, {"/City", "4"}});
    for (size_t at = text.find("xs:"); at != std::string::npos; at = text.find("xs:", at + 1)) {
      if (at > 0 && (text[at - 1] == '<' || text[at - 1] == '/' || text[at - 1] == '"')) text.replace(at, 3, prefix);
    }
    const std::string declared = prefix.empty() ? "xmlns" : "xmlns:" + std::string(prefix.substr(0, prefix.size() - 1));
    text.replace(text.find("xmlns:xs"), 8, declared);
    Load(text);
    EXPECT_EQ(Cut("/AuditFile/Header/CompanyName"), "abc") << prefix;
    EXPECT_EQ(Cut("/Other/City"), "abcd") << prefix;
  }
}

TEST_F(ValidationsTest, ASchemaThatCannotBeLoadedRaisesNothingAndLimitsNothing) {
  constexpr std::string_view kRows[] = {
      "",
      "no XML",
      "<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'><xs:element name='CompanyName'",
      "<?xml version='1.0'?><!DOCTYPE xs:schema><xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'/>",
      "<!DOCTYPE xs:schema [<!ENTITY a 'b'>]><xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema'>&a;</xs:schema>",
  };
  for (const std::string_view text : kRows) {
    Load(SchemaLimiting({{kName, "5"}}));
    ASSERT_EQ(Cut(kName), "abcde");
    EXPECT_NO_THROW(Load(text)) << text;
    EXPECT_FALSE(validations_.IsLoaded()) << text;
    EXPECT_EQ(Cut(kName), "abcdefghij") << text;
  }
}

TEST_F(ValidationsTest, ASchemaWithADocumentTypeIsRefusedWhole) {
  Load("<!DOCTYPE xs:schema>" +
       SchemaLimiting({{kName, "5"}}).substr(std::string_view(R"(<?xml version="1.0"?>)").size()));
  EXPECT_EQ(Cut(kName), "abcdefghij");
}

TEST_F(ValidationsTest, AMissingFileAndAFolderRaiseNothing) {
  Load(SchemaLimiting({{kName, "5"}}));
  EXPECT_NO_THROW(validations_.LoadSchema(SchemaSource(folder_.Path("missing.xsd"))));
  EXPECT_EQ(Cut(kName), "abcdefghij");
  EXPECT_NO_THROW(validations_.LoadSchema(SchemaSource(folder_.Path(""))));
  EXPECT_NO_THROW(validations_.LoadSchema(SchemaSource()));
  EXPECT_EQ(Cut(kName), "abcdefghij");
}

TEST_F(ValidationsTest, WellFormedXmlThatIsNoSchemaLimitsNothing) {
  EXPECT_NO_THROW(Load("<AuditFile><Header><CompanyName maxLength='2'/></Header></AuditFile>"));
  EXPECT_EQ(Cut(kName), "abcdefghij");
}

TEST_F(ValidationsTest, ReferencesInACircleDoNotHang) {
  EXPECT_NO_THROW(Load(SchemaOf(LimitedType("Short", "3") +
                                R"(<xs:element name="A"><xs:complexType><xs:sequence><xs:element ref="B"/>
                                     <xs:element name="C" type="Short"/></xs:sequence></xs:complexType></xs:element>
                                   <xs:element name="B"><xs:complexType><xs:sequence><xs:element ref="A"/>
                                     <xs:element name="D" type="Short"/></xs:sequence></xs:complexType></xs:element>
                                   <xs:element name="Self"><xs:complexType><xs:sequence><xs:element ref="Self"/>
                                     <xs:element name="E" type="Short"/></xs:sequence></xs:complexType></xs:element>)" +
                                ElementAt("/AuditFile/Header/CompanyName", "Short"))));
  EXPECT_EQ(Cut(kName), "abc");
}

TEST_F(ValidationsTest, ALengthMayHaveBlanksAroundIt) {
  Load(SchemaLimiting({{kName, " 5 "}}));
  EXPECT_EQ(Cut(kName), "abcde");
}

TEST_F(ValidationsTest, ALengthThatIsNoNumberIsATypeMismatch) {
  Load(SchemaLimiting({{kName, "five"}}));
  EXPECT_ERROR(Cut(kName), 13, "ZevoAdapters11");
  EXPECT_EQ(Cut("/Other"), "abcdefghij");
}

TEST_F(ValidationsTest, ANegativeLengthCutsNothing) {
  Load(SchemaLimiting({{kName, "-5"}}));
  EXPECT_EQ(Cut(kName), "abcdefghij");
}

TEST_F(ValidationsTest, ALengthBeyondSixteenBitsOverflows) {
  Load(SchemaLimiting({{kName, "32768"}}));
  EXPECT_ERROR(Cut(kName), 6, "ZevoAdapters11");
  Load(SchemaLimiting({{kName, "32767"}}));
  EXPECT_EQ(Cut(kName), "abcdefghij");
}

// Declarations that are none: the elements of another namespace, under any prefix, and attributes of one.
TEST_F(ValidationsTest, OnlyElementsOfTheNamespaceOfSchemasCount) {
  constexpr std::string_view kFake = "urn:fake";
  const std::string schema = SchemaLimiting({{kName, "5"}, {"/City", "4"}});
  const std::string real = "http://www.w3.org/2001/XMLSchema";
  std::string other = schema;
  other.replace(other.find(real), real.size(), kFake);
  Load(other);
  EXPECT_TRUE(validations_.IsLoaded());
  EXPECT_EQ(Cut(kName), "abcdefghij");

  Load("<s:schema xmlns:s='" + real + "' xmlns:xs='urn:fake' xmlns:o='urn:fake'>" +
       "<s:element name='A'><xs:element name='X' type='Fake'/><s:complexType><s:sequence>"
       "<s:element name='B' o:type='Fake' type='Short'/><o:element name='between'><s:element name='C' type='Short'/>"
       "</o:element></s:sequence></s:complexType></s:element>"
       "<o:element name='City' type='Short'/><o:simpleType name='Fake'><s:restriction><s:maxLength value='2'/>"
       "</s:restriction></o:simpleType>"
       "<s:simpleType name='Fake'><o:restriction><s:maxLength value='2'/></o:restriction></s:simpleType>"
       "<s:simpleType name='Fake'><s:restriction><xs:maxLength value='2'/></s:restriction></s:simpleType>"
       "<s:simpleType name='Short'><s:restriction base='s:string'><o:maxLength value='2'/><s:maxLength value='3'/>"
       "</s:restriction></s:simpleType></s:schema>");
  EXPECT_EQ(Cut("/A/B"), "abc");
  EXPECT_EQ(Cut("/A/C"), "abc") << "what stands between has no name of its own";
  EXPECT_EQ(Cut("/A/X"), "abcdefghij");
  EXPECT_EQ(Cut("/City"), "abcdefghij");

  Load("<schema xmlns='" + real + "'><simpleType name='Short'><restriction base='string'><maxLength value='3'/>" +
       "</restriction></simpleType><element name='City' type='Short'/>"
       "<element name='Fax' type='Short' xmlns='urn:fake'/></schema>");
  EXPECT_EQ(Cut("/City"), "abc");
  EXPECT_EQ(Cut("/Fax"), "abcdefghij");
}

// As deep as a document may be: the schema, then three elements for each step.
TEST_F(ValidationsTest, PathsMayBeAsDeepAsASchema) {
  std::string path;
  for (int i = 0; i < 84; ++i) path += "/Step" + std::to_string(i);
  Load(SchemaLimiting({{path, "3"}}));
  EXPECT_EQ(Cut(path), "abc");
}

std::string Referring(int number, std::string_view to) {
  return "<xs:element name='G" + std::to_string(number) +
         "'><xs:complexType><xs:sequence><xs:element name='L' type='Short'/><xs:element ref='" + std::string(to) +
         "'/></xs:sequence></xs:complexType></xs:element>";
}

// References can make a path longer than the document is deep.
TEST_F(ValidationsTest, PathsThroughReferencesMayBeAnyLength) {
  std::string schema = LimitedType("Short", "3");
  std::string path;
  for (int i = 1500; i-- > 0;) schema += Referring(i, "G" + std::to_string(i + 1));
  for (int i = 0; i < 1500; ++i) path += "/G" + std::to_string(i);
  Load(SchemaOf(schema));
  EXPECT_EQ(Cut(path + "/L"), "abc");
  EXPECT_EQ(Cut(path.substr(3) + "/L"), "abcdefghij");
}

TEST_F(ValidationsTest, WhatIsFirstReferredToInACircleStandsNowhere) {
  Load(SchemaOf(LimitedType("Short", "3") + Referring(1, "G2") + Referring(2, "G1") + Referring(3, "Apart") +
                Referring(0, "G1")));
  for (const std::string_view key : {"/G1/L", "/G2/L", "/G1/G2/L", "/G2/G1/L", "/G0/G1/L", "/L"}) {
    EXPECT_EQ(Cut(key), "abcdefghij") << key;
  }
  EXPECT_EQ(Cut("/G0/L"), "abc");
  EXPECT_EQ(Cut("/G3/L"), "abc");
}

TEST_F(ValidationsTest, ANameWithASeparatorIsLikeTwoSteps) {
  Load(SchemaOf(LimitedType("Short", "3") + ElementAt("/A/B", "Short") +
                "<xs:element name='C'><xs:complexType><xs:all><xs:element name='D/E' type='Short'/></xs:all>"
                "</xs:complexType></xs:element>"));
  EXPECT_EQ(Cut("/A/B"), "abc");
  EXPECT_EQ(Cut("/C/D/E"), "abc");
  EXPECT_EQ(Cut("/C/D"), "abcdefghij");
  EXPECT_EQ(Cut("C/D/E"), "abcdefghij");
}

int64_t PeakKilobytes() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stoll(line.substr(6));
  }
  return 0;
}

// A path of each of them is as long as all before it.
TEST_F(ValidationsTest, LongChainsTakeTimeAndMemoryInProportion) {
  std::string schema = LimitedType("Short", "3");
  for (int i = 0; schema.size() < 250'000; ++i) schema += Referring(i, "G" + std::to_string(i + 1));
  [[maybe_unused]] const int64_t held = PeakKilobytes();
  EXPECT_LT(testing::ProcessorSeconds([&] { Load(SchemaOf(schema)); }), testing::kSanitized ? 5 : 0.5);
  if (!testing::kSanitized) {
    EXPECT_LT(PeakKilobytes() - held, 16 * 1024);
  }
}

}  // namespace
}  // namespace zevo
