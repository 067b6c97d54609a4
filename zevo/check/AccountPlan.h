// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_ACCOUNTPLAN_H_
#define ZEVO_CHECK_ACCOUNTPLAN_H_

#include <zevo/check/EntityFacts.h>
#include <zevo/check/KeptElement.h>
#include <zevo/model/Decimal.h>

#include <cstddef>
#include <string>
#include <vector>

namespace zevo {

/// The accounts of a file. They are kept: a plan has some thousands of them, however many documents there are.
class AccountPlan {
 public:
  struct Account {
    std::string id;
    FilePlace place;  // of its AccountID
    Decimal debit;    // opening balances
    Decimal credit;
  };

  void Take(const AccountFacts& facts);

  /// In the order of the file, those that have no other account as the beginning of their own, of at least two
  /// characters. Shorter accounts need none.
  std::vector<const Account*> WithoutParent() const;

  struct Balances {
    Decimal debit;
    Decimal credit;
  };
  /// The opening balances of all accounts; of movement accounts only, which no other account of the file begins with.
  Balances OpeningOfAll() const;
  Balances OpeningOfMovementAccounts() const;
  /// Whether every account had its number and balances that can be read.
  bool IsWhole() const { return whole_; }
  bool IsEmpty() const { return accounts_.empty(); }

 private:
  std::vector<const Account*> Sorted() const;

  std::vector<Account> accounts_;
  bool whole_ = true;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_ACCOUNTPLAN_H_
