// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/command/UsageError.h"

#include <string_view>
#include <vector>

#include "tools/saft/errors/NearestName.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/UsageWords.h"

namespace zevo::saft {
namespace {

// The names in a message of the library, which gives them nowhere else: what is in front of the words, and behind them.
struct Names {
  std::string before;
  std::string behind;
};
Names Around(std::string_view words, std::string_view message) {
  const size_t at = message.find(words);
  if (at == std::string_view::npos) return {Visible(message), {}};
  return {Visible(message.substr(0, at)), Visible(message.substr(at + words.size()))};
}

std::string Joined(const std::vector<std::string>& names) {
  std::string all;
  for (const std::string& name : names) all.append(all.empty() ? "" : ", ").append(name);
  return all;
}

std::vector<std::string> OptionsOf(const CLI::App& command) {
  std::vector<std::string> names;
  for (const CLI::Option* option : command.get_options()) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  return names;
}

std::string Unexpected(const CLI::App& program, const CLI::App& command) {
  for (const std::string& each : program.remaining(true)) {
    if (!each.starts_with("--")) continue;
    const std::vector<std::string> known = OptionsOf(command);
    const std::vector<std::string_view> names(known.begin(), known.end());
    const std::string option = each.substr(0, each.find('='));
    return Say(words::kUnknownOption, command.get_name(), Visible(option)) + DidYouMean(option, names);
  }
  std::vector<std::string> quoted;
  for (const std::string& each : program.remaining(true)) quoted.push_back(Quoted(each));
  return Say(words::kArgumentTooMany, command.get_name(), Joined(quoted));
}

std::string WithoutCommand(const CLI::App& program) {
  std::vector<std::string> names;
  for (const CLI::App* command : program.get_subcommands({})) names.push_back(command->get_name());
  return Say(words::kCommandMissing, Joined(names));
}

// What help pages call the value of an option.
std::string ValueOf(const CLI::Option& option) {
  return option.get_option_text().empty() ? option.get_type_name() : option.get_option_text();
}

std::string Mismatch(const CLI::App& command, std::string_view message) {
  constexpr std::string_view kOfFlag = " was given a disallowed flag override";  // which has its name without hyphens
  std::string name(message.substr(0, message.find_first_of(": ")));
  if (message.ends_with(kOfFlag)) name.insert(0, "--");
  const CLI::Option* const option = command.get_option_no_throw(name);
  const std::string& called = command.get_name();
  if (option == nullptr) return Say(words::kWrongUsage, called);
  if (message.ends_with(" missing")) return Say(words::kValueMissing, called, name, ValueOf(*option));
  if (option->get_expected_max() == 0) return Say(words::kValueTooMuch, called, name);
  return Say(words::kOptionTwice, called, name);
}

std::string Sentence(const CLI::App& program, const CLI::ParseError& error) {
  const auto used = program.get_subcommands();
  if (used.empty() && dynamic_cast<const CLI::ExtrasError*>(&error) == nullptr) return WithoutCommand(program);
  const CLI::App& command = used.empty() ? program : *used.front();
  const std::string& name = command.get_name();
  const std::string_view message(error.what());
  if (dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr) return Unexpected(program, command);
  if (dynamic_cast<const CLI::RequiredError*>(&error) != nullptr) {
    return Say(words::kArgumentMissing, name, Around(" is required", message).before);
  }
  if (dynamic_cast<const CLI::ExcludesError*>(&error) != nullptr) {
    const auto [one, other] = Around(" excludes ", message);
    return Say(words::kNotTogether, name, one, other);
  }
  if (dynamic_cast<const CLI::RequiresError*>(&error) != nullptr) {
    const auto [one, other] = Around(" requires ", message);
    return Say(words::kOnlyWith, name, one, other);
  }
  if (dynamic_cast<const CLI::ArgumentMismatch*>(&error) != nullptr) return Mismatch(command, message);
  return Say(words::kWrongUsage, name);
}

}  // namespace

std::string UsageError(const CLI::App& program, const CLI::ParseError& error) {
  const auto used = program.get_subcommands();
  const std::string called = used.empty() ? "saft" : "saft " + used.front()->get_name();
  return Sentence(program, error) + '\n' + Say(words::kSeeHelp, called);
}

}  // namespace zevo::saft
