// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/dal/DOMDALReader.h>

#include <string>
#include <string_view>

#include "tests/dal/ReaderContract.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace testing {
namespace {

struct DOMDALReaderHarness {
  using Reader = DOMDALReader;
  static constexpr bool kGivesLists = true;
  static void Read(Reader& reader, const std::function<void(Element transaction)>& test) {
    reader.OpenFile();
    reader.ReadFile();
    const Element section = reader.GetElement("GeneralLedgerEntries", {}, {});
    test(reader.GetElement("Transaction", reader.GetElement("Journal", section, {}), {}));
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(DOMDALReader, ReaderContract, DOMDALReaderHarness);

}  // namespace
}  // namespace testing

namespace {

using testing::ErrorOf;
using testing::TemporaryFolder;

constexpr std::string_view kTwoTransactions =
    "<AuditFile xmlns='urn:x'>"
    "<Header><CompanyID>9</CompanyID></Header>"
    "<GeneralLedgerEntries>"
    "<Journal><Transaction><TransactionID>t1</TransactionID><Line><RecordID>1</RecordID></Line>"
    "<Line><RecordID>2</RecordID></Line></Transaction></Journal>"
    "<Journal><Transaction><TransactionID>t2</TransactionID><Line><RecordID>3</RecordID></Line>"
    "<Line><RecordID>4</RecordID></Line></Transaction></Journal>"
    "</GeneralLedgerEntries>"
    "</AuditFile>";

class DOMDALReaderTest : public ::testing::Test {
 protected:
  void Open(std::string_view bytes) {
    reader_.set_AuditFileName(folder_.Write("audit.xml", bytes));
    reader_.OpenFile();
  }
  std::string RecordID(Element line) { return line ? reader_.GetElement("RecordID", line, {}).AllText() : "(none)"; }

  TemporaryFolder folder_;
  DOMDALReader reader_;
};

TEST_F(DOMDALReaderTest, NextWithoutAWalkGivesNothing) {
  Open(kTwoTransactions);
  EXPECT_FALSE(reader_.GetNextElement("Line"));
}

TEST_F(DOMDALReaderTest, SecondWalkOfLinesUnderAnotherTransactionRestartsThereAndTheFirstIsLost) {
  Open(kTwoTransactions);
  const auto transactions = reader_.GetElements("//Transaction", {}, {});
  ASSERT_EQ(transactions->size(), 2U);
  EXPECT_EQ(RecordID(reader_.GetFirstElement("Line", (*transactions)[0])), "1");
  EXPECT_EQ(RecordID(reader_.GetFirstElement("Line", (*transactions)[1])), "3");
  EXPECT_EQ(RecordID(reader_.GetNextElement("Line")), "4");
  EXPECT_FALSE(reader_.GetNextElement("Line"));
}

TEST_F(DOMDALReaderTest, NextGivesNothingAfterTheLastElementAndEverAfter) {
  Open(kTwoTransactions);
  ASSERT_TRUE(reader_.GetFirstElement("Header", {}));
  for (int call = 0; call < 3; ++call) EXPECT_FALSE(reader_.GetNextElement("Header"));
}

TEST_F(DOMDALReaderTest, WithoutParentFindsTheHeaderUnderTheRoot) {
  Open(kTwoTransactions);
  const Element header = reader_.GetElement("Header", {}, {});
  ASSERT_TRUE(header);
  EXPECT_EQ(header.Parent().Name(), "AuditFile");
  EXPECT_EQ(reader_.GetElement("CompanyID", header, {}).AllText(), "9");
}

TEST_F(DOMDALReaderTest, WithoutParentFindsChildrenOfTheRootOnly) {
  Open(kTwoTransactions);
  for (const ElementName name : std::initializer_list<ElementName>{"AuditFile", "Journal", "CompanyID"}) {
    EXPECT_FALSE(reader_.GetElement(name, {})) << name.Text();
    EXPECT_FALSE(reader_.GetElement(name.Text(), {}, {})) << name.Text();
    EXPECT_EQ(reader_.GetElements(name.Text(), {}, {})->size(), 0U) << name.Text();
    EXPECT_FALSE(reader_.GetFirstElement(name, {})) << name.Text();
  }
}

TEST_F(DOMDALReaderTest, PathOfTwoSlashesSearchesTheWholeDocumentFromAnyParent) {
  Open(kTwoTransactions);
  const Element header = reader_.GetElement("Header", {}, {});
  for (const Element parent : {Element(), header}) {
    EXPECT_EQ(reader_.GetElements("//Transaction", parent, {})->size(), 2U);
    EXPECT_EQ(reader_.GetElements("//Line", parent, {})->size(), 4U);
    EXPECT_EQ(reader_.GetElements("//Line", parent, "[RecordID = \"3\"]")->size(), 1U);
    EXPECT_EQ(RecordID(reader_.GetElement("//Line", parent, {})), "1");
  }
}

TEST_F(DOMDALReaderTest, PathOfStepsGoesDownFromTheParent) {
  Open(kTwoTransactions);
  EXPECT_EQ(reader_.GetElements("GeneralLedgerEntries/Journal/Transaction", {}, {})->size(), 2U);
  EXPECT_EQ(reader_.GetElement("Header/CompanyID", {}, {}).AllText(), "9");
}

TEST_F(DOMDALReaderTest, ElementsOfAFileWithPrefixesAreFoundByTheirLocalName) {
  Open("<s:AuditFile xmlns:s='urn:x'><s:Header><s:CompanyID>9</s:CompanyID></s:Header></s:AuditFile>");
  const Element header = reader_.GetElement("Header", {}, {});
  ASSERT_TRUE(header);
  EXPECT_EQ(reader_.GetElement("CompanyID", header, {}).AllText(), "9");
  EXPECT_EQ(reader_.GetElement("Header", {}), header);
  EXPECT_EQ(reader_.GetElement("CompanyID", header).AllText(), "9");
  EXPECT_EQ(reader_.GetElements("Header", {}, "[CompanyID = \"9\"]")->size(), 1U);
}

TEST_F(DOMDALReaderTest, FileThatIsNotWellFormedFailsToOpenWithTheParsersCodeAndLeavesTheReaderClosed) {
  const Error error = ErrorOf([&] { Open("<AuditFile><Header></AuditFile>"); });
  EXPECT_EQ(error.Number(), 76);  // XML_ERR_TAG_NAME_MISMATCH
  EXPECT_EQ(error.Source(), "MSXML2.DOMDocument.Load");
  EXPECT_NE(error.Description(), "");
  EXPECT_FALSE(reader_.IsOpen());
}

TEST_F(DOMDALReaderTest, FileThatIsNotThereFailsToLoadAndLeavesTheReaderClosed) {
  reader_.set_AuditFileName(folder_.Path("missing.xml"));
  const Error error = ErrorOf([&] { reader_.OpenFile(); });
  EXPECT_GT(error.Number(), 0);
  EXPECT_EQ(error.Source(), "MSXML2.DOMDocument.Load");
  EXPECT_FALSE(reader_.IsOpen());
}

TEST_F(DOMDALReaderTest, FailedOpenDropsTheDocumentHeldBefore) {
  Open(kTwoTransactions);
  ErrorOf([&] { Open("<AuditFile>"); });
  EXPECT_FALSE(reader_.IsOpen());
}

TEST_F(DOMDALReaderTest, FileIsNotValidatedOnOpen) {
  Open("<Anything/>");
  EXPECT_TRUE(reader_.IsOpen());
}

TEST_F(DOMDALReaderTest, ReadFileDoesNothing) {
  reader_.ReadFile();
  EXPECT_FALSE(reader_.IsOpen());
}

TEST_F(DOMDALReaderTest, AfterCloseAndOpenLookUpsWorkButNoWalkBegins) {
  Open(kTwoTransactions);
  reader_.CloseFile();
  reader_.OpenFile();
  EXPECT_TRUE(reader_.IsOpen());
  EXPECT_TRUE(reader_.GetElement("Header", {}, {}));
  EXPECT_EQ(reader_.GetElements("Header", {}, {})->size(), 1U);
  EXPECT_FALSE(reader_.GetFirstElement("Header", {}));
  EXPECT_FALSE(reader_.GetNextElement("Header"));
}

TEST_F(DOMDALReaderTest, OpeningAgainEndsWalksAndLetsOthersBegin) {
  Open("<AuditFile><Line>1</Line><Line>2</Line></AuditFile>");
  EXPECT_EQ(reader_.GetFirstElement("Line", {}).AllText(), "1");
  reader_.OpenFile();
  EXPECT_FALSE(reader_.GetNextElement("Line"));
  EXPECT_EQ(reader_.GetFirstElement("Line", {}).AllText(), "1");
  EXPECT_EQ(reader_.GetNextElement("Line").AllText(), "2");
  EXPECT_EQ(reader_.GetFirstElement("Line", {}).AllText(), "1");
  reader_.set_AuditFileName(folder_.Path("missing.xml"));
  EXPECT_THROW(reader_.OpenFile(), Error);
  EXPECT_FALSE(reader_.GetNextElement("Line"));
}

TEST_F(DOMDALReaderTest, LookUpsOnAClosedReaderAreAnError) {
  EXPECT_ERROR(reader_.GetElement("Header", {}, {}), RunTimeError::kObjectNotSet, kRunTimeSource);
  EXPECT_ERROR(reader_.GetElements("Header", {}, {}), RunTimeError::kObjectNotSet, kRunTimeSource);
  EXPECT_ERROR(reader_.GetFirstElement("Header", {}), RunTimeError::kObjectNotSet, kRunTimeSource);
}

}  // namespace
}  // namespace zevo
