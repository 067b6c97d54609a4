// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Journal.h>

namespace zevo {

Journal::Journal() = default;

Journal::~Journal() = default;
std::span<const Property> Journal::Properties() const { return PropertiesOf<Journal>(); }

}  // namespace zevo
