// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/check/CheckCommand.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <utility>

#include "tools/saft/check/CheckJson.h"
#include "tools/saft/check/CheckSarif.h"
#include "tools/saft/check/CheckText.h"
#include "tools/saft/check/ChoicesFile.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/terminal/TerminalWidth.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/CheckWords.h"
#include "tools/saft/words/FileWords.h"
#include "tools/saft/words/UsageWords.h"

namespace zevo::saft {
namespace {

bool IsSet(const char* variable) {
  const char* const value = std::getenv(variable);  // NOLINT(concurrency-mt-unsafe): nobody here sets it
  return value != nullptr && *value != '\0';
}

bool IsTerminal() { return isatty(STDOUT_FILENO) == 1; }

bool IsColourWelcome() { return IsTerminal() && !IsSet("NO_COLOR"); }

CheckText TextForPeople() { return {std::cout, IsColourWelcome(), TerminalWidth(STDOUT_FILENO)}; }

void PrintForPrograms(const std::string& json) { std::cout << (IsTerminal() ? VisibleLines(json) : json) << '\n'; }

ExitCode CodeOf(CheckVerdict verdict) {
  switch (verdict) {
    case CheckVerdict::kClean:
    case CheckVerdict::kWarnings:
      return kDone;
    case CheckVerdict::kErrors:
      return kInvalid;
    case CheckVerdict::kNotJudged:
      break;
  }
  return kError;
}

}  // namespace

CheckCommand::CheckCommand(CLI::App& options) : schema_(options) {
  options.add_option(Say(words::kFileArgument), files_, Say(words::kInputFile))->required()->option_text(" ");
  CLI::Option* const json = options.add_flag("--json", json_, Say(words::kCheckJson));
  json->option_text(" ");
  CLI::Option* const sarif = options.add_flag("--sarif", sarif_, Say(words::kCheckSarif));
  sarif->option_text(" ")->excludes(json);
  options.add_flag("--summary", summary_, Say(words::kCheckSummary))->option_text(" ")->excludes(json)->excludes(sarif);
  options.add_option("--public-key", keys_, Say(words::kCheckKey))
      ->allow_extra_args(false)
      ->option_text(Say(words::kCheckKeyValue));
  options.add_option("--severity", severities_, Say(words::kCheckSeverity))
      ->allow_extra_args(false)
      ->option_text(Say(words::kCheckSeverityValue));
  most_option_ = options.add_option("--max", most_, Say(words::kCheckMost))->option_text("N");
  configuration_option_ =
      options.add_option("--config", configuration_, Say(words::kCheckConfiguration))->option_text("TOML");
  options.footer(Say(words::kCheckHelp));
}

CheckChoices CheckCommand::Choices() const {
  CheckChoices choices;
  if (configuration_option_->count() > 0) {
    if (configuration_.empty()) throw Failure("--config", Say(words::kNamesNoFile));
    choices = ReadChoicesFile(configuration_);
  }
  CheckChoices here;
  std::ranges::transform(severities_, std::back_inserter(here.severities), TakeRuleSeverity);
  std::ranges::transform(keys_, std::back_inserter(here.public_keys), TakeKeyFile);
  for (const KeyFile& key : here.public_keys) {
    if (key.file.empty()) throw Failure("--public-key", Say(words::kNamesNoFile));
  }
  if (most_option_->count() > 0) {
    here.most = TakeCount(most_);
    if (!here.most) throw Failure(Say(words::kNoCount, "--max", Quoted(most_)));
  }
  choices.Add(here);
  return choices;
}

ExitCode CheckCommand::Run() const {
  const CheckChoices choices = Choices();
  AuditFileChecker checker;
  choices.Apply(checker);
  schema_.Use(choices.schema);
  schema_.RequireUsable(choices.schema);
  ExitCode worst = kDone;
  std::vector<CheckReport> reports;
  VerdictCounts verdicts{};
  for (const std::string& file : files_) {
    CheckReport report = CheckFile(checker, file);
    worst = std::max(worst, CodeOf(report.verdict));
    ++verdicts[static_cast<size_t>(report.verdict)];
    if (sarif_) {
      reports.push_back(std::move(report));
    } else {
      Tell(report);
    }
  }
  if (sarif_) PrintForPrograms(SarifOf(reports, choices, worst));
  if (!sarif_ && !json_ && files_.size() > 1) TextForPeople().PrintFiles(verdicts);
  return worst;
}

void CheckCommand::Tell(const CheckReport& report) const {
  if (json_) {
    PrintForPrograms(JsonOf(report));
    return;
  }
  const CheckText text = TextForPeople();
  if (summary_) {
    text.PrintSummary(report, files_.size() > 1);
  } else {
    text.PrintFindings(report, files_.size() > 1);
  }
  if (report.error.empty()) return;
  // Behind what was found where both go to one place.
  std::cout.flush();
  std::cerr << "saft: " << Visible(report.file) << ": " << Abridged(report.error) << '\n';
}

}  // namespace zevo::saft
