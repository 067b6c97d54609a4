// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/merge/MergeSurvey.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "tools/saft/errors/Failure.h"
#include "tools/saft/input/ScannedElements.h"
#include "tools/saft/merge/MergedElements.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/MergeWords.h"

namespace zevo::saft {
namespace {

std::string TrimmedTextOf(const AuditFileScanner& scanner, std::string_view element) {
  return std::string(Trimmed(scanner.TextOf(element).value_or("")));
}

std::optional<std::string> TotalIn(const AuditFileScanner& scanner, std::string_view element) {
  const std::optional<std::string_view> text = scanner.TextOf(element);
  return text ? std::optional<std::string>(*text) : std::nullopt;
}

// Whether a record cannot be written as the file has it: its elements do not say this.
bool IsLost(const Problem& problem) {
  if (problem.fault != Fault::kUnknownElement) return false;
  if (problem.path.starts_with('/')) return true;
  const size_t slash = problem.path.rfind('/');
  const std::string_view step = std::string_view{problem.path}.substr(slash == std::string::npos ? 0 : slash + 1);
  return step.starts_with('@') || step.starts_with("text()");
}

}  // namespace

MergePlan MergeSurvey::Read(const std::vector<std::string>& files) {
  for (const std::string& file : files) {
    try {
      TakeHeader(file);
    } catch (const Failure& failure) {
      report_.Add(MergeReport::kFile, [&] { return failure.what(); });
    }
  }
  std::ranges::stable_sort(plan_.sources, {},
                           [](const MergeSource& source) { return std::pair(source.period.start, source.period.end); });
  CompareHeaders();
  for (size_t source = 0; source < plan_.sources.size(); ++source) {
    try {
      ReadFile(source);
    } catch (const Failure& failure) {
      report_.Add(MergeReport::kFile, [&] { return failure.what(); });
    }
  }
  if (const int64_t amounts = plan_.entries.totals.Unreadable() + plan_.invoices.totals.Unreadable(); amounts > 0) {
    report_.Add(MergeReport::kTotals, [&] {
      return SayOf(static_cast<size_t>(amounts), words::kUnreadableAmount, words::kUnreadableAmounts);
    });
  }
  return std::move(plan_);
}

void MergeSurvey::TakeHeader(const std::string& file) {
  MergeSource source;
  source.name = file;
  source.state = StateOf(file);
  EntityReader reader(file, progress_);
  do {
    if (!reader.Next()) throw Failure(file, Say(words::kNoHeader));
  } while (reader.Kind() != EntityKind::kHeader);
  const AuditFileScanner& scanner = reader.Scanner();
  const std::string end = TrimmedTextOf(scanner, merged::kEndDate);
  source.start_date = TrimmedTextOf(scanner, merged::kStartDate);
  source.fiscal_year = TrimmedTextOf(scanner, merged::kFiscalYear);
  source.company = TrimmedTextOf(scanner, merged::kTaxRegistrationNumber);
  source.basis = TrimmedTextOf(scanner, merged::kTaxAccountingBasis);
  source.header = ElementCopy(scanner.Elements());
  const auto firstDay = DayOf(source.start_date);
  const auto lastDay = DayOf(end);
  if (!firstDay || !lastDay) throw Failure(file, Say(words::kNoPeriod, Quoted(source.start_date), Quoted(end)));
  source.period = {*firstDay, *lastDay};
  plan_.sources.push_back(std::move(source));
}

void MergeSurvey::CompareHeaders() {
  const MergeSource* latest = nullptr;  // of those before, the one that ends last
  for (const MergeSource& source : plan_.sources) {
    const MergeSource& first = plan_.sources.front();
    const auto refuse = [&](const std::string& reason) {
      report_.Add(MergeReport::kFile, [&] { return std::string(Failure(source.name, reason).what()); });
    };
    if (source.company != first.company) {
      refuse(Say(words::kOtherCompany, Quoted(source.company), Visible(first.name), Quoted(first.company)));
    }
    if (source.basis != first.basis) {
      refuse(Say(words::kOtherBasis, Quoted(source.basis), Visible(first.name), Quoted(first.basis)));
    }
    const auto start = source.period.start;
    const auto end = source.period.end;
    if (latest != nullptr && start <= latest->period.end) {
      refuse(Say(words::kOverlap, TextOf(start), TextOf(end), Visible(latest->name), TextOf(latest->period.start),
                 TextOf(latest->period.end)));
    }
    const auto day = std::chrono::days(1);
    if (latest != nullptr && start > latest->period.end + day) {
      report_.Add(MergeReport::kPeriod,
                  [&] { return Say(words::kGap, TextOf(latest->period.end + day), TextOf(start - day)); });
    }
    if (latest == nullptr || end > latest->period.end) latest = &source;
  }
  if (latest == nullptr) return;
  const Period all{plan_.sources.front().period.start, latest->period.end};
  if (all.IsLongerThanYear()) {
    report_.Add(MergeReport::kPeriod, [&] { return Say(words::kLongerThanYear, TextOf(all.start), TextOf(all.end)); });
  }
}

void MergeSurvey::ReadFile(size_t source) {
  MergeSource& file = plan_.sources[source];
  const ProblemReport& problems = problems_.emplace_back(file.name);
  entries_texts_ = {};
  invoices_texts_ = {};
  seen_.clear();
  EntityReader reader(file.name, progress_);
  while (reader.Next()) Take(source, reader);
  TakeProblems(reader.Scanner());
  OrderJournals();
  EndSection(source, EntityKind::kGeneralLedgerEntries, entries_texts_, plan_.entries);
  EndSection(source, EntityKind::kSalesInvoices, invoices_texts_, plan_.invoices);
  if (problems.Count() > 0) {
    report_.Add(MergeReport::kFile, [&] { return std::string(Failure(file.name, Say(words::kNotCopied)).what()); });
  }
}

void MergeSurvey::Take(size_t source, const EntityReader& reader) {
  const AuditFileScanner& scanner = reader.Scanner();
  const EntityKind kind = reader.Kind();
  RecordRange& records = plan_.sources[source].records[static_cast<size_t>(kind)];
  const bool isFirst = records.first == 0;
  TakeProblems(scanner);
  switch (kind) {
    case EntityKind::kHeader:
      if (!isFirst) problems_.back().Add(scanner, {Fault::kRepeated, {}, scanner.Place(), {}});
      break;
    case EntityKind::kGeneralLedger:
    case EntityKind::kCustomer:
    case EntityKind::kSupplier:
    case EntityKind::kProduct:
      TakeMaster(source, scanner);
      break;
    case EntityKind::kTaxTable:
      break;
    case EntityKind::kGeneralLedgerEntries:
      TakeSection(scanner, entries_texts_);
      break;
    case EntityKind::kJournal:
      TakeJournal(scanner);
      break;
    case EntityKind::kTransaction:
      TakeTransaction(source, reader);
      return;
    case EntityKind::kSalesInvoices:
      TakeSection(scanner, invoices_texts_);
      break;
    case EntityKind::kInvoice:
      TakeDocument(source, scanner, invoices_);
      invoices_texts_.is_there = true;
      plan_.invoices.totals.Add(kind, scanner.Elements());
      break;
  }
  records.Add(reader.RecordNumber());
}

void MergeSurvey::TakeMaster(size_t source, const AuditFileScanner& scanner) {
  const EntityKind kind = *scanner.Kind();
  const auto key = scanner.TextOf(KeyOf(kind));
  if (!key) return;
  const auto number = static_cast<size_t>(std::ranges::find(kKeyedMasters, kind) - kKeyedMasters.begin());
  const auto difference = plan_.masters[number].Take(source, *key, scanner.Elements());
  if (!difference) return;
  report_.Add(MergeReport::kMaster, [&] {
    return Say(words::kDiffers, Visible(SentenceName(kind, *key, SpokenLanguage())),
               Visible(plan_.sources[source].name), Visible(plan_.sources[difference->source].name),
               Visible(difference->path));
  });
}

void MergeSurvey::TakeDocument(size_t source, const AuditFileScanner& scanner, KeyIndex& keys) {
  const EntityKind kind = *scanner.Kind();
  const auto key = scanner.TextOf(KeyOf(kind));
  if (!key) return;
  const auto before = keys.Add(*key, static_cast<uint32_t>(source) + 1);
  if (!before) return;
  report_.Add(MergeReport::kDocument, [&]() -> std::string {
    const std::string name = Visible(SentenceName(kind, *key, SpokenLanguage()));
    const std::string& file = plan_.sources[source].name;
    if (*before == source + 1) return Failure(file, Say(words::kTwiceInFile, name)).what();
    return Failure(file, Say(words::kTwice, name, Visible(plan_.sources[*before - 1].name))).what();
  });
}

void MergeSurvey::TakeSection(const AuditFileScanner& scanner, SectionTexts& texts) {
  if (!texts.entries) texts.entries = TotalIn(scanner, merged::kNumberOfEntries);
  if (!texts.debit) texts.debit = TotalIn(scanner, merged::kTotalDebit);
  if (!texts.credit) texts.credit = TotalIn(scanner, merged::kTotalCredit);
  texts.is_there = true;
}

void MergeSurvey::EndSection(size_t source, EntityKind kind, const SectionTexts& texts, MergedSection& section) {
  if (!texts.is_there) return;
  section.is_there = true;
  if (section.totals.EndFile(texts.entries, texts.debit, texts.credit)) return;
  report_.Add(MergeReport::kTotals, [&] {
    return std::string(Failure(plan_.sources[source].name, Say(words::kWrongTotals, NameOf(kind))).what());
  });
}

void MergeSurvey::TakeJournal(const AuditFileScanner& scanner) {
  entries_texts_.is_there = true;
  JournalOf(scanner.TextOf(KeyOf(EntityKind::kJournal)).value_or(""))->elements = ElementCopy(scanner.Elements());
}

void MergeSurvey::TakeTransaction(size_t source, const EntityReader& reader) {
  const AuditFileScanner& scanner = reader.Scanner();
  entries_texts_.is_there = true;
  TakeDocument(source, scanner, transactions_);
  plan_.entries.totals.Add(EntityKind::kTransaction, scanner.Elements());
  const bool inLast = !seen_.empty() && seen_.back().journal->id == scanner.JournalID();
  auto& transactions = (inLast ? seen_.back().journal : JournalOf(scanner.JournalID()))->transactions;
  if (transactions.empty() || transactions.back().first != source) transactions.push_back({source, {}});
  transactions.back().second.Add(reader.RecordNumber());
}

MergeSurvey::Journal MergeSurvey::JournalOf(std::string_view id) {
  const auto known = journals_.find(id);
  const bool isNew = known == journals_.end();
  if (isNew) plan_.journals.push_back({.id = std::string(id), .elements = {}, .transactions = {}});
  const auto journal = isNew ? std::prev(plan_.journals.end()) : known->second;
  if (isNew) journals_.emplace(id, journal);
  seen_.push_back({journal, isNew});
  return journal;
}

// Puts journals that other files lack where this one has them: then every file can be read from front to back.
void MergeSurvey::OrderJournals() {
  const auto known = std::ranges::find(seen_, false, &SeenJournal::is_new);
  if (known == seen_.end()) return;
  for (auto seen = seen_.begin(); seen != known; ++seen) {
    plan_.journals.splice(known->journal, plan_.journals, seen->journal);
  }
  for (auto seen = known; seen != seen_.end(); ++seen) {
    if (seen->is_new) plan_.journals.splice(std::next(std::prev(seen)->journal), plan_.journals, seen->journal);
  }
}

void MergeSurvey::TakeProblems(const AuditFileScanner& scanner) {
  for (const Problem& problem : scanner.Problems()) {
    if (IsLost(problem)) problems_.back().Add(scanner, problem);
  }
}

}  // namespace zevo::saft
