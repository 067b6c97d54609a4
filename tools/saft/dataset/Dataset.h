// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_DATASET_H_
#define ZEVO_TOOLS_SAFT_DATASET_DATASET_H_

#include <zevo/adapters.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "tools/saft/dataset/DatasetNotes.h"
#include "tools/saft/dataset/RecordFile.h"
#include "tools/saft/input/FileState.h"
#include "tools/saft/words/Text.h"

namespace zevo::saft {

/// A file that a dataset may have.
struct DatasetFile {
  std::string_view name;
  std::string_view in_portuguese;  ///< which a user may have called it
  Text<> rows;                     ///< what they are, for the help
};

/// A folder of CSV files that hold the records of one audit file.
class Dataset {
 public:
  static constexpr const char* kHeader = "header.csv";
  static constexpr const char* kGeneralLedger = "general_ledger.csv";
  static constexpr const char* kCustomers = "customers.csv";
  static constexpr const char* kSuppliers = "suppliers.csv";
  static constexpr const char* kProducts = "products.csv";
  static constexpr const char* kTaxTable = "tax_table.csv";
  static constexpr const char* kJournals = "journals.csv";
  static constexpr const char* kTransactions = "transactions.csv";
  static constexpr const char* kTransactionLines = "transaction_lines.csv";
  static constexpr const char* kInvoices = "invoices.csv";
  static constexpr const char* kInvoiceLines = "invoice_lines.csv";
  static constexpr const char* kOrderReferences = "order_references.csv";
  static constexpr const char* kCreditNotes = "credit_notes.csv";

  /// The files of a dataset, in the order of the audit file.
  static std::span<const DatasetFile> Files();

  /// The number of a file among them.
  static size_t NumberOf(std::string_view file);

  /// Fails when there is no such folder, and when it has no CSV file. A CSV file of another name is an error: it would
  /// be left out unseen.
  explicit Dataset(std::string folder);

  RecordFile Open(std::string_view file, RecordFile::Reading reading = RecordFile::Reading::kFirst);

  /// Fails when a file is another than it was when it was opened first.
  void RequireUnchanged() const;

  /// What the audit file has otherwise than the rows read so far.
  Alterations& Altered() { return notes_.altered; }
  /// What is wrong with the rows read so far.
  Errors& Faults() { return notes_.errors; }
  /// Has it told with each row how many bytes are read; `BytesToRead` in all, about.
  void SetProgress(std::function<void(uint64_t bytes)> progress) { notes_.progress = std::move(progress); }
  uint64_t BytesToRead() const;

  std::string PathOf(std::string_view file) const;

 private:
  static constexpr size_t kFiles = 13;

  void CheckNames();

  std::string folder_;
  DatasetNotes notes_;
  std::array<std::optional<std::optional<FileState>>, kFiles> opened_;  // by file: as it was found
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_DATASET_H_
