// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_VALIDATE_VALIDATECOMMAND_H_
#define ZEVO_TOOLS_SAFT_VALIDATE_VALIDATECOMMAND_H_

#include <zevo/adapters.h>

#include <CLI/CLI.hpp>
#include <string>

#include "tools/saft/command/Command.h"
#include "tools/saft/command/SchemaChoice.h"

namespace zevo::saft {

/// Checks an audit file against the schema.
class ValidateCommand : public Command {
 public:
  explicit ValidateCommand(CLI::App& options);
  ExitCode Run() const override;

 private:
  /// Validates with what people see and may do meanwhile.
  bool Validate(AuditFileValidator& file) const;
  bool Tell(const Violation& violation) const;
  /// Tells what kept the file from being judged, if the file itself is at fault.
  void TellFailure(const AuditFileValidator& file) const;

  std::string file_;
  bool all_ = false;
  bool json_ = false;
  SchemaChoice schema_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_VALIDATE_VALIDATECOMMAND_H_
