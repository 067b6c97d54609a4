// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/FastType.h>

#include <gtest/gtest.h>
#include <libxml/xmlschemastypes.h>
#include <rapidcheck/gtest.h>
#include <zevo/platform/Document.h>
#include <zevo/platform/HostErrorHandlers.h>
#include <zevo/platform/SchemaDocument.h>
#include <zevo/platform/SchemaSyntax.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/platform/SchemaPieces.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

using TypePtr = std::shared_ptr<const SimpleType>;

TypePtr Restrict(TypePtr base, std::string_view facets) {
  xmlSchemaInitTypes();
  Document document;
  LoadSchemaDocument(testing::SchemaOfUrnT(testing::Restriction("t", "xs:string", facets)), "Test", document);
  return SimpleType::Restricted(std::move(base),
                                document.FirstChild(document.FirstChild(document.Root(), "simpleType"), "restriction"));
}

TypePtr Restrict(std::string_view base, std::string_view facets) {
  xmlSchemaInitTypes();
  return Restrict(SimpleType::BuiltIn(base), facets);
}

std::string Facet(std::string_view name, std::string_view value) {
  return std::string("<xs:").append(name).append(" value='").append(value).append("'/>");
}

// The shipped schema's restrictions of a type of XML Schema's own, each once.
std::vector<TypePtr> ShippedTypes() {
  xmlSchemaInitTypes();
  Document document;
  LoadSchemaDocument(testing::ReadBytes(ZEVO_SCHEMA_FILE), "Test", document);
  std::vector<TypePtr> types;
  ForEachElement(document.Root(), [&](Element element) {
    if (element.Name() != "restriction") return;
    if (const auto base = SimpleType::BuiltIn(WithoutPrefix(ValueOf(element, "base")))) {
      types.push_back(SimpleType::Restricted(base, element));
    }
  });
  return types;
}

class FastTypeTest : public ::testing::Test {
 protected:
  static void ExpectSure(const TypePtr& type, std::initializer_list<std::string_view> texts) {
    for (const std::string_view text : texts) {
      EXPECT_TRUE(FastType(type).IsSureOf(text)) << text;
      EXPECT_FALSE(type->Check(text)) << text;
    }
  }
  static void ExpectUnsure(const TypePtr& type, std::initializer_list<std::string_view> texts) {
    for (const std::string_view text : texts) EXPECT_FALSE(FastType(type).IsSureOf(text)) << text;
  }

  HostErrorHandlers aside_;
};

TEST_F(FastTypeTest, WhereItIsNotSureLibxml2IsAsked) {
  const FastType decimal(SimpleType::BuiltIn("decimal"));
  for (const std::string_view text : {"+1", " 1 ", "1234567890123456789", ".5", "-0"}) {
    EXPECT_FALSE(decimal.IsSureOf(text)) << text;
    EXPECT_TRUE(decimal.Takes(text)) << text;
  }
  EXPECT_FALSE(decimal.Takes("1,5"));
  EXPECT_FALSE(decimal.Takes(""));
  EXPECT_TRUE(FastType(SimpleType::BuiltIn("duration")).Takes("P1Y"));
  EXPECT_FALSE(FastType(SimpleType::BuiltIn("duration")).Takes("1Y"));
}

TEST_F(FastTypeTest, WhatLibxml2CannotTellIsNotTaken) {
  // A pattern that libxml2 tries in so many ways that it gives up.
  const auto hard = Restrict("string", Facet("pattern", "(a|aa)*b"));
  EXPECT_FALSE(hard->Check(std::string(100, 'a')));
  EXPECT_FALSE(hard->Takes(std::string(100, 'a')));
  EXPECT_FALSE(FastType(hard).Takes(std::string(100, 'a')));
  EXPECT_TRUE(FastType(hard).Takes("aab"));
}

TEST_F(FastTypeTest, NumbersAreReadAsTheyAreUsuallyWritten) {
  const auto decimal = SimpleType::BuiltIn("decimal");
  ExpectSure(decimal, {"0", "1", "-1", "12.50", "-0.01", "007", "0.00", "123456789012345678", "1234567890123456.78"});
  ExpectUnsure(decimal, {"", "-", ".", "1.", "-.5", "1e3", "1 000", "1.2.3", "1,0", "12345678901234567.89"});
  const auto integer = SimpleType::BuiltIn("integer");
  ExpectSure(integer, {"0", "-1", "012"});
  ExpectUnsure(integer, {"1.0", "1.", "x"});
}

TEST_F(FastTypeTest, WholeNumbersHaveTheBoundsOfTheirType) {
  ExpectSure(SimpleType::BuiltIn("nonNegativeInteger"), {"0", "1"});
  ExpectUnsure(SimpleType::BuiltIn("nonNegativeInteger"), {"-1", "-0"});
  ExpectSure(SimpleType::BuiltIn("positiveInteger"), {"1"});
  ExpectUnsure(SimpleType::BuiltIn("positiveInteger"), {"0"});
  ExpectSure(SimpleType::BuiltIn("nonPositiveInteger"), {"0", "-1"});
  ExpectUnsure(SimpleType::BuiltIn("nonPositiveInteger"), {"1"});
  ExpectSure(SimpleType::BuiltIn("negativeInteger"), {"-1"});
  ExpectUnsure(SimpleType::BuiltIn("negativeInteger"), {"0"});
  ExpectSure(SimpleType::BuiltIn("byte"), {"-128", "127"});
  ExpectUnsure(SimpleType::BuiltIn("byte"), {"-129", "128"});
  ExpectSure(SimpleType::BuiltIn("short"), {"-32768", "32767"});
  ExpectUnsure(SimpleType::BuiltIn("short"), {"-32769", "32768"});
  ExpectSure(SimpleType::BuiltIn("int"), {"-2147483648", "2147483647"});
  ExpectUnsure(SimpleType::BuiltIn("int"), {"-2147483649", "2147483648"});
  ExpectSure(SimpleType::BuiltIn("unsignedInt"), {"0", "4294967295"});
  ExpectUnsure(SimpleType::BuiltIn("unsignedInt"), {"-1", "4294967296"});
  ExpectSure(SimpleType::BuiltIn("unsignedShort"), {"65535"});
  ExpectUnsure(SimpleType::BuiltIn("unsignedShort"), {"65536"});
  ExpectSure(SimpleType::BuiltIn("unsignedByte"), {"255"});
  ExpectUnsure(SimpleType::BuiltIn("unsignedByte"), {"256"});
  ExpectSure(SimpleType::BuiltIn("unsignedLong"), {"123456789012345678"});
  ExpectSure(SimpleType::BuiltIn("long"), {"-123456789012345678"});
}

TEST_F(FastTypeTest, BoundsAreComparedToTheLastDigit) {
  const auto between = Restrict("decimal", Facet("minInclusive", "-1.5") + Facet("maxExclusive", "99.995"));
  ExpectSure(between, {"-1.5", "-1.50", "-1.499", "0", "99.994999"});
  ExpectUnsure(between, {"-1.51", "-2", "99.995", "99.9950", "100"});
  const auto beyond = Restrict("decimal", Facet("minExclusive", "-0.01") + Facet("maxInclusive", "123456789012345678"));
  ExpectSure(beyond, {"-0.00999999999999999", "0.00000000000000001", "123456789012345678"});
  ExpectUnsure(beyond, {"-0.01", "-0.011", "123456789012345679"});
  // Of several bounds the narrowest counts.
  const auto narrower = Restrict(between, Facet("minExclusive", "-1.5") + Facet("maxInclusive", "50"));
  ExpectSure(narrower, {"-1.49", "50"});
  ExpectUnsure(narrower, {"-1.5", "50.1"});
}

TEST_F(FastTypeTest, DigitsAreCountedAsTheyAreWritten) {
  const auto type = Restrict("decimal", Facet("totalDigits", "4") + Facet("fractionDigits", "2"));
  ExpectSure(type, {"1234", "12.34", "-12.34", "1.5"});
  ExpectUnsure(type, {"12345", "123.45", "1.234"});
  EXPECT_TRUE(FastType(type).Takes("0012.340"));
}

TEST_F(FastTypeTest, DatesAreThoseOfTheCalendar) {
  const auto date = SimpleType::BuiltIn("date");
  ExpectSure(date, {"2008-02-29", "2000-02-29", "2009-02-28", "0001-01-01", "9999-12-31", "2008-04-30", "2008-01-31"});
  ExpectUnsure(date,
               {"", "2009-02-29", "1900-02-29", "2008-02-30", "2008-04-31", "2008-00-01", "2008-13-01", "2008-01-00",
                "2008-01-32", "0000-01-01", "2008-1-01", "2008/01/01", "2008-01-01Z", "2008-01-0x", "-2008-01-01"});
  const auto moment = SimpleType::BuiltIn("dateTime");
  ExpectSure(moment, {"2008-02-29T00:00:00", "2008-02-29T23:59:59"});
  ExpectUnsure(moment, {"2008-02-29", "2009-02-29T00:00:00", "2008-02-29T24:00:00", "2008-02-29T23:60:00",
                        "2008-02-29T23:59:60", "2008-02-29T23:59:59.5", "2008-02-29T23:59:59Z", "2008-02-29 23:59:59"});
  EXPECT_TRUE(FastType(moment).Takes("2008-02-29T23:59:59.5Z"));
  const auto span = Restrict("date", Facet("minInclusive", "2000-01-01") + Facet("maxExclusive", "2008-12-31"));
  ExpectSure(span, {"2000-01-01", "2008-12-30"});
  ExpectUnsure(span, {"1999-12-31", "2008-12-31"});
  const auto moments = Restrict("dateTime", Facet("minExclusive", "2008-01-01T12:00:00"));
  ExpectSure(moments, {"2008-01-01T12:00:01"});
  ExpectUnsure(moments, {"2008-01-01T12:00:00"});
  ExpectUnsure(Restrict("date", Facet("minInclusive", "2000-01-01Z")), {"2008-01-01"});
}

TEST_F(FastTypeTest, YearsAndTruthValuesAreRead) {
  ExpectSure(SimpleType::BuiltIn("gYear"), {"0001", "2008"});
  ExpectUnsure(SimpleType::BuiltIn("gYear"), {"0000", "08", "20080", "2008Z"});
  ExpectSure(SimpleType::BuiltIn("boolean"), {"true", "false", "0", "1"});
  ExpectUnsure(SimpleType::BuiltIn("boolean"), {"TRUE", "", "2"});
}

TEST_F(FastTypeTest, LengthsAreInCharacters) {
  const auto text = Restrict("string", Facet("minLength", "2") + Facet("maxLength", "3"));
  ExpectSure(text, {"ab", "abc", "\u00E7\u00E7", "\u20AC\u20AC\u20AC", "\U0001F600\U0001F600"});
  ExpectUnsure(text, {"", "a", "\u00E7", "\U0001F600", "abcd", "\u00E7\u00E7\u00E7\u00E7"});
  const auto exactly = Restrict("string", Facet("length", "2"));
  ExpectSure(exactly, {"ab", "\u20AC\u20AC"});
  ExpectUnsure(exactly, {"a", "abc", "\u20AC"});
  ExpectSure(SimpleType::BuiltIn("string"), {"", " a\n b "});
  ExpectUnsure(Restrict("string", Facet("minLength", "4611686018427387904")), {"", "a"});
}

TEST_F(FastTypeTest, TextsWhoseWhiteSpaceWouldChangeAreLeftToLibxml2) {
  ExpectSure(SimpleType::BuiltIn("token"), {"", "a b"});
  ExpectUnsure(SimpleType::BuiltIn("token"), {" a", "a ", "a  b", "a\tb", " "});
  ExpectSure(SimpleType::BuiltIn("normalizedString"), {" a  b "});
  ExpectUnsure(SimpleType::BuiltIn("normalizedString"), {"a\nb", "a\tb", "a\rb"});
}

TEST_F(FastTypeTest, ValuesAreThoseOfTheInnermostRestriction) {
  const auto codes =
      Restrict("string", Facet("enumeration", "N") + Facet("enumeration", "S.A") + Facet("enumeration", "SA"));
  ExpectSure(codes, {"N", "SA", "S.A"});
  ExpectUnsure(codes, {"", "S", "SxA", "n"});
  const auto fewer = Restrict(codes, Facet("enumeration", "N"));
  ExpectSure(fewer, {"N"});
  ExpectUnsure(fewer, {"SA"});
  ExpectSure(Restrict("integer", Facet("enumeration", "5")), {"5"});
  EXPECT_TRUE(FastType(Restrict("integer", Facet("enumeration", "5"))).Takes("05"));
  // Beyond ASCII libxml2 is asked.
  EXPECT_TRUE(FastType(Restrict("string", Facet("enumeration", "\u00E7"))).Takes("\u00E7"));
}

TEST_F(FastTypeTest, OfEachRestrictionOnePatternIsEnough) {
  const auto one = Restrict("string", Facet("pattern", "a+") + Facet("pattern", "b+"));
  ExpectSure(one, {"aa", "bb"});
  ExpectUnsure(one, {"ab", ""});
  const auto both = Restrict(one, Facet("pattern", ".."));
  ExpectSure(both, {"aa", "bb"});
  ExpectUnsure(both, {"a", "cc"});
  EXPECT_TRUE(FastType(Restrict("string", Facet("pattern", "\\p{Lu}"))).Takes("A"));
  EXPECT_FALSE(FastType(Restrict("string", Facet("pattern", "\\p{Lu}"))).Takes("a"));
}

TEST_F(FastTypeTest, EqualValuesHaveOneKey) {
  const FastType decimal(SimpleType::BuiltIn("decimal"));
  const FastType integer(SimpleType::BuiltIn("integer"));
  const FastType text(SimpleType::BuiltIn("string"));
  EXPECT_EQ(decimal.KeyOf("007.10"), decimal.KeyOf("7.1"));
  EXPECT_EQ(decimal.KeyOf("10.00"), integer.KeyOf("10"));
  EXPECT_EQ(decimal.KeyOf("0.0"), integer.KeyOf("00"));
  EXPECT_NE(decimal.KeyOf("-7"), decimal.KeyOf("7"));
  EXPECT_NE(decimal.KeyOf("10"), decimal.KeyOf("1"));
  EXPECT_NE(decimal.KeyOf("1.01"), decimal.KeyOf("1.1"));
  EXPECT_NE(text.KeyOf("7"), decimal.KeyOf("7"));
  EXPECT_NE(text.KeyOf("7"), FastType(SimpleType::BuiltIn("token")).KeyOf("7"));
  EXPECT_EQ(text.KeyOf(" 7"), text.KeyOf(" 7"));
  EXPECT_NE(text.KeyOf(" 7"), text.KeyOf("7"));
  for (const std::string_view unusual : {"+7", "-0", " 7", "x"}) {
    EXPECT_EQ(decimal.KeyOf(unusual), std::nullopt) << unusual;
  }
  EXPECT_EQ(FastType(SimpleType::BuiltIn("token")).KeyOf(" 7"), std::nullopt);
  EXPECT_FALSE(FastType(SimpleType::BuiltIn("date")).HasKeys());
  EXPECT_FALSE(FastType(SimpleType::BuiltIn("NCName")).HasKeys());
}

TEST_F(FastTypeTest, TheTypesOfTheShippedSchemaAreSureOfWhatFilesHave) {
  const std::vector<std::string> usual{"A",
                                       "2008-02-29",
                                       "2008-02-29T12:00:00",
                                       "12.50",
                                       "12",
                                       "501234567",
                                       "Contas Certas",
                                       "4000-041",
                                       "PT",
                                       "EUR",
                                       "FT A/1",
                                       "N",
                                       "NU",
                                       "FT",
                                       "NOR",
                                       "IVA",
                                       "1.01_01",
                                       "2008",
                                       "P",
                                       "1",
                                       "21",
                                       "Lisboa 5",
                                       "ES",
                                       "",
                                       "2008-01-01 D 1"};
  size_t sure = 0;
  const std::vector<TypePtr> types = ShippedTypes();
  EXPECT_GT(types.size(), 30U);
  for (const TypePtr& type : types) {
    const FastType fast(type);
    bool any = false;
    for (const std::string& text : usual) any = any || fast.IsSureOf(text);
    sure += any ? 1 : 0;
  }
  EXPECT_EQ(sure, types.size() - 1);  // all but that of ProductID
}

// Texts at and about the boundaries of what types say.
rc::Gen<std::string> GenText() {
  const auto texts = [](std::vector<std::string> values) { return rc::gen::elementOf(std::move(values)); };
  const auto digits = rc::gen::container<std::string>(rc::gen::inRange('0', ':'));
  const auto number =
      rc::gen::map(rc::gen::tuple(texts({"", "", "-", "+", " "}), digits, texts({"", ".", "."}), digits),
                   [](const std::tuple<std::string, std::string, std::string, std::string>& parts) {
                     return std::get<0>(parts) + std::get<1>(parts) + std::get<2>(parts) + std::get<3>(parts);
                   });
  const auto two =
      texts({"00", "01", "02", "04", "11", "12", "13", "23", "24", "28", "29", "30", "31", "32", "59", "60"});
  const auto date = rc::gen::map(
      rc::gen::tuple(
          texts({"0000", "0001", "1900", "1999", "2000", "2004", "2009", "9999"}), two, two,
          texts({"", "", "Z", "T00:00:00", "T23:59:59", "T24:00:00", "T23:59:60", "T12:30:00.5", "T12:00:00Z"})),
      [](const std::tuple<std::string, std::string, std::string, std::string>& parts) {
        const auto& [year, month, day, rest] = parts;
        return year + "-" + month + "-" + day + rest;
      });
  const auto words = rc::gen::map(rc::gen::container<std::vector<std::string>>(
                                      texts({"a", "B", "1", " ", "/", "-", "\t", "\n", "\u00E7", "\U0001F600"})),
                                  [](const std::vector<std::string>& letters) {
                                    std::string text;
                                    for (const std::string& letter : letters) text += letter;
                                    return text;
                                  });
  return rc::gen::oneOf(number, date, words, texts({"true", "false", "A", "AB", "N", "S", "2008", "PT", "P"}));
}

RC_GTEST_FIXTURE_PROP(FastTypeTest, WhatItIsSureOfLibxml2Takes, ()) {
  static const std::vector<TypePtr> kTypes = [] {
    std::vector<TypePtr> types = ShippedTypes();
    for (const std::string_view name : {"string",
                                        "normalizedString",
                                        "token",
                                        "decimal",
                                        "integer",
                                        "nonPositiveInteger",
                                        "negativeInteger",
                                        "long",
                                        "int",
                                        "short",
                                        "byte",
                                        "nonNegativeInteger",
                                        "unsignedLong",
                                        "unsignedInt",
                                        "unsignedShort",
                                        "unsignedByte",
                                        "positiveInteger",
                                        "date",
                                        "dateTime",
                                        "gYear",
                                        "boolean",
                                        "time",
                                        "anyURI",
                                        "NCName",
                                        "double"}) {
      types.push_back(SimpleType::BuiltIn(name));
    }
    for (const auto& [base, facets] : std::vector<std::pair<std::string, std::string>>{
             {"decimal", Facet("totalDigits", "5") + Facet("fractionDigits", "2")},
             {"decimal", Facet("minInclusive", "-1.5") + Facet("maxInclusive", "100.01")},
             {"decimal", Facet("minExclusive", "-1.5") + Facet("maxExclusive", "100.01")},
             {"integer", Facet("totalDigits", "3")},
             {"date", Facet("minExclusive", "2000-02-29") + Facet("maxInclusive", "2009-12-31")},
             {"dateTime", Facet("minInclusive", "2000-01-01T00:00:00") + Facet("maxExclusive", "2009-12-31T23:59:59")},
             {"gYear", Facet("minInclusive", "2000")},
             {"string", Facet("length", "2")},
             {"token", Facet("minLength", "1") + Facet("maxLength", "3")},
             {"normalizedString", Facet("enumeration", "A B") + Facet("enumeration", "N")},
             {"string", Facet("pattern", "[^a]*") + Facet("pattern", "a.*")},
             {"decimal", Facet("pattern", "[0-9]+(.[0-9]{2})?")},
         }) {
      types.push_back(Restrict(base, facets));
    }
    return types;
  }();
  static const std::vector<FastType> kFast(kTypes.begin(), kTypes.end());
  const std::string text = *GenText();
  for (size_t i = 0; i < kTypes.size(); ++i) {
    if (kFast[i].IsSureOf(text)) RC_ASSERT(!kTypes[i]->Check(text));
  }
}

RC_GTEST_FIXTURE_PROP(FastTypeTest, ValuesAreEqualWhereLibxml2ComparesThemSo, ()) {
  const std::string one = *GenText();
  const std::string other = *GenText();
  for (const std::string_view name : {"decimal", "integer", "string", "token"}) {
    const auto type = SimpleType::BuiltIn(name);
    const FastType fast(type);
    if (type->Check(one) || type->Check(other)) continue;
    const auto key_of_one = fast.KeyOf(one);
    const auto key_of_other = fast.KeyOf(other);
    if (!key_of_one || !key_of_other) continue;
    RC_ASSERT((*key_of_one == *key_of_other) == (type->Comparable(one) == type->Comparable(other)));
  }
}

}  // namespace
}  // namespace zevo
