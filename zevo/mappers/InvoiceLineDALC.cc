// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/InvoiceLineDALC.h>

#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr ElementName kCreditNote = "CreditNote";

constexpr auto kCreditNoteLayout = LayoutFor<CreditNote>(Rows{
    ZEVO_ROW(Reference, kIfNotEmpty),
    ZEVO_ROW(Reason, kIfNotEmpty),
});

constexpr auto kReferencesLayout = LayoutFor<References>(Rows{
    // The corrected invoices, each an element of its own.
    ZEVO_ROW(CreditNote,
             Items{[](const CreditNote& note, Element references, IDALHelper& writer) {
                     const Element element = writer.CreateElement(kCreditNote, {}, references, true);
                     kCreditNoteLayout.Write(note, element, writer);
                   },
                   [](std::shared_ptr<CreditNote>& note, Element references, IDALReader& reader, bool first) {
                     ReadRecord(kCreditNoteLayout, FirstOrNext(reader, kCreditNote, references, first), note, reader);
                   }}),
});

constexpr auto kOrderReferencesLayout = LayoutFor<OrderReferences>(Rows{
    ZEVO_ROW_AS("OriginatingON", OriginatingOn, kIfNotEmpty),
    ZEVO_ROW(OrderDate, kIfNotEmpty),
});

constexpr auto kTaxLayout = LayoutFor<Tax>(Rows{
    ZEVO_ROW(TaxType, kAlways, NotReadBack::kConstant),
    ZEVO_ROW(TaxCountryRegion, kAlways),
    ZEVO_ROW(TaxCode, kIfNotEmpty),
    Either{
        ZEVO_ROW(TaxPercentage, kAlways),
        ZEVO_ROW(TaxAmount, kAlways),
    },
});

constexpr auto kInvoiceLineLayout = LayoutFor<InvoiceLine>(Rows{
    ZEVO_ROW(LineNumber, kAlways),
    ZEVO_ROW(OrderReferences, SharedGroup{kOrderReferencesLayout}),
    ZEVO_ROW(ProductCode, kAlways),
    ZEVO_ROW(ProductDescription, kAlways),
    ZEVO_ROW(Quantity, kAlways, QuantityCodec()),
    ZEVO_ROW(UnitOfMeasure, kIfNotEmpty),
    ZEVO_ROW(UnitPrice, kAlways),
    ZEVO_ROW(TaxPointDate, kAlways),
    ZEVO_ROW(References, SharedGroup{kReferencesLayout}),
    ZEVO_ROW(Description, kAlways),
    Either{
        ZEVO_ROW(DebitAmount, kAlways),
        ZEVO_ROW(CreditAmount, kAlways),
    },
    ReadLast{ZEVO_ROW(Tax, SharedGroup{kTaxLayout})},
    ZEVO_ROW(TaxExemptionReason, kIfNotEmpty),
    ZEVO_ROW(SettlementAmount, kAlways),
});

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<CreditNote>() {
  return DataOf<kCreditNoteLayout>();
}
template <>
std::span<const LayoutRow> LayoutOf<References>() {
  return DataOf<kReferencesLayout>();
}
template <>
std::span<const LayoutRow> LayoutOf<OrderReferences>() {
  return DataOf<kOrderReferencesLayout>();
}
template <>
std::span<const LayoutRow> LayoutOf<Tax>() {
  return DataOf<kTaxLayout>();
}
template <>
std::span<const LayoutRow> LayoutOf<InvoiceLine>() {
  return DataOf<kInvoiceLineLayout>();
}

void InvoiceLineDALC::CreateInvoiceLine(const InvoiceLine& value, Element invoice, IDALHelper& writer) {
  kInvoiceLineLayout.Write(value, writer.CreateElement(kLine, {}, invoice, true), writer);
  writer.EndElement(kLine);
}

void InvoiceLineDALC::ReadInvoiceLine(std::shared_ptr<InvoiceLine>& value, Element invoice, IDALReader& reader,
                                      bool first) {
  ReadRecord(kInvoiceLineLayout, FirstOrNext(reader, kLine, invoice, first), value, reader);
}

}  // namespace zevo
