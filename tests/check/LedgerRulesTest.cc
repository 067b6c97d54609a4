// SPDX-License-Identifier: Apache-2.0
#include "tests/check/CheckTest.h"
#include "tests/check/Shuffled.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::string_view kDebit = "Transaction/Line/DebitAmount";
constexpr std::string_view kCredit = "Transaction/Line[2]/CreditAmount";

class LedgerRulesTest : public CheckTest {
 protected:
  // A file whose fiscal year begins in another month.
  static CleanFile OfPeriod(std::string_view start, std::string_view end) {
    return CleanFile().With("StartDate", start).With("EndDate", end);
  }
};

TEST_F(LedgerRulesTest, TheNumberOfTransactionsIsTold) {
  EXPECT_THAT(Findings(CleanFile().With("GeneralLedgerEntries/NumberOfEntries", "5")),
              ElementsAre("GL-COUNT E GeneralLedgerEntries/NumberOfEntries [5] [3] [2]"));
  EXPECT_THAT(Findings(CleanFile().With("GeneralLedgerEntries/NumberOfEntries", "+03")), IsEmpty());
  EXPECT_THAT(Findings(CleanFile().With("GeneralLedgerEntries/NumberOfEntries", "99999999999999999999")),
              ElementsAre("GL-COUNT E GeneralLedgerEntries/NumberOfEntries [99999999999999999999] [3] "
                          "[99999999999999999996]"));
  EXPECT_THAT(Findings(CleanFile().With("GeneralLedgerEntries/NumberOfEntries", "x")),
              ElementsAre("READ E GeneralLedgerEntries/NumberOfEntries [x] [integer] []"));
  EXPECT_THAT(
      Sentences(CleanFile().With("GeneralLedgerEntries/NumberOfEntries", "5")),
      ElementsAre(
          "Movimentos contabilísticos: NumberOfEntries é 5, mas o número de movimentos do ficheiro é 3 (diferença "
          "2).",
          "Ledger entries: NumberOfEntries is 5, but the number of transactions in the file is 3 (difference 2)."));
}

TEST_F(LedgerRulesTest, TheTotalsAreTheSumsOfTheLines) {
  EXPECT_THAT(Findings(CleanFile().With("GeneralLedgerEntries/TotalDebit", "49.31")),
              ElementsAre("GL-SUM E GeneralLedgerEntries/TotalDebit [49.31] [49.30] [0.01]"));
  EXPECT_THAT(Findings(CleanFile().With("GeneralLedgerEntries/TotalCredit", "49.2999")),
              ElementsAre("GL-SUM E GeneralLedgerEntries/TotalCredit [49.2999] [49.30] [-0.0001]"));
  EXPECT_THAT(Findings(CleanFile().With("GeneralLedgerEntries/TotalCredit", "49.30000")), IsEmpty());
  EXPECT_THAT(
      Sentences(CleanFile().With("GeneralLedgerEntries/TotalDebit", "49.31")),
      ElementsAre("Movimentos contabilísticos: TotalDebit é 49,31, mas os débitos das linhas somam 49,30 (diferença "
                  "0,01).",
                  "Ledger entries: TotalDebit is 49.31, but the debits of the lines are 49.30 (difference 0.01)."));
}

TEST_F(LedgerRulesTest, AmountsOfMoreDecimalsMayBeOffByHalfACentEach) {
  const auto of_amount = [&](std::string_view amount) {
    return FindingsOf("GL-SUM", CleanFile().With(kDebit, amount).With(kCredit, amount));
  };
  EXPECT_THAT(of_amount("33.105"), SizeIs(1));  // of the credits, which are 3.105 too many
  EXPECT_THAT(FindingsOf("GL-SUM", CleanFile().With(kDebit, "33.105")), IsEmpty());
  EXPECT_THAT(FindingsOf("GL-SUM", CleanFile().With(kDebit, "33.1051")),
              ElementsAre("GL-SUM E GeneralLedgerEntries/TotalDebit [49.30] [49.3051] [-0.0051]"));
  const CleanFile two = CleanFile().With(kDebit, "33.105").With("Transaction[2]/Line/DebitAmount", "12.005");
  EXPECT_THAT(FindingsOf("GL-SUM", two), IsEmpty());
}

TEST_F(LedgerRulesTest, OfAmountsThatCannotBeReadNoSumIsJudged) {
  EXPECT_THAT(Findings(CleanFile().With(kDebit, "x").With("GeneralLedgerEntries/TotalDebit", "1")),
              ElementsAre("READ E Transaction 2008-03-05 V 1/Line[1]/DebitAmount [x] [decimal] []"));
  EXPECT_THAT(Findings(CleanFile().Without(kDebit)),
              ElementsAre("SCHEMA E Transaction 2008-03-05 V 1/Line[1]/DebitAmount "
                          "[] [DebitAmount, CreditAmount] []"));
  EXPECT_THAT(
      Findings(CleanFile().Without("Transaction/Line[3]").Without("Transaction/Line[2]").Without("Transaction/Line")),
      ElementsAre("SCHEMA E Transaction 2008-03-05 V 1/Line [] [Line] []"));
  // The other side is judged all the same.
  EXPECT_THAT(FindingsOf("GL-SUM", CleanFile().With(kDebit, "x").With("GeneralLedgerEntries/TotalCredit", "1")),
              SizeIs(1));
}

TEST_F(LedgerRulesTest, DebitsEqualCredits) {
  const CleanFile file = CleanFile().With(kDebit, "33.11").With("GeneralLedgerEntries/TotalDebit", "49.31");
  EXPECT_THAT(Findings(file), ElementsAre("GL-BALANCE E Transaction 2008-03-05 V 1 [33.11] [33.10] [0.01]"));
  EXPECT_THAT(Sentences(file),
              ElementsAre("Movimento 2008-03-05 V 1: os débitos somam 33,11 e os créditos 33,10 (diferença 0,01).",
                          "Transaction 2008-03-05 V 1: the debits are 33.11 and the credits 33.10 (difference 0.01)."));
  // Exactly, however long the numbers are.
  EXPECT_THAT(FindingsOf("GL-BALANCE", CleanFile().With(kDebit, "33.100000000000000000000000001")),
              ElementsAre("GL-BALANCE E Transaction 2008-03-05 V 1 [33.100000000000000000000000001] [33.10] "
                          "[0.000000000000000000000000001]"));
}

TEST_F(LedgerRulesTest, TheIdentifierHasTheDateTheJournalAndTheDocument) {
  const auto of_id = [&](std::string_view id) {
    return FindingsOf("GL-TID", CleanFile().With("Transaction/TransactionID", id));
  };
  EXPECT_THAT(of_id("2008-03-06 V 1"),
              ElementsAre("GL-TID W Transaction 2008-03-06 V 1/TransactionID [2008-03-06 V 1] [2008-03-05] []"));
  EXPECT_THAT(of_id("2008-03-05 W 1"),
              ElementsAre("GL-TID W Transaction 2008-03-05 W 1/TransactionID [2008-03-05 W 1] [V] []"));
  EXPECT_THAT(of_id("2008-03-05 V 01"),
              ElementsAre("GL-TID W Transaction 2008-03-05 V 01/TransactionID [2008-03-05 V 01] [1] []"));
  // What is no identifier, the schema tells.
  EXPECT_THAT(of_id("2008-03-05 V"), IsEmpty());
  EXPECT_THAT(of_id("2008-02-30 V 1"), IsEmpty());
  EXPECT_THAT(
      Sentences(CleanFile()
                    .With("Transaction/TransactionID", "2008-03-05 V 2")
                    .With("Invoice/TransactionID", "2008-03-05 V 2")),
      ElementsAre("Movimento 2008-03-05 V 2: TransactionID 2008-03-05 V 2 não acaba no número de arquivo do "
                  "documento, 1.",
                  "Transaction 2008-03-05 V 2: TransactionID 2008-03-05 V 2 does not end in the archival number of "
                  "the document, 1."));
}

TEST_F(LedgerRulesTest, PartsThatHaveNoRoomInTheIdentifierAreNotCompared) {
  const CleanFile file = CleanFile()
                             .With("Transaction/DocArchivalNumber", "01/0001")
                             .With("Transaction[2]/DocArchivalNumber", "01/0002")
                             .With("Journal[2]/JournalID", "D-1");
  EXPECT_THAT(Findings(file), ElementsAre("GL-TID I Transaction 2008-03-05 V 1/DocArchivalNumber [01/0001] [] []"));
  EXPECT_THAT(Findings(CleanFile().With("Transaction/DocArchivalNumber", std::string(20, '1'))), SizeIs(1));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kWarnings);
  EXPECT_THAT(Findings(CleanFile().With("Journal[2]/JournalID", "D 1")),
              ElementsAre("GL-TID I Transaction 2008-07-10 D 1 [D 1] [] []"));
}

TEST_F(LedgerRulesTest, ThePeriodIsNotBeforeTheMonthOfTheDate) {
  const auto of_period = [&](std::string_view period) {
    return Findings(CleanFile().With("Transaction/Period", period));
  };
  EXPECT_THAT(of_period("2"), ElementsAre("GL-PERIOD W Transaction 2008-03-05 V 1/Period [2] [3] [-1]"));
  EXPECT_THAT(of_period("4"), ElementsAre("GL-PERIOD I Transaction 2008-03-05 V 1/Period [4] [3] [1]"));
  EXPECT_THAT(of_period("12"), ElementsAre("GL-PERIOD I Transaction 2008-03-05 V 1/Period [12] [3] [9]"));
  EXPECT_THAT(of_period("13"), ElementsAre("GL-PERIOD W Transaction 2008-03-05 V 1/Period [13] [3] []"));
  EXPECT_THAT(of_period("0"), ElementsAre("SCHEMA E Transaction 2008-03-05 V 1/Period [0] [1] []"));
  EXPECT_THAT(of_period("17"), ElementsAre("SCHEMA E Transaction 2008-03-05 V 1/Period [17] [16] []"));
  EXPECT_THAT(
      Sentences(CleanFile().With("Transaction/Period", "2")),
      ElementsAre("Movimento 2008-03-05 V 1: o período é 2, mas a data do movimento é já do mês 3 do exercício.",
                  "Transaction 2008-03-05 V 1: the period is 2, but the date of the transaction is in month 3 of "
                  "the fiscal year."));
}

TEST_F(LedgerRulesTest, ClosingPeriodsAreOfTheLastMonth) {
  const CleanFile december = CleanFile()
                                 .With("Transaction[3]/TransactionDate", "2008-12-31")
                                 .With("Transaction[3]/TransactionID", "2008-12-31 D 1")
                                 .With("Transaction[3]/GLPostingDate", "2008-12-31T00:00:00")
                                 .With("Invoice[3]/TransactionID", "2008-12-31 D 1");
  for (const char* const period : {"12", "13", "16"}) {
    EXPECT_THAT(FindingsOf("GL-PERIOD", december.With("Transaction[3]/Period", period)), IsEmpty()) << period;
  }
  EXPECT_THAT(FindingsOf("GL-PERIOD", december.With("Transaction[3]/Period", "11")),
              ElementsAre("GL-PERIOD W Transaction 2008-12-31 D 1/Period [11] [12] [-1]"));
}

TEST_F(LedgerRulesTest, AFiscalYearMayBeginInAnyMonth) {
  // From March on: March is 1, July 5.
  CleanFile file =
      OfPeriod("2008-03-01", "2009-02-28").With("DateCreated", "2009-03-01").With("Transaction/Period", "1");
  file = file.With("Transaction[2]/Period", "5").With("Transaction[3]/Period", "5");
  EXPECT_THAT(FindingsOf("GL-PERIOD", file), IsEmpty());
  EXPECT_THAT(FindingsOf("GL-PERIOD", file.With("Transaction[3]/Period", "4")),
              ElementsAre("GL-PERIOD W Transaction 2008-07-10 D 1/Period [4] [5] [-1]"));
}

TEST_F(LedgerRulesTest, WithoutAWholeFiscalYearPeriodsAreNotJudged) {
  EXPECT_THAT(FindingsOf("GL-PERIOD", OfPeriod("2008-01-01", "2008-11-30").With("Transaction/Period", "2")), IsEmpty());
  EXPECT_THAT(FindingsOf("GL-PERIOD", OfPeriod("2008-01-02", "2008-12-31").With("Transaction/Period", "2")), IsEmpty());
}

TEST_F(LedgerRulesTest, TheDateIsInThePeriodOfTheFileAndBeforeItIsPosted) {
  const auto of_period = [&](std::string_view start, std::string_view end) {
    return FindingsOf("GL-DATE", OfPeriod(start, end));
  };
  EXPECT_THAT(of_period("2008-03-05", "2008-07-10"), IsEmpty());
  EXPECT_THAT(of_period("2008-03-05", "2008-07-09"),
              ElementsAre("GL-DATE W Transaction 2008-07-10 D 1/TransactionDate [2008-07-10] [2008-07-09] []"));
  EXPECT_THAT(of_period("2008-03-06", "2008-07-10"),
              ElementsAre("GL-DATE I Transaction 2008-03-05 V 1/TransactionDate [2008-03-05] [2008-03-06] []"));
  // HDR-PERIOD tells of a period that ends before it begins.
  EXPECT_THAT(of_period("2008-01-01", "2007-12-31"), IsEmpty());
  EXPECT_THAT(Findings(CleanFile().With("Transaction/GLPostingDate", "2008-03-05T00:00:00")), IsEmpty());
  EXPECT_THAT(Findings(CleanFile().With("Transaction/GLPostingDate", "2008-03-04T23:59:59")),
              ElementsAre("GL-DATE I Transaction 2008-03-05 V 1/GLPostingDate [2008-03-04T23:59:59] [2008-03-05] []"));
  EXPECT_THAT(
      Sentences(CleanFile().With("Transaction/GLPostingDate", "2008-03-04T23:59:59")),
      ElementsAre("Movimento 2008-03-05 V 1: o movimento foi lançado em 2008-03-04T23:59:59, antes da sua data, "
                  "2008-03-05.",
                  "Transaction 2008-03-05 V 1: the transaction was posted on 2008-03-04T23:59:59, before its date, "
                  "2008-03-05."));
}

TEST_F(LedgerRulesTest, EachRecordIsThereOnceInItsTransaction) {
  const CleanFile file = CleanFile().With("Transaction/Line[3]/RecordID", "1");
  EXPECT_THAT(Findings(file), ElementsAre("GL-RECORD E Transaction 2008-03-05 V 1/Line[3]/RecordID [1] [] []"));
  EXPECT_THAT(Sentences(file),
              ElementsAre("Movimento 2008-03-05 V 1, linha 3: RecordID 1 aparece mais do que uma vez no movimento.",
                          "Transaction 2008-03-05 V 1, line 3: RecordID 1 appears more than once in the transaction."));
  EXPECT_THAT(Findings(CleanFile().With("Transaction/Line[3]/RecordID", "01")), IsEmpty());
}

TEST_F(LedgerRulesTest, TheTransactionOfAnInvoiceExists) {
  const CleanFile file = CleanFile().With("Invoice[2]/TransactionID", "2008-07-01 V 9");
  EXPECT_THAT(Findings(file), ElementsAre("GL-INVOICE E Invoice FT A/2/TransactionID [2008-07-01 V 9] [] []"));
  EXPECT_THAT(FindingsOf("GL-INVOICE", file.With("Invoice[2]/InvoiceStatus", "A")), IsEmpty());
  EXPECT_THAT(FindingsOf("GL-INVOICE", file.With("TaxAccountingBasis", "P")), IsEmpty());
  EXPECT_THAT(FindingsOf("GL-INVOICE", CleanFile().With("Invoice[2]/TransactionID", "anulado")), IsEmpty());
  EXPECT_THAT(
      Sentences(file),
      ElementsAre(
          "FT A/2: o movimento do documento, 2008-07-01 V 9, não está entre os movimentos do ficheiro.",
          "FT A/2: the transaction of the document, 2008-07-01 V 9, is not among the transactions of the file."));
}

TEST_F(LedgerRulesTest, ThatThereAreNoTransactionsIsToldOnce) {
  const CleanFile file = CleanFile().Without("GeneralLedgerEntries");
  EXPECT_THAT(Findings(file), ElementsAre("GL-INVOICE E Invoice FT A/1/TransactionID [2008-03-05 V 1] [] [3]"));
  EXPECT_EQ(checker_.CountOf("GL-INVOICE"), 1);
  EXPECT_THAT(FindingsOf("GL-INVOICE", file.With("TaxAccountingBasis", "P")), IsEmpty());
  EXPECT_THAT(Sentences(file),
              ElementsAre("FT A/1: o movimento do documento, 2008-03-05 V 1, não está no ficheiro, que não tem nenhum "
                          "movimento (documentos com movimento: 3).",
                          "FT A/1: the transaction of the document, 2008-03-05 V 1, is not in the file, which has no "
                          "transactions at all (documents with one: 3)."));
}

TEST_F(LedgerRulesTest, OfASectionWithoutTransactionsTheCountIsTold) {
  CleanFile file = CleanFile().With("TaxAccountingBasis", "P");
  file = file.Without("Journal").Without("Journal");
  EXPECT_THAT(Findings(file), ElementsAre("GL-COUNT E GeneralLedgerEntries/NumberOfEntries [3] [0] [3]"));
  EXPECT_THAT(FindingsOf("GL-SUM", file.With("GeneralLedgerEntries/NumberOfEntries", "0")), SizeIs(2));
  checker_.set_Severity("GL-COUNT", Severity::kOff);
  EXPECT_THAT(FindingsOf("GL-SUM", file), SizeIs(2));
}

TEST_F(LedgerRulesTest, TheInvoicesOfATransactionAreNoMoreThanItsDebits) {
  const CleanFile file = CleanFile().With("Invoice/DocumentTotals/GrossTotal", "33.11");
  EXPECT_THAT(FindingsOf("GL-GROSS", file), ElementsAre("GL-GROSS W Invoice FT A/1/InvoiceNo [33.11] [33.10] [0.01]"));
  EXPECT_THAT(FindingsOf("GL-GROSS", CleanFile().With("Invoice/DocumentTotals/GrossTotal", "33.09")), IsEmpty());
  // The sum counts, and is told once, of the same invoice whatever their order.
  const CleanFile together = CleanFile()
                                 .With("Invoice[2]/TransactionID", "2008-03-05 V 1")
                                 .With("Invoice[3]/TransactionID", "2008-03-05 V 1")
                                 .With("Invoice[2]/InvoiceDate", "2008-03-05")
                                 .With("Invoice[3]/InvoiceDate", "2008-03-05");
  for (const uint64_t seed : {1U, 2U, 3U, 4U}) {
    EXPECT_THAT(FindingsOf("GL-GROSS", Shuffled(together, seed)),
                ElementsAre("GL-GROSS W Invoice NC A/1/InvoiceNo [49.30] [33.10] [16.20]"))
        << seed;
    EXPECT_THAT(FindingsOf("GL-GROSS", Shuffled(together.With("Invoice[3]/DocumentTotals/GrossTotal", "-12.00"), seed)),
                IsEmpty())
        << seed;
  }
  // What KEY-DUP and GL-NEGATIVE tell is not told again.
  EXPECT_THAT(FindingsOf("GL-GROSS", CleanFile().Twice("Invoice[2]")), IsEmpty());
  const CleanFile negative = CleanFile()
                                 .With("Transaction[3]/Line/DebitAmount", "-4.00")
                                 .With("Transaction[3]/Line[2]/DebitAmount", "-0.20")
                                 .With("Transaction[3]/Line[3]/CreditAmount", "-4.20");
  EXPECT_THAT(FindingsOf("GL-GROSS", negative), IsEmpty());
  // Those that are not live do not count, nor does what cannot be read.
  EXPECT_THAT(FindingsOf("GL-GROSS", file.With("Invoice/InvoiceStatus", "A")), IsEmpty());
  EXPECT_THAT(FindingsOf("GL-GROSS", file.With("Invoice/InvoiceStatus", "F")), IsEmpty());
  EXPECT_THAT(FindingsOf("GL-GROSS", file.With("Transaction/Line/DebitAmount", "x")), IsEmpty());
  EXPECT_THAT(FindingsOf("GL-GROSS", file.With("Invoice/DocumentTotals/GrossTotal", "x")), IsEmpty());
  EXPECT_THAT(FindingsOf("GL-GROSS", file.With("TaxAccountingBasis", "P")), IsEmpty());
  EXPECT_THAT(FindingsOf("GL-GROSS", file.Twice("Transaction")), IsEmpty());
  const std::vector<std::string> sentences = Sentences(file);
  EXPECT_THAT(sentences,
              ::testing::Contains("FT A/1: os documentos do mesmo movimento, com este, somam 33,11, mais do que os "
                                  "débitos dele, 33,10 (diferença 0,01)."));
  EXPECT_THAT(sentences,
              ::testing::Contains("FT A/1: the documents of the same transaction, with this one, are 33.11, more than "
                                  "its debits, 33.10 (difference 0.01)."));
}

TEST_F(LedgerRulesTest, AnInvoiceHasTheDateOfItsTransaction) {
  const CleanFile file = CleanFile().With("Invoice[3]/InvoiceDate", "2008-07-09");
  EXPECT_THAT(FindingsOf("GL-GROSS", file),
              ElementsAre("GL-GROSS W Invoice NC A/1/InvoiceDate [2008-07-09] [2008-07-10] []"));
  EXPECT_THAT(FindingsOf("GL-GROSS", file.With("Invoice[3]/InvoiceStatus", "A")), IsEmpty());
  EXPECT_THAT(Findings(CleanFile().With("Invoice[3]/InvoiceDate", "2007-07-10")),
              ElementsAre("DATE-RANGE E Invoice NC A/1/InvoiceDate [2007-07-10] [2008-01-01] []"));
  EXPECT_THAT(FindingsOf("GL-GROSS", CleanFile().With("Transaction[3]/TransactionDate", "x")), IsEmpty());
}

TEST_F(LedgerRulesTest, AmountsAreNotNegative) {
  const CleanFile file = CleanFile().With("Transaction/Line[3]/CreditAmount", "-3.10").With(kDebit, "26.90");
  EXPECT_THAT(FindingsOf("GL-NEGATIVE", file),
              ElementsAre("GL-NEGATIVE W Transaction 2008-03-05 V 1/Line[3]/CreditAmount [-3.10] [] []"));
  EXPECT_THAT(FindingsOf("GL-NEGATIVE", CleanFile().With(kDebit, "-0.00")), IsEmpty());
  checker_.set_Severity("GL-SUM", Severity::kOff);
  checker_.set_Severity("GL-GROSS", Severity::kOff);
  EXPECT_THAT(Sentences(file), ElementsAre("Movimento 2008-03-05 V 1, linha 3: o valor -3,10 é negativo; devia estar "
                                           "do outro lado (débito ou crédito), sem sinal.",
                                           "Transaction 2008-03-05 V 1, line 3: the amount -3.10 is negative; it "
                                           "should be on the other side (debit or credit), without a sign."));
}

TEST_F(LedgerRulesTest, AnAccountHasOneOpeningBalance) {
  const CleanFile file = CleanFile().With("GeneralLedger/OpeningCreditBalance", "0.01");
  EXPECT_THAT(FindingsOf("GL-OPENING", file),
              ElementsAre("GL-OPENING W GeneralLedger 11/OpeningCreditBalance [0.01] [1500.00] []",
                          "GL-OPENING W /AuditFile/MasterFiles [1600.00] [1600.01] [-0.01]"));
  EXPECT_EQ(Sentences(file)[0],
            "Conta 11: a conta tem saldo inicial devedor, 1500,00, e credor, 0,01; devia ter só um.");
  EXPECT_EQ(Sentences(file)[3],
            "The opening balances of movement accounts are 1600.00 in debit and 1600.01 in credit (difference -0.01).");
}

TEST_F(LedgerRulesTest, OpeningBalancesAreEqualOverMovementAccountsOrOverAll) {
  // 21 integrates 2111, so its own 100 do not count.
  EXPECT_THAT(Findings(CleanFile().With("GeneralLedger[2]/OpeningDebitBalance", "0")), IsEmpty());
  // Over all.
  const CleanFile all = CleanFile().With("GeneralLedger[3]/OpeningDebitBalance", "0");
  EXPECT_THAT(Findings(all), IsEmpty());
  EXPECT_THAT(Findings(all.With("GeneralLedger[2]/OpeningDebitBalance", "99")),
              ElementsAre("GL-OPENING W /AuditFile/MasterFiles [1500.00] [1600.00] [-100.00]"));
  EXPECT_THAT(Findings(CleanFile().With("GeneralLedger[3]/OpeningDebitBalance", "x")),
              ElementsAre("READ E GeneralLedger 2111/OpeningDebitBalance [x] [decimal] []"));
}

}  // namespace
}  // namespace zevo::testing
