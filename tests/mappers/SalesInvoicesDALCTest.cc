#include <zevo/mappers/SalesInvoicesDALC.h>

#include <memory>

#include "tests/mappers/MapperTest.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::NumberOf;

constexpr std::string_view kFresh =
    "<SourceDocuments><SalesInvoices><NumberOfEntries>0</NumberOfEntries><TotalDebit>.00</TotalDebit>"
    "<TotalCredit>.00</TotalCredit></SalesInvoices></SourceDocuments>";

class SalesInvoicesDALCTest : public testing::MapperTest {
 protected:
  void SetTotals(int32_t number, std::string_view debit, std::string_view credit) {
    totals_.set_NumberOfEntries(number);
    totals_.set_TotalDebit(Amount::FromText(debit));
    totals_.set_TotalCredit(Amount::FromText(credit));
  }
  std::shared_ptr<SalesInvoices> Read(IDALReader& reader) {
    std::shared_ptr<SalesInvoices> totals;
    mapper_.ReadSalesInvoices(totals, reader);
    return totals;
  }

  SalesInvoicesDALC mapper_;
  SalesInvoices totals_;
};

TEST_F(SalesInvoicesDALCTest, UntouchedTotalsAreWrittenWithoutAWholePart) {
  mapper_.CreateSalesInvoices(totals_, helper_);
  EXPECT_EQ(Written(), kFresh);
}

TEST_F(SalesInvoicesDALCTest, WritesTheTotalsWithTwoDecimals) {
  SetTotals(-3, "0.5", "1234.567");
  mapper_.CreateSalesInvoices(totals_, helper_);
  EXPECT_EQ(Written(),
            "<SourceDocuments><SalesInvoices><NumberOfEntries>-3</NumberOfEntries><TotalDebit>.50</TotalDebit>"
            "<TotalCredit>1234.57</TotalCredit></SalesInvoices></SourceDocuments>");
}

TEST_F(SalesInvoicesDALCTest, SourceDocumentsIsReused) {
  Begin("<SourceDocuments><Other/></SourceDocuments>");
  mapper_.CreateSalesInvoices(totals_, helper_);
  EXPECT_TRUE(Written().starts_with("<SourceDocuments><Other/><SalesInvoices>")) << Written();
  EXPECT_EQ(Written().find("<SourceDocuments>"), Written().rfind("<SourceDocuments>"));
}

TEST_F(SalesInvoicesDALCTest, SecondSectionRaises302AndWritesNothing) {
  mapper_.CreateSalesInvoices(totals_, helper_);
  SetTotals(1, "1", "1");
  EXPECT_ERROR(mapper_.CreateSalesInvoices(totals_, helper_), NumberOf(Message{302}),
               "SalesInvoicesDALC.CreateSalesInvoices");
  EXPECT_EQ(Written(), kFresh);
}

TEST_F(SalesInvoicesDALCTest, UpdateReplacesTheTotalsInFrontOfTheInvoices) {
  Begin(
      "<SourceDocuments><SalesInvoices><NumberOfEntries>0</NumberOfEntries><TotalDebit>.00</TotalDebit>"
      "<TotalCredit>.00</TotalCredit><Invoice/></SalesInvoices></SourceDocuments>");
  SetTotals(1, "2.5", "1000");
  mapper_.UpdateSalesInvoices(totals_, helper_);
  EXPECT_EQ(Written(),
            "<SourceDocuments><SalesInvoices><NumberOfEntries>1</NumberOfEntries><TotalDebit>2.50</TotalDebit>"
            "<TotalCredit>1000.00</TotalCredit><Invoice/></SalesInvoices></SourceDocuments>");
}

TEST_F(SalesInvoicesDALCTest, UpdateWithoutSectionRaises301AndWritesNothing) {
  for (const std::string_view content : {"", "<SourceDocuments/>", "<SalesInvoices/>"}) {
    Begin(content);
    const std::string before = Written();
    EXPECT_ERROR(mapper_.UpdateSalesInvoices(totals_, helper_), NumberOf(Message{301}),
                 "SalesInvoicesDALC.UpdateSalesInvoices");
    EXPECT_EQ(Written(), before);
  }
}

TEST_F(SalesInvoicesDALCTest, ReadsTheTotals) {
  const auto totals =
      Read(Reading("<SourceDocuments><SalesInvoices><NumberOfEntries>2</NumberOfEntries><TotalDebit>.25</TotalDebit>"
                   "<TotalCredit>-8.5</TotalCredit></SalesInvoices></SourceDocuments>"));
  EXPECT_EQ(Describe(*totals), "NumberOfEntries=2\nTotalDebit=0.25\nTotalCredit=-8.5\n");
}

TEST_F(SalesInvoicesDALCTest, AmountsThatAreMissingReadAsZero) {
  EXPECT_EQ(Describe(*Read(Reading("<SourceDocuments><SalesInvoices><NumberOfEntries>2</NumberOfEntries>"
                                   "</SalesInvoices></SourceDocuments>"))),
            "NumberOfEntries=2\n");
}

TEST_F(SalesInvoicesDALCTest, NumberOfEntriesThatIsMissingOrNoNumberIsATypeMismatch) {
  for (const std::string_view element : {"", "<NumberOfEntries/>", "<NumberOfEntries>x</NumberOfEntries>"}) {
    IDALReader& reader = Reading(
        std::string("<SourceDocuments><SalesInvoices>").append(element).append("</SalesInvoices></SourceDocuments>"));
    EXPECT_ERROR(Read(reader), RunTimeError::kTypeMismatch, kRunTimeSource);
  }
}

TEST_F(SalesInvoicesDALCTest, ReadWithoutSectionRaises301) {
  for (const std::string_view content : {"", "<SourceDocuments/>", "<SalesInvoices/>"}) {
    IDALReader& reader = Reading(content);
    EXPECT_ERROR(Read(reader), NumberOf(Message{301}), "SalesInvoicesDALC.ReadSalesInvoices");
  }
}

}  // namespace
}  // namespace zevo
