// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYCOMMAND_H_
#define ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYCOMMAND_H_

#include <CLI/CLI.hpp>
#include <string>

#include "tools/saft/command/Command.h"

namespace zevo::saft {

/// Tells what an audit file holds, in figures.
class SummaryCommand : public Command {
 public:
  explicit SummaryCommand(CLI::App& options);
  ExitCode Run() const override;

 private:
  std::string file_;
  bool json_ = false;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_SUMMARY_SUMMARYCOMMAND_H_
