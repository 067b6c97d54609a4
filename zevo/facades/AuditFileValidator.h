// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_AUDITFILEVALIDATOR_H_
#define ZEVO_FACADES_AUDITFILEVALIDATOR_H_

#include <zevo/Api.h>
#include <zevo/facades/Facade.h>
#include <zevo/model/Violation.h>

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace zevo {

/// Tells everything in an audit file that the schema does not allow, where `AuditFile::ValidateAuditFile` stops at the
/// first. The verdict is the same.
///
/// Behind an element that is missing, misplaced, repeated or unknown the file is judged on from the next that fits.
/// Elements that are misplaced, repeated or unknown are not looked into, and what only follows from another violation
/// is left out: an empty amount is one violation, a customer whose CustomerID is wrong leaves no invoice without its
/// customer.
///
/// A valid file is read once. One that is not is read twice, in memory that does not grow with it but for 48 bytes for
/// each key of the schema (the customers, products, invoices, journals and transactions).
///
/// An operation that returns a bool returns false on failure, keeps the failure in `AuditException` and throws nothing;
/// success makes `AuditException` null. An object is used by one thread at a time.
class ZEVO_API AuditFileValidator : public Facade {
 public:
  AuditFileValidator();
  ~AuditFileValidator();

  /// Path of the file, in UTF-8. "/dev/stdin", where the system has it, is the standard input, whatever is behind it. A
  /// file behind it is read from where it stands. What comes through a pipe is kept, for a second pass, in a nameless
  /// temporary file in the folder of the environment's TMPDIR, else in /tmp; where there is no room for it, libxml2
  /// tells the violations itself, and none behind an element that has no business where it stands.
  const std::string& AuditFileName() const;
  void set_AuditFileName(std::string_view value);
  /// The same as `Options::SchemaLocation`. Where no schema is named and there is none at the default place, the one
  /// that is built into the library counts.
  std::string AuditFileSchema() const;
  void set_AuditFileSchema(std::string_view value);

  /// Gets each violation in the order in which the file shows them: one that lacks at the end of an element after those
  /// inside it. Returns whether to go on. Violations are only counted where there is no such function. What it throws
  /// ends the validation as a failure.
  std::function<bool(const Violation& violation)> Found;

  /// Gets how many bytes of the file have been read, every 256 KiB and at its end, and says whether to go on; false
  /// ends the validation, which then fails with message 501. A file that is not valid is read more than once: the bytes
  /// are those of the pass that is going on, so the number begins anew.
  std::function<bool(int64_t bytesRead)> Progress;

  /// Judges the file on disk. True when that could be done, whatever the verdict: see `Violations`. Fails with message
  /// 1 without a file name, 2 when there is no such file, with the parser's number and reason where the file is not
  /// well-formed, once the violations up to there were told, and where the schema cannot be used. A schema that this
  /// library cannot follow in every detail has libxml2 tell the violations.
  bool ValidateAuditFile();
  /// Whether the last `ValidateAuditFile` failed because of the schema: see `AuditFile::IsSchemaAtFault`.
  bool IsSchemaAtFault() const;

  /// How many violations the last `ValidateAuditFile` found; none in a valid file.
  int64_t Violations() const;

 private:
  class Run;

  std::string file_name_;
  bool schema_at_fault_ = false;
  int64_t violations_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_FACADES_AUDITFILEVALIDATOR_H_
