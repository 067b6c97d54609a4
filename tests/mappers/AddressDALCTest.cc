// SPDX-License-Identifier: Apache-2.0
#include <zevo/mappers/AddressDALC.h>

#include <memory>

#include "tests/mappers/MapperTest.h"
#include "tests/mappers/Records.h"

namespace zevo {
namespace {

using testing::Describe;
using testing::FullAddress;
using testing::OneLine;

class AddressDALCTest : public testing::MapperTest {
 protected:
  std::shared_ptr<AddressStructure> Read(ElementName name, IDALReader& reader,
                                         std::shared_ptr<AddressStructure> address = nullptr) {
    AddressDALC().ReadAddress(name, address, reader.GetElement("Customer", {}, {}), reader);
    return address;
  }
};

TEST_F(AddressDALCTest, WritesEveryPart) {
  AddressDALC().CreateAddress("ShipToAddress", {}, helper_, *FullAddress("Faro"));
  EXPECT_EQ(Written(), OneLine(R"(
      <ShipToAddress>
        <BuildingNumber>12</BuildingNumber>
        <StreetName>Rua A</StreetName>
        <AddressDetail>Rua A, 12</AddressDetail>
        <City>Faro</City>
        <PostalCode>1000-001</PostalCode>
        <Region>Lisboa</Region>
        <Country>ES</Country>
      </ShipToAddress>)"));
}

TEST_F(AddressDALCTest, WritesAnEmptyAddressWithItsRequiredParts) {
  AddressDALC().CreateAddress("Address", {}, helper_, AddressStructure());
  EXPECT_EQ(Written(), OneLine(R"(
      <Address>
        <AddressDetail></AddressDetail>
        <City></City>
        <PostalCode></PostalCode>
        <Country>PT</Country>
      </Address>)"));
}

TEST_F(AddressDALCTest, WritesUnderTheParentGiven) {
  const Element customer = helper_.CreateElement("Customer", {}, {}, true);
  AddressDALC().CreateAddress("Address", customer, helper_, AddressStructure());
  EXPECT_EQ(Written(),
            "<Customer><Address><AddressDetail></AddressDetail><City></City><PostalCode></PostalCode>"
            "<Country>PT</Country></Address>"
            "</Customer>");
}

TEST_F(AddressDALCTest, ReadsEveryPart) {
  const auto address = Read("BillingAddress", Reading(OneLine(R"(
      <Customer>
        <BillingAddress>
          <BuildingNumber>12</BuildingNumber>
          <StreetName>Rua A</StreetName>
          <AddressDetail>Rua A, 12</AddressDetail>
          <City>Faro</City>
          <PostalCode>1000-001</PostalCode>
          <Region>Lisboa</Region>
          <Country>ES</Country>
        </BillingAddress>
      </Customer>)")));
  ASSERT_TRUE(address);
  EXPECT_EQ(Describe(*address), Describe(*FullAddress("Faro")));
}

TEST_F(AddressDALCTest, DoesNotStrayIntoASiblingAddress) {
  const auto address = Read("BillingAddress", Reading("<Customer><BillingAddress><City>Faro</City></BillingAddress>"
                                                      "<ShipToAddress><City>Beja</City><Region>Sul</Region>"
                                                      "<Country>PT</Country></ShipToAddress></Customer>"));
  ASSERT_TRUE(address);
  EXPECT_EQ(Describe(*address), "City=Faro\n");
}

TEST_F(AddressDALCTest, LeavesAnAddressAsItWasWhereThereIsNone) {
  const auto address = FullAddress("Faro");
  EXPECT_EQ(Read("BillingAddress", Reading("<Customer/>"), address), address);
  EXPECT_EQ(Describe(*address), Describe(*FullAddress("Faro")));
  EXPECT_EQ(Read("BillingAddress", Reading("<Customer/>")), nullptr);
}

TEST_F(AddressDALCTest, FillsTheAddressGivenAndEmptiesWhatTheFileLacks) {
  const auto address = FullAddress("Faro");
  EXPECT_EQ(Read("BillingAddress", Reading("<Customer><BillingAddress><City>Beja</City></BillingAddress></Customer>"),
                 address),
            address);
  EXPECT_EQ(Describe(*address), "City=Beja\n");
}

}  // namespace
}  // namespace zevo
