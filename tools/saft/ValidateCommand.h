#ifndef ZEVO_TOOLS_SAFT_VALIDATECOMMAND_H_
#define ZEVO_TOOLS_SAFT_VALIDATECOMMAND_H_

#include <zevo/adapters.h>

#include <string>

#include "tools/saft/Command.h"

namespace zevo::saft {

/// Checks an audit file against the schema.
class ValidateCommand : public Command {
 public:
  explicit ValidateCommand(CLI::App& program);
  ExitCode Run() const override;

 private:
  std::string file_;
  std::string schema_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_VALIDATECOMMAND_H_
