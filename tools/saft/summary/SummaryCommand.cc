// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/summary/SummaryCommand.h"

#include <unistd.h>

#include <iostream>

#include "tools/saft/input/ProblemReport.h"
#include "tools/saft/summary/SummaryJson.h"
#include "tools/saft/summary/SummaryReader.h"
#include "tools/saft/summary/SummaryText.h"
#include "tools/saft/terminal/VisibleText.h"

namespace zevo::saft {

SummaryCommand::SummaryCommand(CLI::App& options) {
  options.add_option("FILE.xml", file_, "Audit file to read, - for standard input")->required()->option_text(" ");
  options.add_flag("--json", json_, "Write JSON for programs, with amounts as texts");
  options.footer(
      "The header, codes and section totals are told as the file has them, sums as its records sum up to, exactly.\n"
      "Documents whose TransactionID is \"Anulado\" are left out of both totals; the table of invoice types has all\n"
      "documents. A dash stands for a total that the file does not have. The file is read in one pass and may be of "
      "any\n"
      "size.\n"
      "\n"
      "What makes figures differ from the file, or may, is told at the end and makes the exit code 2:\n"
      "  an amount or total that is no number: sums that it belongs to go without it and have a *\n"
      "  an element of which figures are made, a header or a section that is there twice: the first one counts\n"
      "  an element inside one of which figures are made: the first piece of its text counts\n"
      "  an element between records, in a journal, a section or the tax table, that is no record, or one elsewhere "
      "with\n"
      "  the name of a record or of an element of which figures are made: it may be one spelt otherwise\n"
      "  a record out of its place: it counts among those of its kind\n"
      "  a file that does not say its version\n"
      "Codes that are unknown, other constants, decimals beyond four and repeated keys change no figure.\n"
      "\n"
      "In JSON, amounts and the totals of InFile are texts; the members of Counts and other numbers of entries are\n"
      "numbers. Version is the AuditFileVersion of the header. null is what the file does not have. Unreadable, where "
      "it\n"
      "is there, tells by name how many texts beside it are no numbers, or how many amounts a sum goes without. "
      "Problems\n"
      "has their Count, and First: the first five of each kind, in sentences.");
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
