// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/internal/HelperTransformations.h>

#include <zevo/Error.h>
#include <zevo/model/internal/DecimalNumber.h>
#include <zevo/platform/LetterCase.h>
#include <zevo/platform/RegionalSettings.h>
#include <zevo/platform/Text.h>

#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>
#include <system_error>

namespace zevo {
namespace {

constexpr std::string_view kPoint = ".";
constexpr std::string_view kBlanks = " \t\r\n";

uint64_t Magnitude(Amount value) {
  const auto scaled = static_cast<uint64_t>(value.Scaled());
  return value.Scaled() < 0 ? ~scaled + 1 : scaled;
}

// Appends the last of a number's digits, with zeros in front where it has fewer.
void AppendDigits(uint64_t value, size_t count, NumberText& text) {
  std::array<char, 4> digits;
  for (size_t i = count; i-- > 0; value /= 10) digits[i] = static_cast<char>('0' + value % 10);
  text.Append(std::string_view(digits.data(), count));
}

// Not all texts need the separator, so it is asked for when one does.

template <class Separator>
NumberText ShortestText(Amount value, const Separator& separator) {
  NumberText text;
  const uint64_t magnitude = Magnitude(value);
  if (value.Scaled() < 0) text.Append('-');
  text.Append(magnitude / Amount::kScale);
  const uint64_t fraction = magnitude % Amount::kScale;
  if (fraction == 0) return text;
  text.Append(separator());
  AppendDigits(fraction, 4, text);
  text.DropZeros();
  return text;
}

template <class Separator>
NumberText ShortestText(float value, const Separator& separator) {
  if (!std::isfinite(value)) throw MakeRunTimeError(RunTimeError::kInvalidCall);
  NumberText text;
  // Up to here a float has each whole number, so none is shortened, and there is 0.
  constexpr float kMostWhole = 1 << 24;
  if (std::fabs(value) < kMostWhole && std::trunc(value) == value) {
    if (value < 0) text.Append('-');
    text.Append(static_cast<uint64_t>(std::fabs(value)));
    return text;
  }
  // The shortest digits, as d.ddde±xx, then laid out without the exponent.
  std::array<char, 32> scientific;
  const char* const end = std::to_chars(scientific.data(), scientific.data() + scientific.size(), std::fabs(value),
                                        std::chars_format::scientific)
                              .ptr;
  std::string_view digits(scientific.data(), static_cast<size_t>(end - scientific.data()));
  const size_t e = digits.find('e');
  int exponent = 0;
  std::from_chars(digits.data() + e + (digits[e + 1] == '+' ? 2 : 1), end, exponent);
  std::array<char, 16> significant;
  size_t count = 0;
  for (const char c : digits.substr(0, e)) {
    if (c != '.') significant[count++] = c;
  }
  const std::string_view all(significant.data(), count);
  if (value < 0) text.Append('-');
  if (exponent < 0) {
    text.Append('0');
    text.Append(separator());
    text.Append(static_cast<size_t>(-exponent - 1), '0');
    text.Append(all);
    return text;
  }
  const size_t whole = static_cast<size_t>(exponent) + 1;
  text.Append(all.substr(0, whole));
  if (count <= whole) {
    text.Append(whole - count, '0');
  } else {
    text.Append(separator());
    text.Append(all.substr(whole));
  }
  return text;
}

std::string_view Trim(std::string_view text, std::string_view blanks) {
  const size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::string_view SkipBlanks(std::string_view text) {
  const size_t first = text.find_first_not_of(kBlanks);
  return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

// The number that a text holds; blanks around it are allowed, else raises error 13.
DecimalNumber StrictNumber(std::string_view text) {
  const std::string_view number = Trim(text, kBlanks);
  const DecimalNumber decimal(number,
                              {.separator = DecimalSeparator(), .thousands = ThousandsSeparator(), .exponent = true});
  if (!decimal.HasDigits() || decimal.Length() != number.size()) {
    throw MakeRunTimeError(RunTimeError::kTypeMismatch, text);
  }
  return decimal;
}

// The short way for most numbers in a file: digits, with up to `decimals` more behind a point. Gives the number times
// ten to the power of `decimals`; nothing for any other text, such as one with a sign or an exponent, or of more than
// 14 characters. Takes a fifth of the time of DecimalNumber.
std::optional<int64_t> PlainNumber(std::string_view text, int decimals) {
  constexpr size_t kLongest = 14;
  if (text.empty() || text.size() > kLongest || text.front() == '.' || text.back() == '.') return std::nullopt;
  int64_t number = 0;
  bool fraction = false;
  for (const char c : text) {
    if (c >= '0' && c <= '9') {
      number = number * 10 + (c - '0');
      if (fraction && --decimals < 0) return std::nullopt;
    } else if (c == '.' && decimals > 0 && !fraction) {
      fraction = true;
    } else {
      return std::nullopt;
    }
  }
  for (; decimals > 0; --decimals) number *= 10;
  return number;
}

// The number in a run of digits, or -1 when they are not all digits.
int Digits(std::string_view text, size_t at, size_t count) {
  int value = 0;
  for (size_t i = at; i < at + count; ++i) {
    if (i >= text.size() || text[i] < '0' || text[i] > '9') return -1;
    value = value * 10 + (text[i] - '0');
  }
  return value;
}

bool IsCalendarDate(int year, int month, int day) {
  if (year < 1 || month < 1 || month > 12 || day < 1) return false;
  constexpr std::array kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return day <= kDays[static_cast<size_t>(month) - 1] + (month == 2 && leap ? 1 : 0);
}

// Nothing, or a time (hh:mm, perhaps with seconds, a fraction of them and a zone) after a blank or a "T".
bool IsTimePart(std::string_view text) {
  if (text.empty()) return true;
  if ((text[0] != ' ' && text[0] != 'T') || text.size() < 6 || text[3] != ':') return false;
  const auto inRange = [&](size_t at, int limit) {
    const int value = Digits(text, at, 2);
    return value >= 0 && value < limit;
  };
  if (!inRange(1, 24) || !inRange(4, 60)) return false;
  text.remove_prefix(6);
  if (text.empty()) return true;
  if (text[0] == ':') {
    if (!inRange(1, 60)) return false;
    text.remove_prefix(3);
    if (!text.empty() && text[0] == '.') {
      const size_t end = text.find_first_not_of("0123456789", 1);
      if (end == 1 || text.size() == 1) return false;
      text.remove_prefix(end == std::string_view::npos ? text.size() : end);
    }
  }
  if (text.empty() || text == "Z") return true;
  return text.size() == 6 && (text[0] == '+' || text[0] == '-') && text[3] == ':' && inRange(1, 24) && inRange(4, 60);
}

}  // namespace

NumberText AmountText(Amount value) { return ShortestText(value, &DecimalSeparator); }

NumberText AmountTextWithPoint(Amount value) {
  return ShortestText(value, [] { return kPoint; });
}

NumberText TwoDecimalsText(Amount value) {
  const uint64_t hundredths = (Magnitude(value) + 50) / 100;
  NumberText text;
  if (value.Scaled() < 0 && hundredths != 0) text.Append('-');
  if (hundredths >= 100) text.Append(hundredths / 100);
  text.Append(DecimalSeparator());
  AppendDigits(hundredths % 100, 2, text);
  return text;
}

NumberText SingleText(float value) { return ShortestText(value, &DecimalSeparator); }

NumberText SingleTextWithPoint(float value) {
  return ShortestText(value, [] { return kPoint; });
}

NumberText IntegerText(int32_t value) {
  NumberText text;
  if (value < 0) text.Append('-');
  text.Append(static_cast<uint64_t>(std::llabs(value)));
  return text;
}

std::string_view FlagText(bool value) { return value ? "1" : "0"; }

Amount AmountFromText(std::string_view text) {
  if (const auto plain = PlainNumber(text, 4)) return Amount::FromScaled(*plain);
  return DecimalNumber(SkipBlanks(text), {.separator = kPoint, .thousands = {}, .exponent = true}).ToAmount();
}

float SingleFromText(std::string_view text) {
  text = SkipBlanks(text);
  const DecimalNumber number(text, {.separator = kPoint, .thousands = {}, .exponent = true});
  text = text.substr(0, number.Length());
  if (text.starts_with('+')) text.remove_prefix(1);
  float value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::result_out_of_range && number.HasWholePart()) throw MakeRunTimeError(RunTimeError::kOverflow);
  return value;
}

Amount CurrencyFromText(std::string_view text) {
  if (const auto whole = PlainNumber(text, 0)) return Amount::FromScaled(*whole * Amount::kScale);
  return StrictNumber(text).ToAmount();
}

int32_t IntegerFromText(std::string_view text) {
  const auto plain = PlainNumber(text, 0);
  const int64_t whole = plain ? *plain : StrictNumber(text).ToInteger();
  if (whole < std::numeric_limits<int32_t>::min() || whole > std::numeric_limits<int32_t>::max()) {
    throw MakeRunTimeError(RunTimeError::kOverflow, text);
  }
  return static_cast<int32_t>(whole);
}

bool FlagFromText(std::string_view text) {
  const std::string_view word = Trim(text, kBlanks);
  if (EqualIgnoringCase(word, "True")) return true;
  if (EqualIgnoringCase(word, "False")) return false;
  return !StrictNumber(text).IsZero();
}

std::string DateText(std::string_view text) {
  const std::string_view date = Trim(text, kBlanks);
  const auto separatedAt = [&](size_t first, size_t second) {
    return date.size() >= 10 && (date[first] == '-' || date[first] == '/') && date[first] == date[second];
  };
  int year = -1;
  int month = -1;
  int day = -1;
  if (separatedAt(4, 7)) {
    year = Digits(date, 0, 4);
    month = Digits(date, 5, 2);
    day = Digits(date, 8, 2);
  } else if (separatedAt(2, 5)) {
    day = Digits(date, 0, 2);
    month = Digits(date, 3, 2);
    year = Digits(date, 6, 4);
  }
  if (!IsCalendarDate(year, month, day) || !IsTimePart(date.substr(10))) return std::string(text);
  NumberText result;
  AppendDigits(static_cast<uint64_t>(year), 4, result);
  result.Append('-');
  AppendDigits(static_cast<uint64_t>(month), 2, result);
  result.Append('-');
  AppendDigits(static_cast<uint64_t>(day), 2, result);
  return std::string{std::string_view{result}};
}

std::string Escape(std::string_view text) {
  std::string escaped = ReplaceAll(text, "&", "&amp;");
  escaped = ReplaceAll(escaped, "<", "&lt;");
  escaped = ReplaceAll(escaped, ">", "&gt;");
  return ReplaceAll(escaped, "\"", "&quot;");
}

std::string Unescape(std::string_view text) {
  std::string unescaped = ReplaceAll(text, "&lt;", "<");
  unescaped = ReplaceAll(unescaped, "&gt;", ">");
  unescaped = ReplaceAll(unescaped, "&amp;", "&");
  return ReplaceAll(unescaped, "&quot;", "\"");
}

}  // namespace zevo
