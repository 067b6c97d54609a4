// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/CreditNote.h>

namespace zevo {

CreditNote::CreditNote() = default;

CreditNote::~CreditNote() = default;
std::span<const Property> CreditNote::Properties() const { return PropertiesOf<CreditNote>(); }

}  // namespace zevo
