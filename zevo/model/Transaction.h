// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_TRANSACTION_H_
#define ZEVO_MODEL_TRANSACTION_H_

#include <zevo/model/LineCollection.h>
#include <zevo/model/Record.h>

namespace zevo {

/// A transaction of the general ledger.
class ZEVO_API Transaction : public Record {
  ZEVO_ENTITY(Transaction, kTransaction);

  /// Unique: the date, the journal and the number of the archived document, with blanks between. At most 70 characters.
  ZEVO_TEXT(TransactionID);

  /// Accounting period: the month, or 13 to 16 for year-end entries.
  ZEVO_PERIOD(Period);

  /// Date of the document, yyyy-mm-dd.
  ZEVO_DATE(TransactionDate);

  /// User who entered it. At most 30 characters.
  ZEVO_TEXT(SourceID);

  /// At most 60 characters.
  ZEVO_TEXT(Description);

  /// Number of the archived document. At most 20 characters.
  ZEVO_TEXT(DocArchivalNumber);

  /// Kind of transaction.
  ZEVO_CODE(TransactionTypes, TransactionType);

  /// When it was posted, yyyy-mm-ddThh:mm:ss.
  ZEVO_DATE_TIME(GLPostingDate);

  /// Code of the customer, for transactions with one.
  ZEVO_TEXT(CustomerID);

  /// Code of the supplier, for transactions with one.
  ZEVO_TEXT(SupplierID);

  /// The lines, in order; each is also found by the `RecordID` it had when it was added.
  ZEVO_OWNED(LineCollection, Line);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_TRANSACTION_H_
