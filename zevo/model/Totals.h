// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_TOTALS_H_
#define ZEVO_MODEL_TOTALS_H_

#include <zevo/Api.h>
#include <zevo/model/Amount.h>
#include <zevo/model/Invoice.h>
#include <zevo/model/Transaction.h>

#include <cstdint>
#include <string_view>

namespace zevo {

/// What counts in the totals of a section, by the names that elements and properties share: of each such part of an
/// entry the amount that it debits and the one that it credits. For programs that add up texts of a file.
inline constexpr std::string_view kCountedPart = "Line";
/// The amount of a part that goes into `TotalDebit`.
inline constexpr std::string_view kCountedDebit = "DebitAmount";
/// The amount of a part that goes into `TotalCredit`.
inline constexpr std::string_view kCountedCredit = "CreditAmount";

/// The totals of a section: how many entries there are, and what their lines debit and credit.
struct ZEVO_API Totals {
  /// Number of transactions or invoices.
  int32_t entries = 0;
  /// Sum of `DebitAmount` of all lines.
  Amount debit;
  /// Sum of `CreditAmount` of all lines.
  Amount credit;

  /// Adds an entry with its lines. Raises error 6 when a sum is out of range; nothing is added then.
  void Add(const Transaction& entry);
  /// The same of an invoice, whether it counts or not.
  void Add(const Invoice& entry);

  /// Adds an entry with its lines: the number first, then line after line its debit and its credit. Raises error 6 at
  /// the first sum that is out of range; what came before it is added.
  void AddInOrder(const Transaction& entry);
  /// The same of an invoice, whether it counts or not.
  void AddInOrder(const Invoice& entry);

  /// Raises error 6 when a sum is out of range; nothing is added then.
  Totals& operator+=(const Totals& other);
  friend bool operator==(const Totals&, const Totals&) = default;
};

/// What one entry adds to the totals of its section. Raises error 6 when a sum is out of range.
ZEVO_API Totals TotalsOf(const Transaction& entry);
/// The same of an invoice, whether it counts or not.
ZEVO_API Totals TotalsOf(const Invoice& entry);

/// Whether an invoice counts among the entries and sums of its section: one whose `TransactionID` is "Anulado", in any
/// letter case, does not. It is this property that tells, not `InvoiceStatus`.
ZEVO_API bool CountsInTotals(const Invoice& invoice);
/// The same by the text of that property.
ZEVO_API bool CountsInTotals(std::string_view transactionID);

/// The totals that a `GeneralLedgerEntries` or `SalesInvoices` holds.
template <class Section>
Totals TotalsIn(const Section& section) {
  return {section.NumberOfEntries(), section.TotalDebit(), section.TotalCredit()};
}

/// Gives a section its totals.
template <class Section>
void SetTotals(Section& section, const Totals& totals) {
  section.set_NumberOfEntries(totals.entries);
  section.set_TotalDebit(totals.debit);
  section.set_TotalCredit(totals.credit);
}

/// Adds an entry with its lines to the totals that a section holds, as `Totals::AddInOrder` does, with its error.
template <class Section, class R>
void AddToTotals(Section& section, const R& entry) {
  Totals totals = TotalsIn(section);
  try {
    totals.AddInOrder(entry);
  } catch (...) {
    SetTotals(section, totals);
    throw;
  }
  SetTotals(section, totals);
}

}  // namespace zevo

#endif  // ZEVO_MODEL_TOTALS_H_
