// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_TRANSACTIONLINE_H_
#define ZEVO_MODEL_TRANSACTIONLINE_H_

#include <zevo/model/Record.h>

namespace zevo {

/// A line of a transaction. It carries either a debit or a credit: the debit unless that is 0.
class ZEVO_API TransactionLine : public Record {
  ZEVO_RECORD(TransactionLine, kTransactionLine);

  /// Unique within the transaction. At most 10 characters.
  ZEVO_TEXT(RecordID);

  /// Account that moves. At most 30 characters.
  ZEVO_TEXT(AccountID);

  /// Number of the document behind the line. At most 30 characters.
  ZEVO_TEXT(SourceDocumentID);

  /// When the line was entered, yyyy-mm-ddThh:mm:ss.
  ZEVO_DATE_TIME(SystemEntryDate);

  /// At most 60 characters.
  ZEVO_TEXT(Description);

  /// Amount debited to the account.
  ZEVO_AMOUNT(DebitAmount);

  /// Amount credited to the account.
  ZEVO_AMOUNT(CreditAmount);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_TRANSACTIONLINE_H_
