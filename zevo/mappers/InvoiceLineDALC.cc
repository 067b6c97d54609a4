// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/InvoiceLineDALC.h>

#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr ElementName kElement = "Line";
constexpr ElementName kCreditNote = "CreditNote";

constexpr Layout kCreditNoteLayout(Row("Reference", kIfNotEmpty, &CreditNote::Reference, &CreditNote::set_Reference),
                                   Row("Reason", kIfNotEmpty, &CreditNote::Reason, &CreditNote::set_Reason));

// The corrected invoices, each an element of its own.
struct CreditNotesRow {
  void Write(const References& value, Element parent, IDALHelper& helper) const {
    for (const auto& note : *value.CreditNote()) {
      kCreditNoteLayout.Write(*note, helper.CreateElement(kCreditNote.Text(), {}, parent, true), helper);
    }
  }
  void Read(References& value, ElementTexts&, Element parent, IDALReader& helper) const {
    for (Element found = helper.GetFirstElement(kCreditNote.Text(), parent); found;
         found = helper.GetNextElement(kCreditNote.Text())) {
      std::shared_ptr<CreditNote> note;
      ReadRecord(kCreditNoteLayout, found, note, helper);
      value.CreditNote()->Add(note);
    }
  }
};

constexpr Layout kOrderReferences(Row("OriginatingON", kIfNotEmpty, &OrderReferences::OriginatingOn,
                                      &OrderReferences::set_OriginatingOn),
                                  Row("OrderDate", kIfNotEmpty, &OrderReferences::OrderDate,
                                      &OrderReferences::set_OrderDate));

constexpr Layout kReferences{CreditNotesRow()};

constexpr Layout kTax(Row("TaxType", kAlways, &Tax::TaxType),
                      Row("TaxCountryRegion", kAlways, &Tax::TaxCountryRegion, &Tax::set_TaxCountryRegion),
                      Row("TaxCode", kIfNotEmpty, &Tax::TaxCode, &Tax::set_TaxCode),
                      Either(Row("TaxPercentage", kAlways, &Tax::TaxPercentage, &Tax::set_TaxPercentage),
                             Row("TaxAmount", kAlways, &Tax::TaxAmount, &Tax::set_TaxAmount)));

using R = InvoiceLine;
constexpr Layout kLine(Row("LineNumber", kAlways, &R::LineNumber, &R::set_LineNumber),
                       SharedGroup("OrderReferences", &R::OrderReferences, &R::set_OrderReferences, kOrderReferences),
                       Row("ProductCode", kAlways, &R::ProductCode, &R::set_ProductCode),
                       Row("ProductDescription", kAlways, &R::ProductDescription, &R::set_ProductDescription),
                       Row<QuantityCodec>("Quantity", kAlways, &R::Quantity, &R::set_Quantity),
                       Row("UnitOfMeasure", kIfNotEmpty, &R::UnitOfMeasure, &R::set_UnitOfMeasure),
                       Row("UnitPrice", kAlways, &R::UnitPrice, &R::set_UnitPrice),
                       Row("TaxPointDate", kAlways, &R::TaxPointDate, &R::set_TaxPointDate),
                       SharedGroup("References", &R::References, &R::set_References, kReferences),
                       Row("Description", kAlways, &R::Description, &R::set_Description),
                       Either(Row("DebitAmount", kAlways, &R::DebitAmount, &R::set_DebitAmount),
                              Row("CreditAmount", kAlways, &R::CreditAmount, &R::set_CreditAmount)),
                       ReadLast(SharedGroup("Tax", &R::Tax, &R::set_Tax, kTax)),
                       Row("TaxExemptionReason", kIfNotEmpty, &R::TaxExemptionReason, &R::set_TaxExemptionReason),
                       Row("SettlementAmount", kAlways, &R::SettlementAmount, &R::set_SettlementAmount));

}  // namespace

void InvoiceLineDALC::CreateInvoiceLine(const InvoiceLine& value, Element invoice, IDALHelper& helper) {
  kLine.Write(value, helper.CreateElement(kElement.Text(), {}, invoice, true), helper);
  helper.EndElement(kElement.Text());
}

void InvoiceLineDALC::ReadInvoiceLine(std::shared_ptr<InvoiceLine>& value, Element invoice, IDALReader& helper,
                                      bool first) {
  ReadRecord(kLine, FirstOrNext(helper, kElement, invoice, first), value, helper);
}

}  // namespace zevo
