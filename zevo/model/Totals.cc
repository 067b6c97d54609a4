// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Totals.h>

#include <zevo/Error.h>
#include <zevo/platform/LetterCase.h>

namespace zevo {
namespace {

void AddEntries(int32_t& entries, int32_t more) {
  int32_t sum;
  if (__builtin_add_overflow(entries, more, &sum)) throw MakeRunTimeError(RunTimeError::kOverflow);
  entries = sum;
}

template <class R>
void AddEntryInOrder(Totals& totals, const R& entry) {
  AddEntries(totals.entries, 1);
  for (const auto& line : *entry.Line()) {
    totals.debit += line->DebitAmount();
    totals.credit += line->CreditAmount();
  }
}

template <class R>
void AddEntry(Totals& totals, const R& entry) {
  Totals sum = totals;
  AddEntryInOrder(sum, entry);
  totals = sum;
}

}  // namespace

void Totals::Add(const Transaction& entry) { AddEntry(*this, entry); }
void Totals::Add(const Invoice& entry) { AddEntry(*this, entry); }

void Totals::AddInOrder(const Transaction& entry) { AddEntryInOrder(*this, entry); }
void Totals::AddInOrder(const Invoice& entry) { AddEntryInOrder(*this, entry); }

Totals& Totals::operator+=(const Totals& other) {
  Totals sum{.entries = entries, .debit = debit + other.debit, .credit = credit + other.credit};
  AddEntries(sum.entries, other.entries);
  return *this = sum;
}

Totals TotalsOf(const Transaction& entry) {
  Totals totals;
  totals.Add(entry);
  return totals;
}

Totals TotalsOf(const Invoice& entry) {
  Totals totals;
  totals.Add(entry);
  return totals;
}

bool CountsInTotals(const Invoice& invoice) { return CountsInTotals(invoice.TransactionID()); }
bool CountsInTotals(std::string_view transactionID) { return !EqualIgnoringCase(transactionID, "Anulado"); }

}  // namespace zevo
