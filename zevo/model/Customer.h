// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_CUSTOMER_H_
#define ZEVO_MODEL_CUSTOMER_H_

#include <zevo/model/AddressStructure.h>
#include <zevo/model/Record.h>

namespace zevo {

/// A customer.
class ZEVO_API Customer : public Record {
  ZEVO_ENTITY(Customer, kCustomer);

  /// Unique code of the customer. At most 30 characters.
  ZEVO_TEXT(CustomerID);

  /// Ledger account of the customer, "Desconhecido" when there is none.
  ZEVO_TEXT(AccountID);

  /// NIF, without a country prefix; 999999990 for an unidentified final consumer. At most 20 characters.
  ZEVO_TEXT(CustomerTaxID);

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

  /// Whether there is an agreement on self-billing.
  ZEVO_FLAG(SelfBillingIndicator);

  /// Address of the head office.
  ZEVO_OWNED(AddressStructure, BillingAddress);

  /// Where goods are delivered; null when that is not told.
  ZEVO_ATTACHED(AddressStructure, ShipToAddress, zevo::BasePath::kCustomerShipToAddress);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_CUSTOMER_H_
