// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_DOCUMENTTOTALS_H_
#define ZEVO_MODEL_DOCUMENTTOTALS_H_

#include <zevo/model/CurrencyStructure.h>
#include <zevo/model/Record.h>
#include <zevo/model/Settlement.h>

namespace zevo {

/// The totals of an invoice. They hold what is assigned; nothing derives them from the lines.
class ZEVO_API DocumentTotals : public Record {
  ZEVO_RECORD(DocumentTotals, kDocumentTotals);

  /// Sum of the taxes.
  ZEVO_AMOUNT(TaxPayable);

  /// Total without taxes.
  ZEVO_AMOUNT(NetTotal);

  /// Total with taxes.
  ZEVO_AMOUNT(GrossTotal);

  /// The total in a foreign currency; null when the invoice has none.
  ZEVO_SHARED(CurrencyStructure, CurrencyValue);

  /// Discounts and payment; null when that is not told.
  ZEVO_SHARED(Settlement, Settlement);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_DOCUMENTTOTALS_H_
