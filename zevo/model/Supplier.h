// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_SUPPLIER_H_
#define ZEVO_MODEL_SUPPLIER_H_

#include <zevo/model/AddressStructure.h>
#include <zevo/model/Record.h>

namespace zevo {

/// A supplier.
class ZEVO_API Supplier : public Record {
  ZEVO_ENTITY(Supplier, kSupplier);

  /// Unique code of the supplier. At most 30 characters.
  ZEVO_TEXT(SupplierID);

  /// Ledger account of the supplier, "Desconhecido" when there is none.
  /// Not read back.
  ZEVO_TEXT(AccountID);

  /// NIF, without a country prefix. At most 20 characters.
  ZEVO_TEXT(SupplierTaxID);

  /// At most 60 characters.
  ZEVO_TEXT(CompanyName);

  /// Person to speak to. At most 50 characters.
  ZEVO_TEXT(Contact);

  /// At most 20 characters.
  ZEVO_TEXT(Telephone);

  /// At most 20 characters.
  ZEVO_TEXT(Fax);

  /// At most 60 characters.
  ZEVO_TEXT(Email);

  /// At most 60 characters.
  ZEVO_TEXT(Website);

  /// Whether there is an agreement on self-billing. Not read back.
  ZEVO_FLAG(SelfBillingIndicator);

  /// Address of the head office.
  ZEVO_OWNED(AddressStructure, BillingAddress);

  /// Obsolete: reading and assigning both raise error -1 and touch nothing. Use `ShipFromAddress`.
  std::shared_ptr<AddressStructure> ShipToAddress() const;
  void set_ShipToAddress(const std::shared_ptr<AddressStructure>& value);

  /// Where goods are sent from; null when that is not told.
  ZEVO_ATTACHED(AddressStructure, ShipFromAddress, zevo::BasePath::kSupplierShipFromAddress);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_SUPPLIER_H_
