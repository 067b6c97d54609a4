// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/AddressDALC.h>

namespace zevo {
namespace {

using A = AddressStructure;
constexpr Layout kAddress(Row("BuildingNumber", kIfNotEmpty, &A::BuildingNumber, &A::set_BuildingNumber),
                          Row("StreetName", kIfNotEmpty, &A::StreetName, &A::set_StreetName),
                          Row("AddressDetail", kAlways, &A::AddressDetail, &A::set_AddressDetail),
                          Row("City", kAlways, &A::City, &A::set_City),
                          Row("PostalCode", kAlways, &A::PostalCode, &A::set_PostalCode),
                          Row("Region", kIfNotEmpty, &A::Region, &A::set_Region),
                          Row("Country", kAlways, &A::Country, &A::set_Country));

}  // namespace

void AddressDALC::CreateAddress(ElementName name, Element parent, IDALHelper& helper, const AddressStructure& address) {
  kAddress.Write(address, helper.CreateElement(name.Text(), {}, parent, true), helper);
  helper.EndElement(name.Text());
}

void AddressDALC::ReadAddress(ElementName name, std::shared_ptr<AddressStructure>& address, Element parent,
                              IDALReader& helper) {
  const Element element = helper.GetElement(name.Text(), parent, {});
  if (!element) return;
  if (!address) address = std::make_shared<AddressStructure>();
  kAddress.Read(*address, element, helper);
}

}  // namespace zevo
