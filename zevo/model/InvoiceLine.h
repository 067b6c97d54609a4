// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_INVOICELINE_H_
#define ZEVO_MODEL_INVOICELINE_H_

#include <zevo/model/OrderReferences.h>
#include <zevo/model/Record.h>
#include <zevo/model/References.h>
#include <zevo/model/Tax.h>

namespace zevo {

/// A line of an invoice. It carries either a debit or a credit: the debit unless that is 0.
class ZEVO_API InvoiceLine : public Record {
  ZEVO_RECORD(InvoiceLine, kInvoiceLine);

  /// Number of the line within the invoice.
  ZEVO_COUNT(LineNumber);

  /// Code of the product. At most 30 characters.
  ZEVO_TEXT(ProductCode);

  /// At most 60 characters.
  ZEVO_TEXT(ProductDescription);

  /// Written with the precision of a 32-bit float, about seven digits.
  ZEVO_AMOUNT(Quantity);

  /// At most 20 characters.
  ZEVO_TEXT(UnitOfMeasure);

  /// Price of a unit without taxes.
  ZEVO_AMOUNT(UnitPrice);

  /// Day on which the tax became due, yyyy-mm-dd.
  ZEVO_DATE(TaxPointDate);

  /// At most 60 characters.
  ZEVO_TEXT(Description);

  /// Amount of the line without taxes, in documents that debit sales.
  ZEVO_AMOUNT(DebitAmount);

  /// Amount of the line without taxes, in documents that credit sales.
  ZEVO_AMOUNT(CreditAmount);

  /// Legal ground of an exemption. At most 60 characters.
  ZEVO_TEXT(TaxExemptionReason);

  /// Discount on the line; always written, even when 0.
  ZEVO_AMOUNT(SettlementAmount);

  /// The order behind the line; null when there is none.
  ZEVO_SHARED(OrderReferences, OrderReferences);

  /// References to other documents; null when there are none.
  ZEVO_SHARED(References, References);

  /// The tax of the line; null when it has none.
  ZEVO_SHARED(Tax, Tax);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_INVOICELINE_H_
