// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/Error.h>
#include <zevo/model/Invoice.h>
#include <zevo/model/PropertyText.h>

#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "tests/model/CommaLocale.h"
#include "tests/support/Errors.h"

namespace zevo {
namespace {

constexpr Property kText{.name = "Text", .type = PropertyType::kText};
constexpr Property kAmount{.name = "Amount", .type = PropertyType::kAmount};
constexpr Property kFlag{.name = "Flag", .type = PropertyType::kFlag};
constexpr Property kCount{.name = "Count", .type = PropertyType::kCount};
constexpr Property kSingle{.name = "Single", .type = PropertyType::kSingle};
constexpr Property kCode{.name = "Code", .type = PropertyType::kCode, .codes = &CodesOf<InvoiceTypes>};

struct Row {
  const Property& property;
  PropertyValue value;
  std::string_view text;
};

std::vector<Row> Rows() {
  return {
      {kText, "", ""},
      {kText, " São \n", " São \n"},
      {kAmount, Amount(), "0"},
      {kAmount, Amount::FromScaled(-125'000), "-12.5"},
      {kAmount, Amount::FromScaled(std::numeric_limits<int64_t>::max()), "922337203685477.5807"},
      {kAmount, Amount::FromScaled(std::numeric_limits<int64_t>::min()), "-922337203685477.5808"},
      {kFlag, false, "0"},
      {kFlag, true, "1"},
      {kCount, std::numeric_limits<int32_t>::max(), "2147483647"},
      {kCount, std::numeric_limits<int32_t>::min(), "-2147483648"},
      {kSingle, 0.0F, "0"},
      {kSingle, 6.5F, "6.5"},
      {kSingle, -0.05F, "-0.05"},
      {kSingle, 0.123456789F, "0.12345679"},
      {kSingle, 16777217.0F, "16777216"},
      {kSingle, 1e12F, "1000000000000"},
      {kSingle, 1e-30F, "0.000000000000000000000000000001"},
      {kSingle, std::numeric_limits<float>::max(), "340282350000000000000000000000000000000"},
      {kCode, static_cast<int32_t>(itFT), "FT"},
      {kCode, static_cast<int32_t>(itRA), "RA"},
  };
}

void ExpectTextsOfValues() {
  for (const Row& row : Rows()) {
    EXPECT_EQ(TextFromValue(row.property, row.value), row.text);
    EXPECT_EQ(ValueFromText(row.property, row.text), row.value) << row.property.name << " " << row.text;
  }
}

TEST(PropertyTextTest, AValueAndItsTextGiveEachOther) { ExpectTextsOfValues(); }

TEST(PropertyTextTest, RegionalSettingsMakeNoDifference) {
  const testing::CommaLocale locale;
  if (!locale.IsInForce()) GTEST_SKIP() << "this C library takes no locale of ours";
  ExpectTextsOfValues();
}

TEST(PropertyTextTest, ACodeOfNoEnumerationIsEmpty) {
  EXPECT_EQ(TextFromValue(kCode, int32_t{0}), "");
  EXPECT_EQ(TextFromCode(CodesOf<InvoiceTypes>(), 0), "");
}

TEST(PropertyTextTest, AnAmountIsRoundedToFourDecimals) {
  EXPECT_EQ(ValueFromText(kAmount, "0.00005"), PropertyValue(Amount::FromScaled(1)));
}

TEST(PropertyTextTest, ATextThatTellsNoValueIsError13) {
  const struct {
    const Property& property;
    std::vector<std::string_view> texts;
  } kRows[] = {
      {kAmount, {"", "12,5", "1.000,00", " 1", "1 ", "1e3", "5 0", "1€"}},
      {kFlag, {"", "2", "true", "00", " 1"}},
      {kCount, {"", "1.0", "+1", " 1", "um", "1e3"}},
      {kSingle, {"", "23,0", "23%", " 1", "nan", "inf", "-inf", "1e3"}},
      {kCode, {"", "ft", "XX", "49", " FT"}},
  };
  for (const auto& row : kRows) {
    for (const std::string_view text : row.texts) {
      SCOPED_TRACE(std::string(row.property.name).append(" ").append(text));
      EXPECT_ERROR(ValueFromText(row.property, text), RunTimeError::kTypeMismatch, kRunTimeSource);
    }
  }
}

TEST(PropertyTextTest, ANumberOutOfRangeIsError6) {
  const struct {
    const Property& property;
    std::string text;
  } kRows[] = {
      {kAmount, "922337203685477.5808"},
      {kCount, "2147483648"},
      {kSingle, "1" + std::string(39, '0')},
  };
  for (const auto& row : kRows) {
    EXPECT_ERROR(ValueFromText(row.property, row.text), RunTimeError::kOverflow, kRunTimeSource);
  }
}

TEST(PropertyTextTest, WhatIsNoNumberHasNoText) {
  for (const float value : {HUGE_VALF, -HUGE_VALF, std::nanf("")}) {
    EXPECT_ERROR(TextFromSingle(value), RunTimeError::kInvalidCall, kRunTimeSource);
  }
}

TEST(PropertyTextTest, RecordsAndCollectionsAreNotPlain) {
  std::vector<std::string_view> others;
  for (const Property& property : PropertiesOf<Invoice>()) {
    if (!IsPlain(property)) others.push_back(property.name);
  }
  EXPECT_EQ(others, (std::vector<std::string_view>{"ShipTo", "ShipFrom", "DocumentTotals", "Line"}));
}

}  // namespace
}  // namespace zevo
