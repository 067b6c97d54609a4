// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/summary/SummaryCommand.h"

#include <unistd.h>

#include <iostream>

#include "tools/saft/summary/SummaryJson.h"
#include "tools/saft/summary/SummaryReader.h"
#include "tools/saft/summary/SummaryText.h"
#include "tools/saft/terminal/VisibleText.h"

namespace zevo::saft {

SummaryCommand::SummaryCommand(CLI::App& options) {
  options.add_option("FILE.xml", file_, "Audit file to read, - for standard input")->required()->option_text(" ");
  options.add_flag("--json", json_, "Write JSON for programs, with amounts as texts");
  options.footer(
      "Totals are told as the file has them and as the records sum up to. Documents whose TransactionID is "
      "\"Anulado\"\n"
      "are left out of both; the table of invoice types has all documents. The entries of a tax table are unreadable\n"
      "unless each has both a percentage and an amount. The file is read in one pass and may be of any size.");
}

ExitCode SummaryCommand::Run() const {
  const Summary summary = SummaryReader(file_).Read();
  if (json_) {
    const std::string json = JsonOf(summary);
    std::cout << (isatty(STDOUT_FILENO) == 1 ? VisibleLines(json) : json) << '\n';
  } else {
    PrintText(summary, std::cout);
  }
  return kDone;
}

}  // namespace zevo::saft
