// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/AutomatonSize.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace zevo {
namespace {

struct Row {
  std::string_view pattern;
  double states;
  double letters;
  double transitions;
  double comparisons;  // the sum of the squares of each state's transitions
  double widest;
  int empty_repetitions;
  bool may_be_empty;
};

void PrintTo(const Row& row, std::ostream* out) { *out << row.pattern; }

class AutomatonSizePatternTest : public ::testing::TestWithParam<Row> {};

TEST_P(AutomatonSizePatternTest, IsThatOfItsAutomaton) {
  const AutomatonSize size = AutomatonSize::OfPattern(GetParam().pattern);
  EXPECT_EQ(size.States(), GetParam().states);
  EXPECT_EQ(size.Letters(), GetParam().letters);
  EXPECT_EQ(size.Transitions(), GetParam().transitions);
  EXPECT_EQ(size.Comparisons(), GetParam().comparisons);
  EXPECT_EQ(size.Widest(), GetParam().widest);
  EXPECT_EQ(size.EmptyRepetitions(), GetParam().empty_repetitions);
  EXPECT_EQ(size.MayBeEmpty(), GetParam().may_be_empty);
}

INSTANTIATE_TEST_SUITE_P(
    All, AutomatonSizePatternTest,
    ::testing::Values(Row{"", 0, 0, 0, 0, 1, 0, true}, Row{"abc", 3, 3, 3, 3, 1, 0, false},
                      Row{"a|b|c", 3, 3, 3, 9, 3, 0, false}, Row{"a?b?c?", 3, 3, 6, 14, 3, 0, true},
                      Row{"a*", 2, 1, 2, 2, 1, 0, true}, Row{"(ab)+c", 4, 3, 5, 7, 2, 0, false},
                      Row{"(a|b){1,1000}", 3, 2, 6, 12, 2, 0, false}, Row{"(a|b){0,3}", 3, 2, 6, 12, 2, 0, true},
                      Row{"(a?)*", 2, 1, 2, 2, 1, 1, true}, Row{"((a*)*)*", 2, 1, 2, 2, 1, 2, true},
                      Row{"(a*b*){2,9}c", 6, 3, 20, 63, 3, 1, false}, Row{"[a-z-[aeiou]]x", 2, 2, 2, 2, 1, 0, false},
                      Row{R"([\]|*]\)\p{Lu}é)", 4, 4, 4, 4, 1, 0, false},
                      // Only what stands after \p and \P is the name of a property.
                      Row{R"(\d{0,3}\p{Lu}+\P{L}?)", 5, 3, 8, 14, 2, 0, false},
                      // What is no expression has some size.
                      Row{"a)b", 2, 2, 2, 2, 1, 0, false}, Row{"(a", 1, 1, 1, 1, 1, 0, false},
                      Row{"[a", 1, 1, 1, 1, 1, 0, false}, Row{"a{2", 2, 1, 2, 2, 1, 0, false},
                      Row{"\\", 1, 1, 1, 1, 1, 0, false}, Row{"|*)", 1, 1, 1, 1, 1, 0, true}));

TEST(AutomatonSizeTest, TellsTheWalksWithoutASymbol) {
  const struct {
    std::string_view pattern;
    double steps;
    double ends;
  } kRows[] = {
      {"a?b?c?", 0, 0},
      {"(abc)*", 1, 0},
      {"(a?b?c?)*", 4, 0},
      {"((a?b?)?(c?d?)?)*", 10, 0},
      {"((a?b?)?(c?d?)?(e?f?)?)*", 22, 0},
      {"(a?|b?|c?)+", 6, 0},
      {"(a*|b*|c*)", 3, 0},
      {"(a*|b*|c*)+", 15, 6},
      {"(a*|b*)(c*|d*)", 6, 2},
      {"(()|())(()|())a?", 0, 0},
      {"((()|())(()|())a?)*", 8, 0},
  };
  for (const auto& row : kRows) {
    const AutomatonSize size = AutomatonSize::OfPattern(row.pattern);
    EXPECT_EQ(size.WalkSteps(), row.steps) << row.pattern;
    EXPECT_EQ(size.WalkEnds(), row.ends) << row.pattern;
  }
}

TEST(AutomatonSizeTest, TellsWhatIsRepeatedByACounterAndMayBeEmpty) {
  for (const auto& [pattern, counters] :
       std::initializer_list<std::pair<std::string_view, int>>{{"(a?)*", 0},
                                                               {"a{0,3}", 0},
                                                               {"(ab?){2,3}", 0},
                                                               {"(a?){2,}", 1},
                                                               {"((a?){2}b?){0,9}(c*){3}", 3},
                                                               {"a(){2}", 1}}) {
    EXPECT_EQ(AutomatonSize::OfPattern(pattern).EmptyCounters(), counters) << pattern;
  }
}

TEST(AutomatonSizeTest, CountsItsGroups) {
  for (const auto& [pattern, groups] : std::initializer_list<std::pair<std::string_view, double>>{
           {"ab", 0}, {"((a))|(b)", 3}, {"()()a", 2}, {"a(b(c)?)*", 2}}) {
    EXPECT_EQ(AutomatonSize::OfPattern(pattern).Groups(), groups) << pattern;
  }
}

TEST(AutomatonSizeTest, GroupsMayBeNestedAsDeepAsOneLikes) {
  const std::string open(50'000, '(');
  EXPECT_GT(AutomatonSize::OfPattern(open + "a" + std::string(50'000, ')')).States(), 0);
  EXPECT_GT(AutomatonSize::OfPattern(std::string(50'000, '[')).States(), 0);
}

TEST(AutomatonSizeTest, AWildcardIsOneStateForManyNames) {
  AutomatonSize size = AutomatonSize::Wildcard(10);
  size.Then(AutomatonSize::Symbols(3));
  EXPECT_EQ(size.States(), 4);
  EXPECT_EQ(size.Letters(), 13);
  EXPECT_EQ(size.Transitions(), 13);
  EXPECT_EQ(size.Comparisons(), 109);
}

TEST(AutomatonSizeTest, InAnyOrderEveryPartLeadsToEveryOther) {
  AutomatonSize size = AutomatonSize::Symbols(1);
  for (int i = 0; i < 3; ++i) size.Or(AutomatonSize::Symbols(1));
  size.InAnyOrder();
  EXPECT_EQ(size.Transitions(), 8);
  EXPECT_EQ(size.Comparisons(), 32);
}

}  // namespace
}  // namespace zevo
