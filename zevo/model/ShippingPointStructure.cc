// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/ShippingPointStructure.h>

namespace zevo {

ShippingPointStructure::ShippingPointStructure() = default;

ShippingPointStructure::~ShippingPointStructure() = default;
std::span<const Property> ShippingPointStructure::Properties() const { return PropertiesOf<ShippingPointStructure>(); }

}  // namespace zevo
