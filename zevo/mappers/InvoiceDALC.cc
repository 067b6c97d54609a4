// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/InvoiceDALC.h>

#include <zevo/Error.h>
#include <zevo/mappers/InvoiceLineDALC.h>
#include <zevo/mappers/Sections.h>
#include <zevo/mappers/ShippingPointDALC.h>

namespace zevo {
namespace {

constexpr ElementName kInvoice = "Invoice";

/// A shipping point, there only when it is set.
struct ShippingPoint {
  static constexpr Written kWritten = Written::kIfSet;

  static void Write(const std::shared_ptr<ShippingPointStructure>& point, ElementName name, Element invoice,
                    IDALHelper& writer) {
    if (point) ShippingPointDALC().CreateShippingPointStructure(name, *point, invoice, writer);
  }
  template <class Handle>
  static void Read(Invoice& value, const Handle& property, ElementName name, Element invoice, IDALReader& reader) {
    property.set(value, ShippingPointDALC().ReadShippingPointStructure(name, invoice, reader));
  }
};

constexpr auto kCurrencyLayout = LayoutFor<CurrencyStructure>(Rows{
    ZEVO_ROW(CurrencyCode, kIfNotEmpty),
    Either{
        ZEVO_ROW(CurrencyDebitAmount, kIfNotEmpty),
        ZEVO_ROW(CurrencyCreditAmount, kIfNotEmpty),
    },
});

constexpr auto kSettlementLayout = LayoutFor<Settlement>(Rows{
    ZEVO_ROW(SettlementDiscount, kIfNotEmpty),
    ZEVO_ROW(SettlementAmount, kIfNotEmpty),
    ZEVO_ROW(SettlementDate, kIfNotEmpty),
    ZEVO_ROW(PaymentMechanism, kIfNotEmpty),
});

constexpr auto kDocumentTotalsLayout = LayoutFor<DocumentTotals>(Rows{
    ZEVO_ROW(TaxPayable, kAlways),
    ZEVO_ROW(NetTotal, kAlways),
    ZEVO_ROW(GrossTotal, kAlways),
    ZEVO_ROW_AS("Currency", CurrencyValue, SharedGroup{kCurrencyLayout}),
    ZEVO_ROW(Settlement, SharedGroup{kSettlementLayout}),
});

constexpr auto kInvoiceLayout = LayoutFor<Invoice>(Rows{
    ZEVO_ROW(InvoiceNo, kAlways),
    ZEVO_ROW(InvoiceStatus, kAlways),
    ZEVO_ROW(Hash, kAlways, NotReadBack::kKeepsDefault),
    ZEVO_ROW(HashControl, kIfNotEmpty, NotReadBack::kKeepsDefault),
    ZEVO_ROW(Period, kIfNotEmpty),
    ZEVO_ROW(InvoiceDate, kAlways),
    ZEVO_ROW(InvoiceType, kAlways),
    ZEVO_ROW(SelfBillingIndicator, kAlways, NotReadBack::kKeepsDefault),
    ZEVO_ROW(SystemEntryDate, kAlways),
    ZEVO_ROW(TransactionID, kIfNotEmpty),
    ZEVO_ROW(CustomerID, kAlways),
    ZEVO_ROW(ShipTo, ShippingPoint()),
    ZEVO_ROW(ShipFrom, ShippingPoint()),
    ZEVO_ROW(Line, ItemsOf(&InvoiceLineDALC::CreateInvoiceLine, &InvoiceLineDALC::ReadInvoiceLine)),
    ZEVO_ROW(DocumentTotals, OwnedGroup{kDocumentTotalsLayout}),
});

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<CurrencyStructure>() {
  return DataOf<kCurrencyLayout>();
}
template <>
std::span<const LayoutRow> LayoutOf<Settlement>() {
  return DataOf<kSettlementLayout>();
}
template <>
std::span<const LayoutRow> LayoutOf<DocumentTotals>() {
  return DataOf<kDocumentTotalsLayout>();
}
template <>
std::span<const LayoutRow> LayoutOf<Invoice>() {
  return DataOf<kInvoiceLayout>();
}

void InvoiceDALC::CreateInvoice(const Invoice& value, IDALHelper& writer) {
  const Element section = SalesInvoicesSection(writer);
  if (!section) throw LibraryError(Message::kSalesInvoicesMissing, "InvoiceDALC.CreateInvoice");
  kInvoiceLayout.Write(value, writer.CreateElement(kInvoice, {}, section, true), writer);
  writer.EndElement(kInvoice);
}

void InvoiceDALC::ReadInvoice(std::shared_ptr<Invoice>& value, IDALReader& reader, bool first) {
  const Element section = SalesInvoicesSection(reader);
  if (!section) throw LibraryError(Message::kSalesInvoicesMissing, "InvoiceDALC.ReadInvoice");
  ReadRecord(kInvoiceLayout, FirstOrNext(reader, kInvoice, section, first), value, reader);
}

void InvoiceDALC::ReadFlatInvoice(std::shared_ptr<Invoice>& value, IDALReader& reader) {
  ReadRecord(kInvoiceLayout, reader.GetElement(kInvoice, {}), value, reader);
}

int32_t InvoiceDALC::Invoices(IDALReader& reader) {
  const Element section = SalesInvoicesSection(reader);
  return section ? CountOf(reader, kInvoice, section) : 0;
}

}  // namespace zevo
