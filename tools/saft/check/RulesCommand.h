// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CHECK_RULESCOMMAND_H_
#define ZEVO_TOOLS_SAFT_CHECK_RULESCOMMAND_H_

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "tools/saft/command/Command.h"

namespace zevo::saft {

/// Lists and explains the rules of the check.
class RulesCommand : public Command {
 public:
  explicit RulesCommand(CLI::App& options);
  ExitCode Run() const override;

 private:
  std::vector<std::string> rules_;
  bool json_ = false;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CHECK_RULESCOMMAND_H_
