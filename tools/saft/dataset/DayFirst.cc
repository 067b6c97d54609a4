// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/DayFirst.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>

#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/words/CsvWords.h"

namespace zevo::saft {
namespace {

// Takes the digits off the front.
std::string_view TakeDigits(std::string_view& text) {
  const size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
  const std::string_view digits = text.substr(0, count);
  text.remove_prefix(count);
  return digits;
}

// Takes a number of one or two digits and the character behind it; nothing when they are not there.
std::string_view TakeShort(std::string_view& text, char mark) {
  std::string_view rest = text;
  const std::string_view digits = TakeDigits(rest);
  if (digits.empty() || digits.size() > 2 || !rest.starts_with(mark)) return {};
  text = rest.substr(1);
  return digits;
}

std::string TwoDigits(std::string_view digits) { return std::string(2 - digits.size(), '0').append(digits); }

unsigned NumberOf(std::string_view digits) {
  unsigned number = 0;
  for (const char digit : digits) number = number * 10 + static_cast<unsigned>(digit - '0');
  return number;
}

bool IsDay(std::string_view year, std::string_view month, std::string_view day) {
  using Date = std::chrono::year_month_day;
  return Date(std::chrono::year(static_cast<int>(NumberOf(year))), std::chrono::month(NumberOf(month)),
              std::chrono::day(NumberOf(day)))
      .ok();
}

// "Thh:mm:ss" of "h:mm" or "h:mm:ss".
std::optional<std::string> TimeOf(std::string_view text) {
  const std::string_view hour = TakeShort(text, ':');
  const std::string_view minute = TakeDigits(text);
  std::string_view second = "00";
  if (text.starts_with(':')) {
    text.remove_prefix(1);
    second = TakeDigits(text);
  }
  const bool isTime = !hour.empty() && minute.size() == 2 && second.size() == 2 && text.empty() &&
                      NumberOf(hour) < 24 && NumberOf(minute) < 60 && NumberOf(second) < 60;
  if (!isTime) return std::nullopt;
  return "T" + TwoDigits(hour) + ":" + std::string(minute) + ":" + std::string(second);
}

[[noreturn]] void FailWithForm(TextKind kind) {
  throw BadValue(Say(kind == TextKind::kDateTime ? words::kNotADateTime : words::kNotADate));
}

}  // namespace

std::optional<std::string> DateFromDayFirst(std::string_view cell, TextKind kind) {
  const char mark = cell.substr(0, 3).find('/') != std::string_view::npos ? '/' : '-';
  const std::string_view day = TakeShort(cell, mark);
  const std::string_view month = day.empty() ? day : TakeShort(cell, mark);
  if (month.empty()) return std::nullopt;
  const std::string_view year = TakeDigits(cell);
  if (year.size() == 2) throw BadValue(Say(words::kShortYear));
  if (year.size() != 4) FailWithForm(kind);
  if (!IsDay(year, month, day)) throw BadValue(Say(words::kNoSuchDay));
  const std::string date = std::string(year) + "-" + TwoDigits(month) + "-" + TwoDigits(day);
  if (cell.empty()) return date;
  const std::optional<std::string> time =
      kind == TextKind::kDateTime && cell.front() == ' ' ? TimeOf(cell.substr(1)) : std::nullopt;
  if (!time) FailWithForm(kind);
  return date + *time;
}

}  // namespace zevo::saft
