// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/merge/MergeWriter.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>

#include "tools/saft/dataset/KeyIndex.h"
#include "tools/saft/input/ScannedElements.h"
#include "tools/saft/merge/MergedElements.h"

namespace zevo::saft {

MergeWriter::MergeWriter(const MergePlan& plan, ElementOutput& output, MergeProgress& progress)
    : plan_(plan), output_(output) {
  readers_.reserve(plan.sources.size());
  for (const MergeSource& source : plan.sources) readers_.emplace_back(source.name, progress);
}

// Calls `visit(source, scanner)` with each record of a kind, file after file.
template <class Visit>
void MergeWriter::ForEach(EntityKind kind, const Visit& visit) {
  for (size_t source = 0; source < readers_.size(); ++source) {
    EntityReader& reader = readers_[source];
    reader.ReadRange(plan_.sources[source].records[static_cast<size_t>(kind)], [&] {
      if (reader.Kind() == kind) visit(source, reader.Scanner());
    });
  }
}

void MergeWriter::Write() {
  WriteHeader();
  output_.Begin(merged::kMasterFiles);
  for (size_t kind = 0; kind < kKeyedMasters.size(); ++kind) WriteMasters(kKeyedMasters[kind], plan_.masters[kind]);
  WriteTaxTable();
  output_.End();
  WriteEntries();
  WriteInvoices();
}

// That of the last file, with the period of all. The fiscal year is the one in which it begins.
void MergeWriter::WriteHeader() {
  const MergeSource& first = plan_.sources.front();
  const MergeSource& last =
      *std::ranges::max_element(plan_.sources, {}, [](const MergeSource& source) { return source.period.end; });
  ElementCopy header = last.header;
  if (&first != &last) {
    header.SetText(merged::kStartDate, first.start_date);
    header.SetText(merged::kFiscalYear, first.fiscal_year);
  }
  output_.Write(header.Elements());
}

void MergeWriter::WriteMasters(EntityKind kind, const MasterRecords& records) {
  ForEach(kind, [&](size_t source, const AuditFileScanner& scanner) {
    const auto key = scanner.TextOf(KeyOf(kind));
    if (key && !records.IsLast(source, *key)) return;
    if (key && kind == EntityKind::kGeneralLedger && source > 0) {
      WriteAccount(scanner, records.OpeningOf(*key));
    } else {
      output_.Write(scanner.Elements());
    }
  });
}

// An account has the balances with which its first period opens.
void MergeWriter::WriteAccount(const AuditFileScanner& scanner, const OpeningBalances& opening) {
  account_.assign(scanner.Elements().begin(), scanner.Elements().end());
  ForEachChild(account_, 0, [&](size_t child) {
    ScannedElement& element = account_[child];
    if (element.name == merged::kOpeningDebit && opening.debit) element.text = *opening.debit;
    if (element.name == merged::kOpeningCredit && opening.credit) element.text = *opening.credit;
  });
  output_.Write(account_);
}

void MergeWriter::WriteTaxTable() {
  constexpr auto kKind = static_cast<size_t>(EntityKind::kTaxTable);
  const bool isThere =
      std::ranges::any_of(plan_.sources, [](const MergeSource& source) { return source.records[kKind].first != 0; });
  if (!isThere) return;
  KeyIndex known;
  output_.Begin(NameOf(EntityKind::kTaxTable));
  ForEach(EntityKind::kTaxTable,
          [&](size_t source, const AuditFileScanner& scanner) { WriteTaxEntries(source, scanner.Elements(), known); });
  output_.End();
}

// Those that no file before has.
void MergeWriter::WriteTaxEntries(size_t source, std::span<const ScannedElement> elements, KeyIndex& known) {
  const auto file = static_cast<uint32_t>(source) + 1;
  ForEachChild(elements, 0, [&](size_t entry) {
    size_t end = entry + 1;
    while (end < elements.size() && elements[end].depth > elements[entry].depth) ++end;
    const std::span<const ScannedElement> parts = elements.subspan(entry, end - entry);
    std::string all;
    for (const ScannedElement& part : parts) {
      all.append(std::to_string(part.depth)).append("<").append(part.name).append(">").append(part.text).append("<");
    }
    if (known.Add(all, file).value_or(file) == file) output_.Write(parts);
  });
}

void MergeWriter::WriteEntries() {
  if (!plan_.entries.is_there) return;
  output_.Begin(NameOf(EntityKind::kGeneralLedgerEntries));
  WriteTotals(plan_.entries.totals);
  for (const MergedJournal& journal : plan_.journals) {
    const std::vector<ScannedElement> elements = journal.elements.Elements();
    if (!elements.empty()) {
      output_.Begin(elements.front().name);
      output_.Write(std::span(elements).subspan(1));
    }
    for (const auto& [source, records] : journal.transactions) {
      EntityReader& reader = readers_[source];
      reader.ReadRange(records, [&, this] {
        if (reader.Kind() != EntityKind::kTransaction || reader.Scanner().JournalID() != journal.id) return;
        output_.Write(reader.Scanner().Elements());
      });
    }
    if (!elements.empty()) output_.End();
  }
  output_.End();
}

void MergeWriter::WriteInvoices() {
  if (!plan_.invoices.is_there) return;
  output_.Begin(merged::kSourceDocuments);
  output_.Begin(NameOf(EntityKind::kSalesInvoices));
  WriteTotals(plan_.invoices.totals);
  ForEach(EntityKind::kInvoice, [this](size_t, const AuditFileScanner& scanner) { output_.Write(scanner.Elements()); });
  output_.End();
  output_.End();
}

void MergeWriter::WriteTotals(const MergedTotals& totals) {
  output_.Write(merged::kNumberOfEntries, totals.EntriesText());
  output_.Write(merged::kTotalDebit, totals.DebitText());
  output_.Write(merged::kTotalCredit, totals.CreditText());
}

}  // namespace zevo::saft
