// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/GeneralLedgerEntries.h>

namespace zevo {

GeneralLedgerEntries::GeneralLedgerEntries() { Reset(); }

GeneralLedgerEntries::~GeneralLedgerEntries() = default;
std::span<const Property> GeneralLedgerEntries::Properties() const { return PropertiesOf<GeneralLedgerEntries>(); }

void GeneralLedgerEntries::Reset() {
  set_NumberOfEntries(0);
  set_TotalDebit(0);
  set_TotalCredit(0);
}

}  // namespace zevo
