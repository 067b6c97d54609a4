// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/list/RecordKind.h"

#include <utility>

namespace zevo::saft {
namespace {

using Taker = RecordKind::Taker;

void VisitEntity(const Record& entity, const std::string&, const Taker& take) { take({}, entity); }

void VisitTransaction(const Record& entity, const std::string& journalID, const Taker& take) {
  take({journalID}, entity);
}

template <class R>
RecordKind Kind(std::string_view name, EntityKind entity, std::vector<std::string_view> parents,
                decltype(RecordKind::visit) visit) {
  return {.name = name,
          .entity = entity,
          .parents = std::move(parents),
          .make = +[]() -> std::shared_ptr<Record> { return std::make_shared<R>(); },
          .visit = visit};
}

template <class R>
RecordKind Entity(EntityKind kind) {
  return Kind<R>(NameOf(kind), kind, {}, &VisitEntity);
}

void VisitTaxTableEntries(const Record& entity, const std::string&, const Taker& take) {
  for (const auto& entry : *static_cast<const TaxTable&>(entity).TaxTableEntry()) take({}, *entry);
}

void VisitTransactionLines(const Record& entity, const std::string&, const Taker& take) {
  const auto& transaction = static_cast<const Transaction&>(entity);
  for (const auto& line : *transaction.Line()) take({transaction.TransactionID()}, *line);
}

void VisitInvoiceLines(const Record& entity, const std::string&, const Taker& take) {
  const auto& invoice = static_cast<const Invoice&>(entity);
  for (const auto& line : *invoice.Line()) take({invoice.InvoiceNo()}, *line);
}

void VisitCreditNotes(const Record& entity, const std::string&, const Taker& take) {
  const auto& invoice = static_cast<const Invoice&>(entity);
  for (const auto& line : *invoice.Line()) {
    if (!line->References()) continue;
    for (const auto& note : *line->References()->CreditNote()) {
      take({invoice.InvoiceNo(), std::to_string(line->LineNumber())}, *note);
    }
  }
}

}  // namespace

std::span<const RecordKind> RecordKinds() {
  static const std::vector<RecordKind> kinds{
      Entity<Header>(EntityKind::kHeader),
      Entity<GeneralLedger>(EntityKind::kGeneralLedger),
      Entity<Customer>(EntityKind::kCustomer),
      Entity<Supplier>(EntityKind::kSupplier),
      Entity<Product>(EntityKind::kProduct),
      Kind<TaxTableEntry>("TaxTableEntry", EntityKind::kTaxTable, {}, &VisitTaxTableEntries),
      Entity<GeneralLedgerEntries>(EntityKind::kGeneralLedgerEntries),
      Entity<Journal>(EntityKind::kJournal),
      Kind<Transaction>(NameOf(EntityKind::kTransaction), EntityKind::kTransaction, {"JournalID"}, &VisitTransaction),
      Kind<TransactionLine>("TransactionLine", EntityKind::kTransaction, {"TransactionID"}, &VisitTransactionLines),
      Entity<SalesInvoices>(EntityKind::kSalesInvoices),
      Entity<Invoice>(EntityKind::kInvoice),
      Kind<InvoiceLine>("InvoiceLine", EntityKind::kInvoice, {"InvoiceNo"}, &VisitInvoiceLines),
      Kind<CreditNote>("CreditNote", EntityKind::kInvoice, {"InvoiceNo", "LineNumber"}, &VisitCreditNotes),
  };
  return kinds;
}

}  // namespace zevo::saft
