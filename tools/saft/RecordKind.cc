#include "tools/saft/RecordKind.h"

namespace zevo::saft {
namespace {

using Taker = RecordKind::Taker;

void VisitEntity(const Record& entity, const std::string&, const Taker& take) { take({}, entity); }

void VisitTransaction(const Record& entity, const std::string& journalID, const Taker& take) {
  take({journalID}, entity);
}

template <class R>
RecordKind Entity(std::string_view name) {
  return {.name = name, .entity = name, .parents = {}, .properties = &PropertiesOf<R>, .visit = &VisitEntity};
}

void VisitTaxTableEntries(const Record& entity, const std::string&, const Taker& take) {
  for (const auto& entry : *dynamic_cast<const TaxTable&>(entity).TaxTableEntry()) take({}, *entry);
}

void VisitTransactionLines(const Record& entity, const std::string&, const Taker& take) {
  const auto& transaction = dynamic_cast<const Transaction&>(entity);
  for (const auto& line : *transaction.Line()) take({transaction.TransactionID()}, *line);
}

void VisitInvoiceLines(const Record& entity, const std::string&, const Taker& take) {
  const auto& invoice = dynamic_cast<const Invoice&>(entity);
  for (const auto& line : *invoice.Line()) take({invoice.InvoiceNo()}, *line);
}

void VisitCreditNotes(const Record& entity, const std::string&, const Taker& take) {
  const auto& invoice = dynamic_cast<const Invoice&>(entity);
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
      Entity<Header>("Header"),
      Entity<GeneralLedger>("GeneralLedger"),
      Entity<Customer>("Customer"),
      Entity<Supplier>("Supplier"),
      Entity<Product>("Product"),
      {.name = "TaxTableEntry",
       .entity = "TaxTable",
       .parents = {},
       .properties = &PropertiesOf<TaxTableEntry>,
       .visit = &VisitTaxTableEntries},
      Entity<GeneralLedgerEntries>("GeneralLedgerEntries"),
      Entity<Journal>("Journal"),
      {.name = "Transaction",
       .entity = "Transaction",
       .parents = {"JournalID"},
       .properties = &PropertiesOf<Transaction>,
       .visit = &VisitTransaction},
      {.name = "TransactionLine",
       .entity = "Transaction",
       .parents = {"TransactionID"},
       .properties = &PropertiesOf<TransactionLine>,
       .visit = &VisitTransactionLines},
      Entity<SalesInvoices>("SalesInvoices"),
      Entity<Invoice>("Invoice"),
      {.name = "InvoiceLine",
       .entity = "Invoice",
       .parents = {"InvoiceNo"},
       .properties = &PropertiesOf<InvoiceLine>,
       .visit = &VisitInvoiceLines},
      {.name = "CreditNote",
       .entity = "Invoice",
       .parents = {"InvoiceNo", "LineNumber"},
       .properties = &PropertiesOf<CreditNote>,
       .visit = &VisitCreditNotes},
  };
  return kinds;
}

}  // namespace zevo::saft
