// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/template/TemplateCommand.h"

#include <cerrno>
#include <filesystem>
#include <fstream>

#include "tools/saft/csv/CsvWriter.h"
#include "tools/saft/dataset/RecordColumns.h"
#include "tools/saft/dataset/RecordKind.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/output/UnfinishedPath.h"
#include "tools/saft/words/TemplateWords.h"
#include "tools/saft/words/UsageWords.h"

namespace zevo::saft {
namespace {

void WriteHeading(const RecordKind& kind, std::ostream& out) {
  CsvWriter csv(out, CsvForm::kDataset);
  const RecordColumns columns(kind);
  for (const RecordColumn& column : columns.Columns()) csv.Add(column.name, CellKind::kText);
  csv.EndRow();
}

}  // namespace

TemplateCommand::TemplateCommand(CLI::App& options) {
  options.add_option(Say(words::kFolderArgument), folder_, Say(words::kTemplateFolder))->required()->option_text(" ");
  options.footer(Say(words::kTemplateHelp));
}

ExitCode TemplateCommand::Run() const {
  const Interruption interruption(Interruption::During::kWriting);
  UnfinishedPath folder(folder_, UnfinishedPath::kFolder);
  for (const RecordKind& kind : RecordKinds()) {
    if (kind.file.empty()) continue;
    Interruption::ThrowIfRequested();
    std::ofstream file(folder.Path() / kind.file, std::ios::binary);
    WriteHeading(kind, file);
    file.close();
    if (!file) FailWithSystemError(errno, (std::filesystem::path(folder_) / kind.file).string());
  }
  folder.PutInPlace();
  return kDone;
}

}  // namespace zevo::saft
