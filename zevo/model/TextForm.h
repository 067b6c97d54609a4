// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_TEXTFORM_H_
#define ZEVO_MODEL_TEXTFORM_H_

#include <cstdint>

namespace zevo {

/// How a value becomes the text of its element.
enum class TextForm : uint8_t {
  kPlain,            ///< As its type says; numbers with the regional separator.
  kWithPoint,        ///< An amount with a point, whatever the regional settings.
  kTwoDecimals,      ///< An amount rounded to two decimals, with the regional separator.
  kSinglePrecision,  ///< An amount that passes through a 32-bit float: about seven digits are left of it.
  kDate,             ///< A text that is brought to yyyy-mm-dd where it is a date.
};

}  // namespace zevo

#endif  // ZEVO_MODEL_TEXTFORM_H_
