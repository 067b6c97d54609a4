// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/CommandList.h"

#include <array>

#include "tools/saft/check/CheckCommand.h"
#include "tools/saft/check/RulesCommand.h"
#include "tools/saft/columns/ColumnsCommand.h"
#include "tools/saft/create/CreateCommand.h"
#include "tools/saft/export/ExportCommand.h"
#include "tools/saft/list/ListCommand.h"
#include "tools/saft/merge/MergeCommand.h"
#include "tools/saft/summary/SummaryCommand.h"
#include "tools/saft/template/TemplateCommand.h"
#include "tools/saft/validate/ValidateCommand.h"
#include "tools/saft/words/ExportWords.h"
#include "tools/saft/words/UsageWords.h"

namespace zevo::saft {
namespace {

template <class C>
std::unique_ptr<Command> Make(CLI::App& options) {
  return std::make_unique<C>(options);
}

}  // namespace

std::span<const CommandEntry> CommandList() {
  static constexpr std::array kCommands{
      CommandEntry{"template", words::kTemplateCommand, &Make<TemplateCommand>},
      CommandEntry{"columns", words::kColumnsCommand, &Make<ColumnsCommand>},
      CommandEntry{"create", words::kCreateCommand, &Make<CreateCommand>},
      CommandEntry{"validate", words::kValidateCommand, &Make<ValidateCommand>},
      CommandEntry{"check", words::kCheckCommand, &Make<CheckCommand>},
      CommandEntry{"rules", words::kRulesCommand, &Make<RulesCommand>},
      CommandEntry{"summary", words::kSummaryCommand, &Make<SummaryCommand>},
      CommandEntry{"list", words::kListCommand, &Make<ListCommand>},
      CommandEntry{"merge", words::kMergeCommand, &Make<MergeCommand>},
      CommandEntry{"export", words::kExportCommand, &Make<ExportCommand>},
  };
  return kCommands;
}

}  // namespace zevo::saft
