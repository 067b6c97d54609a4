// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_ADDRESSSTRUCTURE_H_
#define ZEVO_MODEL_ADDRESSSTRUCTURE_H_

#include <zevo/model/Record.h>

namespace zevo {

class Customer;
class Header;
class ShippingPointStructure;
class Supplier;

/// An address. Its owner tells which one.
class ZEVO_API AddressStructure : public Record {
  ZEVO_ATTACHED_RECORD(AddressStructure, kUnattachedAddress);

  /// Number of the door. At most 10 characters.
  ZEVO_TEXT(BuildingNumber);

  /// At most 50 characters.
  ZEVO_TEXT(StreetName);

  /// The whole address, without the postal code. At most 60 characters.
  ZEVO_TEXT(AddressDetail);

  /// At most 50 characters.
  ZEVO_TEXT(City);

  /// At most 20 characters; nnnn-nnn where the address is the taxpayer's own.
  ZEVO_TEXT(PostalCode);

  /// District. At most 50 characters.
  ZEVO_TEXT(Region);

  /// Two-letter code of ISO 3166-1. "PT" from the start.
  ZEVO_TEXT(Country);

 private:
  friend class Customer;
  friend class Header;
  friend class ShippingPointStructure;
  friend class Supplier;
  /// Given by the owner on attachment.
  void set_BasePath(BasePath path) { base_path_ = path; }
};

}  // namespace zevo

#endif  // ZEVO_MODEL_ADDRESSSTRUCTURE_H_
