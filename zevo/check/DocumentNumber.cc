// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/DocumentNumber.h>

#include <zevo/Digit.h>

#include <algorithm>
#include <cstddef>

namespace zevo {

std::optional<DocumentNumber> DocumentNumber::FromText(std::string_view text) {
  const size_t slash = text.rfind('/');
  if (slash == std::string_view::npos) return std::nullopt;
  DocumentNumber number{.series = text.substr(0, slash), .code = {}, .name = {}, .digits = text.substr(slash + 1)};
  const size_t space = number.series.find(' ');
  if (space == 0 || space == std::string_view::npos || number.digits.empty()) return std::nullopt;
  if (!std::ranges::all_of(number.digits, IsDigit)) return std::nullopt;
  number.code = number.series.substr(0, space);
  number.name = number.series.substr(space + 1);
  return number;
}

std::string_view DocumentNumber::Significant() const {
  return digits.substr(std::min(digits.find_first_not_of('0'), digits.size()));
}

}  // namespace zevo
