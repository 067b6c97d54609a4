#include <zevo/model/Amount.h>

#include <zevo/Error.h>
#include <zevo/model/DecimalNumber.h>
#include <zevo/model/HelperTransformations.h>

#include <cmath>

namespace zevo {
namespace {

// The greatest whole number that fits.
constexpr double kGreatestWhole = 922337203685477.0;

}  // namespace

Amount Amount::FromText(std::string_view text) {
  const DecimalNumber number(text, {});
  if (!number.HasDigits() || number.Length() != text.size()) throw MakeRunTimeError(RunTimeError::kTypeMismatch, text);
  return number.ToAmount();
}

Amount Amount::FromDouble(double value) {
  // In two parts, each exact: a product of the whole would be rounded before it is rounded to an amount.
  const double whole = std::trunc(value);
  const double fraction = std::round((value - whole) * static_cast<double>(kScale));
  // Written so that what is no number fails too.
  if (!(std::fabs(whole) <= kGreatestWhole)) throw MakeRunTimeError(RunTimeError::kOverflow);
  int64_t scaled = static_cast<int64_t>(whole) * kScale;
  if (__builtin_add_overflow(scaled, static_cast<int64_t>(fraction), &scaled)) {
    throw MakeRunTimeError(RunTimeError::kOverflow);
  }
  return FromScaled(scaled);
}

std::string Amount::Text() const { return std::string(std::string_view(AmountTextWithPoint(*this))); }

Amount Amount::operator+(Amount other) const {
  int64_t sum;
  if (__builtin_add_overflow(scaled_, other.scaled_, &sum)) throw MakeRunTimeError(RunTimeError::kOverflow);
  return FromScaled(sum);
}

Amount Amount::operator-(Amount other) const {
  int64_t difference;
  if (__builtin_sub_overflow(scaled_, other.scaled_, &difference)) throw MakeRunTimeError(RunTimeError::kOverflow);
  return FromScaled(difference);
}

Amount Amount::operator-() const { return Amount() - *this; }

}  // namespace zevo
