// SPDX-License-Identifier: Apache-2.0
#include <zevo/model/internal/WholeText.h>

#include <gtest/gtest.h>

#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace zevo {
namespace {

// The value in a way that tells it from all others, followed by "~" when it is not exact; "-" for none.
std::string AmountOf(std::string_view text) {
  const auto value = WholeAmount(text);
  return value ? value->value.Text() + (value->exact ? "" : "~") : "-";
}
std::string IntegerOf(std::string_view text) {
  const auto value = WholeInteger(text);
  return value ? std::to_string(value->value) : "-";
}
std::string FlagOf(std::string_view text) {
  const auto value = WholeFlag(text);
  return value ? (value->value ? "true" : "false") : "-";
}

TEST(WholeTextTest, AnAmountIsADecimalNumberWithAPoint) {
  EXPECT_EQ(AmountOf("12.34"), "12.34");
  EXPECT_EQ(AmountOf("-12.3400"), "-12.34");
  EXPECT_EQ(AmountOf("+0012.50000"), "12.5");
  EXPECT_EQ(AmountOf(".5"), "0.5");
  EXPECT_EQ(AmountOf("5."), "5");
  EXPECT_EQ(AmountOf("0"), "0");
  EXPECT_EQ(AmountOf("-0"), "0");
  EXPECT_EQ(AmountOf(" \t\r\n7 \n"), "7");
}

TEST(WholeTextTest, AnythingElseIsNoAmount) {
  for (const char* text : {"", " ", ".", "-", "+", "+.", "12x", "x12", "1,5", "1 000", "1.2.3", "1e3", "--1", "+-1",
                           "\u00A01", "NaN", "INF", "0x10", "1\u0660"}) {
    EXPECT_EQ(AmountOf(text), "-") << text;
  }
}

TEST(WholeTextTest, MoreThanFourDecimalsAreRoundedAwayFromZero) {
  EXPECT_EQ(AmountOf("1.23455"), "1.2346~");
  EXPECT_EQ(AmountOf("-1.23455"), "-1.2346~");
  EXPECT_EQ(AmountOf("1.23454999"), "1.2345~");
  EXPECT_EQ(AmountOf("0.99995"), "1~");
  EXPECT_EQ(AmountOf("0.00001"), "0~");
  EXPECT_EQ(AmountOf("1.23450000000"), "1.2345");
}

TEST(WholeTextTest, AnAmountThatDoesNotFitIsNone) {
  EXPECT_EQ(AmountOf("922337203685477.5807"), "922337203685477.5807");
  EXPECT_EQ(AmountOf("922337203685477.5808"), "-");
  EXPECT_EQ(AmountOf("-922337203685477.5808"), "-922337203685477.5808");
  EXPECT_EQ(AmountOf("-922337203685477.5809"), "-");
  EXPECT_EQ(AmountOf("999999999999999"), "-");
  EXPECT_EQ(AmountOf("1000000000000000"), "-");
  EXPECT_EQ(AmountOf(std::string(100'000, '9')), "-");
  EXPECT_EQ(AmountOf(std::string(100'000, '0') + "1"), "1");
}

TEST(WholeTextTest, ASingleIsExactWhenItsShortestTextIsTheNumber) {
  EXPECT_EQ(WholeSingle("23")->value, 23.0F);
  EXPECT_TRUE(WholeSingle("23.00")->exact);
  EXPECT_TRUE(WholeSingle("0.1")->exact);
  EXPECT_TRUE(WholeSingle("-.5")->exact);
  EXPECT_TRUE(WholeSingle(" +6.5 ")->exact);
  EXPECT_EQ(WholeSingle("123456789.12")->value, 123456792.0F);
  EXPECT_FALSE(WholeSingle("123456789.12")->exact);
  EXPECT_FALSE(WholeSingle("0.12345678901")->exact);
  EXPECT_FALSE(WholeSingle("1e2"));
  EXPECT_FALSE(WholeSingle("nan"));
  EXPECT_FALSE(WholeSingle(""));
  EXPECT_FALSE(WholeSingle(std::string(60, '9')));
}

TEST(WholeTextTest, AnIntegerHasNoDecimals) {
  EXPECT_EQ(IntegerOf("12"), "12");
  EXPECT_EQ(IntegerOf(" +12\n"), "12");
  EXPECT_EQ(IntegerOf("-0012"), "-12");
  EXPECT_EQ(IntegerOf("2147483647"), "2147483647");
  EXPECT_EQ(IntegerOf("-2147483648"), "-2147483648");
  for (const char* text : {"", "+", "-", "+-1", "2147483648", "12x", "1.0", "1 2"}) {
    EXPECT_EQ(IntegerOf(text), "-") << text;
  }
}

TEST(WholeTextTest, AFlagIsOneOrZero) {
  EXPECT_EQ(FlagOf("1"), "true");
  EXPECT_EQ(FlagOf(" 0 "), "false");
  EXPECT_EQ(FlagOf("true"), "true");
  EXPECT_EQ(FlagOf("false"), "false");
  for (const char* text : {"", "2", "-1", "True", "yes", "1.0"}) EXPECT_EQ(FlagOf(text), "-") << text;
}

}  // namespace
}  // namespace zevo
