// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_TAXTABLE_H_
#define ZEVO_MODEL_TAXTABLE_H_

#include <zevo/model/Record.h>
#include <zevo/model/TaxTableEntryCollection.h>

namespace zevo {

/// The tax table.
class ZEVO_API TaxTable : public Record {
  ZEVO_ENTITY(TaxTable, kTaxTable);

  /// The rates, in order.
  ZEVO_OWNED(TaxTableEntryCollection, TaxTableEntry);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_TAXTABLE_H_
