// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Tax.h>

namespace zevo {

Tax::Tax() = default;

Tax::~Tax() = default;
std::span<const Property> Tax::Properties() const { return PropertiesOf<Tax>(); }

}  // namespace zevo
