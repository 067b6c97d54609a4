// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/DecimalText.h"

#include <algorithm>
#include <cstddef>

namespace zevo::saft {
namespace {

/// What makes the value of a decimal text: no zeros before the whole part or after the fraction.
struct Value {
  bool negative;
  std::string_view whole;
  std::string_view fraction;

  bool operator==(const Value&) const = default;
};

Value ValueOf(std::string_view text) {
  Value value{.negative = text.starts_with('-'), .whole = text, .fraction = {}};
  if (value.negative || text.starts_with('+')) value.whole.remove_prefix(1);
  if (const size_t point = value.whole.find('.'); point != std::string_view::npos) {
    value.fraction = value.whole.substr(point + 1);
    value.whole = value.whole.substr(0, point);
  }
  value.whole.remove_prefix(std::min(value.whole.find_first_not_of('0'), value.whole.size()));
  value.fraction = value.fraction.substr(0, value.fraction.find_last_not_of('0') + 1);
  if (value.whole.empty() && value.fraction.empty()) value.negative = false;
  return value;
}

}  // namespace

bool IsDecimalText(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const auto digits = std::ranges::count_if(text, isDigit);
  const auto points = std::ranges::count(text, '.');
  return digits > 0 && points <= 1 && static_cast<size_t>(digits + points) == text.size();
}

bool IsSameNumber(std::string_view left, std::string_view right) {
  return left == right || ValueOf(left) == ValueOf(right);
}

}  // namespace zevo::saft
