// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CSV_BYTEORDERMARK_H_
#define ZEVO_TOOLS_SAFT_CSV_BYTEORDERMARK_H_

#include <string_view>

namespace zevo::saft {

/// What a file in UTF-8 may begin with. By it a spreadsheet program knows the encoding.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CSV_BYTEORDERMARK_H_
