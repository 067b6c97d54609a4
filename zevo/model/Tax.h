// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_TAX_H_
#define ZEVO_MODEL_TAX_H_

#include <zevo/model/Record.h>

namespace zevo {

/// The tax of an invoice line. It carries either a percentage or an amount: the percentage unless that is 0.
class ZEVO_API Tax : public Record {
  ZEVO_RECORD(Tax, kTax);

  /// Country of ISO 3166-1, or "PT-AC" (Azores) or "PT-MA" (Madeira).
  ZEVO_TEXT(TaxCountryRegion);

  /// RED, INT, NOR, ISE, OUT or a number. At most 10 characters.
  ZEVO_TEXT(TaxCode);

  /// In percent.
  ZEVO_SINGLE(TaxPercentage);

  /// Amount of the tax where it is not a percentage.
  ZEVO_SINGLE(TaxAmount);

  /// Value added tax, the only kind written.
  ZEVO_CONSTANT(TaxType, "IVA");
};

}  // namespace zevo

#endif  // ZEVO_MODEL_TAX_H_
