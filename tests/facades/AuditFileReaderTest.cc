// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
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
using ::testing::Not;
using ::testing::Values;
using ::testing::ValuesIn;

struct ReadOperation {
  const char* name;
  std::function<bool(AuditFileReader&)> call;  // whether it succeeded

  std::string Source() const { return std::string("AuditFileReader.") + name; }
};

void PrintTo(const ReadOperation& operation, std::ostream* out) { *out << operation.name; }

template <class T>
ReadOperation Reads(const char* name, bool (AuditFileReader::*member)(std::shared_ptr<T>&)) {
  return {name, [member](AuditFileReader& reader) {
            std::shared_ptr<T> value;
            return (reader.*member)(value);
          }};
}

ReadOperation Counts(const char* name, int32_t (AuditFileReader::*member)()) {
  return {name, [member](AuditFileReader& reader) {
            const int32_t count = (reader.*member)();
            EXPECT_GE(count, -1);
            return count != -1;
          }};
}

const std::vector<ReadOperation>& ReadsAndCounts() {
  static const std::vector<ReadOperation> kOperations = {
      Reads("ReadHeader", &AuditFileReader::ReadHeader),
      Reads("ReadGeneralLedger", &AuditFileReader::ReadGeneralLedger),
      Reads("ReadCustomer", &AuditFileReader::ReadCustomer),
      Reads("ReadSupplier", &AuditFileReader::ReadSupplier),
      Reads("ReadTaxTable", &AuditFileReader::ReadTaxTable),
      Reads("ReadTaxTableEntry", &AuditFileReader::ReadTaxTableEntry),
      Reads("ReadProduct", &AuditFileReader::ReadProduct),
      Reads("ReadGeneralLedgerEntries", &AuditFileReader::ReadGeneralLedgerEntries),
      Reads("ReadJournal", &AuditFileReader::ReadJournal),
      {"ReadTransaction",
       [](AuditFileReader& reader) {
         std::shared_ptr<Transaction> value;
         return reader.ReadTransaction(value, *SampleJournal("D1"));
       }},
      Reads("ReadSalesInvoices", &AuditFileReader::ReadSalesInvoices),
      Reads("ReadInvoice", &AuditFileReader::ReadInvoice),
      Counts("Customers", &AuditFileReader::Customers),
      Counts("Suppliers", &AuditFileReader::Suppliers),
      Counts("Products", &AuditFileReader::Products),
      Counts("GeneralLedgers", &AuditFileReader::GeneralLedgers),
      Counts("TaxTableEntrys", &AuditFileReader::TaxTableEntrys),
      Counts("Invoices", &AuditFileReader::Invoices),
      Counts("Journals", &AuditFileReader::Journals),
      {"Transactions", [](AuditFileReader& reader) { return reader.Transactions() != -1; }},
  };
  return kOperations;
}

const ReadOperation& ReadOperationNamed(std::string_view name) {
  for (const ReadOperation& operation : ReadsAndCounts()) {
    if (operation.name == name) return operation;
  }
  throw std::logic_error("no such operation");
}

class AuditFileReaderTest : public ::testing::Test {
 protected:
  // Opens a file that holds this inside its root.
  void Open(std::string_view content) {
    reader_.set_AuditFileName(
        folder_.Write("saft.xml", std::string("<AuditFile xmlns=\"urn:OECD:StandardAuditFile-Tax:PT_1.01_01\">")
                                      .append(content)
                                      .append("</AuditFile>")));
    ASSERT_TRUE(reader_.OpenAuditFile()) << Told(reader_.AuditException());
  }

  void OpenSample(const SampleSize& size = {}) {
    SaveSampleFile(folder_.Path("sample.xml"), size);
    reader_.set_AuditFileName(folder_.Path("sample.xml"));
    ASSERT_TRUE(reader_.OpenAuditFile()) << Told(reader_.AuditException());
  }

  // The next customer's code, "none" when there is none left, or the failure.
  std::string NextCustomer() {
    if (!reader_.ReadCustomer(customer_)) return "failed: " + Told(reader_.AuditException());
    return customer_ == nullptr ? "none" : customer_->CustomerID();
  }
  std::string NextTransaction(const Journal& journal) {
    if (!reader_.ReadTransaction(transaction_, journal)) return "failed: " + Told(reader_.AuditException());
    return transaction_ == nullptr ? "none" : transaction_->TransactionID();
  }

  UseSchema schema_;
  TemporaryFolder folder_;
  AuditFileReader reader_;
  std::shared_ptr<Customer> customer_;
  std::shared_ptr<Transaction> transaction_;
};

constexpr std::string_view kThreeCustomers =
    "<MasterFiles>"
    "<Customer><CustomerID>C1</CustomerID><SelfBillingIndicator>0</SelfBillingIndicator></Customer>"
    "<Customer><CustomerID>C2</CustomerID><SelfBillingIndicator>1</SelfBillingIndicator></Customer>"
    "<Customer><CustomerID>C3</CustomerID><SelfBillingIndicator>0</SelfBillingIndicator></Customer>"
    "</MasterFiles>";

constexpr std::string_view kTwoJournals =
    "<GeneralLedgerEntries>"
    "<Journal><JournalID>A</JournalID><Transaction><TransactionID>A1</TransactionID></Transaction>"
    "<Transaction><TransactionID>A2</TransactionID></Transaction>"
    "<Transaction><TransactionID>A3</TransactionID></Transaction>"
    "<Transaction><TransactionID>A4</TransactionID></Transaction></Journal>"
    "<Journal><JournalID>B</JournalID><Transaction><TransactionID>B1</TransactionID></Transaction></Journal>"
    "</GeneralLedgerEntries>";

class AuditFileReaderOperationTest : public AuditFileReaderTest, public ::testing::WithParamInterface<ReadOperation> {};

TEST_P(AuditFileReaderOperationTest, FailsBeforeAFileIsOpened) {
  EXPECT_FALSE(GetParam().call(reader_));
  EXPECT_THAT(reader_, Recorded(kNotStarted, GetParam().Source()));
}

TEST_P(AuditFileReaderOperationTest, FailsOnceTheFileIsClosed) {
  OpenSample();
  EXPECT_TRUE(reader_.CloseAuditFile());
  EXPECT_FALSE(GetParam().call(reader_));
  EXPECT_THAT(reader_, Recorded(kNotStarted, GetParam().Source()));
}

// A tax table that the library wrote does not read back.
bool ReadsBack(const ReadOperation& operation) { return !std::string_view(operation.name).starts_with("ReadTaxTable"); }

TEST_P(AuditFileReaderOperationTest, SuccessClearsTheException) {
  OpenSample();
  ASSERT_FALSE(reader_.OpenAuditFile());
  ASSERT_EQ(GetParam().call(reader_), ReadsBack(GetParam())) << Told(reader_.AuditException());
  if (ReadsBack(GetParam())) {
    EXPECT_THAT(reader_, RecordedNothing());
  }
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, AuditFileReaderOperationTest, ValuesIn(ReadsAndCounts()));

TEST_F(AuditFileReaderTest, HasNoNameAndNoExceptionAtFirst) {
  EXPECT_EQ(reader_.AuditFileName(), "");
  EXPECT_EQ(reader_.AuditException(), nullptr);
}

TEST_F(AuditFileReaderTest, OpenChecksForAnOpenFileThenTheNameThenTheFile) {
  EXPECT_FALSE(reader_.OpenAuditFile());
  EXPECT_THAT(reader_, Recorded(kNoFileName, "AuditFileReader.OpenAuditFile"));
  reader_.set_AuditFileName(folder_.Path("missing.xml"));
  EXPECT_FALSE(reader_.OpenAuditFile());
  EXPECT_THAT(reader_, Recorded(kFileNotFound, "AuditFileReader.OpenAuditFile"));
  OpenSample();
  reader_.set_AuditFileName("");
  EXPECT_FALSE(reader_.OpenAuditFile());
  EXPECT_THAT(reader_, Recorded(kAlreadyStarted, "AuditFileReader.OpenAuditFile"));
}

TEST_F(AuditFileReaderTest, OpenOfAMalformedFileFailsWithTheParsersReason) {
  reader_.set_AuditFileName(folder_.Write("saft.xml", "<AuditFile>\n<Header>\n</AuditFile>\n"));
  EXPECT_FALSE(reader_.OpenAuditFile());
  ASSERT_THAT(reader_, RecordedXmlErrorFrom(kLoadSource));
  EXPECT_THAT(reader_.AuditException()->Description(), ::testing::HasSubstr("linha 3,"));
  EXPECT_EQ(reader_.Customers(), -1);
}

TEST_F(AuditFileReaderTest, CloseOfAClosedReaderSucceedsAndClearsTheException) {
  EXPECT_FALSE(reader_.OpenAuditFile());
  EXPECT_TRUE(reader_.CloseAuditFile());
  EXPECT_THAT(reader_, RecordedNothing());
}

TEST_F(AuditFileReaderTest, CustomersOnAClosedReaderAreMinusOne) {
  EXPECT_EQ(reader_.Customers(), -1);
  EXPECT_THAT(reader_, Recorded(kNotStarted, "AuditFileReader.Customers"));
}

TEST_F(AuditFileReaderTest, CountsEveryKind) {
  OpenSample({.customers = 3, .transactions = 4, .invoices = 5});
  EXPECT_EQ(reader_.Customers(), 3);
  EXPECT_EQ(reader_.Suppliers(), 1);
  EXPECT_EQ(reader_.Products(), 1);
  EXPECT_EQ(reader_.GeneralLedgers(), 1);
  EXPECT_EQ(reader_.TaxTableEntrys(), 1);
  EXPECT_EQ(reader_.Invoices(), 5);
  EXPECT_EQ(reader_.Journals(), 1);
  EXPECT_EQ(reader_.Transactions(), 4);
}

TEST_F(AuditFileReaderTest, CountsTransactionsOfOneJournalOrOfAll) {
  Open(kTwoJournals);
  EXPECT_EQ(reader_.Transactions(SampleJournal("A").get()), 4);
  EXPECT_EQ(reader_.Transactions(SampleJournal("B").get()), 1);
  EXPECT_EQ(reader_.Transactions(SampleJournal("C").get()), 0);
  EXPECT_EQ(reader_.Transactions(), 5);
}

TEST_F(AuditFileReaderTest, CountsNothingInAFileWithoutSections) {
  Open("");
  for (const ReadOperation& operation : ReadsAndCounts()) {
    if (!std::string_view(operation.name).starts_with("Read")) {
      EXPECT_TRUE(operation.call(reader_)) << operation.name;
    }
  }
  EXPECT_EQ(reader_.Customers(), 0);
  EXPECT_EQ(reader_.TaxTableEntrys(), 0);
  EXPECT_EQ(reader_.Invoices(), 0);
  EXPECT_EQ(reader_.Journals(), 0);
  EXPECT_EQ(reader_.Transactions(), 0);
  EXPECT_EQ(reader_.Transactions(SampleJournal("A").get()), 0);
}

TEST_F(AuditFileReaderTest, WalksToTheEndAndStaysThere) {
  Open(kThreeCustomers);
  EXPECT_EQ(NextCustomer(), "C1");
  EXPECT_EQ(NextCustomer(), "C2");
  EXPECT_EQ(NextCustomer(), "C3");
  EXPECT_EQ(NextCustomer(), "none");
  EXPECT_EQ(NextCustomer(), "none");
  EXPECT_THAT(reader_, RecordedNothing());
}

TEST_F(AuditFileReaderTest, EachReadGivesANewRecord) {
  Open(kThreeCustomers);
  NextCustomer();
  const auto first = customer_;
  NextCustomer();
  EXPECT_NE(customer_, first);
  EXPECT_EQ(first->CustomerID(), "C1");
}

TEST_F(AuditFileReaderTest, FirstReadGivesNoneInAFileWithoutTheKind) {
  Open("<MasterFiles/>");
  customer_ = SampleCustomer("left over");
  EXPECT_EQ(NextCustomer(), "none");
}

TEST_F(AuditFileReaderTest, CountsDoNotDisturbAWalk) {
  Open(kThreeCustomers);
  EXPECT_EQ(NextCustomer(), "C1");
  EXPECT_EQ(reader_.Customers(), 3);
  EXPECT_EQ(NextCustomer(), "C2");
}

TEST_F(AuditFileReaderTest, KindsAreWalkedIndependently) {
  OpenSample({.customers = 2, .transactions = 2, .invoices = 2});
  const auto journal = SampleJournal("D1");
  std::shared_ptr<Invoice> invoice;
  EXPECT_EQ(NextCustomer(), "C1");
  EXPECT_EQ(NextTransaction(*journal), "2010-03-01 D1 1");
  ASSERT_TRUE(reader_.ReadInvoice(invoice));
  EXPECT_EQ(invoice->InvoiceNo(), "FT A/1");
  EXPECT_EQ(NextTransaction(*journal), "2010-03-01 D1 2");
  ASSERT_TRUE(reader_.ReadInvoice(invoice));
  EXPECT_EQ(invoice->InvoiceNo(), "FT A/2");
  EXPECT_EQ(NextCustomer(), "C2");
}

TEST_F(AuditFileReaderTest, RecordsThatStandAloneAreReadAfreshEveryTime) {
  OpenSample({.customers = 1, .transactions = 3, .invoices = 4});
  for (int time = 1; time <= 2; ++time) {
    std::shared_ptr<Header> header;
    std::shared_ptr<GeneralLedgerEntries> entries;
    std::shared_ptr<SalesInvoices> invoices;
    ASSERT_TRUE(reader_.ReadHeader(header));
    ASSERT_TRUE(reader_.ReadGeneralLedgerEntries(entries));
    ASSERT_TRUE(reader_.ReadSalesInvoices(invoices));
    EXPECT_EQ(header->CompanyName(), "Empresa & Irmãos, S.A.");
    EXPECT_EQ(entries->NumberOfEntries(), 3);
    EXPECT_EQ(entries->TotalDebit(), Amount(30));
    EXPECT_EQ(invoices->NumberOfEntries(), 4);
    EXPECT_EQ(invoices->TotalCredit(), Amount(40));
  }
}

TEST_F(AuditFileReaderTest, AnotherJournalBeginsAnewAndSoDoesTheFirstOneAfterIt) {
  Open(kTwoJournals);
  const auto a = SampleJournal("A");
  const auto b = SampleJournal("B");
  EXPECT_EQ(NextTransaction(*a), "A1");
  EXPECT_EQ(NextTransaction(*a), "A2");
  EXPECT_EQ(NextTransaction(*a), "A3");
  EXPECT_EQ(NextTransaction(*b), "B1");
  EXPECT_EQ(NextTransaction(*a), "A1");
}

TEST_F(AuditFileReaderTest, JournalIsToldByItsIdentifierNotByTheObject) {
  Open(kTwoJournals);
  EXPECT_EQ(NextTransaction(*SampleJournal("A")), "A1");
  EXPECT_EQ(NextTransaction(*SampleJournal("A")), "A2");
}

TEST_F(AuditFileReaderTest, TransactionsOfAJournalEndAndStayAtTheEnd) {
  Open(kTwoJournals);
  const auto b = SampleJournal("B");
  EXPECT_EQ(NextTransaction(*b), "B1");
  EXPECT_EQ(NextTransaction(*b), "none");
  EXPECT_EQ(NextTransaction(*b), "none");
}

TEST_F(AuditFileReaderTest, FirstJournalWithAnEmptyIdentifierYieldsNoTransaction) {
  Open(
      "<GeneralLedgerEntries><Journal><JournalID></JournalID><Transaction><TransactionID>T</TransactionID>"
      "</Transaction></Journal></GeneralLedgerEntries>");
  EXPECT_EQ(NextTransaction(Journal()), "none");
}

TEST_F(AuditFileReaderTest, FailureAtTheFirstRecordOfAKindLeavesTheWalkToBegin) {
  Open("<MasterFiles><Customer><CustomerID>C1</CustomerID></Customer></MasterFiles>");
  for (int time = 1; time <= 2; ++time) {
    EXPECT_FALSE(reader_.ReadCustomer(customer_));
    EXPECT_THAT(reader_, RecordedError(kTypeMismatch, "ZevoAdapters11", Not(IsEmpty())));
  }
}

TEST_F(AuditFileReaderTest, FailureAtALaterRecordIsPassedOver) {
  Open(
      "<MasterFiles>"
      "<Customer><CustomerID>C1</CustomerID><SelfBillingIndicator>0</SelfBillingIndicator></Customer>"
      "<Customer><CustomerID>C2</CustomerID><SelfBillingIndicator>talvez</SelfBillingIndicator></Customer>"
      "<Customer><CustomerID>C3</CustomerID><SelfBillingIndicator>0</SelfBillingIndicator></Customer>"
      "</MasterFiles>");
  EXPECT_EQ(NextCustomer(), "C1");
  EXPECT_FALSE(reader_.ReadCustomer(customer_));
  EXPECT_THAT(reader_, RecordedError(kTypeMismatch, "ZevoAdapters11", Not(IsEmpty())));
  EXPECT_EQ(NextCustomer(), "C3");
}

TEST_F(AuditFileReaderTest, FailureAtTheFirstTransactionLeavesTheJournalToBegin) {
  Open(
      "<GeneralLedgerEntries><Journal><JournalID>A</JournalID>"
      "<Transaction><TransactionID>A1</TransactionID><Line><RecordID>1</RecordID></Line><Line><RecordID>1</RecordID>"
      "</Line></Transaction><Transaction><TransactionID>A2</TransactionID></Transaction>"
      "</Journal></GeneralLedgerEntries>");
  for (int time = 1; time <= 2; ++time) {
    EXPECT_FALSE(reader_.ReadTransaction(transaction_, *SampleJournal("A")));
    EXPECT_THAT(reader_, RecordedError(kDuplicateKey, "ZevoAdapters11", Not(IsEmpty())));
  }
}

TEST_F(AuditFileReaderTest, TransactionOfAnUnknownJournalFailsAndAnotherJournalIsRead) {
  Open(kTwoJournals);
  EXPECT_FALSE(reader_.ReadTransaction(transaction_, *SampleJournal("C")));
  EXPECT_THAT(reader_, Recorded(kJournalMissing, "TransactionDALC.ReadTransaction"));
  EXPECT_EQ(NextTransaction(*SampleJournal("B")), "B1");
}

TEST_F(AuditFileReaderTest, JournalIdentifierWithADoubleQuoteFindsNoOtherJournal) {
  Open(kTwoJournals);
  const auto journal = SampleJournal("x\" or \"1\"=\"1");
  EXPECT_FALSE(reader_.ReadTransaction(transaction_, *journal));
  ASSERT_NE(reader_.AuditException(), nullptr);
  EXPECT_GT(reader_.AuditException()->Number(), 0);
  EXPECT_NE(reader_.AuditException()->Description(), "");
  EXPECT_EQ(reader_.Transactions(journal.get()), -1);
}

TEST_F(AuditFileReaderTest, ReadHeaderWithoutAHeaderEmptiesTheVariable) {
  Open("");
  auto header = SampleHeader();
  EXPECT_FALSE(reader_.ReadHeader(header));
  EXPECT_THAT(reader_, Recorded(kHeaderMissing, "HeaderDALC.ReadHeader"));
  EXPECT_EQ(header, nullptr);
}

TEST_F(AuditFileReaderTest, FailureAmongTheSalesInvoicesLeavesTheVariableAsItWas) {
  Open(
      "<SourceDocuments><SalesInvoices><Invoice><InvoiceNo>FT A/1</InvoiceNo><Line/></Invoice></SalesInvoices>"
      "</SourceDocuments>");
  const auto before = SampleInvoice(1, "C1", "P1");
  auto invoice = before;
  EXPECT_FALSE(reader_.ReadInvoice(invoice));
  EXPECT_THAT(reader_, RecordedError(kTypeMismatch, "ZevoAdapters11", Not(IsEmpty())));
  EXPECT_EQ(invoice, before);
  std::shared_ptr<SalesInvoices> none;
  EXPECT_FALSE(reader_.ReadSalesInvoices(none));
  EXPECT_THAT(reader_, RecordedError(kTypeMismatch, "ZevoAdapters11", Not(IsEmpty())));
  EXPECT_EQ(none, nullptr);
}

// What mappers raise reaches the host as they raised it.

struct MissingSection {
  const char* operation;
  const LibraryMessage* message;
  const char* source;
};

void PrintTo(const MissingSection& missing, std::ostream* out) { *out << missing.operation; }

class AuditFileReaderMissingSectionTest : public AuditFileReaderTest,
                                          public ::testing::WithParamInterface<MissingSection> {};

TEST_P(AuditFileReaderMissingSectionTest, IsReportedByTheMapper) {
  Open("<MasterFiles/>");
  EXPECT_FALSE(ReadOperationNamed(GetParam().operation).call(reader_));
  EXPECT_THAT(reader_, Recorded(*GetParam().message, GetParam().source));
}

INSTANTIATE_TEST_SUITE_P(EverySection, AuditFileReaderMissingSectionTest,
                         Values(MissingSection{"ReadHeader", &kHeaderMissing, "HeaderDALC.ReadHeader"},
                                MissingSection{"ReadGeneralLedgerEntries", &kMessage202,
                                               "GeneralLedgerEntriesDALC.ReadGeneralLedgerEntries"},
                                MissingSection{"ReadJournal", &kMessage201, "JournalDALC.ReadJournal"},
                                MissingSection{"ReadTransaction", &kJournalMissing, "TransactionDALC.ReadTransaction"},
                                MissingSection{"ReadSalesInvoices", &kSalesInvoicesMissing,
                                               "SalesInvoicesDALC.ReadSalesInvoices"},
                                MissingSection{"ReadInvoice", &kSalesInvoicesMissing, "InvoiceDALC.ReadInvoice"}));

struct BadValue {
  const char* operation;
  const char* content;
};

void PrintTo(const BadValue& bad, std::ostream* out) { *out << bad.operation << " of " << bad.content; }

class AuditFileReaderBadValueTest : public AuditFileReaderTest, public ::testing::WithParamInterface<BadValue> {};

TEST_P(AuditFileReaderBadValueTest, IsATypeMismatch) {
  Open(GetParam().content);
  EXPECT_FALSE(ReadOperationNamed(GetParam().operation).call(reader_));
  EXPECT_THAT(reader_, RecordedError(kTypeMismatch, "ZevoAdapters11", Not(IsEmpty())));
}

INSTANTIATE_TEST_SUITE_P(
    EveryStrictConversion, AuditFileReaderBadValueTest,
    Values(BadValue{"ReadCustomer", "<MasterFiles><Customer/></MasterFiles>"},
           BadValue{"ReadCustomer",
                    "<MasterFiles><Customer><SelfBillingIndicator>sim</SelfBillingIndicator></Customer></MasterFiles>"},
           BadValue{"ReadTaxTableEntry",
                    "<MasterFiles><TaxTable><TaxTableEntry><TaxPercentage>23</TaxPercentage></TaxTableEntry></TaxTable>"
                    "</MasterFiles>"},
           BadValue{"ReadTaxTableEntry",
                    "<MasterFiles><TaxTable><TaxTableEntry><TaxAmount>23</TaxAmount></TaxTableEntry></TaxTable>"
                    "</MasterFiles>"},
           BadValue{"ReadTaxTable",
                    "<MasterFiles><TaxTable><TaxTableEntry><TaxPercentage>23</TaxPercentage></TaxTableEntry></TaxTable>"
                    "</MasterFiles>"},
           BadValue{"ReadGeneralLedgerEntries", "<GeneralLedgerEntries/>"},
           BadValue{"ReadSalesInvoices", "<SourceDocuments><SalesInvoices/></SourceDocuments>"},
           BadValue{"ReadInvoice",
                    "<SourceDocuments><SalesInvoices><Invoice><Line><Quantity>1</Quantity></Line></Invoice>"
                    "</SalesInvoices></SourceDocuments>"},
           BadValue{"ReadInvoice",
                    "<SourceDocuments><SalesInvoices><Invoice><Line><LineNumber>1</LineNumber></Line></Invoice>"
                    "</SalesInvoices></SourceDocuments>"}));

TEST_F(AuditFileReaderTest, TaxTableWithBothValuesInEveryEntryIsReadWhole) {
  constexpr std::string_view kEntry =
      "<TaxTableEntry><TaxCode>NOR</TaxCode><TaxPercentage>23</TaxPercentage><TaxAmount>0</TaxAmount></TaxTableEntry>";
  Open("<MasterFiles><TaxTable>" + std::string(kEntry) + std::string(kEntry) + "</TaxTable></MasterFiles>");
  for (int time = 1; time <= 2; ++time) {
    std::shared_ptr<TaxTable> table;
    ASSERT_TRUE(reader_.ReadTaxTable(table)) << Told(reader_.AuditException());
    ASSERT_EQ(table->TaxTableEntry()->Count(), 2);
    EXPECT_EQ(table->TaxTableEntry()->Item(2)->TaxPercentage(), Amount(23));
  }
}

// Closing.

TEST_F(AuditFileReaderTest, FailedOpenDoesNotStopLaterWalks) {
  reader_.set_AuditFileName(folder_.Write("malformed.xml", "<AuditFile>"));
  EXPECT_FALSE(reader_.OpenAuditFile());
  Open(kThreeCustomers);
  EXPECT_EQ(NextCustomer(), "C1");
}

TEST_F(AuditFileReaderTest, OnceClosedWalksNothingButStillCountsAndReadsWhatStandsAlone) {
  OpenSample();
  EXPECT_TRUE(reader_.CloseAuditFile());
  SaveSampleFile(folder_.Path("second.xml"), {.customers = 7, .transactions = 8, .invoices = 9});
  reader_.set_AuditFileName(folder_.Path("second.xml"));
  ASSERT_TRUE(reader_.OpenAuditFile());

  EXPECT_EQ(NextCustomer(), "none");
  EXPECT_EQ(NextTransaction(*SampleJournal("D1")), "none");
  auto journal = SampleJournal("left over");
  auto invoice = SampleInvoice(1, "C1", "P1");
  std::shared_ptr<TaxTable> table;
  EXPECT_TRUE(reader_.ReadJournal(journal));
  EXPECT_TRUE(reader_.ReadInvoice(invoice));
  EXPECT_TRUE(reader_.ReadTaxTable(table));
  EXPECT_EQ(journal, nullptr);
  EXPECT_EQ(invoice, nullptr);
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->TaxTableEntry()->Count(), 0);

  EXPECT_EQ(reader_.Customers(), 7);
  EXPECT_EQ(reader_.Transactions(SampleJournal("D1").get()), 8);
  EXPECT_EQ(reader_.Invoices(), 9);
  std::shared_ptr<Header> header;
  std::shared_ptr<SalesInvoices> invoices;
  EXPECT_TRUE(reader_.ReadHeader(header));
  EXPECT_TRUE(reader_.ReadSalesInvoices(invoices));
  EXPECT_EQ(header->CompanyID(), "12345");
  EXPECT_EQ(invoices->NumberOfEntries(), 9);
}

TEST_F(AuditFileReaderTest, ClosedBeforeItsFirstFileWalksNothing) {
  EXPECT_TRUE(reader_.CloseAuditFile());
  Open(kThreeCustomers);
  EXPECT_EQ(NextCustomer(), "none");
  EXPECT_EQ(reader_.Customers(), 3);
}

TEST_F(AuditFileReaderTest, AnotherReaderReadsTheSameFileAgain) {
  Open(kThreeCustomers);
  EXPECT_EQ(NextCustomer(), "C1");
  AuditFileReader other;
  other.set_AuditFileName(reader_.AuditFileName());
  ASSERT_TRUE(other.OpenAuditFile());
  ASSERT_TRUE(other.ReadCustomer(customer_));
  EXPECT_EQ(customer_->CustomerID(), "C1");
}

TEST_F(AuditFileReaderTest, FileMayBeReplacedWhileItIsOpen) {
  Open(kThreeCustomers);
  folder_.Write("saft.xml", "something else");
  EXPECT_EQ(NextCustomer(), "C1");
  EXPECT_EQ(reader_.Customers(), 3);
}

}  // namespace
}  // namespace zevo
