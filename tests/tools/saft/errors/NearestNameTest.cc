// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/errors/NearestName.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>

namespace zevo::saft {
namespace {

std::string_view Nearest(std::string_view given) {
  static constexpr std::array<std::string_view, 4> kKnown{"CustomerID", "CustomerTaxID", "BillingAddress.City", "City"};
  return NearestName(given, kKnown);
}

TEST(NearestNameTest, LettersThatDifferCountWhateverTheirCase) {
  EXPECT_EQ(Nearest("CustumerID"), "CustomerID");
  EXPECT_EQ(Nearest("customerid"), "CustomerID");
  EXPECT_EQ(Nearest("CustomerTaxId"), "CustomerTaxID");
  EXPECT_EQ(Nearest("citty"), "City");
  EXPECT_EQ(Nearest("BillingAdress.City"), "BillingAddress.City");
}

TEST(NearestNameTest, OfEquallyNearOnesItIsTheFirst) { EXPECT_EQ(Nearest(""), "CustomerID"); }

TEST(NearestNameTest, OnlyANearNameIsAskedFor) {
  static constexpr std::array<std::string_view, 2> kKnown{"Customer", "Invoice"};
  EXPECT_EQ(DidYouMean("Custumer", kKnown), "; did you mean Customer?");
  EXPECT_EQ(DidYouMean("Inv", kKnown), "");
  EXPECT_EQ(DidYouMean("Invo", kKnown), "; did you mean Invoice?");
  EXPECT_EQ(DidYouMean("", kKnown), "");
}

}  // namespace
}  // namespace zevo::saft
