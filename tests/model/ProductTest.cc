// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/Product.h>

namespace zevo {
namespace {

TEST(ProductTest, AnyNumberIsAProductType) {
  Product product;
  EXPECT_EQ(product.ProductType(), 0);
  for (const int32_t number : {50, 55, -1, 51, 0}) {
    product.set_ProductType(static_cast<ProductTypes>(number));
    EXPECT_EQ(product.ProductType(), number);
  }
}

}  // namespace
}  // namespace zevo
