// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/CustomerDALC.h>

#include <zevo/mappers/AddressDALC.h>
#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr ElementName kCustomer = "Customer";

constexpr auto kCustomerLayout = LayoutFor<Customer>(Rows{
    ZEVO_ROW(CustomerID, kAlways),
    ZEVO_ROW(AccountID, kAlways),
    ZEVO_ROW(CustomerTaxID, kAlways),
    ZEVO_ROW(CompanyName, kAlways),
    ZEVO_ROW(Contact, kIfNotEmpty),
    ZEVO_ROW(BillingAddress, OwnedAddress()),
    ZEVO_ROW(ShipToAddress, SharedAddress()),
    ZEVO_ROW(Telephone, kIfNotEmpty),
    ZEVO_ROW(Fax, kIfNotEmpty),
    ZEVO_ROW(Email, kIfNotEmpty),
    ZEVO_ROW(Website, kIfNotEmpty),
    ZEVO_ROW(SelfBillingIndicator, kAlways),
});

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<Customer>() {
  return DataOf<kCustomerLayout>();
}

void CustomerDALC::CreateCustomer(const Customer& value, IDALHelper& writer) {
  CreateMasterRecord(kCustomerLayout, kCustomer, value, writer);
}

void CustomerDALC::ReadCustomer(std::shared_ptr<Customer>& value, IDALReader& reader, bool first) {
  ReadMasterRecord(kCustomerLayout, kCustomer, value, reader, first);
}

int32_t CustomerDALC::Customers(IDALReader& reader) { return CountMasterRecords(kCustomer, reader); }

}  // namespace zevo
