// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/check/CheckReport.h"

#include <algorithm>
#include <new>
#include <tuple>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/errors/Interruption.h"
#include "tools/saft/input/InputName.h"
#include "tools/saft/input/ReadingProgress.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {
namespace {

constexpr std::string_view kVersion = "1.01_01";

constexpr int32_t NumberOf(Message message) { return kErrorBase + static_cast<int32_t>(message); }

bool IsBefore(const Finding& one, const Finding& other) {
  return std::tie(one.place.line, one.place.column) < std::tie(other.place.line, other.place.column);
}

// The message of a failure with a file without the name, which is told otherwise.
std::string WithoutName(std::string_view message, std::string_view file) {
  const std::string name = Visible(file) + ": ";
  if (message.starts_with(name)) message.remove_prefix(name.size());
  return std::string(message);
}

bool Judge(AuditFileChecker& checker, CheckReport& report) {
  ReadingProgress progress(SizeToRead(checker.AuditFileName()), OutputWhile::kAfterReading);
  checker.Progress = [&](int64_t bytes) {
    progress.Show(static_cast<uint64_t>(bytes));
    return !Interruption::IsRequested();
  };
  checker.Found = [&](const Finding& finding) { report.findings.push_back(finding); };
  const bool judged = checker.CheckAuditFile();
  checker.Progress = nullptr;
  checker.Found = nullptr;
  return judged;
}

void TakeFailure(const AuditException& error, CheckReport& report) {
  if (error.Number() == NumberOf(Message::kReadingAborted)) FailWith(error, report.file);
  if (IsOutOfMemory(error)) throw std::bad_alloc();
  report.error = Describe(error, SpokenLanguage());
  report.is_another_file =
      error.Number() == NumberOf(Message::kOtherVersion) || error.Number() == NumberOf(Message::kNoAuditFile);
  if (error.Number() == NumberOf(Message::kOtherVersion) && !report.findings.empty()) {
    report.version = report.findings.front().found;
  }
}

void TakeCounts(const AuditFileChecker& checker, CheckReport& report) {
  for (const RuleInfo& rule : AuditFileChecker::Rules()) {
    SeverityCounts& counts = report.counts.emplace_back();
    for (size_t i = 0; i < counts.size(); ++i) counts[i] = checker.CountOf(rule.id, static_cast<Severity>(i));
  }
  report.documents = checker.RecordsOf(EntityKind::kInvoice);
  report.transactions = checker.RecordsOf(EntityKind::kTransaction);
}

}  // namespace

CheckReport CheckFile(AuditFileChecker& checker, const std::string& file) {
  CheckReport report;
  report.file = file;
  try {
    checker.set_AuditFileName(InputName(file));
  } catch (const Failure& failure) {
    report.error = WithoutName(failure.what(), file) + ".";
    report.counts.resize(AuditFileChecker::Rules().size());
    return report;
  }
  if (Judge(checker, report)) {
    report.version = kVersion;
  } else {
    TakeFailure(*checker.AuditException(), report);
  }
  report.verdict = checker.Verdict();
  TakeCounts(checker, report);
  std::ranges::stable_sort(report.findings, IsBefore);
  return report;
}

}  // namespace zevo::saft
