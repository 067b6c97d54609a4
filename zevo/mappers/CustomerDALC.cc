// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/CustomerDALC.h>

#include <zevo/mappers/AddressDALC.h>
#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr ElementName kElement = "Customer";

using R = Customer;
constexpr Layout kCustomer(
    Row("CustomerID", kAlways, &R::CustomerID, &R::set_CustomerID),
    Row("AccountID", kAlways, &R::AccountID, &R::set_AccountID),
    Row("CustomerTaxID", kAlways, &R::CustomerTaxID, &R::set_CustomerTaxID),
    Row("CompanyName", kAlways, &R::CompanyName, &R::set_CompanyName),
    Row("Contact", kIfNotEmpty, &R::Contact, &R::set_Contact), OwnedAddress("BillingAddress", &R::BillingAddress),
    SharedAddress("ShipToAddress", &R::ShipToAddress, &R::set_ShipToAddress),
    Row("Telephone", kIfNotEmpty, &R::Telephone, &R::set_Telephone),  //
    Row("Fax", kIfNotEmpty, &R::Fax, &R::set_Fax),                    //
    Row("Email", kIfNotEmpty, &R::Email, &R::set_Email), Row("Website", kIfNotEmpty, &R::Website, &R::set_Website),
    Row("SelfBillingIndicator", kAlways, &R::SelfBillingIndicator, &R::set_SelfBillingIndicator));

}  // namespace

void CustomerDALC::CreateCustomer(const Customer& value, IDALHelper& helper) {
  CreateMasterRecord(kCustomer, kElement, value, helper);
}

void CustomerDALC::ReadCustomer(std::shared_ptr<Customer>& value, IDALReader& helper, bool first) {
  ReadMasterRecord(kCustomer, kElement, value, helper, first);
}

int32_t CustomerDALC::Customers(IDALReader& helper) { return CountMasterRecords(kElement, helper); }

}  // namespace zevo
