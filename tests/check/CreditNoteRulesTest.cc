// SPDX-License-Identifier: Apache-2.0
#include <algorithm>

#include "tests/check/CheckTest.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::string_view kLine = "Invoice[3]/Line";
constexpr std::string_view kReferences = "Invoice[3]/Line/References";
constexpr std::string_view kReference = "Invoice[3]/Line/References/CreditNote/Reference";
constexpr std::string_view kReason = "Invoice[3]/Line/References/CreditNote/Reason";
constexpr std::string_view kNet = "Invoice[3]/DocumentTotals/NetTotal";

class CreditNoteRulesTest : public CheckTest {
 protected:
  // Of invoices only, whose dates and totals no transaction repeats.
  static CleanFile OfInvoices() {
    return CleanFile().With("TaxAccountingBasis", "F").With("TaxEntity", "Global").Without("GeneralLedgerEntries");
  }
  static CleanFile Referring(std::string_view reference) { return OfInvoices().With(kReference, reference); }
  // The credit note once more, with another number.
  static CleanFile WithSecondNote(const CleanFile& file) {
    return file.Twice("Invoice[3]").With("Invoice[4]/InvoiceNo", "NC A/2");
  }

  // The findings of a rule, which are the same in a file that has its documents from the last to the first.
  std::vector<std::string> InBothOrders(std::string_view rule, const CleanFile& file) {
    std::vector<std::string> lines = FindingsOf(rule, file);
    const std::string reversed = Reversed(file.Text());
    EXPECT_NE(reversed, file.Text());
    EXPECT_THAT(OfRule(rule, Findings(reversed)), ::testing::UnorderedElementsAreArray(lines));
    return lines;
  }
  std::vector<std::string> InBothOrders(const CleanFile& file) { return InBothOrders("NC-REF", file); }

  // The sentences of the rule's findings.
  std::vector<std::string> SentencesOf(std::string_view rule, const CleanFile& file) {
    Findings(file);
    std::vector<std::string> sentences;
    for (const Finding& finding : found_) {
      if (finding.rule != rule) continue;
      sentences.push_back(Describe(finding, Language::kPortuguese));
      sentences.push_back(Describe(finding, Language::kEnglish));
    }
    return sentences;
  }

 private:
  static std::vector<std::string> OfRule(std::string_view rule, std::vector<std::string> lines) {
    std::erase_if(lines, [&](const std::string& line) { return !line.starts_with(std::string(rule) + " "); });
    return lines;
  }
  static std::string Reversed(const std::string& document) {
    constexpr std::string_view kBegin = "<Invoice>";
    constexpr std::string_view kEnd = "</Invoice>\n";
    const size_t first = document.find(kBegin);
    std::string invoices;
    size_t at = first;
    while (document.compare(at, kBegin.size(), kBegin) == 0) {
      const size_t end = std::min(document.find(kEnd, at), document.find("</Invoice><", at)) + kEnd.size() - 1;
      invoices.insert(0, document.substr(at, end - at));
      at = document[end] == '\n' ? end + 1 : end;
    }
    return document.substr(0, first) + invoices + document.substr(at);
  }
};

TEST_F(CreditNoteRulesTest, ACreditNoteSaysWhatItCorrects) {
  const CleanFile file = OfInvoices().Without(kReferences);
  EXPECT_THAT(Findings(file), ElementsAre("NC-REF E Invoice NC A/1/Line[1]/References [] [] []"));
  EXPECT_THAT(Sentences(file), ElementsAre("NC A/1: a nota de crédito não diz que documento retifica: falta Reference.",
                                           "NC A/1: the credit note does not say which document it corrects: "
                                           "Reference is missing."));
  EXPECT_THAT(Findings(OfInvoices().Without(kReference)),
              ElementsAre("NC-REF E Invoice NC A/1/Line[1]/References/CreditNote/Reference [] [] []"));
  EXPECT_THAT(Findings(Referring(" \t")),
              ElementsAre("NC-REF E Invoice NC A/1/Line[1]/References/CreditNote/Reference [ \t] [] []"));
  // What the schema has against it is the same fault.
  EXPECT_THAT(Findings(Referring("")),
              ElementsAre("NC-REF E Invoice NC A/1/Line[1]/References/CreditNote/Reference [] [] []"));
  // Nothing is missing where there are no lines.
  EXPECT_THAT(FindingsOf("NC-REF", OfInvoices().Without(kLine)), IsEmpty());
}

TEST_F(CreditNoteRulesTest, OneLineMaySayItForAll) {
  const CleanFile two = OfInvoices().Twice(kLine);
  EXPECT_THAT(FindingsOf("NC-REF", two.Without(kReferences)), IsEmpty());
  EXPECT_THAT(FindingsOf("NC-REF", two.Without("Invoice[3]/Line[2]/References")), IsEmpty());
  EXPECT_THAT(FindingsOf("NC-REF", two.Without("Invoice[3]/Line[2]/References").Without(kReferences)),
              ElementsAre("NC-REF E Invoice NC A/1/Line[1]/References [] [] []"));
}

TEST_F(CreditNoteRulesTest, OtherDebitDocumentsSayItToo) {
  const CleanFile file = OfInvoices().Without(kReferences);
  for (const char* const type : {"TD", "DA", "RE"}) {
    EXPECT_THAT(FindingsOf("NC-REF", file.With("Invoice[3]/InvoiceType", type)),
                ElementsAre("NC-REF W Invoice NC A/1/Line[1]/References [] [] []"))
        << type;
    EXPECT_THAT(FindingsOf("NC-REF", OfInvoices().With("Invoice[3]/InvoiceType", type)), IsEmpty()) << type;
  }
  EXPECT_THAT(SentencesOf("NC-REF", file.With("Invoice[3]/InvoiceType", "RE")),
              ElementsAre("NC A/1: o documento não diz que outro retifica: falta Reference.",
                          "NC A/1: the document does not say which other it corrects: Reference is missing."));
  for (const char* const type : {"FT", "ND", "XX"}) {
    EXPECT_THAT(FindingsOf("NC-REF", file.With("Invoice[3]/InvoiceType", type)), IsEmpty()) << type;
  }
}

TEST_F(CreditNoteRulesTest, ThereIsAReason) {
  const CleanFile file = OfInvoices().Without(kReason);
  EXPECT_THAT(Findings(file), ElementsAre("NC-REF W Invoice NC A/1/Line[1]/References/CreditNote/Reason [] [] []"));
  EXPECT_THAT(Sentences(file),
              ElementsAre("NC A/1: o documento não diz por que motivo retifica outro: falta Reason.",
                          "NC A/1: the document does not say why it corrects another: Reason is missing."));
  EXPECT_THAT(Findings(OfInvoices().With(kReason, " ")), SizeIs(1));
  EXPECT_THAT(Findings(OfInvoices().With(kReason, "")),
              ElementsAre("SCHEMA E Invoice NC A/1/Line[1]/References/CreditNote/Reason [] [1] []"));
  EXPECT_THAT(FindingsOf("NC-REF", OfInvoices().Twice(kLine).Without(kReason)), IsEmpty());
  EXPECT_THAT(FindingsOf("NC-REF", file.With("Invoice[3]/InvoiceType", "RE")), SizeIs(1));
}

TEST_F(CreditNoteRulesTest, OtherTypesDoNotCorrect) {
  const CleanFile file =
      OfInvoices().Behind("Invoice[2]/Line/TaxPointDate",
                          "<References><CreditNote><Reference>FT A/99</Reference></CreditNote></References>");
  EXPECT_THAT(Findings(file), ElementsAre("NC-REF I Invoice FT A/2/Line[1]/References/CreditNote/Reference [FT A/99] "
                                          "[NC, TD, DA, RE] []"));
  EXPECT_THAT(
      Sentences(file),
      ElementsAre("FT A/2, linha 1: o documento não é dos que retificam outros (NC, TD, DA, RE), mas refere FT A/99.",
                  "FT A/2, line 1: the document is none of those that correct others (NC, TD, DA, RE), but refers to "
                  "FT A/99."));
  EXPECT_THAT(FindingsOf("NC-REF", file.With("Invoice[2]/InvoiceType", "XX")), IsEmpty());
  EXPECT_THAT(Findings(OfInvoices().Behind("Invoice[2]/Line/TaxPointDate", "<References></References>")), IsEmpty());
}

TEST_F(CreditNoteRulesTest, WhatItCorrectsIsInTheFileThatHasItsSeries) {
  const std::string missing = "NC-REF E Invoice NC A/1/Line[1]/References/CreditNote/Reference ";
  EXPECT_THAT(InBothOrders(Referring("FT A/3")), ElementsAre(missing + "[FT A/3] [] []"));
  EXPECT_THAT(InBothOrders(Referring("FT A/2")), IsEmpty());
  EXPECT_THAT(InBothOrders(Referring("FT B/3")), IsEmpty());
  EXPECT_THAT(InBothOrders(Referring("FT A/0")), IsEmpty());
  EXPECT_THAT(
      InBothOrders(OfInvoices().Without("Invoice").With("Invoice[2]/Line/References/CreditNote/Reference", "FT A/1")),
      IsEmpty());
  EXPECT_THAT(InBothOrders(Referring("FT A/3").With("Invoice[2]/InvoiceNo", "FT A/4")),
              ElementsAre(missing + "[FT A/3] [] []"));
  EXPECT_THAT(
      Sentences(Referring("FT A/3")),
      ElementsAre("NC A/1, linha 1: o documento referido, FT A/3, não está no ficheiro, embora a série dele esteja.",
                  "NC A/1, line 1: the document referred to, FT A/3, is not in the file, though its series is."));
}

TEST_F(CreditNoteRulesTest, OfSeveralLinesTheOneThatIsWrongIsTold) {
  const CleanFile file =
      OfInvoices().Twice(kLine).Twice(kLine).With("Invoice[3]/Line[2]/References/CreditNote/Reference", "FT A/9");
  EXPECT_THAT(InBothOrders(file),
              ElementsAre("NC-REF E Invoice NC A/1/Line[2]/References/CreditNote/Reference [FT A/9] [] []"));
  // Once, whatever lines have it.
  EXPECT_THAT(InBothOrders(file.With(kReference, "FT A/9")),
              ElementsAre("NC-REF E Invoice NC A/1/Line[1]/References/CreditNote/Reference [FT A/9] [] []"));
  EXPECT_THAT(InBothOrders(file.With("Invoice[3]/Line[3]/References/CreditNote/Reference", "FT A/8")), SizeIs(2));
}

TEST_F(CreditNoteRulesTest, AReferenceMayBeWrittenInOtherWays) {
  for (const char* const text : {" FT A/1\n", "FT A/0001", "ft A/1", "Ft A/01", "FT A-9", "9", "A/9", "FT9/A", "FT/9",
                                 "FT A/9 de 2008-03-05", "FT A/1, FT A/9", "Fatura A/9", "s/n", "FT 9/A", "/"}) {
    EXPECT_THAT(InBothOrders(Referring(text)), IsEmpty()) << text;
  }
  for (const char* const text : {" FT A/9", "FT A/0009", "ft A/9", "FT A/99999999999999999999999"}) {
    EXPECT_THAT(InBothOrders(Referring(text)), SizeIs(1)) << text;
  }
}

TEST_F(CreditNoteRulesTest, InAPartOfAFileADocumentMayBeMissing) {
  EXPECT_THAT(InBothOrders(Referring("FT A/3").With("TaxAccountingBasis", "P")),
              ElementsAre("NC-REF W Invoice NC A/1/Line[1]/References/CreditNote/Reference [FT A/3] [] []"));
}

TEST_F(CreditNoteRulesTest, WhereADocumentHasNoNumberItMayBeTheOne) {
  EXPECT_THAT(InBothOrders(Referring("FT A/2").With("Invoice[2]/InvoiceNo", "FTA-2")), IsEmpty());
}

TEST_F(CreditNoteRulesTest, WhatItCorrectsIsNotLater) {
  const CleanFile file = Referring("FT A/2").With("Invoice[2]/InvoiceDate", "2008-07-11");
  EXPECT_THAT(InBothOrders(file),
              ElementsAre("NC-REF E Invoice NC A/1/Line[1]/References/CreditNote/Reference [FT A/2] "
                          "[2008-07-10] []"));
  EXPECT_THAT(
      SentencesOf("NC-REF", file),
      ElementsAre("NC A/1, linha 1: o documento referido, FT A/2, tem data posterior à deste, 2008-07-10.",
                  "NC A/1, line 1: the document referred to, FT A/2, has a later date than this one, 2008-07-10."));
  EXPECT_THAT(InBothOrders(file.With("Invoice[2]/InvoiceDate", "2008-07-10")), IsEmpty());
  EXPECT_THAT(InBothOrders(file.With("Invoice[2]/InvoiceDate", "x")), IsEmpty());
  EXPECT_THAT(InBothOrders(file.With("Invoice[3]/InvoiceDate", "x")), IsEmpty());
  // That it corrects a later document by more than its net, 10.00, only follows.
  EXPECT_THAT(InBothOrders(file.With(kNet, "10.01")), SizeIs(1));
  // What is out of the period is told by DATE-RANGE.
  EXPECT_THAT(InBothOrders(file.With("Invoice[2]/InvoiceDate", "2009-07-11")), IsEmpty());
  EXPECT_THAT(InBothOrders(file.With("Invoice[3]/InvoiceDate", "2007-07-10")), IsEmpty());
}

TEST_F(CreditNoteRulesTest, ItDoesNotCorrectItself) {
  EXPECT_THAT(InBothOrders(Referring("NC A/1")),
              ElementsAre("NC-REF E Invoice NC A/1/Line[1]/References/CreditNote/Reference [NC A/1] [] []"));
  EXPECT_THAT(Sentences(Referring("NC A/1")),
              ElementsAre("NC A/1, linha 1: a referência NC A/1 é ao próprio documento.",
                          "NC A/1, line 1: the reference NC A/1 is to the document itself."));
}

TEST_F(CreditNoteRulesTest, TheNetsOfCreditNotesAreNoMoreThanThatOfTheDocument) {
  const auto of_net = [&](std::string_view net) { return InBothOrders(OfInvoices().With(kNet, net)); };
  EXPECT_THAT(of_net("30.00"), IsEmpty());
  EXPECT_THAT(of_net("30.01"), ElementsAre("NC-REF W Invoice FT A/1/InvoiceNo [30.01] [30.00] [0.01]"));
  EXPECT_THAT(of_net("-30.01"), ElementsAre("NC-REF W Invoice FT A/1/InvoiceNo [30.01] [30.00] [0.01]"));
  EXPECT_THAT(of_net("x"), IsEmpty());
  EXPECT_THAT(SentencesOf("NC-REF", OfInvoices().With(kNet, "30.01")),
              ElementsAre("FT A/1: os documentos que retificam este somam 30,01 sem impostos, mais do que NetTotal "
                          "dele, 30,00 (diferença 0,01).",
                          "FT A/1: the documents that correct this one are 30.01 without taxes, more than its "
                          "NetTotal, 30.00 (difference 0.01)."));
}

TEST_F(CreditNoteRulesTest, LiveDebitDocumentsCountForTheSum) {
  const CleanFile two =
      WithSecondNote(OfInvoices().With(kNet, "20.00")).With("Invoice[4]/DocumentTotals/NetTotal", "10.01");
  EXPECT_THAT(InBothOrders(two), ElementsAre("NC-REF W Invoice FT A/1/InvoiceNo [30.01] [30.00] [0.01]"));
  EXPECT_THAT(InBothOrders(two.With("Invoice[4]/DocumentTotals/NetTotal", "10.00")), IsEmpty());
  EXPECT_THAT(InBothOrders(two.With("Invoice[4]/InvoiceType", "RE")), SizeIs(1));
  EXPECT_THAT(InBothOrders(two.With("Invoice[4]/InvoiceStatus", "A")), IsEmpty());
  EXPECT_THAT(InBothOrders(two.With("Invoice[4]/InvoiceStatus", "F")), IsEmpty());
  // What cannot be read may be anything; the sum of a cancelled document is not told besides.
  EXPECT_THAT(InBothOrders(two.With("Invoice[4]/DocumentTotals/NetTotal", "x")), IsEmpty());
  EXPECT_THAT(InBothOrders(two.With("Invoice/DocumentTotals/NetTotal", "x")), IsEmpty());
  EXPECT_THAT(InBothOrders(two.With("Invoice/InvoiceStatus", "A")), IsEmpty());
}

TEST_F(CreditNoteRulesTest, OfSeveralDocumentsEachLineCorrectsItsOwn) {
  // The first line corrects FT A/1 of 30, the second FT A/2 of 10.
  const CleanFile file = OfInvoices()
                             .Twice(kLine)
                             .With("Invoice[3]/Line[2]/References/CreditNote/Reference", "FT A/2")
                             .With(kNet, "40.00");
  const auto of_lines = [&](std::string_view first, std::string_view second) {
    return InBothOrders(file.With("Invoice[3]/Line/DebitAmount", first).With("Invoice[3]/Line[2]/DebitAmount", second));
  };
  EXPECT_THAT(of_lines("30.00", "10.00"), IsEmpty());
  EXPECT_THAT(of_lines("29.99", "10.01"), ElementsAre("NC-REF W Invoice FT A/2/InvoiceNo [10.01] [10.00] [0.01]"));
  // Half a cent for each amount of more decimals.
  EXPECT_THAT(of_lines("30.00", "10.005"), IsEmpty());
  EXPECT_THAT(of_lines("30.00", "10.0051"), SizeIs(1));
  EXPECT_THAT(of_lines("30.00", "x"), IsEmpty());
}

TEST_F(CreditNoteRulesTest, OfACancelledOneAllIsInformation) {
  const auto cancelled = [&](const CleanFile& file) {
    return InBothOrders(file.With("Invoice[3]/InvoiceStatus", "A"));
  };
  EXPECT_THAT(cancelled(OfInvoices().Without(kReferences)),
              ElementsAre("NC-REF I Invoice NC A/1/Line[1]/References [] [] []"));
  EXPECT_THAT(cancelled(OfInvoices().Without(kReason)),
              ElementsAre("NC-REF I Invoice NC A/1/Line[1]/References/CreditNote/Reason [] [] []"));
  const std::string told = "NC-REF I Invoice NC A/1/Line[1]/References/CreditNote/Reference ";
  EXPECT_THAT(cancelled(Referring("FT A/3")), ElementsAre(told + "[FT A/3] [] []"));
  EXPECT_THAT(cancelled(Referring("NC A/1")), ElementsAre(told + "[NC A/1] [] []"));
  EXPECT_THAT(cancelled(Referring("FT A/2").With("Invoice[2]/InvoiceDate", "2008-07-11")),
              ElementsAre(told + "[FT A/2] [2008-07-10] []"));
}

TEST_F(CreditNoteRulesTest, NoCreditNoteCorrectsACancelledDocument) {
  const CleanFile file = OfInvoices().With("Invoice/InvoiceStatus", "A");
  const auto of_file = [&](const CleanFile& changed) { return InBothOrders("NC-CANCELLED", changed); };
  EXPECT_THAT(of_file(file),
              ElementsAre("NC-CANCELLED W Invoice NC A/1/Line[1]/References/CreditNote/Reference [FT A/1] [] []"));
  EXPECT_THAT(SentencesOf("NC-CANCELLED", file),
              ElementsAre("NC A/1, linha 1: o documento referido, FT A/1, está anulado.",
                          "NC A/1, line 1: the document referred to, FT A/1, is cancelled."));
  EXPECT_THAT(of_file(OfInvoices()), IsEmpty());
  EXPECT_THAT(of_file(file.With("Invoice/InvoiceStatus", "F")), IsEmpty());
  EXPECT_THAT(of_file(file.With("Invoice/InvoiceStatus", "N").With("Invoice/TransactionID", "Anulado")), SizeIs(1));
  EXPECT_THAT(of_file(file.With("Invoice[3]/InvoiceStatus", "A")), IsEmpty());
  EXPECT_THAT(of_file(file.With("Invoice[3]/InvoiceStatus", "F")), IsEmpty());
  EXPECT_THAT(of_file(file.With("Invoice[3]/InvoiceType", "RE")), IsEmpty());
}

}  // namespace
}  // namespace zevo::testing
