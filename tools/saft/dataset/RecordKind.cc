// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/RecordKind.h"

#include <algorithm>

#include "tools/saft/dataset/Dataset.h"

namespace zevo::saft {
namespace {

template <class R>
std::shared_ptr<Record> Make() {
  return std::make_shared<R>();
}

constexpr auto kKinds = std::to_array<RecordKind>({
    {"Header", EntityKind::kHeader, "", &Make<Header>, Dataset::kHeader, ""},
    {"GeneralLedger", EntityKind::kGeneralLedger, "", &Make<GeneralLedger>, Dataset::kGeneralLedger, "AccountID"},
    {"Customer", EntityKind::kCustomer, "", &Make<Customer>, Dataset::kCustomers, "CustomerID"},
    {"Supplier", EntityKind::kSupplier, "", &Make<Supplier>, Dataset::kSuppliers, "SupplierID"},
    {"Product", EntityKind::kProduct, "", &Make<Product>, Dataset::kProducts, "ProductCode"},
    {"TaxTableEntry", EntityKind::kTaxTable, "TaxTableEntry", &Make<TaxTableEntry>, Dataset::kTaxTable, ""},
    {"GeneralLedgerEntries", EntityKind::kGeneralLedgerEntries, "", &Make<GeneralLedgerEntries>, "", ""},
    {"Journal", EntityKind::kJournal, "", &Make<Journal>, Dataset::kJournals, "JournalID"},
    {"Transaction",
     EntityKind::kTransaction,
     "",
     &Make<Transaction>,
     Dataset::kTransactions,
     "TransactionID",
     {"JournalID"}},
    {"TransactionLine",
     EntityKind::kTransaction,
     "Line",
     &Make<TransactionLine>,
     Dataset::kTransactionLines,
     "RecordID",
     {"TransactionID"}},
    {"SalesInvoices", EntityKind::kSalesInvoices, "", &Make<SalesInvoices>, "", ""},
    {"Invoice", EntityKind::kInvoice, "", &Make<Invoice>, Dataset::kInvoices, "InvoiceNo"},
    {"InvoiceLine",
     EntityKind::kInvoice,
     "Line",
     &Make<InvoiceLine>,
     Dataset::kInvoiceLines,
     "LineNumber",
     {"InvoiceNo"}},
    {"OrderReferences",
     EntityKind::kInvoice,
     "Line/OrderReferences",
     &Make<OrderReferences>,
     Dataset::kOrderReferences,
     "",
     {"InvoiceNo", "LineNumber"}},
    {"CreditNote",
     EntityKind::kInvoice,
     "Line/References/CreditNote",
     &Make<CreditNote>,
     Dataset::kCreditNotes,
     "Reference",
     {"InvoiceNo", "LineNumber"}},
});

bool LeadsTo(std::string_view path, std::string_view element) {
  return path.empty() || (element.starts_with(path) && (element.size() == path.size() || element[path.size()] == '/'));
}

}  // namespace

size_t RecordKind::Parents() const {
  return static_cast<size_t>(std::ranges::count_if(parents, [](std::string_view name) { return !name.empty(); }));
}

std::span<const RecordKind> RecordKinds() { return kKinds; }

const RecordKind& RecordKindAt(EntityKind entity, std::string_view path) {
  const std::string element = WithoutNumbers(path);
  // How far in a kind is: at least that the entity is its own.
  const auto depth = [&](const RecordKind& kind) {
    if (kind.entity != entity) return -1;
    return LeadsTo(kind.path, element) ? static_cast<int>(kind.path.size()) : 0;
  };
  return *std::ranges::max_element(kKinds, {}, depth);
}

std::string WithoutNumbers(std::string_view path) {
  std::string names;
  bool number = false;
  for (const char c : path) {
    if (c == '[') number = true;
    if (!number) names += c;
    if (c == ']') number = false;
  }
  return names;
}

}  // namespace zevo::saft
