// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/check/DocumentNumber.h>

#include <string_view>

namespace zevo {
namespace {

TEST(DocumentNumberTest, HasAnInternalCodeASeriesAndANumber) {
  const auto number = DocumentNumber::FromText("FT A/12");
  ASSERT_TRUE(number);
  EXPECT_EQ(number->series, "FT A");
  EXPECT_EQ(number->code, "FT");
  EXPECT_EQ(number->name, "A");
  EXPECT_EQ(number->digits, "12");
}

TEST(DocumentNumberTest, TheLastSlashCounts) {
  const auto number = DocumentNumber::FromText("FT/x.1 2008/A/0012");
  ASSERT_TRUE(number);
  EXPECT_EQ(number->series, "FT/x.1 2008/A");
  EXPECT_EQ(number->code, "FT/x.1");
  EXPECT_EQ(number->name, "2008/A");
  EXPECT_EQ(number->digits, "0012");
}

TEST(DocumentNumberTest, TheSeriesMayBeEmpty) {
  const auto number = DocumentNumber::FromText("FT /1");
  ASSERT_TRUE(number);
  EXPECT_EQ(number->series, "FT ");
  EXPECT_EQ(number->name, "");
}

TEST(DocumentNumberTest, ZerosInFrontDoNotCount) {
  EXPECT_EQ(DocumentNumber::FromText("FT A/0012")->Significant(), "12");
  EXPECT_EQ(DocumentNumber::FromText("FT A/1000")->Significant(), "1000");
  EXPECT_EQ(DocumentNumber::FromText("FT A/000")->Significant(), "");
  EXPECT_EQ(DocumentNumber::FromText("FT A/00123456789012345678901234567890")->Significant(),
            "123456789012345678901234567890");
}

TEST(DocumentNumberTest, OtherTextsAreNone) {
  for (const std::string_view text : {"", "FT", "FT A", "FT A12", "FTA/12", " A/12", "FT A/", "FT A/1x", "FT A/-1",
                                      "FT A/1 ", "FT A/ 1", "FT/A 12", "/1", " /1"}) {
    EXPECT_FALSE(DocumentNumber::FromText(text)) << text;
  }
}

}  // namespace
}  // namespace zevo
