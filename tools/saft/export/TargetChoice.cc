// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/export/TargetChoice.h"

#include "tools/saft/errors/Failure.h"
#include "tools/saft/tables/PostgresAddress.h"
#include "tools/saft/tables/PostgresTarget.h"
#include "tools/saft/tables/SqliteTarget.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ExportWords.h"

namespace zevo::saft {

std::unique_ptr<TableTarget> OpenTarget(const std::string& name, const std::vector<TableShape>& tables,
                                        std::span<const TableView> views) {
  if (IsPostgresAddress(name)) return std::make_unique<PostgresTarget>(name, tables, views);
  for (const char* const ending : {".db", ".sqlite", ".sqlite3"}) {
    if (name.ends_with(ending)) return std::make_unique<SqliteTarget>(name, tables, views);
  }
  // Behind the scheme of an address there may be a password.
  const size_t scheme = name.find("://");
  throw Failure(Say(words::kUnknownTarget, Quoted(scheme == std::string::npos ? name : name.substr(0, scheme + 3))));
}

}  // namespace zevo::saft
