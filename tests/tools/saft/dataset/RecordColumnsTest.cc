// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/RecordColumns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tools/saft/errors/Failure.h"

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;

const RecordKind& Kind(std::string_view name) { return *std::ranges::find(RecordKinds(), name, &RecordKind::name); }

std::vector<std::string> ColumnsOf(std::string_view kind) {
  const RecordColumns columns(Kind(kind));
  std::vector<std::string> names;
  for (const RecordColumn& column : columns.Columns()) names.push_back(column.name);
  return names;
}

TEST(RecordColumnsTest, AreInTheOrderOfTheFileAndHaveTheConstants) {
  EXPECT_THAT(ColumnsOf("TaxTableEntry"), ElementsAre("TaxType", "TaxCountryRegion", "TaxCode", "Description",
                                                      "TaxExpirationDate", "TaxPercentage", "TaxAmount"));
}

TEST(RecordColumnsTest, IdentifiersComeFirstAndRecordsOfOtherKindsHaveNone) {
  EXPECT_THAT(ColumnsOf("InvoiceLine"),
              ElementsAre("InvoiceNo", "LineNumber", "ProductCode", "ProductDescription", "Quantity", "UnitOfMeasure",
                          "UnitPrice", "TaxPointDate", "Description", "DebitAmount", "CreditAmount", "Tax.TaxType",
                          "Tax.TaxCountryRegion", "Tax.TaxCode", "Tax.TaxPercentage", "Tax.TaxAmount",
                          "TaxExemptionReason", "SettlementAmount"));
  EXPECT_THAT(ColumnsOf("OrderReferences"), ElementsAre("InvoiceNo", "LineNumber", "OriginatingOn", "OrderDate"));
  EXPECT_THAT(ColumnsOf("CreditNote"), ElementsAre("InvoiceNo", "LineNumber", "Reference", "Reason"));
}

TEST(RecordColumnsTest, AnUnknownColumnIsToldWithTheNearest) {
  const RecordColumns columns(Kind("Customer"));
  EXPECT_EQ(columns.PlaceOf("CustomerID"), 0U);
  try {
    columns.PlaceOf("BillingAdress.City");
    FAIL();
  } catch (const Failure& failure) {
    EXPECT_STREQ(failure.what(), "Customer has no column \"BillingAdress.City\"; did you mean BillingAddress.City?");
  }
}

}  // namespace
}  // namespace zevo::saft
