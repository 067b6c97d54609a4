// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_TAXTABLEENTRYDALC_H_
#define ZEVO_MAPPERS_TAXTABLEENTRYDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/TaxTableEntry.h>

#include <cstdint>
#include <memory>

namespace zevo {

/// Writes, reads and counts the entries of the tax table.
class TaxTableEntryDALC {
 public:
  void CreateTaxTableEntry(const TaxTableEntry& value, IDALHelper& writer);
  /// Fills the slot with the first or the next one, or with nothing when there is none left. Raises error 13 unless the
  /// entry has both a percentage and an amount; what CreateTaxTableEntry writes has one of them.
  void ReadTaxTableEntry(std::shared_ptr<TaxTableEntry>& value, IDALReader& reader, bool first);
  int32_t TaxTableEntrys(IDALReader& reader);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_TAXTABLEENTRYDALC_H_
