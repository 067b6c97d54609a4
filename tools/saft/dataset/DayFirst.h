// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_DAYFIRST_H_
#define ZEVO_TOOLS_SAFT_DATASET_DAYFIRST_H_

#include <zevo/adapters.h>

#include <optional>
#include <string>
#include <string_view>

namespace zevo::saft {

/// The date of a cell that has the day first, such as 31/12/2012, 1/2/2012, 31-12-2012 or 31.12.2012, as a dataset
/// has it: 2012-12-31. A property that is a date and a time may have one, as in 31/12/2012 9:30. Nothing for a cell
/// that does not begin with a day and a month so; throws `BadValue` for one that does and is no date.
std::optional<std::string> DateFromDayFirst(std::string_view cell, TextKind kind);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_DAYFIRST_H_
