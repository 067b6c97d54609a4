// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/internal/WholeText.h>

#include <zevo/Digit.h>
#include <zevo/platform/Text.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>

namespace zevo {
namespace {

constexpr int kDecimals = 4;

bool AreDigits(std::string_view text) { return std::ranges::all_of(text, IsDigit); }

/// A decimal number in its parts: its digits before the point without zeros in front, and those behind it without
/// zeros at the end.
struct DecimalParts {
  bool negative = false;
  std::string_view whole;
  std::string_view fraction;

  bool IsZero() const { return whole.empty() && fraction.empty(); }
  friend bool operator==(const DecimalParts& left, const DecimalParts& right) {
    return left.whole == right.whole && left.fraction == right.fraction &&
           (left.negative == right.negative || left.IsZero());
  }
};

std::optional<DecimalParts> DecimalOf(std::string_view text) {
  text = TrimWhiteSpace(text);
  DecimalParts decimal;
  if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
    decimal.negative = text[0] == '-';
    text.remove_prefix(1);
  }
  const size_t point = std::min(text.find('.'), text.size());
  decimal.whole = text.substr(0, point);
  decimal.fraction = text.substr(std::min(point + 1, text.size()));
  if (decimal.whole.empty() && decimal.fraction.empty()) return std::nullopt;
  if (!AreDigits(decimal.whole) || !AreDigits(decimal.fraction)) return std::nullopt;
  decimal.whole.remove_prefix(std::min(decimal.whole.find_first_not_of('0'), decimal.whole.size()));
  decimal.fraction = decimal.fraction.substr(0, decimal.fraction.find_last_not_of('0') + 1);
  return decimal;
}

}  // namespace

std::optional<WholeValue<Amount>> WholeAmount(std::string_view text) {
  const std::optional<DecimalParts> decimal = DecimalOf(text);
  // An amount has no more.
  if (!decimal || decimal->whole.size() > 15) return std::nullopt;
  uint64_t scaled = 0;
  for (const char digit : decimal->whole) scaled = scaled * 10 + static_cast<uint64_t>(digit - '0');
  for (size_t i = 0; i < kDecimals; ++i) {
    scaled = scaled * 10 + (i < decimal->fraction.size() ? static_cast<uint64_t>(decimal->fraction[i] - '0') : 0);
  }
  const bool exact = decimal->fraction.size() <= kDecimals;
  if (!exact && decimal->fraction[kDecimals] >= '5') ++scaled;
  constexpr auto kGreatest = static_cast<uint64_t>(std::numeric_limits<int64_t>::max());
  if (scaled > kGreatest + (decimal->negative ? 1 : 0)) return std::nullopt;
  return WholeValue<Amount>{Amount::FromScaled(static_cast<int64_t>(decimal->negative ? ~scaled + 1 : scaled)), exact};
}

std::optional<WholeValue<float>> WholeSingle(std::string_view text) {
  const std::optional<DecimalParts> decimal = DecimalOf(text);
  if (!decimal) return std::nullopt;
  text = TrimWhiteSpace(text);
  if (text[0] == '+') text.remove_prefix(1);
  float value = 0;
  const std::from_chars_result read = std::from_chars(text.data(), text.data() + text.size(), value);
  if (read.ec != std::errc()) return std::nullopt;
  std::array<char, 160> shortest;
  const auto written =
      std::to_chars(shortest.data(), shortest.data() + shortest.size(), value, std::chars_format::fixed);
  const bool exact = DecimalOf({shortest.data(), static_cast<size_t>(written.ptr - shortest.data())}) == decimal;
  return WholeValue<float>{value, exact};
}

std::optional<WholeValue<int32_t>> WholeInteger(std::string_view text) {
  text = TrimWhiteSpace(text);
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  int32_t value = 0;
  const char* const end = text.data() + text.size();
  const std::from_chars_result read = std::from_chars(text.data(), end, value);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return WholeValue<int32_t>{value};
}

std::optional<WholeValue<bool>> WholeFlag(std::string_view text) {
  text = TrimWhiteSpace(text);
  if (text == "true" || text == "false") return WholeValue<bool>{text == "true"};
  const std::optional<WholeValue<int32_t>> number = WholeInteger(text);
  if (!number || number->value < 0 || number->value > 1) return std::nullopt;
  return WholeValue<bool>{number->value == 1};
}

}  // namespace zevo
