// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/internal/DecimalNumber.h>

#include <zevo/Digit.h>
#include <zevo/Error.h>

#include <algorithm>

namespace zevo {

DecimalNumber::DecimalNumber(std::string_view text, const Form& form) {
  size_t at = 0;
  const auto follows = [&](std::string_view token) { return !token.empty() && text.substr(at).starts_with(token); };
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) negative_ = text[at++] == '-';
  while (at < text.size()) {
    if (IsDigit(text[at])) {
      Take(text[at++], true);
    } else if (has_digits_ && follows(form.thousands) && at + form.thousands.size() < text.size() &&
               IsDigit(text[at + form.thousands.size()])) {
      at += form.thousands.size();
    } else {
      break;
    }
  }
  if (follows(form.separator)) {
    size_t fraction = at + form.separator.size();
    if (has_digits_ || (fraction < text.size() && IsDigit(text[fraction]))) {
      while (fraction < text.size() && IsDigit(text[fraction])) Take(text[fraction++], false);
      at = fraction;
    }
  }
  if (!has_digits_) return;
  if (form.exponent && at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    size_t digit = at + 1;
    const bool small = digit < text.size() && text[digit] == '-';
    if (small || (digit < text.size() && text[digit] == '+')) ++digit;
    if (digit < text.size() && IsDigit(text[digit])) {
      int64_t exponent = 0;
      // Beyond a million the number is 0 or overflows anyway.
      for (; digit < text.size() && IsDigit(text[digit]); ++digit) {
        exponent = std::min<int64_t>(exponent * 10 + (text[digit] - '0'), 1'000'000);
      }
      point_ += small ? -exponent : exponent;
      at = digit;
    }
  }
  length_ = at;
}

void DecimalNumber::Take(char digit, bool whole) {
  has_digits_ = true;
  if (count_ == 0 && digit == '0') {
    if (!whole) --point_;
    return;
  }
  // What does not fit any more is too small to matter.
  if (count_ < digits_.size()) digits_[count_++] = digit;
  if (whole) ++point_;
}

int64_t DecimalNumber::Scaled(int decimals) const {
  constexpr auto kGreatest = static_cast<uint64_t>(INT64_MAX);
  uint64_t magnitude = 0;
  if (count_ > 0) {
    const int64_t wanted = point_ + decimals;
    for (int64_t i = 0; i <= wanted; ++i) {
      const auto digit =
          i < static_cast<int64_t>(count_) ? static_cast<uint64_t>(digits_[static_cast<size_t>(i)] - '0') : uint64_t{0};
      if (i == wanted) {
        magnitude += digit >= 5;
      } else if (magnitude > kGreatest / 10) {
        throw MakeRunTimeError(RunTimeError::kOverflow);
      } else {
        magnitude = magnitude * 10 + digit;
      }
    }
  }
  if (magnitude > kGreatest + (negative_ ? 1 : 0)) throw MakeRunTimeError(RunTimeError::kOverflow);
  return static_cast<int64_t>(negative_ ? ~magnitude + 1 : magnitude);
}

}  // namespace zevo
