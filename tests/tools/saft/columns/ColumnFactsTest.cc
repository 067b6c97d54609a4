// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/columns/ColumnFacts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

namespace zevo::saft {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ColumnFactsTest : public ::testing::Test {
 protected:
  ColumnFactsTest() { UseBuiltInSchema(); }

  static ColumnFacts Of(std::string_view kind, std::string_view column) {
    const auto columns = FactsOf(*std::ranges::find(RecordKinds(), kind, &RecordKind::name), SchemaFacts());
    const auto found = std::ranges::find(columns, column, &ColumnFacts::name);
    EXPECT_NE(found, columns.end()) << column;
    return found == columns.end() ? ColumnFacts() : *found;
  }
  static void Expect(std::string_view kind, std::string_view column, Needed needed, std::string_view group = {}) {
    const ColumnFacts facts = Of(kind, column);
    EXPECT_EQ(facts.needed, needed) << column;
    EXPECT_EQ(facts.group, group) << column;
  }
};

TEST_F(ColumnFactsTest, WhatTheSchemaDemandsIsRequired) {
  Expect("Customer", "CompanyName", Needed::kYes);
  Expect("Customer", "BillingAddress.City", Needed::kYes);
  Expect("Customer", "Contact", Needed::kNo);
  Expect("InvoiceLine", "UnitOfMeasure", Needed::kYes);
}

TEST_F(ColumnFactsTest, WhatIsWrittenWithoutATextIsRequiredWhereThatIsNotValid) {
  Expect("Header", "BusinessName", Needed::kYes);
  Expect("InvoiceLine", "SettlementAmount", Needed::kNo);
}

TEST_F(ColumnFactsTest, WhatComesByItselfIsNot) {
  Expect("Header", "AuditFileVersion", Needed::kNo);
  Expect("Header", "CurrencyCode", Needed::kNo);
  Expect("Header", "DateCreated", Needed::kNo);
  Expect("Header", "CompanyAddress.Country", Needed::kNo);
  Expect("Invoice", "DocumentTotals.NetTotal", Needed::kNo);
  Expect("Invoice", "SelfBillingIndicator", Needed::kNo);
  EXPECT_EQ(Of("Header", "CurrencyCode").preset, "EUR");
  EXPECT_EQ(Of("Header", "CompanyAddress.Country").preset, "PT");
  EXPECT_EQ(Of("Invoice", "DocumentTotals.NetTotal").preset, "0");
  EXPECT_EQ(Of("Customer", "Contact").preset, "");
}

TEST_F(ColumnFactsTest, OfAPairOneIsNeeded) {
  Expect("TransactionLine", "DebitAmount", Needed::kOr);
  Expect("TransactionLine", "CreditAmount", Needed::kOr);
  Expect("InvoiceLine", "Tax.TaxAmount", Needed::kOr);
  Expect("Invoice", "DocumentTotals.CurrencyValue.CurrencyDebitAmount", Needed::kNo);
  EXPECT_EQ(Of("TransactionLine", "DebitAmount").partner, "CreditAmount");
  EXPECT_EQ(Of("TransactionLine", "CreditAmount").partner, "DebitAmount");
  EXPECT_EQ(Of("InvoiceLine", "Tax.TaxAmount").partner, "Tax.TaxPercentage");
  EXPECT_EQ(Of("Invoice", "DocumentTotals.CurrencyValue.CurrencyDebitAmount").partner,
            "DocumentTotals.CurrencyValue.CurrencyCreditAmount");
  EXPECT_EQ(Of("Invoice", "DocumentTotals.NetTotal").partner, "");
}

TEST_F(ColumnFactsTest, WhatAGroupNeedsIsNeededWithIt) {
  Expect("Customer", "ShipToAddress.City", Needed::kWith, "ShipToAddress");
  Expect("Customer", "ShipToAddress.Region", Needed::kNo);
  Expect("Invoice", "ShipFrom.Address.PostalCode", Needed::kWith, "ShipFrom.Address");
  Expect("InvoiceLine", "Tax.TaxCode", Needed::kWith, "Tax");
}

TEST_F(ColumnFactsTest, IdentifiersAndKeysAreRequired) {
  Expect("Transaction", "JournalID", Needed::kYes);
  Expect("InvoiceLine", "InvoiceNo", Needed::kYes);
  Expect("InvoiceLine", "LineNumber", Needed::kYes);
  Expect("CreditNote", "Reference", Needed::kYes);
  Expect("CreditNote", "Reason", Needed::kNo);
  Expect("OrderReferences", "LineNumber", Needed::kYes);
  EXPECT_EQ(Of("InvoiceLine", "LineNumber").preset, "");
  EXPECT_EQ(Of("OrderReferences", "LineNumber").type, ValueType::kWholeNumber);
  EXPECT_EQ(Of("Transaction", "JournalID").max_length, 30);
}

TEST_F(ColumnFactsTest, TypesAreThoseOfThePropertyAndTheSchema) {
  EXPECT_EQ(Of("Customer", "CompanyName").type, ValueType::kText);
  EXPECT_EQ(Of("Header", "StartDate").type, ValueType::kDate);
  EXPECT_EQ(Of("Invoice", "SystemEntryDate").type, ValueType::kDateAndTime);
  EXPECT_EQ(Of("InvoiceLine", "Quantity").type, ValueType::kAmount);
  EXPECT_EQ(Of("InvoiceLine", "Tax.TaxPercentage").type, ValueType::kAmount);
  EXPECT_EQ(Of("Header", "TaxRegistrationNumber").type, ValueType::kWholeNumber);
  EXPECT_EQ(Of("Transaction", "Period").type, ValueType::kWholeNumber);
  EXPECT_EQ(Of("Customer", "SelfBillingIndicator").type, ValueType::kFlag);
  EXPECT_EQ(Of("Product", "ProductType").type, ValueType::kCode);
  EXPECT_EQ(Of("Customer", "BillingAddress.Country").type, ValueType::kCode);
  EXPECT_EQ(Of("TaxTableEntry", "TaxType").type, ValueType::kCode);
}

TEST_F(ColumnFactsTest, CodesAreThoseThatCanBeWritten) {
  EXPECT_THAT(Of("Product", "ProductType").codes, ElementsAre("P", "S", "O", "I"));
  EXPECT_THAT(Of("TaxTableEntry", "TaxType").codes, ElementsAre("IVA"));
  EXPECT_THAT(Of("Header", "CurrencyCode").codes, ElementsAre("EUR"));
  EXPECT_THAT(Of("Header", "CompanyAddress.Country").codes, ElementsAre("PT"));
  EXPECT_THAT(Of("TaxTableEntry", "TaxCode").codes, ElementsAre("RED", "INT", "NOR", "ISE", "OUT"));
  EXPECT_EQ(Of("TaxTableEntry", "TaxCode").type, ValueType::kText);
  EXPECT_THAT(Of("Customer", "CompanyName").codes, IsEmpty());
  // The empty text of the pattern is too short.
  EXPECT_THAT(Of("Supplier", "BillingAddress.Country").codes, ::testing::Not(::testing::Contains("")));
}

TEST_F(ColumnFactsTest, RangesAndPatternsAreThoseOfTheSchema) {
  EXPECT_EQ(Of("Transaction", "Period").least, "1");
  EXPECT_EQ(Of("Transaction", "Period").greatest, "16");
  EXPECT_EQ(Of("Invoice", "Period").greatest, "12");
  EXPECT_EQ(Of("Header", "CompanyAddress.PostalCode").pattern, "([0-9]{4}-[0-9]{3})");
  EXPECT_EQ(Of("Header", "AuditFileVersion").pattern, "");
}

}  // namespace
}  // namespace zevo::saft
