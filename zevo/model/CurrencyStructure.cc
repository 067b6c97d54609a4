// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/CurrencyStructure.h>

namespace zevo {

CurrencyStructure::CurrencyStructure() = default;

CurrencyStructure::~CurrencyStructure() = default;
std::span<const Property> CurrencyStructure::Properties() const { return PropertiesOf<CurrencyStructure>(); }

}  // namespace zevo
