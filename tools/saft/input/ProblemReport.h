// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_INPUT_PROBLEMREPORT_H_
#define ZEVO_TOOLS_SAFT_INPUT_PROBLEMREPORT_H_

#include <zevo/adapters.h>

#include <array>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace zevo::saft {

/// What an audit file has and a command could not take as it stands: how often each fault is there, and where the first
/// few are.
class ProblemReport {
 public:
  /// `file` is the name that the user gave.
  explicit ProblemReport(std::string file) : file_(std::move(file)) {}

  /// Counts a problem of the record at which the scanner stands. What is inside an element that stands between records
  /// is not counted again.
  void Add(const AuditFileScanner& scanner, const Problem& problem);

  /// How many there are.
  int64_t Count() const;
  /// The first few of each fault, in sentences.
  std::vector<std::string> First() const;
  /// Tells everything; nothing when there is nothing.
  void Report(std::ostream& out) const;

 private:
  struct Places {
    int64_t count = 0;
    std::vector<std::string> first;
  };

  bool IsInsideStray(const Problem& problem);

  std::string file_;
  std::array<Places, kFaults> places_;
  std::string stray_;  // the path of the last element that stands between records
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_INPUT_PROBLEMREPORT_H_
