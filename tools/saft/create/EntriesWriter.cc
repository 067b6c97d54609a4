// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/EntriesWriter.h"

#include <memory>
#include <utility>

#include "tools/saft/dataset/ParentFinder.h"
#include "tools/saft/dataset/RecordFile.h"
#include "tools/saft/terminal/VisibleText.h"
#include "tools/saft/words/CreateWords.h"

namespace zevo::saft {

void EntriesWriter::Write() {
  const bool journals = CheckJournals();
  const bool transactions = CheckTransactions();
  CheckLines();
  if (journals && transactions) {
    WriteSection();
  } else if (has_journals_) {
    notes_ << "saft: " << Visible(dataset_.PathOf(Dataset::kJournals)) << ": " << Say(words::kNoTransactionsFile)
           << '\n';
  }
}

bool EntriesWriter::CheckJournals() {
  RecordFile rows = dataset_.Open(Dataset::kJournals);
  while (rows.Next()) {
    has_journals_ = true;
    Journal journal;
    rows.Fill(journal);
    if (!output_.Takes(journal)) rows.AddErrorAtKey(Say(words::kQuotationMark));
    TakeKey(rows, journal, index_.Of(EntityKind::kJournal));
  }
  return rows.Exists();
}

bool EntriesWriter::CheckTransactions() {
  RecordFile rows = dataset_.Open(Dataset::kTransactions);
  ParentFinder journals(dataset_, Dataset::kJournals, index_.Of(EntityKind::kJournal));
  while (rows.Next()) {
    Transaction transaction;
    rows.Fill(transaction);
    const auto journal = journals.Find(rows);
    if (!TakeKey(rows, transaction, index_.Of(EntityKind::kTransaction)) || !journal) continue;
    index_.transactions.Add({rows.Offset(), rows.Row(), *journal});
    totals_.AddEntry(rows);
  }
  index_.transactions.Sort();
  return rows.Exists();
}

void EntriesWriter::CheckLines() {
  RecordFile rows = dataset_.Open(Dataset::kTransactionLines);
  ParentFinder transactions(dataset_, Dataset::kTransactions, index_.Of(EntityKind::kTransaction));
  while (rows.Next()) {
    TransactionLine line;
    rows.Fill(line);
    const auto transaction = transactions.Find(rows);
    if (!transaction || !rows.HasKey()) {
      // The transaction that it was meant for may have no other line.
      dataset_.Faults().SetIncomplete(rows.Number());
      continue;
    }
    index_.transaction_lines.Add({rows.Offset(), rows.Row(), *transaction});
    totals_.AddLine(line, rows);
  }
  index_.transaction_lines.Sort();
}

void EntriesWriter::WriteSection() {
  GeneralLedgerEntries section;
  SetTotals(section, totals_.Sums());
  dataset_.Altered().AddTotals("GeneralLedgerEntries", totals_.Sums());
  output_.Begin(section);
  using enum RecordFile::Reading;
  RecordFile journals = dataset_.Open(Dataset::kJournals, kAgain);
  RecordFile transactions = dataset_.Open(Dataset::kTransactions, kAgain);
  RecordFile lines = dataset_.Open(Dataset::kTransactionLines, kAgain);
  while (journals.Next()) {
    Journal journal;
    journals.Fill(journal);
    const bool is_first = journals.HasKey() && index_.Of(EntityKind::kJournal).Find(journals.Key()) == journals.Row();
    if (!is_first || !output_.Takes(journal)) continue;
    output_.Begin(journal);
    WriteTransactions(journal, journals.Row(), transactions, lines);
  }
}

// NOLINTNEXTLINE(bugprone-easily-swappable-parameters): the order is that of the file.
void EntriesWriter::WriteTransactions(const Journal& journal, uint32_t row, RecordFile& transactions,
                                      RecordFile& lines) {
  for (const ChildRows::Row& place : index_.transactions.Of(row)) {
    transactions.GoTo(place.offset, place.row);
    Transaction transaction;
    transactions.Fill(transaction);
    for (const ChildRows::Row& inside : index_.transaction_lines.Of(place.row)) {
      lines.GoTo(inside.offset, inside.row);
      auto line = std::make_shared<TransactionLine>();
      lines.Fill(*line);
      if (!transaction.Line()->Append(std::move(line))) lines.NoteRepeatedKey();
    }
    output_.Write(transaction, journal);
  }
}

}  // namespace zevo::saft
