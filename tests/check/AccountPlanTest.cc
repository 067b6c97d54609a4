// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <zevo/check/AccountPlan.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/check/FactsTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class AccountPlanTest : public testing::FactsTest {
 protected:
  static std::string Account(std::string_view id, std::string_view debit = "0", std::string_view credit = "0") {
    std::string account("<AccountID>");
    account.append(id).append("</AccountID><OpeningDebitBalance>").append(debit);
    account.append("</OpeningDebitBalance><OpeningCreditBalance>").append(credit);
    return account.append("</OpeningCreditBalance>");
  }
  void Take(const std::vector<std::string>& accounts) {
    ForEachMaster<AccountFacts>(EntityKind::kGeneralLedger, accounts,
                                [this](const AccountFacts& facts) { plan_.Take(facts); });
  }
  void TakeNumbers(const std::vector<std::string_view>& numbers) {
    std::vector<std::string> accounts;
    for (const std::string_view number : numbers) accounts.push_back(Account(number));
    Take(accounts);
  }
  std::vector<std::string> WithoutParent() const {
    std::vector<std::string> ids;
    for (const AccountPlan::Account* const account : plan_.WithoutParent()) ids.push_back(account->id);
    return ids;
  }
  static std::string Text(const AccountPlan::Balances& sums) { return sums.debit.Text() + " " + sums.credit.Text(); }

  AccountPlan plan_;
};

TEST_F(AccountPlanTest, AnAccountOfTwoCharactersIntegratesLongerOnes) {
  TakeNumbers({"211", "21", "2111", "2", "22", "12101", "123", "31", "3"});
  EXPECT_THAT(WithoutParent(), ElementsAre("12101", "123"));
}

TEST_F(AccountPlanTest, AccountsComeInTheOrderOfTheFileEachOnce) {
  TakeNumbers({"999", "111", "555", "111"});
  EXPECT_THAT(WithoutParent(), ElementsAre("999", "111", "555"));
}

TEST_F(AccountPlanTest, AnyAccountInFrontIsEnough) {
  TakeNumbers({"21", "2111", "21112", "212", "2201"});
  EXPECT_THAT(WithoutParent(), ElementsAre("2201"));
}

TEST_F(AccountPlanTest, AnAccountIsKeptWithItsPlace) {
  TakeNumbers({"999"});
  EXPECT_EQ(plan_.WithoutParent()[0]->place, (FilePlace{1, 40, 39}));
}

TEST_F(AccountPlanTest, MovementAccountsAreThoseThatNoOtherBeginsWith) {
  Take({Account("21", "100.5", "7"), Account("211", "100", "4"), Account("212", "0.5", "3"), Account("2", "100.5", "7"),
        Account("31", "1", "0"), Account("31", "2", "0")});
  EXPECT_EQ(Text(plan_.OpeningOfAll()), "304.5 21");
  EXPECT_EQ(Text(plan_.OpeningOfMovementAccounts()), "103.5 7");
}

TEST_F(AccountPlanTest, AnEmptyPlanHasNothing) {
  EXPECT_TRUE(plan_.IsEmpty());
  EXPECT_TRUE(plan_.IsWhole());
  EXPECT_THAT(WithoutParent(), IsEmpty());
  EXPECT_EQ(Text(plan_.OpeningOfMovementAccounts()), "0 0");
}

TEST_F(AccountPlanTest, WhatCannotBeReadIsMissing) {
  for (const std::string& account :
       {Account("21", "x"), Account("21", "0", ""), std::string("<AccountID>21</AccountID>")}) {
    plan_ = {};
    Take({account});
    EXPECT_FALSE(plan_.IsWhole()) << account;
    EXPECT_FALSE(plan_.IsEmpty()) << account;
  }
  plan_ = {};
  Take({"<OpeningDebitBalance>0</OpeningDebitBalance><OpeningCreditBalance>0</OpeningCreditBalance>"});
  EXPECT_FALSE(plan_.IsWhole());
  EXPECT_TRUE(plan_.IsEmpty());
}

}  // namespace
}  // namespace zevo
