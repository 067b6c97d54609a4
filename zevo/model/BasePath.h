// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_BASEPATH_H_
#define ZEVO_MODEL_BASEPATH_H_

#include <zevo/Api.h>

#include <cstdint>
#include <string_view>

namespace zevo {

/// The absolute path of a record's element, under which the schema's length limits are looked up. The set is closed:
/// a record has one path for life, or receives one of these when it is attached to its owner. Each belongs to one class
/// of record; where two classes are checked under the same path, it is here twice.
enum class BasePath : uint8_t {
  kUnattachedAddress,
  kUnattachedShippingPoint,
  kTaxTable,
  kHeader,
  kHeaderCompanyAddress,
  kCustomer,
  kCustomerBillingAddress,
  kCustomerShipToAddress,
  kSupplier,
  kSupplierBillingAddress,
  kSupplierShipFromAddress,
  kProduct,
  kTaxTableEntry,
  kGeneralLedger,
  kGeneralLedgerEntries,
  kJournal,
  kTransaction,
  kTransactionLine,
  kSalesInvoices,
  kInvoice,
  kInvoiceShipTo,
  kInvoiceShipToAddress,
  kInvoiceShipFrom,
  kInvoiceShipFromAddress,
  kDetachedAddress,
  kDocumentTotals,
  kCurrency,
  kSettlement,
  kInvoiceLine,
  kTax,
  kOrderReferences,
  kReferences,
  kCreditNote,
};
/// How many there are.
inline constexpr int kBasePaths = static_cast<int>(BasePath::kCreditNote) + 1;

/// The path as text, such as "/AuditFile/Header".
ZEVO_API std::string_view TextOf(BasePath path);

/// The path of the address under a shipping point. One that was not attached to an invoice yet gives "/Address".
ZEVO_API BasePath AddressPathUnder(BasePath shippingPoint);

}  // namespace zevo

#endif  // ZEVO_MODEL_BASEPATH_H_
