// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/ShippingPointDALC.h>

#include <zevo/mappers/AddressDALC.h>
#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

constexpr auto kShippingPointLayout = LayoutFor<ShippingPointStructure>(Rows{
    ZEVO_ROW(DeliveryID, kIfNotEmpty),
    ZEVO_ROW(DeliveryDate, kIfNotEmpty),
    ZEVO_ROW(Address, SharedAddress()),
});

}  // namespace

template <>
std::span<const LayoutRow> LayoutOf<ShippingPointStructure>() {
  return DataOf<kShippingPointLayout>();
}

void ShippingPointDALC::CreateShippingPointStructure(ElementName name, const ShippingPointStructure& value,
                                                     Element parent, IDALHelper& writer) {
  kShippingPointLayout.Write(value, writer.CreateElement(name, {}, parent, true), writer);
  writer.EndElement(name);
}

std::shared_ptr<ShippingPointStructure> ShippingPointDALC::ReadShippingPointStructure(ElementName name, Element parent,
                                                                                      IDALReader& reader) {
  std::shared_ptr<ShippingPointStructure> value;
  ReadRecord(kShippingPointLayout, reader.GetElement(name, parent), value, reader);
  return value;
}

}  // namespace zevo
