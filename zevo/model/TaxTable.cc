// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/TaxTable.h>

namespace zevo {

TaxTable::TaxTable() = default;

TaxTable::~TaxTable() = default;
std::span<const Property> TaxTable::Properties() const { return PropertiesOf<TaxTable>(); }

}  // namespace zevo
