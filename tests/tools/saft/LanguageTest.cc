// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

// Words that sentences of one language hardly do without, and that are no words of the other.
constexpr auto kEnglish = std::to_array<std::string_view>(
    {"the",     "of",   "is",  "are",  "be",    "it",     "which", "that", "this", "must", "there",
     "without", "from", "not", "each", "every", "cannot", "than",  "row",  "rows", "more"});
constexpr auto kPortuguese = std::to_array<std::string_view>(
    {"de",  "da",   "dos",  "das",   "que",    "não",      "uma",       "um",   "é",  "são", "com",
     "sem", "para", "pelo", "linha", "linhas", "ficheiro", "ficheiros", "mais", "ou", "em",  "na"});

bool IsLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
}

// The words in a text, without what is quoted: names, values and the words of programs.
std::vector<std::string> WordsIn(std::string_view text) {
  std::vector<std::string> words(1);
  bool quoted = false;
  for (const char c : text) {
    if (c == '"' || c == '\n') quoted = c == '"' && !quoted;
    if (IsLetter(c) && !quoted) {
      words.back() += c;
    } else if (!words.back().empty()) {
      words.emplace_back();
    }
  }
  return words;
}

class LanguageTest : public testing::ToolTest, public ::testing::WithParamInterface<std::vector<std::string>> {
 protected:
  LanguageTest() {
    folder_.Write("bad.xml", R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01"><Header><Extra/></Header>)"
                             R"(<MasterFiles><Product><ProductCode>P</ProductCode></Product><X/></MasterFiles>)"
                             R"(<SourceDocuments><SalesInvoices><TotalDebit>12x</TotalDebit></SalesInvoices>)"
                             R"(</SourceDocuments></AuditFile>)");
    folder_.Write("cut.xml", R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.01_01"><Header>)");
    folder_.Write("other.xml", R"(<AuditFile xmlns="urn:OECD:StandardAuditFile-Tax:PT_1.04_01"/>)");
    folder_.Write("page.xml", "<html/>");
    folder_.Write("text.xsd", "no schema");
    folder_.Write("bad.toml", "max = \"x\"\n");
    folder_.Write("unknown.toml", "[severity]\nNIF-CHEK = \"off\"\n");
    folder_.Write("cut.toml", "max = [\n");
    Write("header.csv", "CompanyName\nX\n");
  }

  // What is told where names of files are neither language's words.
  std::string Told(const std::string& language) const {
    std::string script = "cd '" + folder_.Path(".") + "' && LC_ALL=C saft";
    for (const std::string& argument : GetParam()) script += " '" + argument + "'";
    const testing::Outcome outcome = RunInShell(script + " --lang " + language);
    EXPECT_LT(outcome.code, 3);
    return outcome.out + outcome.err;
  }
  static void ExpectNone(std::span<const std::string_view> words, const std::string& text) {
    const std::vector<std::string> told = WordsIn(text);
    for (const std::string_view word : words) EXPECT_THAT(told, ::testing::Not(::testing::Contains(word))) << text;
  }
};

TEST_P(LanguageTest, NothingIsToldInTheOtherLanguage) {
  ExpectNone(kPortuguese, Told("en"));
  ExpectNone(kEnglish, Told("pt"));
}

INSTANTIATE_TEST_SUITE_P(All, LanguageTest,
                         ::testing::ValuesIn(std::vector<std::vector<std::string>>{
                             {},
                             {"--help"},
                             {"template", "--help"},
                             {"template"},
                             {"template", "data"},
                             {"columns", "--help"},
                             {"columns"},
                             {"columns", "--json"},
                             {"columns", "Custumer"},
                             {"columns", "--schema", "text.xsd"},
                             {"columns", "--schema", "none.xsd"},
                             {"create", "--help"},
                             {"create", "data"},
                             {"create", "none", "new.xml"},
                             {"create", "data", "new.xml"},
                             {"create", "data", "bad.xml"},
                             {"validate", "--help"},
                             {"validate", "bad.xml"},
                             {"validate", "bad.xml", "--all"},
                             {"validate", "bad.xml", "--all", "--json"},
                             {"validate", "cut.xml"},
                             {"validate", "page.xml"},
                             {"validate", "none.xml"},
                             {"validate", "data"},
                             {"validate", "bad.xml", "--schema", "text.xsd"},
                             {"check", "--help"},
                             {"check", "bad.xml"},
                             {"check", "bad.xml", "cut.xml", "--summary"},
                             {"check", "bad.xml", "none.xml", "--json"},
                             {"check", "bad.xml", "data", "--sarif"},
                             {"check", "other.xml", "page.xml", "none.xml", "data"},
                             {"check", "bad.xml", "--schema", "text.xsd"},
                             {"check", "bad.xml", "--severity", "NIF"},
                             {"check", "bad.xml", "--severity", "NIF=off"},
                             {"check", "bad.xml", "--severity", "NIF-CHECK=of"},
                             {"check", "bad.xml", "--max", "x"},
                             {"check", "bad.xml", "--public-key", "bad.xml"},
                             {"check", "bad.xml", "--public-key", "none.pem"},
                             {"check", "bad.xml", "--config", "bad.toml"},
                             {"check", "bad.xml", "--config", "unknown.toml"},
                             {"check", "bad.xml", "--config", "cut.toml"},
                             {"check", "bad.xml", "--config", "none.toml"},
                             {"rules", "--help"},
                             {"rules"},
                             {"rules", "NIF-CHECK", "HDR-CERT", "SCHEMA"},
                             {"rules", "NIF-CHEK"},
                             {"summary", "--help"},
                             {"summary", "bad.xml"},
                             {"summary", "bad.xml", "--json"},
                             {"summary", "cut.xml"},
                             {"summary", "other.xml"},
                             {"summary", "page.xml"},
                             {"summary", "none.xml"},
                             {"list", "--help"},
                             {"list", "bad.xml"},
                             {"list", "bad.xml", "Product"},
                             {"list", "bad.xml", "Products"},
                             {"list", "bad.xml", "Product", "--columns", "X"},
                             {"list", "bad.xml", "Product", "--where", "X"},
                             {"list", "bad.xml", "Product", "-o", "bad.xml"},
                             {"list", "bad.xml", "--all", "data"},
                             {"list", "bad.xml", "--all", "none/none"},
                             {"list", "cut.xml", "Product"},
                             {"list", "other.xml", "Product"},
                             {"list", "none.xml", "Product"},
                         }),
                         [](const auto& info) {
                           std::string name = std::to_string(info.index);
                           for (const std::string& each : info.param) name += "_" + each;
                           for (char& c : name) {
                             if (!IsLetter(c) && (c < '0' || c > '9')) c = '_';
                           }
                           return name;
                         });

}  // namespace
}  // namespace zevo
