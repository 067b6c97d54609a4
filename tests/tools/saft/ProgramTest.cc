// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/Sanitizers.h"
#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

// What ends any command: limits of the system.
class ProgramTest : public testing::ToolTest {};

TEST_F(ProgramTest, AFileThatGrowsTooLargeIsAnErrorOfTheFile) {
  for (const std::string option : {"", "--stream "}) {
    const testing::Outcome outcome =
        RunInShell("ulimit -f 64; saft create " + option + ZEVO_COMPANY_FOLDER " '" + Output() + "'");
    EXPECT_EQ(outcome.code, 2);
    EXPECT_THAT(outcome.err, AllOf(StartsWith("saft: " + Output() + ": "), HasSubstr("The file becomes too large.")));
    EXPECT_THAT(folder_.Names(), ElementsAre(kDataset));
  }
}

TEST_F(ProgramTest, ADatabaseThatGrowsTooLargeIsAnErrorOfTheFile) {
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, Output()}).code, 0);
  const std::string books = folder_.Path("books.db");
  const testing::Outcome outcome = RunInShell("ulimit -f 64; saft export '" + Output() + "' --to '" + books + "'");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: " + books + ": The file becomes too large\n");
}

TEST_F(ProgramTest, OutputThatGrowsTooLargeIsAnError) {
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, Output()}).code, 0);
  const testing::Outcome outcome = RunInShell("ulimit -f 8; saft list '" + Output() + "' TransactionLine");
  EXPECT_EQ(outcome.code, 2);
  EXPECT_EQ(outcome.err, "saft: standard output cannot be written\n");
}

// A file must not get the number of an output that is closed.
TEST_F(ProgramTest, MessagesGoIntoNoFileWhenTheirOutputIsClosed) {
  Write("customers.csv", "CustomerID\nC1\n\"\"\n");
  for (const std::string option : {"", "--stream "}) {
    const std::string create =
        "saft create --no-validate " + option + "'" + folder_.Path(kDataset) + "' '" + Output() + "'";
    ASSERT_EQ(RunInShell(create + " 2>&1").out,
              "saft: 1 row without any value skipped\n  " + folder_.Path(kDataset) + "/customers.csv:3\n");
    const std::string file = testing::ReadBytes(Output());
    std::filesystem::remove(Output());
    EXPECT_EQ(RunInShell(create + " >&- 2>&-").code, 0);
    EXPECT_EQ(testing::ReadBytes(Output()), file);
    std::filesystem::remove(Output());
  }
}

// A link that leads nowhere is no file that is not there: writing would follow it.
TEST_F(ProgramTest, LinksThatLeadNowhereAreTold) {
  const std::string message = ": is a link that leads nowhere";
  Write("customers.csv", "CustomerID\nC1\n");
  std::filesystem::create_symlink("nowhere", Output());
  EXPECT_EQ(Run({"create", "--stream", folder_.Path(kDataset), Output()}).err, "saft: " + Output() + message + "\n");
  std::filesystem::remove(Output());
  std::filesystem::create_symlink("nowhere", In("suppliers.csv"));
  ExpectRefused(In("suppliers.csv") + message);
}

// Wherever memory ends, from where the program can start at all to where it is enough.
TEST_F(ProgramTest, MemoryThatRunsOutIsToldAndLeavesNothing) {
  if (testing::kSanitized) GTEST_SKIP() << "a sanitizer needs more memory than there is";
  std::string customers = "CustomerID,CompanyName\n";
  for (int i = 0; i < 12000; ++i) customers += "C" + std::to_string(i) + "," + std::string(60, 'x') + "\n";
  Write("customers.csv", customers);
  int refused = 0;
  for (const std::string option : {"", "--stream "}) {
    for (int kilobytes = 8000;; kilobytes += 1000) {
      const std::string limit = "ulimit -v " + std::to_string(kilobytes) + "; ";
      if (RunInShell(limit + "saft --version").code != 0) continue;
      const testing::Outcome outcome = RunInShell(limit + "saft create --no-validate " + option + "'" +
                                                  folder_.Path(kDataset) + "' '" + Output() + "'");
      if (outcome.code == 0) break;
      EXPECT_EQ(outcome.code, 2) << kilobytes;
      EXPECT_EQ(outcome.err, "saft: not enough memory\n") << kilobytes;
      EXPECT_THAT(folder_.Names(), ElementsAre(kDataset)) << kilobytes;
      ++refused;
      ASSERT_LT(kilobytes, 1000000);
    }
    std::filesystem::remove(Output());
  }
  EXPECT_GT(refused, 0);
}

TEST_F(ProgramTest, WhatIsGivenIsMadeVisible) {
  const testing::Outcome usage = Run({"summary", "a.xml", "\x1B[31mb"});
  EXPECT_THAT(usage.err, AllOf(HasSubstr("arguments: \"\\x1B[31mb\""), ::testing::Not(HasSubstr("\x1B"))));
  const testing::Outcome name = Run({"summary",
                                     "a\xE2\x80\xAE"
                                     "b\n\xFF.xml"});
  EXPECT_EQ(name.err, "saft: a\\u202Eb\\n\\xFF.xml: There is no such SAFT-PT file.\n");
}

}  // namespace
}  // namespace zevo
