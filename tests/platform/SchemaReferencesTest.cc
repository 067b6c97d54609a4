// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/platform/SchemaDocument.h>
#include <zevo/platform/SchemaLimits.h>
#include <zevo/platform/SchemaReferences.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/Numbered.h"
#include "tests/platform/Parsing.h"
#include "tests/platform/SchemaLimit.h"
#include "tests/platform/SchemaPieces.h"
#include "tests/support/Errors.h"
#include "tests/support/ProcessorTime.h"
#include "tests/support/Sanitizers.h"

namespace zevo {
namespace {

using testing::Each;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using testing::Repeated;
using testing::SchemaLimit;
using testing::SchemaOfUrnT;
using testing::Type;

class SchemaReferencesTest : public ::testing::Test {
 protected:
  SchemaReferences ReferencesOf(std::string_view content) {
    LoadSchemaDocument(SchemaOfUrnT(content), "Test", document_);
    return SchemaReferences(document_.Root());
  }

  static std::string NameOf(Element definition) {
    return definition ? std::string(definition.Attribute("name").value_or("")) : "none";
  }

  std::vector<std::string> OrderOf(std::string_view content) {
    std::vector<std::string> names;
    const SchemaReferences references = ReferencesOf(content);
    for (const Element definition : references.InOrder()) names.push_back(NameOf(definition));
    return names;
  }

  Document document_;
};

TEST_F(SchemaReferencesTest, WhatIsReferredToComesFirst) {
  EXPECT_THAT(OrderOf("<xs:element name='a' type='t:b'/>"
                      "<xs:complexType name='b'><xs:sequence><xs:group ref='c'/></xs:sequence></xs:complexType>"
                      "<xs:group name='c'><xs:sequence><xs:element name='e' type='d'/></xs:sequence></xs:group>"
                      "<xs:simpleType name='d'><xs:union memberTypes='e  xs:f'/></xs:simpleType>"
                      "<xs:simpleType name='e'/><xs:simpleType name='f'/>"),
              ElementsAre("e", "f", "d", "c", "b", "a"));
}

TEST_F(SchemaReferencesTest, HeadsComeBeforeTheirMembers) {
  EXPECT_THAT(OrderOf("<xs:element name='m' substitutionGroup='h'/><xs:element name='h'/>"), ElementsAre("h", "m"));
}

TEST_F(SchemaReferencesTest, EachDefinitionInACircleComesOnce) {
  EXPECT_THAT(OrderOf("<xs:group name='a'><xs:group ref='b'/></xs:group><xs:group name='b'><xs:group ref='a'/>"
                      "</xs:group>"),
              ElementsAre("b", "a"));
}

TEST_F(SchemaReferencesTest, ADefinitionIsFoundByItsNameAndItsKind) {
  const SchemaReferences references = ReferencesOf(
      "<xs:element name='n' type='first'/><xs:complexType name='n'/><xs:simpleType name='n'/>"
      "<xs:element name='n' type='second'/>");
  EXPECT_EQ(references.Find("n", {"element"}).Attribute("type"), "first");
  EXPECT_EQ(references.Find("t:n", {"simpleType"}).Name(), "simpleType");
  EXPECT_EQ(references.Find("n", {"simpleType", "complexType"}).Name(), "complexType");
  EXPECT_FALSE(references.Find("n", {"group"}));
  EXPECT_FALSE(references.Find("other", {"element"}));
}

TEST_F(SchemaReferencesTest, ElementsThatDefineNothingAreNotReferredTo) {
  std::string content =
      "<xs:element name='n'/><xs:simpleType name='t'><xs:union memberTypes='" + Repeated("n ", 30'000);
  content += "'/></xs:simpleType>" + Each(5'000, "<xs:k# name='n'/>");
  const double seconds = testing::ProcessorSeconds([&] { EXPECT_EQ(OrderOf(content).size(), 5'002u); });
  EXPECT_LT(seconds, testing::kSanitized ? 2 : 0.3);
}

TEST_F(SchemaReferencesTest, WhatGoesBeyondIsToldWithItsDefinition) {
  try {
    ReferencesOf(Each(600, "<xs:element name='e#' type='t'/>") +
                 Each(502, "<xs:element name='m+' substitutionGroup='m#'/>"));
    FAIL() << "nothing was thrown";
  } catch (const SchemaLimits::Passed& limit) {
    EXPECT_THAT(limit.reason, HasSubstr("mais de 500 em cadeia"));
    EXPECT_EQ(NameOf(limit.within), "m502");
  }
}

constexpr std::string_view kChained = "remetem umas para outras vezes de mais";

const std::function<SchemaLimit()> kReferenceLimits[] = {
    [] {
      constexpr std::string_view kMember = "<xs:element name='e+' substitutionGroup='e#'/>";
      return SchemaLimit{Each(500, kMember) + "<xs:element name='e0'/>", Each(501, kMember) + "<xs:element name='e0'/>",
                         kChained};
    },
    [] {
      constexpr std::string_view kDerived = "<xs:simpleType name='t#'><xs:list itemType='t+'/></xs:simpleType>";
      return SchemaLimit{Each(300, kDerived), Each(600, kDerived), kChained};
    },
    [] {
      const auto chain = [](int length) {
        return Each(length,
                    "<xs:element name='e#'><xs:complexType><xs:sequence><xs:element ref='e+'/></xs:sequence>"
                    "</xs:complexType></xs:element>");
      };
      return SchemaLimit{chain(500), chain(502), kChained};
    },
    [] {
      const auto chain = [](int length) {
        return Each(length,
                    "<xs:complexType name='t#'><xs:sequence><xs:element name='e' type='t+'/></xs:sequence>"
                    "</xs:complexType>");
      };
      return SchemaLimit{chain(500), chain(502), kChained};
    },
    // Levels of elements, whatever the definitions they are in.
    [] {
      const auto chain = [](int length) {
        return Each(length, "<xs:group name='g#'>" + Repeated("<xs:choice>", 20) + "<xs:group ref='g+'/>" +
                                Repeated("</xs:choice>", 20) + "</xs:group>");
      };
      return SchemaLimit{chain(85), chain(100), "2000 níveis"};
    },
    [] {
      const auto multiplied = [](int doublings) {
        return Each(doublings,
                    "<xs:attributeGroup name='g#'><xs:attributeGroup ref='g+'/><xs:attributeGroup ref='g+'/>"
                    "</xs:attributeGroup>");
      };
      return SchemaLimit{multiplied(12), multiplied(20), kChained};
    },
    // The names in a wildcard are taken in too.
    [] {
      const auto wild = [](size_t references) {
        return "<xs:attributeGroup name='g'><xs:anyAttribute namespace='" + Each(500, "u# ") +
               "'/></xs:attributeGroup>" + Type("c", Repeated("<xs:attributeGroup ref='g'/>", references));
      };
      return SchemaLimit{wild(190), wild(210), kChained};
    },
};

class SchemaReferencesLimitTest : public ::testing::TestWithParam<std::function<SchemaLimit()>> {};

TEST_P(SchemaReferencesLimitTest, IsKept) { testing::ExpectKept(GetParam()()); }

INSTANTIATE_TEST_SUITE_P(All, SchemaReferencesLimitTest, ::testing::ValuesIn(kReferenceLimits), testing::Numbered());

TEST_F(SchemaReferencesTest, OnlyAttributesOfSchemasRefer) {
  const Error error = testing::ErrorOf([] {
    testing::RequireModest(
        SchemaOfUrnT(Each(30,
                          "<xs:group name='d#'><xs:sequence><xs:group xmlns:o='urn:o' o:ref='no' ref='d+'/>"
                          "<xs:group xmlns:o='urn:o' o:ref='no' ref='d+'/></xs:sequence></xs:group>")));
  });
  EXPECT_THAT(error.Description(), HasSubstr(kChained));
}

TEST_F(SchemaReferencesTest, DefinitionsInACircleAreLeftToTheCompiler) {
  for (const std::string_view content : {
           "<xs:group name='g'><xs:sequence><xs:group ref='g'/></xs:sequence></xs:group>"
           "<xs:complexType name='c'><xs:group ref='g'/></xs:complexType>",
           "<xs:complexType name='c'><xs:complexContent><xs:extension base='c'/></xs:complexContent></xs:complexType>",
           "<xs:simpleType name='t'><xs:union memberTypes='t t'/></xs:simpleType>"
           "<xs:element name='e' type='t' default='x'/>",
           "<xs:element name='e' substitutionGroup='e'/><xs:complexType name='c'><xs:sequence><xs:element ref='e'/>"
           "</xs:sequence></xs:complexType>",
           "<xs:element name='e'><xs:complexType><xs:sequence><xs:element ref='e'/></xs:sequence></xs:complexType>"
           "</xs:element>",
       }) {
    EXPECT_NO_THROW(testing::RequireModest(SchemaOfUrnT(content))) << content;
  }
}

}  // namespace
}  // namespace zevo
