#include <zevo/Error.h>
#include <zevo/model/Amount.h>
#include <zevo/model/DecimalNumber.h>
#include <zevo/model/HelperTransformations.h>

#include <cmath>

namespace zevo {
namespace {

// 2 to the power of 63, the first magnitude that does not fit.
constexpr double kLimit = 9223372036854775808.0;

}  // namespace

Amount Amount::FromText(std::string_view text) {
  const DecimalNumber number(text, {});
  if (!number.HasDigits() || number.Length() != text.size()) throw MakeRunTimeError(RunTimeError::kTypeMismatch, text);
  return number.ToAmount();
}

Amount Amount::FromDouble(double value) {
  const double scaled = std::round(value * static_cast<double>(kScale));
  // Written so that what is no number fails too.
  if (!(scaled >= -kLimit && scaled < kLimit)) throw MakeRunTimeError(RunTimeError::kOverflow);
  return FromScaled(static_cast<int64_t>(scaled));
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
