// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/TransactionTable.h>

namespace zevo {
namespace {

constexpr size_t kFirstTableSlots = 16;

}  // namespace

std::optional<CalendarDate> TransactionTable::Entry::Date() const {
  if (date_ == 0) return std::nullopt;
  const int64_t days = date_ < 0 ? -date_ : date_;
  const int64_t year = days / 10'000;
  return CalendarDate{date_ < 0 ? -year : year, static_cast<int>(days / 100 % 100), static_cast<int>(days % 100)};
}

bool TransactionTable::Entry::TakeOff(const Decimal& gross) {
  if (!known_) return false;
  const bool before = left_.IsNegative();
  left_ -= gross;
  return !before && left_.IsNegative();
}

// Where the entry is, or its number would be put.
size_t TransactionTable::SlotOf(const Digest& digest) const {
  const size_t mask = slots_.size() - 1;
  size_t slot = static_cast<size_t>(digest[0]) & mask;
  while (slots_[slot] != 0 && entries_[slots_[slot] - 1].id_ != digest) slot = (slot + 1) & mask;
  return slot;
}

void TransactionTable::Grow() {
  slots_.assign(slots_.empty() ? kFirstTableSlots : 2 * slots_.size(), 0);
  for (size_t i = 0; i < entries_.size(); ++i) slots_[SlotOf(entries_[i].id_)] = static_cast<uint32_t>(i + 1);
}

void TransactionTable::Add(const TransactionFacts& facts, const AmountSum& debit) {
  if (facts.id.Missing()) return;
  if (Entry* const same = Find(*facts.id)) {
    // Which of the two an invoice means is not known.
    same->known_ = false;
    same->date_ = 0;
    return;
  }
  if (4 * (entries_.size() + 1) > 3 * slots_.size()) Grow();
  Entry& entry = entries_.emplace_back();
  entry.id_ = KeyedDigest(*facts.id);
  entry.left_ = debit.sum;
  entry.known_ = debit.known;
  if (facts.date.Read()) {
    const CalendarDate& date = *facts.date;
    const int64_t days = date.month * 100 + date.day;
    entry.date_ = date.year < 0 ? date.year * 10'000 - days : date.year * 10'000 + days;
  }
  slots_[SlotOf(entry.id_)] = static_cast<uint32_t>(entries_.size());
}

TransactionTable::Entry* TransactionTable::Find(std::string_view id) {
  if (entries_.empty()) return nullptr;
  const uint32_t number = slots_[SlotOf(KeyedDigest(id))];
  return number == 0 ? nullptr : &entries_[number - 1];
}

}  // namespace zevo
