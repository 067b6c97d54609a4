// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_COMMAND_SCHEMACHOICE_H_
#define ZEVO_TOOLS_SAFT_COMMAND_SCHEMACHOICE_H_

#include <zevo/adapters.h>

#include <CLI/CLI.hpp>
#include <string>

namespace zevo::saft {

/// Which schema a command writes or validates by: the one that the user names, else the file at the library's default
/// place, else the one that is built into the library.
class SchemaChoice {
 public:
  /// Declares the option.
  explicit SchemaChoice(CLI::App& options);

  /// Has the library use it, or, where the user names none here, the one that is named otherwise. Fails when a schema
  /// is named that is not there.
  void Use(const std::string& otherwise = {}) const;
  /// Fails when the schema that is named so is no schema of an audit file: the library would ignore it and use none.
  void RequireUsable(const std::string& otherwise = {}) const;
  /// Fails with an error for which the schema in use is at fault.
  [[noreturn]] static void Fail(const AuditException& error);

 private:
  std::string named_;
  CLI::Option* option_;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_COMMAND_SCHEMACHOICE_H_
