#ifndef ZEVO_TOOLS_SAFT_TOTALS_H_
#define ZEVO_TOOLS_SAFT_TOTALS_H_

#include <zevo/adapters.h>

#include <cstdint>
#include <string_view>

#include "tools/saft/Alterations.h"

namespace zevo::saft {

/// A count of records, and what their lines debit and credit.
struct Totals {
  int32_t entries = 0;
  Amount debit;
  Amount credit;

  /// Throws `Error` 6 when a sum is out of range.
  Totals& operator+=(const Totals& other);
  friend bool operator==(const Totals&, const Totals&) = default;
};

/// What one record adds to the totals of its section.
Totals TotalsOf(const Transaction& transaction);
Totals TotalsOf(const Invoice& invoice);

/// Whether a document is left out of the totals of its section: its TransactionID is "Anulado".
bool IsLeftOut(const Invoice& invoice);

/// The totals that a section states.
template <class Section>
Totals TotalsIn(const Section& section) {
  return {section.NumberOfEntries(), section.TotalDebit(), section.TotalCredit()};
}

/// Gives a section its totals. They are written with two decimals: what that changes is added to `alterations`.
template <class Section>
void SetTotals(Section& section, std::string_view name, const Totals& totals, Alterations& alterations) {
  alterations.AddTotal(name, "TotalDebit", totals.debit);
  alterations.AddTotal(name, "TotalCredit", totals.credit);
  section.set_NumberOfEntries(totals.entries);
  section.set_TotalDebit(totals.debit);
  section.set_TotalCredit(totals.credit);
}

}  // namespace zevo::saft

#endif  // ZEVO_TOOLS_SAFT_TOTALS_H_
