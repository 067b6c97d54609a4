// SPDX-License-Identifier: Apache-2.0
#include <zevo/check/KnownTaxes.h>

#include <string>
#include <string_view>
#include <vector>

#include "tests/check/FactsTest.h"

namespace zevo {
namespace {

class KnownTaxesTest : public testing::FactsTest {
 protected:
  // An entry, or the tax of a line: "IVA PT NOR", then what it amounts to and when it expires.
  static std::string Codes(std::string_view type, std::string_view region, std::string_view code) {
    std::string codes("<TaxType>");
    codes.append(type).append("</TaxType><TaxCountryRegion>").append(region);
    return codes.append("</TaxCountryRegion><TaxCode>").append(code).append("</TaxCode>");
  }
  static std::string Percentage(std::string_view number) {
    return "<TaxPercentage>" + std::string(number) + "</TaxPercentage>";
  }
  static std::string Amount(std::string_view number) { return "<TaxAmount>" + std::string(number) + "</TaxAmount>"; }
  static std::string Expires(std::string_view date) {
    return "<TaxExpirationDate>" + std::string(date) + "</TaxExpirationDate>";
  }

  void Take(const std::vector<std::string>& entries) {
    std::string table;
    for (const std::string& entry : entries) table += "<TaxTableEntry>" + entry + "</TaxTableEntry>";
    ForEachMaster<TaxTableFacts>(EntityKind::kTaxTable, {table},
                                 [this](const TaxTableFacts& facts) { taxes_.Take(facts); });
  }
  // Until when a tax may be used: a date, "ever", or "unknown" for one that is not in the table.
  std::string UseOf(std::string_view tax) {
    std::string use;
    ForTax(tax, [&](const TaxFacts& facts) {
      const KnownTaxes::Use* const found = taxes_.Find(facts);
      use = found == nullptr ? "unknown" : found->expires ? found->last_day.Text() : "ever";
    });
    return use;
  }
  bool HasCodes(std::string_view type, std::string_view region, std::string_view code) {
    bool has = false;
    ForTax(Codes(type, region, code), [&](const TaxFacts& tax) { has = KnownTaxes::HasCodes(tax); });
    return has;
  }
  template <class Take>
  void ForTax(std::string_view tax, Take take) {
    ForInvoice("<Line><Tax>" + std::string(tax) + "</Tax></Line>",
               [&](const InvoiceFacts& facts) { take(facts.lines[0].tax); });
  }

  KnownTaxes taxes_;
};

TEST_F(KnownTaxesTest, ATaxIsFoundByItsCodesAndRate) {
  Take({Codes("IVA", "PT", "NOR") + Percentage("20.00"), Codes("IS", "PT", "17.3.1") + Amount("5.25")});
  EXPECT_EQ(UseOf(Codes("IVA", "PT", "NOR") + Percentage("20")), "ever");
  EXPECT_EQ(UseOf(Codes("IS", "PT", "17.3.1") + Amount("5.250")), "ever");
  for (const std::string& other :
       {Codes("IVA", "PT", "NOR") + Percentage("20.01"), Codes("IVA", "PT", "NOR") + Amount("20"),
        Codes("IVA", "PT", "INT") + Percentage("20"), Codes("IVA", "PT-AC", "NOR") + Percentage("20"),
        Codes("IS", "PT", "NOR") + Percentage("20"), Codes("IS", "PT", "17.3.1") + Percentage("5.25")}) {
    EXPECT_EQ(UseOf(other), "unknown") << other;
  }
  EXPECT_TRUE(taxes_.IsWhole());
  EXPECT_FALSE(taxes_.IsEmpty());
}

TEST_F(KnownTaxesTest, NoPerCentAreNoAmount) {
  Take({Codes("IVA", "PT", "ISE") + Percentage("0.00")});
  EXPECT_EQ(UseOf(Codes("IVA", "PT", "ISE") + Amount("0")), "ever");
}

TEST_F(KnownTaxesTest, OfEqualTaxesTheLongestUseCounts) {
  const std::string normal = Codes("IVA", "PT", "NOR") + Percentage("21");
  Take({Expires("2010-06-30") + normal});
  EXPECT_EQ(UseOf(normal), "2010-06-30");
  Take({Expires("2009-12-31") + normal});
  EXPECT_EQ(UseOf(normal), "2010-06-30");
  Take({Expires("2010-07-01") + normal});
  EXPECT_EQ(UseOf(normal), "2010-07-01");
  Take({normal});
  EXPECT_EQ(UseOf(normal), "ever");
  Take({Expires("2030-12-31") + normal});
  EXPECT_EQ(UseOf(normal), "ever");
}

TEST_F(KnownTaxesTest, AnEntryThatCannotBeReadIsMissing) {
  EXPECT_TRUE(taxes_.IsEmpty());
  EXPECT_TRUE(taxes_.IsWhole());
  const std::string codes = Codes("IVA", "PT", "NOR");
  for (const std::string& entry :
       {codes, codes + Percentage("x"), codes + Percentage("20") + Amount("20"), Percentage("20"),
        Codes("IRS", "PT", "NOR") + Percentage("20"), Expires("2010-06-31") + codes + Percentage("20")}) {
    taxes_ = {};
    Take({entry});
    EXPECT_TRUE(taxes_.IsEmpty()) << entry;
    EXPECT_FALSE(taxes_.IsWhole()) << entry;
  }
  Take({codes + Percentage("20")});
  EXPECT_FALSE(taxes_.IsEmpty());
  EXPECT_FALSE(taxes_.IsWhole());
}

TEST_F(KnownTaxesTest, CodesAreThoseOfTheSchema) {
  for (const std::string_view region : {"PT", "PT-AC", "PT-MA", "ES"}) EXPECT_TRUE(HasCodes("IVA", region, "NOR"));
  for (const std::string_view region : {"", "P", "pt", "PRT", "PT-XX", "E1"}) {
    EXPECT_FALSE(HasCodes("IVA", region, "NOR")) << region;
  }
  for (const std::string_view code : {"RED", "INT", "NOR", "ISE", "OUT", "17.3.1", "17"}) {
    EXPECT_TRUE(HasCodes("IS", "PT", code)) << code;
  }
  for (const std::string_view code : {"nor", "XXX", "17a", "NORM"}) EXPECT_FALSE(HasCodes("IS", "PT", code)) << code;
  for (const std::string_view type : {"", "iva", "IRC"}) EXPECT_FALSE(HasCodes(type, "PT", "NOR")) << type;
}

}  // namespace
}  // namespace zevo
