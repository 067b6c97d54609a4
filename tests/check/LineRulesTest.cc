// SPDX-License-Identifier: Apache-2.0
#include "tests/check/CheckTest.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class LineRulesTest : public CheckTest {
 protected:
  // The findings of LINE-AMOUNT with another amount of the line of 20 at 1.00.
  std::vector<std::string> OfAmount(std::string_view amount, const CleanFile& file = CleanFile()) {
    return FindingsOf("LINE-AMOUNT", file.With("Invoice/Line/CreditAmount", amount));
  }
  // The credit note has a credit of so much as well.
  static CleanFile WithCredit(std::string_view amount) {
    return CleanFile()
        .Twice("Invoice[3]/Line")
        .With("Invoice[3]/Line[2]/LineNumber", "2")
        .With("Invoice[3]/Line[2]/UnitPrice", amount)
        .With("Invoice[3]/Line[2]/Quantity", "1")
        .Without("Invoice[3]/Line[2]/DebitAmount")
        .Behind("Invoice[3]/Line[2]/Description",
                std::string("<CreditAmount>").append(amount).append("</CreditAmount>"));
  }
};

TEST_F(LineRulesTest, ALineNumberIsThereOnce) {
  const CleanFile file = CleanFile().With("Invoice/Line[2]/LineNumber", "1");
  EXPECT_THAT(Findings(file), ElementsAre("LINE-NO E Invoice FT A/1/Line[2]/LineNumber [1] [] []"));
  EXPECT_THAT(Sentences(file), ElementsAre("FT A/1, linha 2: o número de linha 1 aparece mais do que uma vez no "
                                           "documento.",
                                           "FT A/1, line 2: line number 1 appears more than once in the document."));
  EXPECT_THAT(Findings(CleanFile().With("Invoice/Line[2]/LineNumber", "01")),
              ElementsAre("LINE-NO E Invoice FT A/1/Line[2]/LineNumber [01] [] []"));
}

TEST_F(LineRulesTest, ALineNumberThatIsRepeatedIsToldOnce) {
  CleanFile file = CleanFile().With("Invoice/Line[2]/LineNumber", "1");
  for (int i = 0; i < 3; ++i) file = file.Twice("Invoice/Line[2]");
  EXPECT_THAT(FindingsOf("LINE-NO", file), ElementsAre("LINE-NO E Invoice FT A/1/Line[2]/LineNumber [1] [] []"));
  file = file.With("Invoice/Line[3]/LineNumber", "7").With("Invoice/Line[5]/LineNumber", "7");
  EXPECT_THAT(FindingsOf("LINE-NO", file), ElementsAre("LINE-NO E Invoice FT A/1/Line[2]/LineNumber [1] [] []",
                                                       "LINE-NO E Invoice FT A/1/Line[5]/LineNumber [7] [] []"));
}

TEST_F(LineRulesTest, LineNumbersAscend) {
  const CleanFile file = CleanFile().With("Invoice/Line/LineNumber", "2").With("Invoice/Line[2]/LineNumber", "1");
  EXPECT_THAT(Findings(file), ElementsAre("LINE-NO W Invoice FT A/1/Line[2]/LineNumber [1] [2] []"));
  EXPECT_THAT(Sentences(file),
              ElementsAre("FT A/1, linha 2: o número de linha 1 vem depois do número 2; os números de linha deviam ser "
                          "crescentes.",
                          "FT A/1, line 2: line number 1 comes behind number 2; line numbers should ascend."));
  // Once a document.
  const CleanFile more = file.Twice("Invoice/Line[2]")
                             .With("Invoice/Line/LineNumber", "4")
                             .With("Invoice/Line[2]/LineNumber", "3")
                             .With("Invoice/Line[3]/LineNumber", "2");
  EXPECT_THAT(FindingsOf("LINE-NO", more), ElementsAre("LINE-NO W Invoice FT A/1/Line[2]/LineNumber [3] [4] []"));
}

TEST_F(LineRulesTest, LineNumbersCountFromOne) {
  const CleanFile file = CleanFile().With("Invoice/Line/LineNumber", "10").With("Invoice/Line[2]/LineNumber", "20");
  EXPECT_THAT(Findings(file), ElementsAre("LINE-NO I Invoice FT A/1/Line[1]/LineNumber [10] [1] []"));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kClean);
  EXPECT_THAT(Findings(CleanFile().With("Invoice/Line[2]/LineNumber", "3")),
              ElementsAre("LINE-NO I Invoice FT A/1/Line[2]/LineNumber [3] [2] []"));
  EXPECT_THAT(Sentences(CleanFile().With("Invoice/Line[2]/LineNumber", "3")),
              ElementsAre("FT A/1, linha 2: o número de linha é 3; contando as linhas a partir de 1 seria 2.",
                          "FT A/1, line 2: the line number is 3; counting lines from 1 on it would be 2."));
  EXPECT_THAT(FindingsOf("LINE-NO", file.With("Invoice/Line[2]/LineNumber", "x")), IsEmpty());
}

TEST_F(LineRulesTest, TheAmountOfALineIsQuantityTimesPrice) {
  // 0.01, and half a cent for each of 20.
  EXPECT_THAT(OfAmount("20.11"), IsEmpty());
  EXPECT_THAT(OfAmount("19.89"), IsEmpty());
  EXPECT_THAT(OfAmount("20.12"),
              ElementsAre("LINE-AMOUNT W Invoice FT A/1/Line[1]/CreditAmount [20.12] [20 × 1.00 = 20.00] [0.12]"));
  EXPECT_THAT(OfAmount("19.88"),
              ElementsAre("LINE-AMOUNT W Invoice FT A/1/Line[1]/CreditAmount [19.88] [20 × 1.00 = 20.00] [-0.12]"));
  EXPECT_THAT(Findings(CleanFile().With("Invoice/Line/UnitPrice", "1.50")),
              ElementsAre("LINE-AMOUNT W Invoice FT A/1/Line[1]/CreditAmount [20.00] [20 × 1.50 = 30.00] [-10.00]"));
  EXPECT_THAT(Sentences(CleanFile().With("Invoice/Line/UnitPrice", "1.50")),
              ElementsAre("FT A/1, linha 1: o valor da linha é 20,00, mas a quantidade e o preço dão 20 × 1,50 = 30,00 "
                          "(diferença -10,00).",
                          "FT A/1, line 1: the amount of the line is 20.00, but quantity and price make 20 × 1.50 = "
                          "30.00 (difference -10.00)."));
  EXPECT_THAT(FindingsOf("LINE-AMOUNT", CleanFile().With("Invoice[3]/Line/Quantity", "5")),
              ElementsAre("LINE-AMOUNT W Invoice NC A/1/Line[1]/DebitAmount [4.00] [5 × 1.00 = 5.00] [-1.00]"));
}

TEST_F(LineRulesTest, OfACancelledDocumentTheAmountOfALineIsOnlyInformation) {
  EXPECT_THAT(OfAmount("25.00", CleanFile().With("Invoice/InvoiceStatus", "A")),
              ElementsAre("LINE-AMOUNT I Invoice FT A/1/Line[1]/CreditAmount [25.00] [20 × 1.00 = 20.00] [5.00]"));
}

TEST_F(LineRulesTest, ASettlementMayBeInTheAmountOrNot) {
  const CleanFile file = CleanFile().Behind("Invoice/Line/Tax", "<SettlementAmount>2.00</SettlementAmount>");
  EXPECT_THAT(OfAmount("20.00", file), IsEmpty());
  EXPECT_THAT(OfAmount("18.00", file), IsEmpty());
  EXPECT_THAT(OfAmount("17.89", file), IsEmpty());
  EXPECT_THAT(
      OfAmount("17.50", file),
      ElementsAre("LINE-AMOUNT W Invoice FT A/1/Line[1]/CreditAmount [17.50] [20 × 1.00 - 2.00 = 18.00] [-0.50]"));
  EXPECT_THAT(OfAmount("20.50", file),
              ElementsAre("LINE-AMOUNT W Invoice FT A/1/Line[1]/CreditAmount [20.50] [20 × 1.00 = 20.00] [0.50]"));
  // What is given away.
  EXPECT_THAT(OfAmount("0.00", file.With("Invoice/Line/SettlementAmount", "20.00")), IsEmpty());
  EXPECT_THAT(OfAmount("17.50", file.With("Invoice/Line/SettlementAmount", "x")), IsEmpty());
}

TEST_F(LineRulesTest, LinesOfNothingAndWithoutSignsGo) {
  EXPECT_THAT(OfAmount("0.00", CleanFile().With("Invoice/Line/Quantity", "0")), IsEmpty());
  EXPECT_THAT(OfAmount("0.00", CleanFile().With("Invoice/Line/UnitPrice", "0")), IsEmpty());
  EXPECT_THAT(OfAmount("0.00"), SizeIs(1));
  EXPECT_THAT(OfAmount("-20.00", CleanFile().With("Invoice/Line/Quantity", "-20")), IsEmpty());
  EXPECT_THAT(OfAmount("20.00", CleanFile().With("Invoice/Line/UnitPrice", "-1.00")), IsEmpty());
  for (const char* const unread : {"Invoice/Line/Quantity", "Invoice/Line/UnitPrice", "Invoice/Line/CreditAmount"}) {
    EXPECT_THAT(FindingsOf("LINE-AMOUNT", CleanFile().With(unread, "1,5")), IsEmpty()) << unread;
  }
}

TEST_F(LineRulesTest, TheMostPreciseUnitPriceCountsWhereverItIs) {
  constexpr std::string_view kFound =
      "LINE-AMOUNT W Invoice FT A/1/Line[1]/CreditAmount [20.11] [20 × 1.00 = 20.00] [0.11]";
  EXPECT_THAT(OfAmount("20.11"), IsEmpty());
  for (const char* const price : {"Invoice/Line[2]/UnitPrice", "Invoice[2]/Line/UnitPrice"}) {
    const CleanFile precise = CleanFile().With(price, "10.001");
    EXPECT_THAT(OfAmount("20.02", precise), IsEmpty()) << price;
    EXPECT_THAT(OfAmount("20.03", precise), SizeIs(1)) << price;
    EXPECT_THAT(OfAmount("20.11", precise), ElementsAre(kFound)) << price;
    EXPECT_THAT(OfAmount("20.11", CleanFile().With(price, "10.000")), IsEmpty()) << price;
    EXPECT_THAT(OfAmount("20.11", precise.With("Invoice/InvoiceStatus", "A")),
                ElementsAre("LINE-AMOUNT I Invoice FT A/1/Line[1]/CreditAmount [20.11] [20 × 1.00 = 20.00] [0.11]"));
  }
  // Each decimal more takes a tenth.
  EXPECT_THAT(OfAmount("20.0101", CleanFile().With("Invoice[2]/Line/UnitPrice", "10.00001")), IsEmpty());
  EXPECT_THAT(OfAmount("20.0102", CleanFile().With("Invoice[2]/Line/UnitPrice", "10.00001")), SizeIs(1));
}

TEST_F(LineRulesTest, DoubtfulAmountsComeInTheOrderOfTheFileAndAreCounted) {
  CleanFile file = CleanFile().With("Invoice/Line/CreditAmount", "20.05").With("Invoice[2]/Line/UnitPrice", "10.0001");
  for (int i = 0; i < 24; ++i) file = file.Twice("Invoice/Line");
  file = file.With("Invoice/Line[2]/CreditAmount", "20.012");
  const auto findings = FindingsOf("LINE-AMOUNT", file);
  ASSERT_THAT(findings, SizeIs(20));
  EXPECT_EQ(findings[0], "LINE-AMOUNT W Invoice FT A/1/Line[1]/CreditAmount [20.05] [20 × 1.00 = 20.00] [0.05]");
  EXPECT_EQ(findings[1], "LINE-AMOUNT W Invoice FT A/1/Line[2]/CreditAmount [20.012] [20 × 1.00 = 20.00] [0.012]");
  EXPECT_EQ(findings[2], "LINE-AMOUNT W Invoice FT A/1/Line[3]/CreditAmount [20.05] [20 × 1.00 = 20.00] [0.05]");
  EXPECT_EQ(checker_.CountOf("LINE-AMOUNT"), 25);
  checker_.set_MostFindings(0);
  EXPECT_THAT(FindingsOf("LINE-AMOUNT", file), SizeIs(25));
  EXPECT_THAT(FindingsOf("LINE-AMOUNT", file.With("Invoice[2]/Line/UnitPrice", "10.00")), IsEmpty());
}

TEST_F(LineRulesTest, TheLastDigitOfALongQuantityIsRounded) {
  const auto of = [&](std::string_view quantity, std::string_view amount) {
    return OfAmount(
        amount, CleanFile().With("Invoice/Line/Quantity", quantity).With("Invoice[2]/Line/UnitPrice", "10.0000000001"));
  };
  EXPECT_THAT(of("1234567", "1234567.51"), IsEmpty());
  EXPECT_THAT(of("1234567", "1234567.52"), SizeIs(1));
  EXPECT_THAT(of("12345.67", "12345.685"), IsEmpty());
  EXPECT_THAT(of("12345.67", "12345.686"), SizeIs(1));
  EXPECT_THAT(of("123456", "123456.01"), IsEmpty());
  EXPECT_THAT(of("123456", "123456.02"), SizeIs(1));
  EXPECT_THAT(of("0123456", "123456.02"), SizeIs(1));
  EXPECT_THAT(of("0.000123456", "0.02"), SizeIs(1));
}

TEST_F(LineRulesTest, NumbersOfAnyLengthAreExact) {
  const CleanFile file = CleanFile().With("Invoice[2]/Line/UnitPrice", "10.000000000000000001");
  EXPECT_THAT(OfAmount("100000.0100000000000501", file.With("Invoice/Line/Quantity", "100000")), SizeIs(1));
  EXPECT_THAT(OfAmount("100000.01000000000005", file.With("Invoice/Line/Quantity", "100000")), IsEmpty());
  EXPECT_THAT(OfAmount("40000000000000000000", CleanFile().With("Invoice/Line/Quantity", "20000000000000000000")),
              SizeIs(1));
  // Such as nobody can multiply.
  EXPECT_THAT(OfAmount("1", CleanFile().With("Invoice/Line/Quantity", std::string(20'000, '9'))), IsEmpty());
}

TEST_F(LineRulesTest, DocumentsHaveOneSide) {
  const CleanFile file = WithCredit("1.00");
  EXPECT_THAT(FindingsOf("LINE-SIDE", file),
              ElementsAre("LINE-SIDE W Invoice NC A/1/Line[2]/CreditAmount [1.00] [DebitAmount] []"));
  EXPECT_THAT(FindingsOf("LINE-SIDE", file.With("Invoice[3]/InvoiceStatus", "A")),
              ElementsAre("LINE-SIDE I Invoice NC A/1/Line[2]/CreditAmount [1.00] [DebitAmount] []"));
  EXPECT_THAT(FindingsOf("LINE-SIDE", WithCredit("0.00")), IsEmpty());
  // Every line on the wrong side is told, while the sum is on the right one.
  EXPECT_THAT(FindingsOf("LINE-SIDE", file.Twice("Invoice[3]/Line[2]")), SizeIs(2));
  EXPECT_THAT(FindingsOf("LINE-SIDE", WithCredit("4.00")), SizeIs(1));
  for (const char* const type : {"TD", "DA", "RE"}) {
    EXPECT_THAT(FindingsOf("LINE-SIDE", file.With("Invoice[3]/InvoiceType", type)), SizeIs(1)) << type;
  }
}

TEST_F(LineRulesTest, ASumOnTheOtherSideIsToldOnce) {
  const CleanFile file = WithCredit("4.01").Twice("Invoice[3]/Line[2]");
  EXPECT_THAT(FindingsOf("LINE-SIDE", file),
              ElementsAre("LINE-SIDE W Invoice NC A/1/Line[2]/CreditAmount [4.02] [DebitAmount] []"));
  const CleanFile debit = CleanFile().With("Invoice[3]/InvoiceType", "FT");
  EXPECT_THAT(FindingsOf("LINE-SIDE", debit),
              ElementsAre("LINE-SIDE W Invoice NC A/1/Line[1]/DebitAmount [4.00] [CreditAmount] []"));
  for (const char* const type : {"FS", "ND", "VD", "TV", "AA", "RP", "CS", "LD", "RA"}) {
    EXPECT_THAT(FindingsOf("LINE-SIDE", debit.With("Invoice[3]/InvoiceType", type)), SizeIs(1)) << type;
  }
  // Of no type that there is.
  EXPECT_THAT(FindingsOf("LINE-SIDE", debit.With("Invoice[3]/InvoiceType", "XX")), IsEmpty());
}

TEST_F(LineRulesTest, ASideIsToldInBothLanguages) {
  EXPECT_THAT(Sentences(WithCredit("1.00")),
              ::testing::IsSupersetOf(
                  {"NC A/1, linha 2: o valor 1,00 está a crédito; num documento deste tipo devia estar a débito, em "
                   "DebitAmount.",
                   "NC A/1, line 2: the amount 1.00 is a credit; in a document of this type it should be a debit, in "
                   "DebitAmount."}));
  EXPECT_THAT(Sentences(WithCredit("5.00")),
              ::testing::IsSupersetOf(
                  {"NC A/1: as linhas somam 1,00 a crédito; num documento deste tipo deviam estar a débito, "
                   "em DebitAmount.",
                   "NC A/1: the lines come to a credit of 1.00; in a document of this type they should be "
                   "debits, in DebitAmount."}));
  EXPECT_THAT(Sentences(WithCredit("1.00").With("Invoice[3]/InvoiceType", "FT")),
              ::testing::IsSupersetOf(
                  {"NC A/1: as linhas somam 3,00 a débito; num documento deste tipo deviam estar a crédito, em "
                   "CreditAmount.",
                   "NC A/1: the lines come to a debit of 3.00; in a document of this type they should be "
                   "credits, in CreditAmount."}));
  EXPECT_THAT(Sentences(WithCredit("5.00").With("Invoice[3]/InvoiceType", "FT")),
              ::testing::IsSupersetOf(
                  {"NC A/1, linha 1: o valor 4,00 está a débito; num documento deste tipo devia estar a crédito, em "
                   "CreditAmount.",
                   "NC A/1, line 1: the amount 4.00 is a debit; in a document of this type it should be a credit, in "
                   "CreditAmount."}));
}

TEST_F(LineRulesTest, NothingOfALineIsNegative) {
  const CleanFile quantity = CleanFile().With("Invoice/Line/Quantity", "-20");
  EXPECT_THAT(Findings(quantity), ElementsAre("LINE-NEGATIVE E Invoice FT A/1/Line[1]/Quantity [-20] [] []"));
  EXPECT_THAT(FindingsOf("LINE-NEGATIVE", quantity.With("Invoice/InvoiceStatus", "A")),
              ElementsAre("LINE-NEGATIVE I Invoice FT A/1/Line[1]/Quantity [-20] [] []"));
  const CleanFile amount = CleanFile().With("Invoice/Line/CreditAmount", "-20.00");
  EXPECT_THAT(FindingsOf("LINE-NEGATIVE", amount),
              ElementsAre("LINE-NEGATIVE E Invoice FT A/1/Line[1]/CreditAmount [-20.00] [] []"));
  EXPECT_THAT(FindingsOf("LINE-NEGATIVE", CleanFile().With("Invoice[3]/Line/DebitAmount", "-4.00")),
              ElementsAre("LINE-NEGATIVE E Invoice NC A/1/Line[1]/DebitAmount [-4.00] [] []"));
  const CleanFile settlement = CleanFile().Behind("Invoice/Line/Tax", "<SettlementAmount>-0.01</SettlementAmount>");
  EXPECT_THAT(Findings(settlement),
              ElementsAre("LINE-NEGATIVE E Invoice FT A/1/Line[1]/SettlementAmount [-0.01] [] []"));
  // All of a line is one fault.
  EXPECT_THAT(FindingsOf("LINE-NEGATIVE", amount.With("Invoice/Line/Quantity", "-20")), SizeIs(1));
  EXPECT_THAT(FindingsOf("LINE-NEGATIVE", CleanFile()
                                              .With("Invoice/Line/Quantity", "-0.0")
                                              .With("Invoice/Line/CreditAmount", "-0.00")
                                              .With("Invoice/Line/UnitPrice", "-1.00")),
              IsEmpty());
  EXPECT_THAT(Sentences(quantity),
              ElementsAre("FT A/1, linha 1: a quantidade -20 é negativa; escreve-se sem sinal, e o valor da linha "
                          "também, do outro lado (débito ou crédito) se for preciso.",
                          "FT A/1, line 1: the quantity -20 is negative; it is written without a sign, and so is the "
                          "amount of the line, on the other side (debit or credit) if need be."));
  EXPECT_THAT(
      Sentences(amount),
      ::testing::IsSupersetOf(
          {"FT A/1, linha 1: o valor -20,00 é negativo; devia estar do outro lado (débito ou crédito), sem sinal.",
           "FT A/1, line 1: the amount -20.00 is negative; it should be on the other side (debit or credit), without a "
           "sign."}));
  EXPECT_THAT(Sentences(settlement),
              ElementsAre("FT A/1, linha 1: o desconto -0,01 é negativo; os descontos escrevem-se sem sinal.",
                          "FT A/1, line 1: the discount -0.01 is negative; discounts are written without a sign."));
}

}  // namespace
}  // namespace zevo::testing
