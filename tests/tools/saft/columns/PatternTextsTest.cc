// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/columns/PatternTexts.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace zevo::saft {
namespace {

void ExpectAll(std::string_view pattern, const std::vector<std::string>& texts) {
  const PatternTexts found = TextsOf(pattern);
  EXPECT_EQ(found.texts, texts) << pattern;
  EXPECT_FALSE(found.others) << pattern;
}

void ExpectSome(std::string_view pattern, const std::vector<std::string>& texts) {
  const PatternTexts found = TextsOf(pattern);
  EXPECT_EQ(found.texts, texts) << pattern;
  EXPECT_TRUE(found.others) << pattern;
}

TEST(PatternTextsTest, AlternativesClassesAndGroupsAreListed) {
  ExpectAll("EUR", {"EUR"});
  ExpectAll("A[DE-G]|OM", {"AD", "AE", "AF", "AG", "OM"});
  ExpectAll("PT-(AC|MA)", {"PT-AC", "PT-MA"});
  ExpectAll("(a|b)(c|d)", {"ac", "ad", "bc", "bd"});
  ExpectAll("a|", {"a", ""});
  ExpectAll("[a-]", {"a", "-"});
  ExpectAll("", {""});
}

TEST(PatternTextsTest, WhatRepeatsOrStandsForManyIsNot) {
  ExpectSome("RED|([0-9.])*", {"RED"});
  ExpectSome("(([1-8][0-9a-zA-Z]*)|Desconhecido)", {"Desconhecido"});
  ExpectSome("([0-9]{4}-[0-9]{3})", {});
  ExpectSome("1.01_01", {});
  ExpectSome("\\w", {});
  ExpectSome("a?", {});
  ExpectSome("[^a]|b", {"b"});
  ExpectSome("[\\]a]|b", {"b"});
  ExpectSome("[áé]|ç", {"ç"});
}

TEST(PatternTextsTest, WhatIsTooMuchIsNotListed) {
  ExpectSome("[0-9][0-9][0-9][0-9]", {});
  ExpectSome("[0-9][0-9][0-9]|[0-9][0-9][0-9]", {});
  ExpectSome(std::string(100000, '('), {});
}

TEST(PatternTextsTest, WhatIsNoPatternEnds) {
  for (const char* text : {"(", "[", "[a", "a{", "a{2", "\\", "[a-", "[\\"}) TextsOf(text);
  ExpectSome("a)b", {});
}

}  // namespace
}  // namespace zevo::saft
