// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_TAXTABLEDALC_H_
#define ZEVO_MAPPERS_TAXTABLEDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/TaxTable.h>

#include <memory>

namespace zevo {

/// Writes and reads the tax table as a whole.
class TaxTableDALC {
 public:
  /// Writes nothing for a table without entries.
  void CreateTaxTable(const TaxTable& value, IDALHelper& writer);
  /// Fills the slot with a table, without entries when the file has none.
  void ReadTaxTable(std::shared_ptr<TaxTable>& value, IDALReader& reader);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_TAXTABLEDALC_H_
