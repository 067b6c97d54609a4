// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_TAXTABLEENTRY_H_
#define ZEVO_MODEL_TAXTABLEENTRY_H_

#include <zevo/model/Record.h>

namespace zevo {

/// A rate of the tax table. It carries either a percentage or an amount: the percentage unless that is 0.
class ZEVO_API TaxTableEntry : public Record {
  ZEVO_RECORD(TaxTableEntry, kTaxTableEntry);

  /// Country of ISO 3166-1, or "PT-AC" (Azores) or "PT-MA" (Madeira).
  ZEVO_TEXT(TaxCountryRegion);

  /// RED, INT, NOR, ISE, OUT or a number. At most 10 characters.
  ZEVO_TEXT(TaxCode);

  /// At most 255 characters.
  ZEVO_TEXT(Description);

  /// Last day on which the rate applied, empty while it applies. Written as yyyy-mm-dd when it reads as a date.
  ZEVO_DATE(TaxExpirationDate);

  /// In percent.
  ZEVO_AMOUNT(TaxPercentage);

  /// Amount of the tax where it is not a percentage, as with some stamp duties.
  ZEVO_AMOUNT(TaxAmount);

  /// Value added tax, the only kind written.
  ZEVO_CONSTANT(TaxType, "IVA");
};

}  // namespace zevo

#endif  // ZEVO_MODEL_TAXTABLEENTRY_H_
