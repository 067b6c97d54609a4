// SPDX-License-Identifier: Apache-2.0
// The time that writing takes grows with the number of records and no faster.

#include <gtest/gtest.h>
#include <zevo/dal/DOMDALHelper.h>
#include <zevo/mappers/CustomerDALC.h>
#include <zevo/mappers/GeneralLedgerEntriesDALC.h>
#include <zevo/mappers/InvoiceDALC.h>
#include <zevo/mappers/JournalDALC.h>
#include <zevo/mappers/SalesInvoicesDALC.h>
#include <zevo/mappers/TaxTableEntryDALC.h>
#include <zevo/mappers/TransactionDALC.h>

#include <algorithm>
#include <ctime>
#include <memory>
#include <string>

#include "tests/mappers/Records.h"

namespace zevo {
namespace {

constexpr int kRecords = 4'000;
constexpr int kTimesMore = 4;
// Halfway between four times the time, for four times the records, and the sixteen times of a search among all of them.
constexpr double kMost = 8;

// Seconds of the processor; the best of several runs.
template <class Job>
double SecondsFor(int records, Job job) {
  double best = 1e9;
  for (int run = 0; run < 4; ++run) {
    const std::clock_t start = std::clock();
    job(records);
    best = std::min(best, static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC);
  }
  return best;
}

template <class Job>
void ExpectLinear(Job job) {
  const double few = SecondsFor(kRecords, job);
  const double many = SecondsFor(kRecords * kTimesMore, job);
  ASSERT_GT(few, 0.002) << "too short to tell";
  EXPECT_LT(many / few, kMost) << few << " s and " << many << " s";
}

TEST(SpeedTest, TransactionsToTwoAlternatingJournals) {
  const auto transaction = testing::FullTransaction();
  const std::shared_ptr<Journal> journals[] = {testing::JournalOf("J1"), testing::JournalOf("J2")};
  ExpectLinear([&](int records) {
    DOMDALHelper helper;
    helper.CreateFile();
    GeneralLedgerEntriesDALC().CreateGeneralLedgerEntries(GeneralLedgerEntries(), helper);
    for (const auto& journal : journals) JournalDALC().CreateJournal(*journal, helper);
    for (int i = 0; i < records; ++i) {
      TransactionDALC().CreateTransaction(*transaction, journals[i % 2].get(), helper);
    }
  });
}

TEST(SpeedTest, TransactionsEachToAJournalOfItsOwn) {
  Transaction transaction;
  ExpectLinear([&](int records) {
    DOMDALHelper helper;
    helper.CreateFile();
    GeneralLedgerEntriesDALC().CreateGeneralLedgerEntries(GeneralLedgerEntries(), helper);
    for (int i = 0; i < records; ++i) {
      const auto journal = testing::JournalOf(std::to_string(i));
      JournalDALC().CreateJournal(*journal, helper);
      TransactionDALC().CreateTransaction(transaction, journal.get(), helper);
    }
  });
}

TEST(SpeedTest, InvoicesWithTheTotalsBroughtUpToDateAfterEach) {
  const auto invoice = testing::FullInvoice();
  SalesInvoices totals;
  ExpectLinear([&](int records) {
    DOMDALHelper helper;
    helper.CreateFile();
    SalesInvoicesDALC().CreateSalesInvoices(totals, helper);
    for (int i = 0; i < records / 4; ++i) {
      InvoiceDALC().CreateInvoice(*invoice, helper);
      totals.set_NumberOfEntries(i);
      SalesInvoicesDALC().UpdateSalesInvoices(totals, helper);
    }
  });
}

TEST(SpeedTest, CustomersThenTaxTableEntries) {
  const Customer customer;
  const TaxTableEntry entry;
  ExpectLinear([&](int records) {
    DOMDALHelper helper;
    helper.CreateFile();
    for (int i = 0; i < records; ++i) CustomerDALC().CreateCustomer(customer, helper);
    for (int i = 0; i < records; ++i) TaxTableEntryDALC().CreateTaxTableEntry(entry, helper);
  });
}

// The same with other elements in front of the section, which must make no difference.
TEST(SpeedTest, CustomersThenTaxTableEntriesWhereverTheSectionStands) {
  const Customer customer;
  const TaxTableEntry entry;
  double best = 1e9;
  double worst = 0;
  for (int before = 0; before < 20; ++before) {
    const double seconds = SecondsFor(kRecords, [&](int records) {
      DOMDALHelper helper;
      helper.CreateFile();
      for (int i = 0; i < before; ++i) helper.CreateElement("Other", {}, {}, true);
      for (int i = 0; i < records; ++i) CustomerDALC().CreateCustomer(customer, helper);
      for (int i = 0; i < records; ++i) TaxTableEntryDALC().CreateTaxTableEntry(entry, helper);
    });
    best = std::min(best, seconds);
    worst = std::max(worst, seconds);
  }
  EXPECT_LT(worst / best, 4) << best << " s to " << worst << " s";
}

}  // namespace
}  // namespace zevo
