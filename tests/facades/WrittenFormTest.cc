// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/adapters.h>

#include <string_view>

namespace zevo {
namespace {

struct Expected {
  std::string_view property;
  std::string_view element;
  TextForm form = TextForm::kPlain;
  std::string_view partner = {};
  bool yields = false;
};

void Expect(const Record& record, const Expected& expected) {
  SCOPED_TRACE(expected.property);
  const auto written = WrittenFormOf(record, expected.property);
  ASSERT_TRUE(written);
  EXPECT_EQ(written->element, expected.element);
  EXPECT_EQ(written->form, expected.form);
  EXPECT_EQ(written->partner, expected.partner);
  EXPECT_EQ(written->yields, expected.yields);
}

TEST(WrittenFormTest, QuantityPassesThroughSinglePrecision) {
  Expect(InvoiceLine(), {"Quantity", "Quantity", TextForm::kSinglePrecision});
  Expect(InvoiceLine(), {"UnitPrice", "UnitPrice"});
}

TEST(WrittenFormTest, OfAPairOneYieldsToTheOther) {
  Expect(InvoiceLine(), {"DebitAmount", "DebitAmount", TextForm::kPlain, "CreditAmount"});
  Expect(InvoiceLine(), {"CreditAmount", "CreditAmount", TextForm::kPlain, "DebitAmount", true});
  Expect(TransactionLine(), {"CreditAmount", "CreditAmount", TextForm::kPlain, "DebitAmount", true});
  Expect(CurrencyStructure(),
         {"CurrencyCreditAmount", "CurrencyCreditAmount", TextForm::kPlain, "CurrencyDebitAmount", true});
  Expect(Tax(), {"TaxAmount", "TaxAmount", TextForm::kPlain, "TaxPercentage", true});
  Expect(TaxTableEntry(), {"TaxPercentage", "TaxPercentage", TextForm::kWithPoint, "TaxAmount"});
}

TEST(WrittenFormTest, TotalsOfASectionHaveTwoDecimals) {
  Expect(GeneralLedgerEntries(), {"TotalDebit", "TotalDebit", TextForm::kTwoDecimals});
  Expect(SalesInvoices(), {"TotalCredit", "TotalCredit", TextForm::kTwoDecimals});
  Expect(SalesInvoices(), {"NumberOfEntries", "NumberOfEntries"});
}

TEST(WrittenFormTest, DateIsBroughtIntoItsForm) {
  Expect(TaxTableEntry(), {"TaxExpirationDate", "TaxExpirationDate", TextForm::kDate});
}

TEST(WrittenFormTest, ElementMayHaveAnotherName) {
  Expect(OrderReferences(), {"OriginatingOn", "OriginatingON"});
  Expect(Header(), {"ProductCompanyTaxId", "ProductCompanyTaxID"});
  Expect(DocumentTotals(), {"CurrencyValue", "Currency"});
}

TEST(WrittenFormTest, ThePositionIsThatInTheFile) {
  const auto positionOf = [](std::string_view property) { return WrittenFormOf(Tax(), property)->position; };
  EXPECT_EQ(positionOf("TaxType"), 0U);
  EXPECT_EQ(positionOf("TaxCountryRegion"), 1U);
  EXPECT_EQ(positionOf("TaxCode"), 2U);
  EXPECT_EQ(positionOf("TaxPercentage"), 3U);
  EXPECT_EQ(positionOf("TaxAmount"), 4U);
}

TEST(WrittenFormTest, SomeElementsAreWrittenWithoutAText) {
  EXPECT_TRUE(WrittenFormOf(Header(), "BusinessName")->always);
  EXPECT_TRUE(WrittenFormOf(Header(), "CompanyAddress")->always);
  EXPECT_TRUE(WrittenFormOf(InvoiceLine(), "SettlementAmount")->always);
  EXPECT_FALSE(WrittenFormOf(Header(), "HeaderComment")->always);
  EXPECT_FALSE(WrittenFormOf(InvoiceLine(), "UnitOfMeasure")->always);
  EXPECT_FALSE(WrittenFormOf(InvoiceLine(), "Tax")->always);
  EXPECT_FALSE(WrittenFormOf(InvoiceLine(), "CreditAmount")->always);
  EXPECT_FALSE(WrittenFormOf(InvoiceLine(), "DebitAmount")->always);
  EXPECT_FALSE(WrittenFormOf(Invoice(), "Line")->always);
}

TEST(WrittenFormTest, NothingOfANameThatIsNoProperty) {
  EXPECT_FALSE(WrittenFormOf(Customer(), "customerid"));
  EXPECT_FALSE(WrittenFormOf(Customer(), ""));
  EXPECT_FALSE(WrittenFormOf(OrderReferences(), "OriginatingON"));
}

TEST(WrittenFormTest, EveryPropertyOfEveryRecordHasOne) {
  const auto expect_all = [](const auto& self, const Record& record) -> void {
    for (const Property& property : PropertiesOf(record)) {
      EXPECT_TRUE(WrittenFormOf(record, property.name)) << property.name;
      if (property.make != nullptr) self(self, *property.make());
    }
  };
  expect_all(expect_all, Header());
  expect_all(expect_all, GeneralLedger());
  expect_all(expect_all, Customer());
  expect_all(expect_all, Supplier());
  expect_all(expect_all, Product());
  expect_all(expect_all, TaxTable());
  expect_all(expect_all, GeneralLedgerEntries());
  expect_all(expect_all, Journal());
  expect_all(expect_all, Transaction());
  expect_all(expect_all, SalesInvoices());
  expect_all(expect_all, Invoice());
}

}  // namespace
}  // namespace zevo
