// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CHECK_CHECKREPORT_H_
#define ZEVO_TOOLS_SAFT_CHECK_CHECKREPORT_H_

#include <zevo/adapters.h>

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace zevo::saft {

/// How many findings there are of each severity.
using SeverityCounts = std::array<int64_t, static_cast<size_t>(Severity::kError) + 1>;

/// What a check says of one file.
struct CheckReport {
  std::string file;     ///< as the user called it
  std::string version;  ///< of the file; empty where it is not known
  CheckVerdict verdict = CheckVerdict::kNotJudged;
  std::string error;                   ///< why the file could not be judged, in the language spoken; else empty
  bool is_another_file = false;        ///< of another version or no audit file: the error says what the finding does
  std::vector<Finding> findings;       ///< those told, by place
  std::vector<SeverityCounts> counts;  ///< of all findings, by rule in the order of the rules
  int64_t documents = 0;               ///< that were judged
  int64_t transactions = 0;            ///< that were judged
};

/// Checks a file, "-" being the standard input, and shows on a terminal how far it is. Ctrl-C ends the program.
CheckReport CheckFile(AuditFileChecker& checker, const std::string& file);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CHECK_CHECKREPORT_H_
