// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_PLAINNUMBER_H_
#define ZEVO_TOOLS_SAFT_TABLES_PLAINNUMBER_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace zevo::saft {

/// The text of a cell of `kNumber` as every program reads it, with the same digits but zeros in front: "+.50" is 0.50,
/// "007." is 7.
std::string PlainNumber(std::string_view number);

/// How many digits of such a text tell more than where the point is: 3 of 0.0120 and of 12300.
size_t SignificantDigits(std::string_view plain);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_PLAINNUMBER_H_
