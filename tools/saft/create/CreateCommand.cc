// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/CreateCommand.h"

#include <filesystem>
#include <iostream>
#include <sstream>
#include <string>
#include <system_error>

#include "tools/saft/create/AuditFileOutput.h"
#include "tools/saft/create/EntriesWriter.h"
#include "tools/saft/create/InvoiceSigning.h"
#include "tools/saft/create/InvoicesWriter.h"
#include "tools/saft/create/MasterFilesWriter.h"
#include "tools/saft/create/ViolationErrors.h"
#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/RowIndex.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/input/ReadingProgress.h"
#include "tools/saft/output/UnfinishedPath.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/CreateWords.h"
#include "tools/saft/words/CsvWords.h"
#include "tools/saft/words/ErrorWords.h"
#include "tools/saft/words/UsageWords.h"

namespace zevo::saft {
namespace {

std::string DatasetHelp() {
  constexpr size_t kNameWidth = 23;
  std::string files;
  for (const DatasetFile& file : Dataset::Files()) {
    files.append("  ").append(file.name).append(kNameWidth - file.name.size(), ' ').append(Say(file.rows)) += '\n';
  }
  return Say(words::kCreateHelp, files).append("\n\n").append(Say(words::kFormHelp));
}

}  // namespace

CreateCommand::CreateCommand(CLI::App& options) : schema_(options) {
  options.add_option(Say(words::kDatasetArgument), dataset_, Say(words::kDatasetOption))->required()->option_text(" ");
  options.add_option(Say(words::kFileArgument), file_, Say(words::kFileOption))->required()->option_text(" ");
  options.add_flag("--force", force_, Say(words::kForceOption));
  options.add_flag("--no-validate", unvalidated_, Say(words::kNoValidateOption));
  options.add_flag("--stream", stream_, Say(words::kStreamOption));
  options.add_flag("--round", round_, Say(words::kRoundOption));
  options.add_option("--private-key", private_key_, Say(words::kPrivateKeyOption))->option_text("PEM");
  options.footer(DatasetHelp());
}

ExitCode CreateCommand::Run() const {
  schema_.Use();
  schema_.RequireUsable();
  const Interruption interruption(Interruption::During::kWriting);
  RequireRegularFile(file_);
  RequireNoDatasetFile();
  if (!force_ && std::filesystem::exists(file_)) throw Failure(file_, Say(words::kIsThereAlready));
  UnfinishedPath unfinished(file_, force_ ? UnfinishedPath::kFileInstead : UnfinishedPath::kFile);
  Dataset dataset(dataset_);
  RowIndex index;
  const std::string path = unfinished.Path().string();
  std::ostringstream notes;
  Write(path, dataset, index, notes);
  dataset.RequireUnchanged();
  // Of so many errors it cannot be told which violations follow from them.
  if (!unvalidated_ && dataset.Faults().KnowsAll()) Validate(path, dataset, index);
  std::cerr << notes.str();
  dataset.Altered().ReportForms(std::cerr);
  dataset.Faults().Report(std::cerr);
  if (!round_ && dataset.Altered().HasLostNumbers()) {
    dataset.Altered().ReportLostNumbers(std::cerr);
    throw Failure(file_, Say(words::kNotWrittenRounded));
  }
  if (dataset.Faults().Count() > 0) return kError;
  // Told before, so that a file is there only where nothing failed.
  if (!unvalidated_) std::cout << Say(words::kValid, Visible(file_)) << '\n';
  if (!std::cout.flush()) throw Failure(Say(words::kOutputUnwritable));
  unfinished.PutInPlace();
  if (!stream_) dataset.Altered().ForgetReturns();
  dataset.Altered().Report(std::cerr);
  return kDone;
}

void CreateCommand::RequireNoDatasetFile() const {
  std::error_code none;
  for (const DatasetFile& file : Dataset::Files()) {
    const bool same = std::filesystem::equivalent(std::filesystem::path(dataset_) / file.name, file_, none);
    if (same) throw Failure(file_, Say(words::kOfTheDataset));
  }
}

void CreateCommand::Write(const std::string& path, Dataset& dataset, RowIndex& index, std::ostream& notes) const {
  ReadingProgress progress(dataset.BytesToRead(), OutputWhile::kIntoFiles);
  dataset.SetProgress([&progress](uint64_t bytes) { progress.Show(bytes); });
  std::optional<InvoiceSigning> signing;
  if (private_key_) signing.emplace(*private_key_);
  AuditFileOutput output(path, file_, stream_ ? AuditFileOutput::kSequential : AuditFileOutput::kInMemory);
  MasterFilesWriter(dataset, index, output).Write();
  EntriesWriter(dataset, index, output, notes).Write();
  InvoicesWriter(dataset, index, output, signing ? &*signing : nullptr).Write();
  output.Save();
  dataset.SetProgress(nullptr);
}

void CreateCommand::Validate(const std::string& path, Dataset& dataset, const RowIndex& index) const {
  ViolationErrors violations(dataset, index, file_);
  ReadingProgress progress(SizeToRead(path), OutputWhile::kIntoFiles);
  AuditFileValidator file;
  file.set_AuditFileName(path);
  file.Progress = [&progress](int64_t bytes) {
    progress.Show(static_cast<uint64_t>(bytes));
    return !Interruption::IsRequested();
  };
  file.Found = [&](const Violation& violation) {
    violations.Add(violation);
    return !Interruption::IsRequested();
  };
  const bool judged = file.ValidateAuditFile();
  Interruption::ThrowIfRequested();
  if (judged) return;
  if (file.IsSchemaAtFault()) SchemaChoice::Fail(*file.AuditException());
  FailWith(*file.AuditException(), file_);
}

}  // namespace zevo::saft
