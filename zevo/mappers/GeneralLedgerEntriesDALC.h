// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_GENERALLEDGERENTRIESDALC_H_
#define ZEVO_MAPPERS_GENERALLEDGERENTRIESDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/GeneralLedgerEntries.h>

#include <cstdint>
#include <memory>

namespace zevo {

/// Writes and reads the totals of the ledger entries section.
class GeneralLedgerEntriesDALC {
 public:
  // The texts of messages 201 and 202 say the reverse of what happened. They stay: hosts test the numbers.

  /// Begins the section. Raises message 201 when the file has it already.
  void CreateGeneralLedgerEntries(const GeneralLedgerEntries& value, IDALHelper& writer);
  /// Brings the totals in the file up to date. Raises message 202 when the section is missing.
  void UpdateGeneralLedgerEntries(const GeneralLedgerEntries& value, IDALHelper& writer);
  /// Raises message 202 when the section is missing, error 13 when the number of entries is no number.
  void ReadGeneralLedgerEntries(std::shared_ptr<GeneralLedgerEntries>& value, IDALReader& reader);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_GENERALLEDGERENTRIESDALC_H_
