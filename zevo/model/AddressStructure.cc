// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/AddressStructure.h>

namespace zevo {

AddressStructure::AddressStructure() { set_Country("PT"); }

AddressStructure::~AddressStructure() = default;
std::span<const Property> AddressStructure::Properties() const { return PropertiesOf<AddressStructure>(); }

}  // namespace zevo
