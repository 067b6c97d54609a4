// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <zevo/check/DocumentTable.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "tests/check/FactsTest.h"
#include "tests/support/ProcessorTime.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DocumentTableTest : public testing::FactsTest {
 protected:
  // Takes the invoices of a file in which they hold this; tells of each whether its number is repeated, such as "-R".
  std::string Take(const std::vector<std::string>& invoices) {
    std::string repeated;
    ForEachInvoice(invoices, [&](const InvoiceFacts& facts) {
      table_.Take(facts);
      repeated += table_.IsRepeated() ? 'R' : table_.OtherSpelling() ? 'Z' : table_.IsNumbered() ? '-' : '?';
    });
    return repeated;
  }
  std::string TakeNumbers(const std::vector<std::string_view>& numbers) {
    std::vector<std::string> invoices;
    for (const std::string_view number : numbers) {
      invoices.push_back(std::string("<InvoiceNo>").append(number).append("</InvoiceNo>"));
    }
    return Take(invoices);
  }
  std::vector<std::string> Along() const {
    std::vector<std::string> numbers;
    for (const uint32_t document : table_.AlongSeries()) numbers.push_back(table_.TextOf(table_[document]));
    return numbers;
  }
  // The text of the document that is found for one.
  std::string Found(std::string_view text) const {
    const auto found = table_.Find(*DocumentNumber::FromText(text));
    return found ? table_.TextOf(table_[*found]) : "none";
  }

  DocumentTable table_;
};

TEST_F(DocumentTableTest, KeepsWhatIsAskedOfADocument) {
  Take(
      {"<InvoiceNo>FT A/12</InvoiceNo>\n<InvoiceStatus>N</InvoiceStatus>\n <InvoiceDate>2008-03-05</InvoiceDate>"
       "<InvoiceType>FT</InvoiceType><SystemEntryDate>2009-12-31T23:59:58</SystemEntryDate>"
       "<DocumentTotals><NetTotal>12.345678</NetTotal></DocumentTotals>"});
  ASSERT_EQ(table_.Count(), 1U);
  const DocumentTable::Document& document = table_[0];
  EXPECT_EQ(table_.AllSeries()[document.Series()].text, "FT A");
  EXPECT_EQ(document.Date(), CalendarDate::FromText("2008-03-05"));
  EXPECT_EQ(document.EntryTime()->Text(), "2009-12-31T23:59:58");
  EXPECT_EQ(document.Type(), "FT");
  EXPECT_EQ(document.State(), DocumentTable::State::kLive);
  EXPECT_EQ(document.Net(), Decimal::FromText("12.345678"));

  const KeptElement number = table_.Keep(document, DocumentTable::Element::kNumber);
  EXPECT_EQ(number.kind, EntityKind::kInvoice);
  EXPECT_EQ(number.key, "FT A/12");
  EXPECT_EQ(number.path, "InvoiceNo");
  EXPECT_EQ(number.text, "FT A/12");
  EXPECT_EQ(number.place, (FilePlace{1, 53, 52}));
  const KeptElement date = table_.Keep(document, DocumentTable::Element::kDate);
  EXPECT_EQ(date.path, "InvoiceDate");
  EXPECT_EQ(date.text, "2008-03-05");
  EXPECT_EQ(date.place, (FilePlace{3, 2, 117}));
  const KeptElement type = table_.Keep(document, DocumentTable::Element::kType);
  EXPECT_EQ(type.path, "InvoiceType");
  EXPECT_EQ(type.text, "FT");
  EXPECT_EQ(type.place, (FilePlace{3, 39, 154}));
  const KeptElement time = table_.Keep(document, DocumentTable::Element::kEntryTime);
  EXPECT_EQ(time.path, "SystemEntryDate");
  EXPECT_EQ(time.text, "2009-12-31T23:59:58");
  EXPECT_EQ(time.place, (FilePlace{3, 68, 183}));
}

TEST_F(DocumentTableTest, WhatIsNotThereOrHasNoRoomIsNone) {
  Take(
      {"<InvoiceNo>FT A/1</InvoiceNo><InvoiceDate>20000-03-05</InvoiceDate><InvoiceType>XX</InvoiceType>"
       "<SystemEntryDate>20000-03-05T10:00:00</SystemEntryDate>"
       "<DocumentTotals><NetTotal>0.1234567</NetTotal></DocumentTotals>",
       "<InvoiceNo>FT A/2</InvoiceNo>"});
  for (const uint32_t document : {0U, 1U}) {
    EXPECT_EQ(table_[document].Date(), std::nullopt);
    EXPECT_EQ(table_[document].DateOrder(), 0U);
    EXPECT_EQ(table_[document].EntryTime(), std::nullopt);
    EXPECT_EQ(table_[document].EntryOrder(), 0U);
    EXPECT_EQ(table_[document].Type(), "");
    EXPECT_EQ(table_[document].Net(), std::nullopt);
  }
  EXPECT_THAT(table_.AllSeries()[0].types, IsEmpty());
}

// A file chooses its series and numbers.
TEST_F(DocumentTableTest, TheSameLongNumberInManySeriesTakesNoLonger) {
  const auto seconds_of = [this](std::string_view number) {
    std::vector<std::string> invoices;
    for (int series = 0; series < 20'000; ++series) {
      invoices.push_back("<InvoiceNo>FT " + std::to_string(series) + std::string(number) + "</InvoiceNo>");
    }
    return testing::LeastProcessorSeconds(3, [&] {
      table_ = {};
      Take(invoices);
    });
  };
  const double of_short = seconds_of("/1");
  EXPECT_LT(seconds_of("/12345678901234567890"), 3 * of_short);
}

TEST_F(DocumentTableTest, LaterDatesAreGreater) {
  const auto dated = [](int number, std::string_view date, std::string_view time) {
    return std::string("<InvoiceNo>FT A/")
        .append(std::to_string(number))
        .append("</InvoiceNo><InvoiceDate>")
        .append(date)
        .append("</InvoiceDate><SystemEntryDate>")
        .append(date)
        .append("T")
        .append(time)
        .append("</SystemEntryDate>");
  };
  Take({dated(1, "2008-01-31", "23:59:59"), dated(2, "2008-02-01", "00:00:00"), dated(3, "2008-12-31", "00:00:01"),
        dated(4, "2009-01-01", "00:01:00"), dated(5, "16383-12-31", "01:00:00")});
  for (uint32_t i = 1; i < 5; ++i) {
    EXPECT_LT(table_[i - 1].DateOrder(), table_[i].DateOrder()) << i;
    EXPECT_LT(table_[i - 1].EntryOrder(), table_[i].EntryOrder()) << i;
  }
  EXPECT_EQ(table_[4].EntryTime()->Text(), "16383-12-31T01:00:00");
}

TEST_F(DocumentTableTest, ADocumentIsLiveMergedOrCancelled) {
  Take({"<InvoiceNo>FT A/1</InvoiceNo><InvoiceStatus>S</InvoiceStatus>",
        "<InvoiceNo>FT A/2</InvoiceNo><InvoiceStatus>F</InvoiceStatus>",
        "<InvoiceNo>FT A/3</InvoiceNo><InvoiceStatus>A</InvoiceStatus>",
        "<InvoiceNo>FT A/4</InvoiceNo><InvoiceStatus>F</InvoiceStatus><TransactionID>ANULADO</TransactionID>"});
  using State = DocumentTable::State;
  EXPECT_EQ(table_[0].State(), State::kLive);
  EXPECT_EQ(table_[1].State(), State::kMerged);
  EXPECT_EQ(table_[2].State(), State::kCancelled);
  EXPECT_EQ(table_[3].State(), State::kCancelled);
}

TEST_F(DocumentTableTest, NumbersAreRepeatedExactlyOrApartFromZeros) {
  EXPECT_EQ(TakeNumbers({"FT A/1", "FT A/2", "FT A/1", "FT A/02", "FT A/02", "FT B/2", "FT A/3", "A/1", "A/1"}),
            "--RZR--??");
  EXPECT_EQ(table_.Count(), 5U);
}

TEST_F(DocumentTableTest, ADocumentIsFoundAsItIsWrittenFirst) {
  TakeNumbers({"FT A/02", "FT A/2", "FT B/3", "FT A/18446744073709551616"});
  EXPECT_EQ(Found("FT A/2"), "FT A/2");
  EXPECT_EQ(Found("FT A/02"), "FT A/02");
  EXPECT_EQ(Found("FT A/002"), "FT A/02");
  EXPECT_EQ(Found("FT A/0018446744073709551616"), "FT A/18446744073709551616");
  EXPECT_EQ(Found("FT A/0"), "none");
  EXPECT_EQ(Found("FT A/3"), "none");
  EXPECT_EQ(Found("FT C/2"), "none");
  EXPECT_EQ(Found("ft A/2"), "none");
}

TEST_F(DocumentTableTest, DocumentsAreOrderedByNumberAlongEachSeries) {
  EXPECT_THAT(Along(), IsEmpty());
  TakeNumbers({"FT B/10", "FT A/3", "FT B/9", "FT A/1", "FT B/11", "FT A/03", "FT A/99999999999999999999",
               "FT A/20000000000000000000", "FT A/9999999999999999999", "FT A/100000000000000000000", "FT A/0"});
  EXPECT_THAT(Along(), ElementsAre("FT B/9", "FT B/10", "FT B/11", "FT A/0", "FT A/1", "FT A/3", "FT A/03",
                                   "FT A/9999999999999999999", "FT A/20000000000000000000", "FT A/99999999999999999999",
                                   "FT A/100000000000000000000"));
  EXPECT_EQ(table_.NumberOf(table_[1]), 3);
  EXPECT_EQ(table_.NumberOf(table_[5]), 3);
  EXPECT_EQ(table_.NumberOf(table_[9]).Text(), "100000000000000000000");
  EXPECT_EQ(table_.NumberOf(table_[8]).Text(), "9999999999999999999");
  EXPECT_TRUE(table_.NumberOf(table_[10]).IsZero());
}

TEST_F(DocumentTableTest, ASeriesKnowsItsEndsAndTypes) {
  const auto typed = [](std::string_view number, std::string_view type) {
    return std::string("<InvoiceNo>")
        .append(number)
        .append("</InvoiceNo><InvoiceType>")
        .append(type)
        .append("</InvoiceType>");
  };
  Take({typed("FT A/7", "FT"), typed("FT A/9", "ND"), typed("FT A/5", "ND"), typed("FT A/6", "x")});
  const DocumentTable::Series& series = table_.AllSeries()[*table_.FindSeries("FT A")];
  EXPECT_EQ(series.documents, 4U);
  EXPECT_EQ(series.lowest, 2U);
  EXPECT_EQ(series.highest, 1U);
  ASSERT_EQ(series.types.size(), 2U);
  EXPECT_EQ(series.types[0].type, "FT");
  EXPECT_EQ(series.types[0].documents, 1U);
  EXPECT_EQ(series.types[1].type, "ND");
  EXPECT_EQ(series.types[1].documents, 2U);
  EXPECT_EQ(series.types[1].first, 2U);
  EXPECT_EQ(table_.FindSeries("FT B"), std::nullopt);
  EXPECT_TRUE(table_.IsBelowSeries(*DocumentNumber::FromText("FT A/4")));
  EXPECT_FALSE(table_.IsBelowSeries(*DocumentNumber::FromText("FT A/5")));
  EXPECT_FALSE(table_.IsBelowSeries(*DocumentNumber::FromText("FT A/20")));
  EXPECT_FALSE(table_.IsBelowSeries(*DocumentNumber::FromText("FT B/1")));
}

TEST_F(DocumentTableTest, NumbersAreAsLongAsTheSchemaAllows) {
  const std::string zeros(54, '0');
  const std::string nines(54, '9');
  EXPECT_EQ(TakeNumbers({"FT A/" + zeros + "7", "FT A/7", "FT A/" + nines, "FT A/0" + nines, "FT A/" + nines,
                         "FT A/" + zeros + "7", "FT A/00" + nines, "FT A/" + zeros + "11"}),
            "-Z-ZRR??");
  EXPECT_EQ(Found("FT A/007"), "FT A/" + zeros + "7");
  EXPECT_EQ(Found("FT A/" + nines), "FT A/" + nines);
  EXPECT_EQ(table_.NumberOf(table_[0]), 7);
  EXPECT_EQ(table_.NumberOf(table_[3]).Text(), nines);
}

// Whatever a file has, its documents are found at once: here in ten thousandths of what a walk along all would take.
TEST_F(DocumentTableTest, ManyDocumentsOfManySeriesInAnyOrderAreTaken) {
  std::vector<std::string> texts;
  for (int i = 30'000; i > 0; --i) {
    texts.push_back("FT A/" + std::to_string(i));
    texts.push_back("S" + std::to_string(i) + " A/1");
    texts.push_back("FT B/" + std::to_string(i % 100) + "000000000000000000");
  }
  const std::vector<std::string_view> views(texts.begin(), texts.end());
  EXPECT_EQ(std::ranges::count(TakeNumbers(views), 'R'), 29'900);
  EXPECT_EQ(table_.Count(), 60'100U);
  EXPECT_EQ(Along()[0], "FT A/1");
  EXPECT_EQ(Found("S17 A/1"), "S17 A/1");
}

TEST_F(DocumentTableTest, NeighboursAreNextByNumberInTheirSeries) {
  TakeNumbers({"FT A/9", "FT A/011", "FT B/10", "FT A/10", "FT A/0", "FT A/1", "FT A/9999999999999999999",
               "FT A/10000000000000000000"});
  const auto neighbour = [&](uint32_t document, int step) {
    const auto found = table_.Neighbour(document, step);
    return found ? table_.TextOf(table_[*found]) : "none";
  };
  EXPECT_EQ(neighbour(3, -1), "FT A/9");
  EXPECT_EQ(neighbour(3, 1), "FT A/011");
  EXPECT_EQ(neighbour(0, -1), "none");
  EXPECT_EQ(neighbour(2, -1), "none");
  EXPECT_EQ(neighbour(2, 1), "none");
  EXPECT_EQ(neighbour(4, -1), "none");
  EXPECT_EQ(neighbour(4, 1), "FT A/1");
  EXPECT_EQ(neighbour(6, 1), "none");
  EXPECT_EQ(neighbour(7, -1), "none");
}

TEST_F(DocumentTableTest, KeepsWhatAHashIs) {
  Take({"<InvoiceNo>FT A/1</InvoiceNo><InvoiceStatus>N</InvoiceStatus>\n<Hash>0</Hash>",
        "<InvoiceNo>FT A/2</InvoiceNo><Hash>" + std::string(171, 'A') + "=</Hash>", "<InvoiceNo>FT A/3</InvoiceNo>"});
  EXPECT_EQ(table_[0].Hash(), HashForm::kUnsigned);
  EXPECT_EQ(table_[1].Hash(), HashForm::kSignature);
  EXPECT_EQ(table_[2].Hash(), HashForm::kNone);
  const KeptElement hash = table_.Keep(table_[0], DocumentTable::Element::kHash);
  EXPECT_EQ(hash.path, "Hash");
  EXPECT_EQ(hash.text, "0");
  EXPECT_EQ(hash.place.line, 2);
  EXPECT_EQ(hash.place.column, 1);
}

}  // namespace
}  // namespace zevo
