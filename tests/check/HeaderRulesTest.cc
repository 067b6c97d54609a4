// SPDX-License-Identifier: Apache-2.0
#include "tests/check/CheckTest.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class HeaderRulesTest : public CheckTest {
 protected:
  static CleanFile OfBasis(std::string_view basis) { return CleanFile().With("Header/TaxAccountingBasis", basis); }
  static CleanFile OfLedger() { return OfBasis("C").Without("SourceDocuments"); }
  static CleanFile OfInvoices() { return OfBasis("F").Without("GeneralLedgerEntries").With("TaxEntity", "Global"); }
  static CleanFile OfPeriod(std::string_view start, std::string_view end, std::string_view year) {
    return CleanFile().With("StartDate", start).With("EndDate", end).With("FiscalYear", year);
  }
};

TEST_F(HeaderRulesTest, ALedgerFileHasNoInvoices) {
  EXPECT_THAT(FindingsOf("HDR-BASIS", OfBasis("C")), ElementsAre("HDR-BASIS E Header/TaxAccountingBasis [C] [I] [3]"));
  EXPECT_THAT(Findings(OfLedger()), IsEmpty());
  EXPECT_THAT(
      Sentences(OfBasis("C")),
      ElementsAre("Cabeçalho: a base contabilística é C (só contabilidade), mas o ficheiro tem documentos de venda: 3.",
                  "Header: the accounting basis is C (ledger only), but the file has sales documents: 3."));
}

TEST_F(HeaderRulesTest, AnInvoicesFileHasNoLedgerEntries) {
  EXPECT_THAT(FindingsOf("HDR-BASIS", OfBasis("F")), ElementsAre("HDR-BASIS E Header/TaxAccountingBasis [F] [I] [3]"));
  EXPECT_THAT(Findings(OfInvoices()), IsEmpty());
}

TEST_F(HeaderRulesTest, InAnIntegratedFileEachInvoiceHasItsTransaction) {
  const CleanFile without = CleanFile().Without("Invoice[2]/TransactionID");
  EXPECT_THAT(Findings(without), ElementsAre("HDR-BASIS E Invoice FT A/2/TransactionID [] [] []"));
  EXPECT_EQ(Sentences(without)[0],
            "FT A/2: falta TransactionID, o movimento contabilístico do documento, que a base contabilística I "
            "(integrada) exige.");
  EXPECT_THAT(FindingsOf("HDR-BASIS", without.With("Invoice[2]/InvoiceStatus", "A")), IsEmpty());
  EXPECT_THAT(FindingsOf("HDR-BASIS", without.With("TaxAccountingBasis", "P")), IsEmpty());
}

TEST_F(HeaderRulesTest, InAFileOfSelfBillingEachDocumentSaysSo) {
  CleanFile file = OfBasis("S").Without("GeneralLedgerEntries");
  for (const char* const invoice : {"Invoice[2]", "Invoice[3]"}) {
    file = file.With(std::string(invoice).append("/SelfBillingIndicator"), "1");
  }
  EXPECT_THAT(FindingsOf("HDR-BASIS", file), ElementsAre("HDR-BASIS W Invoice FT A/1/SelfBillingIndicator [0] [1] []"));
  EXPECT_THAT(FindingsOf("HDR-BASIS", file.With("Invoice/SelfBillingIndicator", "01")), IsEmpty());
  EXPECT_THAT(FindingsOf("HDR-BASIS", file.With("Invoice/SelfBillingIndicator", "x")), IsEmpty());
}

TEST_F(HeaderRulesTest, TheSectionsOfTheBasisAreThere) {
  EXPECT_THAT(Findings(CleanFile().Without("SourceDocuments")),
              ElementsAre("HDR-BASIS I Header/TaxAccountingBasis [I] [SalesInvoices] []"));
  // GL-INVOICE tells of a ledger that documents refer to.
  CleanFile integrated = CleanFile().Without("GeneralLedgerEntries");
  EXPECT_THAT(Findings(integrated), ElementsAre("GL-INVOICE E Invoice FT A/1/TransactionID [2008-03-05 V 1] [] [3]"));
  for (const char* const invoice : {"Invoice", "Invoice[2]", "Invoice[3]"}) {
    integrated = integrated.With(std::string(invoice).append("/InvoiceStatus"), "A");
  }
  EXPECT_THAT(FindingsOf("HDR-BASIS", integrated),
              ElementsAre("HDR-BASIS I Header/TaxAccountingBasis [I] [GeneralLedgerEntries] []"));
  checker_.set_Severity("GL-INVOICE", Severity::kOff);
  EXPECT_THAT(FindingsOf("HDR-BASIS", CleanFile().Without("GeneralLedgerEntries")),
              ElementsAre("HDR-BASIS I Header/TaxAccountingBasis [I] [GeneralLedgerEntries] []"));
  checker_.set_Severity("GL-INVOICE", Severity::kError);
  EXPECT_THAT(Findings(OfLedger().Without("GeneralLedgerEntries")),
              ElementsAre("HDR-BASIS I Header/TaxAccountingBasis [C] [GeneralLedgerEntries] []"));
  EXPECT_THAT(Findings(OfInvoices().Without("SourceDocuments")),
              ElementsAre("HDR-BASIS I Header/TaxAccountingBasis [F] [SalesInvoices] []"));
  EXPECT_EQ(checker_.Verdict(), CheckVerdict::kClean);
  EXPECT_THAT(FindingsOf("HDR-BASIS", OfBasis("P").Without("SourceDocuments").Without("GeneralLedgerEntries")),
              IsEmpty());
}

TEST_F(HeaderRulesTest, ABasisThatCannotBeReadIsNotJudged) {
  EXPECT_THAT(Findings(OfBasis("X").Without("SourceDocuments")),
              ElementsAre("READ E Header/TaxAccountingBasis [X] [C, F, I, S, P] []"));
}

TEST_F(HeaderRulesTest, TheEntityIsThatOfTheBasis) {
  EXPECT_THAT(Findings(CleanFile().With("TaxEntity", "Global")),
              ElementsAre("HDR-ENTITY W Header/TaxEntity [Global] [Sede] []"));
  EXPECT_THAT(Findings(OfLedger().With("TaxEntity", "Loja 1")),
              ElementsAre("HDR-ENTITY W Header/TaxEntity [Loja 1] [Sede] []"));
  EXPECT_THAT(Findings(OfInvoices().With("TaxEntity", "Loja 1")), IsEmpty());
  EXPECT_THAT(Findings(OfInvoices().With("TaxEntity", "Sede")),
              ElementsAre("HDR-ENTITY W Header/TaxEntity [Sede] [Global] []"));
  EXPECT_THAT(FindingsOf("HDR-ENTITY", OfBasis("P").With("TaxEntity", "Global")), IsEmpty());
  EXPECT_THAT(Sentences(CleanFile().With("TaxEntity", "Global")),
              ElementsAre("Cabeçalho: TaxEntity é \"Global\"; num ficheiro com contabilidade (base C ou I) devia ser "
                          "\"Sede\".",
                          "Header: TaxEntity is \"Global\"; in a file with a ledger (basis C or I) it should be "
                          "\"Sede\"."));
}

TEST_F(HeaderRulesTest, ThePeriodIsAYearAtMost) {
  const auto of_period = [&](std::string_view start, std::string_view end, std::string_view year) {
    return FindingsOf("HDR-PERIOD", OfPeriod(start, end, year));
  };
  EXPECT_THAT(of_period("2008-01-01", "2009-01-01", "2008"),
              ElementsAre("HDR-PERIOD E Header/EndDate [2009-01-01] [2009-01-01] []"));
  EXPECT_THAT(of_period("2008-06-15", "2008-06-15", "2008"), IsEmpty());
  EXPECT_THAT(of_period("2008-06-15", "2008-06-14", "2008"),
              ElementsAre("HDR-PERIOD E Header/EndDate [2008-06-14] [2008-06-15] []"));
  EXPECT_THAT(of_period("2008-01-01", "2009-12-31", "2008"),
              ElementsAre("HDR-PERIOD E Header/EndDate [2009-12-31] [2009-01-01] []"));
  EXPECT_THAT(of_period("2007-02-28", "2008-02-27", "2007"), IsEmpty());
  EXPECT_THAT(of_period("2008-02-29", "2009-02-28", "2008"),
              ElementsAre("HDR-PERIOD I Header/DateCreated [2009-01-15] [2009-02-28] []"));
}

TEST_F(HeaderRulesTest, TheFiscalYearIsThatInWhichItBegins) {
  EXPECT_THAT(Findings(CleanFile().With("FiscalYear", "2007")),
              ElementsAre("HDR-PERIOD W Header/FiscalYear [2007] [2008] []"));
  EXPECT_THAT(Findings(CleanFile().With("FiscalYear", "2009")),
              ElementsAre("HDR-PERIOD W Header/FiscalYear [2009] [2008] []"));
  // Of a shorter file the year may have begun the year before.
  EXPECT_THAT(FindingsOf("HDR-PERIOD", OfPeriod("2008-01-01", "2008-12-30", "2007")), IsEmpty());
  EXPECT_THAT(FindingsOf("HDR-PERIOD", OfPeriod("2008-01-01", "2008-12-30", "2006")),
              ElementsAre("HDR-PERIOD W Header/FiscalYear [2006] [2008] []"));
  EXPECT_THAT(Sentences(CleanFile().With("FiscalYear", "2007")),
              ElementsAre("Cabeçalho: o exercício é 2007, e devia ser 2008, em que o período começa.",
                          "Header: the fiscal year is 2007 and should be 2008, in which the period begins."));
}

TEST_F(HeaderRulesTest, TheFileIsCreatedAfterItsEntriesAndItsPeriod) {
  EXPECT_THAT(Findings(CleanFile().With("DateCreated", "2008-12-31")), IsEmpty());
  EXPECT_THAT(Findings(CleanFile().With("DateCreated", "2008-12-30")),
              ElementsAre("HDR-PERIOD I Header/DateCreated [2008-12-30] [2008-12-31] []"));
  EXPECT_THAT(Findings(CleanFile().With("Invoice[3]/SystemEntryDate", "2009-01-15T23:59:59")), IsEmpty());
  EXPECT_THAT(Findings(CleanFile().With("Invoice[3]/SystemEntryDate", "2009-01-16T00:00:00")),
              ElementsAre("HDR-PERIOD W Header/DateCreated [2009-01-15] [2009-01-16] []"));
  EXPECT_THAT(FindingsOf("HDR-PERIOD", CleanFile().With("Transaction/Line/SystemEntryDate", "2009-01-16T00:00:00Z")),
              ElementsAre("HDR-PERIOD W Header/DateCreated [2009-01-15] [2009-01-16] []"));
}

TEST_F(HeaderRulesTest, DatesThatCannotBeReadAreToldOnce) {
  EXPECT_THAT(Findings(CleanFile().With("EndDate", "31-12-2008").With("FiscalYear", "2001")),
              ElementsAre("READ E Header/EndDate [31-12-2008] [date] []"));
  EXPECT_THAT(Findings(CleanFile().With("DateCreated", "")), ElementsAre("READ E Header/DateCreated [] [date] []"));
}

TEST_F(HeaderRulesTest, TheCertificateIsANumber) {
  const auto of_number = [&](std::string_view number) {
    return Findings(CleanFile().With("SoftwareCertificateNumber", number));
  };
  EXPECT_THAT(of_number("1234"), IsEmpty());
  EXPECT_THAT(of_number("1234/AT"), ElementsAre("HDR-CERT W Header/SoftwareCertificateNumber [1234/AT] [] []"));
  EXPECT_THAT(of_number("-1"), ElementsAre("HDR-CERT W Header/SoftwareCertificateNumber [-1] [] []"));
  EXPECT_THAT(of_number(""), ElementsAre("SCHEMA E Header/SoftwareCertificateNumber [] [1] []"));
  EXPECT_THAT(
      Sentences(CleanFile().With("SoftwareCertificateNumber", "1234/AT")),
      ElementsAre("Cabeçalho: o número do certificado do programa é \"1234/AT\"; devia ser só o número, ou 0 se o "
                  "programa não é certificado.",
                  "Header: the certificate number of the program is \"1234/AT\"; it should be the number alone, "
                  "or 0 for a program that is not certified."));
}

}  // namespace
}  // namespace zevo::testing
