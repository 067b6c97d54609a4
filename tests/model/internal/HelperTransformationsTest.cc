// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <zevo/model/internal/HelperTransformations.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "tests/model/CommaLocale.h"
#include "tests/support/Errors.h"

namespace zevo {
namespace {

using testing::CommaLocale;

constexpr int64_t kGreatest = std::numeric_limits<int64_t>::max();
constexpr int64_t kSmallest = std::numeric_limits<int64_t>::min();

struct AmountRow {
  int64_t scaled;
  std::string_view plain;
  std::string_view twoDecimals;
};

constexpr AmountRow kAmounts[] = {
    {0, "0", ".00"},
    {5000, "0.5", ".50"},
    {-5000, "-0.5", "-.50"},
    {70000, "7", "7.00"},
    {123400, "12.34", "12.34"},
    {120000, "12", "12.00"},
    {1, "0.0001", ".00"},
    {-1, "-0.0001", ".00"},
    {49, "0.0049", ".00"},
    {-49, "-0.0049", ".00"},
    {50, "0.005", ".01"},
    {-50, "-0.005", "-.01"},
    {149, "0.0149", ".01"},
    {150, "0.015", ".02"},
    {250, "0.025", ".03"},
    {-250, "-0.025", "-.03"},
    {9949, "0.9949", ".99"},
    {9950, "0.995", "1.00"},
    {-9950, "-0.995", "-1.00"},
    {10000, "1", "1.00"},
    {12345678, "1234.5678", "1234.57"},
    {10000000000, "1000000", "1000000.00"},
    {100000, "10", "10.00"},
    {1000, "0.1", ".10"},
    {100, "0.01", ".01"},
    {10, "0.001", ".00"},
    {kGreatest, "922337203685477.5807", "922337203685477.58"},
    {kSmallest, "-922337203685477.5808", "-922337203685477.58"},
};

TEST(HelperTransformationsTest, AnAmountIsWrittenInBothForms) {
  for (const AmountRow& row : kAmounts) {
    const Amount amount = Amount::FromScaled(row.scaled);
    EXPECT_EQ(std::string_view(AmountText(amount)), row.plain);
    EXPECT_EQ(std::string_view(AmountTextWithPoint(amount)), row.plain);
    EXPECT_EQ(std::string_view(TwoDecimalsText(amount)), row.twoDecimals);
  }
}

TEST(HelperTransformationsTest, NumbersAreWrittenWithTheRegionalSeparator) {
  const CommaLocale locale;
  if (!locale.IsInForce()) GTEST_SKIP() << "this C library takes no locale of ours";
  EXPECT_EQ(std::string_view(AmountText(Amount::FromScaled(12345678))), "1234,5678");
  EXPECT_EQ(std::string_view(AmountTextWithPoint(Amount::FromScaled(12345678))), "1234.5678");
  EXPECT_EQ(std::string_view(TwoDecimalsText(Amount::FromScaled(5000))), ",50");
  EXPECT_EQ(std::string_view(TwoDecimalsText(Amount())), ",00");
  EXPECT_EQ(std::string_view(SingleText(-0.5F)), "-0,5");
  EXPECT_EQ(std::string_view(SingleText(21.5F)), "21,5");
}

TEST(HelperTransformationsTest, LeadingNumbersAreReadWithAPointWhateverTheRegionalSettings) {
  const CommaLocale locale;
  if (!locale.IsInForce()) GTEST_SKIP() << "this C library takes no locale of ours";
  EXPECT_EQ(AmountFromText("1234.5").Scaled(), 12345000);
  EXPECT_EQ(AmountFromText("1234,5").Scaled(), 12340000);
  EXPECT_EQ(SingleFromText("1234.5"), 1234.5F);
  EXPECT_EQ(SingleFromText("1234,5"), 1234.0F);
}

TEST(HelperTransformationsTest, StrictNumbersAreReadWithTheRegionalSeparators) {
  const CommaLocale locale;
  if (!locale.IsInForce()) GTEST_SKIP() << "this C library takes no locale of ours";
  EXPECT_EQ(CurrencyFromText("1234,5").Scaled(), 12345000);
  EXPECT_EQ(CurrencyFromText("1.234,5").Scaled(), 12345000);
  EXPECT_ERROR(CurrencyFromText("1234,5.6"), 13, "ZevoAdapters11");
  EXPECT_EQ(IntegerFromText("1.234"), 1234);
}

TEST(HelperTransformationsTest, ASingleIsWrittenAsItsShortestText) {
  const struct {
    float value;
    std::string_view text;
  } kRows[] = {
      {0.0F, "0"},
      {-0.0F, "0"},
      {1.0F, "1"},
      {-1.0F, "-1"},
      {0.1F, "0.1"},
      {0.5F, "0.5"},
      {23.0F, "23"},
      {21.5F, "21.5"},
      {-21.55F, "-21.55"},
      {100.0F, "100"},
      {0.001F, "0.001"},
      {1234567.0F, "1234567"},
      {0.3333333F, "0.3333333"},
      {1e10F, "10000000000"},
      {1e-7F, "0.0000001"},
      {4194303.5F, "4194303.5"},
      {-16777215.0F, "-16777215"},
      {16777216.0F, "16777216"},
      {16777218.0F, "16777218"},
      {-33554432.0F, "-33554432"},
      {100000000.0F, "100000000"},
      {3.4028235e38F, "340282350000000000000000000000000000000"},
      {1e-45F, "0.000000000000000000000000000000000000000000001"},
      {-1.1754944e-38F, "-0.000000000000000000000000000000000000011754944"},
  };
  for (const auto& row : kRows) EXPECT_EQ(std::string_view(SingleText(row.value)), row.text);
}

TEST(HelperTransformationsTest, AWholeSingleIsWrittenAsThatNumber) {
  for (int number = -(1 << 24); number <= 1 << 24; number += 1009) {
    EXPECT_EQ(std::string_view(SingleText(static_cast<float>(number))), std::to_string(number));
  }
}

RC_GTEST_PROP(HelperTransformationsTest, ASingleReadsBackTheSameWithoutExponentOrJunk, ()) {
  const auto value = std::bit_cast<float>(*rc::gen::arbitrary<uint32_t>());
  RC_PRE(std::isfinite(value));
  const std::string text(std::string_view{SingleText(value)});
  RC_ASSERT(text.find_first_not_of("-.0123456789") == std::string::npos);
  RC_ASSERT(text.find('-', 1) == std::string::npos);
  const size_t first = text.starts_with('-') ? 1 : 0;
  const size_t point = text.find('.');
  RC_ASSERT(point != first && text.back() != '.');
  RC_ASSERT(text[first] != '0' || text.size() == first + 1 || point == first + 1);
  RC_ASSERT(point == std::string::npos || text.back() != '0');
  RC_ASSERT(std::strtof(text.c_str(), nullptr) == value);
  RC_ASSERT(SingleFromText(text) == value);
}

RC_GTEST_PROP(HelperTransformationsTest, NoShorterTextReadsBackTheSameSingle, ()) {
  const auto value = std::bit_cast<float>(*rc::gen::arbitrary<uint32_t>());
  RC_PRE(std::isfinite(value) && value != 0);
  const NumberText text = SingleText(value);
  std::string digits;
  for (const char c : std::string_view(text)) {
    if (c >= '0' && c <= '9') digits.push_back(c);
  }
  digits.erase(0, digits.find_first_not_of('0'));
  digits.erase(digits.find_last_not_of('0') + 1);
  if (digits.size() > 1) {
    char shorter[64];
    std::snprintf(shorter, sizeof(shorter), "%.*e", static_cast<int>(digits.size()) - 2, static_cast<double>(value));
    RC_ASSERT(std::strtof(shorter, nullptr) != value);
  }
}

TEST(HelperTransformationsTest, WhatIsNoNumberHasNoText) {
  for (const float value : {HUGE_VALF, -HUGE_VALF, std::nanf("")}) EXPECT_ERROR(SingleText(value), 5, "ZevoAdapters11");
}

TEST(HelperTransformationsTest, CountsAndFlagsAreWritten) {
  EXPECT_EQ(std::string_view(IntegerText(0)), "0");
  EXPECT_EQ(std::string_view(IntegerText(-12)), "-12");
  EXPECT_EQ(std::string_view(IntegerText(std::numeric_limits<int32_t>::max())), "2147483647");
  EXPECT_EQ(std::string_view(IntegerText(std::numeric_limits<int32_t>::min())), "-2147483648");
  EXPECT_EQ(FlagText(true), "1");
  EXPECT_EQ(FlagText(false), "0");
}

TEST(HelperTransformationsTest, ReadsTheNumberAtTheFrontOfAText) {
  const struct {
    std::string_view text;
    int64_t scaled;
    float single;
  } kRows[] = {
      {"", 0, 0.0F},
      {"   ", 0, 0.0F},
      {"abc", 0, 0.0F},
      {"x12", 0, 0.0F},
      {"12.34", 123400, 12.34F},
      {"  12.34  ", 123400, 12.34F},
      {"\t\r\n 7", 70000, 7.0F},
      {"12.34 EUR", 123400, 12.34F},
      {"12abc", 120000, 12.0F},
      {"12,5", 120000, 12.0F},
      {"1.2.3", 12000, 1.2F},
      {"-.5", -5000, -0.5F},
      {".50", 5000, 0.5F},
      {"-", 0, 0.0F},
      {".", 0, 0.0F},
      {"--5", 0, 0.0F},
      {"+5", 50000, 5.0F},
      {"5.", 50000, 5.0F},
      {"1e2", 1000000, 100.0F},
      {"1E-2x", 100, 0.01F},
      {"1e", 10000, 1.0F},
      {"1e+", 10000, 1.0F},
      {"inf", 0, 0.0F},
      {"nan", 0, 0.0F},
      {"1e-50", 0, 0.0F},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(AmountFromText(row.text).Scaled(), row.scaled) << row.text;
    EXPECT_EQ(SingleFromText(row.text), row.single) << row.text;
  }
}

TEST(HelperTransformationsTest, AReadAmountIsRoundedToFourDecimals) {
  EXPECT_EQ(AmountFromText("1.00004").Scaled(), 10000);
  EXPECT_EQ(AmountFromText("1.00005").Scaled(), 10001);
  EXPECT_EQ(AmountFromText("-1.00005").Scaled(), -10001);
  EXPECT_EQ(AmountFromText("922337203685477.5807").Scaled(), kGreatest);
  EXPECT_EQ(AmountFromText("-922337203685477.5808").Scaled(), kSmallest);
}

TEST(HelperTransformationsTest, ALeadingNumberThatDoesNotFitOverflows) {
  EXPECT_ERROR(AmountFromText("922337203685477.5808"), 6, "ZevoAdapters11");
  EXPECT_ERROR(AmountFromText("1e99"), 6, "ZevoAdapters11");
  EXPECT_ERROR(SingleFromText("1e39"), 6, "ZevoAdapters11");
  EXPECT_ERROR(SingleFromText("-99999999999999999999999999999999999999999"), 6, "ZevoAdapters11");
}

RC_GTEST_PROP(HelperTransformationsTest, APlainAmountReadsBackTheSame, (int64_t scaled)) {
  const Amount amount = Amount::FromScaled(scaled);
  const std::string text(std::string_view{AmountTextWithPoint(amount)});
  RC_ASSERT(AmountFromText(text) == amount);
  RC_ASSERT(Amount::FromText(text) == amount);
  RC_ASSERT(CurrencyFromText(text) == amount);
}

// A blank at an end changes nothing but the way that a number is read.
RC_GTEST_PROP(HelperTransformationsTest, BlanksBesideANumberDoNotMatter, ()) {
  const auto text = *rc::gen::container<std::string>(rc::gen::element('0', '1', '5', '9', '9', '9', '.', '-', 'e'));
  const auto outcome = [](auto&& read) -> std::pair<int32_t, int64_t> {
    try {
      return {0, read()};
    } catch (const Error& error) {
      return {error.Number(), 0};
    }
  };
  const auto same = [&](auto read) {
    const auto plain = outcome([&] { return read(text); });
    RC_ASSERT(outcome([&] { return read(text + " "); }) == plain);
    RC_ASSERT(outcome([&] { return read(" " + text); }) == plain);
  };
  same([](const std::string& number) { return AmountFromText(number).Scaled(); });
  same([](const std::string& number) { return CurrencyFromText(number).Scaled(); });
  same([](const std::string& number) { return int64_t{IntegerFromText(number)}; });
}

RC_GTEST_PROP(HelperTransformationsTest, TwoDecimalsAreWithinHalfAHundredth, (int64_t scaled)) {
  RC_PRE(scaled < kGreatest - 100 && scaled > kSmallest + 100);
  const int64_t read = AmountFromText(TwoDecimalsText(Amount::FromScaled(scaled))).Scaled();
  RC_ASSERT(read % 100 == 0);
  RC_ASSERT(std::llabs(read - scaled) <= 50);
}

struct StrictRow {
  std::string_view text;
  int64_t scaled;
};

TEST(HelperTransformationsTest, StrictCurrencyTakesAWholeTextThatIsANumber) {
  const StrictRow kRows[] = {
      {"12.5", 125000}, {" 12.5\n", 125000}, {"-3", -30000}, {"+3", 30000}, {".5", 5000},
      {"3.", 30000},    {"1e2", 1000000},    {"0", 0},       {"-0", 0},     {"922337203685477.5807", kGreatest},
  };
  for (const StrictRow& row : kRows) EXPECT_EQ(CurrencyFromText(row.text).Scaled(), row.scaled) << row.text;
}

TEST(HelperTransformationsTest, StrictConversionsRefuseOtherText) {
  for (const std::string_view text :
       {"", " ", "abc", "12x", "x12", "1 2", "1,5", "1.2.3", "-", ".", "1e", "--1", "½"}) {
    EXPECT_ERROR(CurrencyFromText(text), 13, "ZevoAdapters11");
    EXPECT_ERROR(IntegerFromText(text), 13, "ZevoAdapters11");
    EXPECT_ERROR(FlagFromText(text), 13, "ZevoAdapters11");
  }
}

TEST(HelperTransformationsTest, StrictConversionsRefuseWhatDoesNotFit) {
  EXPECT_ERROR(CurrencyFromText("922337203685477.5808"), 6, "ZevoAdapters11");
  for (const std::string_view text : {"2147483648", "-2147483649", "2147483647.5", "1e10", "99999999999999999999"}) {
    EXPECT_ERROR(IntegerFromText(text), 6, "ZevoAdapters11");
  }
}

TEST(HelperTransformationsTest, AnIntegerIsTheNearestWholeNumber) {
  const struct {
    std::string_view text;
    int32_t value;
  } kRows[] = {
      {"0", 0},
      {" 7 ", 7},
      {"-7", -7},
      {"2147483647", 2147483647},
      {"-2147483648", -2147483647 - 1},
      {"1.4", 1},
      {"1.6", 2},
      {"-1.6", -2},
      {"1e3", 1000},
      {"2147483647.4", 2147483647},
      {"0.49996", 0},
      {"-0.49996", 0},
      {"0007", 7},
  };
  for (const auto& row : kRows) EXPECT_EQ(IntegerFromText(row.text), row.value) << row.text;
}

TEST(HelperTransformationsTest, AFlagIsAWordOrANumber) {
  const struct {
    std::string_view text;
    bool value;
  } kRows[] = {
      {"True", true},   {"true", true}, {"TRUE", true}, {" True ", true}, {"False", false},
      {"fALSE", false}, {"1", true},    {"0", false},   {"-1", true},     {"2", true},
      {"0.0", false},   {"-0", false},  {" 1 ", true},  {"0.0001", true}, {"0.00001", true},
  };
  for (const auto& row : kRows) EXPECT_EQ(FlagFromText(row.text), row.value) << row.text;
}

TEST(HelperTransformationsTest, ARecognisedDateIsWrittenYearFirst) {
  const struct {
    std::string_view text;
    std::string_view date;
  } kRows[] = {
      {"2024-01-31", "2024-01-31"},           {"2024/01/31", "2024-01-31"},
      {"31-01-2024", "2024-01-31"},           {"31/01/2024", "2024-01-31"},
      {"05-06-2024", "2024-06-05"},           {"2024-02-29", "2024-02-29"},
      {"2000-02-29", "2000-02-29"},           {"29/02/2024", "2024-02-29"},
      {"0001-01-01", "0001-01-01"},           {"9999-12-31", "9999-12-31"},
      {"2024-12-31T23:59:59", "2024-12-31"},  {"2024-12-31 23:59:59", "2024-12-31"},
      {"2024/12/31 08:05", "2024-12-31"},     {"31-12-2024 23:59:59", "2024-12-31"},
      {"31/12/2024 00:00", "2024-12-31"},     {"2024-12-31T23:59:59.123", "2024-12-31"},
      {"2024-12-31T23:59:59Z", "2024-12-31"}, {"2024-12-31T23:59:59+01:00", "2024-12-31"},
      {"2024-12-31T23:59Z", "2024-12-31"},    {"2024-12-31T23:59:59.5-03:30", "2024-12-31"},
  };
  for (const auto& row : kRows) EXPECT_EQ(DateText(row.text), row.date) << row.text;
}

TEST(HelperTransformationsTest, OtherTextComesBackUnchanged) {
  for (const std::string_view text : {"",
                                      " ",
                                      "hoje",
                                      "2024",
                                      "2024-01",
                                      "20240131",
                                      "2024-1-31",
                                      "1-1-2024",
                                      "2024-13-01",
                                      "2024-00-01",
                                      "2024-01-00",
                                      "2024-01-32",
                                      "2024-04-31",
                                      "2023-02-29",
                                      "1900-02-29",
                                      "2100-02-29",
                                      "2024-02-30",
                                      "0000-01-01",
                                      "31-13-2024",
                                      "30/02/2024",
                                      "01/31/2024",
                                      "2024-01/31",
                                      "2024.01.31",
                                      "2024-01-31x",
                                      "x2024-01-31",
                                      "2024-01-31T",
                                      "2024-01-31 24:00",
                                      "2024-01-31 12:60",
                                      "2024-01-31T12:00:60",
                                      "2024-01-31 noon",
                                      "2024-01-31T12-00",
                                      "2024-01-31T1x:00",
                                      "2024-01-31T12:0",
                                      "2024-01-31T12:00:",
                                      "2024-01-31T12:00:0",
                                      "2024-01-31T12:00:00.",
                                      "2024-01-31T12:00:00.x",
                                      "2024-01-31T12:00:00 Z",
                                      "2024-01-31T12:00:00+1:00",
                                      "2024-01-31T12:00:00*01:00",
                                      "2024-01-31T12:00:00+01-00",
                                      "2024-01-31T12:00:00+24:00",
                                      "2024-01-31T12:00:00+01:60",
                                      "-024-01-31",
                                      "2024-+1-31",
                                      "31-01-24",
                                      "12:30:00",
                                      "2024-01-310",
                                      "99/99/9999"}) {
    EXPECT_EQ(DateText(text), text);
  }
}

TEST(HelperTransformationsTest, EscapesTheFourCharactersThatStandForMarkup) {
  const struct {
    std::string_view text;
    std::string_view escaped;
  } kRows[] = {
      {"", ""},
      {"Pão & Vinho", "Pão &amp; Vinho"},
      {"a<b>c", "a&lt;b&gt;c"},
      {"\"x\"", "&quot;x&quot;"},
      {"it's", "it's"},
      {"&amp;", "&amp;amp;"},
      {"&lt;", "&amp;lt;"},
      {"&quot;", "&amp;quot;"},
      {"&&", "&amp;&amp;"},
      {"<&>\"", "&lt;&amp;&gt;&quot;"},
  };
  for (const auto& row : kRows) EXPECT_EQ(Escape(row.text), row.escaped);
}

TEST(HelperTransformationsTest, UnescapesOneLevelInItsOrder) {
  const struct {
    std::string_view text;
    std::string_view unescaped;
  } kRows[] = {
      {"", ""},
      {"a &amp; b", "a & b"},
      {"&lt;b&gt;", "<b>"},
      {"&quot;x&quot;", "\"x\""},
      {"&amp;lt;", "&lt;"},
      {"&amp;gt;", "&gt;"},
      {"&amp;amp;", "&amp;"},
      {"&amp;amp;lt;", "&amp;lt;"},
      // The quote is the last: what an ampersand leaves behind is still looked at.
      {"&amp;quot;", "\""},
      {"&amp;amp;quot;", "&amp;quot;"},
      {"&apos;&#65;", "&apos;&#65;"},
      {"&lt", "&lt"},
      {"&LT;", "&LT;"},
      {"&&amp;", "&&"},
      {"&am&amp;p;", "&am&p;"},
      {"&qu&amp;ot;", "&qu&ot;"},
  };
  for (const auto& row : kRows) EXPECT_EQ(Unescape(row.text), row.unescaped) << row.text;
}

std::string WithQuotesForReferences(std::string text) {
  constexpr std::string_view kReference = "&quot;";
  for (size_t at = text.find(kReference); at != std::string::npos; at = text.find(kReference, at + 1)) {
    text.replace(at, kReference.size(), "\"");
  }
  return text;
}

// Only a quote that the text itself spells as a reference does not come back.
RC_GTEST_PROP(HelperTransformationsTest, UnescapingUndoesEscapingButForQuotesSpelledAsReferences, ()) {
  const auto pieces = *rc::gen::container<std::vector<std::string>>(rc::gen::element<std::string>(
      "&", "<", ">", "\"", "'", "amp;", "quot;", "lt;", "gt;", "&amp;", "&quot;", "&lt;", "&q", "uot;", "a", "ã", " "));
  std::string text;
  for (const std::string& piece : pieces) text += piece;
  RC_ASSERT(Unescape(Escape(text)) == WithQuotesForReferences(text));
}

RC_GTEST_PROP(HelperTransformationsTest, EscapedTextHoldsNoMarkup, (const std::string& text)) {
  RC_ASSERT(Escape(text).find_first_of("<>\"") == std::string::npos);
}

}  // namespace
}  // namespace zevo
