// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_SUPPLIERDALC_H_
#define ZEVO_MAPPERS_SUPPLIERDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/Supplier.h>

#include <cstdint>
#include <memory>

namespace zevo {

/// Writes, reads and counts the suppliers of the file.
class SupplierDALC {
 public:
  void CreateSupplier(const Supplier& value, IDALHelper& writer);
  /// Fills the slot with the first or the next one, or with nothing when there is none left.
  void ReadSupplier(std::shared_ptr<Supplier>& value, IDALReader& reader, bool first);
  int32_t Suppliers(IDALReader& reader);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_SUPPLIERDALC_H_
