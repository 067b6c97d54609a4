#ifndef ZEVO_MODEL_AMOUNT_H_
#define ZEVO_MODEL_AMOUNT_H_

#include <zevo/Api.h>

#include <compare>
#include <cstdint>
#include <string>
#include <string_view>

namespace zevo {

/// An amount of money, a quantity or a rate: signed 64-bit fixed point with four decimal places.
/// What does not fit raises error 6 (overflow); nothing wraps around.
class ZEVO_API Amount {
 public:
  constexpr Amount() = default;
  /// Whole units: `Amount(5)` is 5.0000. Implicit, so that a property can be set to a plain number.
  // NOLINTNEXTLINE(google-explicit-constructor)
  constexpr Amount(int units) : scaled_(int64_t{units} * kScale) {}

  /// From a count of ten-thousandths.
  static constexpr Amount FromScaled(int64_t tenThousandths) {
    Amount result;
    result.scaled_ = tenThousandths;
    return result;
  }
  /// From decimal text with a point ("-12.34"); digits past the fourth decimal round half away from zero.
  /// Raises error 13 when the text is anything else, error 6 when it does not fit.
  static Amount FromText(std::string_view text);
  /// Nearest amount, halves away from zero. Raises error 6 when it does not fit or is not a number.
  static Amount FromDouble(double value);

  /// The amount in ten-thousandths.
  constexpr int64_t Scaled() const { return scaled_; }
  constexpr bool IsZero() const { return scaled_ == 0; }
  /// Shortest decimal text with a point, whatever the regional settings: "12.34", "-0.5", "0".
  std::string Text() const;
  double ToDouble() const { return static_cast<double>(scaled_) / static_cast<double>(kScale); }

  Amount operator+(Amount other) const;
  Amount operator-(Amount other) const;
  Amount operator-() const;
  Amount& operator+=(Amount other) { return *this = *this + other; }
  Amount& operator-=(Amount other) { return *this = *this - other; }
  friend constexpr auto operator<=>(Amount, Amount) = default;

  static constexpr int64_t kScale = 10000;

 private:
  int64_t scaled_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_MODEL_AMOUNT_H_
