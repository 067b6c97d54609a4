// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/Error.h>
#include <zevo/dal/SAXDALReader.h>
#include <zevo/dal/XMLHelper.h>
#include <zevo/platform/Serializer.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "tests/dal/ReaderContract.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"

namespace zevo {
namespace testing {
namespace {

struct SAXDALReaderHarness {
  using Reader = SAXDALReader;
  static constexpr bool kGivesLists = false;
  static void Read(Reader& reader, const std::function<void(Element transaction)>& test) {
    reader.ReadEntity = [&](const std::string& name, Element entity) {
      if (name == "Transaction") test(entity);
    };
    reader.OpenFile();
    reader.ReadFile();
  }
};

INSTANTIATE_TYPED_TEST_SUITE_P(SAXDALReader, ReaderContract, SAXDALReaderHarness);

}  // namespace
}  // namespace testing

namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::IsEmpty;
using testing::NumberOf;
using testing::TemporaryFolder;

class SAXDALReaderTest : public ::testing::Test {
 protected:
  SAXDALReaderTest() {
    reader_.ReadEntity = [this](const std::string& name, Element entity) {
      events_.push_back(name + ": " + SerializedXml(entity));
      if (on_entity_) on_entity_(name, entity);
    };
    reader_.FinishedReading = [this] { events_.emplace_back("finished"); };
    reader_.OpenFile();
  }

  void Read(std::string_view bytes) {
    events_.clear();
    reader_.set_AuditFileName(folder_.Write("audit.xml", bytes));
    reader_.ReadFile();
  }
  std::vector<std::string> EventsOf(std::string_view content) {
    Read(std::string("<AuditFile>").append(content).append("</AuditFile>"));
    return events_;
  }
  // The events up to the error, and the error.
  Error FailureOf(std::string_view content) {
    return ErrorOf([&] { EventsOf(content); });
  }

  TemporaryFolder folder_;
  SAXDALReader reader_;
  std::vector<std::string> events_;
  std::function<void(const std::string&, Element)> on_entity_;
};

constexpr std::string_view kWholeFile =
    "<?xml version='1.0' encoding='UTF-8'?>\n"
    "<AuditFile xmlns='urn:x'><Header><CompanyID>9</CompanyID></Header>"
    "<MasterFiles><GeneralLedger><AccountID>1</AccountID></GeneralLedger><Customer><CustomerID>C</CustomerID></"
    "Customer>"
    "<Supplier><SupplierID>S</SupplierID></Supplier><Product><ProductCode>P</ProductCode></Product>"
    "<TaxTable><TaxTableEntry><TaxCode>N</TaxCode></TaxTableEntry><TaxTableEntry><TaxCode>R</TaxCode></TaxTableEntry>"
    "</TaxTable></MasterFiles>"
    "<GeneralLedgerEntries><NumberOfEntries>2</NumberOfEntries>"
    "<Journal><JournalID>J1</JournalID><Transaction><TransactionID>1</TransactionID><Line><RecordID>1</RecordID></Line>"
    "</Transaction><Transaction><TransactionID>2</TransactionID></Transaction></Journal>"
    "<Journal><JournalID>J2</JournalID></Journal></GeneralLedgerEntries>"
    "<SourceDocuments><SalesInvoices><NumberOfEntries>1</NumberOfEntries><Invoice><InvoiceNo>F</InvoiceNo>"
    "<Line><LineNumber>1</LineNumber></Line></Invoice></SalesInvoices></SourceDocuments></AuditFile>";

TEST_F(SAXDALReaderTest, AFileComesEntityByEntity) {
  Read(kWholeFile);
  EXPECT_THAT(
      events_,
      ElementsAre(
          "Header: <Header><CompanyID>9</CompanyID></Header>",
          "GeneralLedger: <GeneralLedger><AccountID>1</AccountID></GeneralLedger>",
          "Customer: <Customer><CustomerID>C</CustomerID></Customer>",
          "Supplier: <Supplier><SupplierID>S</SupplierID></Supplier>",
          "Product: <Product><ProductCode>P</ProductCode></Product>",
          "TaxTable: <TaxTable><TaxTableEntry><TaxCode>N</TaxCode></TaxTableEntry><TaxTableEntry><TaxCode>R</TaxCode>"
          "</TaxTableEntry></TaxTable>",
          "GeneralLedgerEntries: <GeneralLedgerEntries><NumberOfEntries>2</NumberOfEntries></GeneralLedgerEntries>",
          "Journal: <Journal><JournalID>J1</JournalID></Journal>",
          "Transaction: <Transaction><TransactionID>1</TransactionID><Line><RecordID>1</RecordID></Line></Transaction>",
          "Transaction: <Transaction><TransactionID>2</TransactionID></Transaction>",
          "Journal: <Journal><JournalID>J2</JournalID></Journal>",
          "SalesInvoices: <SalesInvoices><NumberOfEntries>1</NumberOfEntries></SalesInvoices>",
          "Invoice: <Invoice><InvoiceNo>F</InvoiceNo><Line><LineNumber>1</LineNumber></Line></Invoice>", "finished"));
}

TEST_F(SAXDALReaderTest, ASectionWithoutEntriesIsDeliveredWholeAtItsOwnEnd) {
  EXPECT_THAT(EventsOf("<GeneralLedgerEntries/><SalesInvoices><TotalDebit>1</TotalDebit></SalesInvoices>"),
              ElementsAre("GeneralLedgerEntries: <GeneralLedgerEntries></GeneralLedgerEntries>",
                          "SalesInvoices: <SalesInvoices><TotalDebit>1</TotalDebit></SalesInvoices>", "finished"));
}

TEST_F(SAXDALReaderTest, WhatFollowsTheEntriesOfAContainerIsPassedOver) {
  EXPECT_THAT(EventsOf("<Journal><Transaction/><Description>late</Description>text</Journal><Other><Product/></Other>"),
              ElementsAre("Journal: <Journal></Journal>", "Transaction: <Transaction></Transaction>",
                          "Product: <Product></Product>", "finished"));
}

TEST_F(SAXDALReaderTest, AnEntryOutsideItsContainerIsAnEntity) {
  EXPECT_THAT(EventsOf("<Invoice/><Transaction/>"),
              ElementsAre("Invoice: <Invoice></Invoice>", "Transaction: <Transaction></Transaction>", "finished"));
}

TEST_F(SAXDALReaderTest, OnlyItsOwnEntryEndsAContainer) {
  EXPECT_THAT(
      EventsOf("<GeneralLedgerEntries><Transaction/></GeneralLedgerEntries>"
               "<SalesInvoices><Journal/></SalesInvoices>"),
      ElementsAre("GeneralLedgerEntries: <GeneralLedgerEntries><Transaction></Transaction></GeneralLedgerEntries>",
                  "SalesInvoices: <SalesInvoices><Journal></Journal></SalesInvoices>", "finished"));
}

TEST_F(SAXDALReaderTest, AnEntityInsideAnotherIsPartOfIt) {
  EXPECT_THAT(EventsOf("<Customer><Header/><Product>x</Product></Customer>"),
              ElementsAre("Customer: <Customer><Header></Header><Product>x</Product></Customer>", "finished"));
}

TEST_F(SAXDALReaderTest, EntitiesAreRecognisedInAnyLetterCase) {
  EXPECT_THAT(EventsOf("<HEADER/><journal><tRANSACTION/></journal><salesinvoices><a/></salesinvoices>"),
              ElementsAre("HEADER: <HEADER></HEADER>", "journal: <journal></journal>",
                          "tRANSACTION: <tRANSACTION></tRANSACTION>",
                          "salesinvoices: <salesinvoices><a></a></salesinvoices>", "finished"));
}

TEST_F(SAXDALReaderTest, AnElementWithAnEntitysNameInAnotherLetterCaseDoesNotEndIt) {
  EXPECT_THAT(EventsOf("<Customer><customer/><CUSTOMER>x</CUSTOMER></Customer>"),
              ElementsAre("Customer: <Customer><customer></customer><CUSTOMER>x</CUSTOMER></Customer>", "finished"));
}

TEST_F(SAXDALReaderTest, AnEntityWhoseEndDiffersInLetterCaseIsNeverDelivered) {
  EXPECT_GT(FailureOf("<Customer></customer>").Number(), 0);
  EXPECT_THAT(events_, IsEmpty());
}

TEST_F(SAXDALReaderTest, AttributesAndPrefixesAreLeftOut) {
  EXPECT_THAT(EventsOf("<s:Customer xmlns:s='urn:s' a='1'><s:CompanyName lang='pt'>N</s:CompanyName></s:Customer>"),
              ElementsAre("Customer: <Customer><CompanyName>N</CompanyName></Customer>", "finished"));
}

TEST_F(SAXDALReaderTest, AnAmpersandArrivesEscapedAndIsReadBack) {
  std::string name;
  on_entity_ = [&](const std::string&, Element entity) { name = ElementText("CompanyName", entity); };
  EXPECT_THAT(EventsOf("<Customer><CompanyName>A &amp; B</CompanyName></Customer>"),
              ElementsAre("Customer: <Customer><CompanyName>A &amp; B</CompanyName></Customer>", "finished"));
  EXPECT_EQ(name, "A & B");
}

TEST_F(SAXDALReaderTest, MarkedTextArrivesAsTextAndCommentsAndInstructionsDoNot) {
  EXPECT_THAT(EventsOf("<Customer><Contact>a<![CDATA[<b>]]><!--c-->d<?e f?></Contact></Customer>"),
              ElementsAre("Customer: <Customer><Contact>a&lt;b&gt;d</Contact></Customer>", "finished"));
}

TEST_F(SAXDALReaderTest, TextBetweenEntitiesIsPassedOver) {
  EXPECT_THAT(EventsOf(" a <Customer> b </Customer> c <Product/> d "),
              ElementsAre("Customer: <Customer> b </Customer>", "Product: <Product></Product>", "finished"));
}

TEST_F(SAXDALReaderTest, WhiteSpaceInsideAnEntityIsKeptUnlessItIndentsWhatIsBehindAnElement) {
  EXPECT_THAT(EventsOf("<Customer>\n <Contact/>\n</Customer><Customer>\n <Contact/> \n</Customer>"),
              ElementsAre("Customer: <Customer>\n <Contact></Contact></Customer>",
                          "Customer: <Customer>\n <Contact></Contact> \n</Customer>", "finished"));
}

struct Broken {
  const char* content;
  std::vector<std::string> events;
};

class SAXDALReaderEntityTest : public SAXDALReaderTest, public ::testing::WithParamInterface<Broken> {};

TEST_P(SAXDALReaderEntityTest, IsToldAndEndsTheReading) {
  const Error error = FailureOf(GetParam().content);
  EXPECT_EQ(error.Number(), NumberOf(Message::kEntityNotXml));
  EXPECT_EQ(error.Source(), "SAXDALReader.EndElement");
  EXPECT_EQ(events_, GetParam().events);
}

INSTANTIATE_TEST_SUITE_P(
    All, SAXDALReaderEntityTest,
    ::testing::Values(Broken{"<Product/><Customer><Customer>x</Customer></Customer>", {"Product: <Product></Product>"}},
                      Broken{"<s:Customer xmlns:s='urn:s'><Customer/></s:Customer>", {}},
                      Broken{"<Customer><a><Customer/></a></Customer>", {}},
                      Broken{"<Journal><a><Transaction/></a></Journal>", {}},
                      Broken{"<GeneralLedgerEntries><a><b><journal/></b></a></GeneralLedgerEntries>", {}},
                      Broken{"<SalesInvoices><a><Invoice/></a></SalesInvoices>", {}},
                      Broken{"<Journal><Transaction><Line><Transaction/></Line></Transaction></Journal>",
                             {"Journal: <Journal></Journal>"}}));

TEST_F(SAXDALReaderTest, AbortInsideAHandlerStopsAtTheNextElement) {
  on_entity_ = [&](const std::string& name, Element) {
    if (name == "Customer") reader_.set_AbortRequested(true);
  };
  const Error error = FailureOf("<Header/><Customer/> text <other/><Product/>");
  EXPECT_EQ(error.Number(), NumberOf(Message::kReadingAborted));
  EXPECT_EQ(error.Source(), "SAXDALReader.StartElement");
  EXPECT_THAT(events_, ElementsAre("Header: <Header></Header>", "Customer: <Customer></Customer>"));
}

TEST_F(SAXDALReaderTest, AbortAtTheLastElementComesTooLate) {
  on_entity_ = [&](const std::string&, Element) { reader_.set_AbortRequested(true); };
  EXPECT_THAT(EventsOf("<Customer/>"), ElementsAre("Customer: <Customer></Customer>", "finished"));
}

// The entry has begun by the time that its container is delivered.
TEST_F(SAXDALReaderTest, AbortAtACutContainerStopsInsideTheEntry) {
  on_entity_ = [&](const std::string&, Element) { reader_.set_AbortRequested(true); };
  EXPECT_EQ(FailureOf("<Journal><Transaction><a/></Transaction></Journal>").Number(),
            NumberOf(Message::kReadingAborted));
  EXPECT_THAT(events_, ElementsAre("Journal: <Journal></Journal>"));
}

TEST_F(SAXDALReaderTest, AnAbortIsNeverTakenBack) {
  reader_.set_AbortRequested(true);
  EXPECT_EQ(FailureOf("<Customer/>").Number(), NumberOf(Message::kReadingAborted));
  reader_.CloseFile();
  reader_.OpenFile();
  EXPECT_TRUE(reader_.AbortRequested());
  EXPECT_EQ(FailureOf("<Customer/>").Number(), NumberOf(Message::kReadingAborted));
  reader_.set_AbortRequested(false);
  EXPECT_THAT(EventsOf("<Customer/>"), ElementsAre("Customer: <Customer></Customer>", "finished"));
}

TEST_F(SAXDALReaderTest, ElementsAreAskedForFromTheEntity) {
  int calls = 0;
  on_entity_ = [&](const std::string&, Element entity) {
    ++calls;
    EXPECT_EQ(reader_.GetElement("MasterFiles", {}, {}), entity);
    EXPECT_EQ(reader_.GetElement("Anything", {}, "[x = \"y\"]"), entity);
    EXPECT_EQ(reader_.GetElement("MasterFiles", {}), entity);
    EXPECT_EQ(reader_.GetElement("Customer", entity, {}), entity);
    EXPECT_EQ(reader_.GetElement("Customer", entity), entity);
    EXPECT_EQ(reader_.GetElement("Contact", entity).AllText(), "a");
    EXPECT_FALSE(reader_.GetElement("Fax", entity));
    EXPECT_EQ(reader_.GetElement("Contact", entity, {}).AllText(), "a");
    EXPECT_FALSE(reader_.GetElement("customer", entity, {}));
    EXPECT_EQ(reader_.GetFirstElement("Customer", {}), entity);
    EXPECT_EQ(reader_.GetNextElement("Customer"), entity);
    EXPECT_EQ(reader_.GetNextElement("Contact"), entity);
    EXPECT_FALSE(reader_.GetElements("Contact", entity, {}).has_value());
    EXPECT_FALSE(reader_.GetElements("Contact", {}, {}).has_value());
  };
  EventsOf("<Customer><Contact>a</Contact></Customer>");
  EXPECT_EQ(calls, 1);
}

// A walk that has ended is forgotten, so the next question gives the entity again.
TEST_F(SAXDALReaderTest, AWalkEndsOnce) {
  on_entity_ = [&](const std::string&, Element entity) {
    EXPECT_TRUE(reader_.GetFirstElement("Line", entity));
    EXPECT_FALSE(reader_.GetNextElement("Line"));
    EXPECT_EQ(reader_.GetNextElement("Line"), entity);
  };
  EventsOf("<Transaction><Line/></Transaction>");
  EXPECT_EQ(events_.size(), 2U);
}

TEST_F(SAXDALReaderTest, AnUnfinishedWalkIsForgottenWithItsEntity) {
  on_entity_ = [&](const std::string& name, Element entity) {
    if (name == "Transaction") reader_.GetFirstElement("Line", entity);
    if (name == "Invoice") {
      EXPECT_EQ(reader_.GetNextElement("Line"), entity);
    }
  };
  EventsOf("<Transaction><Line/><Line/></Transaction><Invoice/>");
  EXPECT_EQ(events_.size(), 3U);
}

TEST_F(SAXDALReaderTest, AnErrorOfAHandlerEndsTheReadingAndComesOut) {
  on_entity_ = [](const std::string& name, Element) {
    if (name == "Customer") throw Error(1234, "host", "enough");
  };
  const Error error = FailureOf("<Header/><Customer/><Product/>");
  EXPECT_EQ(error.Number(), 1234);
  EXPECT_EQ(error.Source(), "host");
  EXPECT_EQ(error.Description(), "enough");
  EXPECT_THAT(events_, ElementsAre("Header: <Header></Header>", "Customer: <Customer></Customer>"));
}

TEST_F(SAXDALReaderTest, AnyExceptionOfAHandlerComesOut) {
  on_entity_ = [](const std::string&, Element) { throw std::logic_error("mine"); };
  EXPECT_THROW(EventsOf("<Header/>"), std::logic_error);
  on_entity_ = nullptr;
  reader_.FinishedReading = [] { throw 7; };
  EXPECT_THROW(EventsOf("<Header/>"), int);
}

TEST_F(SAXDALReaderTest, ReadsAgainAfterAnErrorAndAfterTheEnd) {
  FailureOf("<Customer><a>");
  EXPECT_THAT(EventsOf("<Product/>"), ElementsAre("Product: <Product></Product>", "finished"));
  EXPECT_THAT(EventsOf("<Header/>"), ElementsAre("Header: <Header></Header>", "finished"));
}

TEST_F(SAXDALReaderTest, ClosedByAHandlerItReadsOn) {
  on_entity_ = [&](const std::string&, Element entity) {
    reader_.CloseFile();
    EXPECT_FALSE(reader_.IsOpen());
    EXPECT_EQ(reader_.GetFirstElement("Contact", entity), entity);
  };
  EXPECT_THAT(
      EventsOf("<Customer><Contact/></Customer><Product/>"),
      ElementsAre("Customer: <Customer><Contact></Contact></Customer>", "Product: <Product></Product>", "finished"));
}

TEST_F(SAXDALReaderTest, CannotReadWhileClosedOrReading) {
  on_entity_ = [&](const std::string&, Element) {
    EXPECT_ERROR(reader_.ReadFile(), RunTimeError::kInvalidCall, kRunTimeSource);
  };
  EXPECT_THAT(EventsOf("<Header/>"), ElementsAre("Header: <Header></Header>", "finished"));
  reader_.CloseFile();
  EXPECT_ERROR(reader_.ReadFile(), RunTimeError::kObjectNotSet, kRunTimeSource);
}

TEST_F(SAXDALReaderTest, OpeningDoesNotTouchTheFile) {
  SAXDALReader reader;
  reader.set_AuditFileName(folder_.Path("missing.xml"));
  EXPECT_NO_THROW(reader.OpenFile());
  EXPECT_TRUE(reader.IsOpen());
}

TEST_F(SAXDALReaderTest, WithoutHandlersItReadsAllTheSame) {
  SAXDALReader reader;
  reader.set_AuditFileName(folder_.Write("audit.xml", kWholeFile));
  reader.OpenFile();
  EXPECT_NO_THROW(reader.ReadFile());
}

TEST_F(SAXDALReaderTest, AFileCutOffAnywhereIsToldAndWhatCameBeforeStands) {
  Read(kWholeFile);
  const std::vector<std::string> whole = events_;
  for (size_t length = 0; length < kWholeFile.size(); ++length) {
    EXPECT_NE(ErrorOf([&] { Read(kWholeFile.substr(0, length)); }).Number(), 0) << length;
    ASSERT_LT(events_.size(), whole.size()) << length;
    EXPECT_TRUE(std::equal(events_.begin(), events_.end(), whole.begin())) << length;
  }
}

TEST_F(SAXDALReaderTest, WhatFollowsTheRootIsAnErrorAndNoEnd) {
  const Error error = ErrorOf([&] { Read("<AuditFile><Header/></AuditFile><AuditFile/>"); });
  EXPECT_GT(error.Number(), 0);
  EXPECT_EQ(error.Source(), "MSXML2.SAXXMLReader.ParseURL");
  EXPECT_THAT(events_, ElementsAre("Header: <Header></Header>"));
}

TEST_F(SAXDALReaderTest, TellsHowMuchItHasRead) {
  const std::string filling(1'000'000, ' ');
  std::vector<uint64_t> positions;
  on_entity_ = [&](const std::string&, Element) { positions.push_back(reader_.BytesRead()); };
  EXPECT_EQ(reader_.BytesRead(), 0U);
  EventsOf("<Header/>" + filling + "<Product/>" + filling);
  ASSERT_EQ(positions.size(), 2U);
  EXPECT_GT(positions[0], 0U);
  EXPECT_LT(positions[0], filling.size());
  EXPECT_GT(positions[1], filling.size());
  EXPECT_EQ(reader_.BytesRead(), std::filesystem::file_size(folder_.Path("audit.xml")));
}

}  // namespace
}  // namespace zevo
