// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_AUDITFILEOUTPUT_H_
#define ZEVO_TOOLS_SAFT_CREATE_AUDITFILEOUTPUT_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <variant>

namespace zevo::saft {

/// An audit file that is made here, and is not left behind unless it is saved. Records come in the order of the schema,
/// each journal followed by its transactions. A failure of the library is a `Failure`.
class AuditFileOutput {
 public:
  /// Built in memory and saved as a whole, or written to disk at once.
  enum Way { kInMemory, kSequential };

  /// The row of a dataset that a record comes from.
  struct Origin {
    const std::string& path;
    int64_t row;
  };

  /// Fails when there is such a file.
  AuditFileOutput(std::string_view path, Way way);
  AuditFileOutput(const AuditFileOutput&) = delete;
  AuditFileOutput& operator=(const AuditFileOutput&) = delete;
  ~AuditFileOutput();

  // A record that cannot be written is a failure at its row.

  void Write(const Header& value, const Origin& origin);
  void Write(const GeneralLedger& value, const Origin& origin);
  void Write(const Customer& value, const Origin& origin);
  void Write(const Supplier& value, const Origin& origin);
  void Write(const Product& value, const Origin& origin);
  /// Adds the entries to the table of the file.
  void Write(const TaxTable& value, const Origin& origin);
  void Begin(const GeneralLedgerEntries& totals);
  void Begin(const Journal& value, const Origin& origin);
  /// Writes into the journal begun last.
  void Write(const Transaction& value, const Journal& journal, const Origin& origin);
  void Begin(const SalesInvoices& totals);
  void Write(const Invoice& value, const Origin& origin);

  void Save();

 private:
  template <class Operation>
  void Do(Operation&& operation);
  template <class Operation>
  void Do(Operation&& operation, const Origin& origin);
  const AuditException& Exception() const;
  [[noreturn]] void FailAtFile() const;

  std::variant<AuditFile, AuditFileStreamWriter> file_;
  std::string path_;
  std::filesystem::path unfinished_path_;  // as a path already, so that removing the file allocates nothing
  bool unfinished_ = false;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_AUDITFILEOUTPUT_H_
