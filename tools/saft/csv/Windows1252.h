// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CSV_WINDOWS1252_H_
#define ZEVO_TOOLS_SAFT_CSV_WINDOWS1252_H_

#include <string>
#include <string_view>

namespace zevo::saft {

/// A text in Windows-1252, in UTF-8. The five bytes that stand for no character stay as they are, so that the text is
/// not well-formed where they are.
std::string Utf8FromWindows1252(std::string_view text);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CSV_WINDOWS1252_H_
