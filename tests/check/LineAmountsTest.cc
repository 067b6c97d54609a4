// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <zevo/check/LineAmounts.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/check/FactsTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LineAmountsTest : public testing::FactsTest {
 protected:
  static std::string Line(std::string_view quantity, std::string_view price, std::string_view amount,
                          std::string_view more = "") {
    std::string line("<Line><Quantity>");
    line.append(quantity).append("</Quantity><UnitPrice>").append(price);
    line.append("</UnitPrice><CreditAmount>").append(amount).append("</CreditAmount>").append(more);
    return line.append("</Line>");
  }
  static std::string Settled(std::string_view amount) {
    return "<SettlementAmount>" + std::string(amount) + "</SettlementAmount>";
  }

  // What is wrong at once in an invoice: "1: 0.02", with a "-" behind the line where the settlement is taken off.
  std::vector<std::string> Take(LineAmounts& amounts, std::string_view content) {
    std::vector<std::string> faults;
    ForInvoice(content, [&](const InvoiceFacts& facts) {
      amounts.Take(facts);
      for (const LineAmounts::Fault& fault : amounts.OfThis()) {
        faults.push_back(std::to_string(fault.line + 1) + (fault.less_settlement ? "-: " : ": ") +
                         fault.difference.Text());
      }
    });
    return faults;
  }
  std::vector<std::string> Take(std::string_view content) { return Take(amounts_, content); }
  // What is wrong by now of what was doubtful: "InvoiceNo Line[1]/CreditAmount 10 × 1.00 = 10.00 0.02".
  static std::vector<std::string> WrongByNow(const LineAmounts& amounts) {
    std::vector<std::string> faults;
    for (const LineAmounts::KeptFault* const fault : amounts.WrongByNow().kept) {
      faults.push_back(fault->at.key + " " + fault->at.path + " [" + fault->expected + "] " + fault->difference.Text() +
                       (fault->cancelled ? " cancelled" : ""));
    }
    return faults;
  }

  LineAmounts amounts_{0};
};

TEST_F(LineAmountsTest, QuantityByPriceIsTheAmount) {
  EXPECT_THAT(Take(Line("20", "1.50", "30.00") + Line("0.5", "3", "1.5") + Line("0", "3", "0")), IsEmpty());
  EXPECT_THAT(Take(Line("20", "1.50", "30.00") + Line("1", "1.50", "2") + Line("1", "1.50", "1")),
              ElementsAre("2: 0.5", "3: -0.5"));
}

TEST_F(LineAmountsTest, EachInvoiceHasItsOwnFaults) {
  EXPECT_THAT(Take(Line("1", "1", "2")), ElementsAre("1: 1"));
  EXPECT_THAT(Take(Line("1", "1", "1")), IsEmpty());
}

TEST_F(LineAmountsTest, SignsCountForNothing) {
  EXPECT_THAT(Take(Line("-20", "1.50", "30.00") + Line("20", "-1.50", "-30.00") + Line("-1", "-1.50", "-2")),
              ElementsAre("3: 0.5"));
}

// 0.01 and half a cent for each unit.
TEST_F(LineAmountsTest, PricesOfTwoDecimalsMayBeRounded) {
  EXPECT_THAT(Take(Line("1", "10", "10.015") + Line("1", "10", "9.985") + Line("100", "10", "1000.51")), IsEmpty());
  EXPECT_THAT(Take(Line("1", "10", "10.0151") + Line("1", "10", "9.9849") + Line("100", "10", "1000.5101")),
              ElementsAre("1: 0.0151", "2: -0.0151", "3: 0.5101"));
  EXPECT_THAT(WrongByNow(amounts_), IsEmpty());
}

TEST_F(LineAmountsTest, MoreDecimalsOfPricesLeaveLessToRound) {
  EXPECT_THAT(Take(Line("1", "2.500", "2.50") + Line("100", "10.00", "1000.51")), IsEmpty());  // zeros do not count
  EXPECT_THAT(Take(Line("1", "2.505", "2.505") + Line("100", "10.00", "1000.06")), IsEmpty());
  EXPECT_THAT(Take(Line("100", "10.00", "1000.0601")), ElementsAre("1: 0.0601"));
  EXPECT_THAT(Take(Line("1", "2.5055", "2.5055") + Line("100", "10", "1000.015") + Line("100", "10", "1000.0151")),
              ElementsAre("3: 0.0151"));
}

TEST_F(LineAmountsTest, WhatIsDoubtfulIsToldOnceThereAreMoreDecimals) {
  ForEachInvoice({"<InvoiceNo>FT A/1</InvoiceNo>" + Line("1", "10", "10") + Line("100", "10", "1000.51"),
                  "<InvoiceNo>FT A/2</InvoiceNo><InvoiceStatus>A</InvoiceStatus>" + Line("100", "10", "999.94"),
                  "<InvoiceNo>FT A/3</InvoiceNo>" + Line("100", "10", "1000.01"),
                  "<InvoiceNo>FT A/4</InvoiceNo>" + Line("100", "10", "1000.51")},
                 [this](const InvoiceFacts& facts) { amounts_.Take(facts); });
  EXPECT_THAT(WrongByNow(amounts_), IsEmpty());
  Take(Line("1", "0.001", "0.00"));
  EXPECT_THAT(WrongByNow(amounts_), ElementsAre("FT A/1 Line[2]/CreditAmount [100 × 10.00 = 1000.00] 0.51",
                                                "FT A/4 Line[1]/CreditAmount [100 × 10.00 = 1000.00] 0.51"));
  Take(Line("1", "0.0001", "0.00"));
  EXPECT_THAT(WrongByNow(amounts_), ElementsAre("FT A/1 Line[2]/CreditAmount [100 × 10.00 = 1000.00] 0.51",
                                                "FT A/2 Line[1]/CreditAmount [100 × 10.00 = 1000.00] -0.06 cancelled",
                                                "FT A/4 Line[1]/CreditAmount [100 × 10.00 = 1000.00] 0.51"));
}

TEST_F(LineAmountsTest, OfDoubtfulLinesOfAKindOnlySoManyAreKept) {
  LineAmounts amounts(1);
  for (int i = 0; i < 3; ++i) Take(amounts, Line("100", "10", "1000.51"));
  Take(amounts, "<InvoiceStatus>A</InvoiceStatus>" + Line("100", "10", "1000.51"));
  EXPECT_EQ(amounts.WrongByNow().more, 0U);
  Take(amounts, Line("1", "0.001", "0"));
  const LineAmounts::Doubtful wrong = amounts.WrongByNow();
  EXPECT_EQ(wrong.kept.size(), 1U);
  EXPECT_EQ(wrong.more, 2U);
  EXPECT_EQ(wrong.more_cancelled, 1U);
}

// More than 18 decimals make no difference, so what is right with 18 is not kept.
TEST_F(LineAmountsTest, DecimalsOfAnyLengthAreTaken) {
  EXPECT_THAT(Take(Line("1", "0.0000000000000000000001", "0.01") + Line("1", "1", "1.0100000000000000005")), IsEmpty());
  EXPECT_THAT(Take(Line("1", "1", "1.0100000000000000006")), ElementsAre("1: 0.0100000000000000006"));
  EXPECT_THAT(WrongByNow(amounts_), IsEmpty());
}

// After a price of 18 decimals that of the quantity is left: half a unit of its last digit, at the price of the line.
TEST_F(LineAmountsTest, AQuantityOfSevenDigitsMayBeRounded) {
  Take(Line("1", "0.000000000000000001", "0"));
  EXPECT_THAT(Take(Line("0.1234567", "100", "12.355675") + Line("0.1234560", "100", "12.355605") +
                   Line("0.123456", "100", "12.3556") + Line("1234567", "1", "1234567.51")),
              IsEmpty());
  EXPECT_THAT(Take(Line("0.1234567", "100", "12.3556751") + Line("0.1234560", "100", "12.3556051") +
                   Line("0.123456", "100", "12.355605") + Line("1234567", "1", "1234567.52")),
              ElementsAre("1: 0.0100051", "2: 0.0100051", "3: 0.010005", "4: 0.52"));
}

TEST_F(LineAmountsTest, ASettlementMayBeTakenOff) {
  EXPECT_THAT(Take(Line("10", "2", "20", Settled("1")) + Line("10", "2", "19", Settled("1")) +
                   Line("10", "2", "19", Settled("-1"))),
              IsEmpty());
  // The nearer of the two is told; of both as near the whole.
  EXPECT_THAT(Take(Line("10", "2", "19.60", Settled("1")) + Line("10", "2", "19.50", Settled("1")) +
                   Line("10", "2", "19.40", Settled("1")) + Line("10", "2", "18", Settled("0"))),
              ElementsAre("1: -0.4", "2: -0.5", "3-: 0.4", "4: -2"));
}

TEST_F(LineAmountsTest, WhatCannotBeReadIsNotCompared) {
  const std::string credit = "<CreditAmount>5</CreditAmount>";
  EXPECT_THAT(Take("<Line/><Line><Quantity>1</Quantity>" + credit + "</Line><Line><UnitPrice>1</UnitPrice>" + credit +
                   "</Line><Line><Quantity>1</Quantity><UnitPrice>1</UnitPrice></Line>" + Line("x", "1", "5") +
                   Line("1", "x", "5") + Line("1", "1", "x") + Line("1", "1", "5", Settled("x")) +
                   Line(std::string(1001, '1'), "1", "5") + Line("1", "1", "5", "<DebitAmount>5</DebitAmount>")),
              IsEmpty());
}

TEST_F(LineAmountsTest, TheAmountIsTheOneThatIsNotZero) {
  const auto amount_of = [this](std::string_view amounts) {
    std::string text = "none";
    ForInvoice("<Line>" + std::string(amounts) + "</Line>", [&](const InvoiceFacts& facts) {
      const NumberFact* const amount = LineAmounts::AmountOf(facts.lines[0]);
      if (amount != nullptr) text = facts.entity->PathOf(amount->element) + " " + (*amount)->Text();
    });
    return text;
  };
  EXPECT_EQ(amount_of("<DebitAmount>1</DebitAmount>"), "Line/DebitAmount 1");
  EXPECT_EQ(amount_of("<CreditAmount>0</CreditAmount>"), "Line/CreditAmount 0");
  EXPECT_EQ(amount_of("<DebitAmount>0</DebitAmount><CreditAmount>2</CreditAmount>"), "Line/CreditAmount 2");
  EXPECT_EQ(amount_of("<DebitAmount>1</DebitAmount><CreditAmount>0</CreditAmount>"), "Line/DebitAmount 1");
  EXPECT_EQ(amount_of("<DebitAmount>0</DebitAmount><CreditAmount>0</CreditAmount>"), "Line/CreditAmount 0");
  EXPECT_EQ(amount_of("<DebitAmount>1</DebitAmount><CreditAmount>2</CreditAmount>"), "none");
  EXPECT_EQ(amount_of("<DebitAmount>1</DebitAmount><CreditAmount>x</CreditAmount>"), "none");
  EXPECT_EQ(amount_of("<DebitAmount>x</DebitAmount>"), "none");
  EXPECT_EQ(amount_of(""), "none");
}

TEST_F(LineAmountsTest, WhatIsExpectedIsToldWithItsFormula) {
  ForInvoice(Line("-20", "1.5", "1", Settled("-2.255")), [](const InvoiceFacts& facts) {
    EXPECT_EQ(LineAmounts::ExpectedOf(facts.lines[0], false), "20 × 1.50 = 30.00");
    EXPECT_EQ(LineAmounts::ExpectedOf(facts.lines[0], true), "20 × 1.50 - 2.255 = 27.745");
  });
}

}  // namespace
}  // namespace zevo
