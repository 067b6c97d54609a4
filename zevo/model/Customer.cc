#include <zevo/model/Customer.h>

namespace zevo {

Customer::Customer() { BillingAddress_->set_BasePath(BasePath::kCustomerBillingAddress); }

Customer::~Customer() = default;

}  // namespace zevo
