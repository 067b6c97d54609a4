// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/SentenceName.h>

#include <zevo/model/internal/Phrase.h>

#include <array>
#include <cstddef>

namespace zevo {
namespace {

// Records as sentences begin with them, and as they stand in front of a colon; "{1}" stands for the key.
struct RecordRow {
  EntityKind kind;
  Phrase sentence;
  Phrase label;
};
constexpr auto kRecordRows = std::to_array<RecordRow>({
    {EntityKind::kHeader, {"O cabeçalho", "The header"}, {"Cabeçalho", "Header"}},
    {EntityKind::kGeneralLedger, {"A conta {1}", "Account {1}"}, {"Conta {1}", "Account {1}"}},
    {EntityKind::kCustomer, {"O cliente {1}", "Customer {1}"}, {"Cliente {1}", "Customer {1}"}},
    {EntityKind::kSupplier, {"O fornecedor {1}", "Supplier {1}"}, {"Fornecedor {1}", "Supplier {1}"}},
    {EntityKind::kProduct, {"O produto {1}", "Product {1}"}, {"Produto {1}", "Product {1}"}},
    {EntityKind::kTaxTable, {"A tabela de impostos", "The tax table"}, {"Tabela de impostos", "Tax table"}},
    {EntityKind::kGeneralLedgerEntries,
     {"A secção dos movimentos", "The section of ledger entries"},
     {"Movimentos contabilísticos", "Ledger entries"}},
    {EntityKind::kJournal, {"O diário {1}", "Journal {1}"}, {"Diário {1}", "Journal {1}"}},
    {EntityKind::kTransaction, {"O movimento {1}", "Transaction {1}"}, {"Movimento {1}", "Transaction {1}"}},
    {EntityKind::kSalesInvoices, {"A secção das faturas", "The section of invoices"}, {"Faturas", "Invoices"}},
    {EntityKind::kInvoice, {"A fatura {1}", "Invoice {1}"}, {"{1}", "{1}"}},
});

consteval bool RecordsInOrderOfValues() {
  for (size_t i = 0; i < kRecordRows.size(); ++i) {
    if (static_cast<size_t>(kRecordRows[i].kind) != i) return false;
  }
  return kRecordRows.size() == kEntityKinds;
}
static_assert(RecordsInOrderOfValues());

constexpr Phrase kNoKey{"(sem identificação)", "(without identification)"};

std::string WithKey(const Phrase& phrase, std::string_view key, Language language) {
  const std::string shown = key.empty() ? std::string(kNoKey.In(language)) : AbridgedText(key);
  return Filled(phrase.In(language), std::array{shown});
}

}  // namespace

std::string SentenceName(EntityKind kind, std::string_view key, Language language) {
  return WithKey(kRecordRows[static_cast<size_t>(kind)].sentence, key, language);
}

std::string LabelName(EntityKind kind, std::string_view key, Language language) {
  return WithKey(kRecordRows[static_cast<size_t>(kind)].label, key, language);
}

}  // namespace zevo
