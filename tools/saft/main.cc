#include <CLI/CLI.hpp>
#include <array>
#include <exception>
#include <iostream>
#include <stdexcept>

#include "tools/saft/Command.h"
#include "tools/saft/CreateCommand.h"
#include "tools/saft/ListCommand.h"
#include "tools/saft/SummaryCommand.h"
#include "tools/saft/ValidateCommand.h"

namespace zevo::saft {
namespace {

ExitCode Run(int argc, char** argv) {
  CLI::App program("Writes, checks, sums up and lists SAF-T (PT) 1.01_01 audit files.", "saft");
  program.set_version_flag("--version", "saft " SAFT_VERSION, "Print the version and exit");
  program.require_subcommand(1);
  program.footer(
      "Exit codes: 0 done, 1 the file is not valid (validate), 2 any error; errors are told on standard error.\n"
      "More about a command: saft COMMAND --help");
  const CreateCommand create(program);
  const ValidateCommand validate(program);
  const SummaryCommand summary(program);
  const ListCommand list(program);

  try {
    program.parse(argc, argv);
  } catch (const CLI::Success& help) {
    program.exit(help);
    return kDone;
  } catch (const CLI::ParseError& error) {
    throw std::runtime_error(std::string(error.what()) + "\nRun \"saft --help\" for help.");
  }
  for (const Command* command : std::array<const Command*, 4>{&create, &validate, &summary, &list}) {
    if (command->IsChosen()) return command->Run();
  }
  return kError;
}

}  // namespace
}  // namespace zevo::saft

int main(int argc, char** argv) {
  try {
    const zevo::saft::ExitCode code = zevo::saft::Run(argc, argv);
    if (!std::cout.flush()) throw std::runtime_error("standard output cannot be written");
    return code;
  } catch (const std::exception& error) {
    std::cerr << "saft: " << error.what() << '\n';
    return zevo::saft::kError;
  }
}
