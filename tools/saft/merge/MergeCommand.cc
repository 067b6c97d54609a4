// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/merge/MergeCommand.h"

#include <zevo/adapters.h>

#include <cstdint>
#include <filesystem>
#include <iostream>
#include <set>
#include <string_view>
#include <system_error>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/input/FileState.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/input/ReadingProgress.h"
#include "tools/saft/merge/ElementOutput.h"
#include "tools/saft/merge/EntityReader.h"
#include "tools/saft/merge/MergeReport.h"
#include "tools/saft/merge/MergeSurvey.h"
#include "tools/saft/merge/MergeWriter.h"
#include "tools/saft/output/UnfinishedPath.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/CreateWords.h"
#include "tools/saft/words/ErrorWords.h"
#include "tools/saft/words/MergeWords.h"
#include "tools/saft/words/UsageWords.h"

namespace zevo::saft {
namespace {

constexpr int64_t kMostViolations = 20;

uint64_t BytesOf(const std::vector<std::string>& files) {
  uint64_t bytes = 0;
  for (const std::string& file : files) bytes += SizeToRead(file).value_or(0);
  return bytes;
}

}  // namespace

MergeCommand::MergeCommand(CLI::App& options) : schema_(options) {
  options.add_option(Say(words::kMergeFilesArgument), files_, Say(words::kMergeFiles))->required()->option_text("...");
  options.add_option("-o,--output", output_, Say(words::kMergeOutput))
      ->required()
      ->option_text(Say(words::kFileArgument));
  options.add_flag("--force", force_, Say(words::kForceOption));
  options.add_flag("--no-validate", unvalidated_, Say(words::kNoValidateOption));
  options.footer(Say(words::kMergeHelp));
}

ExitCode MergeCommand::Run() const {
  schema_.Use();
  schema_.RequireUsable();
  const Interruption interruption(Interruption::During::kWriting);
  RequireRegularFile(output_);
  RequireOtherFiles();
  if (!force_ && std::filesystem::exists(output_)) throw Failure(output_, Say(words::kIsThereAlready));
  UnfinishedPath unfinished(output_, force_ ? UnfinishedPath::kFileInstead : UnfinishedPath::kFile);
  const std::string path = unfinished.Path().string();
  MergeReport report;
  MergeProgress progress(2 * BytesOf(files_));
  MergeSurvey survey(report, progress);
  const MergePlan plan = survey.Read(files_);
  if (!report.IsRefusal()) {
    Write(plan, path, progress);
  }
  progress.Clear();
  report.Report(std::cerr);
  for (const ProblemReport& problems : survey.Problems()) problems.Report(std::cerr);
  if (report.IsRefusal() || (!unvalidated_ && !Validate(path))) throw Failure(output_, Say(words::kNotMerged));
  // Told before, so that a file is there only where nothing failed.
  if (!unvalidated_) std::cout << Say(words::kValid, Visible(output_)) << '\n';
  if (!std::cout.flush()) throw Failure(Say(words::kOutputUnwritable));
  unfinished.PutInPlace();
  return kDone;
}

void MergeCommand::RequireOtherFiles() const {
  std::error_code none;
  std::set<std::filesystem::path> known;
  for (const std::string& file : files_) {
    if (file == "-" || file == kStandardInput) throw Failure(file, Say(words::kReadTwice));
    if (std::filesystem::equivalent(file, output_, none)) throw Failure(output_, Say(words::kOneOfTheFiles));
    if (!known.insert(std::filesystem::weakly_canonical(file, none)).second) {
      throw Failure(file, Say(words::kNamedTwice));
    }
  }
}

void MergeCommand::Write(const MergePlan& plan, const std::string& path, MergeProgress& progress) const {
  const auto require_unchanged = [&] {
    for (const MergeSource& source : plan.sources) RequireUnchanged(source.name, source.state);
  };
  try {
    ElementOutput output(path, output_);
    MergeWriter(plan, output, progress).Write();
    output.Save();
  } catch (const Failure&) {
    // What is wrong with a file that changes is that it changes.
    require_unchanged();
    throw;
  }
  require_unchanged();
}

bool MergeCommand::Validate(const std::string& path) const {
  ReadingProgress progress(SizeToRead(path), OutputWhile::kIntoFiles);
  int64_t violations = 0;
  AuditFileValidator file;
  file.set_AuditFileName(path);
  file.Progress = [&progress](int64_t bytes) {
    progress.Show(static_cast<uint64_t>(bytes));
    return !Interruption::IsRequested();
  };
  file.Found = [&](const Violation& violation) {
    progress.Clear();
    if (++violations > kMostViolations) return !Interruption::IsRequested();
    // Nobody will see the file in which it stands there.
    Violation placeless = violation;
    placeless.place = {};
    std::cerr << "saft: " << Visible(output_) << ": " << Abridged(Describe(placeless, SpokenLanguage())) << '\n';
    return !Interruption::IsRequested();
  };
  const bool judged = file.ValidateAuditFile();
  Interruption::ThrowIfRequested();
  if (!judged) {
    if (file.IsSchemaAtFault()) SchemaChoice::Fail(*file.AuditException());
    FailWith(*file.AuditException(), output_);
  }
  if (violations > kMostViolations) {
    std::cerr << "saft: " << Visible(output_) << ": " << Say(words::kMoreViolations, violations - kMostViolations)
              << '\n';
  }
  return violations == 0;
}

}  // namespace zevo::saft
