// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/InvoiceSums.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/check/FactsTest.h"

namespace zevo {
namespace {

class InvoiceSumsTest : public testing::FactsTest {
 protected:
  static std::string Line(std::string_view content) { return "<Line>" + std::string(content) + "</Line>"; }
  static std::string Tax(std::string_view code, std::string_view percentage) {
    std::string tax("<Tax><TaxType>IVA</TaxType><TaxCountryRegion>PT</TaxCountryRegion><TaxCode>");
    return tax.append(code).append("</TaxCode><TaxPercentage>").append(percentage).append("</TaxPercentage></Tax>");
  }
  static std::string TaxAmount(std::string_view amount) {
    return "<Tax><TaxAmount>" + std::string(amount) + "</TaxAmount></Tax>";
  }

  const InvoiceSums& Take(std::string_view content) {
    ForInvoice(content, [this](const InvoiceFacts& facts) { sums_.Take(facts); });
    return sums_;
  }
  // Such as "1 2 1", in cents.
  std::string PossibleTaxes(std::string_view content) {
    std::string texts;
    ForInvoice(content, [&](const InvoiceFacts& facts) {
      for (const Decimal& tax : PossibleTaxesInCents(facts)) texts.append(texts.empty() ? "" : " ").append(tax.Text());
    });
    return texts;
  }

  InvoiceSums sums_;
};

TEST_F(InvoiceSumsTest, CreditsAndDebitsAddUp) {
  Take(
      "<Line><CreditAmount>10.00</CreditAmount></Line><Line><CreditAmount>5.255</CreditAmount></Line>"
      "<Line><DebitAmount>3</DebitAmount></Line>");
  EXPECT_EQ(sums_.Credit().sum.Text(), "15.255");
  EXPECT_EQ(sums_.Credit().inexact, 1);
  EXPECT_EQ(sums_.Debit().sum.Text(), "3");
  EXPECT_EQ(sums_.Net().Text(), "12.255");
  EXPECT_TRUE(sums_.Known());
  EXPECT_TRUE(sums_.TaxKnown());
  EXPECT_TRUE(sums_.TaxInCents().IsZero());
}

TEST_F(InvoiceSumsTest, EachInvoiceCountsForItself) {
  Take("<Line><CreditAmount>x</CreditAmount></Line>");
  EXPECT_FALSE(sums_.Known());
  Take("<Line><CreditAmount>2</CreditAmount></Line>");
  EXPECT_TRUE(sums_.Known());
  EXPECT_EQ(sums_.Net(), 2);
}

TEST_F(InvoiceSumsTest, WithoutLinesOrWithoutAmountsNothingIsKnown) {
  for (const std::string_view content :
       {"", "<Line/>", "<Line><CreditAmount>2</CreditAmount></Line><Line><UnitPrice>2</UnitPrice></Line>",
        "<Line><CreditAmount>2</CreditAmount><DebitAmount/></Line>"}) {
    Take(content);
    EXPECT_FALSE(sums_.Known()) << content;
    EXPECT_FALSE(sums_.TaxKnown()) << content;
  }
}

TEST_F(InvoiceSumsTest, PercentagesAreOfTheAmountOfTheLine) {
  Take(Line("<CreditAmount>10.05</CreditAmount>" + Tax("NOR", "20.5")) +
       Line("<DebitAmount>5</DebitAmount>" + Tax("RED", "5")) +
       Line("<DebitAmount>1</DebitAmount><CreditAmount>3</CreditAmount>" + Tax("RED", "5")) +
       Line("<CreditAmount>100</CreditAmount>"));
  EXPECT_TRUE(sums_.TaxKnown());
  EXPECT_EQ(sums_.TaxInCents().Text(), "191.025");  // 206.025 - 25 + 10
}

TEST_F(InvoiceSumsTest, ATaxAmountCountsOnceALineOnItsSide) {
  const std::string of_two = "<Quantity>2</Quantity>";
  Take(Line(of_two + "<CreditAmount>10</CreditAmount>" + TaxAmount("1.50")));
  EXPECT_EQ(sums_.TaxInCents(), 150);
  Take(Line(of_two + "<DebitAmount>10</DebitAmount>" + TaxAmount("1.50")));
  EXPECT_EQ(sums_.TaxInCents(), -150);
  Take(Line(of_two + "<DebitAmount>10</DebitAmount><CreditAmount>0.00</CreditAmount>" + TaxAmount("1.50")));
  EXPECT_EQ(sums_.TaxInCents(), -150);
  Take(Line(of_two + "<DebitAmount>0</DebitAmount><CreditAmount>10</CreditAmount>" + TaxAmount("1.50")));
  EXPECT_EQ(sums_.TaxInCents(), 150);
  Take(Line(of_two + "<DebitAmount>0</DebitAmount><CreditAmount>0</CreditAmount>" + TaxAmount("1.50")));
  EXPECT_EQ(sums_.TaxInCents(), 150);
}

TEST_F(InvoiceSumsTest, ATaxIsUnknownWhereSomethingOfItIs) {
  const std::string amount = "<Quantity>2</Quantity><CreditAmount>10</CreditAmount>";
  for (const std::string& line : {amount + "<Tax/>", amount + Tax("NOR", "x"), amount + TaxAmount("x"),
                                  amount + "<Tax><TaxPercentage>20</TaxPercentage><TaxAmount>2</TaxAmount></Tax>",
                                  "<CreditAmount>10</CreditAmount>" + TaxAmount("1.50"),
                                  "<Quantity>x</Quantity><CreditAmount>10</CreditAmount>" + TaxAmount("1.50")}) {
    Take(Line(line));
    EXPECT_TRUE(sums_.Known()) << line;
    EXPECT_FALSE(sums_.TaxKnown()) << line;
  }
}

TEST_F(InvoiceSumsTest, NumbersOfMoreThanAThousandCharactersAreNotMultiplied) {
  const std::string longest = "1" + std::string(999, '0');
  Take(Line("<CreditAmount>" + longest + "</CreditAmount>" + Tax("NOR", "2")));
  EXPECT_TRUE(sums_.TaxKnown());
  EXPECT_EQ(sums_.TaxInCents().Text(), "2" + std::string(999, '0'));
  Take(Line("<CreditAmount>" + longest + "0</CreditAmount>" + Tax("NOR", "2")));
  EXPECT_TRUE(sums_.Known());
  EXPECT_FALSE(sums_.TaxKnown());
  Take(Line("<CreditAmount>" + longest + "0</CreditAmount>"));
  EXPECT_TRUE(sums_.TaxKnown());
}

TEST_F(InvoiceSumsTest, SignsMayCountForNothing) {
  ForInvoice(
      "<Line><CreditAmount>-10</CreditAmount></Line><Line><DebitAmount>-3.5</DebitAmount></Line>"
      "<Line><CreditAmount>x</CreditAmount></Line>",
      [](const InvoiceFacts& facts) { EXPECT_EQ(NetWithoutSigns(facts).Text(), "6.5"); });
}

TEST_F(InvoiceSumsTest, TaxesMayBeRoundedByLineOrByRate) {
  const std::string half = "<CreditAmount>0.05</CreditAmount>" + Tax("NOR", "10");
  EXPECT_EQ(PossibleTaxes(""), "0 0 0");
  EXPECT_EQ(PossibleTaxes(Line(half)), "0.5 1 1");
  EXPECT_EQ(PossibleTaxes(Line(half) + Line(half)), "1 2 1");
  // The lines of a rate need not stand together.
  const std::string other = "<CreditAmount>0.05</CreditAmount>" + Tax("RED", "10");
  EXPECT_EQ(PossibleTaxes(Line(half) + Line(other) + Line(half)), "1.5 3 2");
  const std::string more = "<CreditAmount>0.05</CreditAmount>" + Tax("NOR", "10.0");
  EXPECT_EQ(PossibleTaxes(Line(half) + Line(more)), "1 2 1");
  const std::string another = "<CreditAmount>0.05</CreditAmount>" + Tax("NOR", "11");
  EXPECT_EQ(PossibleTaxes(Line(half) + Line(another)), "1.05 2 2");
  EXPECT_EQ(PossibleTaxes(Line("<DebitAmount>0.05</DebitAmount>" + Tax("NOR", "10"))), "0.5 1 1");
}

TEST_F(InvoiceSumsTest, TaxAmountsMayBeThoseOfAUnit) {
  EXPECT_EQ(PossibleTaxes(Line("<Quantity>3</Quantity><CreditAmount>1</CreditAmount>" + TaxAmount("0.125"))),
            "12.5 13 13 37.5 38 38");
}

TEST_F(InvoiceSumsTest, TaxesOfNegativeAmountsMayBeMeantWithoutSigns) {
  EXPECT_EQ(PossibleTaxes(Line("<CreditAmount>-1</CreditAmount>" + Tax("NOR", "10")) +
                          Line("<CreditAmount>3</CreditAmount>" + Tax("NOR", "10"))),
            "20 20 20 40 40 40");
  EXPECT_EQ(PossibleTaxes(Line("<Quantity>-2</Quantity><CreditAmount>-1</CreditAmount>" + TaxAmount("0.10"))),
            "10 10 10 10 10 10 20 20 20 20 20 20");
}

}  // namespace
}  // namespace zevo
