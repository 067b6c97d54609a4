// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_LAYOUTS_H_
#define ZEVO_MAPPERS_LAYOUTS_H_

#include <zevo/mappers/LayoutRow.h>

#include <span>

namespace zevo {

class AddressStructure;
class CreditNote;
class CurrencyStructure;
class Customer;
class DocumentTotals;
class GeneralLedger;
class GeneralLedgerEntries;
class Header;
class Invoice;
class InvoiceLine;
class Journal;
class OrderReferences;
class Product;
class Record;
class References;
class SalesInvoices;
class Settlement;
class ShippingPointStructure;
class Supplier;
class Tax;
class TaxTable;
class TaxTableEntry;
class Transaction;
class TransactionLine;

/// The rows of a record's element in the order of the file: the very layout that its mapper writes and reads by. The
/// entries of a section or of a journal are records of their own and no rows.
template <class R>
std::span<const LayoutRow> LayoutOf();

// Each is defined beside its mapper.
template <>
std::span<const LayoutRow> LayoutOf<AddressStructure>();
template <>
std::span<const LayoutRow> LayoutOf<CreditNote>();
template <>
std::span<const LayoutRow> LayoutOf<CurrencyStructure>();
template <>
std::span<const LayoutRow> LayoutOf<Customer>();
template <>
std::span<const LayoutRow> LayoutOf<DocumentTotals>();
template <>
std::span<const LayoutRow> LayoutOf<GeneralLedger>();
template <>
std::span<const LayoutRow> LayoutOf<GeneralLedgerEntries>();
template <>
std::span<const LayoutRow> LayoutOf<Header>();
template <>
std::span<const LayoutRow> LayoutOf<Invoice>();
template <>
std::span<const LayoutRow> LayoutOf<InvoiceLine>();
template <>
std::span<const LayoutRow> LayoutOf<Journal>();
template <>
std::span<const LayoutRow> LayoutOf<OrderReferences>();
template <>
std::span<const LayoutRow> LayoutOf<Product>();
template <>
std::span<const LayoutRow> LayoutOf<References>();
template <>
std::span<const LayoutRow> LayoutOf<SalesInvoices>();
template <>
std::span<const LayoutRow> LayoutOf<Settlement>();
template <>
std::span<const LayoutRow> LayoutOf<ShippingPointStructure>();
template <>
std::span<const LayoutRow> LayoutOf<Supplier>();
template <>
std::span<const LayoutRow> LayoutOf<Tax>();
template <>
std::span<const LayoutRow> LayoutOf<TaxTable>();
template <>
std::span<const LayoutRow> LayoutOf<TaxTableEntry>();
template <>
std::span<const LayoutRow> LayoutOf<Transaction>();
template <>
std::span<const LayoutRow> LayoutOf<TransactionLine>();

/// The layout of a record, whatever its class.
std::span<const LayoutRow> LayoutOf(const Record& record);

}  // namespace zevo

#endif  // ZEVO_MAPPERS_LAYOUTS_H_
