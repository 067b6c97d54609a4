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
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/saft/CommandList.h"
#include "tools/saft/command/UsageError.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/errors/NearestName.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ErrorWords.h"
#include "tools/saft/words/SpokenLanguage.h"
#include "tools/saft/words/UsageWords.h"

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
  throw Failure(Say(words::kUnknownCommand, Quoted(given)) + DidYouMean(given, CommandList(), &CommandEntry::name) +
                '\n' + Say(words::kSeeHelp, "saft"));
}

constexpr std::string_view kLanguageOption = "--lang";

// Chooses the language before anything is said, which is before the arguments are looked at as a whole.
void ChooseLanguage(std::span<const char* const> arguments) {
  Speak(LanguageOfEnvironment());
  for (size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument(arguments[i]);
    if (!argument.starts_with(kLanguageOption)) continue;
    std::string_view name = argument.substr(kLanguageOption.size());
    if (name.empty()) {
      if (i + 1 == arguments.size()) return;  // told where the arguments are looked at
      name = arguments[i + 1];
    } else if (name.starts_with('=')) {
      name.remove_prefix(1);
    } else {
      continue;
    }
    const auto language = LanguageNamed(name);
    if (!language) throw Failure(Say(words::kUnknownLanguage, Quoted(name)));
    Speak(*language);
  }
}

// The option is there for the help, and so that it is taken where it stands.
void AddLanguageOption(CLI::App& options) {
  options
      .add_option_function<std::string>(
          std::string(kLanguageOption), [](const std::string&) {}, Say(words::kLanguageOption))
      ->option_text("pt|en");
}

// What every help page says.
void SetWordsOfHelp(CLI::App& program) {
  program.get_formatter()->label("Usage", Say(words::kUsage));
  program.get_formatter()->label("OPTIONS", Say(words::kOptionsBadge));
  program.get_formatter()->label("SUBCOMMAND", Say(words::kCommandBadge));
  program.get_formatter()->label("Positionals", Say(words::kArguments));
  program.option_defaults()->group(Say(words::kOptions))->disable_flag_override();
  program.set_help_flag("-h,--help", Say(words::kHelpOption));
  program.set_version_flag("--version", "saft " SAFT_VERSION, Say(words::kVersionOption));
}

ExitCode Run(std::span<char*> arguments) {
  ChooseLanguage(arguments);
  if (arguments.size() > 1) RequireKnownCommand(arguments[1]);
  CLI::App program(Say(words::kProgram), "saft");
  SetWordsOfHelp(program);
  AddLanguageOption(program);
  program.require_subcommand(1);
  program.footer(Say(words::kProgramHelp));
  struct Offered {
    const CLI::App* options;
    std::unique_ptr<Command> command;
  };
  std::vector<Offered> commands;
  for (const auto& [name, description, make] : CommandList()) {
    CLI::App* const options = program.add_subcommand(name, Say(description));
    options->group(Say(words::kCommands));
    commands.push_back({options, make(*options)});
    // A command has this option before it learns the group.
    options->get_help_ptr()->group(Say(words::kOptions));
    AddLanguageOption(*options);
  }

  try {
    program.parse(static_cast<int>(arguments.size()), arguments.data());
  } catch (const CLI::Success& help) {
    program.exit(help);
    return kDone;
  } catch (const CLI::ParseError& error) {
    throw Failure(UsageError(program, error));
  }
  for (const auto& [options, command] : commands) {
    if (options->parsed()) return command->Run();
  }
  return kError;
}

// Turns whatever ends the run into its message and the exit code.
int RunToTheEnd(std::span<char*> arguments) {
  try {
    const ExitCode code = Run(arguments);
    if (!std::cout.flush()) throw Failure(Say(words::kOutputUnwritable));
    return code;
  } catch (const Failure& failure) {
    std::cerr << "saft: " << failure.what() << '\n';
    return kError;
  } catch (const Interrupted& interrupted) {
    std::cerr << "saft: " << Say(words::kInterrupted) << '\n';
    interrupted.EndProgram();
    return kError;
  } catch (const std::bad_alloc&) {
    // Saying it takes memory, which may not be there.
    std::cerr << "saft: " << words::kOutOfMemory.In(SpokenLanguage()) << '\n';
    return kError;
  } catch (const std::exception& error) {
    std::cerr << "saft: " << Say(words::kUnexpected, Visible(error.what())) << '\n';
    return kError;
  }
}

}  // namespace
}  // namespace zevo::saft

int main(int argc, char** argv) {
  zevo::saft::KeepOutputs();
#ifdef SIGXFSZ
  // With the signal ignored, a file that grows too large is an ordinary write error, like a full disk.
  std::signal(SIGXFSZ, SIG_IGN);
#endif
  return zevo::saft::RunToTheEnd({argv, static_cast<size_t>(argc)});
}
