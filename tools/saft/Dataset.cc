#include "tools/saft/Dataset.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "tools/saft/Failure.h"

namespace zevo::saft {

Dataset::Dataset(std::string folder) : folder_(std::move(folder)) {
  constexpr std::array kFiles = {kHeader,   kGeneralLedger, kCustomers,        kSuppliers, kProducts,     kTaxTable,
                                 kJournals, kTransactions,  kTransactionLines, kInvoices,  kInvoiceLines, kCreditNotes};
  if (!std::filesystem::exists(folder_)) throw Failure(folder_, "no such folder");
  if (!std::filesystem::is_directory(folder_)) throw Failure(folder_, "not a folder");
  const auto exists = [&](const char* file) { return std::filesystem::exists(PathOf(file)); };
  if (std::ranges::none_of(kFiles, exists)) {
    throw Failure(folder_, "not a dataset: it has no header.csv, customers.csv, ...");
  }
}

std::string Dataset::PathOf(const char* file) const { return (std::filesystem::path(folder_) / file).string(); }

}  // namespace zevo::saft
