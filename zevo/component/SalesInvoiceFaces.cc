// SPDX-License-Identifier: Apache-2.0
#include <zevo/component/Face.h>

namespace zevo::component {
namespace {

class TaxFace final : public Face<zevo::Tax> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(TaxCountryRegion)
  ZEVO_PROPERTY(TaxCode)
  ZEVO_PROPERTY(TaxPercentage)
  ZEVO_PROPERTY(TaxAmount)
  ZEVO_READ_ONLY(TaxType)
};

class ShippingPointStructureFace final : public Face<zevo::ShippingPointStructure> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(DeliveryID)
  ZEVO_PROPERTY(DeliveryDate)
  ZEVO_REFERENCE(Address)
};

class OrderReferencesFace final : public Face<zevo::OrderReferences> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(OriginatingOn)
  ZEVO_PROPERTY(OrderDate)
};

class CreditNoteFace final : public Face<zevo::CreditNote> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(Reference)
  ZEVO_PROPERTY(Reason)
};

class ReferencesFace final : public Face<zevo::References> {
 public:
  using Face::Face;
  ZEVO_READ_ONLY(CreditNote)
};

class SettlementFace final : public Face<zevo::Settlement> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(SettlementDiscount)
  ZEVO_PROPERTY(SettlementAmount)
  ZEVO_PROPERTY(SettlementDate)
  ZEVO_PROPERTY(PaymentMechanism)
};

class CurrencyStructureFace final : public Face<zevo::CurrencyStructure> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(CurrencyCode)
  ZEVO_PROPERTY(CurrencyDebitAmount)
  ZEVO_PROPERTY(CurrencyCreditAmount)
};

class DocumentTotalsFace final : public Face<zevo::DocumentTotals> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(TaxPayable)
  ZEVO_PROPERTY(NetTotal)
  ZEVO_PROPERTY(GrossTotal)
  ZEVO_REFERENCE(CurrencyValue)
  ZEVO_REFERENCE(Settlement)
};

class InvoiceLineFace final : public Face<zevo::InvoiceLine> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(LineNumber)
  ZEVO_PROPERTY(ProductCode)
  ZEVO_PROPERTY(ProductDescription)
  ZEVO_PROPERTY(Quantity)
  ZEVO_PROPERTY(UnitOfMeasure)
  ZEVO_PROPERTY(UnitPrice)
  ZEVO_PROPERTY(TaxPointDate)
  ZEVO_PROPERTY(Description)
  ZEVO_PROPERTY(DebitAmount)
  ZEVO_PROPERTY(CreditAmount)
  ZEVO_PROPERTY(TaxExemptionReason)
  ZEVO_PROPERTY(SettlementAmount)
  ZEVO_REFERENCE(OrderReferences)
  ZEVO_REFERENCE(References)
  ZEVO_REFERENCE(Tax)
};

class InvoiceFace final : public Face<zevo::Invoice> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(InvoiceNo)
  ZEVO_PROPERTY(InvoiceStatus)
  ZEVO_PROPERTY(Hash)
  ZEVO_PROPERTY(HashControl)
  ZEVO_PROPERTY(Period)
  ZEVO_PROPERTY(InvoiceDate)
  ZEVO_PROPERTY(InvoiceType)
  ZEVO_PROPERTY(SelfBillingIndicator)
  ZEVO_PROPERTY(SystemEntryDate)
  ZEVO_PROPERTY(TransactionID)
  ZEVO_PROPERTY(CustomerID)
  ZEVO_REFERENCE(ShipTo)
  ZEVO_REFERENCE(ShipFrom)
  ZEVO_READ_ONLY(DocumentTotals)
  ZEVO_READ_ONLY(Line)
};

class SalesInvoicesFace final : public Face<zevo::SalesInvoices> {
 public:
  using Face::Face;
  ZEVO_PROPERTY(NumberOfEntries)
  ZEVO_PROPERTY(TotalDebit)
  ZEVO_PROPERTY(TotalCredit)
  ZEVO_PROCEDURE(Reset)
  ZEVO_PROCEDURE(Refresh)
};

}  // namespace

ZEVO_FACE_OF(Tax);
ZEVO_FACE_OF(ShippingPointStructure);
ZEVO_FACE_OF(OrderReferences);
ZEVO_FACE_OF(CreditNote);
ZEVO_FACE_OF(References);
ZEVO_FACE_OF(Settlement);
ZEVO_FACE_OF(CurrencyStructure);
ZEVO_FACE_OF(DocumentTotals);
ZEVO_FACE_OF(InvoiceLine);
ZEVO_FACE_OF(Invoice);
ZEVO_FACE_OF(SalesInvoices);

}  // namespace zevo::component
