// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_DIGIT_H_
#define ZEVO_DIGIT_H_

namespace zevo {

/// Whether a byte is one of the digits 0 to 9, whatever the locale.
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace zevo

#endif  // ZEVO_DIGIT_H_
