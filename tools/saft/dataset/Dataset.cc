// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/Dataset.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "tools/saft/dataset/RecordKind.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/NearestName.h"
#include "tools/saft/words/DatasetWords.h"
#include "tools/saft/words/ErrorWords.h"

namespace zevo::saft {
namespace {

constexpr auto kDatasetFiles = std::to_array<DatasetFile>({
    {Dataset::kHeader, "cabecalho.csv", words::kHeaderRows},
    {Dataset::kGeneralLedger, "contas.csv", words::kGeneralLedgerRows},
    {Dataset::kCustomers, "clientes.csv", words::kCustomersRows},
    {Dataset::kSuppliers, "fornecedores.csv", words::kSuppliersRows},
    {Dataset::kProducts, "produtos.csv", words::kProductsRows},
    {Dataset::kTaxTable, "impostos.csv", words::kTaxTableRows},
    {Dataset::kJournals, "diarios.csv", words::kJournalsRows},
    {Dataset::kTransactions, "movimentos.csv", words::kTransactionsRows},
    {Dataset::kTransactionLines, "linhas_movimentos.csv", words::kTransactionLinesRows},
    {Dataset::kInvoices, "faturas.csv", words::kInvoicesRows},
    {Dataset::kInvoiceLines, "linhas_faturas.csv", words::kInvoiceLinesRows},
    {Dataset::kOrderReferences, "encomendas.csv", words::kOrderReferencesRows},
    {Dataset::kCreditNotes, "notas_credito.csv", words::kCreditNotesRows},
});

std::string PathTo(const std::string& folder, std::string_view file) {
  return (std::filesystem::path(folder) / file).string();
}

std::vector<std::string> PathsIn(const std::string& folder) {
  std::vector<std::string> paths;
  paths.reserve(kDatasetFiles.size());
  for (const DatasetFile& file : kDatasetFiles) paths.push_back(PathTo(folder, file.name));
  return paths;
}

char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool EqualIgnoringAsciiCase(std::string_view left, std::string_view right) {
  return std::ranges::equal(left, right, {}, &AsciiLower, &AsciiLower);
}

// The file whose name, in either language, is nearest.
std::string_view NearestTo(std::string_view name) {
  std::array<std::string_view, 2 * kDatasetFiles.size()> names;
  for (size_t i = 0; i < kDatasetFiles.size(); ++i) {
    names[2 * i] = kDatasetFiles[i].name;
    names[2 * i + 1] = kDatasetFiles[i].in_portuguese;
  }
  const std::string_view nearest = NearestName(name, names);
  return kDatasetFiles[static_cast<size_t>(std::ranges::find(names, nearest) - names.begin()) / 2].name;
}

}  // namespace

std::span<const DatasetFile> Dataset::Files() { return kDatasetFiles; }

size_t Dataset::NumberOf(std::string_view file) {
  return static_cast<size_t>(std::ranges::find(kDatasetFiles, file, &DatasetFile::name) - kDatasetFiles.begin());
}

Dataset::Dataset(std::string folder)
    : folder_(std::move(folder)), notes_{.altered = {}, .errors = Errors(PathsIn(folder_))} {
  static_assert(kFiles == kDatasetFiles.size());
  if (!std::filesystem::exists(folder_)) throw Failure(folder_, Say(words::kNoSuchFolder));
  if (!std::filesystem::is_directory(folder_)) throw Failure(folder_, Say(words::kNotAFolder));
  CheckNames();
}

void Dataset::CheckNames() {
  std::vector<std::string> unknown;
  bool known = false;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(folder_, error)) {
    const std::string name = entry.path().filename().string();
    if (std::ranges::find(kDatasetFiles, name, &DatasetFile::name) != kDatasetFiles.end()) {
      known = true;
    } else if (EqualIgnoringAsciiCase(entry.path().extension().string(), ".csv")) {
      unknown.push_back(name);
    }
  }
  if (error) FailWithSystemError(error.value(), folder_);
  if (!known && unknown.empty()) throw Failure(folder_, Say(words::kNotADataset));
  // By name, so that the same folder is told the same each time.
  std::ranges::sort(unknown);
  for (const std::string& name : unknown) {
    const std::string_view meant = NearestTo(name);
    const size_t number = NumberOf(meant);
    notes_.errors.Add({number, 0}, {},
                      Failure(PathOf(name), Say(words::kUnknownFile) + Say(words::kDidYouMean, meant)).what());
    if (!StateOf(PathOf(meant))) notes_.errors.SetIncomplete(number);
  }
}

RecordFile Dataset::Open(std::string_view file, RecordFile::Reading reading) {
  const size_t number = NumberOf(file);
  if (!opened_[number]) opened_[number] = StateOf(PathOf(file));
  const RecordKind& kind = *std::ranges::find(RecordKinds(), file, &RecordKind::file);
  return {PathOf(file), number, kind, notes_, reading};
}

// Files whose records have parts in others, and those with the parts, are read twice.
uint64_t Dataset::BytesToRead() const {
  uint64_t bytes = 0;
  for (const DatasetFile& file : kDatasetFiles) {
    const bool twice = NumberOf(file.name) >= NumberOf(kJournals);
    if (const auto state = StateOf(PathOf(file.name))) bytes += state->size * (twice ? 2 : 1);
  }
  return bytes;
}

void Dataset::RequireUnchanged() const {
  for (size_t number = 0; number < opened_.size(); ++number) {
    if (opened_[number]) saft::RequireUnchanged(PathOf(kDatasetFiles[number].name), *opened_[number]);
  }
}

std::string Dataset::PathOf(std::string_view file) const { return PathTo(folder_, file); }

}  // namespace zevo::saft
