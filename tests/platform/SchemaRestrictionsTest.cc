// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <libxml/xmlerror.h>
#include <zevo/platform/SchemaDocument.h>
#include <zevo/platform/SchemaRestrictions.h>
#include <zevo/platform/SchemaSource.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "tests/platform/Numbered.h"
#include "tests/support/Errors.h"
#include "tests/support/ProcessorTime.h"
#include "tests/support/Sanitizers.h"

namespace zevo {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr std::string_view kSource = "Test";

std::string Schema(std::string_view content) {
  return std::string("<xs:schema xmlns:xs='http://www.w3.org/2001/XMLSchema' xmlns='urn:t' targetNamespace='urn:t'>")
      .append(content)
      .append("</xs:schema>");
}

void Require(std::string_view bytes) {
  Document document;
  LoadSchemaDocument(bytes, kSource, document);
  RequireModestSchema(document, "urn:t", kSource);
}

// A piece of text for each number; "#" stands for the number and "+" for the next.
std::string Each(int count, std::string_view piece) {
  std::string text;
  for (int i = 0; i < count; ++i) {
    for (const char c : piece) {
      if (c == '#' || c == '+') {
        text += std::to_string(c == '#' ? i : i + 1);
      } else {
        text += c;
      }
    }
  }
  return text;
}

std::string Type(std::string_view name, std::string_view content) {
  return std::string("<xs:complexType name='").append(name).append("'>").append(content).append("</xs:complexType>");
}
std::string Sequence(std::string_view content, std::string_view occurs = {}) {
  return std::string("<xs:sequence ").append(occurs).append(">").append(content).append("</xs:sequence>");
}
std::string Optional(int count) { return Each(count, "<xs:element name='e#' minOccurs='0'/>"); }
std::string Restriction(std::string_view name, std::string_view base, std::string_view facets) {
  return std::string("<xs:simpleType name='")
      .append(name)
      .append("'><xs:restriction base='")
      .append(base)
      .append("'>")
      .append(facets)
      .append("</xs:restriction></xs:simpleType>");
}
std::string Pattern(std::string_view expression) {
  return Restriction("t", "xs:string", std::string("<xs:pattern value='").append(expression).append("'/>"));
}
std::string Repeated(std::string_view text, int count) {
  std::string result;
  for (int i = 0; i < count; ++i) result += text;
  return result;
}

// What is just within a limit, what is just beyond, and the reason that is told.
struct Limit {
  std::string within;
  std::string beyond;
  std::string_view reason;
};

constexpr std::string_view kChained = "remetem umas para outras vezes de mais";
constexpr std::string_view kTime = "levaria tempo de mais a preparar";
constexpr std::string_view kMemory = "levaria memória de mais a preparar";
constexpr std::string_view kEmpty = "o que pode estar vazio";

const std::function<Limit()> kLimits[] = {
    [] {
      return Limit{Each(9'999, "<xs:element/>"), Each(10'000, "<xs:element/>"), "mais de 10 000 elementos"};
    },
    [] {
      return Limit{Type("c", Sequence(Optional(500))), Type("c", Sequence(Optional(501))),
                   "mais de 500 elementos, em «c»"};
    },
    // Groups within groups and those of base types are in the same content.
    [] {
      const std::string group = "<xs:group name='g'>" + Sequence(Optional(100)) + "</xs:group>";
      return Limit{group + Type("c", Sequence(Repeated("<xs:group ref='g'/>", 5))),
                   group + Type("c", Sequence(Repeated("<xs:group ref='g'/>", 5) + "<xs:any/>")),
                   "mais de 500 elementos, em «c»"};
    },
    [] {
      const auto extended = [](int own) {
        return Type("b", Sequence(Optional(100))) +
               Type("c", "<xs:complexContent><xs:extension base='b'>" + Sequence(Optional(own)) +
                             "</xs:extension></xs:complexContent>");
      };
      return Limit{extended(400), extended(401), "mais de 500 elementos, em «c»"};
    },
    [] {
      constexpr std::string_view kMember = "<xs:element name='e+' substitutionGroup='e#'/>";
      return Limit{Each(500, kMember) + "<xs:element name='e0'/>", Each(501, kMember) + "<xs:element name='e0'/>",
                   kChained};
    },
    [] {
      constexpr std::string_view kDerived = "<xs:simpleType name='t#'><xs:list itemType='t+'/></xs:simpleType>";
      return Limit{Each(300, kDerived), Each(600, kDerived), kChained};
    },
    [] {
      const auto chain = [](int length) {
        return Each(length,
                    "<xs:element name='e#'><xs:complexType><xs:sequence><xs:element ref='e+'/></xs:sequence>"
                    "</xs:complexType></xs:element>");
      };
      return Limit{chain(500), chain(502), kChained};
    },
    [] {
      const auto chain = [](int length) {
        return Each(length,
                    "<xs:complexType name='t#'><xs:sequence><xs:element name='e' type='t+'/></xs:sequence>"
                    "</xs:complexType>");
      };
      return Limit{chain(500), chain(502), kChained};
    },
    // Levels of elements, whatever the definitions they are in.
    [] {
      const auto chain = [](int length) {
        return Each(length, "<xs:group name='g#'>" + Repeated("<xs:choice>", 20) + "<xs:group ref='g+'/>" +
                                Repeated("</xs:choice>", 20) + "</xs:group>");
      };
      return Limit{chain(85), chain(100), "2000 níveis"};
    },
    [] {
      const auto multiplied = [](int doublings) {
        return Each(doublings,
                    "<xs:attributeGroup name='g#'><xs:attributeGroup ref='g+'/><xs:attributeGroup ref='g+'/>"
                    "</xs:attributeGroup>");
      };
      return Limit{multiplied(12), multiplied(20), kChained};
    },
    // The names in a wildcard are taken in too.
    [] {
      const auto wild = [](int references) {
        return "<xs:attributeGroup name='g'><xs:anyAttribute namespace='" + Each(500, "u# ") +
               "'/></xs:attributeGroup>" + Type("c", Repeated("<xs:attributeGroup ref='g'/>", references));
      };
      return Limit{wild(190), wild(210), kChained};
    },
    // Work grows with the square of what may come next, and with its cube for all of a content.
    [] {
      const auto types = [](int count) {
        std::string text;
        for (int i = 0; i < count; ++i) text += Type("c" + std::to_string(i), Sequence(Optional(490)));
        return text;
      };
      return Limit{types(3), types(9), kTime};
    },
    [] {
      return Limit{Pattern(Repeated("a?", 400)), Pattern(Repeated("a?", 2'000)), kTime};
    },
    [] {
      return Limit{Pattern(Repeated("(a|b)?", 150)), Pattern(Repeated("(a|b)?", 1'000)), kTime};
    },
    [] {
      const auto wild = [](int types) {
        return Repeated(Type("c", Sequence("<xs:any namespace='" + Each(8'500, "u# ") + "'/>")), types);
      };
      return Limit{wild(1), wild(2), kTime};
    },
    [] {
      const auto head = [](int members) {
        return "<xs:element name='h'/>" + Each(members, "<xs:element name='e#' substitutionGroup='h'/>") +
               Type("c", Sequence(Repeated("<xs:element ref='h'/>", 1)));
      };
      return Limit{head(500), head(2'500), kMemory};
    },
    [] {
      return Limit{Pattern(std::string(60'000, 'a')), Repeated(Pattern(std::string(60'000, 'a')), 4), kMemory};
    },
    // Parts that may be empty, repeated, in each other or one after the other.
    [] {
      const auto nested = [](int depth) {
        std::string text = Optional(2);
        for (int i = 0; i < depth; ++i) text = Sequence(text, "minOccurs='0' maxOccurs='9'");
        return Type("c", text);
      };
      return Limit{nested(8), nested(9), kEmpty};
    },
    [] {
      const std::string part = Sequence("<xs:element name='e' minOccurs='00'/>", "maxOccurs='5'");
      return Limit{Type("c", Sequence(Repeated(part, 8))), Type("c", Sequence(Repeated(part, 9))), kEmpty};
    },
    [] {
      return Limit{Pattern(Repeated("(a?){1,5}", 8)), Pattern(Repeated("(a?){1,5}", 9)), kEmpty};
    },
    // Values are looked up in the types that they are restricted from, and tried in their patterns.
    [] {
      const auto values = [](int count) {
        return Pattern("(a|aa)*b") +
               Restriction("u", "t", Repeated("<xs:enumeration value='" + std::string(60, 'a') + "'/>", count));
      };
      return Limit{values(3), values(50), kTime};
    },
    [] {
      const auto values = [](int count) {
        return Pattern("(a|aa)*b") + "<xs:attribute name='a' type='t'/>" +
               Type("c", Repeated("<xs:attribute ref='a' default='" + std::string(60, 'a') + "'/>", count));
      };
      return Limit{values(3), values(50), kTime};
    },
    [] {
      const auto values = [](int members, int count) {
        std::string text = Restriction("t", "xs:int", "") + "<xs:simpleType name='u'><xs:union memberTypes='" +
                           Repeated("t ", members) + "'/></xs:simpleType>";
        return text + Restriction("w", "u", Repeated("<xs:enumeration value='1'/>", count));
      };
      return Limit{values(1'000, 1'000), values(10'000, 5'000), kTime};
    },
};

class SchemaRestrictionsLimitTest : public ::testing::TestWithParam<std::function<Limit()>> {};

TEST_P(SchemaRestrictionsLimitTest, IsKept) {
  const Limit limit = GetParam()();
  EXPECT_NO_THROW(Require(Schema(limit.within)));
  const std::string beyond = Schema(limit.beyond);
  Error error(0, "");
  const double seconds = testing::ProcessorSeconds([&] { error = testing::ErrorOf([&] { Require(beyond); }); });
  EXPECT_EQ(error.Number(), XML_ERR_USER_STOP);
  EXPECT_EQ(error.Source(), kSource);
  EXPECT_THAT(error.Description(), StartsWith("O esquema "));
  EXPECT_THAT(error.Description(), HasSubstr(limit.reason));
  EXPECT_LT(seconds, testing::kSanitized ? 2 : 0.3);
  EXPECT_LE(beyond.size(), SchemaSource::kLargest) << "another limit comes first";
}

INSTANTIATE_TEST_SUITE_P(All, SchemaRestrictionsLimitTest, ::testing::ValuesIn(kLimits), testing::Numbered());

TEST(SchemaRestrictionsTest, DefinitionsInACircleAreLeftToTheCompiler) {
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
    EXPECT_NO_THROW(Require(Schema(content))) << content;
  }
}

TEST(SchemaRestrictionsTest, OnlyElementsAndAttributesOfSchemasCount) {
  EXPECT_NO_THROW(
      Require(Schema("<xs:annotation><o:include xmlns:o='urn:o' schemaLocation='x'/></xs:annotation>"
                     "<xs:import xmlns:o='urn:o' o:schemaLocation='x' namespace='urn:o'/>")));
  // The reference that counts is the schema's, whatever stands before it.
  const Error error = testing::ErrorOf([] {
    Require(Schema(Each(30,
                        "<xs:group name='d#'><xs:sequence><xs:group xmlns:o='urn:o' o:ref='no' ref='d+'/>"
                        "<xs:group xmlns:o='urn:o' o:ref='no' ref='d+'/></xs:sequence></xs:group>")));
  });
  EXPECT_THAT(error.Description(), HasSubstr(kChained));
}

TEST(SchemaRestrictionsTest, WhatIsNoSchemaIsLeftToTheCompiler) { EXPECT_NO_THROW(Require("<other/>")); }

}  // namespace
}  // namespace zevo
