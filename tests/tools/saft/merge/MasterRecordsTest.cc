// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/merge/MasterRecords.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace zevo::saft {
namespace {

ScannedElement At(int depth, std::string_view name, std::string_view text = {}) {
  return {.name = name, .depth = depth, .text = text, .place = {}};
}
std::vector<ScannedElement> CustomerIn(std::string_view city) {
  return {At(0, "Customer"),    At(1, "CustomerID", "C1"), At(1, "BillingAddress"),
          At(2, "Street", "x"), At(2, "City", city),       At(1, "SelfBillingIndicator")};
}

class MasterRecordsTest : public ::testing::Test {
 protected:
  /// The path of what differs, and the file from which; "" for nothing.
  std::string Taken(size_t source, std::string_view key, const std::vector<ScannedElement>& elements) {
    const auto difference = records_.Take(source, key, elements);
    return difference ? difference->path + " from " + std::to_string(difference->source) : "";
  }

  MasterRecords records_;
};

TEST_F(MasterRecordsTest, ARecordIsComparedWithThatOfTheLastFileBefore) {
  EXPECT_EQ(Taken(0, "C1", CustomerIn("Porto")), "");
  EXPECT_EQ(Taken(2, "C1", CustomerIn("Porto")), "");
  EXPECT_EQ(Taken(3, "C1", CustomerIn("Braga")), "BillingAddress/City from 2");
  EXPECT_EQ(Taken(5, "C1", CustomerIn("Porto")), "BillingAddress/City from 3");
  EXPECT_EQ(Taken(5, "C2", CustomerIn("Faro")), "");
}

TEST_F(MasterRecordsTest, MoreAndFewerElementsAreDifferences) {
  auto longer = CustomerIn("Porto");
  longer.push_back(At(1, "Fax", "1"));
  EXPECT_EQ(Taken(0, "C1", CustomerIn("Porto")), "");
  EXPECT_EQ(Taken(1, "C1", longer), "Fax from 0");
  EXPECT_EQ(Taken(2, "C1", longer), "");
  EXPECT_EQ(Taken(3, "C1", CustomerIn("Porto")), "SelfBillingIndicator from 2");
  EXPECT_EQ(Taken(4, "C1", CustomerIn("Porto")), "");
}

TEST_F(MasterRecordsTest, TheSameTextElsewhereIsADifference) {
  const std::vector first{At(0, "Product"), At(1, "a", "1"), At(1, "b")};
  EXPECT_EQ(Taken(0, "P", first), "");
  EXPECT_EQ(Taken(1, "P", {At(0, "Product"), At(1, "a", "1"), At(2, "b")}), "a/b from 0");
}

TEST_F(MasterRecordsTest, TwiceInAFileIsNoDifferenceBetweenFiles) {
  EXPECT_EQ(Taken(0, "C1", CustomerIn("Porto")), "");
  EXPECT_EQ(Taken(0, "C1", CustomerIn("Braga")), "");
  EXPECT_EQ(Taken(1, "C1", CustomerIn("Braga")), "");
}

TEST_F(MasterRecordsTest, ItKnowsTheLastFileOfEachRecord) {
  Taken(0, "C1", CustomerIn("Porto"));
  Taken(0, "C2", CustomerIn("Porto"));
  Taken(1, "C1", CustomerIn("Porto"));
  EXPECT_FALSE(records_.IsLast(0, "C1"));
  EXPECT_TRUE(records_.IsLast(1, "C1"));
  EXPECT_TRUE(records_.IsLast(0, "C2"));
  EXPECT_FALSE(records_.IsLast(0, "C3"));
}

TEST_F(MasterRecordsTest, OpeningBalancesAreTheFirstAndNoDifference) {
  const auto account = [](std::string_view debit) {
    return std::vector{At(0, "GeneralLedger"), At(1, "AccountID", "21"), At(1, "OpeningDebitBalance", debit)};
  };
  EXPECT_EQ(Taken(0, "71", {At(0, "GeneralLedger")}), "");
  EXPECT_EQ(Taken(0, "21", account("1.00")), "");
  EXPECT_EQ(Taken(1, "21", account("2.00")), "");
  EXPECT_EQ(records_.OpeningOf("21").debit, "1.00");
  EXPECT_FALSE(records_.OpeningOf("21").credit);
  EXPECT_FALSE(records_.OpeningOf("71").debit);
  EXPECT_FALSE(records_.OpeningOf("99").debit);
}

}  // namespace
}  // namespace zevo::saft
