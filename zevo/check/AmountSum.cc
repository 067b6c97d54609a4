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
  if (amount->Decimals() > 2) ++inexact;
}

AmountSum& AmountSum::operator+=(const AmountSum& more) {
  sum += more.sum;
  inexact += more.inexact;
  known = known && more.known;
  return *this;
}

bool AmountSum::Allows(const Decimal& total) const {
  const Decimal difference = total - sum;
  return (difference.IsNegative() ? -difference : difference) <= Decimal::OfUnits(5, 3) * inexact;
}

}  // namespace zevo
