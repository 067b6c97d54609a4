// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/AccountPlan.h>

#include <algorithm>
#include <functional>

namespace zevo {
namespace {

// An account of fewer characters integrates nothing.
constexpr size_t kShortestParent = 2;

}  // namespace

void AccountPlan::Take(const AccountFacts& facts) {
  if (!facts.id.Read() || !facts.opening_debit.Read() || !facts.opening_credit.Read()) whole_ = false;
  if (!facts.id.Read()) return;
  accounts_.push_back({.id = std::string(*facts.id),
                       .place = facts.entity->PlaceOf(facts.id.element),
                       .debit = *facts.opening_debit,
                       .credit = *facts.opening_credit});
}

std::vector<const AccountPlan::Account*> AccountPlan::Sorted() const {
  std::vector<const Account*> sorted;
  sorted.reserve(accounts_.size());
  for (const Account& account : accounts_) sorted.push_back(&account);
  std::ranges::stable_sort(sorted, {}, [](const Account* account) -> const std::string& { return account->id; });
  return sorted;
}

// An account comes behind those that it begins with. Those of the one at hand are kept on the way, the longest last.
std::vector<const AccountPlan::Account*> AccountPlan::WithoutParent() const {
  std::vector<const Account*> alone;
  std::vector<const Account*> parents;
  const Account* before = nullptr;
  for (const Account* account : Sorted()) {
    if (before != nullptr && before->id == account->id) continue;
    before = account;
    while (!parents.empty() && !account->id.starts_with(parents.back()->id)) parents.pop_back();
    if (account->id.size() > kShortestParent && parents.empty()) alone.push_back(account);
    if (account->id.size() >= kShortestParent) parents.push_back(account);
  }
  std::ranges::sort(alone, std::less<>());  // by where they are kept
  return alone;
}

AccountPlan::Balances AccountPlan::OpeningOfAll() const {
  Balances sums;
  for (const Account& account : accounts_) {
    sums.debit += account.debit;
    sums.credit += account.credit;
  }
  return sums;
}

AccountPlan::Balances AccountPlan::OpeningOfMovementAccounts() const {
  Balances sums;
  const std::vector<const Account*> sorted = Sorted();
  for (size_t i = 0; i < sorted.size(); ++i) {
    size_t next = i + 1;
    while (next < sorted.size() && sorted[next]->id == sorted[i]->id) ++next;
    if (next < sorted.size() && sorted[next]->id.starts_with(sorted[i]->id)) continue;
    sums.debit += sorted[i]->debit;
    sums.credit += sorted[i]->credit;
  }
  return sums;
}

}  // namespace zevo
