// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/GeneralLedgerDALC.h>

#include <memory>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/MasterRecordContract.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace testing {
namespace {

struct GeneralLedgerDALCHarness {
  using Mapper = GeneralLedgerDALC;
  using Record = GeneralLedger;
  static constexpr auto kCreate = &Mapper::CreateGeneralLedger;
  static constexpr auto kRead = &Mapper::ReadGeneralLedger;
  static constexpr auto kCount = &Mapper::GeneralLedgers;
  static constexpr std::string_view kElement = "GeneralLedger";
  static constexpr std::string_view kIdentifier = "AccountID";
  static constexpr std::string_view kFlag = {};
};

INSTANTIATE_TYPED_TEST_SUITE_P(GeneralLedgerDALC, MasterRecordContract, GeneralLedgerDALCHarness);

}  // namespace
}  // namespace testing

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
          <AccountID></AccountID>
          <AccountDescription></AccountDescription>
          <OpeningDebitBalance>0</OpeningDebitBalance>
          <OpeningCreditBalance>0</OpeningCreditBalance>
        </GeneralLedger>
      </MasterFiles>)"));
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

}  // namespace
}  // namespace zevo
