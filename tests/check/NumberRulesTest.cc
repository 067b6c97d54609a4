// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <numeric>
#include <string>
#include <string_view>
#include <vector>

#include "tests/check/CheckTest.h"
#include "tests/check/Shuffled.h"

namespace zevo::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using ::testing::UnorderedElementsAreArray;

class NumberRulesTest : public CheckTest {
 protected:
  // A file of basis F with invoices of these numbers, of 2008-07-01.
  static CleanFile Numbered(const std::vector<std::string>& numbers) {
    CleanFile file = CleanFile().Without("Invoice[3]").Without("Invoice").With("TaxAccountingBasis", "F");
    for (size_t i = 1; i < numbers.size(); ++i) file = file.Twice("Invoice");
    for (size_t i = 0; i < numbers.size(); ++i) file = file.With(Of(i + 1, "InvoiceNo"), numbers[i]);
    return file;
  }
  // FT A/1, FT A/2 and so on with these dates, of the days of a month.
  static CleanFile Dated(const std::vector<std::string>& days) {
    std::vector<std::string> numbers;
    for (size_t i = 1; i <= days.size(); ++i) numbers.push_back("FT A/" + std::to_string(i));
    CleanFile file = Numbered(numbers);
    for (size_t i = 0; i < days.size(); ++i) file = file.With(Of(i + 1, "InvoiceDate"), "2008-07-" + days[i]);
    return file;
  }
  struct Entered {
    std::string number;
    std::string time;  // of a day, such as "09"; empty for none
    std::string date = "01";
  };
  // These documents.
  static CleanFile Of(const std::vector<Entered>& documents) {
    std::vector<std::string> numbers;
    for (const Entered& document : documents) numbers.push_back(document.number);
    CleanFile file = Numbered(numbers);
    for (size_t i = 0; i < documents.size(); ++i) {
      const auto& [number, time, date] = documents[i];
      file = file.With(Of(i + 1, "InvoiceDate"), "2008-07-" + date);
      const std::string entered = "2008-07-" + date + "T" + time + ":00:00";
      file = file.With(Of(i + 1, "SystemEntryDate"), time.empty() ? std::string() : entered);
    }
    return file;
  }
  // What a rule finds in these documents, in whatever order they stand.
  std::vector<std::string> InAnyOrder(std::string_view rule, const std::vector<Entered>& documents) {
    std::vector<size_t> order(documents.size());
    std::iota(order.begin(), order.end(), size_t{0});
    std::vector<std::string> found = FindingsOf(rule, Of(documents));
    std::ranges::sort(found);
    while (std::ranges::next_permutation(order).found) {
      std::vector<Entered> shuffled;
      for (const size_t at : order) shuffled.push_back(documents[at]);
      EXPECT_THAT(FindingsOf(rule, Of(shuffled)), UnorderedElementsAreArray(found));
    }
    return found;
  }
  static std::string Of(size_t invoice, std::string_view element) {
    return "Invoice[" + std::to_string(invoice) + "]/" + std::string(element);
  }
  std::vector<std::string> GapsOf(const std::vector<std::string>& numbers) {
    return FindingsOf("NO-GAP", Numbered(numbers));
  }
  // The sentences of this rule alone.
  std::vector<std::string> SentencesOf(std::string_view rule, const CleanFile& file) {
    for (const RuleInfo& one : AuditFileChecker::Rules()) {
      if (one.id != rule) checker_.set_Severity(one.id, Severity::kOff);
    }
    return Sentences(file);
  }
  std::vector<std::string> OrderOf(const CleanFile& file) { return FindingsOf("NO-ORDER", file); }
};

TEST_F(NumberRulesTest, InvoiceNoHasItsForm) {
  const auto of_number = [&](std::string_view number) {
    return Findings(CleanFile().With("Invoice[3]/InvoiceNo", number));
  };
  EXPECT_THAT(of_number("NC A12"), ElementsAre("NO-FORM E Invoice NC A12/InvoiceNo [NC A12] [] []"));
  EXPECT_THAT(of_number("A/1"), ElementsAre("NO-FORM E Invoice A/1/InvoiceNo [A/1] [] []"));
  EXPECT_THAT(of_number("NC A/1b"), ElementsAre("NO-FORM E Invoice NC A/1b/InvoiceNo [NC A/1b] [] []"));
  EXPECT_THAT(of_number(""), ElementsAre("NO-FORM E Invoice/InvoiceNo [] [] []"));
  EXPECT_THAT(of_number("NC A/0"), ElementsAre("NO-FORM E Invoice NC A/0/InvoiceNo [NC A/0] [] []"));
  EXPECT_THAT(of_number("NC A/000"), SizeIs(1));
  EXPECT_THAT(of_number("NC /1"), ElementsAre("NO-FORM W Invoice NC /1/InvoiceNo [NC /1] [] []"));
  EXPECT_THAT(of_number("NC A/001"), IsEmpty());
  EXPECT_THAT(of_number("N/C.1-x_ A/1"), IsEmpty());
  EXPECT_THAT(of_number("NC A/99999999999999999999999999"), IsEmpty());
}

TEST_F(NumberRulesTest, OtherCharactersAreTheSchemasToTell) {
  EXPECT_THAT(Findings(CleanFile().With("Invoice[3]/InvoiceNo", "NC A-B/1")), SizeIs(1));
  EXPECT_EQ(checker_.CountOf("NO-FORM"), 0);
  EXPECT_THAT(Findings(CleanFile().Without("Invoice[3]/InvoiceNo")),
              ElementsAre("SCHEMA E Invoice/InvoiceNo [] [InvoiceNo] []"));
}

TEST_F(NumberRulesTest, TheFormIsToldInBothLanguages) {
  EXPECT_THAT(Sentences(CleanFile().With("Invoice[3]/InvoiceNo", "NC A12")),
              ElementsAre("NC A12: InvoiceNo é \"NC A12\"; devia ser o código interno, um espaço, a série, \"/\" e o "
                          "número, como \"FT A/12\".",
                          "NC A12: InvoiceNo is \"NC A12\"; it should be the internal code, a space, the series, \"/\" "
                          "and the number, as \"FT A/12\"."));
  EXPECT_THAT(Sentences(CleanFile().With("Invoice[3]/InvoiceNo", "NC A/0")),
              ElementsAre("NC A/0: o número em InvoiceNo, NC A/0, é 0; os números das séries começam em 1.",
                          "NC A/0: the number in InvoiceNo, NC A/0, is 0; the numbers of a series begin with 1."));
  EXPECT_THAT(Sentences(CleanFile().With("Invoice[3]/InvoiceNo", "NC /1")),
              ElementsAre("NC /1: InvoiceNo, NC /1, não tem série entre o espaço e a \"/\".",
                          "NC /1: InvoiceNo, NC /1, has no series between the space and the \"/\"."));
}

TEST_F(NumberRulesTest, AnInternalCodeHasOneType) {
  const CleanFile file = Numbered({"FT A/1", "FT A/2", "FT B/1", "ND A/1"});
  EXPECT_THAT(FindingsOf("NO-CODE", file), IsEmpty());  // several codes may have one type
  EXPECT_THAT(FindingsOf("NO-CODE", file.With("Invoice[2]/InvoiceType", "ND")),
              ElementsAre("NO-CODE E Invoice FT A/2/InvoiceType [ND] [FT] []"));
  // The most frequent type counts, even where another comes first.
  EXPECT_THAT(FindingsOf("NO-CODE", file.With("Invoice/InvoiceType", "ND")),
              ElementsAre("NO-CODE E Invoice FT A/1/InvoiceType [ND] [FT] []"));
  EXPECT_THAT(FindingsOf("NO-CODE", file.With("Invoice[3]/InvoiceType", "ND")),
              ElementsAre("NO-CODE E Invoice FT B/1/InvoiceType [ND] [FT] []"));
  EXPECT_THAT(FindingsOf("NO-CODE", file.With("Invoice[2]/InvoiceType", "ND").With("Invoice[3]/InvoiceType", "ND")),
              ElementsAre("NO-CODE E Invoice FT A/1/InvoiceType [FT] [ND] []"));
  // A type that is none is told as such.
  EXPECT_THAT(FindingsOf("NO-CODE", file.With("Invoice[2]/InvoiceType", "XX")), IsEmpty());
}

TEST_F(NumberRulesTest, OfTwoTypesTheLaterIsToldOnce) {
  const CleanFile file = Numbered({"FT A/1", "FT A/2", "FT A/3", "FT A/4"})
                             .With("Invoice[2]/InvoiceType", "ND")
                             .With("Invoice[4]/InvoiceType", "ND");
  EXPECT_THAT(FindingsOf("NO-CODE", file), ElementsAre("NO-CODE E Invoice FT A/2/InvoiceType [ND] [FT] [1]"));
  EXPECT_THAT(SentencesOf("NO-CODE", file),
              ElementsAre("FT A/2: este documento e mais 1 do seu código interno são ND, mas outros são FT.",
                          "FT A/2: this document and 1 more of its internal code are ND, but others are FT."));
  EXPECT_THAT(SentencesOf("NO-CODE", Numbered({"FT A/1", "FT A/2"}).With("Invoice[2]/InvoiceType", "ND")),
              ElementsAre("FT A/2: o tipo do documento é ND, mas os outros documentos do seu código interno são FT.",
                          "FT A/2: the type of the document is ND, but the other documents of its internal code are "
                          "FT."));
}

TEST_F(NumberRulesTest, OtherTypesAreToldOfTheSameDocumentWhateverTheOrderOfTheFile) {
  const CleanFile file = Numbered({"FT B/1", "FT A/2", "FT A/1", "FT B/2"})
                             .With("Invoice/InvoiceType", "ND")
                             .With("Invoice[4]/InvoiceType", "ND");
  for (const uint64_t seed : {1U, 2U, 3U, 4U}) {
    EXPECT_THAT(FindingsOf("NO-CODE", Shuffled(file, seed)),
                ElementsAre("NO-CODE E Invoice FT B/1/InvoiceType [ND] [FT] [1]"))
        << seed;
  }
}

TEST_F(NumberRulesTest, NumbersFollowEachOther) {
  EXPECT_THAT(GapsOf({"FT A/7", "FT A/8", "FT B/3", "FT A/9", "FT B/4"}), IsEmpty());
  EXPECT_THAT(GapsOf({"FT A/13", "FT A/18", "FT B/20"}),
              ElementsAre("NO-GAP E Invoice FT A/18/InvoiceNo [FT A/18] [14-17] [4]"));
  EXPECT_THAT(GapsOf({"FT A/13", "FT A/15"}), ElementsAre("NO-GAP E Invoice FT A/15/InvoiceNo [FT A/15] [14] []"));
  // In whatever order they stand, and however they are written.
  EXPECT_THAT(GapsOf({"FT A/3", "FT A/01", "FT A/2"}), IsEmpty());
  EXPECT_THAT(GapsOf({"FT A/10", "FT A/9", "FT A/11"}), IsEmpty());
  EXPECT_THAT(GapsOf({"FT A/5", "FT A/1", "FT A/3"}), ElementsAre("NO-GAP E Invoice FT A/3/InvoiceNo [FT A/3] [2] []",
                                                                  "NO-GAP E Invoice FT A/5/InvoiceNo [FT A/5] [4] []"));
}

TEST_F(NumberRulesTest, GapsAreExactHoweverLongTheNumbersAre) {
  EXPECT_THAT(GapsOf({"FT A/9999999999999999999", "FT A/10000000000000000000"}), IsEmpty());
  EXPECT_THAT(GapsOf({"FT A/1", "FT A/1000000000000000000000"}),
              ElementsAre("NO-GAP E Invoice FT A/1000000000000000000000/InvoiceNo [FT A/1000000000000000000000] "
                          "[2-999999999999999999999] [999999999999999999998]"));
}

TEST_F(NumberRulesTest, CancelledDocumentsAreNumbersToo) {
  EXPECT_THAT(FindingsOf("NO-GAP", Numbered({"FT A/1", "FT A/2", "FT A/3"}).With("Invoice[2]/InvoiceStatus", "A")),
              IsEmpty());
}

TEST_F(NumberRulesTest, InAPartialFileAGapIsAWarning) {
  EXPECT_THAT(FindingsOf("NO-GAP", Numbered({"FT A/1", "FT A/3", "FT A/03"}).With("TaxAccountingBasis", "P")),
              ElementsAre("NO-GAP W Invoice FT A/3/InvoiceNo [FT A/3] [2] []",
                          "NO-GAP W Invoice FT A/03/InvoiceNo [FT A/03] [FT A/3] []"));
}

TEST_F(NumberRulesTest, ANumberIsNotRepeatedWithOtherZeros) {
  EXPECT_THAT(GapsOf({"FT A/1", "FT A/01", "FT A/2"}),
              ElementsAre("NO-GAP E Invoice FT A/01/InvoiceNo [FT A/01] [FT A/1] []"));
  EXPECT_THAT(GapsOf({"FT A/1", "FT B/01"}), IsEmpty());
  // Exactly, it is KEY-DUP's to tell.
  const CleanFile repeated = Numbered({"FT A/1", "FT A/1", "FT A/2"});
  EXPECT_THAT(FindingsOf("NO-GAP", repeated), IsEmpty());
  EXPECT_EQ(checker_.CountOf("KEY-DUP"), 1);
}

TEST_F(NumberRulesTest, TheNumberZeroIsToldByItsForm) {
  EXPECT_THAT(GapsOf({"FT A/0", "FT A/00", "FT A/5"}), IsEmpty());
  EXPECT_EQ(checker_.CountOf("NO-FORM"), 2);
}

// One wrong number is one finding.
TEST_F(NumberRulesTest, ANumberInWhosePlaceAnotherStandsIsNotMissing) {
  EXPECT_THAT(GapsOf({"FT A/1", "FT A/1", "FT A/3"}), IsEmpty());
  EXPECT_THAT(GapsOf({"FT A/1", "A/2", "FT A/3"}), IsEmpty());
  EXPECT_THAT(GapsOf({"FT A/3", "A/2", "FT A/1"}), IsEmpty());
  EXPECT_THAT(GapsOf({"FT A/1", "A/2", "FT A/4"}), SizeIs(1));
  EXPECT_THAT(GapsOf({"FT B/1", "FT A/1", "FT B/1", "FT A/3"}), SizeIs(1));
}

TEST_F(NumberRulesTest, WhichOneStandsInAPlaceIsToldByWhenItWasEntered) {
  const auto gaps = [&](const std::vector<Entered>& documents) { return InAnyOrder("NO-GAP", documents); };
  EXPECT_THAT(gaps({{"FT A/1", "09"}, {"A/2", "10"}, {"FT A/3", "11"}}), IsEmpty());
  EXPECT_THAT(gaps({{"FT A/1", "09"}, {"A/2", "12"}, {"FT A/3", "11"}}), SizeIs(1));
  EXPECT_THAT(gaps({{"FT A/1", "09"}, {"A/2", ""}, {"FT A/3", "11"}}), IsEmpty());
  EXPECT_THAT(gaps({{"FT A/1", ""}, {"A/2", "08"}, {"FT A/3", "11"}}), IsEmpty());
  EXPECT_THAT(gaps({{"FT A/1", "09"}, {"A/2", "12"}, {"FT A/3", ""}}), IsEmpty());
  EXPECT_THAT(gaps({{"FT A/1", "09"}, {"FT A/1", "10"}, {"FT A/3", "11"}, {"FT A/5", "12"}}),
              ElementsAre("NO-GAP E Invoice FT A/5/InvoiceNo [FT A/5] [4] []"));
  EXPECT_THAT(gaps({{"FT A/1", "09"}, {"FT A/3", "10"}, {"FT A/3", "11"}, {"FT A/5", "12"}}), IsEmpty());
  EXPECT_THAT(gaps({{"FT A/1", "09"}, {"FT A/3", "10"}, {"FT A/5", "11"}, {"FT A/5", "12"}}),
              ElementsAre("NO-GAP E Invoice FT A/3/InvoiceNo [FT A/3] [2] []"));
  // A number that was mistyped.
  EXPECT_THAT(gaps({{"FT A/1", "09"}, {"FT A/4", "10"}, {"FT A/3", "11"}, {"FT A/4", "12"}}), IsEmpty());
  EXPECT_THAT(gaps({{"FT A/1", "09"}, {"FT A/1", "11"}, {"FT A/2", "10"}, {"FT A/4", "12"}}), IsEmpty());
  EXPECT_THAT(gaps({{"FT A/1", "09"}, {"FT A/1", ""}, {"FT A/4", "10"}}),
              ElementsAre("NO-GAP E Invoice FT A/4/InvoiceNo [FT A/4] [2-3] [2]"));
}

TEST_F(NumberRulesTest, OfNumbersThatDifferInZerosTheSameAreToldWhateverTheOrder) {
  EXPECT_THAT(InAnyOrder("NO-GAP", {{"FT A/1", "09"}, {"FT A/01", "08"}, {"FT A/001", "10"}, {"FT A/2", "11"}}),
              ElementsAre("NO-GAP E Invoice FT A/001/InvoiceNo [FT A/001] [FT A/1] []",
                          "NO-GAP E Invoice FT A/01/InvoiceNo [FT A/01] [FT A/1] []"));
  const std::string digits(20, '1');
  EXPECT_THAT(InAnyOrder("NO-GAP", {{"FT A/" + digits, "09"}, {"FT A/0" + digits, "09"}}), SizeIs(1));
}

TEST_F(NumberRulesTest, GapsAreToldInBothLanguages) {
  const auto sentences_of = [&](std::string_view number) {
    return Sentences(CleanFile().With("Invoice[2]/InvoiceNo", number));
  };
  EXPECT_THAT(sentences_of("FT A/3"), ElementsAre("FT A/3: falta o número 2 da série, antes deste documento.",
                                                  "FT A/3: the series lacks number 2 before this document."));
  EXPECT_THAT(sentences_of("FT A/6"),
              ElementsAre("FT A/6: faltam os números 2-5 da série, antes deste documento (4 documentos).",
                          "FT A/6: the series lacks numbers 2-5 before this document (4 documents)."));
  EXPECT_THAT(
      sentences_of("FT A/01"),
      ElementsAre("FT A/01: o número de FT A/01 é o mesmo de FT A/1, só com outros zeros à esquerda.",
                  "FT A/01: the number of FT A/01 is the same as that of FT A/1, only with other zeros in front."));
}

TEST_F(NumberRulesTest, DatesNeverDecreaseAlongASeries) {
  EXPECT_THAT(OrderOf(Dated({"01", "01", "02", "31"})), IsEmpty());
  EXPECT_THAT(OrderOf(Dated({"02", "01"})),
              ElementsAre("NO-ORDER E Invoice FT A/2/InvoiceDate [2008-07-01] [2008-07-02 (FT A/1)] []"));
  // The clean file's credit note is of another series.
  EXPECT_THAT(OrderOf(CleanFile().With("Invoice[3]/InvoiceDate", "2008-01-01")), IsEmpty());
}

TEST_F(NumberRulesTest, TheDocumentIsToldThatStandsOut) {
  EXPECT_THAT(OrderOf(Dated({"01", "02", "20", "03", "04", "05"})),
              ElementsAre("NO-ORDER E Invoice FT A/3/InvoiceDate [2008-07-20] [2008-07-03 (FT A/4)] []"));
  EXPECT_THAT(OrderOf(Dated({"05", "06", "01", "07", "08"})),
              ElementsAre("NO-ORDER E Invoice FT A/3/InvoiceDate [2008-07-01] [2008-07-06 (FT A/2)] []"));
  EXPECT_THAT(OrderOf(Dated({"09", "01", "02"})),
              ElementsAre("NO-ORDER E Invoice FT A/1/InvoiceDate [2008-07-09] [2008-07-01 (FT A/2)] []"));
  EXPECT_THAT(OrderOf(Dated({"01", "20", "19", "02", "03", "04"})), SizeIs(2));
}

TEST_F(NumberRulesTest, TheOrderIsThatOfNumbersNotOfTheFile) {
  const CleanFile file = Dated({"01", "02", "03"});
  EXPECT_THAT(OrderOf(file.With("Invoice/InvoiceNo", "FT A/10")), SizeIs(1));
  EXPECT_THAT(OrderOf(Dated({"03", "02", "01"})
                          .With("Invoice/InvoiceNo", "FT A/10")
                          .With("Invoice[2]/InvoiceNo", "FT A/9")
                          .With("Invoice[3]/InvoiceNo", "FT A/8")),
              IsEmpty());
}

TEST_F(NumberRulesTest, NorDoTimesOfEntry) {
  const CleanFile file = Dated({"01", "01", "01"});
  EXPECT_THAT(OrderOf(file.With("Invoice/SystemEntryDate", "2008-07-01T10:00:01")),
              ElementsAre("NO-ORDER W Invoice FT A/1/SystemEntryDate [2008-07-01T10:00:01] [2008-07-01T10:00:00 (FT "
                          "A/2)] []"));
  EXPECT_THAT(OrderOf(file.With("Invoice[3]/SystemEntryDate", "2008-07-01T09:59:59")),
              ElementsAre("NO-ORDER W Invoice FT A/3/SystemEntryDate [2008-07-01T09:59:59] [2008-07-01T10:00:00 (FT "
                          "A/2)] []"));
}

TEST_F(NumberRulesTest, WhereTheDateStandsOutTheTimeOfEntryIsNotToldToo) {
  EXPECT_THAT(OrderOf(Dated({"02", "02", "01", "03"}).With("Invoice[3]/SystemEntryDate", "2008-06-01T10:00:00")),
              ElementsAre("NO-ORDER E Invoice FT A/3/InvoiceDate [2008-07-01] [2008-07-02 (FT A/2)] []"));
}

TEST_F(NumberRulesTest, DocumentsThatHaveNoPlaceInTheSeriesAreLeftOut) {
  // The date is told by DATE-RANGE, the number by NO-FORM.
  EXPECT_THAT(OrderOf(Dated({"01", "02", "03"}).With("Invoice[2]/InvoiceDate", "2007-07-02")), IsEmpty());
  EXPECT_THAT(OrderOf(Dated({"02", "01", "03"}).With("Invoice[3]/InvoiceDate", "2009-07-02")), SizeIs(1));
  EXPECT_THAT(OrderOf(Dated({"01", "02", "03"}).With("Invoice[3]/InvoiceNo", "FT A/0")), IsEmpty());
  EXPECT_THAT(OrderOf(Dated({"02", "01", "03"}).With("Header/EndDate", "2007-01-01")), SizeIs(1));
}

TEST_F(NumberRulesTest, SoAreThoseWhoseNumberIsRepeated) {
  const auto order = [&](const std::vector<Entered>& documents) { return InAnyOrder("NO-ORDER", documents); };
  EXPECT_THAT(order({{"FT A/1", "09", "03"}, {"FT A/2", "09", "01"}, {"FT A/2", "09", "04"}, {"FT A/3", "09", "05"}}),
              IsEmpty());
  EXPECT_THAT(order({{"FT A/1", "09", "03"}, {"FT A/2", "09", "01"}, {"FT A/02", "09", "04"}, {"FT A/3", "09", "05"}}),
              IsEmpty());
  EXPECT_THAT(order({{"FT A/1", "09", "03"}, {"FT A/2", "09", "01"}, {"FT A/2", "09", "04"}, {"FT A/3", "09", "02"}}),
              SizeIs(1));
}

TEST_F(NumberRulesTest, DatesThatCannotBeReadAreLeftOut) {
  EXPECT_THAT(OrderOf(Dated({"02", "xx", "03"})), IsEmpty());
  EXPECT_THAT(OrderOf(Dated({"03", "xx", "02"})), SizeIs(1));
  EXPECT_THAT(OrderOf(Dated({"03", "04", "05"}).Without("Invoice[2]/InvoiceDate")), IsEmpty());
}

TEST_F(NumberRulesTest, TheOrderIsToldAtTheElementInBothLanguages) {
  EXPECT_THAT(
      SentencesOf("NO-ORDER", Dated({"02", "01"})),
      ElementsAre("FT A/2: a data do documento é 2008-07-01, anterior à de um documento com número mais baixo na "
                  "série, 2008-07-02 (FT A/1).",
                  "FT A/2: the date of the document is 2008-07-01, before that of a document with a lower "
                  "number in the series, 2008-07-02 (FT A/1)."));
  EXPECT_THAT(
      SentencesOf("NO-ORDER", Dated({"03", "01", "02"})),
      ElementsAre("FT A/1: a data do documento é 2008-07-03, posterior à de um documento com número mais alto na "
                  "série, 2008-07-01 (FT A/2).",
                  "FT A/1: the date of the document is 2008-07-03, after that of a document with a higher "
                  "number in the series, 2008-07-01 (FT A/2)."));
  const CleanFile two = Dated({"01", "01"});
  EXPECT_THAT(
      SentencesOf("NO-ORDER", two.With("Invoice[2]/SystemEntryDate", "2008-07-01T09:00:00")),
      ElementsAre("FT A/2: o documento foi gravado em 2008-07-01T09:00:00, antes de um documento com número mais "
                  "baixo na série, 2008-07-01T10:00:00 (FT A/1).",
                  "FT A/2: the document was entered on 2008-07-01T09:00:00, before a document with a lower "
                  "number in the series, 2008-07-01T10:00:00 (FT A/1)."));
  EXPECT_THAT(
      SentencesOf("NO-ORDER", Dated({"01", "01", "01"}).With("Invoice/SystemEntryDate", "2008-07-01T11:00:00")),
      ElementsAre("FT A/1: o documento foi gravado em 2008-07-01T11:00:00, depois de um documento com número mais "
                  "alto na série, 2008-07-01T10:00:00 (FT A/2).",
                  "FT A/1: the document was entered on 2008-07-01T11:00:00, after a document with a higher "
                  "number in the series, 2008-07-01T10:00:00 (FT A/2)."));
  const std::string text = two.With("Invoice[2]/SystemEntryDate", "2008-07-01T09:00:00").Text();
  ASSERT_THAT(FindingsOf("NO-ORDER", two.With("Invoice[2]/SystemEntryDate", "2008-07-01T09:00:00")), SizeIs(1));
  EXPECT_EQ(found_.back().place.offset, static_cast<int64_t>(text.find("<SystemEntryDate>2008-07-01T09:00:00")));
}

}  // namespace
}  // namespace zevo::testing
