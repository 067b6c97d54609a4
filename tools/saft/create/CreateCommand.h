// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_CREATECOMMAND_H_
#define ZEVO_TOOLS_SAFT_CREATE_CREATECOMMAND_H_

#include <CLI/CLI.hpp>
#include <string>

#include "tools/saft/command/Command.h"
#include "tools/saft/command/SchemaChoice.h"

namespace zevo::saft {

/// Turns a dataset into an audit file.
class CreateCommand : public Command {
 public:
  explicit CreateCommand(CLI::App& options);
  ExitCode Run() const override;

 private:
  SchemaChoice schema_;
  std::string dataset_;
  std::string file_;
  bool stream_ = false;
  bool round_ = false;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_CREATECOMMAND_H_
