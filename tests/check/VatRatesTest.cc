// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/VatRates.h>

#include <string_view>

namespace zevo {
namespace {

constexpr VatRegion kRegions[] = {VatRegion::kMainland, VatRegion::kAzores, VatRegion::kMadeira};
constexpr VatLevel kLevels[] = {VatLevel::kReduced, VatLevel::kIntermediate, VatLevel::kNormal};

std::string RatesOn(std::string_view date) {
  std::string rates;
  for (const VatRegion region : kRegions) {
    for (const VatLevel level : kLevels) {
      const auto rate = VatRate{region, level}.On(*CalendarDate::FromText(date));
      rates += (rates.empty() ? "" : " ") + (rate ? std::to_string(*rate) : "-");
    }
  }
  return rates;
}

TEST(VatRatesTest, HoldFromTheirFirstDayToTheDayBeforeTheNext) {
  const struct {
    std::string_view first;
    std::string_view last;
    std::string_view rates;  // mainland, Azores, Madeira
  } kRows[] = {
      {"1986-01-01", "2005-06-30", "- - - - - - - - -"},       {"2005-07-01", "2008-06-30", "5 12 21 4 8 15 4 8 15"},
      {"2008-07-01", "2010-06-30", "5 12 20 4 8 14 4 8 14"},   {"2010-07-01", "2010-12-31", "6 13 21 4 9 15 4 9 15"},
      {"2011-01-01", "2012-03-31", "6 13 23 4 9 16 4 9 16"},   {"2012-04-01", "2013-12-31", "6 13 23 4 9 16 5 12 22"},
      {"2014-01-01", "2014-12-31", "6 13 23 5 10 18 5 12 22"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(RatesOn(row.first), row.rates) << row.first;
    EXPECT_EQ(RatesOn(row.last), row.rates) << row.last;
  }
}

TEST(VatRatesTest, TheRateBesideIsThatOfTheOtherSideOfAChange) {
  const auto beside = [](const VatRate& rate, std::string_view date, int percentage) {
    return rate.IsBeside(*CalendarDate::FromText(date), percentage);
  };
  constexpr VatRate kAzores{VatRegion::kAzores, VatLevel::kNormal};
  EXPECT_TRUE(beside(kAzores, "2014-01-01", 16));
  EXPECT_TRUE(beside(kAzores, "2013-12-31", 18));
  EXPECT_FALSE(beside(kAzores, "2014-01-02", 16));
  EXPECT_FALSE(beside(kAzores, "2013-12-30", 18));
  EXPECT_FALSE(beside(kAzores, "2014-01-01", 15));
  // Only Madeira changed then.
  EXPECT_TRUE(beside({VatRegion::kMadeira, VatLevel::kNormal}, "2012-03-31", 22));
  EXPECT_FALSE(beside(kAzores, "2012-03-31", 22));
  // The first there are, and before.
  EXPECT_FALSE(beside(kAzores, "2005-07-01", 13));
  EXPECT_FALSE(beside(kAzores, "2005-06-30", 15));
}

TEST(VatRatesTest, AllThereWereAreKnown) {
  constexpr VatRate kMainland{VatRegion::kMainland, VatLevel::kNormal};
  EXPECT_TRUE(kMainland.WasEver(20));
  EXPECT_FALSE(kMainland.WasEver(22));
  EXPECT_FALSE(kMainland.WasEver(*Decimal::FromText("20.5")));
  EXPECT_EQ(kMainland.All(), "21, 20, 23");
  EXPECT_EQ((VatRate{VatRegion::kAzores, VatLevel::kReduced}.All()), "4, 5");
}

TEST(VatRatesTest, TimesAreThoseOfSeveralDays) {
  constexpr VatRate kMainland{VatRegion::kMainland, VatLevel::kNormal};
  VatTimes times;
  times.Add({2008, 6, 29});
  EXPECT_TRUE(times.known);
  EXPECT_TRUE(kMainland.WasIn(times.on, 21));
  EXPECT_FALSE(kMainland.WasIn(times.on, 20));
  EXPECT_FALSE(kMainland.WasIn(times.beside, 20));
  EXPECT_EQ(kMainland.LastIn(times.on), 21);
  times.Add({2008, 6, 30});
  EXPECT_FALSE(kMainland.WasIn(times.on, 20));
  EXPECT_TRUE(kMainland.WasIn(times.beside, 20));
  times.Add({2009, 1, 1});
  EXPECT_TRUE(kMainland.WasIn(times.on, 21));
  EXPECT_TRUE(kMainland.WasIn(times.on, 20));
  EXPECT_FALSE(kMainland.WasIn(times.on, 23));
  EXPECT_EQ(kMainland.LastIn(times.on), 20);
  times = {};
  times.Add({2011, 1, 1});
  EXPECT_TRUE(kMainland.WasIn(times.beside, 21));
  // Before the first that are known, any may have been.
  times.Add({2005, 6, 30});
  EXPECT_FALSE(times.known);
  times = {};
  times.Add({2005, 7, 1});
  EXPECT_TRUE(times.known);
  EXPECT_EQ(times.beside, 0);
  times = {};
  times.Add({2014, 1, 2});
  EXPECT_EQ((VatRate{VatRegion::kAzores, VatLevel::kNormal}).LastIn(times.on), 18);
}

TEST(VatRatesTest, TheNameIsThatOfTheCodes) {
  EXPECT_EQ((VatRate{VatRegion::kAzores, VatLevel::kReduced}).Name(), "RED PT-AC");
  EXPECT_EQ((VatRate{VatRegion::kMainland, VatLevel::kNormal}).Name(), "NOR PT");
}

TEST(VatRatesTest, CodesAreThoseOfTheFile) {
  EXPECT_EQ(VatRegionOf("PT"), VatRegion::kMainland);
  EXPECT_EQ(VatRegionOf("PT-AC"), VatRegion::kAzores);
  EXPECT_EQ(VatRegionOf("PT-MA"), VatRegion::kMadeira);
  EXPECT_EQ(VatRegionOf("ES"), std::nullopt);
  EXPECT_EQ(VatLevelOf("RED"), VatLevel::kReduced);
  EXPECT_EQ(VatLevelOf("INT"), VatLevel::kIntermediate);
  EXPECT_EQ(VatLevelOf("NOR"), VatLevel::kNormal);
  EXPECT_EQ(VatLevelOf("ISE"), std::nullopt);
}

}  // namespace
}  // namespace zevo
