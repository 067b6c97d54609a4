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
  Decimal negative;     ///< what the negative amounts of it are, without their sign
  int64_t inexact = 0;  ///< amounts of more than two decimals
  bool known = true;    ///< no amount was unreadable

  void Add(const NumberFact& amount);
  AmountSum& operator+=(const AmountSum& more);
  /// Whether this may be the sum: but for half a cent for each amount of more decimals, which programs round.
  bool Allows(const Decimal& total) const;
  /// Whether it may be the sum if negative amounts were meant otherwise: without their signs, or on the other side, of
  /// which the other is the sum.
  bool MayAllow(const Decimal& total, const AmountSum& other) const;

 private:
  Decimal Tolerance() const { return Decimal::OfUnits(5, 3) * inexact; }
};

}  // namespace zevo

#endif  // ZEVO_CHECK_AMOUNTSUM_H_
