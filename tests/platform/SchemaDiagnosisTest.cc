// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/xmlerror.h>
#include <zevo/platform/CompiledSchema.h>
#include <zevo/platform/SchemaDiagnosis.h>
#include <zevo/platform/SchemaSource.h>
#include <zevo/platform/SchemaTables.h>
#include <zevo/platform/SchemaValidator.h>

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/SchemaOf.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::SchemaOf;

// Small schemas, whose elements are in no namespace.
class SchemaDiagnosisTest : public ::testing::Test {
 protected:
  // What is told of a file, "number path value|allowed" each, which libxml2 has to find invalid if anything is.
  std::vector<std::string> Told(std::string_view schema, std::string_view document) {
    const SchemaSource source(folder_.Write("schema.xsd", SchemaOf(schema)));
    const CompiledSchema compiled(source, std::string_view(), "Test");
    const std::string file = folder_.Write("file.xml", document);
    const auto tables = SchemaTables::Of(source.Read());
    EXPECT_NE(tables, nullptr);
    if (!tables) return {"not followed"};
    std::vector<std::string> told;
    SchemaDiagnosis diagnosis(*tables, {}, [&](const SchemaViolation& violation) {
      told.push_back(std::to_string(violation.number) + " " + violation.path + " " + violation.value + "|" +
                     violation.allowed);
      return told.size() < enough_;
    });
    outcome_ = diagnosis.Run(file);
    EXPECT_EQ(outcome_.found, static_cast<int64_t>(told.size()));
    const bool valid = !SchemaValidator(compiled).FirstProblem(file);
    EXPECT_TRUE(outcome_.left_off || valid == told.empty());
    return told;
  }

  testing::TemporaryFolder folder_;
  size_t enough_ = 1'000;
  SchemaDiagnosis::Outcome outcome_;
};

std::string At(int number, std::string_view rest) { return std::to_string(number).append(" ").append(rest); }

// A list of keys, and of references that may stand before and behind them.
constexpr std::string_view kList = R"(
  <xs:element name="l">
    <xs:complexType><xs:choice minOccurs="0" maxOccurs="unbounded">
      <xs:element name="k"><xs:complexType><xs:sequence>
        <xs:element name="a" type="xs:string" minOccurs="0"/><xs:element name="b" type="xs:integer" minOccurs="0"/>
      </xs:sequence></xs:complexType></xs:element>
      <xs:element name="r"><xs:complexType><xs:sequence>
        <xs:element name="a" type="xs:string"/><xs:element name="b" type="xs:decimal"/>
      </xs:sequence></xs:complexType></xs:element>
    </xs:choice></xs:complexType>
    <xs:key name="key"><xs:selector xpath="k"/><xs:field xpath="a"/><xs:field xpath="b"/></xs:key>
    <xs:keyref name="ref" refer="key"><xs:selector xpath="r"/><xs:field xpath="a"/><xs:field xpath="b"/></xs:keyref>
  </xs:element>)";

TEST_F(SchemaDiagnosisTest, KeysOfSeveralFieldsAreComparedByValue) {
  EXPECT_THAT(Told(kList, "<l><k><a>x</a><b>1</b></k><k><a>x</a><b>2</b></k><r><a>x</a><b>01.0</b></r></l>"),
              IsEmpty());
  EXPECT_THAT(Told(kList, "<l><k><a>x</a><b>1</b></k><k><a>x</a><b>01</b></k></l>"),
              ElementsAre(At(XML_SCHEMAV_CVC_IDC, "/l/k[2]/b x, 01|")));
}

TEST_F(SchemaDiagnosisTest, AFileMayBeJudgedPieceByPiece) {
  const auto tables = SchemaTables::Of(SchemaOf(kList));
  ASSERT_NE(tables, nullptr);
  std::string document = "<l>";
  for (int i = 0; i < 20'000; ++i) document.append("<k><a>").append(std::to_string(i)).append("</a><b>x</b></k>");
  const std::string file = folder_.Write("file.xml", document.append("</l>"));
  int64_t told = 0;
  SchemaDiagnosis diagnosis(*tables, {}, [&](const SchemaViolation&) { return ++told > 0; });
  diagnosis.Begin(file);
  EXPECT_EQ(diagnosis.Pieces(), 0U);
  std::set<int64_t> seen;
  while (diagnosis.Feed()) seen.insert(told);
  EXPECT_GT(seen.size(), 3U);
  EXPECT_EQ(told, 20'000);
  EXPECT_EQ(diagnosis.Result().found, told);
  EXPECT_GT(diagnosis.Pieces(), seen.size());
  EXPECT_FALSE(diagnosis.Feed());
  EXPECT_EQ(told, 20'000);
}

TEST_F(SchemaDiagnosisTest, AReferenceMayStandBeforeItsKey) {
  EXPECT_THAT(Told(kList, "<l><r><a>x</a><b>1</b></r><k><a>x</a><b>1</b></k></l>"), IsEmpty());
  EXPECT_THAT(Told(kList, "<l><r><a>x</a><b>2</b></r><k><a>x</a><b>1</b></k></l>"),
              ElementsAre(At(XML_SCHEMAV_CVC_IDC, "/l/r[1]/b x, 2|k")));
}

TEST_F(SchemaDiagnosisTest, AKeyWithoutAFieldIsToldAndLeavesNoReferenceWithoutItsKey) {
  EXPECT_THAT(Told(kList, "<l><k><a>x</a></k><r><a>x</a><b>2</b></r></l>"),
              ElementsAre(At(XML_SCHEMAV_CVC_IDC, "/l/k[1]/b |b")));
}

TEST_F(SchemaDiagnosisTest, AKeyWhoseFieldIsWrongIsToldOnce) {
  EXPECT_THAT(Told(kList, "<l><k><a>x</a><b>one</b></k><r><a>x</a><b>1</b></r></l>"),
              ElementsAre(At(XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, "/l/k[1]/b one|integer")));
}

TEST_F(SchemaDiagnosisTest, IdentitiesEndWithTheirElement) {
  constexpr std::string_view kSchema = R"(
    <xs:element name="f"><xs:complexType><xs:sequence><xs:element name="l" maxOccurs="unbounded">
      <xs:complexType><xs:sequence><xs:element name="n" type="xs:string" maxOccurs="unbounded"/></xs:sequence></xs:complexType>
      <xs:unique name="u"><xs:selector xpath="./n"/><xs:field xpath="."/></xs:unique>
    </xs:element></xs:sequence></xs:complexType></xs:element>)";
  EXPECT_THAT(Told(kSchema, "<f><l><n>1</n><n>2</n></l><l><n>1</n></l></f>"), IsEmpty());
  EXPECT_THAT(Told(kSchema, "<f><l><n>1</n></l><l><n>1</n><n>1</n><n>1</n></l></f>"),
              ElementsAre(At(XML_SCHEMAV_CVC_IDC, "/f/l[2]/n[2] 1|"), At(XML_SCHEMAV_CVC_IDC, "/f/l[2]/n[3] 1|")));
}

constexpr std::string_view kOrder = R"(
  <xs:element name="s"><xs:complexType><xs:sequence>
    <xs:element name="a" type="xs:int"/><xs:element name="b" type="xs:int"/><xs:element name="c" type="xs:int" minOccurs="2" maxOccurs="3"/>
    <xs:element name="d" type="xs:int" minOccurs="0"/><xs:element name="e" type="xs:int"/>
  </xs:sequence></xs:complexType></xs:element>)";

std::vector<std::string> Missing(std::initializer_list<std::string_view> names) {
  std::vector<std::string> told;
  for (const std::string_view name : names) {
    told.push_back(At(XML_SCHEMAV_ELEMENT_CONTENT, "/s/").append(name).append(" |").append(name));
  }
  return told;
}

TEST_F(SchemaDiagnosisTest, WhatLacksIsToldBeforeWhatFits) {
  EXPECT_THAT(Told(kOrder, "<s><a>1</a><b>1</b><c>1</c><c>1</c><c>1</c><e>1</e></s>"), IsEmpty());
  EXPECT_EQ(Told(kOrder, "<s><c>1</c><c>1</c><e>1</e></s>"), Missing({"a", "b"}));
  EXPECT_EQ(Told(kOrder, "<s><a>1</a><b>1</b><c>1</c><e>1</e></s>"), Missing({"c"}));
  EXPECT_EQ(Told(kOrder, "<s><a>1</a></s>"), Missing({"b", "c", "c", "e"}));
}

TEST_F(SchemaDiagnosisTest, WhatIsWrongInATextBehindWhatLacksComesAfterThat) {
  EXPECT_THAT(Told(kOrder, "<s><b x='1'>y</b><c>1</c><c>1</c><e>1</e></s>"),
              ElementsAre(At(XML_SCHEMAV_ELEMENT_CONTENT, "/s/a |a"), At(XML_SCHEMAV_CVC_TYPE_3_1_1, "/s/b/@x 1|"),
                          At(XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, "/s/b y|int")));
}

TEST_F(SchemaDiagnosisTest, WhatIsOutOfPlaceIsToldOnceAndNotJudged) {
  EXPECT_THAT(Told(kOrder, "<s><e>y</e><a>1</a><b>1</b><c>1</c><c>1</c></s>"),
              ElementsAre(At(XML_SCHEMAV_ELEMENT_CONTENT, "/s/e |a")));
  EXPECT_THAT(Told(kOrder, "<s><a>1</a><b>1</b><c>1</c><c>1</c><e>1</e><d>y</d></s>"),
              ElementsAre(At(XML_SCHEMAV_ELEMENT_CONTENT, "/s/d |")));
  EXPECT_THAT(
      Told(kOrder, "<s><a>1</a><b>1</b><b>y</b><c>1</c><c>1</c><c>1</c><c>1</c><e>1</e></s>"),
      ElementsAre(At(XML_SCHEMAV_ELEMENT_CONTENT, "/s/b[2] |1"), At(XML_SCHEMAV_ELEMENT_CONTENT, "/s/c[4] |d, e")));
}

TEST_F(SchemaDiagnosisTest, ElementsOfOtherNamespacesAreUnknown) {
  EXPECT_THAT(Told(kOrder, "<s><x:a xmlns:x='urn:x'>1</x:a><b>1</b><c>1</c><c>1</c><e>1</e></s>"),
              ElementsAre(At(XML_SCHEMAV_ELEMENT_CONTENT, "/s/a xmlns=\"urn:x\"|a")));
  EXPECT_THAT(Told(kOrder, "<s xmlns='urn:x'/>"), ElementsAre(At(XML_SCHEMAV_CVC_ELT_1, "/s urn:x|")));
}

TEST_F(SchemaDiagnosisTest, TextAndElementsWhereThereMustBeNoneAreToldOnce) {
  EXPECT_THAT(Told(kOrder, "<s>x<a>1</a>y<b><i/><i/>1</b><c>1</c><c>1</c><e>1</e></s>"),
              ElementsAre(At(XML_SCHEMAV_CVC_COMPLEX_TYPE_2_3, "/s x|"), At(XML_SCHEMAV_CVC_TYPE_3_1_2, "/s/b/i |")));
  constexpr std::string_view kNothing = R"(<xs:element name="n"><xs:complexType/></xs:element>)";
  EXPECT_THAT(Told(kNothing, "<n/>"), IsEmpty());
  EXPECT_THAT(Told(kNothing, "<n>x</n>"), ElementsAre(At(XML_SCHEMAV_CVC_COMPLEX_TYPE_2_1, "/n x|")));
  EXPECT_THAT(Told(kNothing, "<n><i/><i/></n>"), ElementsAre(At(XML_SCHEMAV_CVC_COMPLEX_TYPE_2_1, "/n/i |")));
}

TEST_F(SchemaDiagnosisTest, WhatMayBeAnythingIsJudgedWhereTheSchemaKnowsIt) {
  constexpr std::string_view kAnything = R"(<xs:element name="n"/><xs:element name="i" type="xs:int"/>)";
  EXPECT_THAT(Told(kAnything, "<n x='1'>text<u><i>1</i></u></n>"), IsEmpty());
  EXPECT_THAT(Told(kAnything, "<n x='1'>text<u/><u><i>x</i></u></n>"),
              ElementsAre(At(XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, "/n/u[2]/i x|int")));
}

TEST_F(SchemaDiagnosisTest, AFixedTextMayBeLeftOut) {
  constexpr std::string_view kFixed =
      R"(<xs:element name="f"><xs:complexType><xs:sequence><xs:element name="t" type="xs:string" fixed="P T"/>
         <xs:element name="a" fixed="PT"/></xs:sequence></xs:complexType></xs:element>)";
  EXPECT_THAT(Told(kFixed, "<f><t/><a/></f>"), IsEmpty());
  EXPECT_THAT(Told(kFixed, "<f><t>P T</t><a>PT</a></f>"), IsEmpty());
  EXPECT_THAT(
      Told(kFixed, "<f><t>ES</t><a> PT</a></f>"),
      ElementsAre(At(XML_SCHEMAV_CVC_ELT_5_2_2_2_2, "/f/t ES|P T"), At(XML_SCHEMAV_CVC_ELT_5_2_2_2_1, "/f/a  PT|PT")));
  EXPECT_THAT(Told(kFixed, "<f><t/><a><i/></a></f>"), ElementsAre(At(XML_SCHEMAV_CVC_ELT_5_2_2_1, "/f/a/i |PT")));
}

TEST_F(SchemaDiagnosisTest, WhatLacksInEachRepetitionIsTold) {
  constexpr std::string_view kPairs = R"(
    <xs:element name="s"><xs:complexType><xs:sequence maxOccurs="unbounded">
      <xs:element name="a" type="xs:int"/><xs:element name="b" type="xs:int"/>
    </xs:sequence></xs:complexType></xs:element>)";
  EXPECT_THAT(Told(kPairs, "<s><a>1</a><b>1</b><a>1</a><b>1</b></s>"), IsEmpty());
  EXPECT_EQ(Told(kPairs, "<s><a>1</a><a>1</a><b>1</b><a>1</a></s>"), Missing({"b", "b"}));
}

TEST_F(SchemaDiagnosisTest, GroupsAndNamedTypesAreFollowed) {
  constexpr std::string_view kGroups = R"(
    <xs:group name="g"><xs:choice><xs:element ref="x"/><xs:element name="y" type="t"/></xs:choice></xs:group>
    <xs:complexType name="c"><xs:group ref="g" maxOccurs="2"/></xs:complexType>
    <xs:simpleType name="t"><xs:restriction><xs:simpleType><xs:restriction base="xs:string"><xs:maxLength value="2"/></xs:restriction>
      </xs:simpleType><xs:minLength value="1"/></xs:restriction></xs:simpleType>
    <xs:element name="x" type="c"/>)";
  EXPECT_THAT(Told(kGroups, "<x><x><y>1</y></x><y>22</y></x>"), IsEmpty());
  EXPECT_THAT(Told(kGroups, "<x><x><y>123</y></x><y/></x>"),
              ElementsAre(At(XML_SCHEMAV_CVC_MAXLENGTH_VALID, "/x/x[1]/y[1] 123|2"),
                          At(XML_SCHEMAV_CVC_MINLENGTH_VALID, "/x/y[1] |1")));
}

TEST_F(SchemaDiagnosisTest, TheSinkMayEndIt) {
  enough_ = 1;
  EXPECT_EQ(Told(kOrder, "<s/>").size(), 1U);
  EXPECT_TRUE(outcome_.ended);
}

TEST_F(SchemaDiagnosisTest, WhatChangesTheTypeOfAnElementIsLeftOff) {
  for (const std::string_view attribute : {"type='xs:int'", "nil='true'"}) {
    const std::string document = std::string(
                                     "<s xmlns:i='http://www.w3.org/2001/XMLSchema-instance' "
                                     "xmlns:xs='http://www.w3.org/2001/XMLSchema' x='1'>\n<a i:")
                                     .append(attribute)
                                     .append(">1</a></s>");
    EXPECT_THAT(Told(kOrder, document), ElementsAre(At(XML_SCHEMAV_CVC_COMPLEX_TYPE_3_2_1, "/s/@x 1|")));
    ASSERT_TRUE(outcome_.left_off);
    EXPECT_EQ(outcome_.left_off->line, 2);
  }
}

TEST_F(SchemaDiagnosisTest, WhatStopsTheParseIsToldBehindWhatWasFound) {
  EXPECT_THAT(Told(kOrder, "<s><a>x</a></b>"), ElementsAre(At(XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1, "/s/a x|int")));
  ASSERT_TRUE(outcome_.problem);
  EXPECT_EQ(outcome_.problem->fault, XmlProblem::Fault::kNotWellFormed);
}

TEST_F(SchemaDiagnosisTest, WhatLacksIsToldAlsoWhereTheParseStopsBehindIt) {
  for (const std::string_view end : {"", "</b>", "</b></b>"}) {
    EXPECT_EQ(Told(kOrder, std::string("<s><b>1").append(end)), Missing({"a"}));
  }
}

TEST_F(SchemaDiagnosisTest, TextIsToldAlsoWhereTheParseStopsBehindIt) {
  EXPECT_THAT(Told(kOrder, "<s><a>1</a>x</b>"), ElementsAre(At(XML_SCHEMAV_CVC_COMPLEX_TYPE_2_3, "/s x|")));
}

// What the tables cannot say: libxml2 takes every one of these.
TEST_F(SchemaDiagnosisTest, OtherSchemasAreNotFollowed) {
  for (
      const std::string_view schema : {
          R"(<xs:element name="a"><xs:complexType><xs:all><xs:element name="b"/></xs:all></xs:complexType></xs:element>)",
          R"(<xs:element name="a"><xs:complexType><xs:sequence><xs:any/></xs:sequence></xs:complexType></xs:element>)",
          R"(<xs:element name="a"><xs:complexType><xs:attribute name="b"/></xs:complexType></xs:element>)",
          R"(<xs:element name="a"><xs:complexType mixed="true"/></xs:element>)",
          R"(<xs:element name="a" nillable="true"/>)",
          R"(<xs:element name="a" abstract="true"/>)",
          R"(<xs:element name="a" default="b"/>)",
          R"(<xs:element name="a" type="xs:int" fixed="1"/>)",
          R"(<xs:element name="a" type="xs:token" fixed="b"/>)",
          R"(<xs:element name="a"/><xs:element name="b" substitutionGroup="a"/>)",
          R"(<xs:element name="a" type="xs:QName"/>)",
          R"(<xs:element name="a"><xs:simpleType><xs:list itemType="xs:int"/></xs:simpleType></xs:element>)",
          R"(<xs:element name="a"><xs:simpleType><xs:union memberTypes="xs:int xs:date"/></xs:simpleType></xs:element>)",
          R"(<xs:element name="a"><xs:complexType><xs:simpleContent><xs:extension base="xs:int"/></xs:simpleContent></xs:complexType></xs:element>)",
          R"(<xs:element name="a"><xs:complexType><xs:sequence><xs:element name="b" maxOccurs="101"/></xs:sequence></xs:complexType></xs:element>)",
          R"(<xs:element name="a"><xs:complexType><xs:sequence><xs:element name="b" minOccurs="0"/></xs:sequence></xs:complexType>
              <xs:unique name="u"><xs:selector xpath=".//b"/><xs:field xpath="."/></xs:unique></xs:element>)",
          R"(<xs:element name="a"><xs:complexType><xs:sequence><xs:element name="b" minOccurs="0"/></xs:sequence></xs:complexType>
              <xs:unique name="u"><xs:selector xpath="b|c"/><xs:field xpath="."/></xs:unique></xs:element>)",
          R"(<xs:element name="a"><xs:complexType><xs:sequence><xs:element name="b" minOccurs="0"/></xs:sequence></xs:complexType>
              <xs:unique name="u"><xs:selector xpath="b"/><xs:field xpath="@c"/></xs:unique></xs:element>)",
      }) {
    const SchemaSource source(folder_.Write("schema.xsd", SchemaOf(schema)));
    EXPECT_NO_THROW(CompiledSchema(source, std::string_view(), "Test")) << schema;
    EXPECT_EQ(SchemaTables::Of(source.Read()), nullptr) << schema;
  }
}

}  // namespace
}  // namespace zevo
