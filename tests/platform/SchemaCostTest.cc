// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/platform/SchemaCost.h>
#include <zevo/platform/SchemaDocument.h>
#include <zevo/platform/SchemaLimits.h>

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "tests/platform/Numbered.h"
#include "tests/platform/Parsing.h"
#include "tests/platform/SchemaLimit.h"
#include "tests/platform/SchemaPieces.h"

namespace zevo {
namespace {

using testing::Each;
using ::testing::HasSubstr;
using testing::Optional;
using testing::Pattern;
using testing::Repeated;
using testing::Restriction;
using testing::SchemaLimit;
using testing::SchemaOfUrnT;
using testing::Sequence;
using testing::Type;

class SchemaCostTest : public ::testing::Test {
 protected:
  SchemaCost CostOf(std::string_view content) {
    document_.Clear();
    LoadSchemaDocument(SchemaOfUrnT(content), "Test", document_);
    return SchemaCost(document_.Root(), SchemaReferences(document_.Root()));
  }

  Document document_;
};

TEST_F(SchemaCostTest, ASchemaWithoutContentCostsNothing) {
  const SchemaCost cost = CostOf("<xs:element name='a'/><xs:group name='g'/><xs:simpleType name='t'/>");
  EXPECT_EQ(cost.Seconds(), 0);
  EXPECT_EQ(cost.Bytes(), 0);
}

TEST_F(SchemaCostTest, EachContentAndEachPatternCosts) {
  for (const std::string& content : {Type("c", Sequence(Optional(20))), Pattern("(a|b)*c")}) {
    const SchemaCost once = CostOf(content);
    const SchemaCost twice = CostOf(content + content);
    EXPECT_GT(once.Seconds(), 0);
    EXPECT_GT(once.Bytes(), 0);
    EXPECT_DOUBLE_EQ(twice.Seconds(), 2 * once.Seconds());
    EXPECT_DOUBLE_EQ(twice.Bytes(), 2 * once.Bytes());
  }
}

TEST_F(SchemaCostTest, AGroupCostsWhereItIsPut) {
  const std::string group = "<xs:group name='g'>" + Sequence(Optional(20)) + "</xs:group>";
  EXPECT_EQ(CostOf(group).Seconds(), 0);
  EXPECT_EQ(CostOf(Type("c", "<xs:group ref='g'/>") + group).Seconds(),
            CostOf(Type("c", Sequence(Optional(20)))).Seconds());
}

TEST_F(SchemaCostTest, WhatMayStandForAnElementCostsWithIt) {
  const std::string one = Type("c", Sequence("<xs:element ref='h'/>")) + "<xs:element name='h'/>";
  EXPECT_GT(CostOf(one + Each(10, "<xs:element name='e#' substitutionGroup='h'/>")).Bytes(), CostOf(one).Bytes());
}

TEST_F(SchemaCostTest, AValueCostsWhatThePatternsOfItsTypeMakeOfIt) {
  const auto seconds = [&](std::string_view pattern, size_t length) {
    const std::string type = Pattern(pattern);
    const std::string value = Restriction("u", "t", "<xs:enumeration value='" + std::string(length, 'a') + "'/>");
    return CostOf(type + value).Seconds() - CostOf(type).Seconds();
  };
  EXPECT_GT(seconds("(a|aa)*b", 20), 1'000 * seconds("(a|aa)*b", 1));
  EXPECT_LT(seconds("a*", 20), 2 * seconds("a*", 1));
}

TEST_F(SchemaCostTest, WhatGoesBeyondIsToldWithItsDefinition) {
  try {
    CostOf(Type("b", Sequence(Optional(500))) + Type("c", Sequence(Optional(501))));
    FAIL() << "nothing was thrown";
  } catch (const SchemaLimits::Passed& limit) {
    EXPECT_THAT(limit.reason, HasSubstr("mais de 500 elementos"));
    EXPECT_EQ(limit.within.Attribute("name"), "c");
  }
}

constexpr std::string_view kTime = "levaria tempo de mais a preparar";
constexpr std::string_view kMemory = "levaria memória de mais a preparar";
constexpr std::string_view kEmpty = "o que pode estar vazio";

const std::function<SchemaLimit()> kCostLimits[] = {
    [] {
      return SchemaLimit{Type("c", Sequence(Optional(500))), Type("c", Sequence(Optional(501))),
                         "mais de 500 elementos, em «c»"};
    },
    // Groups within groups and those of base types are in the same content.
    [] {
      const std::string group = "<xs:group name='g'>" + Sequence(Optional(100)) + "</xs:group>";
      return SchemaLimit{group + Type("c", Sequence(Repeated("<xs:group ref='g'/>", 5))),
                         group + Type("c", Sequence(Repeated("<xs:group ref='g'/>", 5) + "<xs:any/>")),
                         "mais de 500 elementos, em «c»"};
    },
    [] {
      const auto extended = [](int own) {
        return Type("b", Sequence(Optional(100))) +
               Type("c", "<xs:complexContent><xs:extension base='b'>" + Sequence(Optional(own)) +
                             "</xs:extension></xs:complexContent>");
      };
      return SchemaLimit{extended(400), extended(401), "mais de 500 elementos, em «c»"};
    },
    // Work grows with the square of what may come next, and with its cube for all of a content.
    [] {
      const auto types = [](int count) {
        std::string text;
        for (int i = 0; i < count; ++i) text += Type("c" + std::to_string(i), Sequence(Optional(490)));
        return text;
      };
      return SchemaLimit{types(3), types(9), kTime};
    },
    [] {
      return SchemaLimit{Pattern(Repeated("a?", 400)), Pattern(Repeated("a?", 2'000)), kTime};
    },
    [] {
      return SchemaLimit{Pattern(Repeated("(a|b)?", 150)), Pattern(Repeated("(a|b)?", 1'000)), kTime};
    },
    // Each group that is counted in another adds its counter to every transition.
    [] {
      const auto nested = [](int depth) {
        std::string text = Sequence(Optional(250));
        for (int i = 0; i < depth; ++i) text = Sequence(text, "maxOccurs='9'");
        return Type("c", text);
      };
      return SchemaLimit{nested(2), nested(3), kTime};
    },
    [] {
      const auto digits = [](size_t count) { return Pattern(Repeated(R"(\d{0,9})", count)); };
      return SchemaLimit{digits(400), digits(2'000), kTime};
    },
    // Every element that ends a choice leads to all that the next choice may begin with.
    [] {
      const auto choices = [](int elements) {
        const std::string element = "<xs:element name='e#' minOccurs='0' maxOccurs='9'/>";
        const std::string choice = "<xs:choice>" + Each(elements, element) + "</xs:choice>";
        return Type("c", Sequence(Repeated(choice, 4)));
      };
      return SchemaLimit{choices(50), choices(120), kTime};
    },
    [] {
      const auto wild = [](size_t types) {
        return Repeated(Type("c", Sequence("<xs:any namespace='" + Each(8'500, "u# ") + "'/>")), types);
      };
      return SchemaLimit{wild(1), wild(2), kTime};
    },
    [] {
      const auto head = [](int members) {
        return "<xs:element name='h'/>" + Each(members, "<xs:element name='e#' substitutionGroup='h'/>") +
               Type("c", Sequence(Repeated("<xs:element ref='h'/>", 1)));
      };
      return SchemaLimit{head(500), head(2'500), kMemory};
    },
    [] {
      return SchemaLimit{Pattern(std::string(60'000, 'a')), Repeated(Pattern(std::string(60'000, 'a')), 4), kMemory};
    },
    // Parts that may be empty, repeated, in each other or one after the other.
    [] {
      const auto nested = [](int depth) {
        std::string text = Optional(2);
        for (int i = 0; i < depth; ++i) text = Sequence(text, "minOccurs='0' maxOccurs='9'");
        return Type("c", text);
      };
      return SchemaLimit{nested(8), nested(9), kEmpty};
    },
    [] {
      const std::string part = Sequence("<xs:element name='e' minOccurs='00'/>", "maxOccurs='5'");
      return SchemaLimit{Type("c", Sequence(Repeated(part, 8))), Type("c", Sequence(Repeated(part, 9))), kEmpty};
    },
    // A group of nothing has its counter, too.
    [] {
      const std::string part = Sequence("", "maxOccurs='5'");
      return SchemaLimit{Type("c", Sequence(Repeated(part, 8))), Type("c", Sequence(Repeated(part, 9))), kEmpty};
    },
    [] {
      return SchemaLimit{Pattern(Repeated("(a?){1,5}", 8)), Pattern(Repeated("(a?){1,5}", 9)), kEmpty};
    },
    // Values are looked up in the types that they are restricted from, and tried in their patterns.
    [] {
      const auto values = [](size_t count) {
        return Pattern("(a|aa)*b") +
               Restriction("u", "t", Repeated("<xs:enumeration value='" + std::string(60, 'a') + "'/>", count));
      };
      return SchemaLimit{values(3), values(50), kTime};
    },
    [] {
      const auto values = [](size_t count) {
        return Pattern("(a|aa)*b") + "<xs:attribute name='a' type='t'/>" +
               Type("c", Repeated("<xs:attribute ref='a' default='" + std::string(60, 'a') + "'/>", count));
      };
      return SchemaLimit{values(3), values(50), kTime};
    },
    [] {
      const auto values = [](size_t members, size_t count) {
        std::string text = Restriction("t", "xs:int", "") + "<xs:simpleType name='u'><xs:union memberTypes='" +
                           Repeated("t ", members) + "'/></xs:simpleType>";
        return text + Restriction("w", "u", Repeated("<xs:enumeration value='1'/>", count));
      };
      return SchemaLimit{values(1'000, 1'000), values(10'000, 5'000), kTime};
    },
};

class SchemaCostLimitTest : public ::testing::TestWithParam<std::function<SchemaLimit()>> {};

TEST_P(SchemaCostLimitTest, IsKept) { testing::ExpectKept(GetParam()()); }

INSTANTIATE_TEST_SUITE_P(All, SchemaCostLimitTest, ::testing::ValuesIn(kCostLimits), testing::Numbered());

}  // namespace
}  // namespace zevo
