// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_WORKBOOKTEXT_H_
#define ZEVO_TOOLS_SAFT_TABLES_WORKBOOKTEXT_H_

#include <string>
#include <string_view>

namespace zevo::saft {

/// Puts a text as cells of workbooks have it, in the place of what `cell` was: control characters, and what would be
/// read as one that is written so, as "_x001B_", what is no character of XML as U+FFFD. Gives whether all of it had
/// room: a cell has 32,767 units of UTF-16.
bool PutWorkbookText(std::string_view text, std::string& cell);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_WORKBOOKTEXT_H_
