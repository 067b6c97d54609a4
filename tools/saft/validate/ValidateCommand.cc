// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/validate/ValidateCommand.h"

#include <unistd.h>
#include <zevo/adapters.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/validate/ViolationJson.h"

namespace zevo::saft {
namespace {

// The library reports a file that cannot be read just as one that is not valid, so this is checked here.
void RequireReadable(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (file) file.peek();
  if (!file.is_open() || file.bad()) throw Failure(path, std::strerror(errno));
}

constexpr Language kLanguage = Language::kEnglish;

}  // namespace

ValidateCommand::ValidateCommand(CLI::App& options) : schema_(options) {
  options.add_option("FILE.xml", file_, "Audit file to check, - for standard input")->required()->option_text(" ");
  CLI::Option* const all = options.add_flag("--all", all_, "List every violation, one a line");
  options.add_flag("--json", json_, "With --all: a JSON object for each violation, one a line")->needs(all);
  options.footer(
      "Ends with 0 when the file is valid, with 1 when it is not: standard error then tells the first violation, with\n"
      "its record, element, line and column, or with --all standard output tells all. A file that is not well-formed\n"
      "is not valid. A schema or a file that cannot be used ends it with 2. Standard input is read only once: there "
      "the\n"
      "XML library tells the violations in its own words, and may leave some out.");
}

ExitCode ValidateCommand::Run() const {
  AuditFileValidator file;
  file.set_AuditFileName(InputName(file_));
  file.Found = [this](const Violation& violation) { return Tell(violation); };
  schema_.Use();
  if (!file.ValidateAuditFile()) {
    TellFailure(file);
    return kInvalid;
  }
  if (file.Violations() > 0) return kInvalid;
  if (!json_) std::cout << Visible(file_) << ": valid\n";
  return kDone;
}

bool ValidateCommand::Tell(const Violation& violation) const {
  if (json_) {
    const std::string json = JsonOf(violation, kLanguage);
    std::cout << (isatty(STDOUT_FILENO) == 1 ? VisibleLines(json) : json) << '\n';
  } else if (all_) {
    std::cout << Abridged(Describe(violation, kLanguage)) << '\n';
  } else {
    std::cerr << "saft: " << Visible(file_) << ": " << Abridged(Describe(violation, kLanguage)) << '\n';
  }
  return all_ && std::cout.good();
}

void ValidateCommand::TellFailure(const AuditFileValidator& file) const {
  const AuditException& error = *file.AuditException();
  if (file.IsSchemaAtFault()) SchemaChoice::Fail(error);
  if (error.Number() < 0 || error.Source() == kRunTimeSource) FailWith(error, file_);
  if (file.AuditFileName() != kStandardInput) RequireReadable(file_);
  std::cerr << "saft: " << Visible(file_) << ": " << Abridged(error.Description()) << '\n';
}

}  // namespace zevo::saft
