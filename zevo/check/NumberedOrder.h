// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_NUMBEREDORDER_H_
#define ZEVO_CHECK_NUMBEREDORDER_H_

#include <string_view>

namespace zevo {

/// Whether a text comes before another in an order in which numbers in texts count as such: "A 9" before "A 10".
/// Numbers that differ in zeros in front are the same.
bool IsNumberedBefore(std::string_view left, std::string_view right);

}  // namespace zevo

#endif  // ZEVO_CHECK_NUMBEREDORDER_H_
