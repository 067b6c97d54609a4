// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_CHECK_TRANSACTIONTABLE_H_
#define ZEVO_CHECK_TRANSACTIONTABLE_H_

#include <zevo/check/CalendarDate.h>
#include <zevo/check/DocumentTable.h>
#include <zevo/check/EntityFacts.h>
#include <zevo/check/LedgerSums.h>
#include <zevo/model/Decimal.h>

#include <cstdint>
#include <deque>
#include <limits>
#include <optional>

namespace zevo {

/// The transactions of a file, as `FileKeys` counts them, with what invoices are compared with: 64 bytes each.
class TransactionTable {
 public:
  class Entry {
   public:
    std::optional<CalendarDate> Date() const;
    /// Takes in the last of the documents, an invoice of it with this total.
    void Take(const Decimal& gross, const DocumentTable& documents);
    /// Takes in an invoice of which it is not known what it adds.
    void TakeUnknown() { known_ = false; }

    /// Whether its invoices are more than it debits, as far as both are known.
    bool IsExceeded() const { return known_ && debit_ < gross_; }
    const Decimal& Debit() const { return debit_; }
    /// Of its invoices together.
    const Decimal& Gross() const { return gross_; }
    /// The invoice, among the documents, that comes last by series and number. Only where one was taken.
    uint32_t LastInvoice() const { return last_invoice_; }

   private:
    friend class TransactionTable;

    Decimal debit_;
    Decimal gross_;
    int64_t date_ = 0;  // year, month and day in decimal digits; 0 for none
    uint32_t last_invoice_ = kNoInvoice;
    bool known_ = false;
  };

  /// Takes the transaction of a number. Of several with one number, nothing is known.
  void Take(uint32_t number, const TransactionFacts& facts, const LedgerSums::Sums& sums);
  /// Null where it was not taken.
  Entry* Find(uint32_t number) { return number < entries_.size() ? &entries_[number] : nullptr; }
  /// In the order of the file.
  const std::deque<Entry>& All() const { return entries_; }

 private:
  static constexpr uint32_t kNoInvoice = std::numeric_limits<uint32_t>::max();

  std::deque<Entry> entries_;
};

}  // namespace zevo

#endif  // ZEVO_CHECK_TRANSACTIONTABLE_H_
