// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/validate/ValidateCommand.h"

#include <zevo/adapters.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/terminal/VisibleText.h"

namespace zevo::saft {
namespace {

// The library reports a file that cannot be read just as one that is not valid, so this is checked here.
void RequireReadable(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (file) file.peek();
  if (!file.is_open() || file.bad()) throw Failure(path, std::strerror(errno));
}

}  // namespace

ValidateCommand::ValidateCommand(CLI::App& options) : schema_(options) {
  options.add_option("FILE.xml", file_, "Audit file to check, - for standard input")->required()->option_text(" ");
  options.footer(
      "Ends with 0 when the file is valid, with 1 when it is not: standard error then tells the first violation, with\n"
      "its line and column. A schema or a file that cannot be used ends it with 2.");
}

ExitCode ValidateCommand::Run() const {
  AuditFile file;
  file.set_AuditFileName(InputName(file_));
  schema_.Use();
  if (file.ValidateAuditFile()) {
    std::cout << Visible(file_) << ": valid\n";
    return kDone;
  }
  const AuditException& error = *file.AuditException();
  if (file.IsSchemaAtFault()) SchemaChoice::Fail(error);
  if (error.Number() < 0 || error.Source() == kRunTimeSource) FailWith(error, file_);
  if (file.AuditFileName() != kStandardInput) RequireReadable(file_);
  std::cerr << "saft: " << Visible(file_) << ": " << Abridged(error.Description()) << '\n';
  return kInvalid;
}

}  // namespace zevo::saft
