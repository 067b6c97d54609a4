// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/Layouts.h>

#include <zevo/model/AddressStructure.h>
#include <zevo/model/CreditNote.h>
#include <zevo/model/CurrencyStructure.h>
#include <zevo/model/Customer.h>
#include <zevo/model/DocumentTotals.h>
#include <zevo/model/GeneralLedger.h>
#include <zevo/model/GeneralLedgerEntries.h>
#include <zevo/model/Header.h>
#include <zevo/model/Invoice.h>
#include <zevo/model/InvoiceLine.h>
#include <zevo/model/Journal.h>
#include <zevo/model/OrderReferences.h>
#include <zevo/model/Product.h>
#include <zevo/model/References.h>
#include <zevo/model/SalesInvoices.h>
#include <zevo/model/Settlement.h>
#include <zevo/model/ShippingPointStructure.h>
#include <zevo/model/Supplier.h>
#include <zevo/model/Tax.h>
#include <zevo/model/TaxTable.h>
#include <zevo/model/TaxTableEntry.h>
#include <zevo/model/Transaction.h>
#include <zevo/model/TransactionLine.h>

#include <algorithm>
#include <array>

namespace zevo {
namespace {

/// A class of records.
struct RecordLayout {
  std::span<const Property> (*properties)();
  std::span<const LayoutRow> (*layout)();
};

template <class... R>
constexpr std::array<RecordLayout, sizeof...(R)> LayoutsOf() {
  return {RecordLayout{&PropertiesOf<R>, &LayoutOf<R>}...};
}
constexpr auto kRecordLayouts =
    LayoutsOf<AddressStructure, CreditNote, CurrencyStructure, Customer, DocumentTotals, GeneralLedger,
              GeneralLedgerEntries, Header, Invoice, InvoiceLine, Journal, OrderReferences, Product, References,
              SalesInvoices, Settlement, ShippingPointStructure, Supplier, Tax, TaxTable, TaxTableEntry, Transaction,
              TransactionLine>();

}  // namespace

std::span<const LayoutRow> LayoutOf(const Record& record) {
  // Each class has one table of properties, so its address identifies the class.
  const Property* properties = PropertiesOf(record).data();
  const auto found = std::ranges::find_if(
      kRecordLayouts, [&](const RecordLayout& layout) { return layout.properties().data() == properties; });
  return found == kRecordLayouts.end() ? std::span<const LayoutRow>() : found->layout();
}

}  // namespace zevo
