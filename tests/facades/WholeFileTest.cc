// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/facades/Contents.h"
#include "tests/facades/Expectations.h"
#include "tests/facades/RecordMaker.h"
#include "tests/facades/SampleFile.h"
#include "tests/support/RecordValues.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using namespace zevo::testing;
using ::testing::ContainerEq;
using ::testing::Values;

// As many records of a kind as the longest enumeration has values.
constexpr int kRecords = 13;

std::string Empty(const std::string&) { return ""; }
std::string False(const std::string&) { return "false"; }
std::string Zero(const std::string&) { return "0"; }
// From amounts of four decimals that end in 1234.
std::string TwoDecimals(const std::string& written) { return written.substr(0, written.size() - 2); }

struct Asymmetry {
  std::string_view path;
  std::string (*read)(const std::string& written);
  std::optional<Side> side;
};

// All that does not read back as it was written.
constexpr Asymmetry kAsymmetries[] = {
    {"Header.BusinessName", Empty, {}},
    {"Header.TaxEntity", Empty, {}},
    {"Header.SoftwareCertificateNumber", Empty, {}},
    {"Header.Website", Empty, {}},
    {"Supplier.AccountID", Empty, {}},
    {"Supplier.SelfBillingIndicator", False, {}},
    {"GeneralLedgerEntries.TotalDebit", TwoDecimals, {}},
    {"GeneralLedgerEntries.TotalCredit", TwoDecimals, {}},
    {"Transaction.Line.CreditAmount", Zero, Side::kBothWithDebit},
    {"SalesInvoices.TotalDebit", TwoDecimals, {}},
    {"SalesInvoices.TotalCredit", TwoDecimals, {}},
    {"Invoice.Hash", Empty, {}},
    {"Invoice.HashControl", Empty, {}},
    {"Invoice.SelfBillingIndicator", False, {}},
    {"Invoice.Line.CreditAmount", Zero, Side::kBothWithDebit},
    {"Invoice.Line.Tax.TaxAmount", Zero, Side::kBothWithDebit},
    {"Invoice.DocumentTotals.CurrencyValue.CurrencyCreditAmount", Zero, Side::kBothWithDebit},
};

std::string WithoutPositions(const std::string& path) {
  std::string plain;
  bool inside = false;
  for (const char c : path) {
    inside = inside || c == '[';
    if (!inside) plain += c;
    inside = inside && c != ']';
  }
  return plain;
}

// Records that hold everything, one transaction in each journal.
Contents Whole(Side side) {
  RecordMaker maker(side);
  Contents whole;
  whole.header = maker.Make<Header>("Header");
  whole.taxes = maker.Make<TaxTable>("TaxTable");
  whole.entries = maker.Make<GeneralLedgerEntries>("GeneralLedgerEntries");
  whole.sales = maker.Make<SalesInvoices>("SalesInvoices");
  for (int i = 0; i < kRecords; ++i) {
    whole.accounts.push_back(maker.Make<GeneralLedger>("GeneralLedger"));
    whole.customers.push_back(maker.Make<Customer>("Customer"));
    whole.suppliers.push_back(maker.Make<Supplier>("Supplier"));
    whole.products.push_back(maker.Make<Product>("Product"));
    whole.journals.push_back(maker.Make<Journal>("Journal"));
    whole.transactions.push_back({maker.Make<Transaction>("Transaction")});
    whole.invoices.push_back(maker.Make<Invoice>("Invoice"));
    Invoice& invoice = *whole.invoices.back();
    invoice.set_CustomerID(whole.customers.back()->CustomerID());
    for (const auto& line : *invoice.Line()) line->set_ProductCode(whole.products.back()->ProductCode());
  }
  return whole;
}

class WholeFileTest : public ::testing::TestWithParam<Side> {
 protected:
  void Save(const Contents& whole) {
    AuditFile file;
    file.set_AuditFileName(path_);
    ASSERT_TRUE(Write(file, whole)) << Told(file.AuditException());
  }

  void Open() {
    reader_.set_AuditFileName(path_);
    ASSERT_TRUE(reader_.OpenAuditFile()) << Told(reader_.AuditException());
  }

  // The values as they are to be read back.
  static RecordValues AsRead(RecordValues written) {
    for (auto& [path, value] : written) {
      const std::string plain = WithoutPositions(path);
      for (const Asymmetry& asymmetry : kAsymmetries) {
        if (asymmetry.path != plain || asymmetry.side.value_or(GetParam()) != GetParam()) continue;
        const std::string read = asymmetry.read(value);
        EXPECT_NE(read, value) << path << " is no asymmetry";
        value = read;
      }
    }
    return written;
  }

  template <class T>
  static void ExpectReadBack(const std::shared_ptr<T>& read, const std::shared_ptr<T>& written, const char* className) {
    ASSERT_NE(read, nullptr) << className;
    EXPECT_THAT(ValuesOf(read, className), ContainerEq(AsRead(ValuesOf(written, className))));
  }

  template <class T>
  void ExpectWalk(bool (AuditFileReader::*next)(std::shared_ptr<T>&), const std::vector<std::shared_ptr<T>>& written,
                  const char* className) {
    std::shared_ptr<T> read;
    for (const auto& record : written) {
      ASSERT_TRUE((reader_.*next)(read)) << className << ": " << Told(reader_.AuditException());
      ExpectReadBack(read, record, className);
    }
    EXPECT_TRUE((reader_.*next)(read));
    EXPECT_EQ(read, nullptr) << className;
  }

  UseSchema schema_;
  TemporaryFolder folder_;
  std::string path_ = folder_.Path("saft.xml");
  AuditFileReader reader_;
};

TEST_P(WholeFileTest, IsValid) {
  Save(Whole(GetParam()));
  AuditFile file;
  file.set_AuditFileName(path_);
  EXPECT_TRUE(file.ValidateAuditFile()) << Told(file.AuditException());
}

TEST_P(WholeFileTest, ReadsBackAsItWasWritten) {
  const Contents whole = Whole(GetParam());
  Save(whole);
  Open();

  std::shared_ptr<Header> header;
  EXPECT_TRUE(reader_.ReadHeader(header));
  ExpectReadBack(header, whole.header, "Header");
  ExpectWalk(&AuditFileReader::ReadGeneralLedger, whole.accounts, "GeneralLedger");
  ExpectWalk(&AuditFileReader::ReadCustomer, whole.customers, "Customer");
  ExpectWalk(&AuditFileReader::ReadSupplier, whole.suppliers, "Supplier");
  ExpectWalk(&AuditFileReader::ReadProduct, whole.products, "Product");
  std::shared_ptr<GeneralLedgerEntries> entries;
  EXPECT_TRUE(reader_.ReadGeneralLedgerEntries(entries));
  ExpectReadBack(entries, whole.entries, "GeneralLedgerEntries");
  ExpectWalk(&AuditFileReader::ReadJournal, whole.journals, "Journal");
  for (size_t i = 0; i < whole.journals.size(); ++i) {
    std::shared_ptr<Transaction> transaction;
    EXPECT_TRUE(reader_.ReadTransaction(transaction, *whole.journals[i])) << Told(reader_.AuditException());
    ExpectReadBack(transaction, whole.transactions[i].front(), "Transaction");
    EXPECT_TRUE(reader_.ReadTransaction(transaction, *whole.journals[i]));
    EXPECT_EQ(transaction, nullptr);
  }
  std::shared_ptr<SalesInvoices> sales;
  EXPECT_TRUE(reader_.ReadSalesInvoices(sales));
  ExpectReadBack(sales, whole.sales, "SalesInvoices");
  ExpectWalk(&AuditFileReader::ReadInvoice, whole.invoices, "Invoice");
}

TEST_P(WholeFileTest, TaxTableReadsBackOnceItsEntriesHaveBothValues) {
  const Contents whole = Whole(GetParam());
  Save(whole);
  Open();
  std::shared_ptr<TaxTable> table;
  EXPECT_FALSE(reader_.ReadTaxTable(table));
  EXPECT_THAT(reader_, RecordedError(kTypeMismatch, "ZevoAdapters11", ::testing::Not("")));

  const bool percentage = GetParam() == Side::kBothWithDebit;
  const std::string missing = percentage ? "<TaxAmount>0.5</TaxAmount>" : "<TaxPercentage>0.5</TaxPercentage>";
  std::string bytes = ReadBytes(path_);
  for (size_t end = 0; (end = bytes.find("</TaxTableEntry>", end)) != std::string::npos; end += missing.size() + 1) {
    bytes.insert(end, missing);
  }
  folder_.Write("saft.xml", bytes);
  AuditFileReader reader;
  reader.set_AuditFileName(path_);
  ASSERT_TRUE(reader.OpenAuditFile());
  ASSERT_TRUE(reader.ReadTaxTable(table)) << Told(reader.AuditException());
  RecordValues expected = ValuesOf(whole.taxes, "TaxTable");
  for (auto& [path, value] : expected) {
    if (path.ends_with(percentage ? ".TaxAmount" : ".TaxPercentage")) value = "0.5";
  }
  EXPECT_THAT(ValuesOf(table, "TaxTable"), ContainerEq(expected));
}

TEST_P(WholeFileTest, SurvivesOpenAndSaveByteForByte) {
  Save(Whole(GetParam()));
  const std::string before = ReadBytes(path_);
  AuditFile file;
  file.set_AuditFileName(path_);
  ASSERT_TRUE(file.OpenAuditFile());
  ASSERT_TRUE(file.UpdateAuditFile());
  EXPECT_EQ(ReadBytes(path_), before);
}

INSTANTIATE_TEST_SUITE_P(EitherSide, WholeFileTest, Values(Side::kBothWithDebit, Side::kCreditAlone));

TEST(WholeFileBareTest, RecordsThatHoldNothingReadBackAsTheyWereWritten) {
  const UseSchema schema;
  const TemporaryFolder folder;
  const auto header = std::make_shared<Header>();
  const auto customer = std::make_shared<Customer>();
  const auto supplier = std::make_shared<Supplier>();
  const auto product = std::make_shared<Product>();
  const auto account = std::make_shared<GeneralLedger>();
  const auto journal = SampleJournal("D1");
  const auto transaction = std::make_shared<Transaction>();
  transaction->Line()->Add(std::make_shared<TransactionLine>());
  const auto invoice = std::make_shared<Invoice>();
  invoice->Line()->Add(std::make_shared<InvoiceLine>());

  AuditFile file;
  file.set_AuditFileName(folder.Path("saft.xml"));
  ASSERT_TRUE(file.CreateAuditFile());
  ASSERT_TRUE(file.CreateHeader(*header));
  ASSERT_TRUE(file.CreateCustomer(*customer));
  ASSERT_TRUE(file.CreateSupplier(*supplier));
  ASSERT_TRUE(file.CreateProduct(*product));
  ASSERT_TRUE(file.CreateGeneralLedger(*account));
  ASSERT_TRUE(file.CreateGeneralLedgerEntries(GeneralLedgerEntries()));
  ASSERT_TRUE(file.CreateJournal(*journal));
  ASSERT_TRUE(file.CreateTransaction(*transaction, journal.get()));
  ASSERT_TRUE(file.CreateSalesInvoices(SalesInvoices()));
  ASSERT_TRUE(file.CreateInvoice(*invoice));
  ASSERT_TRUE(file.UpdateAuditFile());

  AuditFileReader reader;
  reader.set_AuditFileName(folder.Path("saft.xml"));
  ASSERT_TRUE(reader.OpenAuditFile());
  std::shared_ptr<Header> read_header;
  std::shared_ptr<Customer> read_customer;
  std::shared_ptr<Supplier> read_supplier;
  std::shared_ptr<Product> read_product;
  std::shared_ptr<GeneralLedger> read_account;
  std::shared_ptr<Transaction> read_transaction;
  std::shared_ptr<Invoice> read_invoice;
  ASSERT_TRUE(reader.ReadHeader(read_header));
  ASSERT_TRUE(reader.ReadCustomer(read_customer));
  ASSERT_TRUE(reader.ReadSupplier(read_supplier));
  ASSERT_TRUE(reader.ReadProduct(read_product));
  ASSERT_TRUE(reader.ReadGeneralLedger(read_account));
  ASSERT_TRUE(reader.ReadTransaction(read_transaction, *journal));
  ASSERT_TRUE(reader.ReadInvoice(read_invoice));

  EXPECT_THAT(ValuesOf(read_header, "Header"), ContainerEq(ValuesOf(header, "Header")));
  EXPECT_THAT(ValuesOf(read_product, "Product"), ContainerEq(ValuesOf(product, "Product")));
  EXPECT_THAT(ValuesOf(read_account, "GeneralLedger"), ContainerEq(ValuesOf(account, "GeneralLedger")));
  EXPECT_THAT(ValuesOf(read_transaction, "Transaction"), ContainerEq(ValuesOf(transaction, "Transaction")));
  EXPECT_THAT(ValuesOf(read_customer, "Customer"), ContainerEq(ValuesOf(customer, "Customer")));
  EXPECT_THAT(ValuesOf(read_supplier, "Supplier"), ContainerEq(ValuesOf(supplier, "Supplier")));
  EXPECT_THAT(ValuesOf(read_invoice, "Invoice"), ContainerEq(ValuesOf(invoice, "Invoice")));
}

}  // namespace
}  // namespace zevo
