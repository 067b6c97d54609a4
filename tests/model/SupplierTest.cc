// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/Supplier.h>

#include <memory>

#include "tests/model/SchemaText.h"
#include "tests/support/Errors.h"

namespace zevo {
namespace {

using testing::ErrorOf;
using testing::SchemaLimiting;
using testing::UseSchemaText;

constexpr std::string_view kObsolete = "Propriedade obsoleta, será removida na próxima versão";

TEST(SupplierTest, HasABillingAddressAndNoShipFromAddressAtFirst) {
  const Supplier supplier;
  EXPECT_NE(supplier.BillingAddress(), nullptr);
  EXPECT_EQ(supplier.ShipFromAddress(), nullptr);
}

TEST(SupplierTest, ShipToAddressRaisesOnReadingAndOnAssignment) {
  Supplier supplier;
  EXPECT_ERROR(supplier.ShipToAddress(), -1, "Supplier");
  EXPECT_EQ(ErrorOf([&] { supplier.ShipToAddress(); }).Description(), kObsolete);
  const auto address = std::make_shared<AddressStructure>();
  for (const auto& value : {address, std::shared_ptr<AddressStructure>()}) {
    EXPECT_ERROR(supplier.set_ShipToAddress(value), -1, "Supplier");
    EXPECT_EQ(ErrorOf([&] { supplier.set_ShipToAddress(value); }).Description(), kObsolete);
  }
}

TEST(SupplierTest, ShipToAddressTouchesNothing) {
  const UseSchemaText schema(SchemaLimiting({{"/City", "1"},
                                             {"/AuditFile/MasterFiles/Supplier/ShipToAddress/City", "2"},
                                             {"/AuditFile/MasterFiles/Supplier/ShipFromAddress/City", "3"}}));
  Supplier supplier;
  const auto shipFrom = std::make_shared<AddressStructure>();
  const auto other = std::make_shared<AddressStructure>();
  supplier.set_ShipFromAddress(shipFrom);
  EXPECT_ERROR(supplier.set_ShipToAddress(other), -1, "Supplier");
  EXPECT_EQ(supplier.ShipFromAddress(), shipFrom);
  EXPECT_EQ(other.use_count(), 1);
  other->set_City("abcdef");
  EXPECT_EQ(other->City(), "a");
  shipFrom->set_City("abcdef");
  EXPECT_EQ(shipFrom->City(), "abc");
}

}  // namespace
}  // namespace zevo
