// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_LEDGERSUMS_H_
#define ZEVO_CHECK_LEDGERSUMS_H_

#include <zevo/check/AmountSum.h>
#include <zevo/check/EntityFacts.h>

#include <cstdint>

namespace zevo {

/// What the lines of transactions debit and credit: of the one that was taken last, and of all.
class LedgerSums {
 public:
  struct Sums {
    AmountSum debit;
    AmountSum credit;

    bool Known() const { return debit.known && credit.known; }
  };

  void Take(const TransactionFacts& facts);

  const Sums& OfThis() const { return of_this_; }
  const Sums& OfAll() const { return of_all_; }
  int64_t Transactions() const { return transactions_; }

 private:
  Sums of_this_;
  Sums of_all_;
  int64_t transactions_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_LEDGERSUMS_H_
