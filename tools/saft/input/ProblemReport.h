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

  /// Counts a problem of the record at which the scanner stands.
  void Add(const AuditFileScanner& scanner, const Problem& problem);

  /// Whether a text is no value of its element, such as an amount that is no number.
  bool HasUnreadable() const { return places_[static_cast<size_t>(Fault::kUnreadable)].count > 0; }
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

  std::string file_;
  std::array<Places, kFaults> places_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_INPUT_PROBLEMREPORT_H_
