// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/References.h>

namespace zevo {

References::References() = default;

References::~References() = default;
std::span<const Property> References::Properties() const { return PropertiesOf<References>(); }

}  // namespace zevo
