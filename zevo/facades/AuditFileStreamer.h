// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_FACADES_AUDITFILESTREAMER_H_
#define ZEVO_FACADES_AUDITFILESTREAMER_H_

#include <zevo/Api.h>
#include <zevo/facades/Facade.h>
#include <zevo/model/EntityKind.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace zevo {

class Record;
class SAXDALReader;

/// Reads an audit file of any size in one pass and hands every record of it to the host as an event. No more than one
/// record of the file is in memory.
///
/// The records come in the order of the file: the header; each account, customer, supplier and product; the tax table
/// as a whole; the section of ledger entries with its totals only; each journal, followed by its transactions; the
/// section of sales invoices with its totals only; each invoice.
///
/// A property has the text of the first element of its name inside the record, be it deeper or behind; without a text
/// it is empty, in one tag or in two.
///
/// An operation that returns a bool returns false on failure, keeps the failure in `AuditException` and throws nothing;
/// success makes `AuditException` null. An object is used by one thread at a time.
class ZEVO_API AuditFileStreamer : public Facade {
 public:
  AuditFileStreamer();
  ~AuditFileStreamer();

  /// Raised for every record. `entityName` is the element's name as the file has it, "Customer" for example; letter
  /// case does not matter. `entity` is the `Customer`, or null when it could not be built from the element:
  /// `AuditException` then tells why, until the handler returns. What a handler throws ends the reading and becomes
  /// `AuditException`.
  std::function<void(const std::string& entityName, const std::shared_ptr<Record>& entity)> ReadEntity;
  /// Raised after the last record of a file that was read to its end.
  std::function<void()> FinishedReading;

  /// Path of the file, in UTF-8. Where the system has a "/dev/stdin", that name stands for the standard input, whatever
  /// is behind it; a pipe can be read once. Any other name must lead to a regular file.
  const std::string& AuditFileName() const;
  void set_AuditFileName(std::string_view value);

  /// Gets ready to read. Fails with message 4 when that was done already, 1 without a file name, 2 when there is no
  /// such file.
  bool OpenAuditFile();
  /// Reads the file from its beginning; all events are raised inside. Fails with message 5 before `OpenAuditFile`, 401
  /// for a record that contains an element of its own name or is cut in two by an entry, 501 after `AbortReading`, and
  /// with the parser's number and reason when the file cannot be read; the events up to there stand. Returns false too,
  /// without an `AuditException`, when the file was read to its end but a record could not be built; among those are
  /// tax tables, unless each entry has both a percentage and an amount. `wait` makes no difference to a host without a
  /// message loop.
  bool ReadAuditFile(bool wait = true);
  /// Always true.
  bool CloseAuditFile();
  /// Ends the reading at the next element, for a handler that has seen enough. An object that was told so reads no
  /// more: make another one.
  void AbortReading();

  /// How many bytes of the file were read so far, to show progress.
  uint64_t BytesRead() const;

 private:
  std::shared_ptr<Record> Build(EntityKind kind);

  std::unique_ptr<SAXDALReader> reader_;
  bool reading_ = false;
  bool entity_failed_ = false;
};

}  // namespace zevo

#endif  // ZEVO_FACADES_AUDITFILESTREAMER_H_
