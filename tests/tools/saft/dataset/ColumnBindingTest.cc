// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <string>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

class ColumnBindingTest : public testing::ToolTest {};

TEST_F(ColumnBindingTest, ADotLeadsIntoAnOwnedChild) {
  Write("customers.csv", "BillingAddress.City,CustomerID\nViseu,C1\n");
  ExpectCreated();
  EXPECT_THAT(Texts("City"), ElementsAre("Viseu"));
}

TEST_F(ColumnBindingTest, AChildAssignedByReferenceExistsWhenACellIsFilled) {
  Write("customers.csv", "CustomerID,ShipToAddress.City,ShipToAddress.Region\nC1,,\nC2,,Beira\n");
  ExpectCreated();
  EXPECT_EQ(Texts("ShipToAddress").size(), 1U);
  EXPECT_THAT(Texts("Region"), ElementsAre("Beira"));
}

TEST_F(ColumnBindingTest, ChildrenOfChildrenComeIntoBeing) {
  Write("invoices.csv",
        "InvoiceNo,ShipTo.Address.City,DocumentTotals.CurrencyValue.CurrencyCode\nFT 1,Porto,USD\nFT 2,,\n");
  ExpectCreated();
  EXPECT_EQ(Texts("ShipTo").size(), 1U);
  EXPECT_THAT(Texts("City"), ElementsAre("Porto"));
  EXPECT_THAT(Texts("CurrencyCode"), ElementsAre("EUR", "USD"));
}

TEST_F(ColumnBindingTest, TheAddressOfAShippingPointIsShortenedToo) {
  Write("invoices.csv", "InvoiceNo,ShipFrom.Address.BuildingNumber\nFT 1,12345678901\n");
  EXPECT_EQ(Create().code, 0);
  EXPECT_THAT(Texts("BuildingNumber"), ElementsAre("1234567890"));
}

TEST_F(ColumnBindingTest, ColumnsComeInAnyOrder) {
  Write("invoices.csv", "InvoiceNo\nFT 1\n");
  Write("invoice_lines.csv", "Tax.TaxCode,OrderReferences.OriginatingOn,LineNumber,InvoiceNo\nNOR,E 7,1,FT 1\n");
  ExpectCreated();
  EXPECT_THAT(Texts("OriginatingON"), ElementsAre("E 7"));
  EXPECT_THAT(Texts("TaxCode"), ElementsAre("NOR"));
}

TEST_F(ColumnBindingTest, AnEmptyCellLeavesTheDefault) {
  Write("header.csv", "BusinessName,CurrencyCode,CompanyAddress.Country\nCasa,,\n");
  ExpectCreated();
  EXPECT_THAT(Texts("CurrencyCode"), ElementsAre("EUR"));
  EXPECT_THAT(Texts("Country"), ElementsAre("PT"));
}

struct BadColumn {
  const char* file;
  const char* columns;
  const char* message;
};

class ColumnBindingBadColumnTest : public testing::ToolTest, public ::testing::WithParamInterface<BadColumn> {};

TEST_P(ColumnBindingBadColumnTest, IsRefused) {
  Write(GetParam().file, std::string(GetParam().columns) + "\n");
  ExpectRefused(In(GetParam().file) + ":1: column " + GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    All, ColumnBindingBadColumnTest,
    ::testing::Values(
        BadColumn{"customers.csv", "CustomerID,Name", "\"Name\" is not known"},
        BadColumn{"customers.csv", "CustomerID,companyname", "\"companyname\" is not known; did you mean CompanyName?"},
        BadColumn{"customers.csv", "CustomerID,,CompanyName", "\"\" is not known"},
        BadColumn{"customers.csv", "CustomerID,BillingAddress.Town",
                  "\"BillingAddress.Town\" is not known; did you mean BillingAddress.City?"},
        BadColumn{"customers.csv", "CustomerID,CompanyName.City",
                  "\"CompanyName.City\" is not known; did you mean CompanyName?"},
        BadColumn{"customers.csv", "CustomerID,Address.City",
                  "\"Address.City\" is not known; did you mean ShipToAddress.City?"},
        BadColumn{"customers.csv", "CustomerID,BillingAddress.",
                  "\"BillingAddress.\" is not known; did you mean BillingAddress.City?"},
        BadColumn{"customers.csv", "CustomerID,BillingAddress",
                  "\"BillingAddress\" must name one of its properties, after a dot"},
        BadColumn{"suppliers.csv", "SupplierID,ShipToAddress.City",
                  "\"ShipToAddress.City\" is not known; did you mean ShipFromAddress.City?"},
        BadColumn{"invoices.csv", "InvoiceNo,Line", "\"Line\" is not known"},
        BadColumn{"invoices.csv", "InvoiceNo,Line.LineNumber", "\"Line.LineNumber\" is not known"},
        BadColumn{"tax_table.csv", "TaxCode,TaxType.Code", "\"TaxType.Code\" is not known; did you mean TaxType?"}));

TEST_F(ColumnBindingTest, AConstantMayHaveItsValueOrNone) {
  Write("header.csv", "AuditFileVersion,BusinessName,ProductCompanyTaxId\n1.01_01,Casa,500000000\n");
  Write("tax_table.csv", "TaxType,TaxCode,TaxPercentage\nIVA,NOR,23\n,RED,6\n");
  ExpectCreated();
  EXPECT_THAT(Texts("AuditFileVersion"), ElementsAre("1.01_01"));
  EXPECT_THAT(Texts("TaxType"), ElementsAre("IVA", "IVA"));
}

TEST_F(ColumnBindingTest, AConstantBringsItsRecordIntoBeing) {
  Write("invoices.csv", "InvoiceNo\nFT 1\n");
  Write("invoice_lines.csv", "InvoiceNo,LineNumber,Tax.TaxType\nFT 1,1,\nFT 1,2,IVA\n");
  ExpectCreated();
  EXPECT_THAT(Texts("TaxType"), ElementsAre("IVA"));
}

}  // namespace
}  // namespace zevo
