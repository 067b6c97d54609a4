// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/export/TargetChoice.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/tables/FolderTarget.h"
#include "tools/saft/tables/PostgresAddress.h"
#include "tools/saft/tables/PostgresTarget.h"
#include "tools/saft/tables/SqliteTarget.h"
#include "tools/saft/tables/WorkbookTarget.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ExportWords.h"

namespace zevo::saft {
namespace {

// Of the name of a target, what is an address's scheme; empty for other names.
std::string_view SchemeIn(std::string_view name) {
  const size_t end = name.find("://");
  return end == std::string_view::npos ? std::string_view() : name.substr(0, end + 3);
}

// Behind the scheme of an address there may be a password.
std::string QuotedTarget(std::string_view name) {
  const std::string_view scheme = SchemeIn(name);
  return Quoted(scheme.empty() ? name : scheme);
}

constexpr std::string_view kWorkbookEnding = ".xlsx";
constexpr std::string_view kDatabaseEndings[] = {".db", ".sqlite", ".sqlite3"};

bool IsDatabase(std::string_view name) {
  return std::ranges::any_of(kDatabaseEndings, [&](std::string_view ending) { return name.ends_with(ending); });
}

// A folder that is there need not be named with a slash, unless its name is that of a file.
bool IsFolder(const std::string& name) {
  std::error_code none;
  if (!SchemeIn(name).empty()) return false;
  return name.ends_with('/') ||
         (!IsDatabase(name) && !name.ends_with(kWorkbookEnding) && std::filesystem::is_directory(name, none));
}

}  // namespace

std::unique_ptr<TableTarget> OpenTarget(const std::string& name, const TargetOptions& options,
                                        const std::vector<TableShape>& tables, std::span<const TableView> views) {
  if (IsFolder(name)) {
    return std::make_unique<FolderTarget>(
        name, tables,
        FolderTarget::Choice{
            .form = options.format.value_or(FolderForm::kCsv), .parts = options.partition, .replace = options.replace});
  }
  if (options.format || options.partition) throw Failure(Say(words::kOnlyForFolders, QuotedTarget(name)));
  if (IsPostgresAddress(name)) return std::make_unique<PostgresTarget>(name, tables, views);
  RequireRegularFile(name);
  if (name.ends_with(kWorkbookEnding)) return std::make_unique<WorkbookTarget>(name, tables, options.replace);
  if (IsDatabase(name)) return std::make_unique<SqliteTarget>(name, tables, views);
  throw Failure(Say(words::kUnknownTarget, QuotedTarget(name)));
}

}  // namespace zevo::saft
