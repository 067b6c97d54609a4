// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_COMMAND_COMMAND_H_
#define ZEVO_TOOLS_SAFT_COMMAND_COMMAND_H_

namespace zevo::saft {

/// How the program ends. `kError` is what becomes of every exception.
enum ExitCode : int { kDone = 0, kInvalid = 1, kError = 2 };

/// A command of the program. A class of commands declares its options when it is made from them: its constructor takes
/// a `CLI::App&`, which lives as long as the command.
class Command {
 public:
  Command() = default;
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;
  virtual ~Command() = default;

  /// Does what the options say, once they are parsed. Whatever is thrown ends the program with `kError`.
  virtual ExitCode Run() const = 0;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_COMMAND_COMMAND_H_
