// SPDX-License-Identifier: Apache-2.0
#include <initializer_list>
#include <string>

#include "tests/check/CheckTest.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::string_view kTax = "Invoice/DocumentTotals/TaxPayable";
constexpr std::string_view kNet = "Invoice/DocumentTotals/NetTotal";
constexpr std::string_view kGross = "Invoice/DocumentTotals/GrossTotal";

class TotalRulesTest : public CheckTest {
 protected:
  TotalRulesTest() {
    // What the changed invoices break elsewhere.
    for (const char* const rule : {"GL-GROSS", "LINE-AMOUNT", "LINE-NO"}) checker_.set_Severity(rule, Severity::kOff);
  }

  // The invoice FT A/2 with these lines, each a credit at the normal rate of 20.
  static CleanFile WithCredits(std::initializer_list<std::string_view> amounts) {
    CleanFile file;
    for (size_t i = 1; i < amounts.size(); ++i) file = file.Twice("Invoice[2]/Line");
    size_t number = 0;
    for (const std::string_view amount : amounts) {
      file = file.With("Invoice[2]/Line[" + std::to_string(++number) + "]/CreditAmount", amount);
    }
    return file;
  }
  std::vector<std::string> OfTax(const CleanFile& file, std::string_view payable) {
    return FindingsOf("TOT-TAX", file.With("Invoice[2]/DocumentTotals/TaxPayable", payable));
  }
  // FT A/1 with a currency.
  static CleanFile WithCurrency(std::string_view code, std::string_view element, std::string_view amount) {
    return CleanFile().Behind(kGross, std::string("<Currency><CurrencyCode>")
                                          .append(code)
                                          .append("</CurrencyCode><")
                                          .append(element)
                                          .append(">")
                                          .append(amount)
                                          .append("</")
                                          .append(element)
                                          .append("></Currency>"));
  }
};

TEST_F(TotalRulesTest, TheNetTotalIsThatOfTheLines) {
  const auto of = [&](const CleanFile& file, std::string_view net) {
    return FindingsOf("TOT-NET", file.With(kNet, net));
  };
  EXPECT_THAT(of(CleanFile(), "30.01"), IsEmpty());
  EXPECT_THAT(of(CleanFile(), "29.99"), IsEmpty());
  EXPECT_THAT(of(CleanFile(), "-30.00"), IsEmpty());
  // Two lines.
  EXPECT_THAT(of(CleanFile(), "30.02"),
              ElementsAre("TOT-NET W Invoice FT A/1/DocumentTotals/NetTotal [30.02] [30.00] [0.02]"));
  EXPECT_THAT(of(CleanFile(), "29.98"),
              ElementsAre("TOT-NET W Invoice FT A/1/DocumentTotals/NetTotal [29.98] [30.00] [-0.02]"));
  EXPECT_THAT(of(CleanFile(), "30.03"),
              ElementsAre("TOT-NET E Invoice FT A/1/DocumentTotals/NetTotal [30.03] [30.00] [0.03]"));
  EXPECT_THAT(of(CleanFile(), "30.0100000000000000000001"), SizeIs(1));
  EXPECT_THAT(of(CleanFile().With("Invoice/InvoiceStatus", "A"), "31"),
              ElementsAre("TOT-NET I Invoice FT A/1/DocumentTotals/NetTotal [31] [30.00] [1.00]"));
  EXPECT_THAT(FindingsOf("TOT-NET", CleanFile().With("Invoice[3]/DocumentTotals/NetTotal", "5.00")),
              ElementsAre("TOT-NET E Invoice NC A/1/DocumentTotals/NetTotal [5.00] [4.00] [1.00]"));
  EXPECT_THAT(of(CleanFile().With("Invoice/Line/CreditAmount", "x"), "31"), IsEmpty());
  EXPECT_THAT(of(CleanFile(), "x"), IsEmpty());
  EXPECT_THAT(of(CleanFile().Without("Invoice/Line[2]").Without("Invoice/Line"), "31"), IsEmpty());
  EXPECT_THAT(Sentences(CleanFile().With(kNet, "31.00").With(kGross, "34.10")),
              ElementsAre("FT A/1: NetTotal é 31,00, mas os valores das linhas dão 30,00 (diferença 1,00).",
                          "FT A/1: NetTotal is 31.00, but the amounts of the lines make 30.00 (difference 1.00)."));
}

TEST_F(TotalRulesTest, TheTaxIsToldWithTwoDecimals) {
  // 1.016 before it is rounded.
  EXPECT_THAT(OfTax(WithCredits({"2.54", "2.54"}), "1.00"),
              ElementsAre("TOT-TAX W Invoice FT A/2/DocumentTotals/TaxPayable [1.00] [1.02] [-0.02]"));
  EXPECT_THAT(OfTax(WithCredits({"2.54", "2.54"}), "1.01"), IsEmpty());
  // 1.014003, of two rates, unless that would hide what is more than a cent.
  const CleanFile file =
      CleanFile().With("Invoice/Line/CreditAmount", "10.14").With("Invoice/Line[2]/CreditAmount", "2.4143");
  EXPECT_THAT(FindingsOf("TOT-TAX", file.With(kTax, "1.00")),
              ElementsAre("TOT-TAX W Invoice FT A/1/DocumentTotals/TaxPayable [1.00] [1.014003] [-0.014003]"));
  EXPECT_THAT(FindingsOf("TOT-TAX", file.With(kTax, "0.99")),
              ElementsAre("TOT-TAX E Invoice FT A/1/DocumentTotals/TaxPayable [0.99] [1.01] [-0.02]"));
}

TEST_F(TotalRulesTest, DebitsAndCreditsCountAgainstEachOther) {
  const CleanFile file = CleanFile()
                             .Without("Invoice/Line[2]/CreditAmount")
                             .Behind("Invoice/Line[2]/Description", "<DebitAmount>10.00</DebitAmount>");
  EXPECT_THAT(FindingsOf("TOT-NET", file.With(kNet, "10.00")), IsEmpty());
  EXPECT_THAT(FindingsOf("TOT-NET", file),
              ElementsAre("TOT-NET E Invoice FT A/1/DocumentTotals/NetTotal [30.00] [20.00 - 10.00 = 10.00] [20.00]"));
  EXPECT_THAT(FindingsOf("TOT-NET", file.With("Invoice/Line[2]/DebitAmount", "50.00").With(kNet, "31.00")),
              ElementsAre("TOT-NET E Invoice FT A/1/DocumentTotals/NetTotal [31.00] [50.00 - 20.00 = 30.00] [1.00]"));
}

TEST_F(TotalRulesTest, AmountsThatAreNegativeMayHaveBeenMeantOtherwise) {
  const CleanFile file =
      CleanFile().With("Invoice/Line[2]/CreditAmount", "-10.00").With("SalesInvoices/TotalCredit", "20.00");
  EXPECT_THAT(Findings(file), ElementsAre("LINE-NEGATIVE E Invoice FT A/1/Line[2]/CreditAmount [-10.00] [] []"));
  const CleanFile less = file.With(kNet, "10.00").With(kTax, "1.10").With(kGross, "11.10");
  EXPECT_THAT(Findings(less), SizeIs(1));
  EXPECT_THAT(FindingsOf("TOT-NET", file.With(kNet, "20.00")), SizeIs(1));
  EXPECT_THAT(FindingsOf("TOT-TAX", file.With(kTax, "1.00")), SizeIs(1));
}

TEST_F(TotalRulesTest, TotalsHaveNoSign) {
  const CleanFile file = CleanFile().With("Invoice[3]/DocumentTotals/TaxPayable", "-0.20");
  EXPECT_THAT(Findings(file), ElementsAre("TOT-SIGN W Invoice NC A/1/DocumentTotals/TaxPayable [-0.20] [] []"));
  EXPECT_THAT(
      Sentences(file),
      ElementsAre("NC A/1: o total -0,20 é negativo; os totais escrevem-se sem sinal, também os de documentos a "
                  "débito.",
                  "NC A/1: the total -0.20 is negative; totals are written without a sign, those of debit "
                  "documents too."));
  EXPECT_THAT(Findings(CleanFile().With(kNet, "-30.00")),
              ElementsAre("TOT-SIGN W Invoice FT A/1/DocumentTotals/NetTotal [-30.00] [] []"));
  EXPECT_THAT(Findings(CleanFile().With(kGross, "-33.10")),
              ElementsAre("TOT-SIGN W Invoice FT A/1/DocumentTotals/GrossTotal [-33.10] [] []"));
  EXPECT_THAT(Findings(CleanFile().With(kTax, "-3.10").With(kNet, "-30.00").With(kGross, "-33.10")),
              ElementsAre("TOT-SIGN W Invoice FT A/1/DocumentTotals/TaxPayable [-3.10] [] []"));
  EXPECT_THAT(FindingsOf("TOT-SIGN", file.With("Invoice[3]/InvoiceStatus", "A")),
              ElementsAre("TOT-SIGN I Invoice NC A/1/DocumentTotals/TaxPayable [-0.20] [] []"));
  EXPECT_THAT(FindingsOf("TOT-SIGN", CleanFile().With(kNet, "-0.00")), IsEmpty());
}

TEST_F(TotalRulesTest, TheTaxIsThatOfTheLines) {
  EXPECT_THAT(FindingsOf("TOT-TAX", CleanFile().With(kTax, "3.11")), IsEmpty());
  EXPECT_THAT(FindingsOf("TOT-TAX", CleanFile().With(kTax, "3.09")), IsEmpty());
  EXPECT_THAT(FindingsOf("TOT-TAX", CleanFile().With(kTax, "-3.10")), IsEmpty());
  EXPECT_THAT(FindingsOf("TOT-TAX", CleanFile().With(kTax, "3.12")),
              ElementsAre("TOT-TAX W Invoice FT A/1/DocumentTotals/TaxPayable [3.12] [3.10] [0.02]"));
  EXPECT_THAT(FindingsOf("TOT-TAX", CleanFile().With(kTax, "3.07")),
              ElementsAre("TOT-TAX E Invoice FT A/1/DocumentTotals/TaxPayable [3.07] [3.10] [-0.03]"));
  const CleanFile file = CleanFile().With(kTax, "4.10").With(kGross, "34.10");
  EXPECT_THAT(Findings(file), ElementsAre("TOT-TAX E Invoice FT A/1/DocumentTotals/TaxPayable [4.10] [3.10] [1.00]"));
  EXPECT_THAT(FindingsOf("TOT-TAX", file.With("Invoice/InvoiceStatus", "A")),
              ElementsAre("TOT-TAX I Invoice FT A/1/DocumentTotals/TaxPayable [4.10] [3.10] [1.00]"));
  EXPECT_THAT(Sentences(file),
              ElementsAre("FT A/1: TaxPayable é 4,10, mas os impostos das linhas somam 3,10 (diferença 1,00).",
                          "FT A/1: TaxPayable is 4.10, but the taxes of the lines are 3.10 (difference 1.00)."));
  EXPECT_THAT(FindingsOf("TOT-TAX", CleanFile().With("Invoice[3]/DocumentTotals/TaxPayable", "1.20")),
              ElementsAre("TOT-TAX E Invoice NC A/1/DocumentTotals/TaxPayable [1.20] [0.20] [1.00]"));
}

TEST_F(TotalRulesTest, TheTaxMayBeRoundedByLine) {
  // 0.02 × 20 % is 0.004 each.
  const CleanFile file = WithCredits({"0.02", "0.02", "0.02", "0.02", "0.02", "0.02", "0.02", "0.02"});
  EXPECT_THAT(OfTax(file, "0.03"), IsEmpty());  // not rounded, 0.032
  EXPECT_THAT(OfTax(file, "0.04"), IsEmpty());
  EXPECT_THAT(OfTax(file, "0.00"), IsEmpty());  // by line
  EXPECT_THAT(OfTax(file, "0.05"), SizeIs(1));
  // 0.03 × 20 % is 0.006, rounded 0.01: 0.08 of 0.048.
  const CleanFile up = WithCredits({"0.03", "0.03", "0.03", "0.03", "0.03", "0.03", "0.03", "0.03"});
  EXPECT_THAT(OfTax(up, "0.08"), IsEmpty());
  EXPECT_THAT(OfTax(up, "0.09"), IsEmpty());
  EXPECT_THAT(OfTax(up, "0.10"),
              ElementsAre("TOT-TAX W Invoice FT A/2/DocumentTotals/TaxPayable [0.10] [0.08] [0.02]"));
  EXPECT_THAT(OfTax(up, "0.06"), IsEmpty());  // 0.05, rounded by rate, and a cent
}

TEST_F(TotalRulesTest, TheTaxMayBeRoundedByRate) {
  // Half a cent at each of eight rates: 0.04, or 0.08 when each is rounded. Two lines at each rate, of a quarter of a
  // cent, are nothing when each line is rounded.
  CleanFile file;
  for (int i = 1; i < 16; ++i) file = file.Twice("Invoice[2]/Line");
  for (int i = 1; i <= 16; ++i) {
    const std::string line = "Invoice[2]/Line[" + std::to_string(i) + "]/";
    const int rate = (i + 1) / 2;
    file = file.With(line + "Tax/TaxPercentage", std::to_string(rate))
               .With(line + "CreditAmount",
                     std::vector<std::string>{"0.25", "0.125", "0.0833333333333333334", "0.0625", "0.05",
                                              "0.0416666666666666667", "0.0357142857142857143",
                                              "0.03125"}[static_cast<size_t>(rate - 1)]);
  }
  EXPECT_THAT(OfTax(file, "0.09"), IsEmpty());
  EXPECT_THAT(OfTax(file, "0.07"), IsEmpty());
  EXPECT_THAT(OfTax(file, "0.10"),
              ElementsAre("TOT-TAX W Invoice FT A/2/DocumentTotals/TaxPayable [0.10] [0.08] [0.02]"));
  EXPECT_THAT(OfTax(file, "0.06"), SizeIs(1));
  EXPECT_THAT(OfTax(file, "0.05"), IsEmpty());  // not rounded
}

TEST_F(TotalRulesTest, ATaxAmountCountsByLineOrByQuantity) {
  const CleanFile file = CleanFile()
                             .With("Invoice/Line/Quantity", "4")
                             .With("Invoice/Line/Tax/TaxType", "IS")
                             .With("Invoice/Line/Tax/TaxCode", "17.3.1")
                             .Without("Invoice/Line/Tax/TaxPercentage")
                             .Behind("Invoice/Line/Tax/TaxCode", "<TaxAmount>1.50</TaxAmount>");
  EXPECT_THAT(FindingsOf("TOT-TAX", file.With(kTax, "3.60")), IsEmpty());
  EXPECT_THAT(FindingsOf("TOT-TAX", file.With(kTax, "8.10")), IsEmpty());
  EXPECT_THAT(FindingsOf("TOT-TAX", file.With(kTax, "5.10")),
              ElementsAre("TOT-TAX E Invoice FT A/1/DocumentTotals/TaxPayable [5.10] [3.60] [1.50]"));
  // On the other side it counts against it.
  const CleanFile debit =
      file.Without("Invoice/Line/CreditAmount").Behind("Invoice/Line/Description", "<DebitAmount>20.00</DebitAmount>");
  EXPECT_THAT(FindingsOf("TOT-TAX", debit.With(kTax, "0.60")), IsEmpty());
  EXPECT_THAT(FindingsOf("TOT-TAX", debit.With(kTax, "3.90")), IsEmpty());
}

TEST_F(TotalRulesTest, LinesWithoutTaxHaveNone) {
  EXPECT_THAT(FindingsOf("TOT-TAX", CleanFile().Without("Invoice/Line[2]/Tax").With(kTax, "1.00")), IsEmpty());
  const CleanFile none = CleanFile().Without("Invoice/Line[2]/Tax").Without("Invoice/Line/Tax");
  EXPECT_THAT(FindingsOf("TOT-TAX", none),
              ElementsAre("TOT-TAX E Invoice FT A/1/DocumentTotals/TaxPayable [3.10] [0.00] [3.10]"));
  EXPECT_THAT(FindingsOf("TOT-TAX", none.With(kTax, "0.00")), IsEmpty());
  // What is not known is not judged.
  const CleanFile wrong = CleanFile().With(kTax, "9.00");
  for (const char* const unread :
       {"Invoice/Line[2]/Tax/TaxPercentage", "Invoice/Line[2]/CreditAmount", "Invoice/DocumentTotals/TaxPayable"}) {
    EXPECT_THAT(FindingsOf("TOT-TAX", wrong.With(unread, "x")), IsEmpty()) << unread;
    EXPECT_THAT(FindingsOf("TOT-TAX", wrong.Without(unread)), IsEmpty()) << unread;
  }
  EXPECT_THAT(FindingsOf("TOT-TAX", wrong.With("Invoice/Line/CreditAmount", std::string(20'000, '9'))), IsEmpty());
  EXPECT_THAT(FindingsOf("TOT-TAX", wrong.With(kTax, std::string(20'000, '9'))), IsEmpty());
  EXPECT_THAT(FindingsOf("TOT-TAX", wrong.With("Invoice/Line/CreditAmount", std::string(900, '9'))), SizeIs(1));
}

TEST_F(TotalRulesTest, TheGrossTotalIsNetAndTax) {
  EXPECT_THAT(Findings(CleanFile().With(kGross, "33.09")),
              ElementsAre("TOT-GROSS E Invoice FT A/1/DocumentTotals/GrossTotal [33.09] [30.00 + 3.10 = 33.10] "
                          "[-0.01]"));
  EXPECT_THAT(FindingsOf("TOT-GROSS", CleanFile().With(kGross, "33.09").With("Invoice/InvoiceStatus", "A")),
              ElementsAre("TOT-GROSS I Invoice FT A/1/DocumentTotals/GrossTotal [33.09] [30.00 + 3.10 = 33.10] "
                          "[-0.01]"));
  EXPECT_THAT(Sentences(CleanFile().With(kGross, "33.09")),
              ElementsAre("FT A/1: GrossTotal é 33,09, mas NetTotal e TaxPayable somam 30,00 + 3,10 = 33,10 (diferença "
                          "-0,01).",
                          "FT A/1: GrossTotal is 33.09, but NetTotal and TaxPayable are 30.00 + 3.10 = 33.10 "
                          "(difference -0.01)."));
  for (const char* const unread :
       {"Invoice/DocumentTotals/NetTotal", "Invoice/DocumentTotals/TaxPayable", "Invoice/DocumentTotals/GrossTotal"}) {
    EXPECT_THAT(FindingsOf("TOT-GROSS", CleanFile().With(kGross, "40.00").With(unread, "x")), IsEmpty()) << unread;
  }
}

TEST_F(TotalRulesTest, EachSideOfTheGrossTotalIsRoundedOnce) {
  const CleanFile file = CleanFile().With(kNet, "30.004").With(kTax, "3.104");
  EXPECT_THAT(FindingsOf("TOT-GROSS", file.With(kGross, "33.11")), IsEmpty());
  EXPECT_THAT(FindingsOf("TOT-GROSS", file.With(kGross, "33.105")), IsEmpty());
  EXPECT_THAT(FindingsOf("TOT-GROSS", file.With(kGross, "33.1149")), IsEmpty());
  EXPECT_THAT(FindingsOf("TOT-GROSS", file.With(kGross, "33.104")),
              ElementsAre("TOT-GROSS E Invoice FT A/1/DocumentTotals/GrossTotal [33.104] [30.004 + 3.104 = 33.11] "
                          "[-0.01]"));
}

TEST_F(TotalRulesTest, AGrossTotalThatGoesWithTheLinesIsNotToldBesideAnother) {
  EXPECT_THAT(Findings(CleanFile().With(kNet, "20.00")),
              ElementsAre("TOT-NET E Invoice FT A/1/DocumentTotals/NetTotal [20.00] [30.00] [-10.00]"));
  EXPECT_THAT(Findings(CleanFile().With(kTax, "2.10")),
              ElementsAre("TOT-TAX E Invoice FT A/1/DocumentTotals/TaxPayable [2.10] [3.10] [-1.00]"));
  EXPECT_THAT(Findings(CleanFile().With(kTax, "2.10").With(kNet, "20.00")), SizeIs(2));
  // One that goes with neither is told, and so is one beside a warning.
  EXPECT_THAT(FindingsOf("TOT-GROSS", CleanFile().With(kNet, "20.00").With(kGross, "40.00")), SizeIs(1));
  EXPECT_THAT(FindingsOf("TOT-GROSS", CleanFile().With(kNet, "30.02")), SizeIs(1));
  checker_.set_Severity("TOT-NET", Severity::kOff);
  EXPECT_THAT(FindingsOf("TOT-GROSS", CleanFile().With(kNet, "20.00")), SizeIs(1));
  checker_.set_Severity("TOT-SIGN", Severity::kOff);
  EXPECT_THAT(FindingsOf("TOT-GROSS", CleanFile().With(kGross, "-33.10")),
              ElementsAre("TOT-GROSS E Invoice FT A/1/DocumentTotals/GrossTotal [-33.10] [30.00 + 3.10 = 33.10] "
                          "[-66.20]"));
  EXPECT_THAT(FindingsOf("TOT-GROSS", CleanFile().With(kTax, "-3.10").With(kGross, "33.10")),
              ElementsAre("TOT-GROSS E Invoice FT A/1/DocumentTotals/GrossTotal [33.10] [30.00 - 3.10 = 26.90] "
                          "[6.20]"));
}

TEST_F(TotalRulesTest, ASettlementDoesNotChangeTheGrossTotal) {
  EXPECT_THAT(
      Findings(CleanFile().Behind(kGross, "<Settlement><SettlementAmount>1.00</SettlementAmount></Settlement>")),
      IsEmpty());
}

TEST_F(TotalRulesTest, ACurrencyIsAnother) {
  EXPECT_THAT(Findings(WithCurrency("USD", "CurrencyCreditAmount", "45.10")), IsEmpty());
  const CleanFile euro = WithCurrency("EUR", "CurrencyCreditAmount", "33.10");
  EXPECT_THAT(Findings(euro), ElementsAre("CUR W Invoice FT A/1/DocumentTotals/Currency/CurrencyCode [EUR] [] []"));
  EXPECT_THAT(FindingsOf("CUR", euro.With("Invoice/InvoiceStatus", "A")),
              ElementsAre("CUR I Invoice FT A/1/DocumentTotals/Currency/CurrencyCode [EUR] [] []"));
  EXPECT_THAT(Sentences(euro),
              ElementsAre("FT A/1: a moeda é EUR; Currency é só para documentos emitidos noutra moeda.",
                          "FT A/1: the currency is EUR; Currency is only for documents issued in another currency."));
}

TEST_F(TotalRulesTest, TheAmountOfACurrencyIsMoreThanZero) {
  const CleanFile zero = WithCurrency("USD", "CurrencyCreditAmount", "0.00");
  EXPECT_THAT(Findings(zero),
              ElementsAre("CUR W Invoice FT A/1/DocumentTotals/Currency/CurrencyCreditAmount [0.00] [] []"));
  EXPECT_THAT(Sentences(zero),
              ElementsAre("FT A/1: o valor em moeda estrangeira é 0,00; devia ser maior do que zero, também em "
                          "documentos a débito.",
                          "FT A/1: the amount in foreign currency is 0.00; it should be more than zero, in debit "
                          "documents too."));
  EXPECT_THAT(Findings(WithCurrency("USD", "CurrencyCreditAmount", "0.01")), IsEmpty());
  EXPECT_THAT(FindingsOf("CUR", WithCurrency("USD", "CurrencyCreditAmount", "-45.10")), SizeIs(1));
  EXPECT_THAT(FindingsOf("CUR", WithCurrency("USD", "CurrencyCreditAmount", "x")), IsEmpty());
  EXPECT_THAT(FindingsOf("CUR", zero.With(kGross, "0.00")), IsEmpty());
}

TEST_F(TotalRulesTest, TheAmountOfACurrencyIsOnTheSideOfTheDocument) {
  const CleanFile file = WithCurrency("USD", "CurrencyDebitAmount", "45.10");
  EXPECT_THAT(Findings(file), ElementsAre("CUR W Invoice FT A/1/DocumentTotals/Currency/CurrencyDebitAmount [45.10] "
                                          "[CurrencyCreditAmount] []"));
  EXPECT_THAT(
      Sentences(file),
      ElementsAre("FT A/1: o valor em moeda estrangeira, 45,10, devia estar em CurrencyCreditAmount num documento "
                  "deste tipo.",
                  "FT A/1: the amount in foreign currency, 45.10, should be in CurrencyCreditAmount in a "
                  "document of this type."));
  EXPECT_THAT(FindingsOf("CUR", file.With("Invoice/InvoiceType", "NC")), IsEmpty());
  EXPECT_THAT(FindingsOf("CUR", WithCurrency("USD", "CurrencyCreditAmount", "45.10").With("Invoice/InvoiceType", "RE")),
              ElementsAre("CUR W Invoice FT A/1/DocumentTotals/Currency/CurrencyCreditAmount [45.10] "
                          "[CurrencyDebitAmount] []"));
  EXPECT_THAT(FindingsOf("CUR", file.With("Invoice/InvoiceType", "XX")), IsEmpty());
}

TEST_F(TotalRulesTest, TheAmountOfACurrencyIsHardlyTheGrossTotal) {
  const CleanFile file = WithCurrency("USD", "CurrencyCreditAmount", "33.1");
  EXPECT_THAT(Findings(file),
              ElementsAre("CUR I Invoice FT A/1/DocumentTotals/Currency/CurrencyCreditAmount [33.1] [] []"));
  EXPECT_THAT(Sentences(file),
              ElementsAre("FT A/1: o valor em moeda estrangeira, 33,1, é igual a GrossTotal, que é em euros.",
                          "FT A/1: the amount in foreign currency, 33.1, is equal to GrossTotal, which is in euros."));
}

}  // namespace
}  // namespace zevo::testing
