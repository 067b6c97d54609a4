// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_TRANSACTIONLINEDALC_H_
#define ZEVO_MAPPERS_TRANSACTIONLINEDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/TransactionLine.h>

#include <cstdint>
#include <memory>

namespace zevo {

/// Writes and reads the lines of a transaction.
class TransactionLineDALC {
 public:
  void CreateTransactionLine(const TransactionLine& value, Element transaction, IDALHelper& writer);
  /// Fills the slot with the first or the next one, or with nothing when there is none left.
  void ReadTransactionLine(std::shared_ptr<TransactionLine>& value, Element transaction, IDALReader& reader,
                           bool first);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_TRANSACTIONLINEDALC_H_
