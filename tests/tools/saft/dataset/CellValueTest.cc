// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/CellValue.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/tools/saft/ToolTest.h"

namespace zevo {
namespace {

using ::testing::ElementsAre;

class CellValueTest : public testing::ToolTest {};

TEST_F(CellValueTest, AmountsHaveAPoint) {
  Write("general_ledger.csv",
        "AccountID,OpeningDebitBalance,OpeningCreditBalance\n11,12.50,0\n12,-0.0001,922337203685477.5807\n13,,7\n");
  ExpectCreated();
  EXPECT_THAT(Texts("OpeningDebitBalance"), ElementsAre("12.5", "-0.0001", "0"));
  EXPECT_THAT(Texts("OpeningCreditBalance"), ElementsAre("0", "922337203685477.5807", "7"));
}

TEST_F(CellValueTest, FlagsAreZeroOrOne) {
  Write("customers.csv", "CustomerID,SelfBillingIndicator\nC1,1\nC2,0\nC3,\n");
  ExpectCreated();
  EXPECT_THAT(Texts("SelfBillingIndicator"), ElementsAre("1", "0", "0"));
}

TEST_F(CellValueTest, CodesAreThoseOfTheFile) {
  Write("header.csv", "TaxAccountingBasis,BusinessName\nI,Casa\n");
  Write("products.csv", "ProductCode,ProductType\n1,P\n2,S\n3,O\n4,I\n");
  Write("invoices.csv",
        "InvoiceNo,InvoiceType,InvoiceStatus,DocumentTotals.Settlement.PaymentMechanism\n1,FT,N,NU\n2,RA,A,TR\n");
  ExpectCreated();
  EXPECT_THAT(Texts("TaxAccountingBasis"), ElementsAre("I"));
  EXPECT_THAT(Texts("ProductType"), ElementsAre("P", "S", "O", "I"));
  EXPECT_THAT(Texts("InvoiceType"), ElementsAre("FT", "RA"));
  EXPECT_THAT(Texts("InvoiceStatus"), ElementsAre("N", "A"));
  EXPECT_THAT(Texts("PaymentMechanism"), ElementsAre("NU", "TR"));
}

TEST_F(CellValueTest, SinglesAndCounts) {
  Write("invoices.csv", "InvoiceNo\nFT 1\n");
  Write("invoice_lines.csv", "InvoiceNo,LineNumber,Tax.TaxPercentage\nFT 1,1,6.5\nFT 1,2147483647,23\n");
  ExpectCreated();
  EXPECT_THAT(Texts("LineNumber"), ElementsAre("1", "2147483647"));
  EXPECT_THAT(Texts("TaxPercentage"), ElementsAre("6.5", "23"));
}

// As other software writes them: what xs:decimal and xs:integer allow.
TEST_F(CellValueTest, NumbersAreThoseOfTheSchema) {
  Write("general_ledger.csv",
        "AccountID,OpeningDebitBalance\n1,+1.5\n2,.5\n3,5.\n4,007\n5,1.50\n6,\"\n\t 1.5\r\n \"\n7,-.5\n8,+.50000\n");
  Write("customers.csv", "CustomerID,SelfBillingIndicator\n1,+1\n2,01\n3,\"\n1\t\"\n4,-0\n5,000\n");
  Write("invoices.csv", "InvoiceNo,InvoiceType\nFT 1,\"\n FT\t\"\n");
  Write("invoice_lines.csv",
        "InvoiceNo,LineNumber,Quantity,Tax.TaxPercentage\nFT 1,+7,+1.50,+06.50\nFT 1,008,.5,.5\nFT 1,\"\n9\",5.,5.\n");
  Write("order_references.csv", "InvoiceNo,LineNumber,OriginatingOn\nFT 1,\" +07 \",E\n");
  ExpectCreated();
  EXPECT_THAT(Texts("OpeningDebitBalance"), ElementsAre("1.5", "0.5", "5", "7", "1.5", "1.5", "-0.5", "0.5"));
  EXPECT_THAT(Texts("SelfBillingIndicator"), ElementsAre("1", "1", "1", "0", "0", "0"));
  EXPECT_THAT(Texts("InvoiceType"), ElementsAre("FT"));
  EXPECT_THAT(Texts("LineNumber"), ElementsAre("7", "8", "9"));
  EXPECT_THAT(Texts("Quantity"), ElementsAre("1.5", "0.5", "5"));
  EXPECT_THAT(Texts("TaxPercentage"), ElementsAre("6.5", "0.5", "5"));
  EXPECT_THAT(Texts("OriginatingON"), ElementsAre("E"));
}

TEST_F(CellValueTest, WhiteSpaceAloneIsNoValueButInATextItIs) {
  Write("customers.csv", "CustomerID,SelfBillingIndicator,Contact,CompanyName\nC1,\"\n\t\",\"\n\",\"a\n  b\"\n");
  ExpectCreated();
  EXPECT_THAT(Texts("SelfBillingIndicator"), ElementsAre("0"));
  EXPECT_THAT(Texts("Contact"), ElementsAre("\n"));
  EXPECT_THAT(Texts("CompanyName"), ElementsAre("a\n  b"));
}

// Numbers of six digits with up to four decimals, and of seven digits.
TEST_F(CellValueTest, SinglePrecisionKeepsFewDigits) {
  const Property property{.name = "TaxPercentage", .type = PropertyType::kSingle};
  const auto expectKept = [&](const std::string& text) {
    ASSERT_TRUE(saft::HasFewDigits(property, TextForm::kPlain, text)) << text;
    const PropertyValue value = saft::ValueFromCell(property, text);
    ASSERT_EQ(Decimal::FromText(text), Decimal::FromText(saft::WrittenText(property, TextForm::kPlain, value))) << text;
  };
  for (int digits = 100000; digits < 1000000; digits += 3) {
    const std::string all = std::to_string(digits);
    for (size_t decimals = 0; decimals <= 4; ++decimals) expectKept(std::string(all).insert(6 - decimals, "."));
  }
  for (int digits = 1000000; digits < 10000000; digits += 7) expectKept(std::to_string(digits));
}

struct BadCell {
  const char* file;
  const char* column;
  const char* value;
  const char* reason;
};

class CellValueBadCellTest : public testing::ToolTest, public ::testing::WithParamInterface<BadCell> {};

TEST_P(CellValueBadCellTest, IsRefused) {
  const auto& [file, column, value, reason] = GetParam();
  // The columns that a file must have stand before the one in question.
  const std::string name(file);
  const bool is_line = name == "invoice_lines.csv";
  const std::string keys = is_line                   ? "InvoiceNo,LineNumber,"
                           : name == "invoices.csv"  ? "InvoiceNo,"
                           : name == "customers.csv" ? "CustomerID,"
                           : name == "products.csv"  ? "ProductCode,"
                                                     : "AccountID,";
  if (is_line) Write("invoices.csv", "InvoiceNo\nk\n");
  Write(file, keys + column + "\n" + (is_line ? "k,1," : "k,") + "\"" + value + "\"\n");
  ExpectRefused(In(file) + ":2: " + column + ": \"" + value + "\": " + reason);
}

constexpr const char* kNoAmount = "not an amount with a decimal point";
constexpr const char* kNoSingle = "not a number with a decimal point";

INSTANTIATE_TEST_SUITE_P(
    All, CellValueBadCellTest,
    ::testing::Values(
        BadCell{"general_ledger.csv", "OpeningDebitBalance", "12,50", kNoAmount},
        BadCell{"general_ledger.csv", "OpeningDebitBalance", "1.000,00", kNoAmount},
        BadCell{"general_ledger.csv", "OpeningDebitBalance", "abc", kNoAmount},
        BadCell{"general_ledger.csv", "OpeningDebitBalance", "5 0", kNoAmount},
        BadCell{"general_ledger.csv", "OpeningDebitBalance", "922337203685477.5808", "out of range"},
        BadCell{"invoices.csv", "DocumentTotals.GrossTotal", "1€", kNoAmount},
        BadCell{"customers.csv", "SelfBillingIndicator", "2", "is neither 0 nor 1"},
        BadCell{"customers.csv", "SelfBillingIndicator", "true", "is neither 0 nor 1"},
        BadCell{"products.csv", "ProductType", "p", "not one of P, S, O, I"},
        BadCell{"products.csv", "ProductType", "51", "not one of P, S, O, I"},
        BadCell{"invoices.csv", "InvoiceType", "XX", "not one of FT, ND, NC, VD, TV, TD, AA, DA, RP, RE, CS, LD, RA"},
        BadCell{"invoices.csv", "InvoiceStatus", "X", "not one of N, A, F, S"},
        BadCell{"invoice_lines.csv", "Tax.TaxPercentage", "23,0", kNoSingle},
        BadCell{"invoice_lines.csv", "Tax.TaxPercentage", "23%", kNoSingle},
        BadCell{"invoice_lines.csv", "Tax.TaxPercentage", "nan", kNoSingle},
        BadCell{"invoice_lines.csv", "Tax.TaxPercentage", "inf", kNoSingle},
        BadCell{"invoice_lines.csv", "Tax.TaxAmount", "1e3", kNoSingle},
        BadCell{"invoice_lines.csv", "Tax.TaxAmount", "999999999999999999999999999999999999999", "out of range"}));

class CellValueBadCountTest : public testing::ToolTest, public ::testing::WithParamInterface<BadCell> {};

TEST_P(CellValueBadCountTest, IsRefused) {
  Write("invoices.csv", "InvoiceNo\nk\n");
  Write("invoice_lines.csv", std::string("InvoiceNo,LineNumber\nk,") + GetParam().value + "\n");
  ExpectRefused(In("invoice_lines.csv") + ":2: LineNumber: \"" + GetParam().value + "\": " + GetParam().reason);
}

INSTANTIATE_TEST_SUITE_P(
    All, CellValueBadCountTest,
    ::testing::Values(BadCell{"", "", "1.0", "not a whole number"}, BadCell{"", "", "um", "not a whole number"},
                      BadCell{"", "", "++1", "not a whole number"}, BadCell{"", "", "+-1", "not a whole number"},
                      BadCell{"", "", "1 2", "not a whole number"}, BadCell{"", "", "2147483648", "out of range"}));

TEST_F(CellValueTest, ATextHoldsWhatXmlHolds) {
  Write("customers.csv", "CustomerID,CompanyName\nC1,\"a\tb\nc\"\nC2,a\u007F\uFFFD\uFFEE\n");
  ExpectCreated();
  for (const std::string text : {"\x01", "\x1F", "\uFFFE", "\uFFFF", "\uFFFD\uFFFF"}) {
    Write("customers.csv", "CustomerID,CompanyName\nC1," + text + "b\n");
    const testing::Outcome outcome = Create({"--force"});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_THAT(outcome.err, ::testing::EndsWith("\": has a character that XML does not allow\n"));
  }
}

}  // namespace
}  // namespace zevo
