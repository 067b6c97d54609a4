// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/CellText.h"

#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "tests/tools/saft/ToolTest.h"
#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/words/SpokenLanguage.h"

namespace zevo {
namespace {

using saft::CellKind;
using ::testing::ElementsAre;

const Property& PropertyNamed(std::string_view name) {
  static const Invoice invoice;
  static const InvoiceLine line;
  const auto properties = PropertiesOf(invoice);
  const auto found = std::ranges::find(properties, name, &Property::name);
  return found != properties.end() ? *found : *std::ranges::find(PropertiesOf(line), name, &Property::name);
}

// What a cell tells of a property; of an identifier without a name.
std::optional<std::string> Told(char separator, std::string_view property, std::string_view cell) {
  return saft::CellText({.separator = separator}, property.empty() ? nullptr : &PropertyNamed(property)).Of(cell);
}

TEST(CellTextTest, ASpreadsheetProgramTakesPropertiesForThese) {
  EXPECT_EQ(saft::CellKindOf(nullptr), CellKind::kText);
  EXPECT_EQ(saft::CellKindOf(&PropertyNamed("InvoiceNo")), CellKind::kText);
  EXPECT_EQ(saft::CellKindOf(&PropertyNamed("LineNumber")), CellKind::kNumber);
  EXPECT_EQ(saft::CellKindOf(&PropertyNamed("UnitPrice")), CellKind::kNumber);
  EXPECT_EQ(saft::CellKindOf(&PropertyNamed("InvoiceDate")), CellKind::kDate);
  EXPECT_EQ(saft::CellKindOf(&PropertyNamed("InvoiceType")), CellKind::kDate);
}

TEST(CellTextTest, InADatasetOnlyDatesMayDiffer) {
  for (const char* name : {"InvoiceNo", "LineNumber", "UnitPrice", "InvoiceType", "SelfBillingIndicator", "Period"}) {
    EXPECT_FALSE(saft::CellText({}, &PropertyNamed(name)).MayDiffer()) << name;
  }
  EXPECT_FALSE(saft::CellText({}, nullptr).MayDiffer());
  EXPECT_TRUE(saft::CellText({}, &PropertyNamed("InvoiceDate")).MayDiffer());
  EXPECT_TRUE(saft::CellText({}, &PropertyNamed("SystemEntryDate")).MayDiffer());
  EXPECT_TRUE(saft::CellText({.separator = ';'}, nullptr).MayDiffer());
  EXPECT_TRUE(saft::CellText({.separator = '\t'}, &PropertyNamed("InvoiceType")).MayDiffer());
}

TEST(CellTextTest, NumbersHaveDecimalCommasWhereNoCommaSeparates) {
  for (const char separator : {';', '\t'}) {
    EXPECT_EQ(Told(separator, "UnitPrice", "1.234,56"), "1234.56");
    EXPECT_EQ(Told(separator, "LineNumber", "1.234"), "1234");
    EXPECT_THROW(Told(separator, "UnitPrice", "1.234"), saft::BadValue);
    EXPECT_EQ(Told(separator, "UnitPrice", ""), std::nullopt);
  }
  EXPECT_EQ(Told(',', "UnitPrice", "1.234"), std::nullopt);
  EXPECT_EQ(Told(',', "UnitPrice", "1234,56"), std::nullopt);
}

TEST(CellTextTest, SpreadsheetProgramsSaveFlagsAsWords) {
  for (const char* word : {"VERDADEIRO", "TRUE"}) EXPECT_EQ(Told(';', "SelfBillingIndicator", word), "1");
  for (const char* word : {"FALSO", "FALSE"}) EXPECT_EQ(Told('\t', "SelfBillingIndicator", word), "0");
  for (const char* other : {"0", "1", "Sim", "true", "V"}) {
    EXPECT_EQ(Told(';', "SelfBillingIndicator", other), std::nullopt) << other;
  }
  EXPECT_EQ(Told(',', "SelfBillingIndicator", "TRUE"), std::nullopt);
  EXPECT_EQ(Told(';', "SelfBillingIndicator", "'+1"), "+1");
  EXPECT_EQ(Told(';', "InvoiceNo", "TRUE"), std::nullopt);
}

TEST(CellTextTest, TaxPercentagesMayHaveTheirSign) {
  static const Tax tax;
  const Property& percentage = *std::ranges::find(PropertiesOf(tax), "TaxPercentage", &Property::name);
  const saft::CellText text({.separator = ';'}, &percentage);
  EXPECT_EQ(text.Of("23%"), "23");
  EXPECT_EQ(text.Of("23,00 %"), "23.00");
  EXPECT_EQ(text.Of("6"), "6");
  for (const char* cell : {"%", "%23", "23%%"}) EXPECT_THROW(text.Of(cell), saft::BadValue) << cell;
  EXPECT_EQ(saft::CellText({}, &percentage).Of("23%"), std::nullopt);
  EXPECT_THROW(Told(';', "UnitPrice", "23%"), saft::BadValue);
}

TEST(CellTextTest, ApostrophesAreTakenOffWhereTheListPutsThem) {
  EXPECT_EQ(Told(';', "InvoiceNo", "'007"), "007");
  EXPECT_EQ(Told(';', "", "'007"), "007");
  EXPECT_EQ(Told('\t', "InvoiceNo", "'007"), "007");
  EXPECT_EQ(Told(';', "InvoiceType", "'=1"), "=1");
  EXPECT_EQ(Told(';', "InvoiceNo", "'t Hof"), std::nullopt);
  EXPECT_EQ(Told(';', "InvoiceType", "'007"), std::nullopt);
  EXPECT_EQ(Told(',', "InvoiceNo", "'007"), std::nullopt);
  EXPECT_THROW(Told(';', "UnitPrice", "'5"), saft::BadValue);
}

TEST(CellTextTest, TextsWithoutTheirDigitsAreRefused) {
  EXPECT_THROW(Told(';', "CustomerID", "5,60123E+12"), saft::BadValue);
  EXPECT_THROW(Told(';', "", "5,60123E+12"), saft::BadValue);
  EXPECT_EQ(Told(';', "CustomerID", "'5,60123E+12"), "5,60123E+12");
  EXPECT_EQ(Told(';', "CustomerID", "5,60123E12"), std::nullopt);
  EXPECT_EQ(Told(',', "CustomerID", "5,60123E+12"), std::nullopt);
}

TEST(CellTextTest, DatesMayHaveTheDayFirstInEveryFile) {
  for (const char separator : {',', ';', '\t'}) {
    EXPECT_EQ(Told(separator, "InvoiceDate", "31/12/2012"), "2012-12-31");
    EXPECT_EQ(Told(separator, "SystemEntryDate", "31/12/2012 9:30"), "2012-12-31T09:30:00");
    EXPECT_EQ(Told(separator, "InvoiceDate", "2012-12-31"), std::nullopt);
    EXPECT_EQ(Told(separator, "InvoiceNo", "31/12/2012"), std::nullopt);
    EXPECT_THROW(Told(separator, "InvoiceDate", "31/12/2012 9:30"), saft::BadValue);
  }
}

class CellTextToolTest : public testing::ToolTest {
 protected:
  static constexpr const char* kForm = "semicolons between cells, decimal commas";
};

TEST_F(CellTextToolTest, ASpreadsheetBecomesAFile) {
  Write("invoices.csv",
        "InvoiceNo;InvoiceDate;SystemEntryDate;CustomerID;DocumentTotals.NetTotal\r\n"
        "'1/2;03/04/2012;3/4/2012 9:30;'=1;1.234,56 €\r\n");
  Write("invoice_lines.csv", "InvoiceNo;LineNumber;Quantity;UnitPrice\r\n'1/2;1.000;1,5;\"0,0001\"\r\n");
  Write("order_references.csv", "InvoiceNo;LineNumber;OrderDate\r\n'1/2;1000;31-12-2011\r\n");
  ExpectCreated(Recognised("invoices.csv", std::string(kForm) + ", dates day/month/year") +
                Recognised("invoice_lines.csv", kForm) +
                Recognised("order_references.csv", std::string(kForm) + ", dates day/month/year"));
  EXPECT_THAT(Texts("InvoiceNo"), ElementsAre("1/2"));
  EXPECT_THAT(Texts("InvoiceDate"), ElementsAre("2012-04-03"));
  EXPECT_THAT(Texts("SystemEntryDate"), ElementsAre("2012-04-03T09:30:00"));
  EXPECT_THAT(Texts("CustomerID"), ElementsAre("=1"));
  EXPECT_THAT(Texts("NetTotal"), ElementsAre("1234.56"));
  EXPECT_THAT(Texts("LineNumber"), ElementsAre("1000"));
  EXPECT_THAT(Texts("Quantity"), ElementsAre("1.5"));
  EXPECT_THAT(Texts("UnitPrice"), ElementsAre("0.0001"));
  EXPECT_THAT(Texts("OrderDate"), ElementsAre("2011-12-31"));
}

TEST_F(CellTextToolTest, DatesWithTheDayFirstAreToldInADatasetToo) {
  Write("invoices.csv", "InvoiceNo,InvoiceDate\nFT 1,2012-04-03\nFT 2,03/04/2012\n");
  ExpectCreated(Recognised("invoices.csv", "dates day/month/year"));
  EXPECT_THAT(Texts("InvoiceDate"), ElementsAre("2012-04-03", "2012-04-03"));
}

TEST_F(CellTextToolTest, ADatasetKeepsThePoint) {
  Write("general_ledger.csv", "AccountID,OpeningDebitBalance\n'007,1.234\n");
  ExpectCreated();
  EXPECT_THAT(Texts("AccountID"), ElementsAre("'007"));
  EXPECT_THAT(Texts("OpeningDebitBalance"), ElementsAre("1.234"));
  std::filesystem::remove(Output());
  Write("general_ledger.csv", "AccountID,OpeningDebitBalance\n11,\"12,5\"\n");
  ExpectRefused(In("general_ledger.csv") + ":2: OpeningDebitBalance: \"12,5\": not an amount with a decimal point");
}

TEST_F(CellTextToolTest, ErrorsTellRowColumnAndCell) {
  Write("general_ledger.csv", "sep=;\r\nAccountID;OpeningDebitBalance\r\n11;1\r\n12;1.234 €\r\n");
  ExpectRefused(In("general_ledger.csv") +
                    ":4: OpeningDebitBalance: \"1.234 €\": may be 1234 or 1,234; write one of these, without a point",
                Recognised("general_ledger.csv", kForm));
  Write("general_ledger.csv", "AccountID;OpeningDebitBalance\r\n5,60123E+12;1\r\n");
  ExpectRefused(
      In("general_ledger.csv") +
          ":2: AccountID: \"5,60123E+12\": the spreadsheet has lost digits; format the column as text and enter "
          "the value again",
      Recognised("general_ledger.csv", kForm));
  std::filesystem::remove(In("general_ledger.csv"));
  Write("invoices.csv", "InvoiceNo\n1\n");
  Write("invoice_lines.csv", "InvoiceNo;LineNumber\r\n1;1\r\n5,6E+12;2\r\n");
  ExpectRefused(
      In("invoice_lines.csv") +
          ":3: InvoiceNo: \"5,6E+12\": the spreadsheet has lost digits; format the column as text and enter the "
          "value again",
      Recognised("invoice_lines.csv", kForm));
  Write("invoice_lines.csv", "InvoiceNo;LineNumber\r\n1;12,0\r\n");
  ExpectRefused(In("invoice_lines.csv") + ":2: LineNumber: \"12,0\": not a whole number",
                Recognised("invoice_lines.csv", kForm));
}

TEST_F(CellTextToolTest, EmptyCellsAndRowsAreEmptyInASpreadsheetToo) {
  Write("general_ledger.csv", "AccountID;OpeningDebitBalance\r\n11;\r\n;\r\n");
  ExpectCreated(Recognised("general_ledger.csv", kForm) + "saft: 1 row without any value skipped\n  " +
                In("general_ledger.csv") + ":3\n");
  EXPECT_THAT(Texts("AccountID"), ElementsAre("11"));
}

}  // namespace
}  // namespace zevo
