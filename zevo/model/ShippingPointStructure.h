// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_SHIPPINGPOINTSTRUCTURE_H_
#define ZEVO_MODEL_SHIPPINGPOINTSTRUCTURE_H_

#include <zevo/model/AddressStructure.h>
#include <zevo/model/Record.h>

namespace zevo {

class Invoice;

/// Where the goods of an invoice are loaded or unloaded.
class ZEVO_API ShippingPointStructure : public Record {
  ZEVO_ATTACHED_RECORD(ShippingPointStructure, kUnattachedShippingPoint);

  /// Number of the delivery. At most 30 characters.
  ZEVO_TEXT(DeliveryID);

  /// Day of the delivery, yyyy-mm-dd.
  ZEVO_DATE(DeliveryDate);

  /// The place; null when that is not told.
  /// Its path is fixed here: assign the shipping point to its invoice before its address to have both checked as such.
  ZEVO_ATTACHED(AddressStructure, Address, AddressPathUnder(CheckPath()));

 private:
  friend class Invoice;
  /// Given by the owner on attachment.
  void set_BasePath(BasePath path) { base_path_ = path; }
};

}  // namespace zevo

#endif  // ZEVO_MODEL_SHIPPINGPOINTSTRUCTURE_H_
