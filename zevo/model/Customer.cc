// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/Customer.h>

namespace zevo {

Customer::Customer() { BillingAddress_->set_BasePath(BasePath::kCustomerBillingAddress); }

Customer::~Customer() = default;
std::span<const Property> Customer::Properties() const { return PropertiesOf<Customer>(); }

}  // namespace zevo
