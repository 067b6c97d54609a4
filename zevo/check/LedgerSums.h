// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_LEDGERSUMS_H_
#define ZEVO_CHECK_LEDGERSUMS_H_

#include <zevo/check/EntityFacts.h>
#include <zevo/model/Decimal.h>

#include <cstdint>

namespace zevo {

/// A sum of amounts, exactly, with what its rounding may be off by.
struct AmountSum {
  Decimal sum;
  int64_t inexact = 0;  ///< amounts of more than two decimals
  bool known = true;    ///< no amount was unreadable

  void Add(const NumberFact& amount);
  /// What a total of two decimals may differ by: half a cent for each amount of more decimals.
  Decimal Tolerance() const;
};

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
