// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/Tax.h>
#include <zevo/model/TaxTableEntry.h>

namespace zevo {
namespace {

TEST(TaxTest, IsAlwaysValueAddedTax) {
  Tax tax;
  EXPECT_EQ(tax.TaxType(), "IVA");
  tax.set_TaxCode("IS");
  tax.set_TaxPercentage(23.0F);
  tax.set_TaxAmount(0.1F);
  tax.set_TaxCountryRegion("PT-AC");
  EXPECT_EQ(tax.TaxType(), "IVA");
  EXPECT_EQ(tax.TaxAmount(), 0.1F);
}

TEST(TaxTest, SoIsEveryEntryOfATaxTable) {
  TaxTableEntry entry;
  EXPECT_EQ(entry.TaxType(), "IVA");
  entry.set_TaxCode("IS");
  entry.set_Description("Imposto do selo");
  entry.set_TaxAmount(1);
  EXPECT_EQ(entry.TaxType(), "IVA");
}

}  // namespace
}  // namespace zevo
