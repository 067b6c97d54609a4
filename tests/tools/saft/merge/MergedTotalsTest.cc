// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/merge/MergedTotals.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace zevo::saft {
namespace {

class MergedTotalsTest : public ::testing::Test {
 protected:
  /// Adds an invoice of a line.
  void Add(std::string_view element, std::string_view amount) {
    const std::vector<ScannedElement> elements = {{.name = "Invoice", .depth = 0, .text = {}, .place = {}},
                                                  {.name = "Line", .depth = 1, .text = {}, .place = {}},
                                                  {.name = element, .depth = 2, .text = amount, .place = {}}};
    totals_.Add(EntityKind::kInvoice, elements);
  }
  std::vector<std::string> Texts() const { return {totals_.EntriesText(), totals_.DebitText(), totals_.CreditText()}; }
  using Expected = std::vector<std::string>;

  MergedTotals totals_;
};

TEST_F(MergedTotalsTest, ANumberThatAFileHasIsWrittenAsItHasIt) {
  Add("CreditAmount", "1.5");
  EXPECT_TRUE(totals_.EndFile(" 01 ", ".00", "1.5000"));
  EXPECT_EQ(Texts(), (Expected{" 01 ", ".00", "1.5000"}));
  Add("CreditAmount", "0.0");
  EXPECT_TRUE(totals_.EndFile("1", "0", "0"));
  EXPECT_EQ(Texts(), (Expected{"2", ".00", "1.5000"}));
}

TEST_F(MergedTotalsTest, OthersHaveTheDecimalsOfTheFiles) {
  Add("DebitAmount", "1");
  EXPECT_TRUE(totals_.EndFile("1", "1", "0"));
  Add("DebitAmount", "2.5");
  EXPECT_TRUE(totals_.EndFile("1", "2.500", "0"));
  EXPECT_EQ(Texts(), (Expected{"2", "3.500", "0"}));
  Add("DebitAmount", "0.12345");
  EXPECT_TRUE(totals_.EndFile("1", "0.12345", "0"));
  EXPECT_EQ(totals_.DebitText(), "3.62345");
}

// Half a cent for each amount of more than two decimals.
TEST_F(MergedTotalsTest, TheTotalOfAFileMayBeRounded) {
  for (const char* amount : {"1.004", "1.004", "1"}) Add("CreditAmount", amount);
  EXPECT_TRUE(totals_.EndFile("3", "0", "3.01"));
  EXPECT_EQ(totals_.CreditText(), "3.01");
  Add("CreditAmount", "1");
  EXPECT_TRUE(totals_.EndFile("1", "0", "1.00"));
  EXPECT_EQ(totals_.CreditText(), "4.008");
}

TEST_F(MergedTotalsTest, BeyondThatItIsWrong) {
  Add("CreditAmount", "1.004");
  EXPECT_TRUE(totals_.EndFile("1", "0", "1.009"));
  Add("CreditAmount", "1.004");
  EXPECT_FALSE(totals_.EndFile("1", "0", "1.0091"));
  Add("CreditAmount", "1.00");
  EXPECT_FALSE(totals_.EndFile("1", "0", "1.01"));
  EXPECT_EQ(totals_.CreditText(), "3.0080");
}

TEST_F(MergedTotalsTest, AFileWithoutTotalsIsWrong) {
  Add("CreditAmount", "1");
  EXPECT_FALSE(totals_.EndFile({}, {}, {}));
  EXPECT_EQ(Texts(), (Expected{"1", "0.00", "1.00"}));
}

TEST_F(MergedTotalsTest, AmountsThatAreNoNumbersAreCounted) {
  Add("CreditAmount", "x");
  Add("DebitAmount", "");
  Add("Quantity", "y");
  EXPECT_EQ(totals_.Unreadable(), 2);
}

}  // namespace
}  // namespace zevo::saft
