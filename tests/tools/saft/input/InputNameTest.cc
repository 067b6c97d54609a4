// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

// The file that a command reads.
class InputNameTest : public testing::ToolTest, public ::testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, Output()}).code, 0);
    std::filesystem::create_directory(folder_.Path("folder"));
    ASSERT_EQ(mkfifo(folder_.Path("pipe").c_str(), 0600), 0);
  }
  /// The command on a file, in the words of the shell.
  static std::string On(const std::string& file) {
    const std::string command = GetParam();
    return "saft " + command + " " + file + (command == "list" ? " Customer" : "");
  }
  std::string Result(const std::string& file) const { return RunInShell(On("'" + file + "'")).out; }
};

TEST_P(InputNameTest, IsNoSpecialFile) {
  const std::vector<std::pair<std::string, std::string>> files{
      {folder_.Path("folder"), "is a folder"}, {folder_.Path("pipe"), "is a pipe"}, {"/dev/zero", "is a device"}};
  for (const auto& [file, message] : files) {
    const testing::Outcome outcome = RunInShell(On("'" + file + "'"));
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "saft: " + file + ": " + message + "\n");
  }
}

TEST_P(InputNameTest, IsNoLinkThatLeadsNowhere) {
  const std::string link = folder_.Path("link");
  std::filesystem::create_symlink("nowhere", link);
  EXPECT_EQ(RunInShell(On("'" + link + "'")).err, "saft: " + link + ": is a link that leads nowhere\n");
}

// The descriptor is what a program was given, not the file behind it, which may begin with something else.
TEST_P(InputNameTest, StandardInputIsReadFromWhereItStands) {
  const std::string longer = folder_.Write("longer", "12345" + testing::ReadBytes(Output()));
  const std::string skip = "{ dd bs=1 count=5 of=/dev/null status=none; ";
  EXPECT_EQ(RunInShell(skip + On("-") + "; } <'" + longer + "'").out, RunInShell(On("-") + " <'" + Output() + "'").out);
}

TEST_P(InputNameTest, MayBeTheStandardInput) {
  const std::string all = Result(Output());
  const std::string rest = all.substr(all.find('\n'));
  for (const std::string name : {"-", "/dev/stdin"}) {
    for (const std::string& command : {On(name) + " <'" + Output() + "'", "cat '" + Output() + "' | " + On(name),
                                       "cat '" + Output() + "' >'" + folder_.Path("pipe") + "' & " + On(name) + " <'" +
                                           folder_.Path("pipe") + "'"}) {
      const testing::Outcome outcome = RunInShell(command);
      EXPECT_EQ(outcome.code, 0) << command;
      EXPECT_EQ(outcome.err, "") << command;
      if (outcome.out.find(": valid") != std::string::npos) {
        EXPECT_EQ(outcome.out, name + ": valid\n");
      } else {
        EXPECT_EQ(outcome.out.substr(outcome.out.find('\n')), rest) << command;
      }
    }
  }
}

TEST_P(InputNameTest, AStandardInputThatCannotBeReadIsAnError) {
  for (const auto& [input, message] : {std::pair<std::string, std::string>{"<&-", "standard input is closed"},
                                       {"<'" + folder_.Path("folder") + "'", "is a folder"}}) {
    const testing::Outcome outcome = RunInShell(On("-") + " " + input);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.err, "saft: -: " + message + "\n");
  }
}

INSTANTIATE_TEST_SUITE_P(All, InputNameTest, ::testing::Values("validate", "summary", "list"));

}  // namespace
}  // namespace zevo
