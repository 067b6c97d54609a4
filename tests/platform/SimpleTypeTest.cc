// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/SimpleType.h>

#include <gtest/gtest.h>
#include <libxml/xmlerror.h>
#include <libxml/xmlschemastypes.h>
#include <zevo/platform/HostErrorHandlers.h>
#include <zevo/platform/SchemaDocument.h>

#include <memory>
#include <string>
#include <string_view>

#include "tests/platform/SchemaPieces.h"

namespace zevo {
namespace {

constexpr int kTaken = 0;

class SimpleTypeTest : public ::testing::Test {
 protected:
  SimpleTypeTest() { xmlSchemaInitTypes(); }

  std::shared_ptr<const SimpleType> Restrict(std::shared_ptr<const SimpleType> base, std::string_view facets) {
    document_.Clear();
    LoadSchemaDocument(testing::SchemaOfUrnT(testing::Restriction("t", "xs:string", facets)), "Test", document_);
    return SimpleType::Restricted(
        std::move(base), document_.FirstChild(document_.FirstChild(document_.Root(), "simpleType"), "restriction"));
  }
  std::shared_ptr<const SimpleType> Restrict(std::string_view base, std::string_view facets) {
    return Restrict(SimpleType::BuiltIn(base), facets);
  }

  static int Verdict(const SimpleType& type, std::string_view text) {
    const auto refusal = type.Check(text);
    return refusal ? refusal->number : kTaken;
  }

  Document document_;
  HostErrorHandlers aside_;
};

TEST_F(SimpleTypeTest, TypesOfXmlSchemaAreKnown) {
  EXPECT_EQ(Verdict(*SimpleType::BuiltIn("decimal"), " -1.50 "), kTaken);
  EXPECT_EQ(Verdict(*SimpleType::BuiltIn("decimal"), "1,5"), XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1);
  EXPECT_EQ(SimpleType::BuiltIn("decimal")->Check("x")->allowed, "decimal");
  EXPECT_EQ(Verdict(*SimpleType::BuiltIn("date"), "2008-02-29"), kTaken);
  EXPECT_EQ(Verdict(*SimpleType::BuiltIn("date"), "2009-02-29"), XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1);
  EXPECT_EQ(Verdict(*SimpleType::BuiltIn("string"), " any \n"), kTaken);
  for (const std::string_view name : {"QName", "ID", "NMTOKENS", "anyType", "SAFdateType", ""}) {
    EXPECT_EQ(SimpleType::BuiltIn(name), nullptr) << name;
  }
}

TEST_F(SimpleTypeTest, DatesAndTimesHaveNoBlanksAroundThem) {
  for (const std::string_view type : {"date", "dateTime", "gYear"}) {
    const std::string text = std::string("2008-02-29T10:00:00")
                                 .substr(0, type == "date"    ? 10
                                            : type == "gYear" ? 4
                                                              : 19);
    EXPECT_EQ(Verdict(*SimpleType::BuiltIn(type), text), kTaken);
    for (const std::string& blank : {" " + text, text + " ", "\n" + text, text + "\t"}) {
      EXPECT_EQ(Verdict(*SimpleType::BuiltIn(type), blank), XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1) << type;
      EXPECT_EQ(SimpleType::BuiltIn(type)->Check(blank)->allowed, type);
    }
  }
  const auto since = Restrict("date", R"(<xs:minInclusive value="2000-01-01"/>)");
  EXPECT_EQ(Verdict(*since, "2008-02-29 "), XML_SCHEMAV_CVC_DATATYPE_VALID_1_2_1);
  // With a pattern libxml2 takes them off.
  EXPECT_EQ(Verdict(*Restrict("date", R"(<xs:pattern value="2.*"/>)"), " 2008-02-29 "), kTaken);
  for (const std::string_view type : {"decimal", "integer", "boolean"}) {
    EXPECT_EQ(Verdict(*SimpleType::BuiltIn(type), " 1 "), kTaken) << type;
  }
}

TEST_F(SimpleTypeTest, EveryFacetIsJudgedAndToldWithItsValue) {
  const struct {
    std::string_view base;
    std::string_view facet;
    std::string_view value;
    std::string_view good;
    std::string_view bad;
    int number;
  } cases[] = {
      {"string", "length", "2", "ãã", "ã", XML_SCHEMAV_CVC_LENGTH_VALID},
      {"string", "minLength", "2", "ãã", "ã", XML_SCHEMAV_CVC_MINLENGTH_VALID},
      {"string", "maxLength", "2", "ãã", "ããã", XML_SCHEMAV_CVC_MAXLENGTH_VALID},
      {"integer", "minInclusive", "1", "1", "0", XML_SCHEMAV_CVC_MININCLUSIVE_VALID},
      {"integer", "maxInclusive", "12", "012", "13", XML_SCHEMAV_CVC_MAXINCLUSIVE_VALID},
      {"decimal", "minExclusive", "1", "1.01", "1.0", XML_SCHEMAV_CVC_MINEXCLUSIVE_VALID},
      {"date", "maxExclusive", "2008-01-01", "2007-12-31", "2008-01-01", XML_SCHEMAV_CVC_MAXEXCLUSIVE_VALID},
      {"decimal", "totalDigits", "3", "1.23", "12.34", XML_SCHEMAV_CVC_TOTALDIGITS_VALID},
      {"decimal", "fractionDigits", "2", "1.23", "1.234", XML_SCHEMAV_CVC_FRACTIONDIGITS_VALID},
      {"string", "pattern", "[0-9]+", "12", "1x", XML_SCHEMAV_CVC_PATTERN_VALID},
      {"string", "enumeration", "N", "N", "n", XML_SCHEMAV_CVC_ENUMERATION_VALID},
  };
  for (const auto& each : cases) {
    const auto type =
        Restrict(each.base, "<xs:" + std::string(each.facet) + " value='" + std::string(each.value) + "'/>");
    ASSERT_NE(type, nullptr) << each.facet;
    EXPECT_EQ(Verdict(*type, each.good), kTaken) << each.facet;
    EXPECT_EQ(Verdict(*type, each.bad), each.number) << each.facet;
    EXPECT_EQ(type->Check(each.bad)->allowed, each.value) << each.facet;
  }
}

TEST_F(SimpleTypeTest, OneOfSeveralCodesOrPatternsIsEnough) {
  const auto codes = Restrict("string", "<xs:enumeration value='N'/><xs:enumeration value='S'/>");
  EXPECT_EQ(Verdict(*codes, "S"), kTaken);
  EXPECT_EQ(codes->Check("X")->allowed, "N, S");
  EXPECT_EQ(Verdict(*Restrict("string", "<xs:pattern value='a'/><xs:pattern value='b'/>"), "b"), kTaken);
}

TEST_F(SimpleTypeTest, ARestrictionOfARestrictionHasTheFacetsOfBoth) {
  const auto text = Restrict("string", "<xs:pattern value='[a-z]*'/><xs:maxLength value='5'/>");
  const auto shorter = Restrict(text, "<xs:maxLength value='3'/><xs:pattern value='.*z'/>");
  EXPECT_EQ(Verdict(*shorter, "abz"), kTaken);
  EXPECT_EQ(Verdict(*shorter, "abcz"), XML_SCHEMAV_CVC_MAXLENGTH_VALID);
  EXPECT_EQ(Verdict(*shorter, "abc"), XML_SCHEMAV_CVC_PATTERN_VALID);
  EXPECT_EQ(Verdict(*shorter, "1z"), XML_SCHEMAV_CVC_PATTERN_VALID);
  const auto codes = Restrict("string", "<xs:enumeration value='N'/><xs:enumeration value='S'/>");
  EXPECT_EQ(Verdict(*Restrict(codes, "<xs:enumeration value='N'/>"), "S"), XML_SCHEMAV_CVC_ENUMERATION_VALID);
}

TEST_F(SimpleTypeTest, WhiteSpaceIsAsTheTypeHasIt) {
  EXPECT_EQ(SimpleType::BuiltIn("string")->Normalized(" a\n b "), " a\n b ");
  EXPECT_EQ(SimpleType::BuiltIn("token")->Normalized(" a\n b "), "a b");
  EXPECT_EQ(Restrict("string", "<xs:whiteSpace value='replace'/>")->Normalized(" a\n"), " a ");
  EXPECT_EQ(Verdict(*Restrict("token", "<xs:maxLength value='3'/>"), " a  b "), kTaken);
}

TEST_F(SimpleTypeTest, EqualValuesAreToldByOneText) {
  const auto number = SimpleType::BuiltIn("decimal");
  EXPECT_EQ(number->Comparable("007.10"), number->Comparable(" +7.1 "));
  EXPECT_EQ(number->Comparable("-0.0"), number->Comparable("0"));
  EXPECT_NE(number->Comparable("-7"), number->Comparable("7"));
  EXPECT_EQ(SimpleType::BuiltIn("integer")->Comparable("10"), number->Comparable("10.0"));
  EXPECT_NE(SimpleType::BuiltIn("string")->Comparable("7"), number->Comparable("7"));
  EXPECT_EQ(SimpleType::BuiltIn("date")->Comparable("2008-01-01"), std::nullopt);
}

TEST_F(SimpleTypeTest, AFacetThatIsNoneIsNotTaken) {
  EXPECT_EQ(Restrict("string", "<xs:assertion value='x'/>"), nullptr);
  EXPECT_EQ(Restrict("integer", "<xs:minInclusive value='x'/>"), nullptr);
  EXPECT_EQ(Restrict("string", "<xs:pattern value='('/>"), nullptr);
}

}  // namespace
}  // namespace zevo
