// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Product.h>

namespace zevo {

Product::Product() = default;

Product::~Product() = default;
std::span<const Property> Product::Properties() const { return PropertiesOf<Product>(); }

}  // namespace zevo
