// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/dal/TextFileDALHelper.h>

#include <string>
#include <string_view>

#include "tests/dal/WriterContract.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace testing {
namespace {

struct TextFileDALHelperHarness {
  using Writer = TextFileDALHelper;
  static constexpr bool kTrims = false;
  static constexpr bool kUpdatesInPlace = false;
  static constexpr bool kFindsClosedElements = false;
};

INSTANTIATE_TYPED_TEST_SUITE_P(TextFileDALHelper, WriterContract, TextFileDALHelperHarness);

}  // namespace
}  // namespace testing

namespace {

using testing::ReadBytes;
using testing::TemporaryFolder;

constexpr std::string_view kStart =
    "<?xml version=\"1.0\" encoding=\"windows-1252\"?>"
    "<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\""
    " xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\">";

class TextFileDALHelperTest : public ::testing::Test {
 protected:
  TextFileDALHelperTest() {
    writer_.set_AuditFileName(folder_.Path("audit.xml"));
    writer_.CreateFile();
  }

  Element Container(ElementName name, Element parent = {}) { return writer_.CreateElement(name, {}, parent, true); }
  // Closes the file; gives what stands behind the root's start tag.
  std::string Content() {
    writer_.CloseFile();
    const std::string bytes = ReadBytes(folder_.Path("audit.xml"));
    EXPECT_TRUE(bytes.starts_with(kStart)) << bytes;
    return bytes.substr(kStart.size());
  }

  TemporaryFolder folder_;
  TextFileDALHelper writer_;
};

TEST_F(TextFileDALHelperTest, EmptyLeafIsLeftOutAndWhenRequiredOpensAContainer) {
  EXPECT_FALSE(writer_.CreateElement("Fax", "", {}, false));
  const Element section = writer_.CreateElement("Header", "", {}, true);
  EXPECT_EQ(section.Name(), "Header");
  EXPECT_FALSE(writer_.CreateElement("CompanyID", "1", section, true));
  EXPECT_EQ(Content(), "<Header><CompanyID>1</CompanyID></Header></AuditFile>");
}

TEST_F(TextFileDALHelperTest, MarkupAndQuotesAreReferencesAndApostrophesStay) {
  writer_.CreateElement("Email", "<&\"'>", {}, true);
  EXPECT_EQ(Content(), "<Email>&lt;&amp;&quot;'&gt;</Email></AuditFile>");
}

TEST_F(TextFileDALHelperTest, TextsKeepTheirSpaces) {
  writer_.CreateElement("Email", "  x ", {}, false);
  writer_.CreateElement("Fax", " ", {}, false);
  EXPECT_EQ(Content(), "<Email>  x </Email><Fax> </Fax></AuditFile>");
}

TEST_F(TextFileDALHelperTest, OpeningAnExistingFileBeginsItAnew) {
  writer_.CreateElement("Email", "x", {}, true);
  writer_.CloseFile();
  writer_.OpenFile();
  EXPECT_EQ(Content(), "</AuditFile>");
}

TEST_F(TextFileDALHelperTest, EndingWhatIsNotOpenWritesNothingAndTwoLevelsDownClosesBoth) {
  const Element files = Container("MasterFiles");
  Container("Customer", files);
  writer_.EndElement("Journal");
  writer_.EndElement("MasterFiles");
  writer_.CreateElement("Email", "x", {}, true);
  EXPECT_EQ(Content(), "<MasterFiles><Customer></Customer></MasterFiles><Email>x</Email></AuditFile>");
}

TEST_F(TextFileDALHelperTest, AnElementIsFoundByItsNameWhileItIsOpen) {
  const Element files = Container("MasterFiles");
  Container("Customer", files);
  EXPECT_TRUE(writer_.GetElement("MasterFiles", {}, "[any = \"query\"]"));
  EXPECT_TRUE(writer_.GetElement("AuditFile", {}, {}));
  Container("GeneralLedgerEntries");
  EXPECT_FALSE(writer_.GetElement("MasterFiles", {}, {}));
}

TEST_F(TextFileDALHelperTest, ASectionThatWasClosedIsOpenedASecondTime) {
  Container("MasterFiles");
  Container("GeneralLedgerEntries");
  Container("MasterFiles");
  EXPECT_EQ(Content(),
            "<MasterFiles></MasterFiles><GeneralLedgerEntries></GeneralLedgerEntries><MasterFiles></MasterFiles>"
            "</AuditFile>");
}

TEST_F(TextFileDALHelperTest, AParentThatIsNotOpenClosesEverything) {
  const Element files = Container("MasterFiles");
  Container("GeneralLedgerEntries");
  writer_.CreateElement("Email", "x", files, true);
  EXPECT_EQ(Content(),
            "<MasterFiles></MasterFiles><GeneralLedgerEntries></GeneralLedgerEntries></AuditFile>"
            "<Email>x</Email>");
}

TEST_F(TextFileDALHelperTest, AnUpdateAppends) {
  const Element section = Container("SalesInvoices");
  writer_.UpdateElement("NumberOfEntries", "1", section, true);
  writer_.UpdateElement("NumberOfEntries", "2", section, true);
  EXPECT_EQ(Content(),
            "<SalesInvoices><NumberOfEntries>1</NumberOfEntries><NumberOfEntries>2</NumberOfEntries>"
            "</SalesInvoices></AuditFile>");
}

TEST_F(TextFileDALHelperTest, DestructionCompletesTheFileWithTheEndTagsOfEveryOpenElement) {
  {
    TextFileDALHelper writer;
    writer.set_AuditFileName(folder_.Path("abandoned.xml"));
    writer.CreateFile();
    writer.CreateElement("Customer", {}, writer.CreateElement("MasterFiles", {}, {}, true), true);
  }
  EXPECT_EQ(ReadBytes(folder_.Path("abandoned.xml")),
            std::string(kStart) + "<MasterFiles><Customer></Customer></MasterFiles></AuditFile>");
}

TEST_F(TextFileDALHelperTest, TheOutputHasNoLineEnds) {
  Container("MasterFiles");
  writer_.CreateElement("Email", "x", {}, true);
  EXPECT_EQ(Content().find_first_of("\r\n"), std::string::npos);
}

TEST_F(TextFileDALHelperTest, AForbiddenCharacterIsRefusedBeforePendingEndTagsAreWritten) {
  Container("MasterFiles");
  EXPECT_ERROR(writer_.CreateElement("Email", "\x01", {}, true), RunTimeError::kInvalidCall, "ZevoAdapters11");
  EXPECT_TRUE(writer_.GetElement("MasterFiles", {}, {}));
  EXPECT_EQ(Content(), "<MasterFiles></MasterFiles></AuditFile>");
}

TEST_F(TextFileDALHelperTest, AFileThatCannotBeCreatedLeavesTheWriterClosed) {
  TextFileDALHelper writer;
  writer.set_AuditFileName(folder_.Path("no/folder.xml"));
  EXPECT_ERROR(writer.CreateFile(), RunTimeError::kPathNotFound, "ZevoAdapters11");
  EXPECT_FALSE(writer.IsOpen());
}

TEST_F(TextFileDALHelperTest, ClosingOnAFullDiskRaisesAndCloses) {
  TextFileDALHelper writer;
  writer.set_AuditFileName("/dev/full");
  writer.CreateFile();
  EXPECT_ERROR(writer.CloseFile(), RunTimeError::kDiskFull, "ZevoAdapters11");
  EXPECT_FALSE(writer.IsOpen());
}

TEST_F(TextFileDALHelperTest, ManyRecordsTakeNoMoreMemoryThanOne) {
  const Element files = Container("MasterFiles");
  const Element first = Container("Customer", files);
  writer_.EndElement("Customer");
  for (int i = 0; i < 1000; ++i) {
    EXPECT_EQ(Container("Customer", files), first);
    writer_.EndElement("Customer");
  }
}

}  // namespace
}  // namespace zevo
