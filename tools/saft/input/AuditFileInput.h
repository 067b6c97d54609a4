// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_INPUT_AUDITFILEINPUT_H_
#define ZEVO_TOOLS_SAFT_INPUT_AUDITFILEINPUT_H_

#include <zevo/adapters.h>

#include <functional>
#include <memory>
#include <string>

namespace zevo::saft {

/// Where a command puts what it finds: it decides whether a progress bar would be in the way.
enum class OutputWhile { kReading, kAfterReading };

/// An audit file that is read record by record, in memory that does not grow with it. On a terminal a progress bar is
/// shown; Ctrl-C ends the reading.
class AuditFileInput {
 public:
  /// `record` is null when it cannot be read, and `Reason` then tells why.
  using Visitor = std::function<void(EntityKind kind, const std::shared_ptr<Record>& record)>;

  /// Takes "-" for the standard input. Fails when there is no such file.
  AuditFileInput(const std::string& file, OutputWhile output);

  /// Hands over every record in the order of the file. What the visitor throws ends the reading and comes out; anything
  /// else that ends it before the end of the file is a `Failure`.
  void Read(const Visitor& visit);

  const std::string& Reason() const { return file_.AuditException()->Description(); }

 private:
  [[noreturn]] void Fail() const;

  AuditFileStreamer file_;
  std::string name_;
  OutputWhile output_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_INPUT_AUDITFILEINPUT_H_
