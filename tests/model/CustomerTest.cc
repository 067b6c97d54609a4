// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/Customer.h>

#include <memory>

#include "tests/model/SchemaText.h"

namespace zevo {
namespace {

using testing::SchemaLimiting;
using testing::UseSchemaText;

TEST(CustomerTest, AShipToAddressIsSharedBetweenCustomers) {
  Customer first, second;
  const auto address = std::make_shared<AddressStructure>();
  first.set_ShipToAddress(address);
  second.set_ShipToAddress(address);
  first.ShipToAddress()->set_City("Porto");
  EXPECT_EQ(second.ShipToAddress()->City(), "Porto");
  EXPECT_EQ(first.ShipToAddress(), second.ShipToAddress());
}

TEST(CustomerTest, AnAddressIsCheckedAsWhatItWasLastAssignedTo) {
  const UseSchemaText schema(SchemaLimiting({{"/City", "1"},
                                             {"/AuditFile/MasterFiles/Customer/BillingAddress/City", "2"},
                                             {"/AuditFile/MasterFiles/Customer/ShipToAddress/City", "3"}}));
  Customer first, second;
  first.BillingAddress()->set_City("abcdef");
  EXPECT_EQ(first.BillingAddress()->City(), "ab");
  const auto address = std::make_shared<AddressStructure>();
  address->set_City("abcdef");
  EXPECT_EQ(address->City(), "a");
  first.set_ShipToAddress(address);
  address->set_City("abcdef");
  EXPECT_EQ(address->City(), "abc");
  // Released or not, an address keeps the path of its last assignment.
  first.set_ShipToAddress(nullptr);
  address->set_City("ABCDEF");
  EXPECT_EQ(address->City(), "ABC");
  second.set_ShipToAddress(first.BillingAddress());
  first.BillingAddress()->set_City("ABCDEF");
  EXPECT_EQ(first.BillingAddress()->City(), "ABC");
}

TEST(CustomerTest, AssigningNothingClearsTheShipToAddress) {
  Customer customer;
  EXPECT_EQ(customer.ShipToAddress(), nullptr);
  customer.set_ShipToAddress(std::make_shared<AddressStructure>());
  EXPECT_NE(customer.ShipToAddress(), nullptr);
  customer.set_ShipToAddress(nullptr);
  EXPECT_EQ(customer.ShipToAddress(), nullptr);
}

TEST(CustomerTest, ItsAddressOutlivesIt) {
  auto customer = std::make_unique<Customer>();
  const std::shared_ptr<AddressStructure> address = customer->BillingAddress();
  address->set_City("Faro");
  customer.reset();
  EXPECT_EQ(address->City(), "Faro");
}

}  // namespace
}  // namespace zevo
