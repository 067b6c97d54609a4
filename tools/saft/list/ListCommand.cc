// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/list/ListCommand.h"

#include <unistd.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <iostream>
#include <sstream>

#include "tools/saft/dataset/LostInRows.h"
#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/NearestName.h"
#include "tools/saft/input/AuditFileInput.h"
#include "tools/saft/input/ProblemReport.h"
#include "tools/saft/list/DatasetFolder.h"
#include "tools/saft/list/ListFile.h"
#include "tools/saft/output/UnfinishedPath.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ErrorWords.h"
#include "tools/saft/words/ListWords.h"
#include "tools/saft/words/UsageWords.h"

namespace zevo::saft {
namespace {

const RecordKind& KindNamed(std::string_view name) {
  const auto kind = std::ranges::find(RecordKinds(), name, &RecordKind::name);
  if (kind != RecordKinds().end()) return *kind;
  throw Failure(Say(words::kUnknownKind, Quoted(name)) + DidYouMean(name, RecordKinds(), &RecordKind::name));
}

bool IsOfTheFile(const Problem& problem) { return problem.path.starts_with('/'); }

// Those problems of an entity that make a list lack something.
template <class Concerns>
void AddProblems(const AuditFileScanner& scanner, ProblemReport& report, const Concerns& concerns) {
  for (const Problem& problem : scanner.Problems()) {
    if (!IsLostInRows(scanner, problem)) continue;
    if (IsOfTheFile(problem) || concerns(problem)) report.Add(scanner, problem);
  }
}

ExitCode End(const AuditFileInput& file, ProblemReport& problems) {
  AddProblems(file.Scanner(), problems, [](const Problem&) { return true; });
  problems.Report(std::cerr);
  return problems.Count() > 0 ? kError : kDone;
}

// A list on standard output. What goes to a terminal is made visible.
class ShownList {
 public:
  ShownList(const RecordKind& kind, const ListChoice& choice)
      : terminal_(isatty(STDOUT_FILENO) == 1), list_(kind, choice, terminal_ ? shown_ : std::cout) {
    Show();
  }
  void Take(const AuditFileScanner& scanner) {
    list_.Take(scanner);
    Show();
  }

 private:
  void Show() {
    if (terminal_) std::cout << VisibleLines(shown_.str());
    shown_.str({});
    if (!std::cout) throw Failure(Say(words::kOutputUnwritable));
  }

  bool terminal_;
  std::ostringstream shown_;
  RecordList list_;
};

}  // namespace

ListCommand::ListCommand(CLI::App& options) {
  options.add_option(Say(words::kFileArgument), file_, Say(words::kInputFile))->required()->option_text(" ");
  CLI::Option* const kind = options.add_option(Say(words::kKindArgument), kind_, Say(words::kListKind));
  kind->option_text(" ");
  CLI::Option* const all = options.add_option("--all", folder_, Say(words::kListAll));
  all->option_text(Say(words::kFolderArgument))->excludes(kind);
  options.add_option("--columns", columns_, Say(words::kListColumns))
      ->delimiter(',')
      ->allow_extra_args(false)
      ->option_text(Say(words::kListColumnsValue))
      ->excludes(all);
  options.add_option("--where", conditions_, Say(words::kListWhere))
      ->allow_extra_args(false)
      ->option_text(Say(words::kListWhereValue))
      ->excludes(all);
  options.add_option("-o,--output", output_, Say(words::kListOutput))
      ->option_text(Say(words::kFileValue))
      ->excludes(all);
  CLI::Option* const json = options.add_flag("--json", json_, Say(words::kListJson));
  json->excludes(all)->option_text(" ");
  options.add_flag("--excel", spreadsheet_, Say(words::kListExcel))->excludes(json)->option_text(" ");
  std::string kinds;
  for (const RecordKind& each : RecordKinds()) kinds.append(kinds.empty() ? "  " : "\n  ").append(each.name);
  options.footer(Say(words::kListHelp, kinds));
}

ListForm ListCommand::Form() const {
  if (json_) return ListForm::kJson;
  return spreadsheet_ ? ListForm::kSpreadsheet : ListForm::kCsv;
}

bool ListCommand::IsToStandardOutput() const { return output_.empty() || output_ == "-"; }

ExitCode ListCommand::Run() const {
  if (!folder_.empty()) return ListAll();
  if (kind_.empty()) throw Failure(Say(words::kListNeedsKind) + '\n' + Say(words::kSeeHelp, "saft list"));
  return ListKind(KindNamed(kind_));
}

ExitCode ListCommand::ListAll() const {
  AuditFileInput file(file_, OutputWhile::kIntoFiles);
  DatasetFolder folder(folder_, Form());
  ProblemReport problems(file_);
  file.Read([&](const AuditFileScanner& scanner, const Record&) {
    AddProblems(scanner, problems, [](const Problem&) { return true; });
    folder.Take(scanner);
  });
  folder.Finish();
  return End(file, problems);
}

ExitCode ListCommand::ListKind(const RecordKind& kind) const {
  const ListChoice choice{.columns = columns_, .conditions = conditions_, .form = Form()};
  AuditFileInput file(file_, IsToStandardOutput() ? OutputWhile::kReading : OutputWhile::kIntoFiles);
  ProblemReport problems(file_);
  const auto concerns = [&](const Problem& problem) {
    const RecordKind& told = RecordKindAt(kind.entity, problem.path);
    return &told == &kind || (json_ && told.path.starts_with(kind.path));
  };
  const auto read = [&](auto& list) {
    file.Read([&](const AuditFileScanner& scanner, const Record&) {
      const bool listed = scanner.Kind() == kind.entity;
      AddProblems(scanner, problems, [&](const Problem& problem) { return listed && concerns(problem); });
      if (listed) list.Take(scanner);
    });
  };
  if (IsToStandardOutput()) {
    ShownList list(kind, choice);
    read(list);
  } else {
    UnfinishedPath path(output_, UnfinishedPath::kFile);
    ListFile list(path.Path(), output_, kind, choice);
    read(list);
    list.Finish();
    path.PutInPlace();
  }
  return End(file, problems);
}

}  // namespace zevo::saft
