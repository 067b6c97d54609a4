// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/export/ExportCommand.h"

#include <zevo/adapters.h>

#include <iostream>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/export/AuditTables.h"
#include "tools/saft/export/AuditViews.h"
#include "tools/saft/export/FileExport.h"
#include "tools/saft/export/TargetChoice.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ExportWords.h"
#include "tools/saft/words/UsageWords.h"

namespace zevo::saft {

ExportCommand::ExportCommand(CLI::App& options) {
  options.add_option(Say(words::kFilesArgument), files_, Say(words::kExportFiles))->required()->option_text(" ");
  options.add_option("--to", target_, Say(words::kExportTo))->required()->option_text(Say(words::kExportToValue));
  options.add_flag("--replace", replace_, Say(words::kExportReplace))->option_text(" ");
  options.add_flag("--check", check_, Say(words::kExportCheck))->option_text(" ");
  options.footer(Say(words::kExportHelp));
}

ExitCode ExportCommand::Run() const {
  for (const std::string& file : files_) {
    if (InputName(file) == kStandardInput) throw Failure(Say(words::kExportNoPipe));
  }
  const AuditTables tables;
  const auto target = OpenTarget(target_, tables.Shapes(), AuditViews());
  FileExport files(tables, *target, {.replace = replace_, .check = check_});
  for (const std::string& file : files_) {
    const FileExport::Result added = files.Add(file);
    std::cout << Say(words::kExported, Visible(file), added.rows);
    if (added.problems > 0) std::cout << Say(words::kExportedProblems, added.problems);
    if (check_) std::cout << Say(words::kExportedFindings, added.findings);
    std::cout << '\n';
  }
  target->Finish();
  return kDone;
}

}  // namespace zevo::saft
