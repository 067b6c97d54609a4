// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/Header.h>

#include <ctime>
#include <string>

#include "tests/support/UseSchema.h"

namespace zevo {
namespace {

using testing::UseSchema;

std::string Today() {
  const std::time_t now = std::time(nullptr);
  std::string text(10, ' ');
  std::strftime(text.data(), text.size() + 1, "%Y-%m-%d", std::localtime(&now));
  return text;
}

TEST(HeaderTest, StartsWithCurrencyDateVersionMakerAndCountry) {
  const std::string before = Today();
  const Header header;
  const std::string after = Today();
  EXPECT_EQ(header.CurrencyCode(), "EUR");
  // Midnight may pass meanwhile.
  EXPECT_TRUE(header.DateCreated() == before || header.DateCreated() == after) << header.DateCreated();
  EXPECT_EQ(header.AuditFileVersion(), "1.01_01");
  EXPECT_EQ(header.ProductCompanyTaxId(), "500000000");
  EXPECT_EQ(header.CompanyAddress()->Country(), "PT");
}

TEST(HeaderTest, AnyNumberIsATaxAccountingBasis) {
  Header header;
  EXPECT_EQ(header.TaxAccountingBasis(), 0);
  header.set_TaxAccountingBasis(static_cast<TaxAccountingBasis>(7));
  EXPECT_EQ(header.TaxAccountingBasis(), 7);
  header.set_TaxAccountingBasis(tabI);
  EXPECT_EQ(header.TaxAccountingBasis(), tabI);
}

TEST(HeaderTest, DatesAndYearAreStoredAsGiven) {
  const UseSchema schema;
  Header header;
  header.set_StartDate("ontem");
  header.set_FiscalYear("dois mil e vinte e seis");
  EXPECT_EQ(header.StartDate(), "ontem");
  EXPECT_EQ(header.FiscalYear(), "dois mil e vinte e seis");
}

TEST(HeaderTest, TheWebsiteIsCutAlthoughItsKeyIsInOtherLetterCase) {
  const UseSchema schema;
  Header header;
  header.set_Website(std::string(61, 'w'));
  EXPECT_EQ(header.Website(), std::string(60, 'w'));
}

}  // namespace
}  // namespace zevo
