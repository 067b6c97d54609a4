// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/SupplierDALC.h>

#include <zevo/mappers/AddressDALC.h>
#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr ElementName kSupplier = "Supplier";

constexpr auto kSupplierLayout = LayoutFor<Supplier>(Rows{
    ZEVO_ROW(SupplierID, kAlways),
    ZEVO_ROW(AccountID, kAlways, NotReadBack::kKeepsDefault),
    ZEVO_ROW(SupplierTaxID, kAlways),
    ZEVO_ROW(CompanyName, kAlways),
    ZEVO_ROW(Contact, kIfNotEmpty),
    ZEVO_ROW(BillingAddress, OwnedAddress()),
    ZEVO_ROW(ShipFromAddress, SharedAddress()),
    ZEVO_ROW(Telephone, kIfNotEmpty),
    ZEVO_ROW(Fax, kIfNotEmpty),
    ZEVO_ROW(Email, kIfNotEmpty),
    ZEVO_ROW(Website, kIfNotEmpty),
    ZEVO_ROW(SelfBillingIndicator, kAlways, NotReadBack::kKeepsDefault),
});

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<Supplier>() {
  return DataOf<kSupplierLayout>();
}

void SupplierDALC::CreateSupplier(const Supplier& value, IDALHelper& writer) {
  CreateMasterRecord(kSupplierLayout, kSupplier, value, writer);
}

void SupplierDALC::ReadSupplier(std::shared_ptr<Supplier>& value, IDALReader& reader, bool first) {
  ReadMasterRecord(kSupplierLayout, kSupplier, value, reader, first);
}

int32_t SupplierDALC::Suppliers(IDALReader& reader) { return CountMasterRecords(kSupplier, reader); }

}  // namespace zevo
