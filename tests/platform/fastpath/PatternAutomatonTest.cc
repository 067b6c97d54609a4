// SPDX-License-Identifier: Apache-2.0
#include <zevo/platform/fastpath/PatternAutomaton.h>

#include <gtest/gtest.h>
#include <libxml/xmlregexp.h>
#include <rapidcheck/gtest.h>
#include <zevo/platform/HostErrorHandlers.h>

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/platform/Parsing.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

struct FreeExpression {
  void operator()(xmlRegexp* expression) const { xmlRegFreeRegexp(expression); }
};
using Expression = std::unique_ptr<xmlRegexp, FreeExpression>;

const xmlChar* Xml(const std::string& text) { return reinterpret_cast<const xmlChar*>(text.c_str()); }

Expression Compile(const std::string& pattern) {
  const HostErrorHandlers aside;
  return Expression(xmlRegexpCompile(Xml(pattern)));
}

bool Takes(const Expression& expression, const std::string& text) {
  return xmlRegexpExec(expression.get(), Xml(text)) == 1;
}

// Every value of an attribute "value" of the patterns of the shipped schema.
std::vector<std::string> ShippedPatterns() {
  const std::string schema = testing::ReadBytes(ZEVO_SCHEMA_FILE);
  constexpr std::string_view kBegin = "<xs:pattern value=\"";
  std::vector<std::string> patterns;
  for (size_t at = 0; (at = schema.find(kBegin, at)) != std::string::npos;) {
    at += kBegin.size();
    patterns.push_back(schema.substr(at, schema.find('"', at) - at));
  }
  return patterns;
}

void ExpectTaken(std::string_view pattern, std::string_view text, bool taken) {
  const auto automaton = PatternAutomaton::Of(pattern);
  ASSERT_TRUE(automaton) << pattern;
  EXPECT_EQ(automaton->Takes(text), taken) << pattern << " " << text;
  EXPECT_TRUE(!taken || Takes(Compile(std::string(pattern)), std::string(text))) << pattern << " " << text;
}

TEST(PatternAutomatonTest, ATextMatchesFromItsBeginningToItsEnd) {
  ExpectTaken("ab", "ab", true);
  ExpectTaken("ab", "abc", false);
  ExpectTaken("ab", "xab", false);
  ExpectTaken("ab", "", false);
  ExpectTaken("", "", true);
}

TEST(PatternAutomatonTest, AlternativesAndRepetitionsAreFollowed) {
  ExpectTaken("a|bc|", "a", true);
  ExpectTaken("a|bc|", "bc", true);
  ExpectTaken("a|bc|", "", true);
  ExpectTaken("a|bc|", "ac", false);
  ExpectTaken("a?b+c*", "b", true);
  ExpectTaken("a?b+c*", "abbcc", true);
  ExpectTaken("a?b+c*", "ac", false);
  ExpectTaken("(ab)+", "abab", true);
  ExpectTaken("(ab)+", "aba", false);
  ExpectTaken("a{2}", "aa", true);
  ExpectTaken("a{2}", "aaa", false);
  ExpectTaken("a{2,}", "a", false);
  ExpectTaken("a{2,}", "aaaa", true);
  ExpectTaken("a{1,3}b", "aaab", true);
  ExpectTaken("a{1,3}b", "aaaab", false);
  ExpectTaken("a{1,3}b", "b", false);
}

TEST(PatternAutomatonTest, ClassesAreThoseOfLibxml2) {
  for (const std::string one :
       {"[a-c]", "[^a-c]", "[-a]", "[a-]", "[a\\-/]", "[a.^b]", "[\\d_]", "[^\\s]", "[^\\d;]", ".",
        "\\s",   "\\S",    "\\i",  "\\I",  "\\c",     "\\C",    "\\d",    "\\D",    "\\w",     "\\W",
        "\\n",   "\\t",    "\\.",  "\\\\", "\\^",     "\\-",    "^",      "$",      "-",       "/"}) {
    const auto automaton = PatternAutomaton::Of(one);
    ASSERT_TRUE(automaton) << one;
    const Expression expression = Compile(one);
    for (char c = '\t'; c < 127; ++c) {
      if (c < ' ' && c != '\t' && c != '\n' && c != '\r') continue;
      EXPECT_EQ(automaton->Takes(std::string(1, c)), Takes(expression, std::string(1, c))) << one << " " << int{c};
    }
  }
}

TEST(PatternAutomatonTest, BeyondAsciiOnlyClassesOfAllThatIsThereAreCertain) {
  for (const std::string_view letter : {"\u00E7", "\u20AC", "\U0001F600", "\u0085", "\u00A0"}) {
    ExpectTaken(".", letter, true);
    ExpectTaken("[^a]", letter, true);
    for (const std::string_view unsure : {"\\w", "\\S", "\\W", "[^\\s]", "[^\\W]", "[a-z]", "a"}) {
      ExpectTaken(unsure, letter, false);
    }
  }
  ExpectTaken(".{2}", "\u00E7", false);
  ExpectTaken(".{2}", "\u00E7\u20AC", true);
  ExpectTaken("a.b", "a\U0001F600b", true);
}

TEST(PatternAutomatonTest, WhatIsReadDifferentlyElsewhereIsNotRead) {
  for (const std::string_view pattern : {"[a-z-[aeiou]]",
                                         "\\p{L}",
                                         "\\P{Lu}",
                                         "\u00E7",
                                         "[\\n-z]",
                                         "[^a-]",
                                         "[a-d-z]",
                                         "\\w?\\d",
                                         "[^a]?[a-c]",
                                         ".?a",
                                         "\\S?[^ -~]",
                                         "a|a{2}",
                                         "a{1,2}a",
                                         "(a?){2}",
                                         "a{0,2}",
                                         "a{,2}",
                                         "a{3,2}",
                                         "a{101}",
                                         "(",
                                         ")",
                                         "(a",
                                         "a)",
                                         "[",
                                         "[]",
                                         "[a",
                                         "]",
                                         "a**",
                                         "*",
                                         "{2}",
                                         "a{2",
                                         "\\q",
                                         "\\"}) {
    EXPECT_FALSE(PatternAutomaton::Of(pattern)) << pattern;
  }
}

TEST(PatternAutomatonTest, APatternOfTooManyStatesIsNotRead) {
  EXPECT_TRUE(PatternAutomaton::Of("(a|b)*a(a|b)(a|b)(a|b)"));
  EXPECT_FALSE(PatternAutomaton::Of("(a|b)*a" + testing::Repeated("(a|b)", 14)));
  EXPECT_FALSE(PatternAutomaton::Of("((((a{100}){100}){100}){100}){100}"));
  EXPECT_FALSE(PatternAutomaton::Of(std::string(100'000, '(')));
}

// That one is of a text that a file has once.
TEST(PatternAutomatonTest, OfThePatternsOfTheShippedSchemaAllButOneAreRead) {
  const std::vector<std::string> patterns = ShippedPatterns();
  EXPECT_GT(patterns.size(), 10U);
  for (const std::string& pattern : patterns) {
    EXPECT_EQ(PatternAutomaton::Of(pattern).has_value(), pattern != "\\w+(\\s\\w+)*/\\w+(\\s\\w+)*") << pattern;
  }
}

// Patterns that are read here, out of few characters, so that texts often match.
rc::Gen<std::string> GenPattern(int depth) {
  auto atom = rc::gen::elementOf(std::vector<std::string>{
      "a",     "b",      "c",      "1",      " ",    "/",    ".",      "\\d",   "\\w",  "\\s",
      "\\S",   "\\W",    "\\i",    "\\c",    "\\.",  "\\-",  "[ab]",   "[a-c]", "[^a]", "[^ab1]",
      "[0-9]", "[a-c1]", "[\\d/]", "[^\\d]", "[-a]", "[a-]", "[a\\-]", "[\\w ]"});
  if (depth == 0) return atom;
  const auto piece = rc::gen::map(
      rc::gen::tuple(
          rc::gen::weightedOneOf<std::string>(
              {{3, atom},
               {2, rc::gen::map(GenPattern(depth - 1), [](const std::string& inner) { return "(" + inner + ")"; })}}),
          rc::gen::weightedElement<std::string>(
              {{6, ""}, {1, "?"}, {2, "*"}, {2, "+"}, {1, "{2}"}, {1, "{1,3}"}, {1, "{2,}"}})),
      [](const std::tuple<std::string, std::string>& parts) { return std::get<0>(parts) + std::get<1>(parts); });
  const auto branch = rc::gen::map(rc::gen::resize(4, rc::gen::container<std::vector<std::string>>(piece)),
                                   [](const std::vector<std::string>& pieces) {
                                     std::string text;
                                     for (const std::string& each : pieces) text += each;
                                     return text;
                                   });
  return rc::gen::map(rc::gen::tuple(branch, rc::gen::weightedElement<bool>({{2, false}, {1, true}}), branch),
                      [](const std::tuple<std::string, bool, std::string>& parts) {
                        const auto& [one, either, other] = parts;
                        return either ? one + "|" + other : one;
                      });
}

RC_GTEST_PROP(PatternAutomatonTest, NoTextIsTakenThatLibxml2Refuses, ()) {
  const std::string pattern = *GenPattern(3);
  const Expression expression = Compile(pattern);
  const auto automaton = PatternAutomaton::Of(pattern);
  if (!expression || !automaton) RC_DISCARD("not read");
  const auto letter = rc::gen::elementOf(std::vector<std::string>{"a", "b", "c", "1", " ", "/", ".", "-", "\u00E7"});
  for (int i = 0; i < 30; ++i) {
    std::string text;
    for (const std::string& each : *rc::gen::resize(8, rc::gen::container<std::vector<std::string>>(letter))) {
      text += each;
    }
    if (automaton->Takes(text)) RC_ASSERT(Takes(expression, text));
  }
}

}  // namespace
}  // namespace zevo
