// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/create/EntriesWriter.h"

#include <memory>

#include "tools/saft/dataset/RecordFile.h"
#include "tools/saft/terminal/VisibleText.h"

namespace zevo::saft {

void EntriesWriter::Write() {
  Journals journals = ReadJournals();
  Transactions transactions = ReadTransactions(journals.table);
  ReadLines(transactions.table);
  if (journals.has_file && transactions.has_file) {
    WriteSection(journals.table, transactions);
  } else if (!journals.table.Rows().empty()) {
    notes_ << "saft: " << Visible(journals.table.Path()) << ": not written, there is no transactions.csv\n";
  }
}

EntriesWriter::Journals EntriesWriter::ReadJournals() {
  RecordFile rows = dataset_.Open<Journal>(Dataset::kJournals, {.key = "JournalID"});
  Journals journals{.table = RecordTable<Journal>(rows), .has_file = rows.Exists()};
  while (rows.Next()) journals.table.Take(rows);
  return journals;
}

EntriesWriter::Transactions EntriesWriter::ReadTransactions(const RecordTable<Journal>& journals) {
  RecordFile rows =
      dataset_.Open<Transaction>(Dataset::kTransactions, {.key = "TransactionID", .parents = {"JournalID"}});
  Transactions transactions{.table = RecordTable<Transaction>(rows), .journals = {}, .has_file = rows.Exists()};
  while (rows.Next()) {
    transactions.journals.push_back(journals.PlaceOfParent(rows));
    transactions.table.Take(rows);
  }
  return transactions;
}

void EntriesWriter::ReadLines(const RecordTable<Transaction>& transactions) {
  RecordFile rows =
      dataset_.Open<TransactionLine>(Dataset::kTransactionLines, {.key = "RecordID", .parents = {"TransactionID"}});
  while (rows.Next()) {
    const Transaction& transaction = transactions.ParentOf(rows);
    auto line = std::make_shared<TransactionLine>();
    rows.Fill(*line);
    AddToParent(*transaction.Line(), std::move(line), rows);
  }
}

void EntriesWriter::WriteSection(RecordTable<Journal>& journals, Transactions& transactions) {
  RecordTable<Transaction>& table = transactions.table;
  GeneralLedgerEntries section;
  SetTotals(section, table.SumOf([](Totals& sum, const Transaction& transaction) { sum.Add(transaction); }));
  dataset_.Altered().AddTotals("GeneralLedgerEntries", TotalsIn(section));
  output_.Begin(section);
  std::vector<std::vector<size_t>> places(journals.Rows().size());  // of each journal's transactions
  for (size_t place = 0; place < table.Rows().size(); ++place) places[transactions.journals[place]].push_back(place);
  for (size_t i = 0; i < places.size(); ++i) {
    const auto& [journal, journalRow] = journals.Rows()[i];
    output_.Begin(*journal, {journals.Path(), journalRow});
    for (const size_t place : places[i]) {
      auto& [transaction, row] = table.Rows()[place];
      output_.Write(*transaction, *journal, {table.Path(), row});
      transaction.reset();  // Frees its memory: the file holds it from here on.
    }
  }
}

}  // namespace zevo::saft
