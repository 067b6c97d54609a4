// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/TransactionDALC.h>

#include <zevo/Error.h>
#include <zevo/mappers/Sections.h>
#include <zevo/mappers/TransactionLineDALC.h>

#include <string>

namespace zevo {
namespace {

constexpr ElementName kJournalElement = "Journal";
constexpr ElementName kElement = "Transaction";

using R = Transaction;
constexpr Layout kTransaction(Row("TransactionID", kAlways, &R::TransactionID, &R::set_TransactionID),
                              Row("Period", kAlways, &R::Period, &R::set_Period),
                              Row("TransactionDate", kAlways, &R::TransactionDate, &R::set_TransactionDate),
                              Row("SourceID", kIfNotEmpty, &R::SourceID, &R::set_SourceID),
                              Row("Description", kAlways, &R::Description, &R::set_Description),
                              Row("DocArchivalNumber", kAlways, &R::DocArchivalNumber, &R::set_DocArchivalNumber),
                              Row("TransactionType", kAlways, &R::TransactionType, &R::set_TransactionType),
                              Row("GLPostingDate", kAlways, &R::GLPostingDate, &R::set_GLPostingDate),
                              Row("CustomerID", kIfNotEmpty, &R::CustomerID, &R::set_CustomerID),
                              Row("SupplierID", kIfNotEmpty, &R::SupplierID, &R::set_SupplierID));

// The identifier goes in as it is: one with a double quote makes the query invalid.
std::string QueryFor(const Journal& journal) { return "[JournalID = \"" + journal.JournalID() + "\"]"; }

}  // namespace

void TransactionDALC::CreateTransaction(const Transaction& value, const Journal* transactionJournal,
                                        IDALHelper& helper) {
  Element journal;
  if (const Element section = helper.GetElement(kGeneralLedgerEntries.Text(), {}, {})) {
    const std::string query = transactionJournal == nullptr ? std::string() : QueryFor(*transactionJournal);
    journal = helper.GetElement(kJournalElement.Text(), section, query);
  }
  if (!journal) throw LibraryError(Message::kJournalMissing, "TransactionDALC.CreateTransaction");
  const Element transaction = helper.CreateElement(kElement.Text(), {}, journal, true);
  kTransaction.Write(value, transaction, helper);
  TransactionLineDALC lines;
  for (const auto& line : *value.Line()) lines.CreateTransactionLine(*line, transaction, helper);
  helper.EndElement(kElement.Text());
}

void TransactionDALC::ReadTransaction(std::shared_ptr<Transaction>& value, const Journal* transactionJournal,
                                      IDALReader& helper, bool first) {
  Element journal;
  if (transactionJournal == nullptr) {
    // Directly under the root, where a whole file has no journal but a reader that holds one entity has.
    journal = helper.GetElement(kJournalElement.Text(), {}, {});
  } else if (const Element section = helper.GetElement(kGeneralLedgerEntries.Text(), {}, {})) {
    journal = helper.GetElement(kJournalElement.Text(), section, QueryFor(*transactionJournal));
  }
  if (!journal) throw LibraryError(Message::kJournalMissing, "TransactionDALC.ReadTransaction");
  const Element transaction = FirstOrNext(helper, kElement, journal, first);
  ReadRecord(kTransaction, transaction, value, helper);
  if (!value) return;
  TransactionLineDALC lines;
  std::shared_ptr<TransactionLine> line;
  for (lines.ReadTransactionLine(line, transaction, helper, true); line;
       lines.ReadTransactionLine(line, transaction, helper, false)) {
    value->Line()->Add(line);
  }
}

int32_t TransactionDALC::Transactions(const Journal* transactionJournal, IDALReader& helper) {
  if (transactionJournal == nullptr) {
    const auto everywhere = helper.GetElements("//Transaction", {}, {});
    return everywhere ? static_cast<int32_t>(everywhere->size()) : 0;
  }
  const Element section = helper.GetElement(kGeneralLedgerEntries.Text(), {}, {});
  const Element journal =
      section ? helper.GetElement(kJournalElement.Text(), section, QueryFor(*transactionJournal)) : Element();
  return journal ? CountOf(helper, kElement, journal) : 0;
}

}  // namespace zevo
