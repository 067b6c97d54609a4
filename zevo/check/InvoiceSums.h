// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_INVOICESUMS_H_
#define ZEVO_CHECK_INVOICESUMS_H_

#include <zevo/check/AmountSum.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/model/Decimal.h>

#include <vector>

namespace zevo {

/// Whether a number is short enough to be multiplied, so that all that is made from it can be, too: it has at most 1000
/// characters.
bool CanMultiply(const EntityFacts& facts, const NumberFact& number);

/// What the lines of the invoice that was taken last come to.
class InvoiceSums {
 public:
  void Take(const InvoiceFacts& facts);

  const AmountSum& Debit() const { return debit_; }
  const AmountSum& Credit() const { return credit_; }
  /// Whether each line has an amount that can be read; so it is where there are no lines.
  bool Known() const { return debit_.known && credit_.known; }
  /// Credits less debits.
  Decimal Net() const { return credit_.sum - debit_.sum; }

  /// Whether the tax of each line is known.
  bool TaxKnown() const { return tax_known_; }
  /// The tax of the lines in cents, not rounded, credits less debits. A TaxAmount counts once a line.
  const Decimal& TaxInCents() const { return tax_; }

 private:
  AmountSum debit_;
  AmountSum credit_;
  Decimal tax_;
  bool tax_known_ = true;
};

/// What credits less debits may come to where amounts of lines are negative: as if they were not.
Decimal NetWithoutSigns(const InvoiceFacts& facts);

/// All that the tax of lines may come to, in cents and without its sign: not rounded, rounded per line, or per type,
/// region, code and rate; a TaxAmount once a line, or by Quantity; negative amounts as they are, or as if they were
/// not. Of an invoice whose tax is known.
std::vector<Decimal> PossibleTaxesInCents(const InvoiceFacts& facts);

}  // namespace zevo

#endif  // ZEVO_CHECK_INVOICESUMS_H_
