// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/AddressDALC.h>

namespace zevo {
namespace {

constexpr auto kAddressLayout = LayoutFor<AddressStructure>(Rows{
    ZEVO_ROW(BuildingNumber, kIfNotEmpty),
    ZEVO_ROW(StreetName, kIfNotEmpty),
    ZEVO_ROW(AddressDetail, kAlways),
    ZEVO_ROW(City, kAlways),
    ZEVO_ROW(PostalCode, kAlways),
    ZEVO_ROW(Region, kIfNotEmpty),
    ZEVO_ROW(Country, kAlways),
});

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<AddressStructure>() {
  return DataOf<kAddressLayout>();
}

void AddressDALC::CreateAddress(ElementName name, Element parent, IDALHelper& writer, const AddressStructure& address) {
  kAddressLayout.Write(address, writer.CreateElement(name, {}, parent, true), writer);
  writer.EndElement(name);
}

void AddressDALC::ReadAddress(ElementName name, std::shared_ptr<AddressStructure>& address, Element parent,
                              IDALReader& reader) {
  const Element element = reader.GetElement(name, parent);
  if (!element) return;
  if (!address) address = std::make_shared<AddressStructure>();
  kAddressLayout.Read(*address, element, reader);
}

}  // namespace zevo
