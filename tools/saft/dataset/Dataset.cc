// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/Dataset.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/NearestName.h"

namespace zevo::saft {
namespace {

constexpr std::array<DatasetFile, 13> kFiles{{
    {Dataset::kHeader, "cabecalho.csv", "the company and the period, one row"},
    {Dataset::kGeneralLedger, "contas.csv", "ledger accounts"},
    {Dataset::kCustomers, "clientes.csv", "customers"},
    {Dataset::kSuppliers, "fornecedores.csv", "suppliers"},
    {Dataset::kProducts, "produtos.csv", "products and services"},
    {Dataset::kTaxTable, "impostos.csv", "tax rates"},
    {Dataset::kJournals, "diarios.csv", "journals"},
    {Dataset::kTransactions, "movimentos.csv", "transactions; JournalID tells the journal"},
    {Dataset::kTransactionLines, "linhas_movimentos.csv", "their lines; TransactionID tells the transaction"},
    {Dataset::kInvoices, "faturas.csv", "sales documents"},
    {Dataset::kInvoiceLines, "linhas_faturas.csv", "their lines; InvoiceNo tells the document"},
    {Dataset::kOrderReferences, "encomendas.csv", "their orders; InvoiceNo and LineNumber tell the line"},
    {Dataset::kCreditNotes, "notas_credito.csv", "documents corrected; InvoiceNo and LineNumber tell the line"},
}};

char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool EqualIgnoringAsciiCase(std::string_view left, std::string_view right) {
  return std::ranges::equal(left, right, {}, &AsciiLower, &AsciiLower);
}

// The file whose name, in either language, is nearest.
std::string_view NearestTo(std::string_view name) {
  std::array<std::string_view, 2 * kFiles.size()> names;
  for (size_t i = 0; i < kFiles.size(); ++i) {
    names[2 * i] = kFiles[i].name;
    names[2 * i + 1] = kFiles[i].in_portuguese;
  }
  const std::string_view nearest = NearestName(name, names);
  return kFiles[static_cast<size_t>(std::ranges::find(names, nearest) - names.begin()) / 2].name;
}

}  // namespace

std::span<const DatasetFile> Dataset::Files() { return kFiles; }

Dataset::Dataset(std::string folder) : folder_(std::move(folder)) {
  if (!std::filesystem::exists(folder_)) throw Failure(folder_, "no such folder");
  if (!std::filesystem::is_directory(folder_)) throw Failure(folder_, "not a folder");
  CheckNames();
}

void Dataset::CheckNames() const {
  std::vector<std::string> unknown;
  bool known = false;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder_, error)) {
    const std::string name = entry.path().filename().string();
    if (std::ranges::find(kFiles, name, &DatasetFile::name) != kFiles.end()) {
      known = true;
    } else if (EqualIgnoringAsciiCase(entry.path().extension().string(), ".csv")) {
      unknown.push_back(name);
    }
  }
  if (error) throw Failure(folder_, error.message());
  if (!unknown.empty()) {
    // The first by name, so that the same folder is told the same each time.
    const std::string& first = *std::ranges::min_element(unknown);
    throw Failure(PathOf(first), "not a file of a dataset; the nearest name is " + std::string(NearestTo(first)));
  }
  if (!known) throw Failure(folder_, "not a dataset: it has no header.csv, customers.csv, ...");
}

std::string Dataset::PathOf(std::string_view file) const { return (std::filesystem::path(folder_) / file).string(); }

}  // namespace zevo::saft
