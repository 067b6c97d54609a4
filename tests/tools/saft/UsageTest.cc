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
                                 HasSubstr("\n  0  done; "), HasSubstr("\n  1  of validate and check only: "),
                                 HasSubstr("\n  2  it could not")));
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

TEST_F(UsageTest, HelpOfCreateTellsHowSpreadsheetsAreRead) {
  EXPECT_THAT(Run({"create", "--help"}).out,
              AllOf(HasSubstr("Files that a spreadsheet program saves as CSV are read too."), HasSubstr("\"sep=;\""),
                    HasSubstr("1234,56, 1.234,56 or 1 234,56 €"), HasSubstr("31/12/2012 14:30")));
}

}  // namespace
}  // namespace zevo
