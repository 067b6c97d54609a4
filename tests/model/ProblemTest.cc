// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Problem.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace zevo {
namespace {

const Problem kProblem{Fault::kUnreadable, "Line[2]/Quantity", {.line = 7, .column = 9, .offset = 200}, "12x"};

TEST(ProblemTest, IsToldInBothLanguages) {
  EXPECT_EQ(Describe(kProblem, Language::kPortuguese),
            "Line[2]/Quantity, \"12x\": o elemento não pode ter este valor (linha 7, coluna 9).");
  EXPECT_EQ(Describe(kProblem, Language::kEnglish),
            "Line[2]/Quantity, \"12x\": the element cannot have this value (line 7, column 9).");
}

TEST(ProblemTest, LeavesOutWhatThereIsNone) {
  EXPECT_EQ(Describe({Fault::kOutOfOrder, {}, {}, {}}, Language::kPortuguese), "O registo: está fora do seu lugar.");
  EXPECT_EQ(Describe({Fault::kOutOfOrder, {}, {}, {}}, Language::kEnglish), "The record: is out of place.");
}

TEST(ProblemTest, EachFaultHasASentenceOfItsOwnInEachLanguage) {
  std::set<std::string> sentences;
  for (size_t fault = 0; fault < kFaults; ++fault) {
    const Problem problem{static_cast<Fault>(fault), "A", {}, "b"};
    sentences.insert(Describe(problem, Language::kPortuguese));
    sentences.insert(Describe(problem, Language::kEnglish));
  }
  EXPECT_EQ(sentences.size(), 2 * kFaults);
}

}  // namespace
}  // namespace zevo
