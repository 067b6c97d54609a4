// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/LedgerSums.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/check/FactsTest.h"

namespace zevo {
namespace {

class LedgerSumsTest : public testing::FactsTest {
 protected:
  static std::string Line(std::string_view amounts) { return "<Line>" + std::string(amounts) + "</Line>"; }
  void Take(const std::vector<std::string>& transactions) {
    ForEachTransaction(transactions, [this](const TransactionFacts& facts) { sums_.Take(facts); });
  }

  LedgerSums sums_;
};

TEST_F(LedgerSumsTest, TransactionsAddUpOneByOneAndTogether) {
  Take({Line("<DebitAmount>10.005</DebitAmount>") + Line("<CreditAmount>4</CreditAmount>") +
            Line("<CreditAmount>6.005</CreditAmount>"),
        Line("<DebitAmount>1</DebitAmount><CreditAmount>2</CreditAmount>")});
  EXPECT_EQ(sums_.OfThis().debit.sum.Text(), "1");
  EXPECT_EQ(sums_.OfThis().credit.sum.Text(), "2");
  EXPECT_EQ(sums_.OfAll().debit.sum.Text(), "11.005");
  EXPECT_EQ(sums_.OfAll().credit.sum.Text(), "12.005");
  EXPECT_EQ(sums_.OfAll().debit.inexact, 1);
  EXPECT_TRUE(sums_.OfAll().Known());
  EXPECT_EQ(sums_.Transactions(), 2);
}

TEST_F(LedgerSumsTest, WhatCannotBeReadLeavesTheWholeUnknown) {
  for (const std::string& unknown : {std::string(), Line(""), Line("<DebitAmount>x</DebitAmount>"),
                                     Line("<DebitAmount>1</DebitAmount>") + Line("")}) {
    sums_ = {};
    Take({unknown});
    EXPECT_FALSE(sums_.OfThis().Known()) << unknown;
    Take({Line("<DebitAmount>1</DebitAmount>")});
    EXPECT_TRUE(sums_.OfThis().Known()) << unknown;
    EXPECT_FALSE(sums_.OfAll().Known()) << unknown;
    EXPECT_EQ(sums_.Transactions(), 2);
  }
}

}  // namespace
}  // namespace zevo
