// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/DocumentTotals.h>

namespace zevo {

DocumentTotals::DocumentTotals() = default;

DocumentTotals::~DocumentTotals() = default;
std::span<const Property> DocumentTotals::Properties() const { return PropertiesOf<DocumentTotals>(); }

}  // namespace zevo
