// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/PlainNumber.h"

#include <algorithm>

namespace zevo::saft {

std::string PlainNumber(std::string_view number) {
  std::string plain;
  if (number.starts_with('-')) plain += '-';
  if (number.starts_with('-') || number.starts_with('+')) number.remove_prefix(1);
  number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
  if (number.empty() || number.starts_with('.')) plain += '0';
  if (number.ends_with('.')) number.remove_suffix(1);
  return plain += number;
}

size_t SignificantDigits(std::string_view plain) {
  constexpr std::string_view kOneToNine = "123456789";
  const size_t first = plain.find_first_of(kOneToNine);
  if (first == std::string_view::npos) return 0;
  const std::string_view between = plain.substr(first, plain.find_last_of(kOneToNine) + 1 - first);
  return between.size() - (between.find('.') == std::string_view::npos ? 0 : 1);
}

}  // namespace zevo::saft
