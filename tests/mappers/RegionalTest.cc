// SPDX-License-Identifier: Apache-2.0
// Which amounts have the decimal sign of the regional settings and which have a point, where that sign is a comma. This
// program is linked so that the library's question for the sign comes here; where the machine has a locale with a
// comma, the same tests also run with that.

#include <gtest/gtest.h>
#include <langinfo.h>
#include <zevo/mappers/GeneralLedgerDALC.h>
#include <zevo/mappers/GeneralLedgerEntriesDALC.h>
#include <zevo/mappers/InvoiceDALC.h>
#include <zevo/mappers/JournalDALC.h>
#include <zevo/mappers/SalesInvoicesDALC.h>
#include <zevo/mappers/TaxTableEntryDALC.h>
#include <zevo/mappers/TransactionDALC.h>

#include <clocale>
#include <memory>
#include <string>
#include <string_view>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace {

bool comma_here = false;

}  // namespace

// The linker gives these names their meaning.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" char* __real_nl_langinfo(nl_item item);

extern "C" char* __wrap_nl_langinfo(nl_item item) {
  static char comma[] = ",";
  static char none[] = "";
  if (comma_here && item == RADIXCHAR) return comma;
  if (comma_here && item == THOUSEP) return none;
  return __real_nl_langinfo(item);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace zevo {
namespace {

using testing::Describe;

enum class Source { kLink, kLocale };

bool SetLocaleWithComma() {
  for (const char* name : {"pt_PT.UTF-8", "pt_PT.utf8", "pt_PT", "de_DE.UTF-8", "fr_FR.UTF-8"}) {
    if (std::setlocale(LC_NUMERIC, name) != nullptr && std::string_view(__real_nl_langinfo(RADIXCHAR)) == ",") {
      return true;
    }
  }
  return false;
}

class RegionalTest : public testing::MapperTest, public ::testing::WithParamInterface<Source> {
 protected:
  void SetUp() override {
    if (GetParam() == Source::kLink) {
      comma_here = true;
    } else if (!SetLocaleWithComma()) {
      GTEST_SKIP() << "no locale with a comma is installed";
    }
  }
  void TearDown() override {
    comma_here = false;
    std::setlocale(LC_NUMERIC, "C");
  }

  void ExpectWritten(std::string_view part) { EXPECT_NE(Written().find(part), std::string::npos) << Written(); }
};

TEST_P(RegionalTest, OpeningBalancesHaveAPoint) {
  GeneralLedgerDALC().CreateGeneralLedger(*testing::FullGeneralLedger(), helper_);
  ExpectWritten("<OpeningDebitBalance>1234.5</OpeningDebitBalance><OpeningCreditBalance>0.0001</OpeningCreditBalance>");
}

TEST_P(RegionalTest, PercentageOfATaxTableEntryHasAPoint) {
  TaxTableEntry entry;
  entry.set_TaxPercentage(Amount::FromText("14.5"));
  TaxTableEntryDALC().CreateTaxTableEntry(entry, helper_);
  ExpectWritten("<TaxPercentage>14.5</TaxPercentage>");
}

TEST_P(RegionalTest, AmountOfATaxTableEntryHasAComma) {
  TaxTableEntry entry;
  entry.set_TaxAmount(Amount::FromText("3.25"));
  TaxTableEntryDALC().CreateTaxTableEntry(entry, helper_);
  ExpectWritten("<TaxAmount>3,25</TaxAmount>");
}

TEST_P(RegionalTest, TotalsOfTheLedgerEntriesHaveAComma) {
  GeneralLedgerEntries totals;
  totals.set_TotalDebit(Amount::FromText("1234.5"));
  GeneralLedgerEntriesDALC().CreateGeneralLedgerEntries(totals, helper_);
  ExpectWritten("<TotalDebit>1234,50</TotalDebit><TotalCredit>,00</TotalCredit>");
}

TEST_P(RegionalTest, AmountsOfTransactionLinesHaveAComma) {
  Begin("<GeneralLedgerEntries><Journal/></GeneralLedgerEntries>");
  Transaction transaction;
  transaction.Line()->Add(testing::FullTransactionLine("1"));
  transaction.Line()->Add(testing::FullTransactionLine("2"));
  transaction.Line()->Item(2)->set_DebitAmount(0);
  TransactionDALC().CreateTransaction(transaction, nullptr, helper_);
  ExpectWritten("<DebitAmount>10,5</DebitAmount>");
  ExpectWritten("<CreditAmount>7,25</CreditAmount>");
}

TEST_P(RegionalTest, TotalsOfTheSalesInvoicesHaveAComma) {
  SalesInvoices totals;
  totals.set_TotalCredit(Amount::FromText("0.5"));
  SalesInvoicesDALC().CreateSalesInvoices(totals, helper_);
  ExpectWritten("<TotalDebit>,00</TotalDebit><TotalCredit>,50</TotalCredit>");
}

TEST_P(RegionalTest, AmountsOfAnInvoiceHaveAComma) {
  Begin("<SourceDocuments><SalesInvoices/></SourceDocuments>");
  InvoiceDALC().CreateInvoice(*testing::FullInvoice(), helper_);
  ExpectWritten("<Quantity>2,5</Quantity><UnitOfMeasure>kg</UnitOfMeasure><UnitPrice>1,25</UnitPrice>");
  ExpectWritten("<DebitAmount>3,125</DebitAmount>");
  ExpectWritten("<TaxPercentage>5,5</TaxPercentage>");
  ExpectWritten("<SettlementAmount>0,5</SettlementAmount></Line>");
  ExpectWritten("<TaxPayable>0,17</TaxPayable><NetTotal>3,125</NetTotal><GrossTotal>3,295</GrossTotal>");
  ExpectWritten("<CurrencyDebitAmount>4,5</CurrencyDebitAmount>");
  ExpectWritten("<SettlementAmount>0,15</SettlementAmount><SettlementDate>");
}

TEST_P(RegionalTest, TaxAmountOfAnInvoiceLineHasAComma) {
  Begin("<SourceDocuments><SalesInvoices/></SourceDocuments>");
  const auto invoice = testing::FullInvoice();
  invoice->Line()->Item(1)->Tax()->set_TaxPercentage(0);
  InvoiceDALC().CreateInvoice(*invoice, helper_);
  ExpectWritten("<TaxAmount>0,25</TaxAmount>");
}

TEST_P(RegionalTest, BalancesAreReadWithAPoint) {
  std::shared_ptr<GeneralLedger> account;
  GeneralLedgerDALC().ReadGeneralLedger(
      account,
      Reading("<MasterFiles><GeneralLedger><OpeningDebitBalance>1.5</OpeningDebitBalance>"
              "<OpeningCreditBalance>2,5</OpeningCreditBalance></GeneralLedger></MasterFiles>"),
      true);
  EXPECT_EQ(Describe(*account), "OpeningDebitBalance=1.5\nOpeningCreditBalance=2\n");
}

TEST_P(RegionalTest, TotalsAreReadWithAPoint) {
  std::shared_ptr<GeneralLedgerEntries> totals;
  GeneralLedgerEntriesDALC().ReadGeneralLedgerEntries(
      totals, Reading("<GeneralLedgerEntries><NumberOfEntries>1</NumberOfEntries><TotalDebit>1.5</TotalDebit>"
                      "<TotalCredit>2,5</TotalCredit></GeneralLedgerEntries>"));
  EXPECT_EQ(Describe(*totals), "NumberOfEntries=1\nTotalDebit=1.5\nTotalCredit=2\n");
}

TEST_P(RegionalTest, AmountsOfATaxTableEntryAreReadWithAComma) {
  std::shared_ptr<TaxTableEntry> entry;
  TaxTableEntryDALC().ReadTaxTableEntry(
      entry,
      Reading("<MasterFiles><TaxTable><TaxTableEntry><TaxPercentage>14,5</TaxPercentage><TaxAmount>3,25</TaxAmount>"
              "</TaxTableEntry></TaxTable></MasterFiles>"),
      true);
  EXPECT_EQ(Describe(*entry), "TaxPercentage=14.5\nTaxAmount=3.25\nTaxType=IVA\n");
}

TEST_P(RegionalTest, OfAnInvoiceLineOnlyTheQuantityIsReadWithAComma) {
  std::shared_ptr<Invoice> invoice;
  InvoiceDALC().ReadFlatInvoice(
      invoice, Reading("<Invoice><Line><LineNumber>1</LineNumber><Quantity>2,5</Quantity><UnitPrice>1.25</UnitPrice>"
                       "<CreditAmount>3,5</CreditAmount><Tax><TaxPercentage>5.5</TaxPercentage></Tax>"
                       "</Line></Invoice>"));
  EXPECT_EQ(Describe(*invoice),
            "Line[1].LineNumber=1\nLine[1].Quantity=2.5\nLine[1].UnitPrice=1.25\nLine[1].CreditAmount=3\n"
            "Line[1].Tax.TaxPercentage=5.5\nLine[1].Tax.TaxType=IVA\n");
}

INSTANTIATE_TEST_SUITE_P(Comma, RegionalTest, ::testing::Values(Source::kLink, Source::kLocale),
                         [](const auto& test) { return test.param == Source::kLink ? "Link" : "Locale"; });

class RegionalPointTest : public testing::MapperTest {
 protected:
  RegionalPointTest() { comma_here = true; }
  ~RegionalPointTest() override { comma_here = false; }
};

TEST_F(RegionalPointTest, QuantityWithAPointIsATypeMismatchWhereThePointHasNoMeaning) {
  IDALReader& reader = Reading("<Invoice><Line><LineNumber>1</LineNumber><Quantity>2.5</Quantity></Line></Invoice>");
  std::shared_ptr<Invoice> invoice;
  EXPECT_ERROR(InvoiceDALC().ReadFlatInvoice(invoice, reader), RunTimeError::kTypeMismatch, kRunTimeSource);
}

}  // namespace
}  // namespace zevo
