// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_ERRORS_NEARESTNAME_H_
#define ZEVO_TOOLS_SAFT_ERRORS_NEARESTNAME_H_

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zevo::saft {

/// Which of the known names, at least one, a user may have meant: the nearest by the letters that differ, whatever
/// their case. Of equally near ones the first.
std::string_view NearestName(std::string_view given, std::span<const std::string_view> known);

/// The same among things that have names, at least one: `name` gives that of each.
template <class Named, class Name>
std::string_view NearestName(std::string_view given, const Named& known, Name name) {
  std::vector<std::string_view> names(known.size());
  std::ranges::transform(known, names.begin(), name);
  return NearestName(given, names);
}

/// Asks whether that name was meant, as it follows on what is told: "; did you mean Customer?". Nothing where less than
/// half of the letters agree.
std::string DidYouMean(std::string_view given, std::span<const std::string_view> known);

template <class Named, class Name>
std::string DidYouMean(std::string_view given, const Named& known, Name name) {
  std::vector<std::string_view> names(known.size());
  std::ranges::transform(known, names.begin(), name);
  return DidYouMean(given, names);
}

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_ERRORS_NEARESTNAME_H_
