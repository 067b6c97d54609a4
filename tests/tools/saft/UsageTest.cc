// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;

class UsageTest : public testing::ToolTest {};

struct BadUsage {
  std::vector<std::string> arguments;
  const char* message;
};

class UsageBadTest : public testing::ToolTest, public ::testing::WithParamInterface<BadUsage> {};

TEST_P(UsageBadTest, EndsWithTwo) {
  const testing::Outcome outcome = Run(GetParam().arguments);
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "");
  const std::string command = GetParam().arguments.empty() ? "" : GetParam().arguments[0] + " ";
  EXPECT_EQ(outcome.err,
            std::string("saft: ") + GetParam().message + "\nRun \"saft " + command + "--help\" for help.\n");
}

INSTANTIATE_TEST_SUITE_P(
    All, UsageBadTest,
    ::testing::Values(BadUsage{{}, "A subcommand is required"}, BadUsage{{"create"}, "DATASET is required"},
                      BadUsage{{"create", "data"}, "FILE.xml is required"},
                      BadUsage{{"validate"}, "FILE.xml is required"}, BadUsage{{"summary"}, "FILE.xml is required"},
                      BadUsage{{"validate", "a.xml", "b.xml"}, "The following argument was not expected: b.xml"},
                      BadUsage{{"summary", "--yaml", "a.xml"}, "The following argument was not expected: --yaml"},
                      BadUsage{{"validate", "a.xml", "--schema"}, "--schema: 1 required XSD missing"}));

TEST_F(UsageTest, AnUnknownCommandIsToldWithTheNearest) {
  const testing::Outcome outcome = Run({"sumary", "a.xml"});
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.out, "");
  EXPECT_EQ(outcome.err,
            "saft: there is no command \"sumary\"; the nearest is summary\nRun \"saft --help\" for help.\n");
}

TEST_F(UsageTest, VersionIsThatOfTheProject) {
  const testing::Outcome outcome = Run({"--version"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.out, "saft " SAFT_VERSION "\n");
  EXPECT_EQ(outcome.err, "");
}

TEST_F(UsageTest, HelpNamesTheCommandsAndTheExitCodes) {
  const testing::Outcome outcome = Run({"--help"});
  EXPECT_EQ(outcome.code, 0);
  EXPECT_THAT(outcome.out, AllOf(HasSubstr("create"), HasSubstr("validate"), HasSubstr("summary"), HasSubstr("list"),
                                 HasSubstr("Exit codes: 0 done, 1 the file is not valid (validate), 2 any error")));
}

TEST_F(UsageTest, HelpOfCreateNamesEveryFileOfADataset) {
  const testing::Outcome outcome = Run({"create", "--help"});
  EXPECT_EQ(outcome.code, 0);
  for (const char* file : {"header.csv", "general_ledger.csv", "customers.csv", "suppliers.csv", "products.csv",
                           "tax_table.csv", "journals.csv", "transactions.csv", "transaction_lines.csv", "invoices.csv",
                           "invoice_lines.csv", "credit_notes.csv"}) {
    EXPECT_THAT(outcome.out, HasSubstr(file));
  }
}

}  // namespace
}  // namespace zevo
