// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/list/RecordKind.h"

namespace zevo::saft {
namespace {

using Taker = RecordKind::Taker;

void VisitEntity(const Record& entity, const std::string&, const Taker& take) { take({}, entity); }

void VisitTransaction(const Record& entity, const std::string& journalID, const Taker& take) {
  take({journalID}, entity);
}

template <class R>
RecordKind Entity(EntityKind kind) {
  return {.name = NameOf(kind), .entity = kind, .parents = {}, .properties = &PropertiesOf<R>, .visit = &VisitEntity};
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
      {.name = "TaxTableEntry",
       .entity = EntityKind::kTaxTable,
       .parents = {},
       .properties = &PropertiesOf<TaxTableEntry>,
       .visit = &VisitTaxTableEntries},
      Entity<GeneralLedgerEntries>(EntityKind::kGeneralLedgerEntries),
      Entity<Journal>(EntityKind::kJournal),
      {.name = NameOf(EntityKind::kTransaction),
       .entity = EntityKind::kTransaction,
       .parents = {"JournalID"},
       .properties = &PropertiesOf<Transaction>,
       .visit = &VisitTransaction},
      {.name = "TransactionLine",
       .entity = EntityKind::kTransaction,
       .parents = {"TransactionID"},
       .properties = &PropertiesOf<TransactionLine>,
       .visit = &VisitTransactionLines},
      Entity<SalesInvoices>(EntityKind::kSalesInvoices),
      Entity<Invoice>(EntityKind::kInvoice),
      {.name = "InvoiceLine",
       .entity = EntityKind::kInvoice,
       .parents = {"InvoiceNo"},
       .properties = &PropertiesOf<InvoiceLine>,
       .visit = &VisitInvoiceLines},
      {.name = "CreditNote",
       .entity = EntityKind::kInvoice,
       .parents = {"InvoiceNo", "LineNumber"},
       .properties = &PropertiesOf<CreditNote>,
       .visit = &VisitCreditNotes},
  };
  return kinds;
}

}  // namespace zevo::saft
