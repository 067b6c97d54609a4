// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_ORDERREFERENCES_H_
#define ZEVO_MODEL_ORDERREFERENCES_H_

#include <zevo/model/Record.h>

namespace zevo {

/// The order behind an invoice line.
class ZEVO_API OrderReferences : public Record {
  ZEVO_RECORD(OrderReferences, kOrderReferences);

  /// Number of the order. Written as the element OriginatingON.
  ZEVO_TEXT(OriginatingOn);

  /// Day of the order, yyyy-mm-dd.
  ZEVO_DATE(OrderDate);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_ORDERREFERENCES_H_
