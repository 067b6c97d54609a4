// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_GENERALLEDGER_H_
#define ZEVO_MODEL_GENERALLEDGER_H_

#include <zevo/model/Record.h>

namespace zevo {

/// An account of the general ledger with its opening balances.
class ZEVO_API GeneralLedger : public Record {
  ZEVO_ENTITY(GeneralLedger, kGeneralLedger);

  /// Code of the account in the chart of accounts. At most 30 characters.
  ZEVO_TEXT(AccountID);

  /// At most 60 characters.
  ZEVO_TEXT(AccountDescription);

  /// Debit balance at the start of the fiscal year.
  ZEVO_AMOUNT(OpeningDebitBalance);

  /// Credit balance at the start of the fiscal year.
  ZEVO_AMOUNT(OpeningCreditBalance);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_GENERALLEDGER_H_
