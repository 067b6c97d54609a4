// SPDX-License-Identifier: Apache-2.0
#ifndef ZEVO_MODEL_PRODUCT_H_
#define ZEVO_MODEL_PRODUCT_H_

#include <zevo/model/Record.h>

namespace zevo {

/// A product or service of the catalogue.
class ZEVO_API Product : public Record {
  ZEVO_ENTITY(Product, kProduct);

  /// Kind of product.
  ZEVO_CODE(ProductTypes, ProductType);

  /// Unique code of the product. At most 30 characters.
  ZEVO_TEXT(ProductCode);

  /// Family of products. At most 50 characters.
  ZEVO_TEXT(ProductGroup);

  /// At most 60 characters.
  ZEVO_TEXT(ProductDescription);

  /// Bar code (EAN), or the product's code where there is none. At most 50 characters.
  ZEVO_TEXT(ProductNumberCode);
};

}  // namespace zevo

#endif  // ZEVO_MODEL_PRODUCT_H_
