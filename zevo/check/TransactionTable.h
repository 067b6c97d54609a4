// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_TRANSACTIONTABLE_H_
#define ZEVO_CHECK_TRANSACTIONTABLE_H_

#include <zevo/check/CalendarDate.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/check/LedgerSums.h>
#include <zevo/check/SlotTable.h>
#include <zevo/model/Decimal.h>
#include <zevo/platform/KeyedHash.h>

#include <cstdint>
#include <deque>
#include <optional>
#include <string_view>

namespace zevo {

/// The transactions of a file, by their identifiers, with what invoices are compared with. About 80 bytes each.
class TransactionTable {
 public:
  class Entry {
   public:
    std::optional<CalendarDate> Date() const;
    /// What it debits less the invoices of it so far; nothing where that is not known.
    std::optional<Decimal> Left() const { return known_ ? std::optional(left_) : std::nullopt; }
    /// Takes an invoice off. Whether more was taken off than there is, for the first time.
    bool TakeOff(const Decimal& gross);

   private:
    friend class TransactionTable;

    Digest id_;
    Decimal left_;
    int64_t date_ = 0;  // year, month and day in decimal digits; 0 for none
    bool known_ = true;
  };

  void Add(const TransactionFacts& facts, const AmountSum& debit);
  /// Null where there is none.
  Entry* Find(std::string_view id);

 private:
  std::deque<Entry> entries_;
  SlotTable slots_;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_TRANSACTIONTABLE_H_
