// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/SupplierDALC.h>

#include <zevo/mappers/AddressDALC.h>
#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr ElementName kElement = "Supplier";

using R = Supplier;
constexpr Layout kSupplier(Row("SupplierID", kAlways, &R::SupplierID, &R::set_SupplierID),
                           Row("AccountID", kAlways, &R::AccountID),
                           Row("SupplierTaxID", kAlways, &R::SupplierTaxID, &R::set_SupplierTaxID),
                           Row("CompanyName", kAlways, &R::CompanyName, &R::set_CompanyName),
                           Row("Contact", kIfNotEmpty, &R::Contact, &R::set_Contact),
                           OwnedAddress("BillingAddress", &R::BillingAddress),
                           SharedAddress("ShipFromAddress", &R::ShipFromAddress, &R::set_ShipFromAddress),
                           Row("Telephone", kIfNotEmpty, &R::Telephone, &R::set_Telephone),  //
                           Row("Fax", kIfNotEmpty, &R::Fax, &R::set_Fax),                    //
                           Row("Email", kIfNotEmpty, &R::Email, &R::set_Email),
                           Row("Website", kIfNotEmpty, &R::Website, &R::set_Website),
                           Row("SelfBillingIndicator", kAlways, &R::SelfBillingIndicator));

}  // namespace

void SupplierDALC::CreateSupplier(const Supplier& value, IDALHelper& helper) {
  CreateMasterRecord(kSupplier, kElement, value, helper);
}

void SupplierDALC::ReadSupplier(std::shared_ptr<Supplier>& value, IDALReader& helper, bool first) {
  ReadMasterRecord(kSupplier, kElement, value, helper, first);
}

int32_t SupplierDALC::Suppliers(IDALReader& helper) { return CountMasterRecords(kElement, helper); }

}  // namespace zevo
