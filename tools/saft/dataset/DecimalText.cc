// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/DecimalText.h"

#include <algorithm>
#include <array>
#include <charconv>
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

bool IsSameNumber(std::string_view left, std::string_view right) {
  return left == right || ValueOf(left) == ValueOf(right);
}

std::string TextFromSingle(float value) {
  if (value == 0) return "0";
  // As d.ddde±xx: in fixed notation, the digits of a large number would go on to those that the float does not tell.
  std::array<char, 32> scientific{};
  const char* const end =
      std::to_chars(scientific.data(), scientific.data() + scientific.size(), value, std::chars_format::scientific).ptr;
  const std::string_view all(scientific.data(), static_cast<size_t>(end - scientific.data()));
  const size_t e = all.find('e');
  int exponent = 0;
  std::from_chars(all.data() + e + (all[e + 1] == '+' ? 2 : 1), end, exponent);
  std::string digits;
  for (const char c : all.substr(0, e)) {
    if (c >= '0' && c <= '9') digits += c;
  }
  const std::string sign = value < 0 ? "-" : "";
  if (exponent < 0) return sign + "0." + std::string(static_cast<size_t>(-exponent - 1), '0') + digits;
  const size_t whole = static_cast<size_t>(exponent) + 1;
  if (digits.size() <= whole) return sign + digits + std::string(whole - digits.size(), '0');
  return sign + digits.insert(whole, ".");
}

}  // namespace zevo::saft
