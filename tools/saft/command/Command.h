// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_COMMAND_COMMAND_H_
#define ZEVO_TOOLS_SAFT_COMMAND_COMMAND_H_

#include <CLI/CLI.hpp>
#include <string>

namespace zevo::saft {

/// How the program ends. `kError` is what becomes of every exception.
enum ExitCode : int { kDone = 0, kInvalid = 1, kError = 2 };

/// A subcommand of the program: it declares its options when it is made.
class Command {
 public:
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;
  virtual ~Command() = default;

  bool IsChosen() const { return options_.parsed(); }
  virtual ExitCode Run() const = 0;

 protected:
  Command(CLI::App& program, const std::string& name, const std::string& description)
      : options_(*program.add_subcommand(name, description)) {}

  CLI::App& options_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_COMMAND_COMMAND_H_
