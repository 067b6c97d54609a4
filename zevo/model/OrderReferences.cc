// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/OrderReferences.h>

namespace zevo {

OrderReferences::OrderReferences() = default;

OrderReferences::~OrderReferences() = default;
std::span<const Property> OrderReferences::Properties() const { return PropertiesOf<OrderReferences>(); }

}  // namespace zevo
