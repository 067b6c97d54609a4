// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/KeySet.h>
#include <zevo/check/TransactionTable.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/check/FactsTest.h"

namespace zevo {
namespace {

class TransactionTableTest : public testing::FactsTest {
 protected:
  static std::string Transaction(std::string_view id, std::string_view debit, std::string_view date = "2008-03-05") {
    std::string transaction("<TransactionID>");
    transaction.append(id).append("</TransactionID><TransactionDate>").append(date).append("</TransactionDate>");
    transaction.append("<Line><DebitAmount>").append(debit).append("</DebitAmount></Line>");
    return transaction.append("<Line><CreditAmount>1</CreditAmount></Line>");
  }

  void Add(const std::vector<std::string>& transactions) {
    LedgerSums sums;
    ForEachTransaction(transactions, [&](const TransactionFacts& facts) {
      sums.Take(facts);
      keys_.Add(*facts.id);
      table_.Take(*keys_.Find(*facts.id), facts, sums.OfThis());
    });
  }
  // The entry takes in invoices of these numbers, over so much each.
  void Invoice(std::string_view id, const std::vector<std::string>& numbers, const Decimal& gross) {
    for (const std::string& number : numbers) {
      ForInvoice("<InvoiceNo>" + number + "</InvoiceNo>", [&](const InvoiceFacts& facts) {
        documents_.Take(facts);
        Find(id)->Take(gross, documents_);
      });
    }
  }

  TransactionTable::Entry* Find(std::string_view id) {
    const auto number = keys_.Find(id);
    return number ? table_.Find(*number) : nullptr;
  }

  KeySet keys_;
  TransactionTable table_;
  DocumentTable documents_;
};

TEST_F(TransactionTableTest, FindsTransactionsByTheirIdentifiers) {
  Add({Transaction("2008-03-05 J 1", "10"), Transaction("2008-03-05 J 2", "20", "2008-12-31")});
  ASSERT_NE(Find("2008-03-05 J 2"), nullptr);
  EXPECT_EQ(Find("2008-03-05 J 2")->Debit(), 20);
  EXPECT_EQ(Find("2008-03-05 J 2")->Date(), CalendarDate::FromText("2008-12-31"));
  EXPECT_EQ(Find("2008-03-05 J 1")->Debit(), 10);
  EXPECT_EQ(Find("2008-03-05 J 3"), nullptr);
  EXPECT_EQ(table_.All().size(), 2U);
}

TEST_F(TransactionTableTest, ManyAreFound) {
  std::vector<std::string> transactions;
  for (int i = 1; i <= 1000; ++i) transactions.push_back(Transaction(std::to_string(i), std::to_string(i)));
  Add(transactions);
  for (int i = 1; i <= 1000; ++i) ASSERT_EQ(Find(std::to_string(i))->Debit(), i);
}

TEST_F(TransactionTableTest, DatesAreThoseOfAnyYear) {
  Add({Transaction("1", "1", "-0044-03-15"), Transaction("2", "1", "123456-01-01"), Transaction("3", "1", "x")});
  EXPECT_EQ(Find("1")->Date(), CalendarDate::FromText("-0044-03-15"));
  EXPECT_EQ(Find("2")->Date(), CalendarDate::FromText("123456-01-01"));
  EXPECT_EQ(Find("3")->Date(), std::nullopt);
}

TEST_F(TransactionTableTest, InvoicesMayComeToWhatItDebits) {
  Add({Transaction("T", "10.01")});
  Invoice("T", {"FT A/2", "FT A/1"}, 5);
  EXPECT_FALSE(Find("T")->IsExceeded());
  EXPECT_EQ(Find("T")->Gross(), 10);
  EXPECT_EQ(Find("T")->LastInvoice(), 0U);
  Invoice("T", {"FT A/3"}, Decimal::OfUnits(1, 2));
  EXPECT_FALSE(Find("T")->IsExceeded());
  EXPECT_EQ(Find("T")->LastInvoice(), 2U);
  Invoice("T", {"FT A/4"}, Decimal::OfUnits(1, 3));
  EXPECT_TRUE(Find("T")->IsExceeded());
  Find("T")->TakeUnknown();
  EXPECT_FALSE(Find("T")->IsExceeded());
}

TEST_F(TransactionTableTest, WhatItDebitsMayNotBeKnown) {
  Add({Transaction("unreadable", "x"), Transaction("negative", "-1"), Transaction("twice", "1"),
       Transaction("twice", "2"),
       "<TransactionID>meant otherwise</TransactionID><Line><CreditAmount>-1</CreditAmount></Line>"});
  EXPECT_EQ(table_.All().size(), 4U);
  EXPECT_EQ(Find("twice")->Date(), std::nullopt);
  for (const std::string_view id : {"unreadable", "negative", "twice", "meant otherwise"}) {
    Invoice(id, {"FT " + std::to_string(id.size()) + "/1"}, 100);
    EXPECT_FALSE(Find(id)->IsExceeded()) << id;
  }
}

TEST_F(TransactionTableTest, OfThoseThatWereNotTakenNothingIsKnown) {
  keys_.Add("before");
  Add({Transaction("T", "10")});
  EXPECT_EQ(Find("T")->Debit(), 10);
  EXPECT_EQ(Find("before")->Date(), std::nullopt);
  Invoice("before", {"FT A/1"}, 100);
  EXPECT_FALSE(Find("before")->IsExceeded());
  keys_.Add("behind");
  EXPECT_EQ(Find("behind"), nullptr);
}

}  // namespace
}  // namespace zevo
