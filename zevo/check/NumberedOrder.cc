// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/NumberedOrder.h>

#include <zevo/Digit.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <cstddef>

namespace zevo {
namespace {

// Takes a number off the front, without the zeros in front of it.
std::string_view TakeNumber(std::string_view& text) {
  size_t end = 0;
  while (end < text.size() && IsDigit(text[end])) ++end;
  size_t from = 0;
  while (from < end && text[from] == '0') ++from;
  const std::string_view number = text.substr(from, end - from);
  text.remove_prefix(end);
  return number;
}

}  // namespace

bool IsNumberedBefore(std::string_view left, std::string_view right) {
  for (;;) {
    const size_t shorter = std::min(left.size(), right.size());
    size_t same = 0;
    while (same < shorter && left[same] == right[same]) ++same;
    // A number that they differ in begins before.
    while (same > 0 && IsDigit(left[same - 1])) --same;
    left.remove_prefix(same);
    right.remove_prefix(same);
    if (left.empty() || right.empty()) return !right.empty();
    if (!IsDigit(left[0]) || !IsDigit(right[0])) return Byte(left[0]) < Byte(right[0]);
    const std::string_view of_left = TakeNumber(left);
    const std::string_view of_right = TakeNumber(right);
    if (of_left.size() != of_right.size()) return of_left.size() < of_right.size();
    if (of_left != of_right) return of_left < of_right;
  }
}

}  // namespace zevo
