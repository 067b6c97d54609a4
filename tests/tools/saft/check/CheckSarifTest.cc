// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/check/CheckSarif.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/tools/saft/check/ToolCheckTest.h"

namespace zevo::saft {
namespace {

using nlohmann::json;

// What the published schema of SARIF 2.1.0 says of the objects that are written: members that may be there, of which
// kind, and whether they must. Where it wants one of several, such as the text or the identifier of a message, it is
// the one that is written.
struct Member {
  std::string_view name;
  // A text, a whole number, or the name of an object; of an array, that of its items in "[]", in "{}" where each item
  // is another.
  std::string_view kind;
  bool required = false;
  int64_t least = 0;                          // of a number
  std::vector<std::string_view> one_of = {};  // of a text
};
const std::vector<std::string_view> kLevels{"none", "note", "warning", "error"};
const std::map<std::string_view, std::vector<Member>> kObjects{
    {"log", {{"$schema", "text"}, {"version", "text", true, 0, {"2.1.0"}}, {"runs", "[run]", true}}},
    {"run",
     {{"tool", "tool", true},
      {"language", "culture"},
      {"columnKind", "text", false, 0, {"utf16CodeUnits", "unicodeCodePoints"}},
      {"invocations", "[invocation]"},
      {"artifacts", "{artifact}"},
      {"results", "[result]"}}},
    {"tool", {{"driver", "toolComponent", true}}},
    {"toolComponent", {{"name", "text", true}, {"version", "text"}, {"rules", "[reportingDescriptor]"}}},
    {"reportingDescriptor",
     {{"id", "text", true},
      {"name", "text"},
      {"shortDescription", "multiformatMessageString"},
      {"fullDescription", "multiformatMessageString"},
      {"defaultConfiguration", "reportingConfiguration"},
      {"properties", "bag"}}},
    {"multiformatMessageString", {{"text", "text", true}}},
    {"reportingConfiguration", {{"enabled", "flag"}, {"level", "text", false, 0, kLevels}}},
    {"invocation",
     {{"executionSuccessful", "flag", true},
      {"exitCode", "number"},
      {"ruleConfigurationOverrides", "{configurationOverride}"},
      {"toolExecutionNotifications", "[notification]"}}},
    {"configurationOverride",
     {{"configuration", "reportingConfiguration", true}, {"descriptor", "reportingDescriptorReference", true}}},
    {"reportingDescriptorReference", {{"id", "text", true}, {"index", "number", false, -1}}},
    {"notification", {{"message", "message", true}, {"level", "text", false, 0, kLevels}, {"locations", "{location}"}}},
    {"message", {{"text", "text", true}}},
    {"artifact", {{"location", "artifactLocation"}}},
    {"artifactLocation", {{"uri", "uri"}, {"index", "number", false, -1}}},
    {"result",
     {{"ruleId", "text"},
      {"ruleIndex", "number", false, -1},
      {"level", "text", false, 0, kLevels},
      {"message", "message", true},
      {"locations", "[location]"},
      {"properties", "bag"}}},
    {"location", {{"physicalLocation", "physicalLocation"}, {"logicalLocations", "{logicalLocation}"}}},
    {"physicalLocation", {{"artifactLocation", "artifactLocation", true}, {"region", "region"}}},
    {"region", {{"startLine", "number", true, 1}, {"startColumn", "number", false, 1}}},
    {"logicalLocation", {{"name", "text"}, {"fullyQualifiedName", "text"}, {"kind", "text"}}},
};

void ExpectIs(std::string_view kind, const json& value);

void ExpectHas(const Member& member, const json& value) {
  SCOPED_TRACE(member.name);
  if (member.kind == "text") {
    ASSERT_TRUE(value.is_string());
    const bool known = member.one_of.empty() || std::ranges::count(member.one_of, value.get<std::string>()) == 1;
    EXPECT_TRUE(known) << value;
  } else if (member.kind == "culture" || member.kind == "uri") {
    ASSERT_TRUE(value.is_string());
    // A reference to a resource: nothing but what may stand in one, and no colon that would end a scheme but that of
    // "file".
    const std::regex form(member.kind == "culture" ? "[a-zA-Z]{2}(-[a-zA-Z]{2})?"
                                                   : "(file:///)?([A-Za-z0-9._~/-]|%[0-9A-F]{2})*");
    EXPECT_TRUE(std::regex_match(value.get<std::string>(), form)) << value;
  } else if (member.kind == "flag") {
    EXPECT_TRUE(value.is_boolean());
  } else if (member.kind == "number") {
    ASSERT_TRUE(value.is_number_integer());
    EXPECT_GE(value.get<int64_t>(), member.least);
  } else if (member.kind.starts_with('[') || member.kind.starts_with('{')) {
    ASSERT_TRUE(value.is_array());
    if (member.kind.starts_with('{')) {
      EXPECT_EQ(std::set<json>(value.begin(), value.end()).size(), value.size()) << value;
    }
    for (const json& item : value) ExpectIs(member.kind.substr(1, member.kind.size() - 2), item);
  } else {
    ExpectIs(member.kind, value);
  }
}

void ExpectIs(std::string_view kind, const json& value) {
  SCOPED_TRACE(kind);
  ASSERT_TRUE(value.is_object()) << value;
  if (kind == "bag") return;  // whatever a tool says
  const std::vector<Member>& members = kObjects.at(kind);
  for (const auto& [name, each] : value.items()) {
    const auto member = std::ranges::find(members, name, &Member::name);
    ASSERT_NE(member, members.end()) << name;
    ExpectHas(*member, each);
  }
  for (const Member& member : members) EXPECT_TRUE(!member.required || value.contains(member.name)) << member.name;
}

class CheckSarifTest : public testing::ToolCheckTest {
 protected:
  // The one run of a document that the schema allows.
  json RunOf(const testing::Outcome& outcome) const {
    EXPECT_EQ(outcome.err, "");
    const json document = json::parse(outcome.out);
    ExpectIs("log", document);
    EXPECT_EQ(document["runs"].size(), 1U);
    return document["runs"][0];
  }
};

TEST_F(CheckSarifTest, OfACleanFileThereAreNoResults) {
  const testing::Outcome outcome = Run({"check", WriteClean(), "--sarif"});
  EXPECT_EQ(outcome.code, 0);
  const json run = RunOf(outcome);
  EXPECT_EQ(run["results"], json::array());
  EXPECT_EQ(run["columnKind"], "unicodeCodePoints");
  EXPECT_EQ(run["language"], "en");
  EXPECT_EQ(run["invocations"][0]["executionSuccessful"], true);
  EXPECT_EQ(run["invocations"][0]["exitCode"], 0);
  EXPECT_EQ(run["invocations"][0]["toolExecutionNotifications"], json::array());
  EXPECT_EQ(run["tool"]["driver"]["name"], "saft");
  EXPECT_EQ(run["tool"]["driver"]["version"], SAFT_VERSION);
}

TEST_F(CheckSarifTest, RulesAreThoseOfTheCheck) {
  const json rules = RunOf(Run({"check", WriteClean(), "--sarif", "--lang", "pt"}))["tool"]["driver"]["rules"];
  ASSERT_EQ(rules.size(), AuditFileChecker::Rules().size());
  for (size_t i = 0; i < rules.size(); ++i) EXPECT_EQ(rules[i]["id"], AuditFileChecker::Rules()[i].id);
  const json& version = rules[2];
  EXPECT_EQ(version["id"], "VERSION");
  EXPECT_EQ(version["shortDescription"]["text"], "Versão do ficheiro");
  EXPECT_EQ(version["defaultConfiguration"], (json{{"level", "error"}}));
  EXPECT_EQ(version["properties"], (json{{"source", "Portaria 1192/2009"}}));
}

TEST_F(CheckSarifTest, AFindingIsAResultWithItsPlace) {
  const std::string clean = WriteClean();
  const std::string bad = WriteBad();
  const testing::Outcome outcome = Run({"check", clean, bad, "--sarif"});
  EXPECT_EQ(outcome.code, 1);
  const json run = RunOf(outcome);
  EXPECT_EQ(run["artifacts"],
            json::array({{{"location", {{"uri", UriOf(clean)}}}}, {{"location", {{"uri", UriOf(bad)}}}}}));
  ASSERT_EQ(run["results"].size(), 4U);
  EXPECT_EQ(run["results"][0]["level"], "warning");
  EXPECT_EQ(run["results"][1]["level"], "note");
  const json& result = run["results"][2];
  const size_t rule = result["ruleIndex"];
  EXPECT_EQ(run["tool"]["driver"]["rules"][rule]["id"], "GL-RECORD");
  EXPECT_EQ(
      result,
      (json{{"ruleId", "GL-RECORD"},
            {"ruleIndex", rule},
            {"level", "error"},
            {"message",
             {{"text", "Transaction 2008-03-05 V 1, line 2: RecordID 1 appears more than once in the transaction."}}},
            {"locations",
             json::array(
                 {{{"physicalLocation",
                    {{"artifactLocation", {{"uri", UriOf(bad)}, {"index", 1}}},
                     {"region", {{"startLine", LineOf("<RecordID>", 2)}, {"startColumn", ColumnOf("<RecordID>", 2)}}}}},
                   {"logicalLocations",
                    json::array({{{"name", "2008-03-05 V 1"},
                                  {"fullyQualifiedName", "Transaction 2008-03-05 V 1/Line[2]/RecordID"},
                                  {"kind", "element"}}})}}})},
            {"properties", {{"found", "1"}}}}));
}

TEST_F(CheckSarifTest, AFileThatIsNamedTwiceIsOneArtifact) {
  const std::string clean = WriteClean();
  const std::string bad = WriteBad();
  const std::string none = folder_.Path("none.xml");
  const json run = RunOf(Run({"check", bad, none, bad, clean, none, "--sarif"}));
  EXPECT_EQ(run["artifacts"], json::array({{{"location", {{"uri", UriOf(bad)}}}},
                                           {{"location", {{"uri", UriOf(none)}}}},
                                           {{"location", {{"uri", UriOf(clean)}}}}}));
  ASSERT_EQ(run["results"].size(), 8U);
  for (const json& result : run["results"]) {
    EXPECT_EQ(result["locations"][0]["physicalLocation"]["artifactLocation"]["index"], 0);
  }
  EXPECT_EQ(run["invocations"][0]["toolExecutionNotifications"].size(), 2U);
}

TEST_F(CheckSarifTest, ColumnsAreCountedInCharacters) {
  // Two characters of more than one byte stand in front, one of them beyond the basic plane.
  std::string document = testing::ReadBytes(ZEVO_CLEAN_FILE);
  const size_t at = document.find("<FiscalYear>2008<");
  document.replace(at, 17, "<!--\u00e9\U0001F600--><FiscalYear>2011<");
  const size_t blanks = at - document.rfind('\n', at) - 1;
  const json run = RunOf(Run({"check", folder_.Write("bad.xml", document), "--sarif"}));
  EXPECT_EQ(run["results"][0]["locations"][0]["physicalLocation"]["region"]["startColumn"], blanks + 10);
}

TEST_F(CheckSarifTest, AFileThatCouldNotBeJudgedIsANotification) {
  const std::string none = folder_.Path("none.xml");
  const testing::Outcome outcome = Run({"check", WriteClean(), none, "--sarif"});
  EXPECT_EQ(outcome.code, 2);
  const json invocation = RunOf(outcome)["invocations"][0];
  EXPECT_EQ(invocation["executionSuccessful"], false);
  EXPECT_EQ(invocation["exitCode"], 2);
  EXPECT_EQ(
      invocation["toolExecutionNotifications"],
      json::array({{{"level", "error"},
                    {"message", {{"text", "There is no such SAFT-PT file."}}},
                    {"locations", json::array({{{"physicalLocation",
                                                 {{"artifactLocation", {{"uri", UriOf(none)}, {"index", 1}}}}}}})}}}));
}

TEST_F(CheckSarifTest, ChosenSeveritiesAreTold) {
  const json run = RunOf(Run({"check", WriteClean(), "--sarif", "--severity", "SCHEMA=warning", "--severity",
                              "READ=error", "--severity", "READ=off"}));
  EXPECT_EQ(
      run["invocations"][0]["ruleConfigurationOverrides"],
      json::array({{{"configuration", {{"enabled", false}}}, {"descriptor", {{"id", "READ"}, {"index", 0}}}},
                   {{"configuration", {{"level", "warning"}}}, {"descriptor", {{"id", "SCHEMA"}, {"index", 1}}}}}));
}

TEST(UriTest, NamesAreEncoded) {
  EXPECT_EQ(UriOf("company.xml"), "company.xml");
  EXPECT_EQ(UriOf("a b/é#?%:1.xml"), "a%20b/%C3%A9%23%3F%25%3A1.xml");
  EXPECT_EQ(UriOf("/x y"), "file:///x%20y");
  EXPECT_EQ(UriOf("a\\b\xFF"), "a%5Cb%FF");
  EXPECT_EQ(UriOf("-"), "-");
}

}  // namespace
}  // namespace zevo::saft
