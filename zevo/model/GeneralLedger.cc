// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/GeneralLedger.h>

namespace zevo {

GeneralLedger::GeneralLedger() = default;

GeneralLedger::~GeneralLedger() = default;
std::span<const Property> GeneralLedger::Properties() const { return PropertiesOf<GeneralLedger>(); }

}  // namespace zevo
