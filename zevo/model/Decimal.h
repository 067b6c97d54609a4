// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_DECIMAL_H_
#define ZEVO_MODEL_DECIMAL_H_

#include <zevo/Api.h>
#include <zevo/model/Amount.h>

#include <compare>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace zevo {

/// A decimal number of any length: what a file says, however many decimals it says it with. Sums, differences and
/// products are exact; what is rounded is asked for.
///
/// A number of at most 18 digits takes no memory of its own. Of longer ones, adding to a sum costs in proportion to
/// what is added, not to the sum.
class ZEVO_API Decimal {
 public:
  /// 0.
  Decimal() = default;
  /// A whole number. Implicit, so that numbers can be added, multiplied and compared as they stand.
  template <WholeNumber N>
  // NOLINTNEXTLINE(google-explicit-constructor)
  Decimal(N number) {
    if (std::cmp_less(number, kLimit) && std::cmp_greater(number, -kLimit)) {
      digits_ = static_cast<int64_t>(number);
    } else {
      const bool negative = std::cmp_less(number, 0);
      SetLong(negative, negative ? uint64_t{0} - static_cast<uint64_t>(number) : static_cast<uint64_t>(number));
    }
  }
  /// The same number.
  Decimal(const Decimal& other)
      : digits_(other.digits_), decimals_(other.decimals_), limbs_(other.limbs_ ? CopyOf(*other.limbs_) : nullptr) {}
  /// The same number.
  Decimal& operator=(const Decimal& other) {
    if (this != &other) *this = Decimal(other);
    return *this;
  }
  /// The number itself; what is left may be assigned to and destroyed.
  Decimal(Decimal&&) noexcept = default;
  /// The number itself; what is left may be assigned to and destroyed.
  Decimal& operator=(Decimal&&) noexcept = default;
  ~Decimal() = default;

  /// So many units of that many digits behind the point: 1234 of 2 are 12.34. Raises error 5 for less than 0 and more
  /// than 18 digits.
  static Decimal OfUnits(int64_t units, int decimals);
  /// How many such units it is: 1234 of 12.34 and 2. Nothing where it is no whole number of them, or one of more than
  /// 18 digits.
  std::optional<int64_t> InUnits(int decimals) const;

  /// The number of a text as XML Schema writes decimals: digits with a point or without, a sign, such as "-12.340",
  /// "+.5" and "7.", with blanks, tabs and line ends at the ends. Nothing for any other text. Takes time in proportion
  /// to its length.
  static std::optional<Decimal> FromText(std::string_view text);

  /// The shortest text with a point: no zeros at the end behind the point, at least one digit before it, "0" without a
  /// sign.
  std::string Text() const;
  /// How many digits the text has behind the point.
  size_t Decimals() const;
  /// Whether it is exactly 0.
  bool IsZero() const { return !limbs_ && digits_ == 0; }
  /// Whether it is less than 0.
  bool IsNegative() const { return limbs_ ? IsLongNegative() : digits_ < 0; }

  /// Adds. Where memory runs out, the number stays as it was.
  Decimal& operator+=(const Decimal& other) {
    if (!limbs_ && !other.limbs_ && decimals_ == other.decimals_) [[likely]] {
      const int64_t sum = digits_ + other.digits_;
      if (sum < kLimit && sum > -kLimit) [[likely]] {
        digits_ = sum;
        return *this;
      }
    }
    Add(other, 1);
    return *this;
  }
  /// Subtracts. Where memory runs out, the number stays as it was.
  Decimal& operator-=(const Decimal& other) {
    if (!limbs_ && !other.limbs_ && decimals_ == other.decimals_) [[likely]] {
      const int64_t difference = digits_ - other.digits_;
      if (difference < kLimit && difference > -kLimit) [[likely]] {
        digits_ = difference;
        return *this;
      }
    }
    Add(other, -1);
    return *this;
  }
  /// With the other sign.
  Decimal operator-() const { return Decimal() -= *this; }
  /// The sum.
  friend Decimal operator+(Decimal left, const Decimal& right) {
    left += right;
    return left;
  }
  /// The difference.
  friend Decimal operator-(Decimal left, const Decimal& right) {
    left -= right;
    return left;
  }
  /// The product. Its time grows with the product of the lengths: a factor of more than 10,000 digits, those before and
  /// those behind the point together, raises error 6.
  friend Decimal operator*(const Decimal& left, const Decimal& right) { return Product(left, right); }

  /// Rounded to that many digits behind the point, halves away from zero. Raises error 5 for less than 0.
  Decimal RoundedTo(int decimals) const;

  /// By value: 1.5 is 1.50.
  friend std::strong_ordering operator<=>(const Decimal& left, const Decimal& right) {
    if (!left.limbs_ && !right.limbs_ && left.decimals_ == right.decimals_) [[likely]] {
      return left.digits_ <=> right.digits_;
    }
    return Compared(left, right);
  }
  /// By value: 1.5 is 1.50.
  friend bool operator==(const Decimal& left, const Decimal& right) { return std::is_eq(left <=> right); }

 private:
  struct Limbs;
  struct ShortLimbs;
  struct DeleteLimbs {
    ZEVO_API void operator()(Limbs* limbs) const noexcept;
  };
  using LimbsPointer = std::unique_ptr<Limbs, DeleteLimbs>;

  static std::optional<Decimal> FromOtherText(std::string_view text);
  static LimbsPointer CopyOf(const Limbs& limbs);
  static Decimal Product(const Decimal& left, const Decimal& right);
  static std::strong_ordering Compared(const Decimal& left, const Decimal& right);
  static Decimal Shortest(Limbs limbs);

  Decimal(int64_t digits, int32_t decimals) : digits_(digits), decimals_(decimals) {}
  void Add(const Decimal& other, int sign);
  bool AddShort(const Decimal& other, int sign);
  void SetLong(bool negative, uint64_t magnitude);
  bool IsLongNegative() const;
  ShortLimbs ToShortLimbs() const;
  Limbs ToLimbs() const;
  void AddTo(Limbs& sum, int sign) const;

  static constexpr int64_t kLimit = 1'000'000'000'000'000'000;
  static constexpr int kMostDecimals = 18;

  // digits_ by ten to the power of decimals_, which is 0 to 18; digits_ is below kLimit either way. Zeros may stand at
  // the end. Where there are limbs, they are the number.
  int64_t digits_ = 0;
  int32_t decimals_ = 0;
  LimbsPointer limbs_;
};

}  // namespace zevo

#endif  // ZEVO_MODEL_DECIMAL_H_
