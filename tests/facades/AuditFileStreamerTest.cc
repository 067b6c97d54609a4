// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using namespace zevo::testing;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr LibraryMessage kEntityNotXml{-2147221103, "O conteúdo da entidade não é XML válido."};
constexpr LibraryMessage kReadingAborted{-2147221003, "Leitura do ficheiro abortada pelo utilizador."};
constexpr const char* kTypeMismatchText = "Tipos incompatíveis.";

constexpr std::string_view kGoodCustomer =
    "<Customer><CustomerID>C</CustomerID><SelfBillingIndicator>0</SelfBillingIndicator></Customer>";

class AuditFileStreamerTest : public ::testing::Test {
 protected:
  AuditFileStreamerTest() {
    streamer_.ReadEntity = [this](const std::string& name, const std::shared_ptr<Record>& record) {
      events_.push_back(record ? name : name + " none");
      if (on_entity_) on_entity_(name, record);
    };
    streamer_.FinishedReading = [this] { events_.emplace_back("finished"); };
  }

  void Open(std::string_view content) {
    streamer_.set_AuditFileName(
        folder_.Write("audit.xml", std::string("<AuditFile>").append(content).append("</AuditFile>")));
    ASSERT_TRUE(streamer_.OpenAuditFile());
  }
  bool Read(std::string_view content) {
    Open(content);
    return streamer_.ReadAuditFile();
  }

  TemporaryFolder folder_;
  AuditFileStreamer streamer_;
  std::vector<std::string> events_;
  std::function<void(const std::string&, const std::shared_ptr<Record>&)> on_entity_;
};

TEST_F(AuditFileStreamerTest, OpeningChecksStateThenNameThenFile) {
  constexpr const char* kSource = "AuditFileStreamer.OpenAuditFile";
  EXPECT_FALSE(streamer_.OpenAuditFile());
  EXPECT_THAT(streamer_, Recorded(kNoFileName, kSource));
  streamer_.set_AuditFileName(folder_.Path("missing.xml"));
  EXPECT_EQ(streamer_.AuditFileName(), folder_.Path("missing.xml"));
  EXPECT_FALSE(streamer_.OpenAuditFile());
  EXPECT_THAT(streamer_, Recorded(kFileNotFound, kSource));
  Open("");
  EXPECT_THAT(streamer_, RecordedNothing());
  streamer_.set_AuditFileName("");
  EXPECT_FALSE(streamer_.OpenAuditFile());
  EXPECT_THAT(streamer_, Recorded(kAlreadyStarted, kSource));
}

TEST_F(AuditFileStreamerTest, ReadingBeforeOpeningFailsAndRaisesNothing) {
  streamer_.set_AuditFileName(folder_.Write("audit.xml", "<AuditFile><Header/></AuditFile>"));
  EXPECT_FALSE(streamer_.ReadAuditFile());
  EXPECT_THAT(streamer_, Recorded(kNotStarted, "AuditFileStreamer.ReadAuditFile"));
  EXPECT_THAT(events_, IsEmpty());
}

TEST_F(AuditFileStreamerTest, EveryRecordOfAFileComesInItsOrder) {
  const UseSchema schema;
  SaveSampleFile(folder_.Path("sample.xml"));
  streamer_.set_AuditFileName(folder_.Path("sample.xml"));
  ASSERT_TRUE(streamer_.OpenAuditFile());
  std::vector<std::string> ids;
  on_entity_ = [&](const std::string&, const std::shared_ptr<Record>& record) {
    if (const auto* header = dynamic_cast<const Header*>(record.get())) ids.push_back(header->CompanyName());
    if (const auto* customer = dynamic_cast<const Customer*>(record.get())) ids.push_back(customer->CustomerID());
    if (const auto* product = dynamic_cast<const Product*>(record.get())) ids.push_back(product->ProductCode());
    if (const auto* journal = dynamic_cast<const Journal*>(record.get())) ids.push_back(journal->JournalID());
    if (const auto* transaction = dynamic_cast<const Transaction*>(record.get())) {
      ids.push_back(transaction->TransactionID() + "/" + std::to_string(transaction->Line()->Count()));
    }
    if (const auto* invoice = dynamic_cast<const Invoice*>(record.get())) {
      ids.push_back(invoice->InvoiceNo() + "/" + std::to_string(invoice->Line()->Count()));
    }
    if (const auto* entries = dynamic_cast<const GeneralLedgerEntries*>(record.get())) {
      ids.push_back(entries->TotalDebit().Text());
    }
    if (const auto* invoices = dynamic_cast<const SalesInvoices*>(record.get())) {
      ids.push_back(invoices->TotalCredit().Text());
    }
  };
  streamer_.ReadAuditFile();
  EXPECT_THAT(streamer_, RecordedNothing());

  AuditFileReader reader;
  reader.set_AuditFileName(folder_.Path("sample.xml"));
  ASSERT_TRUE(reader.OpenAuditFile());
  std::vector<std::string> expected;
  std::shared_ptr<Header> header;
  ASSERT_TRUE(reader.ReadHeader(header));
  expected.push_back(header->CompanyName());
  std::shared_ptr<Customer> customer;
  while (reader.ReadCustomer(customer) && customer) expected.push_back(customer->CustomerID());
  std::shared_ptr<Product> product;
  while (reader.ReadProduct(product) && product) expected.push_back(product->ProductCode());
  std::shared_ptr<GeneralLedgerEntries> entries;
  ASSERT_TRUE(reader.ReadGeneralLedgerEntries(entries));
  expected.push_back(entries->TotalDebit().Text());
  std::shared_ptr<Journal> journal;
  while (reader.ReadJournal(journal) && journal) {
    expected.push_back(journal->JournalID());
    std::shared_ptr<Transaction> transaction;
    while (reader.ReadTransaction(transaction, *journal) && transaction) {
      expected.push_back(transaction->TransactionID() + "/" + std::to_string(transaction->Line()->Count()));
    }
  }
  std::shared_ptr<SalesInvoices> invoices;
  ASSERT_TRUE(reader.ReadSalesInvoices(invoices));
  expected.push_back(invoices->TotalCredit().Text());
  std::shared_ptr<Invoice> invoice;
  while (reader.ReadInvoice(invoice) && invoice) {
    expected.push_back(invoice->InvoiceNo() + "/" + std::to_string(invoice->Line()->Count()));
  }
  EXPECT_EQ(ids, expected);
  EXPECT_GE(expected.size(), 11U);
  EXPECT_EQ(events_.back(), "finished");
}

TEST_F(AuditFileStreamerTest, NamesArriveAsTheFileHasThemAndRecordsAreFoundInAnyLetterCase) {
  EXPECT_TRUE(Read("<JOURNAL><JournalID>J</JournalID></JOURNAL><product><ProductCode>P</ProductCode></product>"));
  EXPECT_THAT(events_, ElementsAre("JOURNAL", "product", "finished"));
}

TEST_F(AuditFileStreamerTest, ARecordThatCannotBeBuiltComesAsNoneAndTheReadingGoesOn) {
  std::vector<std::string> told;
  on_entity_ = [&](const std::string&, const std::shared_ptr<Record>&) {
    told.push_back(Told(streamer_.AuditException()));
  };
  EXPECT_FALSE(Read(std::string(kGoodCustomer) + "<Customer/>" + std::string(kGoodCustomer) + "<Product/>"));
  EXPECT_THAT(events_, ElementsAre("Customer", "Customer none", "Customer", "Product", "finished"));
  EXPECT_THAT(told,
              ElementsAre("nothing recorded", std::string("13 from \"ZevoAdapters11\": \"") + kTypeMismatchText + "\"",
                          "nothing recorded", "nothing recorded"));
  EXPECT_THAT(streamer_, RecordedNothing());
}

TEST_F(AuditFileStreamerTest, ATaxTableNeedsBothAPercentageAndAnAmountInEachEntry) {
  const std::string both = "<TaxTableEntry><TaxPercentage>6</TaxPercentage><TaxAmount>0</TaxAmount></TaxTableEntry>";
  int entries = 0;
  on_entity_ = [&](const std::string&, const std::shared_ptr<Record>& record) {
    if (record) entries = dynamic_cast<const TaxTable&>(*record).TaxTableEntry()->Count();
  };
  EXPECT_TRUE(Read("<TaxTable>" + both + both + "</TaxTable>"));
  EXPECT_EQ(entries, 2);
  streamer_.CloseAuditFile();
  EXPECT_FALSE(
      Read("<TaxTable>" + both + "<TaxTableEntry><TaxPercentage>6</TaxPercentage></TaxTableEntry></TaxTable>"));
  EXPECT_THAT(events_, ElementsAre("TaxTable", "finished", "TaxTable none", "finished"));
}

TEST_F(AuditFileStreamerTest, OneBadReadingDoesNotSpoilTheNext) {
  EXPECT_FALSE(Read("<Customer/>"));
  streamer_.CloseAuditFile();
  EXPECT_TRUE(Read(kGoodCustomer));
}

TEST_F(AuditFileStreamerTest, AbortFromTheThirdRecordStopsThere) {
  on_entity_ = [&](const std::string&, const std::shared_ptr<Record>&) {
    if (events_.size() == 3) streamer_.AbortReading();
  };
  EXPECT_FALSE(Read("<Header/><Product/><Product/><Product/><Product/>"));
  EXPECT_THAT(events_, ElementsAre("Header", "Product", "Product"));
  EXPECT_THAT(streamer_, Recorded(kReadingAborted, "SAXDALReader.StartElement"));
}

TEST_F(AuditFileStreamerTest, AnAbortedObjectReadsNoMore) {
  Open("<Header/>");
  streamer_.AbortReading();
  EXPECT_FALSE(streamer_.ReadAuditFile());
  streamer_.CloseAuditFile();
  EXPECT_FALSE(Read("<Header/>"));
  EXPECT_THAT(streamer_, Recorded(kReadingAborted, "SAXDALReader.StartElement"));
  EXPECT_THAT(events_, IsEmpty());
}

TEST_F(AuditFileStreamerTest, AbortWhileClosedDoesNothing) {
  streamer_.AbortReading();
  EXPECT_TRUE(Read("<Header/>"));
}

TEST_F(AuditFileStreamerTest, AnEntityThatIsNoXmlByItselfEndsTheReading) {
  EXPECT_FALSE(Read("<Product/><Product><Product/></Product><Product/>"));
  EXPECT_THAT(streamer_, Recorded(kEntityNotXml, "SAXDALReader.EndElement"));
  EXPECT_THAT(events_, ElementsAre("Product"));
}

TEST_F(AuditFileStreamerTest, AFileThatIsNotWellFormedIsToldWhereAndTheEventsStand) {
  EXPECT_FALSE(Read("<Header/>\n<Product></Header>"));
  EXPECT_THAT(streamer_, RecordedXmlErrorFrom(kStreamSource));
  EXPECT_NE(streamer_.AuditException()->Description().find('2'), std::string::npos);
  EXPECT_THAT(events_, ElementsAre("Header"));
}

TEST_F(AuditFileStreamerTest, AFileThatGoesAwayAfterOpeningIsTold) {
  Open("<Header/>");
  std::filesystem::remove(streamer_.AuditFileName());
  EXPECT_FALSE(streamer_.ReadAuditFile());
  EXPECT_NE(streamer_.AuditException(), nullptr);
  EXPECT_THAT(events_, IsEmpty());
}

TEST_F(AuditFileStreamerTest, AnErrorOfTheHostEndsTheReadingAndIsRecorded) {
  on_entity_ = [](const std::string&, const std::shared_ptr<Record>&) { throw Error(4711, "Host.Import", "cheio"); };
  EXPECT_FALSE(Read("<Header/><Product/>"));
  EXPECT_THAT(streamer_, RecordedError(4711, "Host.Import", "cheio"));
  EXPECT_THAT(events_, ElementsAre("Header"));
}

TEST_F(AuditFileStreamerTest, AnythingThatTheHostThrowsIsRecorded) {
  on_entity_ = [](const std::string&, const std::shared_ptr<Record>&) { throw std::runtime_error("base de dados"); };
  EXPECT_FALSE(Read("<Header/>"));
  EXPECT_EQ(streamer_.AuditException()->Number(), kInvalidCall);
  EXPECT_NE(streamer_.AuditException()->Description().find("base de dados"), std::string::npos);
  on_entity_ = [](const std::string&, const std::shared_ptr<Record>&) { throw 7; };
  EXPECT_FALSE(streamer_.ReadAuditFile());
  EXPECT_EQ(streamer_.AuditException()->Number(), kInvalidCall);
}

TEST_F(AuditFileStreamerTest, AnErrorAtTheEndIsRecordedToo) {
  streamer_.FinishedReading = [] { throw Error(4711, "Host.Finish", "tarde"); };
  EXPECT_FALSE(Read("<Header/>"));
  EXPECT_THAT(streamer_, RecordedError(4711, "Host.Finish", "tarde"));
}

TEST_F(AuditFileStreamerTest, ANegativeNumberWithoutAMessageHasNoDescription) {
  on_entity_ = [](const std::string&, const std::shared_ptr<Record>&) { throw Error(-5, "Host", "texto"); };
  EXPECT_FALSE(Read("<Header/>"));
  EXPECT_THAT(streamer_, RecordedError(-5, "Host", ""));
}

TEST_F(AuditFileStreamerTest, ClosedByAHandlerTheRestComesAsNone) {
  on_entity_ = [&](const std::string& name, const std::shared_ptr<Record>&) {
    if (name == "Header") {
      EXPECT_TRUE(streamer_.CloseAuditFile());
    } else {
      EXPECT_THAT(streamer_, Recorded(kNotStarted, "AuditFileStreamer.Read" + name));
    }
  };
  EXPECT_FALSE(Read("<Header/><Product/><Transaction/>"));
  EXPECT_THAT(events_, ElementsAre("Header", "Product none", "Transaction none", "finished"));
  EXPECT_THAT(streamer_, RecordedNothing());
}

TEST_F(AuditFileStreamerTest, ReadingWithinAReadingFailsAndLeavesItAlone) {
  bool nested = true;
  on_entity_ = [&](const std::string&, const std::shared_ptr<Record>&) { nested = streamer_.ReadAuditFile(); };
  EXPECT_TRUE(Read("<Header/><Product/>"));
  EXPECT_FALSE(nested);
  EXPECT_THAT(events_, ElementsAre("Header", "Product", "finished"));
}

TEST_F(AuditFileStreamerTest, OpenStaysOpenAndCanBeReadAgain) {
  EXPECT_TRUE(Read("<Header/>"));
  EXPECT_TRUE(streamer_.ReadAuditFile());
  EXPECT_THAT(events_, ElementsAre("Header", "finished", "Header", "finished"));
  EXPECT_FALSE(streamer_.OpenAuditFile());
}

TEST_F(AuditFileStreamerTest, ClosingAlwaysSucceedsAndForgetsTheFailure) {
  EXPECT_FALSE(streamer_.OpenAuditFile());
  EXPECT_TRUE(streamer_.CloseAuditFile());
  EXPECT_THAT(streamer_, RecordedNothing());
}

TEST_F(AuditFileStreamerTest, WaitingMakesNoDifferenceToAFileReadToItsEnd) {
  const auto begin = std::chrono::steady_clock::now();
  Open("<Header/>");
  EXPECT_TRUE(streamer_.ReadAuditFile(true));
  EXPECT_TRUE(streamer_.ReadAuditFile(false));
  EXPECT_THAT(events_, ElementsAre("Header", "finished", "Header", "finished"));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(900));
}

TEST_F(AuditFileStreamerTest, AFailedReadingDoesNotWait) {
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_FALSE(Read("<Header>"));
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(900));
}

TEST_F(AuditFileStreamerTest, WithoutHandlersItReadsAllTheSame) {
  AuditFileStreamer streamer;
  streamer.set_AuditFileName(folder_.Write("audit.xml", "<AuditFile><Header/><Customer/></AuditFile>"));
  EXPECT_TRUE(streamer.OpenAuditFile());
  EXPECT_FALSE(streamer.ReadAuditFile());
  EXPECT_THAT(streamer, RecordedNothing());
}

TEST_F(AuditFileStreamerTest, TellsHowMuchItHasRead) {
  EXPECT_EQ(streamer_.BytesRead(), 0U);
  EXPECT_TRUE(Read("<Header/>"));
  EXPECT_EQ(streamer_.BytesRead(), std::filesystem::file_size(streamer_.AuditFileName()));
}

TEST_F(AuditFileStreamerTest, RecordsOutliveTheReading) {
  std::shared_ptr<Record> kept;
  {
    AuditFileStreamer streamer;
    streamer.ReadEntity = [&](const std::string&, const std::shared_ptr<Record>& record) { kept = record; };
    streamer.set_AuditFileName(
        folder_.Write("audit.xml", "<AuditFile><Product><ProductCode>P</ProductCode></Product></AuditFile>"));
    EXPECT_TRUE(streamer.OpenAuditFile());
    EXPECT_TRUE(streamer.ReadAuditFile());
  }
  EXPECT_EQ(dynamic_cast<const Product&>(*kept).ProductCode(), "P");
}

}  // namespace
}  // namespace zevo
