// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "tests/support/TestKeys.h"
#include "tests/tools/saft/ToolTest.h"
#include "tools/saft/CommandList.h"

namespace zevo::saft {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

struct Words {
  const char* language;
  const char* usage;
  const char* arguments;
  const char* options;
  const char* file;
  const char* folder;
  const char* key;
};

class HelpTest : public testing::ToolTest, public ::testing::WithParamInterface<Words> {
 protected:
  std::string PageOf(const std::string& command) const {
    const testing::Outcome outcome = Run({command, "--help", "--lang", GetParam().language});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, "");
    return outcome.out;
  }
  // The commands that a page shows.
  static std::vector<std::string> ExamplesOn(const std::string& page) {
    std::vector<std::string> examples;
    std::istringstream lines(page);
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("  saft ")) examples.push_back(line.substr(2));
    }
    return examples;
  }
};

TEST_P(HelpTest, PagesAreInTheLanguage) {
  for (const CommandEntry& command : CommandList()) {
    SCOPED_TRACE(command.name);
    const std::string page = PageOf(command.name);
    EXPECT_THAT(page, HasSubstr(std::string("\n") + GetParam().usage + ": saft " + command.name + " ["));
    EXPECT_THAT(page, HasSubstr(std::string("\n") + GetParam().arguments + ":\n"));
    EXPECT_THAT(page, HasSubstr(std::string("\n") + GetParam().options + ":\n"));
    EXPECT_THAT(page, HasSubstr("  --lang pt|en "));
  }
}

// The heading of the library's own options is not theirs.
TEST_P(HelpTest, OptionsStandUnderOneHeading) {
  for (const CommandEntry& command : CommandList()) {
    SCOPED_TRACE(command.name);
    const std::string page = PageOf(command.name);
    const size_t heading = page.find(std::string("\n") + GetParam().options + ":\n");
    const size_t help = page.find("\n  -h,--help ");
    const size_t language = page.find("\n  --lang ");
    EXPECT_LT(heading, help);
    EXPECT_LT(help, language);
    EXPECT_EQ(page.substr(heading, language - heading).find("\n\n"), std::string::npos);
  }
}

TEST_P(HelpTest, EveryPageHasExamplesThatRun) {
  ASSERT_EQ(Run({"create", ZEVO_COMPANY_FOLDER, folder_.Path(GetParam().file)}).code, 0);
  for (const CommandEntry& command : CommandList()) {
    const std::vector<std::string> examples = ExamplesOn(PageOf(command.name));
    EXPECT_FALSE(examples.empty()) << command.name;
    for (const std::string& example : examples) {
      EXPECT_THAT(example, StartsWith(std::string("saft ") + command.name + " "));
      std::filesystem::create_directory(folder_.Path("run"));
      folder_.Write(std::string("run/") + GetParam().key, testing::kPrivateKey);
      // What is there before the example: the dataset that it reads, or the audit file.
      const bool creates = command.name == std::string("create");
      const std::string link = creates ? std::string("ln -s ") + ZEVO_COMPANY_FOLDER + " " + GetParam().folder
                                       : std::string("ln -s ../") + GetParam().file + " " + GetParam().file;
      WriteMonths("run");
      const testing::Outcome outcome =
          RunInShell("cd '" + folder_.Path("run") + "' && " + link + " && " + example + " >out");
      EXPECT_EQ(outcome.code, 0) << example << '\n' << outcome.err;
      std::filesystem::remove_all(folder_.Path("run"));
    }
  }
}

TEST_P(HelpTest, NoLineIsWiderThanAPage) {
  constexpr size_t kWidth = 125;  // characters
  std::vector<std::string> pages{Run({"--help", "--lang", GetParam().language}).out};
  for (const CommandEntry& command : CommandList()) pages.push_back(PageOf(command.name));
  for (const std::string& page : pages) {
    std::istringstream lines(page);
    for (std::string line; std::getline(lines, line);) EXPECT_LE(CharactersIn(line), kWidth) << line;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Languages, HelpTest,
    ::testing::Values(Words{"en", "Usage", "Arguments", "Options", "company.xml", "data", "key.pem"},
                      Words{"pt", "Utilização", "Argumentos", "Opções", "empresa.xml", "dados", "chave.pem"}),
    [](const auto& info) { return info.param.language; });

}  // namespace
}  // namespace zevo::saft
