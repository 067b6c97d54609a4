// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_EXPORT_EXPORTCOMMAND_H_
#define ZEVO_TOOLS_SAFT_EXPORT_EXPORTCOMMAND_H_

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "tools/saft/command/Command.h"

namespace zevo::saft {

/// Lays audit files into the tables of a database, a folder or a workbook.
class ExportCommand : public Command {
 public:
  explicit ExportCommand(CLI::App& options);

  ExitCode Run() const override;

 private:
  std::vector<std::string> files_;
  std::string target_;
  bool replace_ = false;
  std::string format_;
  bool partition_ = false;
  bool check_ = false;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_EXPORT_EXPORTCOMMAND_H_
