// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_ENTITYFACTS_H_
#define ZEVO_CHECK_ENTITYFACTS_H_

#include <zevo/check/DocumentHash.h>
#include <zevo/check/DocumentType.h>
#include <zevo/check/Fact.h>
#include <zevo/dal/ScannedEntity.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace zevo {

// What the rules know of an entity: a member for each element that a rule looks at. Which element fills which member is
// in the tables of EntityFacts.cc. Where an element is repeated, the first counts.

/// An element with others inside.
struct GroupFacts {
  bool there = false;
  uint32_t element = 0;
};

/// An entity; its own element is number 0.
struct EntityFacts {
  const ScannedEntity* entity = nullptr;
  TextFact key = {};  // its `KeyOf` element

  EntityKind Kind() const { return entity->Kind(); }
};

struct AddressFacts : GroupFacts {
  TextFact postal_code;
  TextFact country;
};

struct HeaderFacts : EntityFacts {
  TextFact version;
  TextFact tax_registration_number;
  TextFact basis;
  CountFact fiscal_year;
  DateFact start_date;
  DateFact end_date;
  DateFact date_created;
  TextFact tax_entity;
  TextFact certificate;

  /// Whether the basis is this one.
  bool HasBasis(std::string_view code) const { return basis.Read() && *basis == code; }
};

struct AccountFacts : EntityFacts {
  TextFact id;
  NumberFact opening_debit;
  NumberFact opening_credit;
};

/// A customer or a supplier.
struct PartyFacts : EntityFacts {
  TextFact id;
  TextFact account;
  TextFact tax_id;
  TextFact name;
  AddressFacts billing;
  AddressFacts shipping;
};

struct ProductFacts : EntityFacts {
  TextFact code;
};

/// The tax of a line, or an entry of the tax table.
struct TaxFacts : GroupFacts {
  TextFact type;
  TextFact region;
  TextFact code;
  DateFact expires;  // of an entry
  NumberFact percentage;
  NumberFact amount;
};

struct TaxTableFacts : EntityFacts {
  std::vector<TaxFacts> entries;
};

/// The ledger entries, or the sales invoices, as sections.
struct SectionFacts : EntityFacts {
  NumberFact entries;
  NumberFact debit;
  NumberFact credit;
};

struct JournalFacts : EntityFacts {
  TextFact id;
};

/// A line of a transaction.
struct EntryLineFacts : GroupFacts {
  TextFact record_id;
  TextFact account;
  TimeFact entry_date;
  NumberFact debit;
  NumberFact credit;
};

struct TransactionFacts : EntityFacts {
  TextFact id;
  CountFact period;
  DateFact date;
  TextFact archival_number;
  TimeFact posting_date;
  TextFact customer;
  TextFact supplier;
  std::vector<EntryLineFacts> lines;
};

struct OrderFacts : GroupFacts {
  TextFact number;
  DateFact date;
};

struct CreditNoteFacts : GroupFacts {
  TextFact reference;
  TextFact reason;
};

struct ReferencesFacts : GroupFacts {
  CreditNoteFacts credit_note;
};

/// A line of an invoice.
struct InvoiceLineFacts : GroupFacts {
  CountFact number;
  std::vector<OrderFacts> orders;
  TextFact product;
  NumberFact quantity;
  NumberFact unit_price;
  DateFact tax_point;
  ReferencesFacts references;
  NumberFact debit;
  NumberFact credit;
  TaxFacts tax;
  TextFact exemption_reason;
  NumberFact settlement;
};

struct CurrencyFacts : GroupFacts {
  TextFact code;
  NumberFact credit;
  NumberFact debit;
};

struct SettlementFacts : GroupFacts {
  DateFact date;
};

struct TotalsFacts : GroupFacts {
  NumberFact tax;
  NumberFact net;
  NumberFact gross;
  CurrencyFacts currency;
  SettlementFacts settlement;
};

struct ShippingFacts : GroupFacts {
  DateFact delivery_date;
  AddressFacts address;
};

struct InvoiceFacts : EntityFacts {
  TextFact number;
  TextFact status;
  TextFact hash;
  HashForm hash_form = HashForm::kNone;
  TextFact hash_control;
  CountFact period;
  DateFact date;
  TextFact type;
  CountFact self_billing;
  TimeFact entry_date;
  TextFact transaction_id;
  TextFact customer;
  ShippingFacts ship_to;
  ShippingFacts ship_from;
  std::vector<InvoiceLineFacts> lines;
  TotalsFacts totals;

  // What follows from these.
  bool cancelled = false;
  bool merged = false;
  const DocumentType* known_type = nullptr;

  /// InvoiceStatus A, or TransactionID "Anulado".
  bool IsCancelled() const { return cancelled; }
  /// Neither cancelled nor merged into others (status F).
  bool IsLive() const { return !cancelled && !merged; }
  /// One that lowers what the customer owes: NC, TD, DA, RE.
  bool IsDebitDocument() const { return known_type != nullptr && known_type->is_debit; }
  /// One of the other types that there are.
  bool IsCreditDocument() const { return known_type != nullptr && !known_type->is_debit; }
  /// What is known of its type; null where that is none of the schema's.
  const DocumentType* KnownType() const { return known_type; }
};

// Fills the facts from an entity of their kind, which must outlive them. Facts that were filled before keep their
// memory.
void TakeFacts(const ScannedEntity& entity, HeaderFacts& facts);
void TakeFacts(const ScannedEntity& entity, AccountFacts& facts);
void TakeFacts(const ScannedEntity& entity, PartyFacts& facts);
void TakeFacts(const ScannedEntity& entity, ProductFacts& facts);
void TakeFacts(const ScannedEntity& entity, TaxTableFacts& facts);
void TakeFacts(const ScannedEntity& entity, SectionFacts& facts);
void TakeFacts(const ScannedEntity& entity, JournalFacts& facts);
void TakeFacts(const ScannedEntity& entity, TransactionFacts& facts);
void TakeFacts(const ScannedEntity& entity, InvoiceFacts& facts);

}  // namespace zevo

#endif  // ZEVO_CHECK_ENTITYFACTS_H_
