// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_DATASET_DECIMALTEXT_H_
#define ZEVO_TOOLS_SAFT_DATASET_DECIMALTEXT_H_

#include <string_view>

namespace zevo::saft {

/// Whether a text is a decimal number: digits, at least one, with at most a sign before and a point among them.
bool IsDecimalText(std::string_view text);

/// Whether two decimal texts, of digits with at most a sign and a point, are the same number. Nothing is rounded: they
/// may have any number of digits.
bool IsSameNumber(std::string_view left, std::string_view right);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_DATASET_DECIMALTEXT_H_
