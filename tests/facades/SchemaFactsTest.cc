// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Not;

// The shipped schema. A test may use another one.
class SchemaFactsTest : public ::testing::Test {
 protected:
  static ElementFacts Of(std::string_view path) {
    const auto facts = SchemaFacts().Of(path);
    EXPECT_TRUE(facts) << path;
    return facts.value_or(ElementFacts());
  }
  // Uses a schema of these declarations.
  void Use(std::string_view declarations) {
    folder_.Write("own.xsd", "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">" + std::string(declarations) +
                                 "</xs:schema>");
    Options().set_SchemaLocation(folder_.Path("own.xsd"));
  }

  const testing::UseSchema shipped_;
  testing::TemporaryFolder folder_;
};

TEST_F(SchemaFactsTest, WhatMustBeThere) {
  EXPECT_TRUE(Of("/AuditFile").required);
  EXPECT_TRUE(Of("/AuditFile/Header").required);
  EXPECT_FALSE(Of("/AuditFile/SourceDocuments").required);
  EXPECT_FALSE(Of("/AuditFile/Header/BusinessName").required);
  EXPECT_FALSE(Of("/AuditFile/Header/BusinessName").in_choice);
}

TEST_F(SchemaFactsTest, OfAChoiceOneMustBeThere) {
  const std::string line = "/AuditFile/GeneralLedgerEntries/Journal/Transaction/Line/";
  EXPECT_TRUE(Of(line + "DebitAmount").required);
  EXPECT_TRUE(Of(line + "DebitAmount").in_choice);
  EXPECT_FALSE(Of(line + "Description").in_choice);
  const std::string currency = "/AuditFile/SourceDocuments/SalesInvoices/Invoice/DocumentTotals/Currency/";
  EXPECT_FALSE(Of(currency + "CurrencyDebitAmount").required);
  EXPECT_TRUE(Of(currency + "CurrencyDebitAmount").in_choice);
}

TEST_F(SchemaFactsTest, LimitsStandInANamedTypeOrInPlace) {
  const ElementFacts named = Of("/AuditFile/MasterFiles/Customer/CompanyName");
  EXPECT_EQ(named.type, "string");
  EXPECT_EQ(named.min_length, 1);
  EXPECT_EQ(named.max_length, 60);
  const ElementFacts inPlace = Of("/AuditFile/Header/CompanyID");
  EXPECT_EQ(inPlace.type, "string");
  EXPECT_EQ(inPlace.max_length, 50);
  EXPECT_THAT(inPlace.patterns, ElementsAre("([0-9])+|([a-zA-Z0-9\\-/]+ [0-9]+)"));
  const ElementFacts length = Of("/AuditFile/MasterFiles/Supplier/BillingAddress/Country");
  EXPECT_EQ(length.min_length, 2);
  EXPECT_EQ(length.max_length, 2);
}

TEST_F(SchemaFactsTest, AnElementOfOneNameDiffersByPlace) {
  EXPECT_EQ(Of("/AuditFile/MasterFiles/TaxTable/TaxTableEntry/Description").max_length, 255);
  EXPECT_EQ(Of("/AuditFile/GeneralLedgerEntries/Journal/Description").max_length, 60);
  EXPECT_EQ(Of("/AuditFile/Header/CompanyAddress/PostalCode").max_length, std::nullopt);
  EXPECT_EQ(Of("/AuditFile/MasterFiles/Customer/BillingAddress/PostalCode").max_length, 20);
}

TEST_F(SchemaFactsTest, RangesValuesAndFixedValues) {
  const ElementFacts date = Of("/AuditFile/Header/StartDate");
  EXPECT_EQ(date.type, "date");
  EXPECT_EQ(date.least, "2000-01-01");
  EXPECT_EQ(date.greatest, "9999-12-31");
  EXPECT_THAT(Of("/AuditFile/MasterFiles/Product/ProductType").values, ElementsAre("P", "S", "O", "I"));
  EXPECT_EQ(Of("/AuditFile/Header/CompanyAddress/Country").fixed, "PT");
  EXPECT_EQ(Of("/AuditFile/Header/CompanyAddress/Country").type, "");
  EXPECT_EQ(Of("/AuditFile/MasterFiles/Customer/BillingAddress/Country").fixed, std::nullopt);
}

TEST_F(SchemaFactsTest, NothingOfAPathThatTheSchemaDoesNotHave) {
  const SchemaFacts schema;
  for (const char* path : {"", "/", "AuditFile", "/AuditFile/", "/AuditFile/header", "/AuditFile/Customer",
                           "/AuditFile/Header/CompanyID/City", "/Nothing", "//AuditFile"}) {
    EXPECT_FALSE(schema.Of(path)) << path;
  }
}

TEST_F(SchemaFactsTest, TypesMayBeDerivedInSteps) {
  Use(R"(<xs:element name="A" type="outer"/>
         <xs:simpleType name="outer"><xs:restriction base="inner"><xs:maxLength value="5"/>
           <xs:pattern value="a"/><xs:pattern value="b"/></xs:restriction></xs:simpleType>
         <xs:simpleType name="inner"><xs:restriction><xs:simpleType><xs:restriction base="xs:token">
           <xs:maxLength value="9"/><xs:minLength value="2"/><xs:pattern value="c"/>
           </xs:restriction></xs:simpleType></xs:restriction></xs:simpleType>)");
  const ElementFacts facts = Of("/A");
  EXPECT_EQ(facts.type, "token");
  EXPECT_EQ(facts.max_length, 5);
  EXPECT_EQ(facts.min_length, 2);
  EXPECT_THAT(facts.patterns, ElementsAre("a|b", "c"));
}

TEST_F(SchemaFactsTest, TypesInACircleEnd) {
  Use(R"(<xs:element name="A" type="one"/>
         <xs:simpleType name="one"><xs:restriction base="two"/></xs:simpleType>
         <xs:simpleType name="two"><xs:restriction base="one"/></xs:simpleType>)");
  EXPECT_EQ(Of("/A").type, "");
}

TEST_F(SchemaFactsTest, ElementsInsideThemselvesAreFoundAtAnyDepth) {
  Use(R"(<xs:element name="A"><xs:complexType><xs:sequence minOccurs="0"><xs:element ref="A"/></xs:sequence>
         </xs:complexType></xs:element>)");
  EXPECT_TRUE(Of("/A").required);
  EXPECT_FALSE(Of("/A/A/A/A").required);
}

TEST_F(SchemaFactsTest, ALimitThatIsNoNumberIsNone) {
  Use(R"(<xs:element name="A"><xs:simpleType><xs:restriction base="xs:string"><xs:maxLength value="5x"/>
         </xs:restriction></xs:simpleType></xs:element>)");
  EXPECT_EQ(Of("/A").max_length, std::nullopt);
}

TEST_F(SchemaFactsTest, TheBuiltInSchemaIsReadToo) {
  UseBuiltInSchema();
  EXPECT_EQ(Of("/AuditFile/MasterFiles/Customer/CompanyName").max_length, 60);
}

TEST_F(SchemaFactsTest, WithoutASchemaThereIsAnError) {
  Options().set_SchemaLocation("");
  EXPECT_THROW(SchemaFacts(), Error);
  Options().set_SchemaLocation(folder_.Path("none.xsd"));
  EXPECT_THROW(SchemaFacts(), Error);
}

// A row of a table: cells with bars between them, blanks around them left out.
using Row = std::vector<std::string>;

std::string Trimmed(std::string_view text) {
  const size_t begin = text.find_first_not_of(' ');
  return begin == std::string_view::npos ? "" : std::string(text.substr(begin, text.find_last_not_of(' ') - begin + 1));
}

std::vector<std::string> WordsOf(const std::string& text) {
  std::istringstream words(text);
  return {std::istream_iterator<std::string>(words), {}};
}

void ForEachRow(const char* file, const std::function<void(const Row&)>& take) {
  std::ifstream lines(file);
  ASSERT_TRUE(lines);
  size_t rows = 0;
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line[0] == '#') continue;
    Row row;
    std::istringstream cells(line);
    for (std::string cell; std::getline(cells, cell, '|');) row.push_back(Trimmed(cell));
    row.resize(5);
    SCOPED_TRACE(line);
    take(row);
    ++rows;
  }
  EXPECT_GT(rows, 50U);
}

// The path of an element that a table names from its entity, with numbers.
std::string PathOf(std::string_view named) {
  std::string names;
  bool number = false;
  for (const char c : named) {
    if (c == '[') number = true;
    if (!number) names += c;
    if (c == ']') number = false;
  }
  const size_t end = std::min(names.find('/'), names.size());
  const std::string first = names.substr(0, end);
  const auto kind = EntityKindOf(first);
  std::string path = kind                       ? std::string(PathOf(*kind))
                     : first == "TaxTableEntry" ? "/AuditFile/MasterFiles/TaxTable/TaxTableEntry"
                                                : "/AuditFile/" + first;
  path += names.substr(end);
  const std::string note = "/CreditNote";
  if (const size_t at = path.find(note); at != std::string::npos) path.insert(at, "/References");
  return path;
}

TEST_F(SchemaFactsTest, AreThoseOfTheTableOfElements) {
  const SchemaFacts schema;
  ForEachRow(ZEVO_ELEMENTS_TABLE, [&](const Row& row) {
    const auto facts = schema.Of(PathOf(row[0]));
    ASSERT_TRUE(facts);
    if (row[1] == "required" || row[1] == "optional") {
      EXPECT_EQ(facts->required && !facts->in_choice, row[1] == "required");
    }
    if (!row[2].empty()) {
      EXPECT_EQ(facts->max_length, std::stoi(row[2]));
      EXPECT_EQ(facts->min_length, 1);
    }
    // The table leaves out the code that the document has.
    const std::vector<std::string> codes = WordsOf(row[3]);
    if (!codes.empty()) {
      EXPECT_LE(facts->values.size(), codes.size() + 1);
    }
    EXPECT_THAT(facts->values, ::testing::IsSupersetOf(codes));
    for (const std::string& other : WordsOf(row[4])) EXPECT_THAT(facts->values, Not(Contains(other)));
  });
}

TEST_F(SchemaFactsTest, TellTheFacetThatATableOfValuesNames) {
  const SchemaFacts schema;
  size_t told = 0;
  ForEachRow(ZEVO_VALUES_TABLE, [&](const Row& row) {
    const auto facts = schema.Of(PathOf(row[1]));
    ASSERT_TRUE(facts);
    const auto expect = [&](const char* word, bool has) {
      if (row[3] != word) return;
      EXPECT_TRUE(has);
      ++told;
    };
    expect("pattern", !facts->patterns.empty());
    expect("length", facts->min_length && facts->min_length == facts->max_length);
    expect("minLength", facts->min_length.has_value());
    expect("maxLength", facts->max_length.has_value());
    expect("minInclusive", !facts->least.empty());
    expect("maxInclusive", !facts->greatest.empty());
    expect("fixed", facts->fixed.has_value());
    expect("type", !facts->type.empty() && facts->type != "string");
  });
  EXPECT_GT(told, 50U);
}

}  // namespace
}  // namespace zevo
