// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <libxml/xmlerror.h>
#include <zevo/platform/Selection.h>

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/Numbered.h"
#include "tests/platform/Parsing.h"
#include "tests/support/Errors.h"

namespace zevo {
namespace {

constexpr std::string_view kFile = R"(<AuditFile xmlns="urn:a" xmlns:p="urn:p">
  <Entries>
    <Journal n="1"><JournalID>A</JournalID><Line n="2"><Line n="3"/></Line><Line n="4"/></Journal>
    <Journal n="5"><JournalID>B</JournalID><JournalID>C</JournalID><Line n="6"/></Journal>
    <p:Journal n="7"><JournalID><![CDATA[A]]></JournalID></p:Journal>
    <Journal n="8"/>
    <Journal n="9"><JournalID>a "b" ]</JournalID></Journal>
    <Journal n="10"><JournalID>it's</JournalID></Journal>
    <Journal n="11"><JournalID></JournalID></Journal>
    <Journal n="12"><JournalID> A </JournalID></Journal>
  </Entries>
</AuditFile>)";

class SelectionTest : public ::testing::Test {
 protected:
  void SetUp() override {
    parsing_.Load(document_, kFile);
    entries_ = document_.FirstChild(document_.Root(), "Entries");
  }

  // The numbers of what is selected, with blanks between.
  std::string All(std::string_view expression, Element base) {
    std::string numbers;
    for (const Element element : Selection(expression).All(base)) {
      numbers.append(numbers.empty() ? "" : " ").append(element.Attribute("n").value_or("?"));
    }
    return numbers;
  }
  static std::string Number(Element element) {
    return element ? std::string(element.Attribute("n").value_or("?")) : std::string();
  }

  testing::Parsing parsing_;
  Document document_;
  Element entries_;
};

struct Selected {
  std::string_view expression;
  std::string_view numbers;
};

void PrintTo(const Selected& row, std::ostream* out) { *out << row.expression; }

class SelectionUnderEntriesTest : public SelectionTest, public ::testing::WithParamInterface<Selected> {};

TEST_P(SelectionUnderEntriesTest, InTheOrderOfTheDocument) {
  EXPECT_EQ(All(GetParam().expression, entries_), GetParam().numbers);
  const std::string first(GetParam().numbers.substr(0, GetParam().numbers.find(' ')));
  EXPECT_EQ(Number(Selection(GetParam().expression).First(entries_)), first);
}

INSTANTIATE_TEST_SUITE_P(
    All, SelectionUnderEntriesTest,
    ::testing::Values(Selected{"Journal", "1 5 7 8 9 10 11 12"}, Selected{"Line", ""}, Selected{"Unknown", ""},
                      Selected{"journal", ""}, Selected{"Journal/Line", "2 4 6"}, Selected{"Journal/Line/Line", "3"},
                      Selected{"Journal/Unknown/Line", ""}, Selected{"//Line", "2 3 4 6"}, Selected{"//Line/Line", "3"},
                      Selected{"//Journal/Line", "2 4 6"}, Selected{"//Journal", "1 5 7 8 9 10 11 12"},
                      Selected{"//AuditFile/Entries/Journal/Line", "2 4 6"}, Selected{"//Entries", "?"},
                      Selected{"Journal[JournalID=\"A\"]", "1 7"}, Selected{"Journal[JournalID='A']", "1 7"},
                      Selected{"Journal[ JournalID =\n\"A\" ]", "1 7"}, Selected{"Journal[JournalID=\"B\"]", "5"},
                      Selected{"Journal[JournalID=\"C\"]", "5"}, Selected{"Journal[JournalID=\"\"]", "11"},
                      Selected{"Journal[JournalID=\" A \"]", "12"}, Selected{"Journal[JournalID=\"X\"]", ""},
                      Selected{"Journal[Unknown=\"\"]", ""}, Selected{"Journal[JournalID='a \"b\" ]']", "9"},
                      Selected{"Journal[JournalID=\"it's\"]", "10"}, Selected{"//Journal[JournalID=\"A\"]", "1 7"},
                      Selected{"Unknown[JournalID=\"A\"]", ""}),
    testing::Numbered());

TEST_F(SelectionTest, AStepAnywhereKeepsTheOrderOfTheDocumentInNestedElements) {
  Document document;
  parsing_.Load(document, "<r><a><a><b n='1'/></a><b n='2'/><a><b n='3'/><a><b n='4'/></a></a><b n='5'/></a></r>");
  EXPECT_EQ(All("//a/b", document.Root()), "1 2 3 4 5");
  EXPECT_EQ(Number(Selection("//a/b").First(document.Root())), "1");
  EXPECT_EQ(All("//a/a/b", document.Root()), "1 3 4");
}

TEST_F(SelectionTest, AnywhereIsTheWholeDocumentWhateverTheBase) {
  const Element journal = document_.FirstChild(entries_, "Journal");
  EXPECT_EQ(All("//Line", journal), "2 3 4 6");
  EXPECT_EQ(All("//AuditFile", journal), "?");
}

TEST_F(SelectionTest, ChildrenAreOfTheBaseOnly) {
  EXPECT_EQ(All("Journal", document_.Root()), "");
  EXPECT_EQ(All("Line", document_.FirstChild(entries_, "Journal")), "2 4");
}

TEST_F(SelectionTest, NamesHaveLettersOfAnyKindDigitsAndSomeSigns) {
  Document document;
  parsing_.Load(document, "<r><A_b-1.c n='1'/><_x n='2'/><z9 n='3'/><Endereço n='4'/></r>");
  EXPECT_EQ(All("A_b-1.c", document.Root()), "1");
  EXPECT_EQ(All("_x", document.Root()), "2");
  EXPECT_EQ(All("z9", document.Root()), "3");
  EXPECT_EQ(All("Endereço", document.Root()), "4");
}

class SelectionRefusedTest : public SelectionTest, public ::testing::WithParamInterface<std::string_view> {};

TEST_P(SelectionRefusedTest, IsAnInvalidExpression) {
  EXPECT_ERROR(Selection{GetParam()}, 1207, kRunTimeSource);
  EXPECT_ERROR(SelectFirst(entries_, GetParam(), ""), XML_XPATH_EXPR_ERROR, kRunTimeSource);
}

INSTANTIATE_TEST_SUITE_P(
    All, SelectionRefusedTest,
    ::testing::Values("", "/", "//", "/AuditFile", "///Line", "Journal/", "Journal//Line", "Journal/ /Line", "*", "//*",
                      ".", "..", "../Journal", "./Journal", "@n", "Journal/@n", "text()", "Journal/text()", "p:Journal",
                      "child::Journal", "1", "-a", "Journal|Line", "Journal or Line", "Journal[1]", "Journal[]",
                      "Journal[", "Journal]", "Journal[JournalID]", "Journal[JournalID=]", "Journal[JournalID=A]",
                      "Journal[JournalID=\"A]", "Journal[JournalID=\"A\"", "Journal[JournalID=\"A']",
                      "Journal[JournalID==\"A\"]", "Journal[JournalID!=\"A\"]", "Journal[@n=\"1\"]", "Journal[.=\"A\"]",
                      "Journal[JournalID=\"A\"][1]", "Journal[JournalID=\"A\"]/Line", "Journal[JournalID=\"A\"]x",
                      "Journal[JournalID=\"A\" or 1=1]", "Journal[JournalID=\"A\" or \"1\"=\"1\"]",
                      "Journal[JournalID=concat(\"A\",\"\")]", "Journal[not(JournalID=\"A\")]", "a#b", "a%b", "a?b",
                      "a\\b", "{a}", "a~b", "a^b", "`a"),
    testing::Numbered());

// What a caller puts between the quotes comes from records.
class SelectionQuotedTextTest : public SelectionTest, public ::testing::WithParamInterface<std::string> {};

TEST_P(SelectionQuotedTextTest, NeverWidensTheMatch) {
  const std::string query = "[JournalID=\"" + GetParam() + "\"]";
  EXPECT_ERROR(SelectFirst(entries_, "Journal", query), 1207, kRunTimeSource);
  EXPECT_ERROR(Selection("Journal" + query).All(entries_), 1207, kRunTimeSource);
  EXPECT_ERROR(Selection("//Journal" + query), 1207, kRunTimeSource);
}

INSTANTIATE_TEST_SUITE_P(All, SelectionQuotedTextTest,
                         ::testing::Values("\"", "A\"", "\"A", "a \"b\" ]", "X\" or \"1\"=\"1", "X\" or \"\"=\"",
                                           "X\"] | //Journal[JournalID=\"A", "A\"]/Line[n=\"", "A\"][JournalID=\"A",
                                           "\" or JournalID!=\"", "A\"]|*[\"\"=\""),
                         testing::Numbered());

TEST_F(SelectionTest, TextWithBracketsAndSingleQuotesIsPlainText) {
  for (const std::string_view text : {"]", "[1]", "' or '1'='1", "A'] | //Journal['", "//*", "it's"}) {
    const Element found = SelectFirst(entries_, "Journal", "[JournalID=\"" + std::string(text) + "\"]");
    EXPECT_EQ(Number(found), text == "it's" ? "10" : "") << text;
  }
}

TEST_F(SelectionTest, FirstByNameAndQuery) {
  EXPECT_EQ(Number(SelectFirst(entries_, "Journal", "")), "1");
  EXPECT_EQ(Number(SelectFirst(entries_, "Journal", "[JournalID=\"B\"]")), "5");
  EXPECT_EQ(Number(SelectFirst(entries_, "//Line", "")), "2");
  EXPECT_EQ(Number(SelectFirst(entries_, "Journal/Line", "")), "2");
  EXPECT_EQ(Number(SelectFirst(entries_, "Unknown", "")), "");
}

}  // namespace
}  // namespace zevo
