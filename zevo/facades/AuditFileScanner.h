// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_AUDITFILESCANNER_H_
#define ZEVO_FACADES_AUDITFILESCANNER_H_

#include <zevo/Api.h>
#include <zevo/FilePlace.h>
#include <zevo/facades/Facade.h>
#include <zevo/model/EntityKind.h>
#include <zevo/model/Problem.h>
#include <zevo/model/ScannedElement.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zevo {

class EntityScanner;
class Record;
class ScannedEntity;

/// Reads an audit file of any size in one pass, a record at a time, and loses nothing of it: texts are as long as they
/// are, every property that can be set is set, and what a record cannot hold is told. The other readers leave out and
/// change what hosts have always known them to.
///
/// The records come in the order of the file: the header; each account, customer, supplier and product; the tax table
/// as a whole; the section of ledger entries with its totals only; each journal, followed by its transactions; the
/// section of sales invoices with its totals only; each invoice. Of each there is, until the next one is read, all that
/// the file has: its elements with their texts and places, and the problems, where the record differs from them.
///
/// What the file does not have is empty in the record, also where a new record has a value of its own. Names are those
/// of the schema, letter case included; in which namespace an element is, and with which prefix, does not count. Memory
/// is that of a few megabytes and of the largest record, however long the file; the lists of elements and problems take
/// more once they are asked for.
///
/// An operation that returns a bool returns false on failure, keeps the failure in `AuditException` and throws nothing;
/// success makes `AuditException` null. An object is used by one thread at a time.
class ZEVO_API AuditFileScanner : public Facade {
 public:
  class EntityRange;

  AuditFileScanner();
  ~AuditFileScanner();

  /// Path of the file, in UTF-8. Where the system has a "/dev/stdin", that name stands for the standard input, whatever
  /// is behind it. Any other name must lead to a regular file.
  const std::string& AuditFileName() const;
  void set_AuditFileName(std::string_view value);

  /// Opens the file and reads as far as it takes to know it. Fails with message 4 when a file is open, 1 without a file
  /// name, 2 when there is no such file, the parser's number and reason when it cannot be read, 602 when it is no audit
  /// file and 601 when it is one of another version: by the namespace of its root or, where it has none, by the first
  /// AuditFileVersion. A file that tells neither counts as 1.01_01 and has a problem.
  bool OpenAuditFile();
  /// Reads the next record, a new one each time; null after the last. Fails with message 5 while no file is open, 501
  /// after `AbortReading`, and with the parser's number and reason where the file is not well-formed: the records up to
  /// there stand. After a failure every call fails with the same, until the file is closed.
  bool ReadNext(std::shared_ptr<Record>& value);
  /// Always true.
  bool CloseAuditFile();
  /// Makes the next reading fail. For a program that has seen enough.
  void AbortReading();

  /// How many bytes of the file were read so far, to show progress.
  uint64_t BytesRead() const;

  /// The kind of the record that was read last; nothing before the first, after the last and while no file is open.
  /// Then what follows is empty too, but for `Problems`.
  std::optional<EntityKind> Kind() const;
  /// Where its element stands.
  FilePlace Place() const;
  /// The journal in which a transaction stands; empty for other kinds.
  const std::string& JournalID() const;
  /// All its elements as the file has them, in their order, itself first. Valid until the next call of `ReadNext` or
  /// `CloseAuditFile`, as are all texts in them.
  std::span<const ScannedElement> Elements() const;
  /// The text of the element at a path of names from the record's own element, such as "DocumentTotals/GrossTotal" or
  /// "Line[2]/CreditAmount", counted from 1; "" is the element itself. Nothing when there is none. Valid as above.
  std::optional<std::string_view> TextOf(std::string_view path) const;
  /// Where that element stands; zeros when there is none.
  FilePlace PlaceOf(std::string_view path) const;
  /// What the record holds otherwise than the file, and what stands in the file between the record before and this one
  /// without being part of a record, of which the first megabyte is told; after the last record, what stands behind it.
  /// Attributes of the root count for nothing.
  const std::vector<Problem>& Problems() const;

  /// The records that are left, for a loop: `for (const auto& record : scanner.Entities())`. Where reading fails,
  /// raises the failure as an `Error`: a loop that just ended would take a file cut short for a whole one.
  EntityRange Entities();

 private:
  std::shared_ptr<Record> Next();
  const ScannedEntity* Entity() const;

  std::string file_name_;
  std::unique_ptr<EntityScanner> scanner_;  // while a file is open
  std::shared_ptr<const zevo::AuditException> failure_;
  bool abort_requested_ = false;
};

/// See `AuditFileScanner::Entities`. It can be gone through once.
class AuditFileScanner::EntityRange {
 public:
  /// Behind the last record.
  struct End {};
  /// At a record. Made, it reads the first.
  class Iterator {
   public:
    /// At the next record of the scanner. Raises what reading it fails with.
    explicit Iterator(AuditFileScanner& scanner) : scanner_(&scanner) { ++*this; }
    /// The record; null behind the last.
    const std::shared_ptr<Record>& operator*() const { return record_; }
    /// Reads the next record. Raises what reading it fails with.
    Iterator& operator++() {
      record_ = scanner_->Next();
      return *this;
    }
    /// Whether no record is left.
    friend bool operator==(const Iterator& at, End) { return at.record_ == nullptr; }

   private:
    AuditFileScanner* scanner_;
    std::shared_ptr<Record> record_;
  };

  /// The records that a scanner has left.
  explicit EntityRange(AuditFileScanner& scanner) : scanner_(&scanner) {}
  /// Reads the first.
  Iterator begin() const { return Iterator(*scanner_); }
  /// What a loop compares with.
  static End end() { return {}; }

 private:
  AuditFileScanner* scanner_;
};

}  // namespace zevo

#endif  // ZEVO_FACADES_AUDITFILESCANNER_H_
