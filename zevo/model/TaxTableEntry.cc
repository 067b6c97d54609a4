// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/TaxTableEntry.h>

namespace zevo {

TaxTableEntry::TaxTableEntry() = default;

TaxTableEntry::~TaxTableEntry() = default;
std::span<const Property> TaxTableEntry::Properties() const { return PropertiesOf<TaxTableEntry>(); }

}  // namespace zevo
