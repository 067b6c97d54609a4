// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MAPPERS_PRODUCTDALC_H_
#define ZEVO_MAPPERS_PRODUCTDALC_H_

#include <zevo/dal/IDALHelper.h>
#include <zevo/dal/IDALReader.h>
#include <zevo/model/Product.h>

#include <cstdint>
#include <memory>

namespace zevo {

/// Writes, reads and counts the products of the file.
class ProductDALC {
 public:
  void CreateProduct(const Product& value, IDALHelper& writer);
  /// Fills the slot with the first or the next one, or with nothing when there is none left.
  void ReadProduct(std::shared_ptr<Product>& value, IDALReader& reader, bool first);
  int32_t Products(IDALReader& reader);
};

}  // namespace zevo

#endif  // ZEVO_MAPPERS_PRODUCTDALC_H_
