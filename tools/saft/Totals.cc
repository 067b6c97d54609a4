#include "tools/saft/Totals.h"

#include "tools/saft/Utf8.h"

namespace zevo::saft {
namespace {

template <class T>
Totals TotalsOfLines(const T& record) {
  Totals totals{.entries = 1, .debit = {}, .credit = {}};
  for (const auto& line : *record.Line()) {
    totals.debit += line->DebitAmount();
    totals.credit += line->CreditAmount();
  }
  return totals;
}

}  // namespace

Totals& Totals::operator+=(const Totals& other) {
  entries += other.entries;
  debit += other.debit;
  credit += other.credit;
  return *this;
}

Totals TotalsOf(const Transaction& transaction) { return TotalsOfLines(transaction); }
Totals TotalsOf(const Invoice& invoice) { return TotalsOfLines(invoice); }

bool IsLeftOut(const Invoice& invoice) { return EqualIgnoringAsciiCase(invoice.TransactionID(), "Anulado"); }

}  // namespace zevo::saft
