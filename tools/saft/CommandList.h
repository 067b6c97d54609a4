// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_COMMANDLIST_H_
#define ZEVO_TOOLS_SAFT_COMMANDLIST_H_

#include <CLI/CLI.hpp>
#include <memory>
#include <span>

#include "tools/saft/command/Command.h"
#include "tools/saft/words/Text.h"

namespace zevo::saft {

/// A command as the program offers it.
struct CommandEntry {
  const char* name;
  Text<> description;  ///< of one line, for the help
  /// Declares the options of the command, and makes what runs with them.
  std::unique_ptr<Command> (*make)(CLI::App& options);
};

/// All commands, in the order of the help.
std::span<const CommandEntry> CommandList();

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_COMMANDLIST_H_
