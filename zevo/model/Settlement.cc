// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Settlement.h>

namespace zevo {

Settlement::Settlement() = default;

Settlement::~Settlement() = default;
std::span<const Property> Settlement::Properties() const { return PropertiesOf<Settlement>(); }

}  // namespace zevo
