// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TABLES_DATAPACKAGE_H_
#define ZEVO_TOOLS_SAFT_TABLES_DATAPACKAGE_H_

#include <string>
#include <string_view>
#include <vector>

#include "tools/saft/tables/FolderForm.h"
#include "tools/saft/tables/TableShape.h"

namespace zevo::saft {

inline constexpr std::string_view kDataPackageFile = "datapackage.json";

/// What describes a folder of tables to programs, a Data Package in its second version: the files of each table, the
/// types of its columns, its key, and the tables that its rows belong to. `paths` are the files of each table, from the
/// folder.
std::string DataPackageOf(const std::vector<TableShape>& tables, const std::vector<std::vector<std::string>>& paths,
                          FolderForm form);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TABLES_DATAPACKAGE_H_
