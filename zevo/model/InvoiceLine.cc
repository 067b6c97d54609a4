// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/InvoiceLine.h>

namespace zevo {

InvoiceLine::InvoiceLine() = default;

InvoiceLine::~InvoiceLine() = default;
std::span<const Property> InvoiceLine::Properties() const { return PropertiesOf<InvoiceLine>(); }

}  // namespace zevo
