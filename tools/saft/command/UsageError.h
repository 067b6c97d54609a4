// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_COMMAND_USAGEERROR_H_
#define ZEVO_TOOLS_SAFT_COMMAND_USAGEERROR_H_

#include <CLI/CLI.hpp>
#include <string>

namespace zevo::saft {

/// What is wrong with the arguments of the program, in a sentence, and where the help is. `program` is what refused
/// them with `error`.
std::string UsageError(const CLI::App& program, const CLI::ParseError& error);

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_COMMAND_USAGEERROR_H_
