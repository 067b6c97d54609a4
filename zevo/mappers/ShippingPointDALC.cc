// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/ShippingPointDALC.h>

#include <zevo/mappers/AddressDALC.h>
#include <zevo/mappers/Sections.h>

namespace zevo {
namespace {

using R = ShippingPointStructure;
constexpr Layout kShippingPoint(Row("DeliveryID", kIfNotEmpty, &R::DeliveryID, &R::set_DeliveryID),
                                Row("DeliveryDate", kIfNotEmpty, &R::DeliveryDate, &R::set_DeliveryDate),
                                SharedAddress("Address", &R::Address, &R::set_Address));

}  // namespace

void ShippingPointDALC::CreateShippingPointStructure(ElementName name, const ShippingPointStructure& value,
                                                     Element parent, IDALHelper& helper) {
  kShippingPoint.Write(value, helper.CreateElement(name.Text(), {}, parent, true), helper);
  helper.EndElement(name.Text());
}

std::shared_ptr<ShippingPointStructure> ShippingPointDALC::ReadShippingPointStructure(ElementName name, Element parent,
                                                                                      IDALReader& helper) {
  std::shared_ptr<ShippingPointStructure> value;
  ReadRecord(kShippingPoint, helper.GetElement(name.Text(), parent, {}), value, helper);
  return value;
}

}  // namespace zevo
