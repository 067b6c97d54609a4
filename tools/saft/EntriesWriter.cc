#include "tools/saft/EntriesWriter.h"

#include <memory>

#include "tools/saft/RecordFile.h"

namespace zevo::saft {

void EntriesWriter::Write() {
  Journals journals = ReadJournals();
  Transactions transactions = ReadTransactions(journals);
  ReadLines(transactions.table);
  if (!transactions.has_file) {
    if (!journals.Rows().empty())
      notes_ << "saft: " << journals.Path() << ": not written, there is no transactions.csv\n";
  } else if (!journals.Rows().empty()) {
    WriteSection(journals, transactions);
  }
}

EntriesWriter::Journals EntriesWriter::ReadJournals() {
  RecordFile rows = dataset_.Open<Journal>(Dataset::kJournals, {.key = "JournalID"});
  Journals journals(rows);
  while (rows.Next()) journals.Take(rows);
  return journals;
}

EntriesWriter::Transactions EntriesWriter::ReadTransactions(const Journals& journals) {
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

void EntriesWriter::WriteSection(Journals& journals, Transactions& transactions) {
  GeneralLedgerEntries totals;
  output_.Do(&AuditFile::CreateGeneralLedgerEntries, totals);
  for (const auto& [journal, row] : journals.Rows()) {
    output_.Write(journals.Path(), row, &AuditFile::CreateJournal, *journal);
  }
  size_t place = 0;
  for (auto& [transaction, row] : transactions.table.Rows()) {
    const Journal* journal = journals.Rows()[transactions.journals[place++]].record.get();
    output_.Write(transactions.table.Path(), row, &AuditFile::CreateTransaction, *transaction, journal, &totals);
    transaction.reset();  // The document has it now; not both need the memory.
  }
  output_.Do(&AuditFile::UpdateGeneralLedgerEntries, totals);
}

}  // namespace zevo::saft
