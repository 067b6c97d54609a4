// SPDX-License-Identifier: Apache-2.0
#include <iterator>

#include "tests/check/CheckTest.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::string_view kEntries = "SalesInvoices/NumberOfEntries";
constexpr std::string_view kTotalDebit = "SalesInvoices/TotalDebit";
constexpr std::string_view kTotalCredit = "SalesInvoices/TotalCredit";

class SectionRulesTest : public CheckTest {
 protected:
  // Invoices of 30.00 and credit notes of 4.00, live; of 10.00 and 5.00, merged into others; of 100 and 50, cancelled
  // by their status; of 1000 and 500, cancelled by the TransactionID "Anulado".
  static CleanFile OfEachState() {
    CleanFile file = CleanFile().Twice("Invoice[2]").Twice("Invoice[2]");
    for (int i = 0; i < 3; ++i) file = file.Twice("Invoice[5]");
    constexpr std::string_view kNumbers[] = {"FT A/2", "FT A/3", "FT A/4", "NC A/1", "NC A/2", "NC A/3", "NC A/4"};
    for (size_t i = 0; i < std::size(kNumbers); ++i) {
      file = file.With("Invoice[" + std::to_string(i + 2) + "]/InvoiceNo", kNumbers[i]);
    }
    return file.With("Invoice[2]/InvoiceStatus", "F")
        .With("Invoice[3]/InvoiceStatus", "A")
        .With("Invoice[3]/Line/CreditAmount", "100")
        .With("Invoice[4]/TransactionID", "Anulado")
        .With("Invoice[4]/Line/CreditAmount", "1000")
        .With("Invoice[6]/InvoiceStatus", "F")
        .With("Invoice[6]/Line/DebitAmount", "5")
        .With("Invoice[7]/InvoiceStatus", "A")
        .With("Invoice[7]/Line/DebitAmount", "50")
        .With("Invoice[8]/TransactionID", "Anulado")
        .With("Invoice[8]/Line/DebitAmount", "500")
        .With(kEntries, "8")
        .With(kTotalCredit, "30")
        .With(kTotalDebit, "4");
  }
  // The sentences of this rule alone.
  std::vector<std::string> SentencesOf(std::string_view rule, const CleanFile& file) {
    for (const RuleInfo& one : AuditFileChecker::Rules()) {
      if (one.id != rule) checker_.set_Severity(one.id, Severity::kOff);
    }
    return Sentences(file);
  }
  std::vector<std::string> OfSection(const CleanFile& file) {
    std::vector<std::string> lines = Findings(file);
    std::erase_if(lines, [](const std::string& line) { return !line.starts_with("SI-"); });
    return lines;
  }
};

TEST_F(SectionRulesTest, TheNumberOfDocumentsIsTold) {
  EXPECT_THAT(Findings(CleanFile().With(kEntries, "4")),
              ElementsAre("SI-COUNT E SalesInvoices/NumberOfEntries [4] [3] [1]"));
  EXPECT_THAT(Findings(CleanFile().With(kEntries, "+03")), IsEmpty());
  EXPECT_THAT(Findings(CleanFile().With(kEntries, "x")),
              ElementsAre("READ E SalesInvoices/NumberOfEntries [x] [integer] []"));
  EXPECT_THAT(
      Sentences(CleanFile().With(kEntries, "4")),
      ElementsAre("Faturas: NumberOfEntries é 4, mas o número de documentos do ficheiro é 3 (diferença 1).",
                  "Invoices: NumberOfEntries is 4, but the number of documents in the file is 3 (difference 1)."));
}

TEST_F(SectionRulesTest, OtherWaysToCountDocumentsAreInformation) {
  EXPECT_THAT(OfSection(OfEachState()), IsEmpty());
  EXPECT_THAT(OfSection(OfEachState().With(kEntries, "4")),
              ElementsAre("SI-COUNT I SalesInvoices/NumberOfEntries [4] [8] []"));
  EXPECT_THAT(OfSection(OfEachState().With(kEntries, "6")),
              ElementsAre("SI-COUNT I SalesInvoices/NumberOfEntries [6] [8] []"));
  EXPECT_THAT(OfSection(OfEachState().With(kEntries, "2")),
              ElementsAre("SI-COUNT E SalesInvoices/NumberOfEntries [2] [8 (-6), 4 (-2), 6 (-4)] [-6]"));
}

TEST_F(SectionRulesTest, WhichDocumentsWereCountedIsSaidInBothLanguages) {
  const auto of_entries = [&](std::string_view entries) {
    return SentencesOf("SI-COUNT", OfEachState().With(kEntries, entries));
  };
  EXPECT_THAT(of_entries("4"),
              ElementsAre("Faturas: NumberOfEntries, 4, é o número de documentos sem os anulados; ao todo são 8.",
                          "Invoices: NumberOfEntries, 4, is the number of documents without cancelled ones; in "
                          "all they are 8."));
  EXPECT_THAT(of_entries("6"),
              ElementsAre("Faturas: NumberOfEntries, 6, é o número de documentos sem os de TransactionID "
                          "\"Anulado\"; ao todo são 8.",
                          "Invoices: NumberOfEntries, 6, is the number of documents without those of "
                          "TransactionID \"Anulado\"; in all they are 8."));
  EXPECT_THAT(
      of_entries("9"),
      ElementsAre("Faturas: NumberOfEntries é 9; os documentos, com a diferença, são 8 (1) ao todo, 4 (5) sem os "
                  "anulados e 6 (3) sem os de TransactionID \"Anulado\".",
                  "Invoices: NumberOfEntries is 9; the documents, with the difference, are 8 (1) in all, 4 (5) without "
                  "cancelled ones and 6 (3) without those of TransactionID \"Anulado\"."));
}

TEST_F(SectionRulesTest, TheTotalsAreTheSumsOfTheLinesOfLiveDocuments) {
  EXPECT_THAT(Findings(CleanFile().With(kTotalCredit, "40.01")),
              ElementsAre("SI-SUM E SalesInvoices/TotalCredit [40.01] [40.00] [0.01]"));
  EXPECT_THAT(Findings(CleanFile().With(kTotalDebit, "3.9999")),
              ElementsAre("SI-SUM E SalesInvoices/TotalDebit [3.9999] [4.00] [-0.0001]"));
  EXPECT_THAT(Findings(CleanFile().With(kTotalDebit, "4.0000")), IsEmpty());
  EXPECT_THAT(Sentences(CleanFile().With(kTotalCredit, "40.01")),
              ElementsAre("Faturas: TotalCredit é 40,01, mas os créditos das linhas somam 40,00 (diferença 0,01).",
                          "Invoices: TotalCredit is 40.01, but the credits of the lines are 40.00 (difference "
                          "0.01)."));
  EXPECT_THAT(Sentences(CleanFile().With(kTotalDebit, "5")),
              ElementsAre("Faturas: TotalDebit é 5, mas os débitos das linhas somam 4,00 (diferença 1,00).",
                          "Invoices: TotalDebit is 5, but the debits of the lines are 4.00 (difference 1.00)."));
}

TEST_F(SectionRulesTest, AmountsOfMoreDecimalsMayBeOffByHalfACentEach) {
  const CleanFile file = CleanFile().With("Invoice/Line/CreditAmount", "20.005");
  EXPECT_THAT(FindingsOf("SI-SUM", file), IsEmpty());
  EXPECT_THAT(FindingsOf("SI-SUM", file.With("Invoice/Line/CreditAmount", "20.0051")),
              ElementsAre("SI-SUM E SalesInvoices/TotalCredit [40.00] [40.0051] [-0.0051]"));
  EXPECT_THAT(FindingsOf("SI-SUM", file.With("Invoice/Line[2]/CreditAmount", "10.005")), IsEmpty());
  EXPECT_THAT(FindingsOf("SI-SUM", file.With("Invoice/Line[2]/CreditAmount", "10.01")), SizeIs(1));
}

TEST_F(SectionRulesTest, OtherWaysToSumDocumentsAreInformation) {
  EXPECT_THAT(OfSection(OfEachState().With(kTotalCredit, "40")),
              ElementsAre("SI-SUM I SalesInvoices/TotalCredit [40] [30.00] []"));
  EXPECT_THAT(OfSection(OfEachState().With(kTotalCredit, "1140")),
              ElementsAre("SI-SUM I SalesInvoices/TotalCredit [1140] [30.00] []"));
  EXPECT_THAT(OfSection(OfEachState().With(kTotalCredit, "140")),
              ElementsAre("SI-SUM I SalesInvoices/TotalCredit [140] [30.00] []"));
  EXPECT_THAT(OfSection(OfEachState().With(kTotalCredit, "41")),
              ElementsAre("SI-SUM E SalesInvoices/TotalCredit [41] [30.00 (11.00), 40.00 (1.00), 1140.00 (-1099.00), "
                          "140.00 (-99.00)] [11.00]"));
  // A tolerance is that of the lines that count.
  EXPECT_THAT(OfSection(OfEachState().With("Invoice[3]/Line/CreditAmount", "100.001").With(kTotalCredit, "30.005")),
              SizeIs(1));
  EXPECT_THAT(OfSection(OfEachState().With("Invoice[3]/Line/CreditAmount", "100.001").With(kTotalCredit, "140.005")),
              ElementsAre("SI-SUM I SalesInvoices/TotalCredit [140.005] [30.00] []"));
}

TEST_F(SectionRulesTest, WhichDocumentsWereSummedIsSaidInBothLanguages) {
  const auto of_total = [&](std::string_view path, std::string_view total) {
    return SentencesOf("SI-SUM", OfEachState().With(path, total));
  };
  EXPECT_THAT(of_total(kTotalCredit, "40"),
              ElementsAre("Faturas: TotalCredit, 40, soma também os créditos dos documentos resumidos noutros (estado "
                          "F); sem eles seria 30,00.",
                          "Invoices: TotalCredit, 40, is also of the credits of documents summarised in others (status "
                          "F); without them it would be 30.00."));
  EXPECT_THAT(of_total(kTotalCredit, "1140"),
              ElementsAre("Faturas: TotalCredit, 1140, soma os créditos de todos os documentos, também dos anulados; "
                          "só dos que estão em vigor seria 30,00.",
                          "Invoices: TotalCredit, 1140, is of the credits of all documents, cancelled ones too; "
                          "of live ones only it would be 30.00."));
  EXPECT_THAT(of_total(kTotalCredit, "140"),
              ElementsAre("Faturas: TotalCredit, 140, soma os créditos de todos os documentos menos os de "
                          "TransactionID \"Anulado\"; só dos que estão em vigor seria 30,00.",
                          "Invoices: TotalCredit, 140, is of the credits of all documents but those of "
                          "TransactionID \"Anulado\"; of live ones only it would be 30.00."));
  EXPECT_THAT(of_total(kTotalCredit, "41"),
              ElementsAre("Faturas: TotalCredit é 41; os créditos das linhas, com a diferença, somam 30,00 (11,00) nos "
                          "documentos em vigor, 40,00 (1,00) nos não anulados, 1140,00 (-1099,00) em todos e 140,00 "
                          "(-99,00) nos que não têm TransactionID \"Anulado\".",
                          "Invoices: TotalCredit is 41; the credits of the lines, with the difference, are 30.00 "
                          "(11.00) of live documents, 40.00 (1.00) of those not cancelled, 1140.00 (-1099.00) of all "
                          "and 140.00 (-99.00) of those without TransactionID \"Anulado\"."));
  EXPECT_THAT(of_total(kTotalDebit, "9"),
              ElementsAre("Faturas: TotalDebit, 9, soma também os débitos dos documentos resumidos noutros (estado "
                          "F); sem eles seria 4,00.",
                          "Invoices: TotalDebit, 9, is also of the debits of documents summarised in others (status "
                          "F); without them it would be 4.00."));
  EXPECT_THAT(of_total(kTotalDebit, "559"),
              ElementsAre("Faturas: TotalDebit, 559, soma os débitos de todos os documentos, também dos anulados; só "
                          "dos que estão em vigor seria 4,00.",
                          "Invoices: TotalDebit, 559, is of the debits of all documents, cancelled ones too; of live "
                          "ones only it would be 4.00."));
  EXPECT_THAT(of_total(kTotalDebit, "59"),
              ElementsAre("Faturas: TotalDebit, 59, soma os débitos de todos os documentos menos os de TransactionID "
                          "\"Anulado\"; só dos que estão em vigor seria 4,00.",
                          "Invoices: TotalDebit, 59, is of the debits of all documents but those of TransactionID "
                          "\"Anulado\"; of live ones only it would be 4.00."));
  EXPECT_THAT(
      of_total(kTotalDebit, "1"),
      ElementsAre("Faturas: TotalDebit é 1; os débitos das linhas, com a diferença, somam 4,00 (-3,00) nos documentos "
                  "em vigor, 9,00 (-8,00) nos não anulados, 559,00 (-558,00) em todos e 59,00 (-58,00) nos que "
                  "não têm TransactionID \"Anulado\".",
                  "Invoices: TotalDebit is 1; the debits of the lines, with the difference, are 4.00 (-3.00) "
                  "of live documents, 9.00 (-8.00) of those not cancelled, 559.00 (-558.00) of all and 59.00 "
                  "(-58.00) of those without TransactionID \"Anulado\"."));
}

TEST_F(SectionRulesTest, WhatFollowsFromANegativeAmountIsNotTold) {
  const CleanFile file = CleanFile().With("Invoice/Line[2]/CreditAmount", "-10.00");
  EXPECT_THAT(OfSection(file), IsEmpty());
  EXPECT_EQ(checker_.CountOf("LINE-NEGATIVE"), 1);
  EXPECT_THAT(OfSection(file.With(kTotalCredit, "20")), IsEmpty());
  EXPECT_THAT(OfSection(file.With(kTotalCredit, "30").With(kTotalDebit, "14")), IsEmpty());
  EXPECT_THAT(OfSection(file.With(kTotalCredit, "40.01")),
              ElementsAre("SI-SUM E SalesInvoices/TotalCredit [40.01] [20.00] [20.01]"));
}

TEST_F(SectionRulesTest, ThatThereIsNoInvoiceIsToldBySchema) {
  const CleanFile file = CleanFile().Without("Invoice").Without("Invoice").Without("Invoice");
  EXPECT_THAT(Findings(file), ElementsAre("SCHEMA E SalesInvoices/Invoice [] [Invoice] []"));
  checker_.set_Severity("SCHEMA", Severity::kOff);
  EXPECT_THAT(Findings(file), ElementsAre("SI-COUNT E SalesInvoices/NumberOfEntries [3] [0] [3]",
                                          "SI-SUM E SalesInvoices/TotalDebit [4.00] [0.00] [4.00]",
                                          "SI-SUM E SalesInvoices/TotalCredit [40.00] [0.00] [40.00]"));
}

TEST_F(SectionRulesTest, WhatCannotBeReadSilencesTheSums) {
  EXPECT_THAT(
      Findings(CleanFile().With("Invoice/Line/CreditAmount", "x").With(kTotalCredit, "1").With(kTotalDebit, "5")),
      ElementsAre("READ E Invoice FT A/1/Line[1]/CreditAmount [x] [decimal] []",
                  "SI-SUM E SalesInvoices/TotalDebit [5] [4.00] [1.00]"));
  EXPECT_THAT(
      OfSection(CleanFile().Without("Invoice/Line/CreditAmount").With(kTotalCredit, "1").With(kTotalDebit, "5")),
      IsEmpty());
  EXPECT_THAT(Findings(CleanFile().Without("Invoice[2]/Line")),
              ElementsAre("SCHEMA E Invoice FT A/2/Line [] [Line] []"));
  EXPECT_THAT(OfSection(CleanFile().With(kTotalCredit, "x")), IsEmpty());
  EXPECT_THAT(OfSection(CleanFile().Without(kTotalCredit)), IsEmpty());
  // Of a cancelled document, sums that count it not are known.
  const CleanFile cancelled = OfEachState().With("Invoice[4]/Line/CreditAmount", "x");
  EXPECT_THAT(OfSection(cancelled), IsEmpty());
  EXPECT_THAT(OfSection(cancelled.With(kTotalCredit, "40")), SizeIs(1));
  EXPECT_THAT(OfSection(cancelled.With(kTotalCredit, "41")), IsEmpty());
}

TEST_F(SectionRulesTest, OfAStatusThatIsNoneItIsNotKnownWhatCounts) {
  const CleanFile file = CleanFile().With("Invoice[2]/InvoiceStatus", "Q");
  EXPECT_THAT(OfSection(file), IsEmpty());
  EXPECT_THAT(OfSection(file.With(kTotalCredit, "30").With(kEntries, "2")), IsEmpty());
  EXPECT_THAT(OfSection(CleanFile().Without("Invoice[2]/InvoiceStatus").With(kEntries, "2")), IsEmpty());
}

TEST_F(SectionRulesTest, ThePeriodIsTheMonthOfTheDate) {
  EXPECT_THAT(Findings(CleanFile().With("Invoice/Period", "4")),
              ElementsAre("SI-PERIOD W Invoice FT A/1/Period [4] [3] [1]"));
  EXPECT_THAT(Findings(CleanFile().With("Invoice/Period", "2")), SizeIs(1));
  EXPECT_THAT(Findings(CleanFile().Without("Invoice/Period")), IsEmpty());
  EXPECT_THAT(FindingsOf("SI-PERIOD", CleanFile().With("Invoice/Period", "x")), IsEmpty());
  EXPECT_THAT(FindingsOf("SI-PERIOD", CleanFile().With("Invoice/InvoiceDate", "x")), IsEmpty());
  EXPECT_THAT(Sentences(CleanFile().With("Invoice/Period", "4")),
              ElementsAre("FT A/1: o período é 4, mas a data do documento é do mês 3 do exercício.",
                          "FT A/1: the period is 4, but the date of the document is in month 3 of the fiscal year."));
}

TEST_F(SectionRulesTest, ThePeriodIsCountedFromTheBeginningOfTheFiscalYear) {
  const CleanFile file = CleanFile().With("StartDate", "2007-10-01").With("EndDate", "2008-09-30");
  EXPECT_THAT(FindingsOf("SI-PERIOD", file), ElementsAre("SI-PERIOD W Invoice FT A/1/Period [3] [6] [-3]",
                                                         "SI-PERIOD W Invoice FT A/2/Period [7] [10] [-3]",
                                                         "SI-PERIOD W Invoice NC A/1/Period [7] [10] [-3]"));
  // Where that cannot be known, it is not judged.
  EXPECT_THAT(FindingsOf("SI-PERIOD", CleanFile().With("StartDate", "2008-03-01").With("Invoice/Period", "9")),
              IsEmpty());
}

}  // namespace
}  // namespace zevo::testing
