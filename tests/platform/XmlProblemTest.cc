// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/platform/XmlProblem.h>

#include <string>

#include "tests/support/Errors.h"

namespace zevo {
namespace {

std::string Sentence(std::string reason, FilePlace place) {
  return AsError({.number = 1, .reason = std::move(reason), .place = place}, "S").Description();
}

TEST(XmlProblemTest, AsAnErrorItHasNumberSourceAndTheReasonWithItsPlace) {
  const XmlProblem problem{.number = 76, .reason = "Opening and ending tag mismatch", .place = {12, 34, 567}};
  const Error error = AsError(problem, "MSXML2.DOMDocument.Load");
  EXPECT_EQ(error.Number(), 76);
  EXPECT_EQ(error.Source(), "MSXML2.DOMDocument.Load");
  EXPECT_EQ(error.Description(), "Opening and ending tag mismatch (linha 12, coluna 34)");
}

TEST(XmlProblemTest, TheLineEndBehindTheReasonIsNoPartOfTheSentence) {
  EXPECT_EQ(Sentence("Extra content \r\n\t", {1, 2}), "Extra content (linha 1, coluna 2)");
}

TEST(XmlProblemTest, ThePlaceIsToldWhereThereIsNoReason) { EXPECT_EQ(Sentence("\n", {3, 4}), "(linha 3, coluna 4)"); }

TEST(XmlProblemTest, WhatIsNotKnownOfThePlaceIsLeftOut) {
  EXPECT_EQ(Sentence("Reason", {3}), "Reason (linha 3)");
  EXPECT_EQ(Sentence("Reason", {}), "Reason");
}

TEST(XmlProblemTest, AFileThatCannotBeReadHasTheNumberAndTheReasonOfTheSystem) {
  const XmlProblem problem = UnreadableFile(Error(53, "System", "Reason"));
  EXPECT_EQ(problem.fault, XmlProblem::Fault::kUnreadable);
  EXPECT_ERROR(Raise(problem, "S"), 53, "S");
  EXPECT_EQ(AsError(problem, "S").Description(), "Reason");
}

TEST(XmlProblemTest, OnlyAProblemIsRaised) {
  EXPECT_NO_THROW(Raise({}, "S"));
  EXPECT_ERROR(Raise(XmlProblem{.number = 4, .reason = "Reason"}, "S"), 4, "S");
}

}  // namespace
}  // namespace zevo
