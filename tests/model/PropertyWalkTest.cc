// SPDX-License-Identifier: Apache-2.0
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace zevo {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

std::vector<std::string> PathsIn(const Record& record, std::string_view prefix = {}) {
  std::vector<std::string> paths;
  const auto take = [&paths](std::string_view path, const Property&, const Record&) { paths.emplace_back(path); };
  WalkProperties(record, take, prefix);
  return paths;
}

template <class R>
std::vector<std::string> PathsOf() {
  std::vector<std::string> paths;
  WalkProperties(PropertiesOf<R>(), [&paths](std::string_view path, const Property&) { paths.emplace_back(path); });
  return paths;
}

TEST(PropertyWalkTest, VisitsThePropertiesOfARecordInSlotOrderAndThoseOfAChildAfterIt) {
  ShippingPointStructure point;
  EXPECT_THAT(PathsIn(point), ElementsAre("DeliveryID", "DeliveryDate", "Address"));
  point.set_Address(std::make_shared<AddressStructure>());
  EXPECT_THAT(PathsIn(point, "ShipTo."),
              ElementsAre("ShipTo.DeliveryID", "ShipTo.DeliveryDate", "ShipTo.Address", "ShipTo.Address.BuildingNumber",
                          "ShipTo.Address.StreetName", "ShipTo.Address.AddressDetail", "ShipTo.Address.City",
                          "ShipTo.Address.PostalCode", "ShipTo.Address.Region", "ShipTo.Address.Country"));
}

TEST(PropertyWalkTest, NumbersTheItemsOfACollectionFromOne) {
  References references;
  EXPECT_THAT(PathsIn(references), ElementsAre("CreditNote"));
  for (const std::string_view invoice : {"FT A/1", "FT A/2"}) {
    const auto note = std::make_shared<CreditNote>();
    note->set_Reference(invoice);
    references.CreditNote()->Add(note);
  }
  EXPECT_THAT(PathsIn(references), ElementsAre("CreditNote", "CreditNote[1].Reference", "CreditNote[1].Reason",
                                               "CreditNote[2].Reference", "CreditNote[2].Reason"));
}

TEST(PropertyWalkTest, GivesTheRecordThatHasTheProperty) {
  Customer customer;
  customer.BillingAddress()->set_City("Évora");
  std::string city;
  WalkProperties(customer, [&city](std::string_view path, const Property& property, const Record& owner) {
    if (path == "BillingAddress.City") city = std::get<std::string>(property.get(owner));
  });
  EXPECT_EQ(city, "Évora");
}

TEST(PropertyWalkTest, OfAClassEntersChildrenThatARecordMayLackButNoCollections) {
  EXPECT_THAT(
      PathsOf<ShippingPointStructure>(),
      ElementsAre("DeliveryID", "DeliveryDate", "Address", "Address.BuildingNumber", "Address.StreetName",
                  "Address.AddressDetail", "Address.City", "Address.PostalCode", "Address.Region", "Address.Country"));
  EXPECT_THAT(PathsOf<Invoice>(), Contains("DocumentTotals.Settlement.SettlementDate"));
  EXPECT_THAT(PathsOf<References>(), ElementsAre("CreditNote"));
}

}  // namespace
}  // namespace zevo
