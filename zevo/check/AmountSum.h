// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_AMOUNTSUM_H_
#define ZEVO_CHECK_AMOUNTSUM_H_

#include <zevo/check/Fact.h>
#include <zevo/model/Decimal.h>

#include <cstdint>

namespace zevo {

/// A sum of amounts, exactly, with what its rounding may be off by.
struct AmountSum {
  Decimal sum;
  int64_t inexact = 0;  ///< amounts of more than two decimals
  bool known = true;    ///< no amount was unreadable

  void Add(const NumberFact& amount);
  AmountSum& operator+=(const AmountSum& more);
  /// Whether this may be the sum: but for half a cent for each amount of more decimals, which programs round.
  bool Allows(const Decimal& total) const;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_AMOUNTSUM_H_
