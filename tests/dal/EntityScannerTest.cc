// SPDX-License-Identifier: Apache-2.0
#include <zevo/dal/EntityScanner.h>

#include <gtest/gtest.h>
#include <zevo/Error.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace {

constexpr std::string_view kRootTag = "<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'>";

// "!" is unknown, "?" is out of place, "#" is a version that is not told; "." is the entity itself.
std::string InWords(const std::vector<Problem>& problems) {
  std::string words;
  for (const Problem& problem : problems) {
    words += problem.fault == Fault::kOutOfOrder ? "? " : problem.fault == Fault::kConstant ? "# " : "! ";
    words.append(problem.path.empty() ? "." : problem.path).append(" \"").append(problem.text).append("\"\n");
  }
  return words;
}

/// A line for each element and each problem of a file's entities, then the problems behind the last.
class EntityScannerTest : public ::testing::Test {
 protected:
  std::string ScanOf(std::string_view bytes) {
    EntityScanner scanner(folder_.Write("file.xml", bytes));
    scanner.Open("Test.Open");
    std::string words;
    while (const ScannedEntity* const entity = scanner.Next("Test.Next")) {
      words.append("= ").append(NameOf(entity->Kind()));
      words.append(entity->JournalID().empty() ? "" : " in " + entity->JournalID()).append("\n");
      for (const ScannedElement& element : entity->Elements()) {
        words.append(static_cast<size_t>(element.depth), ' ').append(element.name);
        words.append(" \"").append(element.text).append("\"\n");
      }
      words += InWords(entity->Problems());
    }
    return words + InWords(scanner.ProblemsAtTheEnd());
  }
  std::string ScanOfRoot(std::string_view content) {
    return ScanOf(std::string(kRootTag).append(content).append("</AuditFile>"));
  }
  Error FailureOf(std::string_view bytes) {
    return testing::ErrorOf([&] { ScanOf(bytes); });
  }

  testing::TemporaryFolder folder_;
};

TEST_F(EntityScannerTest, SectionsAndJournalsEndAtTheFirstEntryInside) {
  EXPECT_EQ(ScanOfRoot("\n<GeneralLedgerEntries>\n <NumberOfEntries>1</NumberOfEntries>\n <Journal>\n  "
                       "<JournalID>J</JournalID>\n  <Transaction><Line><RecordID>1</RecordID></Line></Transaction>\n"
                       "  <Transaction/></Journal>\n <Journal>\n  <Transaction/></Journal></GeneralLedgerEntries>"),
            "= GeneralLedgerEntries\n"
            "GeneralLedgerEntries \"\"\n"
            " NumberOfEntries \"1\"\n"
            "= Journal\n"
            "Journal \"\"\n"
            " JournalID \"J\"\n"
            "= Transaction in J\n"
            "Transaction \"\"\n"
            " Line \"\"\n"
            "  RecordID \"1\"\n"
            "= Transaction in J\n"
            "Transaction \"\"\n"
            "= Journal\n"
            "Journal \"\"\n"
            "= Transaction\n"
            "Transaction \"\"\n");
}

TEST_F(EntityScannerTest, ATransactionIsInTheJournalAroundItOnly) {
  EXPECT_EQ(ScanOfRoot("<GeneralLedgerEntries><Journal><JournalID>A</JournalID><Transaction/>"
                       "<Journal><JournalID>B</JournalID><Transaction/></Journal>"
                       "<Transaction/></Journal><Transaction/></GeneralLedgerEntries>"),
            "= GeneralLedgerEntries\n"
            "GeneralLedgerEntries \"\"\n"
            "= Journal\n"
            "Journal \"\"\n"
            " JournalID \"A\"\n"
            "= Transaction in A\n"
            "Transaction \"\"\n"
            "= Journal\n"
            "Journal \"\"\n"
            " JournalID \"B\"\n"
            "? . \"/AuditFile/GeneralLedgerEntries/Journal\"\n"
            "= Transaction in B\n"
            "Transaction \"\"\n"
            "? . \"/AuditFile/GeneralLedgerEntries/Journal/Journal\"\n"
            "= Transaction in A\n"
            "Transaction \"\"\n"
            "= Transaction\n"
            "Transaction \"\"\n"
            "? . \"/AuditFile/GeneralLedgerEntries\"\n");
}

TEST_F(EntityScannerTest, WhatIsInAnEntityIsOfItWhateverItsName) {
  EXPECT_EQ(ScanOfRoot("<MasterFiles><Customer><Customer><CustomerID>1</CustomerID></Customer><Invoice/></Customer>"
                       "</MasterFiles>"),
            "= Customer\n"
            "Customer \"\"\n"
            " Customer \"\"\n"
            "  CustomerID \"1\"\n"
            " Invoice \"\"\n");
}

TEST_F(EntityScannerTest, NamesAreThoseOfTheSchemaWhateverTheirPrefix) {
  EXPECT_EQ(ScanOf("<s:AuditFile xmlns:s='urn:OECD:StandardAuditFile-Tax:PT_1.01_01'><s:Header/><header/>"
                   "</s:AuditFile>"),
            "= Header\n"
            "Header \"\"\n"
            "! /AuditFile/header \"\"\n");
}

TEST_F(EntityScannerTest, TellsWhatStandsBetweenEntitiesWithItsTextAndAttributes) {
  EXPECT_EQ(ScanOfRoot("<MasterFiles a='1' xmlns:n='u'><Extra n:b='2'>\n <Inner> x </Inner>\n <Inner> </Inner>\n"
                       "</Extra><Customer/> </MasterFiles>"),
            "= Customer\n"
            "Customer \"\"\n"
            "! /AuditFile/MasterFiles/@a \"1\"\n"
            "! /AuditFile/MasterFiles/Extra \"\"\n"
            "! /AuditFile/MasterFiles/Extra/@n:b \"2\"\n"
            "! /AuditFile/MasterFiles/Extra/Inner \" x \"\n"
            "! /AuditFile/MasterFiles/Extra/Inner \" \"\n");
}

TEST_F(EntityScannerTest, BlanksAroundElementsAreNoTextBetweenEntities) {
  EXPECT_EQ(ScanOfRoot("\n <Extra> one <a/>\n  <b/> two </Extra>\n loose &amp;\n<!-- c -->more <c/>\n"),
            "! /AuditFile/Extra \" one  two \"\n"
            "! /AuditFile/Extra/a \"\"\n"
            "! /AuditFile/Extra/b \"\"\n"
            "! /AuditFile/text() \"\n loose &\nmore \"\n"
            "! /AuditFile/c \"\"\n");
}

TEST_F(EntityScannerTest, WhatStandsBehindAnEntityCountsToTheNext) {
  EXPECT_EQ(ScanOfRoot("<Extra>before<Customer/>behind</Extra><Header/>"),
            "= Customer\n"
            "Customer \"\"\n"
            "! /AuditFile/Extra \"before\"\n"
            "? . \"/AuditFile/Extra\"\n"
            "= Header\n"
            "Header \"\"\n"
            "! /AuditFile/Extra/text() \"behind\"\n");
}

TEST_F(EntityScannerTest, BetweenTwoEntitiesIsNoMoreKeptThanAMegabyte) {
  std::string stray;
  for (int i = 0; i < 100'000; ++i) stray += "<x>some text</x>";
  EntityScanner scanner(folder_.Write("file.xml", std::string(kRootTag) + stray + std::string(9'000'000, 'x') +
                                                      "<Header/>" + stray +
                                                      "<MasterFiles><Customer/></MasterFiles></AuditFile>"));
  scanner.Open("");
  for (int entities = 0; entities < 2; ++entities) {
    const ScannedEntity* const entity = scanner.Next("");
    ASSERT_NE(entity, nullptr);
    EXPECT_GT(entity->Problems().size(), 5'000u);
    EXPECT_LT(entity->Problems().size(), 12'000u);
    EXPECT_EQ(entity->Problems().front().text, "some text");
  }
}

TEST_F(EntityScannerTest, PathsCountElementsOfOneNameWhateverTheirPrefix) {
  EXPECT_EQ(ScanOfRoot("<Header xmlns:n='u'><a x='1'/><n:a x='2'/><n:b/></Header>"),
            "= Header\nHeader \"\"\n a \"\"\n a \"\"\n b \"\"\n! a[1]/@x \"1\"\n! a[2]/@x \"2\"\n");
}

// ---- Places ----

TEST_F(EntityScannerTest, ElementsAndProblemsStandWhereTheirStartTagsBegin) {
  EntityScanner scanner(folder_.Write(
      "file.xml",
      std::string(kRootTag) + "\n é<Extra/>loose<Header a='1'>\n<Fax\n b='>'>1</Fax></Header></AuditFile>"));
  scanner.Open("");
  const ScannedEntity* const header = scanner.Next("");
  ASSERT_NE(header, nullptr);
  const auto at = static_cast<int64_t>(kRootTag.size());
  EXPECT_EQ(header->PlaceOf(0), (FilePlace{2, 16, at + 17}));
  EXPECT_EQ(header->PlaceOf(1), (FilePlace{3, 1, at + 32}));
  std::vector<FilePlace> places;
  for (const Problem& problem : header->Problems()) places.push_back(problem.place);
  const FilePlace root{1, 1, 0};
  const std::vector<FilePlace> expected{root, {2, 3, at + 4}, header->PlaceOf(0), header->PlaceOf(1)};
  EXPECT_EQ(places, expected);
}

// ---- What file it is ----

TEST_F(EntityScannerTest, TheVersionIsToldByTheNamespaceElseByTheHeader) {
  constexpr std::string_view kHeader = "<Header><AuditFileVersion> 1.01_01\n</AuditFileVersion></Header></AuditFile>";
  EXPECT_EQ(ScanOf("<AuditFile/>"), "# /AuditFile \"\"\n");
  EXPECT_EQ(ScanOf("<AuditFile xmlns=''><Header/></AuditFile>"), "= Header\nHeader \"\"\n# /AuditFile \"\"\n");
  EXPECT_EQ(ScanOf(std::string("<AuditFile xmlns:n='urn:x'>").append(kHeader)),
            "= Header\nHeader \"\"\n AuditFileVersion \" 1.01_01\n\"\n");
  EXPECT_EQ(ScanOf(std::string(kRootTag) + "</AuditFile>"), "");
}

TEST_F(EntityScannerTest, AnotherVersionIsRefusedInFewWords) {
  const std::string version(1'000, '9');
  const Error failure = FailureOf("<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_" + version + "'/>");
  EXPECT_EQ(failure.Number(), testing::NumberOf(Message::kOtherVersion));
  EXPECT_EQ(failure.Source(), "AuditFileScanner.OpenAuditFile");
  EXPECT_EQ(failure.Description(), "O ficheiro é da versão " + version.substr(0, 40) + "; só a versão 1.01_01 é lida");
}

TEST_F(EntityScannerTest, AFileThatIsRefusedSaysWhatItIs) {
  const auto refused = [&](std::string_view bytes) {
    EntityScanner scanner(folder_.Write("file.xml", bytes));
    EXPECT_FALSE(scanner.RefusedAs());
    testing::ErrorOf([&] { scanner.Open("Test.Open"); });
    const auto& as = scanner.RefusedAs();
    if (!as) return std::string("none");
    return (as->another_version ? "version " : "file ") + as->found + " at " + std::to_string(as->place.offset);
  };
  EXPECT_EQ(refused(" <x/>"), "file x at 1");
  EXPECT_EQ(refused("<AuditFile xmlns='urn:x'/>"), "file urn:x at 0");
  EXPECT_EQ(refused("<AuditFile xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.04_01'/>"), "version 1.04_01 at 0");
  EXPECT_EQ(refused("<AuditFile><Header><AuditFileVersion> 1.02_01 </AuditFileVersion></Header></AuditFile>"),
            "version 1.02_01 at 0");
}

TEST_F(EntityScannerTest, AFileThatBreaksOffInItsRootIsCutOffAndNoOtherFile) {
  for (const std::string_view bytes : {"<Audi", "<x ", "<x xmlns='urn:x'", "<AuditFile xmlns='urn:x'", "<x", "<x>"}) {
    const Error failure = FailureOf(bytes);
    EXPECT_GT(failure.Number(), 0) << bytes;
    EXPECT_EQ(failure.Source(), "Test.Open") << bytes;
  }
  for (const std::string_view bytes : {"<x/>", "<x xmlns='urn:OECD:StandardAuditFile-Tax:PT_1.04_01'/>",
                                       "<AuditFile xmlns='urn:x'>text</AuditFile>", "<x><y/>"}) {
    EXPECT_EQ(FailureOf(bytes).Number(), testing::NumberOf(Message::kNoAuditFile)) << bytes;
  }
}

// ---- In what order ----

TEST_F(EntityScannerTest, WhatIsWholeIsGivenBeforeAFailureIsTold) {
  EntityScanner scanner(folder_.Write("file.xml", std::string(kRootTag) + "<Header/><MasterFiles><Customer/><Custo"));
  scanner.Open("Test.Open");
  EXPECT_EQ(scanner.Current(), nullptr);
  for (const EntityKind kind : {EntityKind::kHeader, EntityKind::kCustomer}) {
    const ScannedEntity* const entity = scanner.Next("Test.Next");
    ASSERT_NE(entity, nullptr);
    EXPECT_EQ(entity->Kind(), kind);
    EXPECT_EQ(scanner.Current(), entity);
  }
  for (int time = 0; time < 2; ++time) {
    const Error failure = testing::ErrorOf([&] { scanner.Next("Test.Next"); });
    EXPECT_GT(failure.Number(), 0);
    EXPECT_EQ(failure.Source(), "Test.Next");
    EXPECT_EQ(scanner.Current(), nullptr);
  }
}

TEST_F(EntityScannerTest, AFileThatIsNotThereFailsToOpen) {
  EntityScanner scanner(folder_.Path("none.xml"));
  EXPECT_ERROR(scanner.Open("Test.Open"), RunTimeError::kFileNotFound, "Test.Open");
}

TEST_F(EntityScannerTest, ReadsNoFurtherThanTheEntityTakes) {
  std::string customers;
  for (int i = 0; i < 100'000; ++i) customers += "<Customer/>";
  EntityScanner scanner(folder_.Write(
      "file.xml",
      std::string(kRootTag).append("<MasterFiles>").append(customers).append("</MasterFiles></AuditFile>")));
  scanner.Open("");
  EXPECT_LT(scanner.BytesRead(), 500'000u);
  int count = 0;
  while (scanner.Next("") != nullptr) ++count;
  EXPECT_EQ(count, 100'000);
  EXPECT_GT(scanner.BytesRead(), 1'000'000u);
}

}  // namespace
}  // namespace zevo
