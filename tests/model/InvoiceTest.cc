// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/Invoice.h>

#include <memory>

#include "tests/model/SchemaText.h"

namespace zevo {
namespace {

using testing::SchemaLimiting;
using testing::UseSchemaText;

TEST(InvoiceTest, StartsWithoutStatusAndTypeAndWithEmptyTotalsAndLines) {
  const Invoice invoice;
  EXPECT_EQ(invoice.InvoiceStatus(), 0);
  EXPECT_EQ(invoice.InvoiceType(), 0);
  EXPECT_EQ(invoice.DocumentTotals()->GrossTotal(), 0);
  EXPECT_EQ(invoice.DocumentTotals()->CurrencyValue(), nullptr);
  EXPECT_EQ(invoice.DocumentTotals()->Settlement(), nullptr);
  EXPECT_EQ(invoice.Line()->Count(), 0);
}

TEST(InvoiceTest, TotalsAreNotDerivedFromTheLines) {
  const Invoice invoice;
  auto line = std::make_shared<InvoiceLine>();
  line->set_Quantity(2);
  line->set_UnitPrice(5);
  invoice.Line()->Add(line);
  EXPECT_EQ(line->CreditAmount(), 0);
  EXPECT_EQ(line->DebitAmount(), 0);
  EXPECT_EQ(invoice.DocumentTotals()->NetTotal(), 0);
}

class ShippingPointStructureTest : public ::testing::Test {
 protected:
  std::string StoredDelivery(ShippingPointStructure& point) {
    point.set_DeliveryID("");
    point.set_DeliveryID("abcdefgh");
    return point.DeliveryID();
  }
  std::string StoredCity(AddressStructure& address) {
    address.set_City("");
    address.set_City("abcdefgh");
    return address.City();
  }

  const UseSchemaText schema_{
      SchemaLimiting({{"/DeliveryID", "1"},
                      {"/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipTo/DeliveryID", "2"},
                      {"/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipFrom/DeliveryID", "3"},
                      {"/City", "4"},
                      {"/Address/City", "5"},
                      {"/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipTo/Address/City", "6"},
                      {"/AuditFile/SourceDocuments/SalesInvoices/Invoice/ShipFrom/Address/City", "7"}})};
  Invoice invoice_;
  std::shared_ptr<ShippingPointStructure> point_ = std::make_shared<ShippingPointStructure>();
  std::shared_ptr<AddressStructure> address_ = std::make_shared<AddressStructure>();
};

TEST_F(ShippingPointStructureTest, IsCheckedAsWhatItIsAssignedTo) {
  EXPECT_EQ(StoredDelivery(*point_), "a");
  invoice_.set_ShipTo(point_);
  EXPECT_EQ(StoredDelivery(*point_), "ab");
  invoice_.set_ShipFrom(point_);
  EXPECT_EQ(StoredDelivery(*point_), "abc");
}

TEST_F(ShippingPointStructureTest, AnAddressAssignedAfterwardsIsCheckedUnderTheInvoice) {
  invoice_.set_ShipTo(point_);
  point_->set_Address(address_);
  EXPECT_EQ(StoredCity(*address_), "abcdef");
  invoice_.set_ShipFrom(point_);
  EXPECT_EQ(StoredCity(*address_), "abcdef");
  point_->set_Address(address_);
  EXPECT_EQ(StoredCity(*address_), "abcdefg");
}

TEST_F(ShippingPointStructureTest, AnAddressAssignedBeforehandKeepsItsDetachedPath) {
  EXPECT_EQ(StoredCity(*address_), "abcd");
  point_->set_Address(address_);
  EXPECT_EQ(StoredCity(*address_), "abcde");
  invoice_.set_ShipTo(point_);
  EXPECT_EQ(StoredCity(*address_), "abcde");
}

TEST_F(ShippingPointStructureTest, AssigningNothingClearsWithoutTouchingAPath) {
  invoice_.set_ShipTo(point_);
  point_->set_Address(address_);
  invoice_.set_ShipTo(nullptr);
  EXPECT_EQ(invoice_.ShipTo(), nullptr);
  EXPECT_EQ(StoredDelivery(*point_), "ab");
  point_->set_Address(nullptr);
  EXPECT_EQ(point_->Address(), nullptr);
  EXPECT_EQ(StoredCity(*address_), "abcdef");
}

TEST_F(ShippingPointStructureTest, OnePointMayServeBothEndsAndTwoInvoices) {
  Invoice other;
  invoice_.set_ShipTo(point_);
  invoice_.set_ShipFrom(point_);
  other.set_ShipTo(point_);
  EXPECT_EQ(invoice_.ShipTo(), invoice_.ShipFrom());
  EXPECT_EQ(other.ShipTo(), point_);
  EXPECT_EQ(StoredDelivery(*point_), "ab");
}

TEST(InvoiceLineTest, WhatBelongsToALineIsCheckedWithoutTheStepOfTheLine) {
  const UseSchemaText schema(
      SchemaLimiting({{"/AuditFile/SourceDocuments/SalesInvoices/Invoice/Tax/TaxCode", "1"},
                      {"/AuditFile/SourceDocuments/SalesInvoices/Invoice/Line/Tax/TaxCode", "2"},
                      {"/AuditFile/SourceDocuments/SalesInvoices/Invoice/References/CreditNote/Reference", "3"},
                      {"/AuditFile/SourceDocuments/SalesInvoices/Invoice/Line/References/CreditNote/Reference", "4"}}));
  Tax tax;
  tax.set_TaxCode("abcdefgh");
  EXPECT_EQ(tax.TaxCode(), "a");
  CreditNote note;
  note.set_Reference("abcdefgh");
  EXPECT_EQ(note.Reference(), "abc");
}

}  // namespace
}  // namespace zevo
