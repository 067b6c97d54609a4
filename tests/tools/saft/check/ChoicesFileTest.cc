// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/check/ChoicesFile.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/tools/saft/check/ToolCheckTest.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {
namespace {

using ::testing::EndsWith;
using ::testing::StartsWith;

class ChoicesFileTest : public testing::ToolCheckTest {
 protected:
  ChoicesFileTest() { Speak(Language::kEnglish); }
  ~ChoicesFileTest() override { Speak(Language::kEnglish); }

  CheckChoices Read(std::string_view text) const { return ReadChoicesFile(folder_.Write("choices.toml", text)); }
  // Without the name in front.
  std::string Refused(std::string_view text) const {
    try {
      Read(text);
      return "taken";
    } catch (const Failure& failure) {
      const std::string name = folder_.Path("choices.toml") + ":";
      EXPECT_THAT(failure.what(), StartsWith(name));
      return std::string(failure.what()).substr(name.size());
    }
  }
};

TEST_F(ChoicesFileTest, AllChoicesAreTaken) {
  const CheckChoices choices = Read(R"(# Comments may stand there.
max = 5
schema = "schemas/own.xsd"
public-keys = [{file = "k.pem", version = 1}, {file = "/keys/all.pem"}]
[severity]
NIF-PREFIX = "off"
"HDR-PERIOD" = "information"
)");
  EXPECT_EQ(choices.most, 5);
  EXPECT_EQ(choices.schema, folder_.Path("schemas/own.xsd"));
  ASSERT_EQ(choices.public_keys.size(), 2U);
  EXPECT_EQ(choices.public_keys[0].file, folder_.Path("k.pem"));
  EXPECT_EQ(choices.public_keys[0].version, 1);
  EXPECT_EQ(choices.public_keys[1].file, "/keys/all.pem");
  EXPECT_EQ(choices.public_keys[1].version, 0);
  ASSERT_EQ(choices.severities.size(), 2U);
  EXPECT_EQ(choices.severities[0].rule, "HDR-PERIOD");
  EXPECT_EQ(choices.severities[0].severity, Severity::kInformation);
  EXPECT_EQ(choices.severities[1].rule, "NIF-PREFIX");
  EXPECT_EQ(choices.severities[1].severity, Severity::kOff);
}

TEST_F(ChoicesFileTest, AnEmptyFileChoosesNothing) {
  const CheckChoices choices = Read("");
  EXPECT_FALSE(choices.most);
  EXPECT_EQ(choices.schema, "");
  EXPECT_TRUE(choices.severities.empty());
  EXPECT_TRUE(choices.public_keys.empty());
}

TEST_F(ChoicesFileTest, WhatItMustNotHaveIsToldWithItsPlace) {
  EXPECT_EQ(Refused("max = 1\nmx = 2\n"), "2:1: \"mx\" is no setting; did you mean max?");
  EXPECT_EQ(Refused("[severity]\n  NIF-CHEK = \"off\"\n"),
            "2:3: the rule \"NIF-CHEK\" is not known; did you mean NIF-CHECK?");
  EXPECT_EQ(Refused("[severity]\nNIF-CHECK = \"ofF\"\n"),
            "2:1: the severity of NIF-CHECK is error, warning, information or off, not \"ofF\"; did you mean off?");
  EXPECT_EQ(Refused("[severity]\nNIF-CHECK = 1\n"), "2:13: \"NIF-CHECK\" must be a text in quotation marks");
  EXPECT_EQ(Refused("severity = 1"), "1:12: \"severity\" must be a table");
  EXPECT_EQ(Refused("max = -1"), "1:7: \"max\" must be a whole number, 0 or more");
  EXPECT_EQ(Refused("max = 1.5"), "1:7: \"max\" must be a whole number, 0 or more");
  EXPECT_EQ(Refused("max = 3000000000"), "1:7: \"max\" must be a whole number, 0 or more");
  EXPECT_EQ(Refused("schema = []"), "1:10: \"schema\" must be a text in quotation marks");
  EXPECT_EQ(Refused("schema = ''"), "1:10: \"schema\" names no file");
  EXPECT_EQ(Refused("public-keys = 'k.pem'"), "1:15: \"public-keys\" must be a list of tables, each with file");
  EXPECT_EQ(Refused("public-keys = ['k.pem']"), "1:16: \"public-keys\" must be a list of tables, each with file");
  EXPECT_EQ(Refused("public-keys = [{version = 1}]"), "1:16: \"public-keys\" must be a list of tables, each with file");
  EXPECT_EQ(Refused("public-keys = [{fil = 'k'}]"), "1:17: \"fil\" is no setting; did you mean file?");
  EXPECT_EQ(Refused("public-keys = [{file = 'k', version = '1'}]"),
            "1:39: \"version\" must be a whole number, 0 or more");
}

TEST_F(ChoicesFileTest, WhatIsNoTomlIsToldWithItsPlace) {
  EXPECT_EQ(Refused("max = 1\nmax = 2\n"), "2:7: the text up to here is no TOML");
  EXPECT_THAT(Refused("max = \xFF"), EndsWith(": the text up to here is no TOML"));
  Speak(Language::kPortuguese);
  EXPECT_THAT(Refused("max"), EndsWith(": o texto até aqui não é TOML"));
  EXPECT_EQ(Refused("mx = 2\n"), "1:1: \"mx\" não é uma escolha; queria dizer max?");
}

TEST_F(ChoicesFileTest, ItCountsForLessThanTheCommandLine) {
  const std::string bad = WriteBad();
  const std::string choices = folder_.Write("choices.toml", "max = 1\n[severity]\nGL-RECORD = \"off\"\n");
  const testing::Outcome by_file = Run({"check", bad, "--config", choices});
  EXPECT_EQ(by_file.code, 0);
  EXPECT_THAT(by_file.out, ::testing::HasSubstr("\n  … and 1 more\n"));
  const testing::Outcome outcome =
      Run({"check", bad, "--config", choices, "--severity", "GL-RECORD=error", "--max", "0"});
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.out, Run({"check", bad}).out);
}

TEST_F(ChoicesFileTest, WhatItNamesStandsBesideIt) {
  const std::string clean = WriteClean();
  folder_.Write("data/choices.toml", "schema = \"own.xsd\"\n[[public-keys]]\nfile = \"k.pem\"\n");
  const std::string choices = folder_.Path("data/choices.toml");
  EXPECT_EQ(Run({"check", clean, "--config", choices}).err,
            "saft: " + folder_.Path("data/k.pem") + ": There is no such file\n");
  folder_.Write("data/choices.toml", "schema = \"own.xsd\"\n");
  EXPECT_EQ(Run({"check", clean, "--config", choices}).err,
            "saft: " + folder_.Path("data/own.xsd") + ": no such file\n");
  EXPECT_EQ(Run({"check", clean, "--config", choices, "--schema", ZEVO_SCHEMA}).code, 0);
  EXPECT_EQ(Run({"check", clean, "--config", folder_.Path("none.toml")}).err,
            "saft: " + folder_.Path("none.toml") + ": There is no such file\n");
  EXPECT_EQ(Run({"check", clean, "--config", ""}).err, "saft: --config: names no file\n");
}

}  // namespace
}  // namespace zevo::saft
