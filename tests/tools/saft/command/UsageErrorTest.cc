// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/command/UsageError.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

struct BadUsage {
  std::vector<std::string> arguments;
  std::string english;
  std::string portuguese;
};

void PrintTo(const BadUsage& usage, std::ostream* out) { *out << usage.english; }

class UsageErrorTest : public testing::ToolTest, public ::testing::WithParamInterface<BadUsage> {
 protected:
  void ExpectTold(const std::string& language, const std::string& sentence, const std::string& where) const {
    std::vector<std::string> arguments = GetParam().arguments;
    arguments.insert(arguments.end(), {"--lang", language});
    const testing::Outcome outcome = Run(arguments);
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.out, "");
    // An unknown command has no help of its own.
    const bool known = !arguments.empty() && outcome.err.find("\"" + arguments[0] + "\"") == std::string::npos;
    const std::string command = known && !arguments[0].starts_with('-') ? " " + arguments[0] : "";
    EXPECT_EQ(outcome.err, "saft: " + sentence + "\n" + where + ": saft" + command + " --help\n");
  }
};

TEST_P(UsageErrorTest, IsToldWithTheHelpOfTheCommand) {
  ExpectTold("en", GetParam().english, "See the help");
  ExpectTold("pt", GetParam().portuguese, "Veja a ajuda");
}

INSTANTIATE_TEST_SUITE_P(
    All, UsageErrorTest,
    ::testing::Values(
        BadUsage{{},
                 "the command is missing, which is one of: template, columns, create, validate, check, rules, summary, "
                 "list, merge, export",
                 "falta o comando, que é um de: template, columns, create, validate, check, rules, summary, list, "
                 "merge, export"},
        BadUsage{{"sumary", "a.xml"},
                 "the command \"sumary\" is not known; did you mean summary?",
                 "o comando \"sumary\" não é conhecido; queria dizer summary?"},
        BadUsage{{"xyzzy"}, "the command \"xyzzy\" is not known", "o comando \"xyzzy\" não é conhecido"},
        BadUsage{{"validate"}, "the command validate needs FILE.xml", "o comando validate precisa de FICHEIRO.xml"},
        BadUsage{{"summary"}, "the command summary needs FILE.xml", "o comando summary precisa de FICHEIRO.xml"},
        BadUsage{{"template"}, "the command template needs DIR", "o comando template precisa de PASTA"},
        BadUsage{{"check"}, "the command check needs FILE.xml", "o comando check precisa de FICHEIRO.xml"},
        BadUsage{{"check", "a.xml", "--json", "--sarif"},
                 "the command check does not take both --json and --sarif",
                 "o comando check não leva --json e --sarif ao mesmo tempo"},
        BadUsage{{"check", "a.xml", "--max", "1", "--max", "2"},
                 "the command check takes the option --max only once",
                 "o comando check só leva a opção --max uma vez"},
        BadUsage{{"rules", "--jsn"},
                 "the command rules has no option --jsn; did you mean --json?",
                 "o comando rules não tem a opção --jsn; queria dizer --json?"},
        BadUsage{{"list", "a.xml"},
                 "the command list needs a KIND, or --all DIR",
                 "o comando list precisa de um TIPO, ou de --all PASTA"},
        BadUsage{{"validate", "a.xml", "b.xml", "c.xml"},
                 "the command validate takes no more arguments: \"b.xml\", \"c.xml\"",
                 "o comando validate não leva mais argumentos: \"b.xml\", \"c.xml\""},
        BadUsage{{"summary", "--jsn", "a.xml"},
                 "the command summary has no option --jsn; did you mean --json?",
                 "o comando summary não tem a opção --jsn; queria dizer --json?"},
        BadUsage{{"summary", "--xyzzyx", "a.xml"},
                 "the command summary has no option --xyzzyx",
                 "o comando summary não tem a opção --xyzzyx"},
        BadUsage{{"list", "a.xml", "--schema=x"},
                 "the command list has no option --schema; did you mean --help?",
                 "o comando list não tem a opção --schema; queria dizer --help?"},
        BadUsage{{"list", "a.xml", "Invoice", "-o", "x", "-o", "y"},
                 "the command list takes the option --output only once",
                 "o comando list só leva a opção --output uma vez"},
        BadUsage{{"list", "a.xml", "Invoice", "--json=maybe"},
                 "the option --json of the command list takes no value",
                 "a opção --json do comando list não leva um valor"},
        BadUsage{{"list", "a.xml", "Invoice", "--all", "x"},
                 "the command list does not take both KIND and --all",
                 "o comando list não leva TIPO e --all ao mesmo tempo"},
        BadUsage{{"validate", "a.xml", "--json"},
                 "the command validate takes --json only with --all",
                 "o comando validate só leva --json com --all"}));

class UsageErrorLastTest : public testing::ToolTest {};

TEST_F(UsageErrorLastTest, AnOptionWithoutItsValue) {
  EXPECT_EQ(Run({"validate", "--lang", "en", "a.xml", "--schema"}).err,
            "saft: the command validate needs a value behind --schema: XSD\nSee the help: saft validate --help\n");
  EXPECT_EQ(Run({"list", "--lang", "pt", "a.xml", "--where"}).err,
            "saft: o comando list precisa de um valor depois de --where: COLUNA=VALOR\n"
            "Veja a ajuda: saft list --help\n");
  EXPECT_EQ(Run({"check", "a.xml", "--severity"}).err,
            "saft: the command check needs a value behind --severity: RULE=SEVERITY\n"
            "See the help: saft check --help\n");
  EXPECT_EQ(Run({"list", "a.xml", "--lang"}).err,
            "saft: the command list needs a value behind --lang: pt|en\nSee the help: saft list --help\n");
}

TEST_F(UsageErrorLastTest, AnUnknownLanguage) {
  EXPECT_EQ(Run({"list", "--lang", "de"}).err, "saft: --lang takes pt or en, not \"de\"\n");
  EXPECT_EQ(Run({"--lang="}).err, "saft: --lang takes pt or en, not \"\"\n");
  EXPECT_EQ(Run({"--lang=PT"}).code, 2);
}

}  // namespace
}  // namespace zevo
