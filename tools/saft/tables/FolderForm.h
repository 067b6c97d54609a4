// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_FOLDERFORM_H_
#define ZEVO_TOOLS_SAFT_TABLES_FOLDERFORM_H_

#include <string_view>

namespace zevo::saft {

/// How the tables of a folder are written.
enum class FolderForm {
  kCsv,    ///< RFC 4180 in UTF-8 with line feeds and the names of the columns
  kJsonl,  ///< an object a line
};

/// Such as "csv": the ending of the files, which names the form too.
constexpr std::string_view NameOf(FolderForm form) { return form == FolderForm::kCsv ? "csv" : "jsonl"; }

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_FOLDERFORM_H_
