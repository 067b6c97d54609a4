// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_AMOUNT_H_
#define ZEVO_MODEL_AMOUNT_H_

#include <zevo/Api.h>

#include <compare>
#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace zevo {

/// The integer types of up to 64 bits. `bool` and the types of characters are none: they count nothing.
template <class T>
concept WholeNumber =
    std::integral<T> && std::numeric_limits<T>::digits <= 64 && !std::same_as<T, bool> && !std::same_as<T, char> &&
    !std::same_as<T, wchar_t> && !std::same_as<T, char8_t> && !std::same_as<T, char16_t> && !std::same_as<T, char32_t>;

/// An amount of money, a quantity or a rate: signed 64-bit fixed point with four decimal places.
///
/// Made from whole units of any integer type, and of nothing else without saying so: a price of 5.99 is
/// `Amount::FromDouble(5.99)` or `Amount::FromText("5.99")`, and `set_UnitPrice(5.99)` does not compile.
/// What does not fit raises error 6 (overflow); nothing wraps around.
class ZEVO_API Amount {
 public:
  constexpr Amount() = default;
  /// Whole units: `Amount(5)` is 5.0000. Implicit, so that a property can be set to a plain number. Raises error 6 for
  /// what does not fit.
  template <WholeNumber N>
  // NOLINTNEXTLINE(google-explicit-constructor)
  constexpr Amount(N units) {
    if (std::cmp_greater(units, kMostUnits) || std::cmp_less(units, -kMostUnits)) RaiseOverflow();
    scaled_ = static_cast<int64_t>(units) * kScale;
  }

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
  /// Whether it is exactly 0.
  constexpr bool IsZero() const { return scaled_ == 0; }
  /// Shortest decimal text with a point, whatever the regional settings: "12.34", "-0.5", "0".
  std::string Text() const;
  /// In whole units, as the nearest double.
  double ToDouble() const { return static_cast<double>(scaled_) / static_cast<double>(kScale); }

  /// The exact sum. Raises error 6 when it does not fit.
  Amount operator+(Amount other) const;
  /// The exact difference. Raises error 6 when it does not fit.
  Amount operator-(Amount other) const;
  /// With the other sign. Raises error 6 for the least amount, which has no opposite.
  Amount operator-() const;
  /// Adds. On error 6 the amount stays as it was.
  Amount& operator+=(Amount other) { return *this = *this + other; }
  /// Subtracts. On error 6 the amount stays as it was.
  Amount& operator-=(Amount other) { return *this = *this - other; }

  // Products and quotients, by an amount or a whole number: computed exactly, then rounded to four decimals, halves
  // away from zero. Division by zero raises error 11.
  friend Amount operator*(Amount left, Amount right) { return Ratio(left.scaled_, right.scaled_, kScale); }
  friend Amount operator*(Amount left, WholeNumber auto right) { return Ratio(left.scaled_, right, 1); }
  friend Amount operator*(WholeNumber auto left, Amount right) { return right * left; }
  friend Amount operator/(Amount left, Amount right) { return Ratio(left.scaled_, kScale, right.scaled_); }
  friend Amount operator/(Amount left, WholeNumber auto right) { return Ratio(left.scaled_, 1, right); }
  friend Amount operator/(WholeNumber auto left, Amount right) { return Ratio(left, kScale * kScale, right.scaled_); }

  friend constexpr auto operator<=>(Amount, Amount) = default;

  /// Ten-thousandths in one unit.
  static constexpr int64_t kScale = 10000;

 private:
  static constexpr int64_t kMostUnits = std::numeric_limits<int64_t>::max() / kScale;

  /// Any whole number.
  struct Whole {
    template <WholeNumber N>
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr Whole(N number)
        : negative(std::cmp_less(number, 0)),
          magnitude(negative ? uint64_t{0} - static_cast<uint64_t>(number) : static_cast<uint64_t>(number)) {}
    bool negative;
    uint64_t magnitude;
  };

  /// `left` times `right`, by `divisor`, in ten-thousandths.
  static Amount Ratio(Whole left, Whole right, Whole divisor);
  [[noreturn]] static void RaiseOverflow();

  int64_t scaled_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_MODEL_AMOUNT_H_
