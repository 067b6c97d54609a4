// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_CREATE_CREATECOMMAND_H_
#define ZEVO_TOOLS_SAFT_CREATE_CREATECOMMAND_H_

#include <CLI/CLI.hpp>
#include <optional>
#include <ostream>
#include <string>

#include "tools/saft/command/Command.h"
#include "tools/saft/command/SchemaChoice.h"
#include "tools/saft/dataset/Dataset.h"
#include "tools/saft/dataset/RowIndex.h"

namespace zevo::saft {

/// Turns a dataset into an audit file.
class CreateCommand : public Command {
 public:
  explicit CreateCommand(CLI::App& options);
  ExitCode Run() const override;

 private:
  /// Writes the file of the dataset, whatever is wrong with it. What the user should know goes to `notes`.
  /// Fails where the file to write is one of those to read.
  void RequireNoDatasetFile() const;
  void Write(const std::string& path, Dataset& dataset, RowIndex& index, std::ostream& notes) const;
  /// Adds what the schema does not allow in that file to the errors of the dataset.
  void Validate(const std::string& path, Dataset& dataset, const RowIndex& index) const;

  SchemaChoice schema_;
  std::string dataset_;
  std::string file_;
  std::optional<std::string> private_key_;
  bool stream_ = false;
  bool round_ = false;
  bool force_ = false;
  bool unvalidated_ = false;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_CREATE_CREATECOMMAND_H_
