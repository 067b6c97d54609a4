// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_TEMPLATE_TEMPLATECOMMAND_H_
#define ZEVO_TOOLS_SAFT_TEMPLATE_TEMPLATECOMMAND_H_

#include <CLI/CLI.hpp>
#include <string>

#include "tools/saft/command/Command.h"

namespace zevo::saft {

/// Writes an empty dataset: every file, with the names of its columns.
class TemplateCommand : public Command {
 public:
  explicit TemplateCommand(CLI::App& options);
  ExitCode Run() const override;

 private:
  std::string folder_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TEMPLATE_TEMPLATECOMMAND_H_
