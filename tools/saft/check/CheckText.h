// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CHECK_CHECKTEXT_H_
#define ZEVO_TOOLS_SAFT_CHECK_CHECKTEXT_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>

#include "tools/saft/check/CheckReport.h"

namespace zevo::saft {

/// How many files there are of each verdict.
using VerdictCounts = std::array<int64_t, static_cast<size_t>(CheckVerdict::kNotJudged) + 1>;

/// Prints for people what a check says of files.
class CheckText {
 public:
  /// `colour` is whether the output understands the escapes of a terminal, `width` how many characters its lines have,
  /// at which findings are broken.
  CheckText(std::ostream& out, bool colour, std::optional<size_t> width) : out_(out), colour_(colour), width_(width) {}

  /// The findings of each rule, the worst rules first, then the verdict. With a heading where there are other files.
  void PrintFindings(const CheckReport& report, bool with_heading) const;
  /// A line for each rule, then the verdict, set off where there are other files.
  void PrintSummary(const CheckReport& report, bool with_others) const;
  /// How many files there were of each verdict.
  void PrintFiles(const VerdictCounts& files) const;

 private:
  void PrintGroup(const CheckReport& report, size_t rule) const;
  void PrintFinding(const Finding& finding, Severity usual) const;
  void PrintVerdict(const CheckReport& report) const;
  std::string Coloured(Severity severity, const std::string& text) const;

  std::ostream& out_;
  bool colour_;
  std::optional<size_t> width_;
};

/// A whole number for people: "12,000", in Portuguese "12 000".
std::string Grouped(int64_t number);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CHECK_CHECKTEXT_H_
