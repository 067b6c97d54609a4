// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/EntityKind.h>

#include <zevo/platform/LetterCase.h>

#include <array>

namespace zevo {
namespace {

struct EntityRow {
  EntityKind kind;
  std::string_view name;
  std::string_view path;
  std::string_view key = {};
  std::optional<EntityKind> parent = std::nullopt;
};

constexpr auto kEntityRows = std::to_array<EntityRow>({
    {EntityKind::kHeader, "Header", "/AuditFile/Header"},
    {EntityKind::kGeneralLedger, "GeneralLedger", "/AuditFile/MasterFiles/GeneralLedger", "AccountID"},
    {EntityKind::kCustomer, "Customer", "/AuditFile/MasterFiles/Customer", "CustomerID"},
    {EntityKind::kSupplier, "Supplier", "/AuditFile/MasterFiles/Supplier", "SupplierID"},
    {EntityKind::kProduct, "Product", "/AuditFile/MasterFiles/Product", "ProductCode"},
    {EntityKind::kTaxTable, "TaxTable", "/AuditFile/MasterFiles/TaxTable"},
    {EntityKind::kGeneralLedgerEntries, "GeneralLedgerEntries", "/AuditFile/GeneralLedgerEntries"},
    {EntityKind::kJournal, "Journal", "/AuditFile/GeneralLedgerEntries/Journal", "JournalID",
     EntityKind::kGeneralLedgerEntries},
    {EntityKind::kTransaction, "Transaction", "/AuditFile/GeneralLedgerEntries/Journal/Transaction", "TransactionID",
     EntityKind::kJournal},
    {EntityKind::kSalesInvoices, "SalesInvoices", "/AuditFile/SourceDocuments/SalesInvoices"},
    {EntityKind::kInvoice, "Invoice", "/AuditFile/SourceDocuments/SalesInvoices/Invoice", "InvoiceNo",
     EntityKind::kSalesInvoices},
});

consteval auto AllKinds() {
  std::array<EntityKind, kEntityRows.size()> kinds{};
  for (size_t i = 0; i < kinds.size(); ++i) kinds[i] = kEntityRows[i].kind;
  return kinds;
}
constexpr auto kAllKinds = AllKinds();

consteval bool EntitiesInOrderOfValues() {
  for (size_t i = 0; i < kAllKinds.size(); ++i) {
    if (static_cast<size_t>(kAllKinds[i]) != i) return false;
  }
  return kAllKinds.size() == kEntityKinds;
}
static_assert(EntitiesInOrderOfValues());

consteval auto KindsWithEntries() {
  std::array<bool, kEntityRows.size()> holds{};
  for (const EntityRow& row : kEntityRows) {
    if (row.parent) holds[static_cast<size_t>(*row.parent)] = true;
  }
  return holds;
}
constexpr auto kHoldsEntries = KindsWithEntries();

const EntityRow& EntityRowOf(EntityKind kind) { return kEntityRows[static_cast<size_t>(kind)]; }

}  // namespace

std::span<const EntityKind> EntityKinds() { return kAllKinds; }

std::string_view NameOf(EntityKind kind) { return EntityRowOf(kind).name; }

std::string_view KeyOf(EntityKind kind) { return EntityRowOf(kind).key; }

std::string_view PathOf(EntityKind kind) { return EntityRowOf(kind).path; }

std::optional<EntityKind> EntityKindOf(std::string_view name) {
  for (const EntityRow& row : kEntityRows) {
    if (EqualIgnoringCase(row.name, name)) return row.kind;
  }
  return std::nullopt;
}

std::optional<EntityKind> ParentOf(EntityKind kind) { return EntityRowOf(kind).parent; }

bool HoldsEntries(EntityKind kind) { return kHoldsEntries[static_cast<size_t>(kind)]; }

}  // namespace zevo
