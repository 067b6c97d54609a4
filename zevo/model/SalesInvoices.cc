// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/SalesInvoices.h>

namespace zevo {

SalesInvoices::SalesInvoices() { Reset(); }

SalesInvoices::~SalesInvoices() = default;
std::span<const Property> SalesInvoices::Properties() const { return PropertiesOf<SalesInvoices>(); }

void SalesInvoices::Reset() {
  set_NumberOfEntries(0);
  set_TotalDebit(0);
  set_TotalCredit(0);
}

}  // namespace zevo
