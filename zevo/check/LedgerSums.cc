// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/LedgerSums.h>

namespace zevo {
namespace {

void AddSum(AmountSum& all, const AmountSum& more) {
  all.sum += more.sum;
  all.inexact += more.inexact;
  all.known = all.known && more.known;
}

}  // namespace

void AmountSum::Add(const NumberFact& amount) {
  if (amount.Missing()) return;
  if (!amount.Read()) {
    known = false;
    return;
  }
  sum += *amount;
  if (amount->Decimals() > 2) ++inexact;
}

Decimal AmountSum::Tolerance() const { return *Decimal::FromText("0.005") * Decimal(inexact); }

void LedgerSums::Take(const TransactionFacts& facts) {
  of_this_ = {};
  for (const EntryLineFacts& line : facts.lines) {
    of_this_.debit.Add(line.debit);
    of_this_.credit.Add(line.credit);
    // A line without an amount lacks one of the two.
    if (line.debit.Missing() && line.credit.Missing()) of_this_.debit.known = of_this_.credit.known = false;
  }
  AddSum(of_all_.debit, of_this_.debit);
  AddSum(of_all_.credit, of_this_.credit);
  ++transactions_;
}

}  // namespace zevo
