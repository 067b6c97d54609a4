// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/export/FileExport.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/export/EntityRows.h"
#include "tools/saft/input/AuditFileInput.h"
#include "tools/saft/input/FileDigest.h"
#include "tools/saft/input/FileState.h"
#include "tools/saft/input/ScannedElements.h"
#include "tools/saft/tables/CellOf.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/ExportWords.h"
#include "tools/saft/words/SeverityName.h"
#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {
namespace {

std::string TrimmedText(const AuditFileScanner& scanner, std::string_view path) {
  return std::string(Trimmed(scanner.TextOf(path).value_or(std::string_view())));
}

Cell DateOrNothing(std::string_view text) { return CellOf(text, ColumnType::kDate).value_or(Cell()); }

// Dates of the calendar are in the order of their texts.
bool Overlap(const LoadedFile& one, const LoadedFile& other) {
  return one.start_date <= other.end_date && other.start_date <= one.end_date;
}

}  // namespace

FileExport::Result FileExport::Add(const std::string& file) {
  const std::optional<FileState> before = StateOf(file);
  Result result;
  try {
    result = AddRows(file);
  } catch (const Failure&) {
    // What is wrong with a file that changes is that it changes.
    RequireUnchanged(file, before);
    throw;
  }
  RequireUnchanged(file, before);
  target_.EndFile();
  return result;
}

FileExport::Result FileExport::AddRows(const std::string& file) {
  LoadedFile added{.id = 1,
                   .name = file,
                   .sha256 = FileDigest(file),
                   .tax_registration_number = {},
                   .start_date = {},
                   .end_date = {}};
  AuditFileInput input(file, OutputWhile::kIntoFiles);
  target_.Begin();
  there_ = target_.Files();
  if (!there_.empty()) added.id = there_.back().id + 1;
  const auto same = std::ranges::find(there_, added.sha256, &LoadedFile::sha256);
  if (same != there_.end()) {
    if (target_.IsMadeAnew()) throw Failure(file, Say(words::kSameTwice, same->name));
    added.id = same->id;
    target_.Drop(added.id);
    there_.erase(same);
  }
  EntityRows rows(tables_, target_, added.id);
  bool header = false;
  std::string version;
  std::string company;
  input.Read([&](const AuditFileScanner& scanner, const Record&) {
    if (scanner.Kind() == EntityKind::kHeader && !std::exchange(header, true)) {
      added.tax_registration_number = TrimmedText(scanner, "TaxRegistrationNumber");
      added.start_date = TrimmedText(scanner, "StartDate");
      added.end_date = TrimmedText(scanner, "EndDate");
      version = TrimmedText(scanner, "AuditFileVersion");
      company = TrimmedText(scanner, "CompanyName");
      MakeRoom(added);
    }
    rows.Take(scanner);
  });
  rows.TakeEnd(input.Scanner());
  Result result{.records = rows.Records(), .problems = rows.Problems(), .findings = 0};
  if (choice_.check) result.findings = AddFindings(added);
  AddFile(added, version, company);
  return result;
}

void FileExport::MakeRoom(const LoadedFile& added) {
  for (const LoadedFile& other : there_) {
    if (other.tax_registration_number != added.tax_registration_number || !Overlap(other, added)) continue;
    if (target_.IsMadeAnew()) {
      throw Failure(added.name, Say(words::kPeriodTwice, other.name, other.start_date, other.end_date));
    }
    if (!choice_.replace) {
      throw Failure(added.name, Say(words::kPeriodThere, other.name, other.start_date, other.end_date));
    }
    target_.Drop(other.id);
  }
}

size_t FileExport::AddFindings(const LoadedFile& added) {
  int64_t findings = 0;
  AuditFileChecker checker;
  checker.set_AuditFileName(added.name);
  checker.set_MostFindings(0);
  checker.set_Language(SpokenLanguage());
  checker.Progress = [](int64_t) { return !Interruption::IsRequested(); };
  checker.Found = [&](const Finding& finding) {
    const std::string message = checker.MessageOf(finding);
    const Cell cells[] = {added.id,
                          ++findings,
                          NumberOrNothing(finding.place.line),
                          NumberOrNothing(finding.place.column),
                          finding.rule,
                          NameOf(finding.severity),
                          finding.kind ? Cell(zevo::NameOf(*finding.kind)) : Cell(),
                          TextOrNothing(finding.key),
                          TextOrNothing(finding.path),
                          TextOrNothing(finding.found),
                          TextOrNothing(finding.expected),
                          TextOrNothing(finding.difference),
                          std::string_view{message}};
    target_.Add(AuditTables::kFindings, cells);
  };
  const bool judged = checker.CheckAuditFile();
  Interruption::ThrowIfRequested();
  if (!judged) FailWith(*checker.AuditException(), added.name);
  return static_cast<size_t>(findings);
}

void FileExport::AddFile(const LoadedFile& added, const std::string& version, const std::string& company) {
  // A name may have bytes that are no text.
  const std::string name = Visible(added.name);
  const Cell cells[] = {added.id,
                        int64_t{1},
                        std::string_view{name},
                        std::string_view{added.sha256},
                        TextOrNothing(version),
                        TextOrNothing(added.tax_registration_number),
                        TextOrNothing(company),
                        DateOrNothing(added.start_date),
                        DateOrNothing(added.end_date)};
  target_.Add(AuditTables::kFiles, cells);
}

}  // namespace zevo::saft
