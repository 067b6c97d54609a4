// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/TransactionDALC.h>

#include <zevo/Error.h>
#include <zevo/mappers/Sections.h>
#include <zevo/mappers/TransactionLineDALC.h>

#include <string>

namespace zevo {
namespace {

constexpr ElementName kTransaction = "Transaction";

constexpr auto kTransactionLayout = LayoutFor<Transaction>(Rows{
    ZEVO_ROW(TransactionID, kAlways),
    ZEVO_ROW(Period, kAlways),
    ZEVO_ROW(TransactionDate, kAlways),
    ZEVO_ROW(SourceID, kIfNotEmpty),
    ZEVO_ROW(Description, kAlways),
    ZEVO_ROW(DocArchivalNumber, kAlways),
    ZEVO_ROW(TransactionType, kAlways),
    ZEVO_ROW(GLPostingDate, kAlways),
    ZEVO_ROW(CustomerID, kIfNotEmpty),
    ZEVO_ROW(SupplierID, kIfNotEmpty),
    ZEVO_ROW(Line, ItemsOf(&TransactionLineDALC::CreateTransactionLine, &TransactionLineDALC::ReadTransactionLine)),
});

// The identifier is not escaped: one with a double quote makes the query invalid, which is an error.
std::string QueryFor(const Journal& journal) { return "[JournalID = \"" + journal.JournalID() + "\"]"; }

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<Transaction>() {
  return DataOf<kTransactionLayout>();
}

void TransactionDALC::CreateTransaction(const Transaction& value, const Journal* transactionJournal,
                                        IDALHelper& writer) {
  Element journal;
  if (const Element section = writer.GetElement(kGeneralLedgerEntries, {}, {})) {
    const std::string query = transactionJournal == nullptr ? std::string() : QueryFor(*transactionJournal);
    journal = writer.GetElement(kJournal, section, query);
  }
  if (!journal) throw LibraryError(Message::kJournalMissing, "TransactionDALC.CreateTransaction");
  const Element transaction = writer.CreateElement(kTransaction, {}, journal, true);
  kTransactionLayout.Write(value, transaction, writer);
  writer.EndElement(kTransaction);
}

void TransactionDALC::ReadTransaction(std::shared_ptr<Transaction>& value, const Journal* transactionJournal,
                                      IDALReader& reader, bool first) {
  Element journal;
  if (transactionJournal == nullptr) {
    // Looks directly under the root: there a reader that holds one entity has its journal, and a whole file has none.
    journal = reader.GetElement(kJournal, {});
  } else if (const Element section = reader.GetElement(kGeneralLedgerEntries, {})) {
    journal = reader.GetElement(kJournal.Text(), section, QueryFor(*transactionJournal));
  }
  if (!journal) throw LibraryError(Message::kJournalMissing, "TransactionDALC.ReadTransaction");
  ReadRecord(kTransactionLayout, FirstOrNext(reader, kTransaction, journal, first), value, reader);
}

int32_t TransactionDALC::Transactions(const Journal* transactionJournal, IDALReader& reader) {
  if (transactionJournal == nullptr) {
    const auto everywhere = reader.GetElements("//Transaction", {}, {});
    return everywhere ? static_cast<int32_t>(everywhere->size()) : 0;
  }
  const Element section = reader.GetElement(kGeneralLedgerEntries, {});
  const Element journal =
      section ? reader.GetElement(kJournal.Text(), section, QueryFor(*transactionJournal)) : Element();
  return journal ? CountOf(reader, kTransaction, journal) : 0;
}

}  // namespace zevo
