// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_ERRORS_NEARESTNAME_H_
#define ZEVO_TOOLS_SAFT_ERRORS_NEARESTNAME_H_

#include <span>
#include <string_view>

namespace zevo::saft {

/// Which of the known names, at least one, a user may have meant: the nearest by the letters that differ, whatever
/// their case. Of equally near ones the first.
std::string_view NearestName(std::string_view given, std::span<const std::string_view> known);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_ERRORS_NEARESTNAME_H_
