// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <zevo/check/DocumentReferences.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/check/FactsTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DocumentReferencesTest : public testing::FactsTest {
 protected:
  static std::string Invoice(std::string_view number, std::string_view net) {
    return std::string("<InvoiceNo>")
        .append(number)
        .append("</InvoiceNo><InvoiceType>FT</InvoiceType><DocumentTotals><NetTotal>")
        .append(net)
        .append("</NetTotal></DocumentTotals>");
  }
  // A credit note with a line of 1 for each reference.
  static std::string Note(std::string_view number, const std::vector<std::string>& references, std::string_view net) {
    std::string note("<InvoiceNo>");
    note.append(number).append("</InvoiceNo><InvoiceDate>2008-03-05</InvoiceDate><InvoiceType>NC</InvoiceType>");
    for (const std::string& reference : references) {
      note.append("<Line><References><CreditNote><Reference>").append(reference);
      note.append("</Reference></CreditNote></References><DebitAmount>1.00</DebitAmount></Line>");
    }
    return note.append("<DocumentTotals><NetTotal>").append(net).append("</NetTotal></DocumentTotals>");
  }

  // Takes the invoices of a file; tells what each refers to that is before it.
  std::vector<std::string> Take(const std::vector<std::string>& invoices) {
    std::vector<std::string> found;
    ForEachInvoice(invoices, [&](const InvoiceFacts& facts) {
      documents_.Take(facts);
      references_.Take(facts, documents_);
      std::string& of_this = found.emplace_back();
      for (const auto& one : references_.OfThis()) {
        of_this.append(of_this.empty() ? "" : ", ").append(facts.entity->PathOf(one.reference->element).substr(0, 7));
        of_this.append(" ").append(one.document ? documents_.TextOf(documents_[*one.document]) : "itself");
      }
    });
    return found;
  }
  std::vector<std::string> Excesses() const {
    std::vector<std::string> excesses;
    for (const auto& excess : references_.Excesses(documents_)) {
      excesses.push_back(documents_.TextOf(documents_[excess.document]) + ": " + excess.corrected.Text() + " of " +
                         excess.net.Text());
    }
    return excesses;
  }

  DocumentTable documents_;
  DocumentReferences references_;
};

TEST_F(DocumentReferencesTest, FindsTheDocumentsBefore) {
  EXPECT_THAT(Take({Invoice("FT A/1", "5"), Invoice("FT A/2", "5"),
                    Note("NC A/1", {"FT A/2", "FT A/1", " ft A/02", "FT A/2", "NC A/1", "1234"}, "6")}),
              ElementsAre("", "", "Line[1] FT A/2, Line[2] FT A/1, Line[3] FT A/2, Line[5] itself"));
  EXPECT_THAT(references_.AllWaiting(), IsEmpty());
  EXPECT_THAT(Take({Invoice("FT A/3", "5")}), ElementsAre(""));
}

TEST_F(DocumentReferencesTest, OthersWaitForTheEnd) {
  Take({Note("NC A/1", {"FT A/2", "FT A/1 "}, "6"), Note("NC A/2", {"FT A/2"}, "6"), Invoice("FT A/2", "5")});
  ASSERT_EQ(references_.AllWaiting().size(), 3U);
  const DocumentReferences::Waiting& second = references_.AllWaiting()[1];
  EXPECT_EQ(second.Kept().kind, EntityKind::kInvoice);
  EXPECT_EQ(second.Kept().key, "NC A/1");
  EXPECT_EQ(second.Kept().path, "Line[2]/References/CreditNote/Reference");
  EXPECT_EQ(second.Kept().text, "FT A/1 ");
  EXPECT_EQ(second.Kept().place.line, 1);
  EXPECT_TRUE(second.credit_note);
  EXPECT_EQ(second.date, CalendarDate::FromText("2008-03-05"));
  EXPECT_EQ(DocumentReferences::Find(second, documents_), std::nullopt);
  EXPECT_FALSE(references_.IsExpected(second, documents_));
  const DocumentReferences::Waiting& third = references_.AllWaiting()[2];
  EXPECT_EQ(third.Kept().path, "Line[1]/References/CreditNote/Reference");
  EXPECT_EQ(DocumentReferences::Find(third, documents_), 2U);
}

TEST_F(DocumentReferencesTest, ADocumentIsExpectedFromTheLowestOfItsSeriesOn) {
  Take({Note("NC A/1", {"FT A/1", "FT A/3", "FT A/9", "FT B/3"}, "6"), Invoice("FT A/2", "5"), Invoice("FT A/4", "5")});
  std::string expected;
  for (const auto& waiting : references_.AllWaiting()) {
    expected += references_.IsExpected(waiting, documents_) ? 'E' : '-';
  }
  EXPECT_EQ(expected, "-EE-");
  Take({Invoice("FTA5", "5")});
  for (const auto& waiting : references_.AllWaiting()) EXPECT_FALSE(references_.IsExpected(waiting, documents_));
}

TEST_F(DocumentReferencesTest, ADocumentWithOneReferenceCorrectsByItsNet) {
  Take({Invoice("FT A/1", "5"), Note("NC A/1", {"FT A/1", "FT A/1"}, "5.01"), Note("NC A/2", {"FT A/2"}, "6"),
        Invoice("FT A/2", "5")});
  EXPECT_THAT(Excesses(), ElementsAre("FT A/1: 5.01 of 5", "FT A/2: 6 of 5"));
}

TEST_F(DocumentReferencesTest, OneWithSeveralCorrectsByItsLines) {
  Take({Invoice("FT A/1", "1"), Invoice("FT A/2", "1"), Note("NC A/1", {"FT A/1", "FT A/2", "FT A/1"}, "100")});
  EXPECT_THAT(Excesses(), ElementsAre("FT A/1: 2 of 1"));
}

TEST_F(DocumentReferencesTest, NetsOfMoreThanSixDecimalsAreNotCompared) {
  Take({Invoice("FT A/1", "1"), Note("NC A/1", {"FT A/1"}, "1.000001"), Invoice("FT A/2", "1"),
        Note("NC A/2", {"FT A/2"}, "1.0000001")});
  EXPECT_THAT(Excesses(), ElementsAre("FT A/1: 1.000001 of 1"));
}

TEST_F(DocumentReferencesTest, ManyDifferentReferencesOfADocumentAreFoundInTheirOrder) {
  std::vector<std::string> references;
  for (int i = 0; i < 20'000; ++i) references.push_back("FT A/" + std::to_string(i * 7919 % 10'000 + 1));
  Take({Note("NC A/1", references, "6")});
  ASSERT_EQ(references_.AllWaiting().size(), 10'000U);
  EXPECT_EQ(references_.AllWaiting()[0].text, "FT A/1");
  EXPECT_EQ(references_.AllWaiting()[1].text, "FT A/7920");
}

}  // namespace
}  // namespace zevo
