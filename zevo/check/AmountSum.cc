// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/AmountSum.h>

namespace zevo {

void AmountSum::Add(const NumberFact& amount) {
  if (amount.Missing()) return;
  if (!amount.Read()) {
    known = false;
    return;
  }
  sum += *amount;
  if (amount->IsNegative()) negative -= *amount;
  if (amount->Decimals() > 2) ++inexact;
}

AmountSum& AmountSum::operator+=(const AmountSum& more) {
  sum += more.sum;
  negative += more.negative;
  inexact += more.inexact;
  known = known && more.known;
  return *this;
}

bool AmountSum::Allows(const Decimal& total) const {
  const Decimal difference = total - sum;
  return (difference.IsNegative() ? -difference : difference) <= Tolerance();
}

bool AmountSum::MayAllow(const Decimal& total, const AmountSum& other) const {
  // Not twice: numbers may be too long to be multiplied.
  const Decimal highest = sum + negative + negative + other.negative;
  return sum - Tolerance() <= total && total <= highest + Tolerance();
}

}  // namespace zevo
