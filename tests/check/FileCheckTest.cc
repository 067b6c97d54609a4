// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/FileCheck.h>

#include <gtest/gtest.h>
#include <zevo/Error.h>
#include <zevo/check/Judgement.h>
#include <zevo/dal/EntityScanner.h>

#include <new>
#include <stdexcept>

#include "tests/support/Errors.h"

namespace zevo {
namespace {

// Checks the clean file by one rule.
void Check(const Rule& rule, const Findings::Sink& found = {}) {
  CheckSettings settings;
  settings.severities.assign(AllRules().size(), Severity::kError);
  Findings findings(settings, found, false);
  FileCheck check(settings, findings, {&rule, 1});
  EntityScanner scanner{std::string(ZEVO_CLEAN_FILE)};
  while (const ScannedEntity* const entity = scanner.Next({})) check.Judge(*entity);
  check.End();
}

Rule RuleOf(void (*judge)(const InvoiceFacts&, Judgement&)) {
  Rule rule;
  rule.info.id = "TOT-NONE";
  rule.invoice = judge;
  return rule;
}

constexpr Message kFault = Message::kRuleFailed;
constexpr std::string_view kSource = "AuditFileChecker.CheckAuditFile";

TEST(FileCheckTest, WhatARuleThrowsIsAFaultOfTheRule) {
  const Rule rule = RuleOf([](const InvoiceFacts&, Judgement&) { throw std::length_error("basic_string"); });
  try {
    Check(rule);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), testing::NumberOf(kFault));
    EXPECT_EQ(error.Source(), kSource);
    EXPECT_EQ(error.Description(),
              "Há um erro deste programa na regra TOT-NONE (basic_string); comunique-o, por favor");
  }
}

TEST(FileCheckTest, SoIsAnErrorOfTheLibraryInARule) {
  EXPECT_ERROR(Check(RuleOf([](const InvoiceFacts&, Judgement&) { throw MakeRunTimeError(RunTimeError::kOverflow); })),
               testing::NumberOf(kFault), kSource);
}

TEST(FileCheckTest, SoIsWhatIsNoException) {
  EXPECT_ERROR(Check(RuleOf([](const InvoiceFacts&, Judgement&) { throw 1; })), testing::NumberOf(kFault), kSource);
}

TEST(FileCheckTest, SoIsWhatARuleThrowsAtTheEnd) {
  Rule rule;
  rule.info.id = "TOT-NONE";
  rule.at_end = [](Judgement&) { throw std::logic_error("end"); };
  EXPECT_ERROR(Check(rule), testing::NumberOf(kFault), kSource);
}

TEST(FileCheckTest, ALackOfMemoryIsNone) {
  EXPECT_THROW(Check(RuleOf([](const InvoiceFacts&, Judgement&) { throw std::bad_alloc(); })), std::bad_alloc);
  EXPECT_ERROR(
      Check(RuleOf([](const InvoiceFacts&, Judgement&) { throw MakeRunTimeError(RunTimeError::kOutOfMemory); })),
      RunTimeError::kOutOfMemory, kRunTimeSource);
}

TEST(FileCheckTest, WhatTheHostsFunctionThrowsIsNone) {
  static constexpr RuleSentence kSentence{Severity::kError, {"erro", "error"}};
  const Rule rule = RuleOf(
      [](const InvoiceFacts& invoice, Judgement& judgement) { judgement.Tell(kSentence, invoice, invoice.number); });
  EXPECT_THROW(Check(rule, [](const Finding&) { throw std::logic_error("host"); }), std::logic_error);
}

}  // namespace
}  // namespace zevo
