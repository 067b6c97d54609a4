// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_GENERALLEDGERENTRIES_H_
#define ZEVO_MODEL_GENERALLEDGERENTRIES_H_

#include <zevo/model/Record.h>

namespace zevo {

/// The totals of the ledger entries section. They hold what is assigned: `AuditFile` adds to them as it writes
/// transactions, and writes them when it is told to.
class ZEVO_API GeneralLedgerEntries : public Record {
  ZEVO_ENTITY(GeneralLedgerEntries, kGeneralLedgerEntries);

  /// Number of transactions.
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

#endif  // ZEVO_MODEL_GENERALLEDGERENTRIES_H_
