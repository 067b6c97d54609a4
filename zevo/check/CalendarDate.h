// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_CALENDARDATE_H_
#define ZEVO_CHECK_CALENDARDATE_H_

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>

namespace zevo {

/// A day of the calendar. Of one with a time zone, its date.
struct CalendarDate {
  int64_t year = 0;
  int month = 0;
  int day = 0;

  /// The date of a text as XML Schema writes dates, such as "2008-03-05", perhaps with a time zone. Nothing for another
  /// text, nor for a day that there is not.
  static std::optional<CalendarDate> FromText(std::string_view text);
  /// Such as "2008-03-05".
  std::string Text() const;
  /// Of the 29 of February, the 1 of March.
  CalendarDate YearLater() const;
  CalendarDate NextDay() const;
  CalendarDate DayBefore() const;

  friend bool operator==(const CalendarDate&, const CalendarDate&) = default;
  friend std::strong_ordering operator<=>(const CalendarDate& left, const CalendarDate& right) {
    return std::tie(left.year, left.month, left.day) <=> std::tie(right.year, right.month, right.day);
  }
};

/// A day and a time of it, to the second.
struct CalendarTime {
  CalendarDate date;
  int hour = 0;  ///< 24 for the end of the day, which XML Schema knows
  int minute = 0;
  int second = 0;
  bool has_fraction = false;
  bool has_zone = false;

  /// The time of a text such as "2008-03-05T10:30:00", perhaps with fractions of a second and a time zone.
  static std::optional<CalendarTime> FromText(std::string_view text);
  /// Such as "2008-03-05T10:30:00": without fractions and time zone.
  std::string Text() const;
};

/// Whether a date has a time zone.
bool HasZone(std::string_view date);

}  // namespace zevo

#endif  // ZEVO_CHECK_CALENDARDATE_H_
