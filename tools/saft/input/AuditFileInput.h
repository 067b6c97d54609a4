// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_INPUT_AUDITFILEINPUT_H_
#define ZEVO_TOOLS_SAFT_INPUT_AUDITFILEINPUT_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "tools/saft/errors/Interruption.h"
#include "tools/saft/input/ReadingProgress.h"

namespace zevo::saft {

/// An audit file that is read record by record, whole, in memory that does not grow with it. On a terminal a progress
/// bar is shown; Ctrl-C ends the reading. Where files are written, signals are noted as long as the object exists.
class AuditFileInput {
 public:
  /// Takes the scanner, which stands at the record that was read, and the record.
  using Visitor = std::function<void(const AuditFileScanner& scanner, const Record& record)>;

  /// Takes "-" for the standard input. Fails when there is no such file, when it is no audit file, and when it is one
  /// of another version.
  AuditFileInput(const std::string& file, OutputWhile output);

  /// Hands over every record in the order of the file. What the visitor throws ends the reading and comes out; anything
  /// else that ends it before the end of the file is a `Failure`, or `Interrupted` where files are written.
  void Read(const Visitor& visit);

  /// Once the file is read: what stands in it after the last record.
  const AuditFileScanner& Scanner() const { return file_; }

 private:
  bool ReadNext(std::shared_ptr<Record>& record);
  [[noreturn]] void Fail() const;

  AuditFileScanner file_;
  std::string name_;
  OutputWhile output_;
  std::optional<uint64_t> size_;         // in bytes, where it is known
  std::optional<Interruption> writing_;  // while files are written
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_INPUT_AUDITFILEINPUT_H_
