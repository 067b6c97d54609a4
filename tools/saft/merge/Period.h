// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_MERGE_PERIOD_H_
#define ZEVO_TOOLS_SAFT_MERGE_PERIOD_H_

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace zevo::saft {

/// The days that an audit file is about, the last included.
struct Period {
  std::chrono::sys_days start;
  std::chrono::sys_days end;

  /// Whether it takes in more days than a year from its first.
  bool IsLongerThanYear() const;
};

/// The day of a date as a file has it, whatever its time zone; nothing for any other text.
std::optional<std::chrono::sys_days> DayOf(std::string_view text);

/// A day as a file has it: "2012-01-31".
std::string TextOf(std::chrono::sys_days day);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_MERGE_PERIOD_H_
