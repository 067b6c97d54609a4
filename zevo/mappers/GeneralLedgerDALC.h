// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_GENERALLEDGERDALC_H_
#define ZEVO_MAPPERS_GENERALLEDGERDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/GeneralLedger.h>

#include <cstdint>
#include <memory>

namespace zevo {

/// Writes, reads and counts the ledger accounts of the file.
class GeneralLedgerDALC {
 public:
  void CreateGeneralLedger(const GeneralLedger& value, IDALHelper& writer);
  /// Fills the slot with the first or the next one, or with nothing when there is none left.
  void ReadGeneralLedger(std::shared_ptr<GeneralLedger>& value, IDALReader& reader, bool first);
  int32_t GeneralLedgers(IDALReader& reader);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_GENERALLEDGERDALC_H_
