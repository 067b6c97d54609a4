// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_DATASET_H_
#define ZEVO_TOOLS_SAFT_DATASET_DATASET_H_

#include <zevo/adapters.h>

#include <span>
#include <string>
#include <string_view>

#include "tools/saft/dataset/Alterations.h"
#include "tools/saft/dataset/RecordFile.h"

namespace zevo::saft {

/// A file that a dataset may have.
struct DatasetFile {
  std::string_view name;
  std::string_view in_portuguese;  ///< which a user may have called it
  std::string_view description;    ///< what its rows are, for the help
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

  /// Fails when there is no such folder, none of the files in it, or a CSV file of another name: it would be left out
  /// unseen.
  explicit Dataset(std::string folder);

  /// The records of class `T`.
  template <class T>
  RecordFile Open(const char* file, const KeyColumns& keys) {
    return RecordFile(PathOf(file), T(), keys, alterations_);
  }

  /// What the audit file has otherwise than the rows read so far.
  Alterations& Altered() { return alterations_; }

  std::string PathOf(std::string_view file) const;

 private:
  void CheckNames() const;

  std::string folder_;
  Alterations alterations_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_DATASET_H_
