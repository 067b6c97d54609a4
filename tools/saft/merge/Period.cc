// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/merge/Period.h"

#include <zevo/Digit.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdio>

#include "tools/saft/input/ScannedElements.h"

namespace zevo::saft {
namespace {

std::optional<unsigned> NumberIn(std::string_view digits) {
  unsigned number = 0;
  if (digits.empty() || !std::ranges::all_of(digits, IsDigit)) return std::nullopt;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

}  // namespace

bool Period::IsLongerThanYear() const {
  const std::chrono::year_month_day first(start);
  std::chrono::year_month_day next = first + std::chrono::years(1);
  // A year from the 29th of February ends with February.
  if (!next.ok()) next = std::chrono::sys_days(next.year() / next.month() / std::chrono::last) + std::chrono::days(1);
  return end >= std::chrono::sys_days{next};
}

std::optional<std::chrono::sys_days> DayOf(std::string_view text) {
  constexpr size_t kLength = 10;
  text = Trimmed(text);
  if (text.size() < kLength || text[4] != '-' || text[7] != '-') return std::nullopt;
  // Behind the date there may be a time zone.
  if (text.size() > kLength && text[kLength] != 'Z' && text[kLength] != '+' && text[kLength] != '-') {
    return std::nullopt;
  }
  const auto year = NumberIn(text.substr(0, 4));
  const auto month = NumberIn(text.substr(5, 2));
  const auto day = NumberIn(text.substr(8, 2));
  if (!year || !month || !day) return std::nullopt;
  const std::chrono::year_month_day date(std::chrono::year(static_cast<int>(*year)), std::chrono::month(*month),
                                         std::chrono::day(*day));
  return date.ok() ? std::optional(std::chrono::sys_days{date}) : std::nullopt;
}

std::string TextOf(std::chrono::sys_days day) {
  const std::chrono::year_month_day date(day);
  std::array<char, 16> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
  return text.data();
}

}  // namespace zevo::saft
