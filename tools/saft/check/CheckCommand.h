// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CHECK_CHECKCOMMAND_H_
#define ZEVO_TOOLS_SAFT_CHECK_CHECKCOMMAND_H_

#include <zevo/adapters.h>

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "tools/saft/check/CheckChoices.h"
#include "tools/saft/check/CheckReport.h"
#include "tools/saft/command/Command.h"
#include "tools/saft/command/SchemaChoice.h"

namespace zevo::saft {

/// Checks audit files by the schema and by the rules beyond it.
class CheckCommand : public Command {
 public:
  explicit CheckCommand(CLI::App& options);
  ExitCode Run() const override;

 private:
  CheckChoices Choices() const;
  void Tell(const CheckReport& report) const;

  std::vector<std::string> files_;
  bool json_ = false;
  bool sarif_ = false;
  bool summary_ = false;
  std::vector<std::string> keys_;
  std::vector<std::string> severities_;
  std::string configuration_;
  std::string most_;
  SchemaChoice schema_;
  const CLI::Option* configuration_option_;
  const CLI::Option* most_option_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CHECK_CHECKCOMMAND_H_
