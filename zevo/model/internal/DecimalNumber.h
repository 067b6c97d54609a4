// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_INTERNAL_DECIMALNUMBER_H_
#define ZEVO_MODEL_INTERNAL_DECIMALNUMBER_H_

#include <zevo/model/Amount.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zevo {

/// A decimal number as it stands at the front of a text: sign, digits, separator, digits, exponent.
class DecimalNumber {
 public:
  struct Form {
    std::string_view separator = ".";
    std::string_view thousands = {};  // allowed between the digits of the whole part when not empty
    bool exponent = false;
  };

  /// Reads as many characters as continue the number.
  DecimalNumber(std::string_view text, const Form& form);

  bool HasDigits() const { return has_digits_; }
  /// How many characters belong to the number; 0 without digits.
  size_t Length() const { return length_; }
  /// Whether its magnitude is at least 1.
  bool HasWholePart() const { return count_ > 0 && point_ > 0; }

  bool IsZero() const { return count_ == 0; }

  /// Rounded to four decimals, halves away from zero. Raises error 6 when it does not fit.
  Amount ToAmount() const { return Amount::FromScaled(Scaled(4)); }
  /// Rounded to a whole number. Raises error 6 when it does not fit.
  int64_t ToInteger() const { return Scaled(0); }

 private:
  void Take(char digit, bool whole);
  int64_t Scaled(int decimals) const;

  bool negative_ = false;
  bool has_digits_ = false;
  size_t length_ = 0;
  // The significant digits; the number is 0.digits times ten to the power of point_.
  std::array<char, 40> digits_;
  size_t count_ = 0;
  int64_t point_ = 0;
};

}  // namespace zevo

#endif  // ZEVO_MODEL_INTERNAL_DECIMALNUMBER_H_
