// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Header.h>

#include <zevo/platform/RegionalSettings.h>

namespace zevo {

Header::Header() {
  CompanyAddress_->set_BasePath(BasePath::kHeaderCompanyAddress);
  set_DateCreated(LocalDate());
  set_CurrencyCode("EUR");
}

Header::~Header() = default;
std::span<const Property> Header::Properties() const { return PropertiesOf<Header>(); }

}  // namespace zevo
