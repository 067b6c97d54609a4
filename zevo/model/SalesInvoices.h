// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_SALESINVOICES_H_
#define ZEVO_MODEL_SALESINVOICES_H_

#include <zevo/model/Record.h>

namespace zevo {

/// The totals of the sales invoices section. They hold what is assigned: `AuditFile` adds to them as it writes
/// invoices, and writes them when it is told to.
class ZEVO_API SalesInvoices : public Record {
  ZEVO_ENTITY(SalesInvoices, kSalesInvoices);

  /// Number of invoices, without those whose `TransactionID` is "Anulado".
  ZEVO_COUNT(NumberOfEntries);

  /// Sum of the debit amounts of all lines.
  ZEVO_AMOUNT(TotalDebit);

  /// Sum of the credit amounts of all lines.
  ZEVO_AMOUNT(TotalCredit);

  /// Sets the three totals to 0.
  void Reset();
  /// Does nothing; hosts may call it.
  void Refresh() {}
};

}  // namespace zevo

#endif  // ZEVO_MODEL_SALESINVOICES_H_
