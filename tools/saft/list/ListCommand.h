// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_TOOLS_SAFT_LIST_LISTCOMMAND_H_
#define ZEVO_TOOLS_SAFT_LIST_LISTCOMMAND_H_

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "tools/saft/command/Command.h"
#include "tools/saft/dataset/RecordKind.h"
#include "tools/saft/list/RecordList.h"

namespace zevo::saft {

/// Lists the records of an audit file: those of one kind, or all as a dataset.
class ListCommand : public Command {
 public:
  explicit ListCommand(CLI::App& options);
  ExitCode Run() const override;

 private:
  ExitCode ListAll() const;
  ExitCode ListKind(const RecordKind& kind) const;
  ListForm Form() const;
  bool IsToStandardOutput() const;

  std::string file_;
  std::string kind_;
  std::string folder_;
  std::string output_;
  std::vector<std::string> columns_;
  std::vector<std::string> conditions_;
  bool json_ = false;
  bool spreadsheet_ = false;
};

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_LIST_LISTCOMMAND_H_
