// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/CommandList.h"

#include <array>

#include "tools/saft/columns/ColumnsCommand.h"
#include "tools/saft/create/CreateCommand.h"
#include "tools/saft/list/ListCommand.h"
#include "tools/saft/summary/SummaryCommand.h"
#include "tools/saft/template/TemplateCommand.h"
#include "tools/saft/validate/ValidateCommand.h"

namespace zevo::saft {
namespace {

template <class C>
std::unique_ptr<Command> Make(CLI::App& options) {
  return std::make_unique<C>(options);
}

}  // namespace

std::span<const CommandEntry> CommandList() {
  static constexpr std::array kCommands{
      CommandEntry{"template", "Write an empty dataset: its files with the names of their columns",
                   &Make<TemplateCommand>},
      CommandEntry{"columns", "Tell what goes into the columns of a dataset", &Make<ColumnsCommand>},
      CommandEntry{"create", "Turn a dataset of CSV files into an audit file", &Make<CreateCommand>},
      CommandEntry{"validate", "Check an audit file against the schema", &Make<ValidateCommand>},
      CommandEntry{"summary", "Tell what an audit file holds: header, counts and totals", &Make<SummaryCommand>},
      CommandEntry{"list", "Write the records of a file as CSV or JSON", &Make<ListCommand>},
  };
  return kCommands;
}

}  // namespace zevo::saft
