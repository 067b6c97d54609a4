// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/ShippingPointDALC.h>

#include <memory>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::FullShippingPoint;
using testing::OneLine;

class ShippingPointDALCTest : public testing::MapperTest {
 protected:
  std::shared_ptr<ShippingPointStructure> Read(ElementName name, IDALReader& reader) {
    return ShippingPointDALC().ReadShippingPointStructure(name, reader.GetElement("Invoice", {}, {}), reader);
  }
};

TEST_F(ShippingPointDALCTest, WritesEveryProperty) {
  ShippingPointDALC().CreateShippingPointStructure("ShipFrom", *FullShippingPoint("D1"), {}, helper_);
  EXPECT_EQ(Written(), OneLine(R"(
      <ShipFrom>
        <DeliveryID>D1</DeliveryID>
        <DeliveryDate>2008-03-02</DeliveryDate>
        <Address>
          <BuildingNumber>12</BuildingNumber>
          <StreetName>Rua A</StreetName>
          <AddressDetail>Rua A, 12</AddressDetail>
          <City>Faro</City>
          <PostalCode>1000-001</PostalCode>
          <Region>Lisboa</Region>
          <Country>ES</Country>
        </Address>
      </ShipFrom>)"));
}

TEST_F(ShippingPointDALCTest, WritesAnEmptyPointAsAnEmptyElement) {
  ShippingPointDALC().CreateShippingPointStructure("ShipTo", ShippingPointStructure(), {}, helper_);
  EXPECT_EQ(Written(), "<ShipTo></ShipTo>");
}

TEST_F(ShippingPointDALCTest, ReadsEveryProperty) {
  const auto point = Read("ShipTo", Reading("<Invoice><ShipTo><DeliveryID>a</DeliveryID><DeliveryDate>b</DeliveryDate>"
                                            "<Address><City>c</City><Country>FR</Country></Address></ShipTo>"
                                            "</Invoice>"));
  ASSERT_TRUE(point);
  EXPECT_EQ(Describe(*point), "DeliveryID=a\nDeliveryDate=b\nAddress.City=c\nAddress.Country=FR\n");
}

TEST_F(ShippingPointDALCTest, ReadsTheOneOfItsName) {
  IDALReader& reader = Reading(
      "<Invoice><ShipTo><DeliveryID>a</DeliveryID></ShipTo><ShipFrom><DeliveryID>b</DeliveryID></ShipFrom></Invoice>");
  EXPECT_EQ(Describe(*Read("ShipTo", reader)), "DeliveryID=a\n");
  EXPECT_EQ(Describe(*Read("ShipFrom", reader)), "DeliveryID=b\n");
}

TEST_F(ShippingPointDALCTest, AddressIsNothingWhereThereIsNone) {
  EXPECT_EQ(Read("ShipTo", Reading("<Invoice><ShipTo/></Invoice>"))->Address(), nullptr);
}

TEST_F(ShippingPointDALCTest, GivesNothingWhereThereIsNone) {
  EXPECT_EQ(Read("ShipTo", Reading("<Invoice><ShipFrom/></Invoice>")), nullptr);
}

}  // namespace
}  // namespace zevo
