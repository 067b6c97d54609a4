// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_TRANSACTIONDALC_H_
#define ZEVO_MAPPERS_TRANSACTIONDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/Journal.h>
#include <zevo/model/Transaction.h>

#include <cstdint>
#include <memory>

namespace zevo {

/// Writes, reads and counts transactions. A journal is found in the file by its `JournalID`.
class TransactionDALC {
 public:
  /// Writes a transaction under its journal, or under the first one when `transactionJournal` is null. Raises message
  /// 251 when there is no such journal.
  void CreateTransaction(const Transaction& value, const Journal* transactionJournal, IDALHelper& writer);
  /// Fills the slot with the first or the next transaction of a journal, or with nothing when there is none left.
  /// Raises message 251 when there is no such journal.
  void ReadTransaction(std::shared_ptr<Transaction>& value, const Journal* transactionJournal, IDALReader& reader,
                       bool first);
  /// The transactions of a journal, or of the whole file.
  int32_t Transactions(const Journal* transactionJournal, IDALReader& reader);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_TRANSACTIONDALC_H_
