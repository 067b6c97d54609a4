// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_SETTLEMENT_H_
#define ZEVO_MODEL_SETTLEMENT_H_

#include <zevo/model/Record.h>

namespace zevo {

/// Agreement on discounts and payment of an invoice.
class ZEVO_API Settlement : public Record {
  ZEVO_RECORD(Settlement, kSettlement);

  /// Agreed discount, as text. At most 30 characters.
  ZEVO_TEXT(SettlementDiscount);

  /// Agreed amount of the discount.
  ZEVO_AMOUNT(SettlementAmount);

  /// Agreed day of the payment, yyyy-mm-dd.
  ZEVO_DATE(SettlementDate);

  /// Means of payment; left out of the file when it has no code.
  ZEVO_CODE(PaymentMechanisms, PaymentMechanism);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_SETTLEMENT_H_
