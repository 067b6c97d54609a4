// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/export/ExportCommand.h"

#include <zevo/adapters.h>

#include <iostream>
#include <optional>
#include <utility>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/export/AuditTables.h"
#include "tools/saft/export/AuditViews.h"
#include "tools/saft/export/FileExport.h"
#include "tools/saft/export/TargetChoice.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ExportWords.h"
#include "tools/saft/words/UsageWords.h"

namespace zevo::saft {

namespace {

std::optional<FolderForm> FormatNamed(const std::string& name) {
  if (name.empty()) return std::nullopt;
  for (const FolderForm form : {FolderForm::kCsv, FolderForm::kJsonl}) {
    if (NameOf(form) == name) return form;
  }
  throw Failure(Say(words::kUnknownFormat, Quoted(name)));
}

}  // namespace

ExportCommand::ExportCommand(CLI::App& options) {
  options.add_option(Say(words::kFileArgument), files_, Say(words::kExportFiles))->required()->option_text(" ");
  options.add_option("--to", target_, Say(words::kExportTo))->required()->option_text(Say(words::kExportToValue));
  options.add_flag("--replace", replace_, Say(words::kExportReplace))->option_text(" ");
  options.add_option("--format", format_, Say(words::kExportFormat))->option_text("csv|jsonl");
  options.add_flag("--partition", partition_, Say(words::kExportPartition))->option_text(" ");
  options.add_flag("--check", check_, Say(words::kExportCheck))->option_text(" ");
  options.footer(Say(words::kExportHelp));
}

ExitCode ExportCommand::Run() const {
  for (const std::string& file : files_) {
    if (InputName(file) == kStandardInput) throw Failure(Say(words::kExportNoPipe));
  }
  const AuditTables tables;
  const auto target =
      OpenTarget(target_, {.replace = replace_, .format = FormatNamed(format_), .partition = partition_},
                 tables.Shapes(), AuditViews());
  const Interruption writing(Interruption::During::kWriting);
  FileExport files(tables, *target, {.replace = replace_, .check = check_});
  std::string told;
  for (const std::string& file : files_) {
    const FileExport::Result added = files.Add(file);
    told += SayOf(added.records, words::kExportedRecord, words::kExportedRecords, Visible(file));
    if (added.problems > 0) told += SayOf(added.problems, words::kExportedProblem, words::kExportedProblems);
    if (check_) told += SayOf(added.findings, words::kExportedFinding, words::kExportedFindings);
    told += '\n';
    // Nothing stands of a target that is made anew before it is finished.
    if (!target->IsMadeAnew()) std::cout << std::exchange(told, {});
  }
  target->Finish();
  std::cout << told;
  if (const auto changed = static_cast<size_t>(target->Changed()); changed > 0) {
    std::cout << SayOf(changed, words::kExportedNote, words::kExportedNotes, Visible(target_)) << '\n';
  }
  return kDone;
}

}  // namespace zevo::saft
