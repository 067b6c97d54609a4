// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Invoice.h>

namespace zevo {

Invoice::Invoice() = default;

Invoice::~Invoice() = default;
std::span<const Property> Invoice::Properties() const { return PropertiesOf<Invoice>(); }

}  // namespace zevo
