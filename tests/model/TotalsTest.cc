// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/Error.h>
#include <zevo/model/GeneralLedgerEntries.h>
#include <zevo/model/Property.h>
#include <zevo/model/SalesInvoices.h>
#include <zevo/model/Totals.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <string_view>

#include "tests/support/Errors.h"

namespace zevo {
namespace {

constexpr int64_t kMost = std::numeric_limits<int64_t>::max();

template <class R, class Line>
std::unique_ptr<R> EntryOf(Amount debit, Amount credit) {
  auto entry = std::make_unique<R>();
  auto line = std::make_shared<Line>();
  line->set_DebitAmount(debit);
  line->set_CreditAmount(credit);
  entry->Line()->Add(line);
  return entry;
}

std::unique_ptr<Transaction> TransactionOf(Amount debit, Amount credit) {
  return EntryOf<Transaction, TransactionLine>(debit, credit);
}

TEST(TotalsTest, AnEntryCountsOnceAndAddsItsLines) {
  const auto transaction = TransactionOf(12, 3);
  auto line = std::make_shared<TransactionLine>();
  line->set_RecordID("2");
  line->set_DebitAmount(Amount::FromText("0.0001"));
  transaction->Line()->Add(line);
  EXPECT_EQ(TotalsOf(*transaction), (Totals{1, Amount::FromText("12.0001"), 3}));
  EXPECT_EQ(TotalsOf(Transaction()), (Totals{1, 0, 0}));

  Totals totals;
  totals.Add(*EntryOf<Invoice, InvoiceLine>(5, 7));
  totals.Add(*EntryOf<Invoice, InvoiceLine>(0, 1));
  EXPECT_EQ(totals, (Totals{2, 5, 8}));
}

template <class Entry, class Line>
void ExpectCountedAmountsAreThoseNamed() {
  Entry entry;
  EXPECT_TRUE(
      std::ranges::any_of(PropertiesOf(entry), [](const Property& property) { return property.name == kCountedPart; }));
  int counted = 0;
  for (const Property& property : PropertiesOf<Line>()) {
    if (property.type != PropertyType::kAmount) continue;
    auto line = std::make_shared<Line>();
    property.set(*line, Amount(1));
    entry.Line()->Clear();
    entry.Line()->Add(line);
    const bool debits = property.name == kCountedDebit;
    const bool credits = property.name == kCountedCredit;
    EXPECT_EQ(TotalsOf(entry), (Totals{1, debits ? 1 : 0, credits ? 1 : 0})) << property.name;
    counted += debits || credits;
  }
  EXPECT_EQ(counted, 2);
}

TEST(TotalsTest, TheAmountsThatCountAreThoseNamed) {
  ExpectCountedAmountsAreThoseNamed<Transaction, TransactionLine>();
  ExpectCountedAmountsAreThoseNamed<Invoice, InvoiceLine>();
}

TEST(TotalsTest, NothingIsAddedWhereASumIsOutOfRange) {
  for (const Totals& full : {Totals{1, Amount::FromScaled(kMost), 0}, Totals{1, 0, Amount::FromScaled(kMost)},
                             Totals{std::numeric_limits<int32_t>::max(), 0, 0}}) {
    Totals totals = full;
    const auto one = TransactionOf(1, 1);
    EXPECT_ERROR(totals.Add(*one), RunTimeError::kOverflow, kRunTimeSource);
    EXPECT_EQ(totals, full);
    EXPECT_ERROR(totals += TotalsOf(*one), RunTimeError::kOverflow, kRunTimeSource);
    EXPECT_EQ(totals, full);
  }
}

TEST(TotalsTest, InOrderWhatComesBeforeASumThatIsOutOfRangeIsAdded) {
  constexpr int32_t kMostEntries = std::numeric_limits<int32_t>::max();
  const struct {
    Totals full;
    Totals after;
  } kRows[] = {
      {{kMostEntries, 2, 3}, {kMostEntries, 2, 3}},
      {{1, Amount::FromScaled(kMost), 3}, {2, Amount::FromScaled(kMost), 3}},
      {{1, 2, Amount::FromScaled(kMost)}, {2, 3, Amount::FromScaled(kMost)}},
  };
  for (const auto& [full, after] : kRows) {
    Totals totals = full;
    EXPECT_ERROR(totals.AddInOrder(*TransactionOf(1, 1)), RunTimeError::kOverflow, kRunTimeSource);
    EXPECT_EQ(totals, after);
  }
}

TEST(TotalsTest, AnInvoiceWithoutALedgerTransactionDoesNotCount) {
  Invoice invoice;
  for (const std::string_view id : {"Anulado", "ANULADO", "aNULADO"}) {
    invoice.set_TransactionID(id);
    EXPECT_FALSE(CountsInTotals(invoice)) << id;
    EXPECT_FALSE(CountsInTotals(id)) << id;
  }
  for (const std::string_view id : {"", "Anulado ", "Anulada", "2010-01-01 V 1"}) {
    invoice.set_TransactionID(id);
    EXPECT_TRUE(CountsInTotals(invoice)) << id;
    EXPECT_TRUE(CountsInTotals(id)) << id;
  }
  invoice.set_InvoiceStatus(isA);
  EXPECT_TRUE(CountsInTotals(invoice));
}

TEST(TotalsTest, BothSectionsHoldThem) {
  const Totals totals{3, Amount::FromText("1.5"), 2};
  GeneralLedgerEntries entries;
  SetTotals(entries, totals);
  EXPECT_EQ(TotalsIn(entries), totals);
  SalesInvoices invoices;
  SetTotals(invoices, totals);
  EXPECT_EQ(TotalsIn(invoices), totals);
}

}  // namespace
}  // namespace zevo
