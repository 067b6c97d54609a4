// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_INVOICE_H_
#define ZEVO_MODEL_INVOICE_H_

#include <zevo/model/DocumentTotals.h>
#include <zevo/model/InvoiceLineCollection.h>
#include <zevo/model/Record.h>
#include <zevo/model/ShippingPointStructure.h>

namespace zevo {

/// A sales document.
class ZEVO_API Invoice : public Record {
  ZEVO_ENTITY(Invoice, kInvoice);

  /// Unique: type, series and number, such as "FT A/12". At most 60 characters.
  ZEVO_TEXT(InvoiceNo);

  /// State of the document.
  ZEVO_CODE(InvoiceStatuses, InvoiceStatus);

  /// Signature of the document, which the façades write as it is; `DocumentSigner` makes it. At most 200 characters.
  /// Not read back.
  ZEVO_TEXT(Hash);

  /// Version of the key that signed. At most 40 characters. Not read back.
  ZEVO_TEXT(HashControl);

  /// Month of the document, 1 to 12.
  ZEVO_PERIOD(Period);

  /// Day of the document, yyyy-mm-dd.
  ZEVO_DATE(InvoiceDate);

  /// Kind of document.
  ZEVO_CODE(InvoiceTypes, InvoiceType);

  /// Whether the customer issued it. Not read back.
  ZEVO_FLAG(SelfBillingIndicator);

  /// When the document was entered, yyyy-mm-ddThh:mm:ss.
  ZEVO_DATE_TIME(SystemEntryDate);

  /// The ledger transaction of the document. "Anulado", in any letter case, keeps the document out of the running
  /// totals.
  ZEVO_TEXT(TransactionID);

  /// Code of the customer. At most 30 characters.
  ZEVO_TEXT(CustomerID);

  /// Where goods are unloaded; null when that is not told.
  ZEVO_ATTACHED(ShippingPointStructure, ShipTo, zevo::BasePath::kInvoiceShipTo);

  /// Where goods are loaded; null when that is not told.
  ZEVO_ATTACHED(ShippingPointStructure, ShipFrom, zevo::BasePath::kInvoiceShipFrom);

  /// The totals.
  ZEVO_OWNED(DocumentTotals, DocumentTotals);

  /// The lines, in order; each is also found by the text of the `LineNumber` it had when it was added.
  ZEVO_OWNED(InvoiceLineCollection, Line);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_INVOICE_H_
