// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/internal/DecimalNumber.h>

#include <string>
#include <string_view>

#include "tests/support/Errors.h"

namespace zevo {
namespace {

constexpr DecimalNumber::Form kPlain = {};
constexpr DecimalNumber::Form kExponent = {.separator = ".", .thousands = {}, .exponent = true};
constexpr DecimalNumber::Form kPortuguese = {.separator = ",", .thousands = ".", .exponent = false};

struct Row {
  std::string_view text;
  DecimalNumber::Form form;
  size_t length;
  int64_t scaled;
};

TEST(DecimalNumberTest, TakesWhatContinuesTheNumber) {
  const Row kRows[] = {
      {"", kPlain, 0, 0},
      {"x1", kPlain, 0, 0},
      {"-", kPlain, 0, 0},
      {".", kPlain, 0, 0},
      {"12", kPlain, 2, 120000},
      {"12x", kPlain, 2, 120000},
      {"-12.5.5", kPlain, 5, -125000},
      {"+.5", kPlain, 3, 5000},
      {"5.", kPlain, 2, 50000},
      {"5.x", kPlain, 2, 50000},
      {"5..", kPlain, 2, 50000},
      {"1-2", kPlain, 1, 10000},
      {"1e3", kPlain, 1, 10000},
      {"1e3", kExponent, 3, 10000000},
      {"1E+3", kExponent, 4, 10000000},
      {"12e-1", kExponent, 5, 12000},
      {"1e", kExponent, 1, 10000},
      {"1e+", kExponent, 1, 10000},
      {"1ex", kExponent, 1, 10000},
      {"0.5e1.5", kExponent, 5, 50000},
      {"0e999999999", kExponent, 11, 0},
      {"1e-999999999999999999999", kExponent, 24, 0},
      {"1.234,5", kPortuguese, 7, 12345000},
      {"1.2.3,4", kPortuguese, 7, 1234000},
      {"1..2", kPortuguese, 1, 10000},
      {".5", kPortuguese, 0, 0},
      {"1,2.3", kPortuguese, 3, 12000},
  };
  for (const Row& row : kRows) {
    const DecimalNumber number(row.text, row.form);
    EXPECT_EQ(number.Length(), row.length) << row.text;
    EXPECT_EQ(number.HasDigits(), row.length > 0) << row.text;
    EXPECT_EQ(number.ToAmount().Scaled(), row.scaled) << row.text;
  }
}

TEST(DecimalNumberTest, RoundsHalvesAwayFromZeroAtTheFourthDecimal) {
  const Row kRows[] = {
      {"1.00004999999999999999999999999999999999999999999999", kPlain, 52, 10000},
      {"1.00005", kPlain, 7, 10001},
      {"-1.00005", kPlain, 8, -10001},
      {"0.00009999", kPlain, 10, 1},
      {"5e-5", kExponent, 4, 1},
      {"4.9e-5", kExponent, 6, 0},
      {"9.99995", kPlain, 7, 100000},
  };
  for (const Row& row : kRows) {
    const DecimalNumber number(row.text, row.form);
    EXPECT_EQ(number.Length(), row.length) << row.text;
    EXPECT_EQ(number.ToAmount().Scaled(), row.scaled) << row.text;
  }
}

TEST(DecimalNumberTest, TellsAWholePart) {
  const struct {
    std::string_view text;
    bool whole;
  } kRows[] = {{"1", true},      {"0.9", false},  {"0", false},        {"", false},
               {"0.1e1", true},  {"10e-1", true}, {"10e-2", false},    {"000.000", false},
               {"1e-50", false}, {"1e50", true},  {"0.000001e6", true}};
  for (const auto& row : kRows) EXPECT_EQ(DecimalNumber(row.text, kExponent).HasWholePart(), row.whole) << row.text;
}

TEST(DecimalNumberTest, LeadingZerosOfAnyNumberDoNotCount) {
  EXPECT_EQ(DecimalNumber(std::string(100, '0') + "12.5", kPlain).ToAmount().Scaled(), 125000);
  EXPECT_EQ(DecimalNumber("0." + std::string(100, '0') + "1e101", kExponent).ToAmount().Scaled(), 10000);
}

TEST(DecimalNumberTest, WhatDoesNotFitOverflows) {
  for (const std::string_view text :
       {"922337203685477.5808", "1e15", "-1e15", "1e999999999", "1e99999999999999999999999", "922337203685477.58075"}) {
    EXPECT_ERROR(DecimalNumber(text, kExponent).ToAmount(), 6, "ZevoAdapters11");
  }
}

}  // namespace
}  // namespace zevo
