// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/SectionSums.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/check/FactsTest.h"

namespace zevo {
namespace {

using Counted = SectionSums::Counted;

class SectionSumsTest : public testing::FactsTest {
 protected:
  static std::string Invoice(std::string_view state, std::string_view credit) {
    return std::string(state).append("<Line><CreditAmount>").append(credit).append("</CreditAmount></Line>");
  }
  void Take(const std::vector<std::string>& invoices) {
    ForEachInvoice(invoices, [this](const InvoiceFacts& facts) {
      lines_.Take(facts);
      sums_.Take(facts, lines_);
    });
  }
  // "2: 0 6", the invoices, their debits and their credits.
  std::string Of(Counted counted) const {
    const SectionSums::Sums sums = sums_.Of(counted);
    return std::to_string(sums.invoices) + ": " + sums.debit.sum.Text() + " " + sums.credit.sum.Text();
  }

  InvoiceSums lines_;
  SectionSums sums_;
};

TEST_F(SectionSumsTest, EachWayCountsMoreThanTheOneBefore) {
  Take({Invoice("<InvoiceStatus>N</InvoiceStatus>", "1"), Invoice("<InvoiceStatus>S</InvoiceStatus>", "2"),
        Invoice("<InvoiceStatus>F</InvoiceStatus>", "10"), Invoice("<InvoiceStatus>A</InvoiceStatus>", "100"),
        Invoice("<InvoiceStatus>A</InvoiceStatus><TransactionID>Anulado</TransactionID>", "1000"),
        Invoice("<InvoiceStatus>N</InvoiceStatus><TransactionID>Anulado</TransactionID>", "1000"),
        "<InvoiceStatus>N</InvoiceStatus><Line><DebitAmount>5</DebitAmount></Line>"});
  EXPECT_EQ(Of(Counted::kLive), "3: 5 3");
  EXPECT_EQ(Of(Counted::kNotCancelled), "4: 5 13");
  EXPECT_EQ(Of(Counted::kNotAnulado), "5: 5 113");
  EXPECT_EQ(Of(Counted::kAll), "7: 5 2113");
  EXPECT_TRUE(sums_.KnowsEachStatus());
}

TEST_F(SectionSumsTest, AnAmountThatCannotBeReadIsInThoseThatCountIt) {
  Take({Invoice("<InvoiceStatus>N</InvoiceStatus>", "1"), Invoice("<InvoiceStatus>A</InvoiceStatus>", "x")});
  EXPECT_TRUE(sums_.Of(Counted::kNotCancelled).credit.known);
  EXPECT_FALSE(sums_.Of(Counted::kNotAnulado).credit.known);
}

TEST_F(SectionSumsTest, AStatusIsOneOfTheSchema) {
  for (const std::string_view status :
       {"", "<InvoiceStatus/>", "<InvoiceStatus>n</InvoiceStatus>", "<InvoiceStatus>NS</InvoiceStatus>"}) {
    sums_ = {};
    Take({Invoice(status, "1")});
    EXPECT_FALSE(sums_.KnowsEachStatus()) << status;
    EXPECT_EQ(Of(Counted::kAll), "1: 0 1");
  }
}

}  // namespace
}  // namespace zevo
