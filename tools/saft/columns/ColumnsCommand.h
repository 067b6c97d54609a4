// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_COLUMNS_COLUMNSCOMMAND_H_
#define ZEVO_TOOLS_SAFT_COLUMNS_COLUMNSCOMMAND_H_

#include <CLI/CLI.hpp>
#include <string>

#include "tools/saft/command/Command.h"
#include "tools/saft/command/SchemaChoice.h"

namespace zevo::saft {

/// Tells what goes into the columns of a dataset.
class ColumnsCommand : public Command {
 public:
  explicit ColumnsCommand(CLI::App& options);
  ExitCode Run() const override;

 private:
  SchemaChoice schema_;
  std::string kind_;
  bool json_ = false;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_COLUMNS_COLUMNSCOMMAND_H_
