// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_MERGE_MERGECOMMAND_H_
#define ZEVO_TOOLS_SAFT_MERGE_MERGECOMMAND_H_

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "tools/saft/command/Command.h"
#include "tools/saft/command/SchemaChoice.h"
#include "tools/saft/merge/EntityReader.h"
#include "tools/saft/merge/MergePlan.h"

namespace zevo::saft {

/// Makes one audit file of several of a company.
class MergeCommand : public Command {
 public:
  explicit MergeCommand(CLI::App& options);
  ExitCode Run() const override;

 private:
  /// Fails where a file to read is the standard input, the one to write, or named twice.
  void RequireOtherFiles() const;
  /// Writes what a plan says into a new file. Fails where a file to read is no longer what it was.
  void Write(const MergePlan& plan, const std::string& path, MergeProgress& progress) const;
  /// Tells what the schema does not allow; whether there is nothing.
  bool Validate(const std::string& path) const;

  SchemaChoice schema_;
  std::vector<std::string> files_;
  std::string output_;
  bool force_ = false;
  bool unvalidated_ = false;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_MERGE_MERGECOMMAND_H_
