// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/InvoiceDALC.h>

#include <zevo/Error.h>
#include <zevo/mappers/InvoiceLineDALC.h>
#include <zevo/mappers/Sections.h>
#include <zevo/mappers/ShippingPointDALC.h>

namespace zevo {
namespace {

constexpr ElementName kElement = "Invoice";

/// A shipping point, there only when it is set.
template <class Getter, class Setter>
struct ShippingPointRow {
  ElementName name;
  Getter get;
  Setter set;

  void Write(const Invoice& value, Element invoice, IDALHelper& helper) const {
    if (const auto& point = (value.*get)()) {
      ShippingPointDALC().CreateShippingPointStructure(name, *point, invoice, helper);
    }
  }
  void Read(Invoice& value, ElementTexts&, Element invoice, IDALReader& helper) const {
    (value.*set)(ShippingPointDALC().ReadShippingPointStructure(name, invoice, helper));
  }
};

template <class Getter, class Setter>
constexpr auto ShippingPoint(ElementName name, Getter get, Setter set) {
  return ShippingPointRow<Getter, Setter>{name, get, set};
}

struct LinesRow {
  void Write(const Invoice& value, Element invoice, IDALHelper& helper) const {
    InvoiceLineDALC lines;
    for (const auto& line : *value.Line()) lines.CreateInvoiceLine(*line, invoice, helper);
  }
  void Read(Invoice& value, ElementTexts&, Element invoice, IDALReader& helper) const {
    InvoiceLineDALC lines;
    std::shared_ptr<InvoiceLine> line;
    for (lines.ReadInvoiceLine(line, invoice, helper, true); line;
         lines.ReadInvoiceLine(line, invoice, helper, false)) {
      value.Line()->Add(line);
    }
  }
};

using C = CurrencyStructure;
constexpr Layout kCurrency(
    Row("CurrencyCode", kIfNotEmpty, &C::CurrencyCode, &C::set_CurrencyCode),
    Either(Row("CurrencyDebitAmount", kIfNotEmpty, &C::CurrencyDebitAmount, &C::set_CurrencyDebitAmount),
           Row("CurrencyCreditAmount", kIfNotEmpty, &C::CurrencyCreditAmount, &C::set_CurrencyCreditAmount)));

using S = Settlement;
constexpr Layout kSettlement(Row("SettlementDiscount", kIfNotEmpty, &S::SettlementDiscount, &S::set_SettlementDiscount),
                             Row("SettlementAmount", kIfNotEmpty, &S::SettlementAmount, &S::set_SettlementAmount),
                             Row("SettlementDate", kIfNotEmpty, &S::SettlementDate, &S::set_SettlementDate),
                             Row("PaymentMechanism", kIfNotEmpty, &S::PaymentMechanism, &S::set_PaymentMechanism));

using D = DocumentTotals;
constexpr Layout kDocumentTotals(Row("TaxPayable", kAlways, &D::TaxPayable, &D::set_TaxPayable),
                                 Row("NetTotal", kAlways, &D::NetTotal, &D::set_NetTotal),
                                 Row("GrossTotal", kAlways, &D::GrossTotal, &D::set_GrossTotal),
                                 SharedGroup("Currency", &D::CurrencyValue, &D::set_CurrencyValue, kCurrency),
                                 SharedGroup("Settlement", &D::Settlement, &D::set_Settlement, kSettlement));

using R = Invoice;
constexpr Layout kInvoice(Row("InvoiceNo", kAlways, &R::InvoiceNo, &R::set_InvoiceNo),
                          Row("InvoiceStatus", kAlways, &R::InvoiceStatus, &R::set_InvoiceStatus),
                          Row("Hash", kAlways, &R::Hash),  //
                          Row("HashControl", kIfNotEmpty, &R::HashControl),
                          Row("Period", kIfNotEmpty, &R::Period, &R::set_Period),
                          Row("InvoiceDate", kAlways, &R::InvoiceDate, &R::set_InvoiceDate),
                          Row("InvoiceType", kAlways, &R::InvoiceType, &R::set_InvoiceType),
                          Row("SelfBillingIndicator", kAlways, &R::SelfBillingIndicator),
                          Row("SystemEntryDate", kAlways, &R::SystemEntryDate, &R::set_SystemEntryDate),
                          Row("TransactionID", kIfNotEmpty, &R::TransactionID, &R::set_TransactionID),
                          Row("CustomerID", kAlways, &R::CustomerID, &R::set_CustomerID),
                          ShippingPoint("ShipTo", &R::ShipTo, &R::set_ShipTo),
                          ShippingPoint("ShipFrom", &R::ShipFrom, &R::set_ShipFrom),  //
                          LinesRow(),                                                 //
                          OwnedGroup("DocumentTotals", &R::DocumentTotals, kDocumentTotals));

}  // namespace

void InvoiceDALC::CreateInvoice(const Invoice& value, IDALHelper& helper) {
  const Element section = SalesInvoicesSection(helper);
  if (!section) throw LibraryError(Message::kSalesInvoicesMissing, "InvoiceDALC.CreateInvoice");
  kInvoice.Write(value, helper.CreateElement(kElement.Text(), {}, section, true), helper);
  helper.EndElement(kElement.Text());
}

void InvoiceDALC::ReadInvoice(std::shared_ptr<Invoice>& value, IDALReader& helper, bool first) {
  const Element section = SalesInvoicesSection(helper);
  if (!section) throw LibraryError(Message::kSalesInvoicesMissing, "InvoiceDALC.ReadInvoice");
  ReadRecord(kInvoice, FirstOrNext(helper, kElement, section, first), value, helper);
}

void InvoiceDALC::ReadFlatInvoice(std::shared_ptr<Invoice>& value, IDALReader& helper) {
  ReadRecord(kInvoice, helper.GetElement(kElement.Text(), {}, {}), value, helper);
}

int32_t InvoiceDALC::Invoices(IDALReader& helper) {
  const Element section = SalesInvoicesSection(helper);
  return section ? CountOf(helper, kElement, section) : 0;
}

}  // namespace zevo
