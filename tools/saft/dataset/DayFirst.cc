// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/DayFirst.h"

#include <chrono>
#include <cstddef>

#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/words/CsvWords.h"

namespace zevo::saft {
namespace {

// Takes the digits off the front.
std::string_view TakeDigits(std::string_view& text) {
  size_t count = 0;
  while (count < text.size() && text[count] >= '0' && text[count] <= '9') ++count;
  const std::string_view digits = text.substr(0, count);
  text.remove_prefix(count);
  return digits;
}

// Takes a number of one or two digits and the mark behind it, one of those given; nothing when they are not there.
std::string_view TakeShort(std::string_view& text, std::string_view marks) {
  std::string_view rest = text;
  const std::string_view digits = TakeDigits(rest);
  if (digits.empty() || digits.size() > 2 || rest.empty()) return {};
  if (marks.find(rest.front()) == std::string_view::npos) return {};
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
  const std::string_view hour = TakeShort(text, ":");
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
  std::string_view rest = cell;
  const std::string_view day = TakeShort(rest, "/-.");
  if (day.empty()) return std::nullopt;
  const std::string_view month = TakeShort(rest, cell.substr(day.size(), 1));
  if (month.empty()) return std::nullopt;
  const std::string_view year = TakeDigits(rest);
  if (year.size() == 2) throw BadValue(Say(words::kShortYear));
  if (year.size() != 4) FailWithForm(kind);
  if (!IsDay(year, month, day)) throw BadValue(Say(words::kNoSuchDay));
  const std::string date = std::string(year) + "-" + TwoDigits(month) + "-" + TwoDigits(day);
  if (rest.empty()) return date;
  const std::optional<std::string> time =
      kind == TextKind::kDateTime && rest.front() == ' ' ? TimeOf(rest.substr(1)) : std::nullopt;
  if (!time) FailWithForm(kind);
  return date + *time;
}

}  // namespace zevo::saft
