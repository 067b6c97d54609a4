// SPDX-License-Identifier: Apache-2.0
#include <fcntl.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <exception>
#include <iostream>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <vector>

#include "tools/saft/CommandList.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/errors/NearestName.h"
#include "tools/saft/terminal/VisibleText.h"

namespace zevo::saft {
namespace {

// Where the program starts with an output closed, the next file opened would get its descriptor, and messages would go
// into that file.
void KeepOutputs() {
  for (const int output : {STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(output, F_GETFD) >= 0) continue;
    // Open for reading only, so that writing fails as it does on a closed output.
    const int nothing = open("/dev/null", O_RDONLY);
    if (nothing != output) dup2(nothing, output);
  }
}

// The library takes an unknown command for an argument of the program.
void RequireKnownCommand(std::string_view given) {
  const bool known =
      std::ranges::any_of(CommandList(), [given](const CommandEntry& each) { return each.name == given; });
  if (given.starts_with('-') || known) return;
  throw Failure("there is no command " + Quoted(given) + "; the nearest is " +
                std::string(NearestName(given, CommandList(), &CommandEntry::name)) +
                "\nRun \"saft --help\" for help.");
}

// Of the command that is wrongly used or, without one, of the program.
std::string WhereHelpIs(const CLI::App& program) {
  const auto commands = program.get_subcommands();
  return "Run \"saft " + (commands.empty() ? "" : commands.front()->get_name() + " ") + "--help\" for help.";
}

ExitCode Run(int argc, char** argv) {
  if (argc > 1) RequireKnownCommand(argv[1]);
  CLI::App program("Writes, checks, sums up and lists SAF-T (PT) 1.01_01 audit files.", "saft");
  program.set_version_flag("--version", "saft " SAFT_VERSION, "Print the version and exit");
  program.require_subcommand(1);
  program.footer(
      "Exit codes: 0 done, 1 the file is not valid (validate), 2 any error; errors are told on standard error.\n"
      "More about a command: saft COMMAND --help");
  struct Offered {
    const CLI::App* options;
    std::unique_ptr<Command> command;
  };
  std::vector<Offered> commands;
  for (const auto& [name, description, make] : CommandList()) {
    CLI::App* const options = program.add_subcommand(name, description);
    commands.push_back({options, make(*options)});
  }

  try {
    program.parse(argc, argv);
  } catch (const CLI::Success& help) {
    program.exit(help);
    return kDone;
  } catch (const CLI::ParseError& error) {
    throw Failure(Visible(error.what()) + "\n" + WhereHelpIs(program));
  }
  for (const auto& [options, command] : commands) {
    if (options->parsed()) return command->Run();
  }
  return kError;
}

}  // namespace
}  // namespace zevo::saft

int main(int argc, char** argv) {
  zevo::saft::KeepOutputs();
#ifdef SIGXFSZ
  // With the signal ignored, a file that grows too large is an ordinary write error, like a full disk.
  std::signal(SIGXFSZ, SIG_IGN);
#endif
  try {
    const zevo::saft::ExitCode code = zevo::saft::Run(argc, argv);
    if (!std::cout.flush()) throw zevo::saft::Failure("standard output cannot be written");
    return code;
  } catch (const zevo::saft::Failure& failure) {
    std::cerr << "saft: " << failure.what() << '\n';
    return zevo::saft::kError;
  } catch (const zevo::saft::Interrupted& interrupted) {
    std::cerr << "saft: interrupted\n";
    interrupted.EndProgram();
    return zevo::saft::kError;
  } catch (const std::bad_alloc&) {
    std::cerr << "saft: not enough memory\n";
    return zevo::saft::kError;
  } catch (const std::exception& error) {
    std::cerr << "saft: " << zevo::saft::Visible(error.what()) << '\n';
    return zevo::saft::kError;
  }
}
