// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_AUDITFILECHECKER_H_
#define ZEVO_FACADES_AUDITFILECHECKER_H_

#include <zevo/Api.h>
#include <zevo/facades/Facade.h>
#include <zevo/model/EntityKind.h>
#include <zevo/model/Finding.h>
#include <zevo/model/Language.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace zevo {

/// Judges whether an audit file is right: by the schema, and by what an auditor asks beyond it. `Rules` are what it
/// looks at; docs/rules.md lists them.
///
/// One fault is one finding. Amounts are judged as they are written, exactly, however long they are. What cannot be
/// read is told once, and nothing that it takes part in.
///
/// A file that the schema allows is read twice, another three times or four. First the schema judges it, in the memory
/// that `AuditFile::ValidateAuditFile` takes, which is given back: 28 bytes for each key that the schema compares or,
/// where libxml2 has to judge, some 250 for each and for each use of one. Then memory does not grow with the file but
/// for 64 bytes for each key (of a transaction with basis I, 160), another 300 for each series of documents and 100 for
/// each number of a document with 20 digits or more, its accounts and the taxes of its tax table, 16 bytes for each use
/// of a key that the file does not have before it, as many for each document that a credit note refers to (140 where
/// the file does not have it before, and 300 for each line of the note), and, with a public key, 256 for each signed
/// document whose neighbours by number have not come and 16 for each signature that is wrong, another 500 for those
/// that are told. Of a series whose dates are out of order each invoice takes another 16 bytes at the end. In a file
/// that the schema does not allow each finding takes another 64 bytes.
///
/// An operation that returns a bool returns false on failure, keeps the failure in `AuditException` and throws nothing;
/// success makes `AuditException` null. An object is used by one thread at a time but for what says otherwise.
class ZEVO_API AuditFileChecker : public Facade {
 public:
  AuditFileChecker();
  ~AuditFileChecker();

  /// Path of the file, in UTF-8. "/dev/stdin", where the system has it, is the standard input, whatever is behind it. A
  /// file behind it is read from where it stands. What comes through a pipe is kept, as it is read more than once, in a
  /// nameless temporary file in the folder of the environment's TMPDIR, else in /tmp; without room for it the check
  /// fails with error 57.
  const std::string& AuditFileName() const;
  void set_AuditFileName(std::string_view value);
  /// The same as `Options::SchemaLocation`. Where no schema is named and there is none at the default place, the one
  /// that is built into the library counts.
  std::string AuditFileSchema() const;
  void set_AuditFileSchema(std::string_view value);

  /// Adds a key that signatures of documents may have been made with, as a PEM text, "PUBLIC KEY" or "RSA PUBLIC KEY",
  /// and the version of it that HashControl tells; 0 is the key for all versions that have no key of their own. Another
  /// key of the version replaces the one before. Raises error 5 for what is no RSA public key. Without any, the rule
  /// HASH-CHAIN verifies nothing and says so.
  void AddPublicKey(std::string_view pem, int version = 0);

  /// How much the findings of a rule weigh. Those that a rule tells softer than its own severity are never harder for
  /// it, and a rule that is `kOff` judges nothing. Raises error 5 for an identifier of no rule.
  zevo::Severity Severity(std::string_view rule) const;
  void set_Severity(std::string_view rule, zevo::Severity value);
  /// The language of `MessageOf`. Portuguese at first.
  zevo::Language Language() const;
  void set_Language(zevo::Language value);
  /// How many findings of a rule are told; 20 at first, 0 for all. `CountOf` and the verdict are of all. Raises error 5
  /// for less than 0.
  int MostFindings() const;
  void set_MostFindings(int of_a_rule);

  /// Gets each finding once it is certain, in an order that is the same for the same file. What it throws ends the
  /// check as a failure.
  std::function<void(const Finding& finding)> Found;

  /// Gets how many bytes of the file have been read, every 256 KiB and at its end, and says whether to go on; false
  /// ends the check, which then fails with message 501. A file is read more than once: the bytes are those of the pass
  /// that is going on, so the number begins anew. What it throws ends the check as a failure.
  std::function<bool(int64_t bytesRead)> Progress;

  /// Judges the file on disk. True when that could be done, whatever the verdict. Fails as `AuditFileScanner` does
  /// where the file cannot be opened or read to its end, after the findings up to there; with message 601 or 602, and a
  /// finding of the rule VERSION, where it is of another version or no audit file; with message 501 after
  /// `AbortChecking`; where the schema cannot be used; and with message 701, which names the rule, where a rule has a
  /// fault of its own. The verdict is `kNotJudged` then. From within `Found` or `Progress` it fails with message 4 and
  /// leaves the check as it is.
  bool CheckAuditFile();
  /// Makes the check fail before it judges another record or, while the schema's own verdict is made, before it reads
  /// another 256 KiB. For a program that has seen enough: from `Found`, from `Progress` or from another thread.
  void AbortChecking();

  /// What the last `CheckAuditFile` says of the file; `kNotJudged` before the first.
  CheckVerdict Verdict() const;
  /// How many findings of a rule there were, told or not. Raises error 5 for an identifier of no rule.
  int64_t CountOf(std::string_view rule) const;
  /// How many of them were of a severity.
  int64_t CountOf(std::string_view rule, zevo::Severity severity) const;
  /// How many records of a kind the last `CheckAuditFile` has judged.
  int64_t RecordsOf(EntityKind kind) const;
  /// The same as `Describe`, in `Language`.
  std::string MessageOf(const Finding& finding) const;

  /// How many bytes of the file the pass that is going on has read so far: first for the schema's own verdict, then
  /// those that the rules have judged. May be asked from another thread.
  uint64_t BytesRead() const;

  /// The rules, in an order that never changes within a version.
  static std::span<const RuleInfo> Rules();

 private:
  class Run;
  struct State;

  std::unique_ptr<State> state_;
};

}  // namespace zevo

#endif  // ZEVO_FACADES_AUDITFILECHECKER_H_
