// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/TransactionTable.h>

namespace zevo {

std::optional<CalendarDate> TransactionTable::Entry::Date() const {
  if (date_ == 0) return std::nullopt;
  const int64_t days = date_ < 0 ? -date_ : date_;
  const int64_t year = days / 10'000;
  return CalendarDate{date_ < 0 ? -year : year, static_cast<int>(days / 100 % 100), static_cast<int>(days % 100)};
}

void TransactionTable::Entry::Take(const Decimal& gross, const DocumentTable& documents) {
  gross_ += gross;
  const uint32_t invoice = documents.Count() - 1;
  if (last_invoice_ == kNoInvoice || documents.IsBefore(last_invoice_, invoice)) last_invoice_ = invoice;
}

void TransactionTable::Take(uint32_t number, const TransactionFacts& facts, const LedgerSums::Sums& sums) {
  if (Entry* const same = Find(number)) {
    // Which of the two an invoice means is not known.
    same->known_ = false;
    same->date_ = 0;
    return;
  }
  // Before it may be some that were not taken.
  entries_.resize(size_t{number} + 1);
  Entry& entry = entries_.back();
  entry.debit_ = sums.debit.sum;
  // Negative amounts, of which GL-NEGATIVE tells, may be meant for the other side.
  entry.known_ = sums.debit.known && sums.debit.negative.IsZero() && sums.credit.negative.IsZero();
  if (facts.date.Read()) {
    const CalendarDate& date = *facts.date;
    const int64_t days = date.month * 100 + date.day;
    entry.date_ = date.year < 0 ? date.year * 10'000 - days : date.year * 10'000 + days;
  }
}

}  // namespace zevo
