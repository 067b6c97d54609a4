// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/export/TargetChoice.h"

#include "tools/saft/errors/Failure.h"
#include "tools/saft/tables/SqliteTarget.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ExportWords.h"

namespace zevo::saft {

std::unique_ptr<TableTarget> OpenTarget(const std::string& name, const std::vector<TableShape>& tables,
                                        const std::string& views) {
  for (const char* const ending : {".db", ".sqlite", ".sqlite3"}) {
    if (name.ends_with(ending)) return std::make_unique<SqliteTarget>(name, tables, views);
  }
  throw Failure(Say(words::kUnknownTarget, Quoted(name)));
}

}  // namespace zevo::saft
