// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/validate/ValidateCommand.h"

#include <unistd.h>
#include <zevo/adapters.h>

#include <cerrno>
#include <fstream>
#include <iostream>
#include <string>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/input/ReadingProgress.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/validate/ViolationJson.h"
#include "tools/saft/words/SpokenLanguage.h"
#include "tools/saft/words/UsageWords.h"
#include "tools/saft/words/ValidateWords.h"

namespace zevo::saft {
namespace {

// The library reports a file that cannot be read just as one that is not valid, so this is checked here.
void RequireReadable(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (file) file.peek();
  if (!file.is_open() || file.bad()) FailWithSystemError(errno, path);
}

}  // namespace

ValidateCommand::ValidateCommand(CLI::App& options) : schema_(options) {
  options.add_option(Say(words::kFileArgument), file_, Say(words::kInputFile))->required()->option_text(" ");
  CLI::Option* const all = options.add_flag("--all", all_, Say(words::kValidateAll));
  options.add_flag("--json", json_, Say(words::kValidateJson))->needs(all)->option_text(" ");
  options.footer(Say(words::kValidateHelp));
}

ExitCode ValidateCommand::Run() const {
  AuditFileValidator file;
  file.set_AuditFileName(InputName(file_));
  schema_.Use();
  if (!Validate(file)) {
    TellFailure(file);
    return kInvalid;
  }
  if (file.Violations() > 0) return kInvalid;
  if (!json_) std::cout << Say(words::kValid, Visible(file_)) << '\n';
  return kDone;
}

bool ValidateCommand::Validate(AuditFileValidator& file) const {
  ReadingProgress progress(SizeToRead(file.AuditFileName()), all_ ? OutputWhile::kReading : OutputWhile::kAfterReading);
  file.Progress = [&progress](int64_t bytes) {
    progress.Show(static_cast<uint64_t>(bytes));
    return !Interruption::IsRequested();
  };
  file.Found = [this, &progress](const Violation& violation) {
    if (!all_) progress.Clear();
    return Tell(violation);
  };
  const bool done = file.ValidateAuditFile();
  file.Progress = nullptr;
  file.Found = nullptr;
  return done;
}

bool ValidateCommand::Tell(const Violation& violation) const {
  if (json_) {
    const std::string json = JsonOf(violation, SpokenLanguage());
    std::cout << (isatty(STDOUT_FILENO) == 1 ? VisibleLines(json) : json) << '\n';
  } else if (all_) {
    std::cout << Abridged(Describe(violation, SpokenLanguage())) << '\n';
  } else {
    std::cerr << "saft: " << Visible(file_) << ": " << Abridged(Describe(violation, SpokenLanguage())) << '\n';
  }
  return all_ && std::cout.good();
}

void ValidateCommand::TellFailure(const AuditFileValidator& file) const {
  const AuditException& error = *file.AuditException();
  if (file.IsSchemaAtFault()) SchemaChoice::Fail(error);
  if (error.Number() < 0 || error.Source() == kRunTimeSource) FailWith(error, file_);
  if (file.AuditFileName() != kStandardInput) RequireReadable(file_);
  std::cerr << "saft: " << Visible(file_) << ": " << Abridged(Describe(error, SpokenLanguage())) << '\n';
}

}  // namespace zevo::saft
