// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/summary/SummaryCommand.h"

#include <unistd.h>

#include <iostream>

#include "tools/saft/input/ProblemReport.h"
#include "tools/saft/summary/SummaryJson.h"
#include "tools/saft/summary/SummaryReader.h"
#include "tools/saft/summary/SummaryText.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/SummaryWords.h"
#include "tools/saft/words/UsageWords.h"

namespace zevo::saft {

SummaryCommand::SummaryCommand(CLI::App& options) {
  options.add_option(Say(words::kFileArgument), file_, Say(words::kInputFile))->required()->option_text(" ");
  options.add_flag("--json", json_, Say(words::kSummaryJson))->option_text(" ");
  options.footer(Say(words::kSummaryHelp));
}

ExitCode SummaryCommand::Run() const {
  ProblemReport problems(file_);
  const Summary summary = SummaryReader(file_, problems).Read();
  if (json_) {
    const std::string json = JsonOf(summary);
    std::cout << (isatty(STDOUT_FILENO) == 1 ? VisibleLines(json) : json) << '\n';
  } else {
    PrintText(summary, std::cout);
  }
  // The problems come after it where both go to one place.
  std::cout.flush();
  problems.Report(std::cerr);
  return problems.Count() > 0 ? kError : kDone;
}

}  // namespace zevo::saft
