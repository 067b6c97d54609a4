// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_INTERNAL_WHOLETEXT_H_
#define ZEVO_MODEL_INTERNAL_WHOLETEXT_H_

#include <zevo/model/Amount.h>

#include <cstdint>
#include <optional>
#include <string_view>

namespace zevo {

// Values from the whole texts of elements, by the types of the schema whatever the regional settings: a point, no
// exponent, no thousands. White space around a number counts for nothing, anything else makes it no value.

template <class T>
struct WholeValue {
  T value;
  bool exact = true;  ///< whether the value is the very number of the text, and not one near it
};

/// Rounded to four decimals, halves away from zero. Nothing for a number that does not fit.
std::optional<WholeValue<Amount>> WholeAmount(std::string_view text);
/// The nearest float; exact when its shortest text is the same number.
std::optional<WholeValue<float>> WholeSingle(std::string_view text);
std::optional<WholeValue<int32_t>> WholeInteger(std::string_view text);
/// 1 and 0, or "true" and "false".
std::optional<WholeValue<bool>> WholeFlag(std::string_view text);

}  // namespace zevo

#endif  // ZEVO_MODEL_INTERNAL_WHOLETEXT_H_
