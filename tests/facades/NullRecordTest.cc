// SPDX-License-Identifier: Apache-2.0
#include <zevo/facades/NullRecord.h>

#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/facades/Expectations.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using namespace zevo::testing;

constexpr const char* kObjectNotSetText = "Variável de objeto não definida.";

// What stands in the file when an operation is given no record.
enum class Begun { kNothing, kEntries, kSales };

/// A check that comes before the record is looked into.
struct Refusal {
  LibraryMessage message;
  const char* source;
};

template <class File>
struct Operation {
  std::string name;
  std::function<bool(File&)> call;
  std::map<Begun, Refusal> refused = {};  // elsewhere it is the record that is missing
};

template <class File, class R>
Operation<File> Writes(const char* name, bool (File::*member)(const R&), std::map<Begun, Refusal> refused = {}) {
  return {name, [member](File& file) { return (file.*member)(NullRecord<R>::Or(nullptr)); }, std::move(refused)};
}

constexpr Refusal kEntriesExist{kMessage201, "GeneralLedgerEntriesDALC.CreateGeneralLedgerEntries"};
constexpr Refusal kEntriesMissing{kMessage202, "GeneralLedgerEntriesDALC.UpdateGeneralLedgerEntries"};
constexpr Refusal kNoEntriesForAJournal{kMessage201, "JournalDALC.CreateJournal"};
constexpr Refusal kNoJournal{kJournalMissing, "TransactionDALC.CreateTransaction"};
constexpr Refusal kSalesExist{kSalesInvoicesExist, "SalesInvoicesDALC.CreateSalesInvoices"};
constexpr Refusal kSalesMissing{kSalesInvoicesMissing, "SalesInvoicesDALC.UpdateSalesInvoices"};
constexpr Refusal kNoSalesForAnInvoice{kSalesInvoicesMissing, "InvoiceDALC.CreateInvoice"};

/// Its document keeps every section, and takes them in any order.
struct InMemory {
  using File = AuditFile;
  static constexpr const char* kName = "AuditFile";
  static bool Begin(File& file, Begun begun) {
    if (begun == Begun::kNothing) return true;
    const bool entries = file.CreateHeader(*SampleHeader()) &&
                         file.CreateGeneralLedgerEntries(GeneralLedgerEntries()) &&
                         file.CreateJournal(*SampleJournal("D1"));
    return begun == Begun::kEntries ? entries : entries && file.CreateSalesInvoices(SalesInvoices());
  }
  static bool Finish(File& file) { return file.UpdateAuditFile() && file.CloseAuditFile(); }
  static std::vector<Operation<File>> Operations() {
    const Refusal header_exists{kHeaderExists, "HeaderDALC.CreateHeader"};
    return {
        Writes("CreateHeader", &File::CreateHeader, {{Begun::kEntries, header_exists}, {Begun::kSales, header_exists}}),
        Writes("CreateGeneralLedger", &File::CreateGeneralLedger),
        Writes("CreateCustomer", &File::CreateCustomer),
        Writes("CreateSupplier", &File::CreateSupplier),
        Writes("CreateTaxTable", &File::CreateTaxTable),
        Writes("CreateTaxTableEntry", &File::CreateTaxTableEntry),
        Writes("CreateProduct", &File::CreateProduct),
        Writes("CreateGeneralLedgerEntries", &File::CreateGeneralLedgerEntries,
               {{Begun::kEntries, kEntriesExist}, {Begun::kSales, kEntriesExist}}),
        Writes("UpdateGeneralLedgerEntries", &File::UpdateGeneralLedgerEntries, {{Begun::kNothing, kEntriesMissing}}),
        Writes("CreateJournal", &File::CreateJournal, {{Begun::kNothing, kNoEntriesForAJournal}}),
        {"CreateTransaction",
         [](File& file) { return file.CreateTransaction(NullRecord<Transaction>::Or(nullptr), nullptr); },
         {{Begun::kNothing, kNoJournal}}},
        Writes("CreateSalesInvoices", &File::CreateSalesInvoices, {{Begun::kSales, kSalesExist}}),
        Writes("UpdateSalesInvoices", &File::UpdateSalesInvoices,
               {{Begun::kNothing, kSalesMissing}, {Begun::kEntries, kSalesMissing}}),
        {"CreateInvoice",
         [](File& file) { return file.CreateInvoice(NullRecord<Invoice>::Or(nullptr)); },
         {{Begun::kNothing, kNoSalesForAnInvoice}, {Begun::kEntries, kNoSalesForAnInvoice}}},
    };
  }
};

/// Knows what is open and nothing else.
struct FrontToBack {
  using File = AuditFileStreamWriter;
  static constexpr const char* kName = "AuditFileStreamWriter";
  static bool Begin(File& file, Begun begun) {
    if (begun == Begun::kNothing) return true;
    if (begun == Begun::kSales) return file.BeginSalesInvoices(SalesInvoices());
    return file.BeginGeneralLedgerEntries(GeneralLedgerEntries()) && file.BeginJournal(*SampleJournal("D1"));
  }
  static bool Finish(File& file) { return file.CloseAuditFile(); }
  static std::vector<Operation<File>> Operations() {
    return {
        Writes("CreateHeader", &File::CreateHeader),
        Writes("CreateGeneralLedger", &File::CreateGeneralLedger),
        Writes("CreateCustomer", &File::CreateCustomer),
        Writes("CreateSupplier", &File::CreateSupplier),
        Writes("CreateTaxTable", &File::CreateTaxTable),
        Writes("CreateProduct", &File::CreateProduct),
        Writes("BeginGeneralLedgerEntries", &File::BeginGeneralLedgerEntries, {{Begun::kEntries, kEntriesExist}}),
        Writes("BeginJournal", &File::BeginJournal,
               {{Begun::kNothing, kNoEntriesForAJournal}, {Begun::kSales, kNoEntriesForAJournal}}),
        Writes("CreateTransaction", &File::CreateTransaction,
               {{Begun::kNothing, kNoJournal}, {Begun::kSales, kNoJournal}}),
        Writes("BeginSalesInvoices", &File::BeginSalesInvoices, {{Begun::kSales, kSalesExist}}),
        Writes("CreateInvoice", &File::CreateInvoice,
               {{Begun::kNothing, kNoSalesForAnInvoice}, {Begun::kEntries, kNoSalesForAnInvoice}}),
    };
  }
};

template <class Way>
class NullRecordTest : public ::testing::Test {
 protected:
  using File = typename Way::File;

  static std::string SourceOf(const Operation<File>& operation) {
    return std::string(Way::kName) + "." + operation.name;
  }

  // The bytes of a file with `begun` in it, and `meanwhile` done then.
  template <class Meanwhile>
  std::string Saved(Begun begun, Meanwhile&& meanwhile) {
    const TemporaryFolder folder;
    File file;
    file.set_AuditFileName(folder.Path("saft.xml"));
    EXPECT_TRUE(file.CreateAuditFile());
    EXPECT_TRUE(Way::Begin(file, begun));
    meanwhile(file);
    EXPECT_TRUE(Way::Finish(file));
    return ReadBytes(folder.Path("saft.xml"));
  }

  UseSchema schema_;
};

using Ways = ::testing::Types<InMemory, FrontToBack>;
TYPED_TEST_SUITE(NullRecordTest, Ways);

TYPED_TEST(NullRecordTest, AClosedFileIsToldFirst) {
  for (const auto& operation : TypeParam::Operations()) {
    typename TestFixture::File file;
    EXPECT_FALSE(operation.call(file));
    EXPECT_THAT(file, Recorded(kNotStarted, this->SourceOf(operation)));
  }
}

TYPED_TEST(NullRecordTest, TheChecksBeforeTheRecordAreMadeAndThenItIsMissing) {
  for (const Begun begun : {Begun::kNothing, Begun::kEntries, Begun::kSales}) {
    for (const auto& operation : TypeParam::Operations()) {
      SCOPED_TRACE(operation.name + " " + std::to_string(static_cast<int>(begun)));
      this->Saved(begun, [&](auto& file) {
        EXPECT_FALSE(operation.call(file));
        const auto refusal = operation.refused.find(begun);
        if (refusal == operation.refused.end()) {
          EXPECT_THAT(file, RecordedError(91, "ZevoAdapters11", kObjectNotSetText));
        } else {
          EXPECT_THAT(file, Recorded(refusal->second.message, refusal->second.source));
        }
      });
    }
  }
}

TYPED_TEST(NullRecordTest, NothingIsWritten) {
  for (const Begun begun : {Begun::kNothing, Begun::kEntries, Begun::kSales}) {
    const std::string expected = this->Saved(begun, [](auto&) {});
    EXPECT_EQ(this->Saved(begun,
                          [](auto& file) {
                            for (const auto& operation : TypeParam::Operations()) operation.call(file);
                          }),
              expected);
  }
}

TYPED_TEST(NullRecordTest, ABlankRecordIsARecord) {
  EXPECT_FALSE(IsNull(TaxTable()));
  const Customer customer;
  EXPECT_EQ(&NullRecord<Customer>::Or(&customer), &customer);
  const std::string saved = this->Saved(Begun::kNothing, [&](auto& file) {
    EXPECT_TRUE(file.CreateTaxTable(TaxTable()));
    EXPECT_TRUE(file.CreateCustomer(customer));
  });
  EXPECT_NE(saved.find("<Customer>"), std::string::npos);
}

TEST(NullRecordTotalsTest, TotalsStayWhatTheyAre) {
  const UseSchema schema;
  const TemporaryFolder folder;
  AuditFile file;
  file.set_AuditFileName(folder.Path("saft.xml"));
  ASSERT_TRUE(file.CreateAuditFile());
  ASSERT_TRUE(InMemory::Begin(file, Begun::kSales));
  GeneralLedgerEntries entries;
  EXPECT_FALSE(file.CreateTransaction(NullRecord<Transaction>::Or(nullptr), SampleJournal("D1").get(), &entries));
  EXPECT_EQ(entries.NumberOfEntries(), 0);
  SalesInvoices sales;
  EXPECT_FALSE(file.CreateInvoice(NullRecord<Invoice>::Or(nullptr), &sales));
  EXPECT_EQ(sales.NumberOfEntries(), 0);
  // The journal is looked for before the transaction is.
  EXPECT_FALSE(file.CreateTransaction(NullRecord<Transaction>::Or(nullptr), SampleJournal("D2").get(), &entries));
  EXPECT_THAT(file, Recorded(kJournalMissing, "TransactionDALC.CreateTransaction"));
}

TEST(NullRecordJournalTest, TransactionsAreNotReadAndTheWalkGoesOn) {
  const UseSchema schema;
  const TemporaryFolder folder;
  SaveSampleFile(folder.Path("saft.xml"));
  const Journal& none = NullRecord<Journal>::Or(nullptr);
  AuditFileReader reader;
  std::shared_ptr<Transaction> transaction;
  EXPECT_FALSE(reader.ReadTransaction(transaction, none));
  EXPECT_THAT(reader, Recorded(kNotStarted, "AuditFileReader.ReadTransaction"));
  reader.set_AuditFileName(folder.Path("saft.xml"));
  ASSERT_TRUE(reader.OpenAuditFile());
  std::shared_ptr<Journal> journal;
  ASSERT_TRUE(reader.ReadJournal(journal));
  ASSERT_TRUE(reader.ReadTransaction(transaction, *journal));
  const std::shared_ptr<Transaction> first = transaction;
  EXPECT_FALSE(reader.ReadTransaction(transaction, none));
  EXPECT_THAT(reader, RecordedError(91, "ZevoAdapters11", kObjectNotSetText));
  EXPECT_EQ(transaction, first);
  ASSERT_TRUE(reader.ReadTransaction(transaction, *journal));
  ASSERT_NE(transaction, nullptr);
  EXPECT_NE(transaction->TransactionID(), first->TransactionID());
}

}  // namespace
}  // namespace zevo
