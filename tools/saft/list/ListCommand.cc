// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/list/ListCommand.h"

#include <unistd.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <cstdint>
#include <iostream>
#include <memory>
#include <vector>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/input/AuditFileInput.h"
#include "tools/saft/input/ProblemReport.h"
#include "tools/saft/list/RecordKind.h"
#include "tools/saft/list/RecordPrinter.h"

namespace zevo::saft {
namespace {

std::vector<std::string> NamesOfKinds() {
  std::vector<std::string> names;
  for (const RecordKind& kind : RecordKinds()) names.emplace_back(kind.name);
  return names;
}

}  // namespace

ListCommand::ListCommand(CLI::App& options) {
  options.add_option("FILE.xml", file_, "Audit file to read, - for standard input")->required()->option_text(" ");
  options.add_option("KIND", kind_, "Class of the records, see below")
      ->required()
      ->check(CLI::IsMember(NamesOfKinds()))
      ->option_text(" ");
  options.add_flag("--json", json_, "Write a JSON object a line, with amounts as texts, instead of CSV");
  std::string footer = "Kinds:";
  for (const RecordKind& kind : RecordKinds()) footer.append("\n  ").append(kind.name);
  options.footer(
      footer +
      "\n\nThe CSV is a file of a dataset as \"saft create\" takes it. The file is read in one pass and may be of any\n"
      "size. A record that cannot be read is left out, told at the end, and makes the exit code 2: among those are\n"
      "tax tables, unless each entry has both a percentage and an amount.");
}

ExitCode ListCommand::Run() const {
  const RecordKind& kind = *std::ranges::find(RecordKinds(), kind_, &RecordKind::name);
  AuditFileInput file(file_, OutputWhile::kReading);
  std::unique_ptr<RecordPrinter> printer;
  const Reader reader = isatty(STDOUT_FILENO) == 1 ? Reader::kTerminal : Reader::kProgram;
  if (json_) {
    printer = std::make_unique<JsonPrinter>(kind, std::cout, reader);
  } else {
    printer = std::make_unique<CsvPrinter>(kind, std::cout, reader);
  }
  ProblemReport problems(file_);
  file.Read([&](const AuditFileScanner& scanner, const Record& record) {
    if (scanner.Kind() != kind.entity) return;
    for (const Problem& problem : scanner.Problems()) problems.Add(scanner, problem);
    kind.visit(record, scanner.JournalID(),
               [&](const auto& parents, const Record& row) { printer->Print(parents, row); });
    if (!std::cout) throw Failure("standard output cannot be written");
  });
  problems.Report(std::cerr);
  return kDone;
}

}  // namespace zevo::saft
