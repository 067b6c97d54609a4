// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/LedgerSums.h>

namespace zevo {

void LedgerSums::Take(const TransactionFacts& facts) {
  of_this_ = {};
  // That there are no lines is told by SCHEMA.
  if (facts.lines.empty()) of_this_.debit.known = of_this_.credit.known = false;
  for (const EntryLineFacts& line : facts.lines) {
    of_this_.debit.Add(line.debit);
    of_this_.credit.Add(line.credit);
    // A line without an amount lacks one of the two.
    if (line.debit.Missing() && line.credit.Missing()) of_this_.debit.known = of_this_.credit.known = false;
  }
  of_all_.debit += of_this_.debit;
  of_all_.credit += of_this_.credit;
  ++transactions_;
}

}  // namespace zevo
