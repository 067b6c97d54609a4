// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/Errors.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using testing::kAlreadyStarted;
using testing::kFileExists;
using testing::kJournalMissing;
using testing::kMessage201;
using testing::kNoFileName;
using testing::kNotStarted;
using testing::kSalesInvoicesMissing;
using testing::ReadBytes;
using testing::Recorded;
using testing::RecordedNothing;
using testing::TemporaryFolder;

struct StreamOperation {
  std::string name;
  std::function<bool(AuditFileStreamWriter&)> call;

  bool Writes() const { return !name.starts_with("End"); }
};

std::shared_ptr<TaxTable> TableOfOneEntry() {
  auto table = std::make_shared<TaxTable>();
  table->TaxTableEntry()->Add(std::make_shared<TaxTableEntry>());
  return table;
}

const std::vector<StreamOperation>& StreamOperations() {
  static const std::vector<StreamOperation> operations = {
      {"CreateHeader", [](auto& file) { return file.CreateHeader(Header()); }},
      {"CreateGeneralLedger", [](auto& file) { return file.CreateGeneralLedger(GeneralLedger()); }},
      {"CreateCustomer", [](auto& file) { return file.CreateCustomer(Customer()); }},
      {"CreateSupplier", [](auto& file) { return file.CreateSupplier(Supplier()); }},
      {"CreateTaxTable", [](auto& file) { return file.CreateTaxTable(*TableOfOneEntry()); }},
      {"CreateProduct", [](auto& file) { return file.CreateProduct(Product()); }},
      {"BeginGeneralLedgerEntries", [](auto& file) { return file.BeginGeneralLedgerEntries(GeneralLedgerEntries()); }},
      {"EndGeneralLedgerEntries", [](auto& file) { return file.EndGeneralLedgerEntries(); }},
      {"BeginJournal", [](auto& file) { return file.BeginJournal(Journal()); }},
      {"EndJournal", [](auto& file) { return file.EndJournal(); }},
      {"CreateTransaction", [](auto& file) { return file.CreateTransaction(Transaction()); }},
      {"BeginSalesInvoices", [](auto& file) { return file.BeginSalesInvoices(SalesInvoices()); }},
      {"EndSalesInvoices", [](auto& file) { return file.EndSalesInvoices(); }},
      {"CreateInvoice", [](auto& file) { return file.CreateInvoice(Invoice()); }},
  };
  return operations;
}

class AuditFileStreamWriterTest : public ::testing::Test {
 protected:
  AuditFileStreamWriterTest() { file_.set_AuditFileName(folder_.Path("audit.xml")); }
  std::string Bytes() const { return ReadBytes(folder_.Path("audit.xml")); }

  testing::UseSchema schema_;
  TemporaryFolder folder_;
  AuditFileStreamWriter file_;
};

TEST_F(AuditFileStreamWriterTest, EveryRecordOperationNeedsAFileBegun) {
  for (const StreamOperation& operation : StreamOperations()) {
    EXPECT_FALSE(operation.call(file_));
    EXPECT_THAT(file_, Recorded(kNotStarted, "AuditFileStreamWriter." + operation.name));
  }
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(AuditFileStreamWriterTest, CreatingWithoutANameFailsAndCreatesNoFile) {
  file_.set_AuditFileName("");
  EXPECT_FALSE(file_.CreateAuditFile());
  EXPECT_THAT(file_, Recorded(kNoFileName, "AuditFileStreamWriter.CreateAuditFile"));
}

TEST_F(AuditFileStreamWriterTest, CreatingAnExistingFileLeavesItUntouched) {
  folder_.Write("audit.xml", "what was there");
  EXPECT_FALSE(file_.CreateAuditFile());
  EXPECT_THAT(file_, Recorded(kFileExists, "AuditFileStreamWriter.CreateAuditFile"));
  EXPECT_EQ(Bytes(), "what was there");
}

TEST_F(AuditFileStreamWriterTest, CreatingASecondTimeWhileWritingDoesNotDisturbTheFile) {
  ASSERT_TRUE(file_.CreateAuditFile());
  ASSERT_TRUE(file_.CreateCustomer(*testing::SampleCustomer("C1")));
  file_.set_AuditFileName("");
  EXPECT_FALSE(file_.CreateAuditFile());
  EXPECT_THAT(file_, Recorded(kAlreadyStarted, "AuditFileStreamWriter.CreateAuditFile"));
  EXPECT_TRUE(file_.CreateCustomer(*testing::SampleCustomer("C2")));
  EXPECT_TRUE(file_.CloseAuditFile());
  EXPECT_NE(Bytes().find("<CustomerID>C2</CustomerID>"), std::string::npos);
}

TEST_F(AuditFileStreamWriterTest, ASuccessClearsTheFailureBefore) {
  EXPECT_FALSE(file_.EndJournal());
  EXPECT_TRUE(file_.CreateAuditFile());
  EXPECT_THAT(file_, RecordedNothing());
}

TEST_F(AuditFileStreamWriterTest, ClosingBeforeAnyFileWasBegunSucceeds) {
  EXPECT_TRUE(file_.CloseAuditFile());
  EXPECT_THAT(file_, RecordedNothing());
}

TEST_F(AuditFileStreamWriterTest, EndOfAJournalAddsNothingAndItsTagComesBeforeTheNextJournal) {
  ASSERT_TRUE(file_.CreateAuditFile());
  ASSERT_TRUE(file_.BeginGeneralLedgerEntries(GeneralLedgerEntries()));
  for (const char* id : {"A", "B"}) {
    ASSERT_TRUE(file_.BeginJournal(*testing::SampleJournal(id)));
    ASSERT_TRUE(file_.CreateTransaction(*testing::SampleTransaction(1)));
    ASSERT_TRUE(file_.EndJournal());
  }
  ASSERT_TRUE(file_.EndGeneralLedgerEntries());
  ASSERT_TRUE(file_.CloseAuditFile());
  const std::string bytes = Bytes();
  EXPECT_NE(bytes.find("</Transaction></Journal><Journal><JournalID>B</JournalID>"), std::string::npos);
  EXPECT_TRUE(bytes.ends_with("</Transaction></Journal></GeneralLedgerEntries></AuditFile>"));
}

TEST_F(AuditFileStreamWriterTest, RecordsOutsideTheirSectionFail) {
  ASSERT_TRUE(file_.CreateAuditFile());
  EXPECT_FALSE(file_.BeginJournal(Journal()));
  EXPECT_THAT(file_, Recorded(kMessage201, "JournalDALC.CreateJournal"));
  EXPECT_FALSE(file_.CreateTransaction(Transaction()));
  EXPECT_THAT(file_, Recorded(kJournalMissing, "TransactionDALC.CreateTransaction"));
  EXPECT_FALSE(file_.CreateInvoice(Invoice()));
  EXPECT_THAT(file_, Recorded(kSalesInvoicesMissing, "InvoiceDALC.CreateInvoice"));
}

// The totals are known beforehand here; otherwise the two façades put the same elements into a file.
TEST_F(AuditFileStreamWriterTest, AWholeFileIsValidAndReadsAsTheOneMadeInMemory) {
  GeneralLedgerEntries entries;
  entries.set_NumberOfEntries(1);
  entries.set_TotalDebit(10);
  entries.set_TotalCredit(10);
  SalesInvoices invoices;
  invoices.set_NumberOfEntries(1);
  invoices.set_TotalCredit(10);
  const auto journal = testing::SampleJournal("VENDAS");

  AuditFile inMemory;
  inMemory.set_AuditFileName(folder_.Path("memory.xml"));
  ASSERT_TRUE(inMemory.CreateAuditFile());
  ASSERT_TRUE(inMemory.CreateHeader(*testing::SampleHeader()));
  ASSERT_TRUE(inMemory.CreateCustomer(*testing::SampleCustomer("C1")));
  ASSERT_TRUE(inMemory.CreateProduct(*testing::SampleProduct("P1")));
  ASSERT_TRUE(inMemory.CreateGeneralLedgerEntries(entries));
  ASSERT_TRUE(inMemory.CreateJournal(*journal));
  ASSERT_TRUE(inMemory.CreateTransaction(*testing::SampleTransaction(1), journal.get()));
  ASSERT_TRUE(inMemory.CreateSalesInvoices(invoices));
  ASSERT_TRUE(inMemory.CreateInvoice(*testing::SampleInvoice(1, "C1", "P1")));
  ASSERT_TRUE(inMemory.UpdateAuditFile());

  ASSERT_TRUE(file_.CreateAuditFile());
  ASSERT_TRUE(file_.CreateHeader(*testing::SampleHeader()));
  ASSERT_TRUE(file_.CreateCustomer(*testing::SampleCustomer("C1")));
  ASSERT_TRUE(file_.CreateProduct(*testing::SampleProduct("P1")));
  ASSERT_TRUE(file_.BeginGeneralLedgerEntries(entries));
  ASSERT_TRUE(file_.BeginJournal(*journal));
  ASSERT_TRUE(file_.CreateTransaction(*testing::SampleTransaction(1)));
  ASSERT_TRUE(file_.BeginSalesInvoices(invoices));
  ASSERT_TRUE(file_.CreateInvoice(*testing::SampleInvoice(1, "C1", "P1")));
  ASSERT_TRUE(file_.CloseAuditFile());

  inMemory.CloseAuditFile();
  inMemory.set_AuditFileName(folder_.Path("audit.xml"));
  EXPECT_TRUE(inMemory.ValidateAuditFile()) << inMemory.AuditException()->Description();
  // Opened and saved in memory, the streamed file becomes the other one, byte for byte.
  ASSERT_TRUE(inMemory.OpenAuditFile());
  ASSERT_TRUE(inMemory.UpdateAuditFile());
  EXPECT_EQ(Bytes(), ReadBytes(folder_.Path("memory.xml")));
}

TEST_F(AuditFileStreamWriterTest, AFullDiskIsThrownByCloseAndTheFileIsClosedAllTheSame) {
  file_.set_AuditFileName("/dev/full");
  ASSERT_TRUE(file_.CreateAuditFile());
  ASSERT_TRUE(file_.CreateCustomer(*testing::SampleCustomer("C1")));
  EXPECT_ERROR(file_.CloseAuditFile(), RunTimeError::kDiskFull, "ZevoAdapters11");
  EXPECT_FALSE(file_.EndJournal());
  EXPECT_THAT(file_, Recorded(kNotStarted, "AuditFileStreamWriter.EndJournal"));
  EXPECT_TRUE(file_.CloseAuditFile());
}

TEST_F(AuditFileStreamWriterTest, AFullDiskShowsInTheRecordThatFillsTheBuffer) {
  file_.set_AuditFileName("/dev/full");
  ASSERT_TRUE(file_.CreateAuditFile());
  bool good = true;
  for (int i = 0; good && i < 10'000; ++i) good = file_.CreateCustomer(*testing::SampleCustomer("C1"));
  ASSERT_FALSE(good);
  EXPECT_THAT(file_, testing::RecordedError(testing::kDiskFull, "ZevoAdapters11",
                                            ::testing::HasSubstr("No space left on device")));
}

// Whatever was open when the write was lost, and whatever comes first after it.
TEST_F(AuditFileStreamWriterTest, EveryOperationThatWritesFailsWithTheWriteThatWasLostUntilTheFileIsClosed) {
  const struct {
    std::string name;
    std::function<bool(AuditFileStreamWriter&)> begin;
    std::function<bool(AuditFileStreamWriter&)> goOn;
  } kStates[] = {
      {"master files", [](auto&) { return true; },
       [](auto& file) { return file.CreateCustomer(*testing::SampleCustomer("C1")); }},
      {"a journal",
       [](auto& file) {
         return file.BeginGeneralLedgerEntries(GeneralLedgerEntries()) &&
                file.BeginJournal(*testing::SampleJournal("J"));
       },
       [](auto& file) { return file.CreateTransaction(*testing::SampleTransaction(1)); }},
      {"sales invoices", [](auto& file) { return file.BeginSalesInvoices(SalesInvoices()); },
       [](auto& file) { return file.CreateInvoice(*testing::SampleInvoice(1, "C1", "P1")); }},
  };
  for (const auto& state : kStates) {
    for (size_t first = 0; first < StreamOperations().size(); ++first) {
      SCOPED_TRACE(state.name + ", " + StreamOperations()[first].name);
      file_.set_AuditFileName("/dev/full");
      ASSERT_TRUE(file_.CreateAuditFile());
      ASSERT_TRUE(state.begin(file_));
      bool good = true;
      for (int i = 0; good && i < 10'000; ++i) good = state.goOn(file_);
      ASSERT_FALSE(good);
      const auto lost = file_.AuditException();
      ASSERT_THAT(file_, testing::RecordedError(testing::kDiskFull, "ZevoAdapters11",
                                                ::testing::HasSubstr("No space left on device: /dev/full")));

      for (size_t i = 0; i < StreamOperations().size() * 2; ++i) {
        const StreamOperation& operation = StreamOperations()[(first + i) % StreamOperations().size()];
        EXPECT_EQ(operation.call(file_), !operation.Writes()) << operation.name;
        if (operation.Writes()) {
          EXPECT_THAT(file_, testing::RecordedError(lost->Number(), lost->Source(), lost->Description()));
        } else {
          EXPECT_THAT(file_, RecordedNothing());
        }
      }
      EXPECT_TRUE(file_.CreateTaxTable(TaxTable())) << "a table without entries writes nothing";
      const Error thrown = testing::ErrorOf([&] { file_.CloseAuditFile(); });
      EXPECT_EQ(thrown.Number(), lost->Number());
      EXPECT_EQ(thrown.Source(), lost->Source());
      EXPECT_EQ(thrown.Description(), lost->Description());
    }
  }

  file_.set_AuditFileName(folder_.Path("audit.xml"));
  ASSERT_TRUE(file_.CreateAuditFile());
  EXPECT_TRUE(file_.CreateCustomer(*testing::SampleCustomer("C1")));
  EXPECT_TRUE(file_.CloseAuditFile());
  EXPECT_TRUE(Bytes().ends_with("</Customer></MasterFiles></AuditFile>"));
}

TEST_F(AuditFileStreamWriterTest, AnAbandonedObjectLeavesAWellFormedFile) {
  {
    AuditFileStreamWriter abandoned;
    abandoned.set_AuditFileName(folder_.Path("abandoned.xml"));
    ASSERT_TRUE(abandoned.CreateAuditFile());
    ASSERT_TRUE(abandoned.CreateCustomer(*testing::SampleCustomer("C1")));
  }
  EXPECT_TRUE(ReadBytes(folder_.Path("abandoned.xml")).ends_with("</Customer></MasterFiles></AuditFile>"));
}

}  // namespace
}  // namespace zevo
