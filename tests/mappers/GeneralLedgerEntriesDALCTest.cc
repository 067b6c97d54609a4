#include <zevo/mappers/GeneralLedgerEntriesDALC.h>

#include <memory>

#include "tests/mappers/MapperTest.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::NumberOf;

constexpr std::string_view kFresh =
    "<GeneralLedgerEntries><NumberOfEntries>0</NumberOfEntries><TotalDebit>.00</TotalDebit>"
    "<TotalCredit>.00</TotalCredit></GeneralLedgerEntries>";

class GeneralLedgerEntriesDALCTest : public testing::MapperTest {
 protected:
  void SetTotals(int32_t number, std::string_view debit, std::string_view credit) {
    totals_.set_NumberOfEntries(number);
    totals_.set_TotalDebit(Amount::FromText(debit));
    totals_.set_TotalCredit(Amount::FromText(credit));
  }
  std::shared_ptr<GeneralLedgerEntries> Read(IDALReader& reader) {
    std::shared_ptr<GeneralLedgerEntries> totals;
    mapper_.ReadGeneralLedgerEntries(totals, reader);
    return totals;
  }

  GeneralLedgerEntriesDALC mapper_;
  GeneralLedgerEntries totals_;
};

TEST_F(GeneralLedgerEntriesDALCTest, FreshSectionHoldsZeroAndTotalsWithoutAWholePart) {
  mapper_.CreateGeneralLedgerEntries(totals_, helper_);
  EXPECT_EQ(Written(), kFresh);
}

TEST_F(GeneralLedgerEntriesDALCTest, WritesTheTotalsWithTwoDecimals) {
  SetTotals(12, "1234567.895", "-0.5");
  mapper_.CreateGeneralLedgerEntries(totals_, helper_);
  EXPECT_EQ(Written(),
            "<GeneralLedgerEntries><NumberOfEntries>12</NumberOfEntries><TotalDebit>1234567.90</TotalDebit>"
            "<TotalCredit>-.50</TotalCredit></GeneralLedgerEntries>");
}

TEST_F(GeneralLedgerEntriesDALCTest, SecondSectionRaises201AndWritesNothing) {
  mapper_.CreateGeneralLedgerEntries(totals_, helper_);
  SetTotals(5, "1", "2");
  EXPECT_ERROR(mapper_.CreateGeneralLedgerEntries(totals_, helper_), NumberOf(Message{201}),
               "GeneralLedgerEntriesDALC.CreateGeneralLedgerEntries");
  EXPECT_EQ(Written(), kFresh);
}

TEST_F(GeneralLedgerEntriesDALCTest, UpdateReplacesTheTotalsInTheirPlace) {
  Begin(
      "<GeneralLedgerEntries><NumberOfEntries>0</NumberOfEntries><TotalDebit>.00</TotalDebit>"
      "<TotalCredit>.00</TotalCredit><Journal/></GeneralLedgerEntries>");
  SetTotals(2, "10", "20.5");
  mapper_.UpdateGeneralLedgerEntries(totals_, helper_);
  EXPECT_EQ(Written(),
            "<GeneralLedgerEntries><NumberOfEntries>2</NumberOfEntries><TotalDebit>10.00</TotalDebit>"
            "<TotalCredit>20.50</TotalCredit><Journal/></GeneralLedgerEntries>");
}

TEST_F(GeneralLedgerEntriesDALCTest, UpdateAddsTheTotalsThatAreMissing) {
  Begin("<GeneralLedgerEntries><Journal/><TotalCredit>1</TotalCredit></GeneralLedgerEntries>");
  mapper_.UpdateGeneralLedgerEntries(totals_, helper_);
  EXPECT_EQ(Written(),
            "<GeneralLedgerEntries><Journal/><TotalCredit>.00</TotalCredit><NumberOfEntries>0</NumberOfEntries>"
            "<TotalDebit>.00</TotalDebit></GeneralLedgerEntries>");
}

TEST_F(GeneralLedgerEntriesDALCTest, UpdateWithoutSectionRaises202AndWritesNothing) {
  EXPECT_ERROR(mapper_.UpdateGeneralLedgerEntries(totals_, helper_), NumberOf(Message{202}),
               "GeneralLedgerEntriesDALC.UpdateGeneralLedgerEntries");
  EXPECT_EQ(Written(), "");
}

TEST_F(GeneralLedgerEntriesDALCTest, ReadsTheTotals) {
  const auto totals =
      Read(Reading("<GeneralLedgerEntries><NumberOfEntries>12</NumberOfEntries><TotalDebit>.50</TotalDebit>"
                   "<TotalCredit>7.25</TotalCredit></GeneralLedgerEntries>"));
  EXPECT_EQ(Describe(*totals), "NumberOfEntries=12\nTotalDebit=0.5\nTotalCredit=7.25\n");
}

TEST_F(GeneralLedgerEntriesDALCTest, ReadsBackWhatItWrote) {
  SetTotals(3, "10.25", "0");
  mapper_.CreateGeneralLedgerEntries(totals_, helper_);
  EXPECT_EQ(Describe(*Read(ReadingBack())), Describe(totals_));
}

TEST_F(GeneralLedgerEntriesDALCTest, AmountsThatAreMissingReadAsZero) {
  EXPECT_EQ(
      Describe(*Read(Reading("<GeneralLedgerEntries><NumberOfEntries>1</NumberOfEntries></GeneralLedgerEntries>"))),
      "NumberOfEntries=1\n");
}

TEST_F(GeneralLedgerEntriesDALCTest, NumberOfEntriesThatIsMissingOrNoNumberIsATypeMismatch) {
  for (const std::string_view content :
       {"<GeneralLedgerEntries/>", "<GeneralLedgerEntries><NumberOfEntries/></GeneralLedgerEntries>",
        "<GeneralLedgerEntries><NumberOfEntries>x</NumberOfEntries>"
        "</GeneralLedgerEntries>"}) {
    IDALReader& reader = Reading(content);
    EXPECT_ERROR(Read(reader), RunTimeError::kTypeMismatch, kRunTimeSource);
  }
}

TEST_F(GeneralLedgerEntriesDALCTest, ReadWithoutSectionRaises202) {
  IDALReader& reader = Reading("");
  EXPECT_ERROR(Read(reader), NumberOf(Message{202}), "GeneralLedgerEntriesDALC.ReadGeneralLedgerEntries");
}

TEST_F(GeneralLedgerEntriesDALCTest, ErrorsCarryNoDescriptionOfTheirOwn) {
  EXPECT_EQ(testing::ErrorOf([&] { mapper_.UpdateGeneralLedgerEntries(totals_, helper_); }).Description(), "");
}

}  // namespace
}  // namespace zevo
