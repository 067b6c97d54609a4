// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/CommandList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/tools/saft/ToolTest.h"

namespace zevo::saft {
namespace {

using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::StartsWith;

class CommandListTest : public testing::ToolTest {};

TEST_F(CommandListTest, EveryCommandHasAHelpPageWithItsDescription) {
  ASSERT_FALSE(CommandList().empty());
  for (const auto& [name, description, make] : CommandList()) {
    const testing::Outcome help = Run({name, "--help"});
    EXPECT_EQ(help.code, 0) << name;
    EXPECT_EQ(help.err, "") << name;
    EXPECT_THAT(help.out, StartsWith(std::string(description.In(Language::kEnglish)) + "\n")) << name;
    EXPECT_THAT(help.out, HasSubstr(std::string("Usage: saft ") + name + " ")) << name;
  }
}

TEST_F(CommandListTest, TheHelpOfTheProgramHasALineForEveryCommand) {
  const testing::Outcome help = Run({"--help"});
  EXPECT_EQ(help.code, 0);
  for (const auto& [name, description, make] : CommandList()) {
    EXPECT_THAT(help.out, ContainsRegex(std::string("\n  ") + name + " +" +
                                        std::string(description.In(Language::kEnglish)) + "\n"));
  }
}

TEST_F(CommandListTest, TheReadmeShowsEveryCommand) {
  const std::string readme = testing::ReadBytes(README_FILE);
  for (const CommandEntry& entry : CommandList()) {
    EXPECT_THAT(readme, HasSubstr(std::string("\nsaft ") + entry.name + " ")) << entry.name;
  }
}

TEST_F(CommandListTest, TheCommandsOfTheReadmeRunOneAfterTheOther) {
  const std::string readme = testing::ReadBytes(README_FILE);
  const size_t begin = readme.find("\nsaft template ") + 1;
  const std::string commands = readme.substr(begin, readme.find("```", begin) - begin);
  WriteMonths(".");
  const testing::Outcome outcome =
      RunInShell("mkdir '" + folder_.Path("examples") + "' && ln -s " ZEVO_COMPANY_FOLDER " '" +
                 folder_.Path("examples/company") + "' && cd '" + folder_.Path(".") + "' && set -e && " + commands);
  EXPECT_EQ(outcome.code, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(std::ranges::count(commands, '\n'), 19);
  EXPECT_THAT(testing::ReadBytes(folder_.Path("books.db")), StartsWith("SQLite"));
  EXPECT_THAT(testing::ReadBytes(folder_.Path("mine/journals.csv")), HasSubstr("JournalID,"));
  EXPECT_THAT(testing::ReadBytes(folder_.Path("books/header.csv")), HasSubstr("Alforge"));
  EXPECT_THAT(testing::ReadBytes(folder_.Path("invoices.csv")), HasSubstr("InvoiceNo;"));
  EXPECT_THAT(testing::ReadBytes(folder_.Path("sheets/header.csv")), HasSubstr("CompanyName;"));
}

TEST_F(CommandListTest, EveryNameIsGivenOnce) {
  for (const CommandEntry& entry : CommandList()) {
    EXPECT_EQ(std::ranges::count(CommandList(), std::string(entry.name), &CommandEntry::name), 1) << entry.name;
  }
}

}  // namespace
}  // namespace zevo::saft
