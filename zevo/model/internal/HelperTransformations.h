// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_INTERNAL_HELPERTRANSFORMATIONS_H_
#define ZEVO_MODEL_INTERNAL_HELPERTRANSFORMATIONS_H_

#include <zevo/model/Amount.h>
#include <zevo/model/SAFTConstants.h>

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace zevo {

// Values to the texts of the file and back. "Regional" means with the decimal separator of the process's locale; where
// nothing is said, the separator is a point.

/// The text of a number, held in place.
class NumberText {
 public:
  // NOLINTNEXTLINE(google-explicit-constructor): it stands wherever a text is expected.
  operator std::string_view() const { return {characters_.data(), length_}; }
  void Append(char c) { characters_[length_++] = c; }
  void Append(std::string_view text) {
    for (const char c : text) Append(c);
  }
  void Append(size_t count, char c) {
    while (count-- > 0) Append(c);
  }
  /// In decimal.
  void Append(uint64_t number) {
    char* const at = characters_.data() + length_;
    length_ += static_cast<size_t>(std::to_chars(at, characters_.data() + characters_.size(), number).ptr - at);
  }
  /// Takes away the zeros at the end.
  void DropZeros() {
    while (length_ > 0 && characters_[length_ - 1] == '0') --length_;
  }

 private:
  // The longest is the smallest float: a sign, 45 decimals, the digit and the separator in front of them.
  std::array<char, 80> characters_;
  size_t length_ = 0;
};

/// Shortest decimal text, regional.
NumberText AmountText(Amount value);
/// Shortest decimal text with a point.
NumberText AmountTextWithPoint(Amount value);
/// Rounded to two decimals, halves away from zero, without a digit before the separator when the whole part is 0;
/// regional. Zero is ".00".
NumberText TwoDecimalsText(Amount value);
/// Shortest decimal text that reads back the same, never with an exponent; regional. Raises error 5 for what is no
/// number.
NumberText SingleText(float value);
/// The same with a point.
NumberText SingleTextWithPoint(float value);
NumberText IntegerText(int32_t value);
std::string_view FlagText(bool value);

/// The number at the front of a text, blanks skipped; 0 when there is none. More than four decimals round half away
/// from zero. Raises error 6 when it does not fit.
Amount AmountFromText(std::string_view text);
float SingleFromText(std::string_view text);

// Strict: the whole text must be a value, else error 13. Blanks around it are allowed.

/// Regional, separators of thousands allowed in the whole part.
Amount CurrencyFromText(std::string_view text);
/// A decimal number, regional, rounded to a whole one.
int32_t IntegerFromText(std::string_view text);
/// "True" and "False" in any letter case, or a number, which is true unless it is 0.
bool FlagFromText(std::string_view text);

/// A date as yyyy-mm-dd. Read as a date: yyyy-mm-dd, yyyy/mm/dd, dd-mm-yyyy and dd/mm/yyyy, each alone or with a time
/// behind it. Any other text comes back unchanged.
std::string DateText(std::string_view text);

/// The code of a value, empty when the value is none of the enumeration.
template <class Enumeration>
std::string_view CodeText(Enumeration value) {
  for (const Code& code : CodesOf<Enumeration>()) {
    if (code.value == static_cast<int32_t>(value)) return code.text;
  }
  return {};
}

/// The value of a code, 0 when the text is no code. Letter case counts.
template <class Enumeration>
Enumeration ValueFromCode(std::string_view text) {
  for (const Code& code : CodesOf<Enumeration>()) {
    if (code.text == text) return static_cast<Enumeration>(code.value);
  }
  return static_cast<Enumeration>(0);
}

/// The text with & < > and " as references.
std::string Escape(std::string_view text);
/// Undoes `Escape` in the order &lt;, &gt;, &amp;, &quot;, so that "&amp;lt;" becomes "&lt;" and "&amp;quot;" a quote.
std::string Unescape(std::string_view text);

}  // namespace zevo

#endif  // ZEVO_MODEL_INTERNAL_HELPERTRANSFORMATIONS_H_
