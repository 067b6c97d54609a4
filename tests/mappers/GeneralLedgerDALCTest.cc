#include <zevo/mappers/GeneralLedgerDALC.h>

#include <memory>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::FullGeneralLedger;
using testing::OneLine;

class GeneralLedgerDALCTest : public testing::MapperTest {
 protected:
  std::shared_ptr<GeneralLedger> Read(IDALReader& reader, bool first = true) {
    std::shared_ptr<GeneralLedger> account;
    GeneralLedgerDALC().ReadGeneralLedger(account, reader, first);
    return account;
  }
};

TEST_F(GeneralLedgerDALCTest, WritesEveryProperty) {
  GeneralLedgerDALC().CreateGeneralLedger(*FullGeneralLedger(), helper_);
  EXPECT_EQ(Written(), OneLine(R"(
      <MasterFiles>
        <GeneralLedger>
          <AccountID>11</AccountID>
          <AccountDescription>Caixa</AccountDescription>
          <OpeningDebitBalance>1234.5</OpeningDebitBalance>
          <OpeningCreditBalance>0.0001</OpeningCreditBalance>
        </GeneralLedger>
      </MasterFiles>)"));
}

TEST_F(GeneralLedgerDALCTest, WritesAnEmptyAccountWithAllItsElements) {
  GeneralLedgerDALC().CreateGeneralLedger(GeneralLedger(), helper_);
  EXPECT_EQ(Written(), OneLine(R"(
      <MasterFiles>
        <GeneralLedger>
          <AccountID/>
          <AccountDescription/>
          <OpeningDebitBalance>0</OpeningDebitBalance>
          <OpeningCreditBalance>0</OpeningCreditBalance>
        </GeneralLedger>
      </MasterFiles>)"));
}

TEST_F(GeneralLedgerDALCTest, SecondAccountReusesMasterFiles) {
  Begin("<MasterFiles><Customer/></MasterFiles><GeneralLedgerEntries/>");
  GeneralLedger account;
  GeneralLedgerDALC().CreateGeneralLedger(account, helper_);
  GeneralLedgerDALC().CreateGeneralLedger(account, helper_);
  const std::string one =
      "<GeneralLedger><AccountID/><AccountDescription/><OpeningDebitBalance>0</OpeningDebitBalance>"
      "<OpeningCreditBalance>0</OpeningCreditBalance></GeneralLedger>";
  EXPECT_EQ(Written(), "<MasterFiles><Customer/>" + one + one + "</MasterFiles><GeneralLedgerEntries/>");
}

TEST_F(GeneralLedgerDALCTest, ReadsEveryProperty) {
  const auto account = Read(Reading(OneLine(R"(
      <MasterFiles>
        <GeneralLedger>
          <AccountID>11</AccountID>
          <AccountDescription>Caixa</AccountDescription>
          <OpeningDebitBalance>1234.5</OpeningDebitBalance>
          <OpeningCreditBalance>-7</OpeningCreditBalance>
        </GeneralLedger>
      </MasterFiles>)")));
  ASSERT_TRUE(account);
  EXPECT_EQ(Describe(*account),
            "AccountID=11\nAccountDescription=Caixa\nOpeningDebitBalance=1234.5\nOpeningCreditBalance=-7\n");
}

TEST_F(GeneralLedgerDALCTest, BalancesThatAreMissingOrNoNumbersAreZero) {
  const auto account = Read(Reading(
      "<MasterFiles><GeneralLedger><OpeningDebitBalance>x</OpeningDebitBalance></GeneralLedger></MasterFiles>"));
  EXPECT_EQ(Describe(*account), "");
}

TEST_F(GeneralLedgerDALCTest, ReadsOneAfterTheOther) {
  IDALReader& reader = Reading(
      "<MasterFiles><GeneralLedger><AccountID>1</AccountID></GeneralLedger><Customer/>"
      "<GeneralLedger><AccountID>2</AccountID></GeneralLedger></MasterFiles>");
  EXPECT_EQ(Read(reader, true)->AccountID(), "1");
  EXPECT_EQ(Read(reader, false)->AccountID(), "2");
  EXPECT_EQ(Read(reader, false), nullptr);
  EXPECT_EQ(Read(reader, false), nullptr);
  EXPECT_EQ(Read(reader, true)->AccountID(), "1");
}

TEST_F(GeneralLedgerDALCTest, GivesNothingWhereThereIsNone) {
  EXPECT_EQ(Read(Reading("")), nullptr);
  EXPECT_EQ(Read(Reading("<MasterFiles/>")), nullptr);
  auto slot = FullGeneralLedger();
  GeneralLedgerDALC().ReadGeneralLedger(slot, Reading("<MasterFiles/>"), true);
  EXPECT_EQ(slot, nullptr);
}

TEST_F(GeneralLedgerDALCTest, CountsUnderMasterFiles) {
  GeneralLedgerDALC mapper;
  EXPECT_EQ(mapper.GeneralLedgers(Reading("")), 0);
  EXPECT_EQ(mapper.GeneralLedgers(Reading("<MasterFiles/>")), 0);
  EXPECT_EQ(mapper.GeneralLedgers(Reading("<MasterFiles><GeneralLedger/><Product/><GeneralLedger/></MasterFiles>")), 2);
}

}  // namespace
}  // namespace zevo
