// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;

class RulesCommandTest : public testing::ToolTest {};

TEST_F(RulesCommandTest, AllRulesAreListed) {
  for (const char* const language : {"en", "pt"}) {
    const testing::Outcome outcome = Run({"rules", "--lang", language});
    EXPECT_EQ(outcome.code, 0);
    const auto rules = AuditFileChecker::Rules();
    EXPECT_EQ(std::ranges::count(outcome.out, '\n'), std::ssize(rules));
    for (const RuleInfo& rule : rules) EXPECT_THAT(outcome.out, HasSubstr("  " + std::string(rule.id) + " "));
  }
  EXPECT_THAT(Run({"rules"}).out, ContainsRegex("\n  NIF-PREFIX +warning +Beginning of the tax number\n"));
  EXPECT_THAT(Run({"rules", "--lang", "pt"}).out, ContainsRegex("\n  GL-BALANCE +erro +Débitos iguais aos créditos\n"));
}

TEST_F(RulesCommandTest, ARuleIsExplained) {
  EXPECT_EQ(Run({"rules", "VERSION", "HDR-CERT"}).out,
            "VERSION: Version of the file (error)\n"
            "  The file is a SAF-T (PT) audit file of version 1.01_01. Of another nothing else is judged. A\n"
            "  warning only: AuditFileVersion is not exactly 1.01_01 though the namespace is right.\n"
            "  Source: Portaria 1192/2009\n"
            "\n"
            "HDR-CERT: Certificate of the program (warning)\n"
            "  SoftwareCertificateNumber is a number: that of the certificate, or 0 for a program that is not\n"
            "  certified.\n"
            "  Source: Portaria 1192/2009\n");
  EXPECT_THAT(Run({"rules", "VERSION", "--lang", "pt"}).out,
              HasSubstr("VERSION: Versão do ficheiro (erro)\n  O ficheiro é um ficheiro de auditoria SAF-T (PT) da "));
}

TEST_F(RulesCommandTest, TheSourceTellsSinceWhenItDemandsTheRule) {
  EXPECT_THAT(Run({"rules", "HASH-FORM"}).out, HasSubstr("\n  Source: Portaria 363/2010, since 2011-01-01\n"));
  EXPECT_THAT(Run({"rules", "HASH-FORM", "--lang", "pt"}).out,
              HasSubstr("\n  Fonte: Portaria 363/2010, desde 2011-01-01\n"));
  const auto json = nlohmann::json::parse(Run({"rules", "HASH-FORM", "--json"}).out);
  EXPECT_EQ(json[0]["since"], "2011-01-01");
  EXPECT_EQ(json[0]["until"], "");
}

TEST_F(RulesCommandTest, AnUnknownRuleIsAnErrorWithTheNearest) {
  const testing::Outcome outcome = Run({"rules", "SCHEMA", "HDR-PERIODS"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err, "saft: the rule \"HDR-PERIODS\" is not known; did you mean HDR-PERIOD?\n");
  EXPECT_EQ(Run({"rules", "xyz", "--lang", "pt"}).err, "saft: a regra \"xyz\" não é conhecida\n");
}

TEST_F(RulesCommandTest, ProgramsGetAnArray) {
  const auto all = nlohmann::json::parse(Run({"rules", "--json"}).out);
  ASSERT_EQ(all.size(), AuditFileChecker::Rules().size());
  EXPECT_EQ(all[0]["id"], "READ");
  const auto one = nlohmann::json::parse(Run({"rules", "NIF-PREFIX", "--json"}).out);
  ASSERT_EQ(one.size(), 1U);
  EXPECT_EQ(one[0]["severity"], "warning");
  EXPECT_EQ(one[0]["title"], "Beginning of the tax number");
  EXPECT_TRUE(one[0].contains("explanation"));
  EXPECT_TRUE(one[0].contains("source"));
}

}  // namespace
}  // namespace zevo
