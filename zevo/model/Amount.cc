// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Amount.h>

#include <zevo/Error.h>
#include <zevo/model/internal/DecimalNumber.h>
#include <zevo/model/internal/HelperTransformations.h>

#include <cmath>
#include <limits>

namespace zevo {
namespace {

// The greatest whole number that fits.
constexpr double kGreatestWhole = 922337203685477.0;

// A whole number of 128 bits. Not every compiler has a type for it.
struct Wide {
  uint64_t high;
  uint64_t low;
};

Wide Multiply(uint64_t left, uint64_t right) {
  constexpr uint64_t kLowHalf = 0xFFFFFFFF;
  // Long multiplication with digits of 32 bits.
  const uint64_t low = (left & kLowHalf) * (right & kLowHalf);
  const uint64_t cross = (left >> 32) * (right & kLowHalf) + (low >> 32);
  const uint64_t other_cross = (left & kLowHalf) * (right >> 32) + (cross & kLowHalf);
  return {.high = (left >> 32) * (right >> 32) + (cross >> 32) + (other_cross >> 32), .low = left * right};
}

struct Division {
  uint64_t quotient;
  uint64_t remainder;
};

// The high half is less than the divisor, so that the quotient has 64 bits. Where it is not 0, the divisor is no more
// than the magnitude of an amount, so that nothing is lost by the shift.
Division Divide(Wide dividend, uint64_t divisor) {
  if (dividend.high == 0) return {.quotient = dividend.low / divisor, .remainder = dividend.low % divisor};
  Division result{.quotient = 0, .remainder = dividend.high};
  for (int bit = 63; bit >= 0; --bit) {
    result.remainder = result.remainder << 1 | (dividend.low >> bit & 1);
    const bool fits = result.remainder >= divisor;
    if (fits) result.remainder -= divisor;
    result.quotient = result.quotient << 1 | static_cast<uint64_t>(fits);
  }
  return result;
}

}  // namespace

void Amount::RaiseOverflow() { throw MakeRunTimeError(RunTimeError::kOverflow); }

Amount Amount::Ratio(Whole left, Whole right, Whole divisor) {
  if (divisor.magnitude == 0) throw MakeRunTimeError(RunTimeError::kDivisionByZero);
  const Wide product = Multiply(left.magnitude, right.magnitude);
  if (product.high >= divisor.magnitude) RaiseOverflow();
  auto [quotient, remainder] = Divide(product, divisor.magnitude);
  const bool negative = left.negative != (right.negative != divisor.negative);
  const uint64_t most = static_cast<uint64_t>(std::numeric_limits<int64_t>::max()) + (negative ? 1 : 0);
  const bool rounds_up = remainder >= divisor.magnitude - remainder;
  if (quotient > most - (rounds_up ? 1 : 0)) RaiseOverflow();
  if (rounds_up) ++quotient;
  return FromScaled(static_cast<int64_t>(negative ? uint64_t{0} - quotient : quotient));
}

Amount Amount::FromText(std::string_view text) {
  const DecimalNumber number(text, {});
  if (!number.HasDigits() || number.Length() != text.size()) throw MakeRunTimeError(RunTimeError::kTypeMismatch, text);
  return number.ToAmount();
}

Amount Amount::FromDouble(double value) {
  // Whole part and fraction apart: the product of a large value and kScale would be rounded before it is rounded to an
  // amount.
  const double whole = std::trunc(value);
  const double fraction = std::round((value - whole) * static_cast<double>(kScale));
  // Not as `>`, which is false for a NaN.
  if (!(std::fabs(whole) <= kGreatestWhole)) RaiseOverflow();
  int64_t scaled = static_cast<int64_t>(whole) * kScale;
  if (__builtin_add_overflow(scaled, static_cast<int64_t>(fraction), &scaled)) RaiseOverflow();
  return FromScaled(scaled);
}

std::string Amount::Text() const { return std::string(std::string_view(AmountTextWithPoint(*this))); }

Amount Amount::operator+(Amount other) const {
  int64_t sum;
  if (__builtin_add_overflow(scaled_, other.scaled_, &sum)) RaiseOverflow();
  return FromScaled(sum);
}

Amount Amount::operator-(Amount other) const {
  int64_t difference;
  if (__builtin_sub_overflow(scaled_, other.scaled_, &difference)) RaiseOverflow();
  return FromScaled(difference);
}

Amount Amount::operator-() const { return Amount() - *this; }

}  // namespace zevo
