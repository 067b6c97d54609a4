// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_LIST_LISTCOMMAND_H_
#define ZEVO_TOOLS_SAFT_LIST_LISTCOMMAND_H_

#include <CLI/CLI.hpp>
#include <string>

#include "tools/saft/command/Command.h"

namespace zevo::saft {

/// Lists the records of one kind that an audit file holds.
class ListCommand : public Command {
 public:
  explicit ListCommand(CLI::App& options);
  ExitCode Run() const override;

 private:
  std::string file_;
  std::string kind_;
  bool json_ = false;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_LIST_LISTCOMMAND_H_
