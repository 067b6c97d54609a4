// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/CalendarDate.h>

#include <zevo/Digit.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace zevo {
namespace {

// Years of more digits are none of any file.
constexpr size_t kMostYearDigits = 9;

// Takes a character off the front.
bool TakeMark(std::string_view& text, char expected) {
  if (!text.starts_with(expected)) return false;
  text.remove_prefix(1);
  return true;
}

bool TakeTwoDigits(std::string_view& text, int& number) {
  if (text.size() < 2 || !IsDigit(text[0]) || !IsDigit(text[1])) return false;
  number = (text[0] - '0') * 10 + (text[1] - '0');
  text.remove_prefix(2);
  return true;
}

bool IsLeap(int64_t year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int DaysIn(int64_t year, int month) {
  constexpr std::array kDays{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeap(year) ? 29 : kDays[static_cast<size_t>(month - 1)];
}

std::optional<CalendarDate> Checked(const CalendarDate& date) {
  if (date.year == 0 || date.month < 1 || date.month > 12) return std::nullopt;
  // Each month has 28 days.
  if (date.day < 1 || (date.day > 28 && date.day > DaysIn(date.year, date.month))) return std::nullopt;
  return date;
}

// Whether a text begins as nearly all dates do: 2012-12-31.
bool IsPlainDate(std::string_view text) {
  if (text.size() < 10 || text[4] != '-' || text[7] != '-') return false;
  constexpr std::array<size_t, 8> kDigits{0, 1, 2, 3, 5, 6, 8, 9};
  return std::ranges::all_of(kDigits, [&](size_t at) { return IsDigit(text[at]); });
}

int TwoDigitsAt(std::string_view text, size_t from) { return (text[from] - '0') * 10 + (text[from + 1] - '0'); }

std::optional<CalendarDate> TakeDate(std::string_view& text) {
  CalendarDate date;
  if (IsPlainDate(text)) {
    date = {TwoDigitsAt(text, 0) * 100 + TwoDigitsAt(text, 2), TwoDigitsAt(text, 5), TwoDigitsAt(text, 8)};
    text.remove_prefix(10);
    return Checked(date);
  }
  const bool negative = TakeMark(text, '-');
  size_t digits = 0;
  for (; digits < text.size() && digits <= kMostYearDigits && IsDigit(text[digits]); ++digits) {
    date.year = date.year * 10 + (text[digits] - '0');
  }
  if (digits < 4 || digits > kMostYearDigits || (digits > 4 && text[0] == '0')) return std::nullopt;
  if (negative) date.year = -date.year;
  text.remove_prefix(digits);
  if (!TakeMark(text, '-') || !TakeTwoDigits(text, date.month)) return std::nullopt;
  if (!TakeMark(text, '-') || !TakeTwoDigits(text, date.day)) return std::nullopt;
  return Checked(date);
}

// What may stand at the end: nothing, or a time zone.
bool IsZone(std::string_view text) {
  if (text.empty() || text == "Z") return true;
  int hours = 0;
  int minutes = 0;
  if (!TakeMark(text, '+') && !TakeMark(text, '-')) return false;
  if (!TakeTwoDigits(text, hours) || !TakeMark(text, ':') || !TakeTwoDigits(text, minutes)) return false;
  if (!text.empty()) return false;
  return hours < 14 ? minutes < 60 : hours == 14 && minutes == 0;
}

std::string TwoDigits(int number) {
  return {static_cast<char>('0' + number / 10), static_cast<char>('0' + number % 10)};
}

}  // namespace

std::optional<CalendarDate> CalendarDate::FromText(std::string_view text) {
  std::string_view rest = TrimWhiteSpace(text);
  const auto date = TakeDate(rest);
  return IsZone(rest) ? date : std::nullopt;
}

CalendarDate CalendarDate::YearLater() const {
  if (day > DaysIn(year + 1, month)) return {year + 1, month + 1, 1};
  return {year + 1, month, day};
}

CalendarDate CalendarDate::NextDay() const {
  if (day < DaysIn(year, month)) return {year, month, day + 1};
  if (month < 12) return {year, month + 1, 1};
  return {year + 1, 1, 1};
}

CalendarDate CalendarDate::DayBefore() const {
  if (day > 1) return {year, month, day - 1};
  if (month > 1) return {year, month - 1, DaysIn(year, month - 1)};
  return {year - 1, 12, 31};
}

std::string CalendarDate::Text() const {
  std::string text = std::to_string(year < 0 ? -year : year);
  if (text.size() < 4) text.insert(0, 4 - text.size(), '0');
  if (year < 0) text.insert(0, 1, '-');
  return text.append("-").append(TwoDigits(month)).append("-").append(TwoDigits(day));
}

std::optional<CalendarTime> CalendarTime::FromText(std::string_view text) {
  std::string_view rest = TrimWhiteSpace(text);
  const auto date = TakeDate(rest);
  CalendarTime time;
  if (!date || !TakeMark(rest, 'T') || !TakeTwoDigits(rest, time.hour)) return std::nullopt;
  if (!TakeMark(rest, ':') || !TakeTwoDigits(rest, time.minute)) return std::nullopt;
  if (!TakeMark(rest, ':') || !TakeTwoDigits(rest, time.second)) return std::nullopt;
  if (time.hour > 24 || time.minute > 59 || time.second > 59) return std::nullopt;
  bool zero_fraction = true;
  if (TakeMark(rest, '.')) {
    time.has_fraction = true;
    if (rest.empty() || !IsDigit(rest[0])) return std::nullopt;
    for (; !rest.empty() && IsDigit(rest[0]); rest.remove_prefix(1)) {
      zero_fraction = zero_fraction && rest[0] == '0';
    }
  }
  if (time.hour == 24 && (time.minute != 0 || time.second != 0 || !zero_fraction)) return std::nullopt;
  if (!IsZone(rest)) return std::nullopt;
  time.date = *date;
  time.has_zone = !rest.empty();
  return time;
}

std::string CalendarTime::Text() const {
  std::string text = date.Text();
  text.append("T").append(TwoDigits(hour)).append(":").append(TwoDigits(minute));
  return text.append(":").append(TwoDigits(second));
}

bool HasZone(std::string_view date) {
  // The date itself ends in two digits behind a hyphen.
  std::string_view rest = TrimWhiteSpace(date);
  TakeDate(rest);
  return !rest.empty();
}

}  // namespace zevo
