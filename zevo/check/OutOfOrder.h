// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_OUTOFORDER_H_
#define ZEVO_CHECK_OUTOFORDER_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zevo {

/// The fewest things without which the values of the others never decrease: those that stand out, by their places in
/// the list, ascending. Where several choices are as few, later things stand out.
///
/// Takes eight bytes for each thing from the first to the last that some other contradicts.
template <class ValueOf>
std::vector<uint32_t> OutOfOrder(std::span<const uint32_t> things, ValueOf valueOf) {
  const auto value = [&](size_t place) { return valueOf(things[place]); };
  // What none behind it undercuts stays in front, what none before it exceeds stays behind.
  size_t from = 0;
  while (from + 1 < things.size() && !(value(from + 1) < value(from))) ++from;
  size_t to = things.size();
  while (to > 1 && !(value(to - 1) < value(to - 2))) --to;
  if (from + 1 >= things.size()) return {};
  const auto lowest =
      value(static_cast<size_t>(std::ranges::min_element(things.subspan(from), {}, valueOf) - things.begin()));
  const auto highest =
      value(static_cast<size_t>(std::ranges::max_element(things.first(to), {}, valueOf) - things.begin()));
  while (from > 0 && lowest < value(from)) --from;
  while (to < things.size() && value(to) < highest) ++to;

  // The longest list of things that never decrease, from the last to the first: by its length, the place where one of
  // that length begins with the highest value, and for each thing the next in its list.
  std::vector<uint32_t> beginnings;
  std::vector<uint32_t> next(to - from);
  for (size_t place = to; place-- > from;) {
    const auto longer = std::ranges::partition_point(
        beginnings, [&](uint32_t beginning) { return !(value(beginning) < value(place)); });
    next[place - from] = static_cast<uint32_t>(longer == beginnings.begin() ? to : *std::prev(longer));
    if (longer == beginnings.end()) {
      beginnings.push_back(static_cast<uint32_t>(place));
    } else {
      *longer = static_cast<uint32_t>(place);
    }
  }
  std::vector<uint32_t> standing_out;
  size_t in_line = beginnings.empty() ? to : beginnings.back();
  for (size_t place = from; place < to; ++place) {
    if (place == in_line) {
      in_line = next[place - from];
    } else {
      standing_out.push_back(static_cast<uint32_t>(place));
    }
  }
  return standing_out;
}

}  // namespace zevo

#endif  // ZEVO_CHECK_OUTOFORDER_H_
