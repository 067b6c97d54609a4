// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/export/TargetChoice.h"

#include <filesystem>
#include <system_error>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/tables/FolderTarget.h"
#include "tools/saft/tables/PostgresAddress.h"
#include "tools/saft/tables/PostgresTarget.h"
#include "tools/saft/tables/SqliteTarget.h"
#include "tools/saft/tables/WorkbookTarget.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ExportWords.h"

namespace zevo::saft {

std::unique_ptr<TableTarget> OpenTarget(const std::string& name, const TargetOptions& options,
                                        const std::vector<TableShape>& tables, std::span<const TableView> views) {
  std::error_code none;
  if (name.ends_with('/') || std::filesystem::is_directory(name, none)) {
    return std::make_unique<FolderTarget>(
        name, tables,
        FolderTarget::Choice{
            .form = options.format.value_or(FolderForm::kCsv), .parts = options.partition, .replace = options.replace});
  }
  if (options.format || options.partition) throw Failure(Say(words::kOnlyForFolders, Quoted(name)));
  if (IsPostgresAddress(name)) return std::make_unique<PostgresTarget>(name, tables, views);
  if (name.ends_with(".xlsx")) return std::make_unique<WorkbookTarget>(name, tables, options.replace);
  for (const char* const ending : {".db", ".sqlite", ".sqlite3"}) {
    if (name.ends_with(ending)) return std::make_unique<SqliteTarget>(name, tables, views);
  }
  // Behind the scheme of an address there may be a password.
  const size_t scheme = name.find("://");
  throw Failure(Say(words::kUnknownTarget, Quoted(scheme == std::string::npos ? name : name.substr(0, scheme + 3))));
}

}  // namespace zevo::saft
