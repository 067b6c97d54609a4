// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_AUDITFILEOUTPUT_H_
#define ZEVO_TOOLS_SAFT_CREATE_AUDITFILEOUTPUT_H_

#include <zevo/adapters.h>

#include <string>
#include <variant>

namespace zevo::saft {

/// An audit file that is written into a new file. Records come in the order of the schema, each journal followed by its
/// transactions. A failure of the library is a `Failure`.
class AuditFileOutput {
 public:
  /// Built in memory and saved as a whole, or written to disk at once.
  enum Way { kInMemory, kSequential };

  /// The file at `path`, which messages call `name`. Fails when there is such a file.
  AuditFileOutput(std::string path, std::string name, Way way);
  AuditFileOutput(const AuditFileOutput&) = delete;
  AuditFileOutput& operator=(const AuditFileOutput&) = delete;
  /// Closes a file that was not saved; what is in it is of no use.
  ~AuditFileOutput();

  // The texts of records must be such that XML can hold them.

  void Write(const Header& value);
  void Write(const GeneralLedger& value);
  void Write(const Customer& value);
  void Write(const Supplier& value);
  void Write(const Product& value);
  /// Adds the entries to the table of the file.
  void Write(const TaxTable& value);
  void Begin(const GeneralLedgerEntries& totals);
  /// Whether a journal can be written in this way.
  bool Takes(const Journal& value) const;
  void Begin(const Journal& value);
  /// Writes into the journal begun last.
  void Write(const Transaction& value, const Journal& journal);
  void Begin(const SalesInvoices& totals);
  void Write(const Invoice& value);

  void Save();

 private:
  template <class Operation>
  void Do(Operation&& operation);

  std::variant<AuditFile, AuditFileStreamWriter> file_;
  std::string path_;
  std::string name_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_AUDITFILEOUTPUT_H_
