// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/tables/CellOf.h"

#include <zevo/Digit.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdint>

namespace zevo::saft {
namespace {

// Databases take numbers of some ten thousand digits; nobody writes one of a thousand.
constexpr size_t kLongestNumber = 1000;

constexpr size_t kDateLength = 10;  // of yyyy-mm-dd
constexpr size_t kTimeLength = 9;   // of Thh:mm:ss

// Whether a text has digits where the pattern has a 0, and its characters elsewhere.
bool IsLike(std::string_view text, std::string_view pattern) {
  return std::ranges::equal(text, pattern,
                            [](char c, char expected) { return expected == '0' ? IsDigit(c) : c == expected; });
}

int NumberAt(std::string_view text, size_t at, size_t digits) {
  int number = 0;
  std::from_chars(text.data() + at, text.data() + at + digits, number);
  return number;
}

bool IsZone(std::string_view text) {
  return text.empty() || text == "Z" || IsLike(text, "+00:00") || IsLike(text, "-00:00");
}

bool BeginsWithDay(std::string_view text) {
  if (!IsLike(text.substr(0, kDateLength), "0000-00-00")) return false;
  const std::chrono::year_month_day day{std::chrono::year(NumberAt(text, 0, 4)),
                                        std::chrono::month(static_cast<unsigned>(NumberAt(text, 5, 2))),
                                        std::chrono::day(static_cast<unsigned>(NumberAt(text, 8, 2)))};
  return day.ok() && day.year() > std::chrono::year(0);
}

std::optional<Cell> DateOf(std::string_view text) {
  if (!BeginsWithDay(text) || !IsZone(text.substr(kDateLength))) return std::nullopt;
  return text.substr(0, kDateLength);
}

std::optional<Cell> TimeOf(std::string_view text) {
  if (!BeginsWithDay(text)) return std::nullopt;
  const std::string_view time = text.substr(kDateLength);
  if (!IsLike(time.substr(0, kTimeLength), "T00:00:00")) return std::nullopt;
  if (NumberAt(time, 1, 2) > 23 || NumberAt(time, 4, 2) > 59 || NumberAt(time, 7, 2) > 59) return std::nullopt;
  size_t end = kTimeLength;
  if (time.substr(end).starts_with('.')) {
    while (++end < time.size() && IsDigit(time[end])) {
    }
    if (end == kTimeLength + 1) return std::nullopt;
  }
  if (!IsZone(time.substr(end))) return std::nullopt;
  return text.substr(0, kDateLength + end);
}

std::optional<Cell> IntegerOf(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

}  // namespace

std::optional<Cell> CellOf(std::string_view text, ColumnType type) {
  switch (type) {
    case ColumnType::kText:
      return text;
    case ColumnType::kInteger:
      return IntegerOf(text);
    case ColumnType::kNumber:
      if (text.size() > kLongestNumber || !Decimal::FromText(text)) return std::nullopt;
      return text;
    case ColumnType::kDate:
      return DateOf(text);
    case ColumnType::kTime:
      return TimeOf(text);
  }
  return std::nullopt;
}

}  // namespace zevo::saft
