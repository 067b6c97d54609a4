// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <zevo/model/Decimal.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "tests/support/Errors.h"
#include "tests/support/ProcessorTime.h"

namespace zevo {

void PrintTo(const Decimal& number, std::ostream* out) { *out << number.Text(); }

namespace {

static_assert(std::is_nothrow_move_constructible_v<Decimal> && std::is_nothrow_move_assignable_v<Decimal>);
static_assert(std::is_convertible_v<int, Decimal> && std::is_convertible_v<uint64_t, Decimal>);
static_assert(!std::is_constructible_v<Decimal, double> && !std::is_constructible_v<Decimal, bool>);

Decimal Of(std::string_view text) {
  const auto number = Decimal::FromText(text);
  EXPECT_TRUE(number) << text;
  return number.value_or(Decimal());
}

std::string Nines(size_t count) { return std::string(count, '9'); }

TEST(DecimalTest, IsReadAndWrittenShortest) {
  const struct {
    std::string_view text;
    std::string_view shortest;
    size_t decimals;
  } kRows[] = {
      {"0", "0", 0},
      {"-0", "0", 0},
      {"-0.000", "0", 0},
      {"+0", "0", 0},
      {"12.340", "12.34", 2},
      {"-12.340", "-12.34", 2},
      {"+.5", "0.5", 1},
      {"-.5", "-0.5", 1},
      {"7.", "7", 0},
      {"007", "7", 0},
      {"100", "100", 0},
      {" \t\r\n1.5\n ", "1.5", 1},
      {"0.000000001", "0.000000001", 9},
      {"999999999999999999", "999999999999999999", 0},
      {"-0.999999999999999999", "-0.999999999999999999", 18},
      {"1000000000000000000", "1000000000000000000", 0},
      {"-9223372036854775808", "-9223372036854775808", 0},
      {"9223372036854775807", "9223372036854775807", 0},
      {"18446744073709551616", "18446744073709551616", 0},
      {"0.0000000000000000001", "0.0000000000000000001", 19},
      {"123456789012345678901234567890.098765432109876543210", "123456789012345678901234567890.09876543210987654321",
       20},
      {"100000000000000000000000000000000000000000000", "100000000000000000000000000000000000000000000", 0},
      {"00000000000000000000000000000000000000000001.50000000000000000000000000000", "1.5", 1},
      {"-00000000000000000000000000000000.0000000000000000000000000000", "0", 0},
      {"00000000000000000000", "0", 0},
  };
  for (const auto& row : kRows) {
    const Decimal number = Of(row.text);
    EXPECT_EQ(number.Text(), row.shortest) << row.text;
    EXPECT_EQ(number.Decimals(), row.decimals) << row.text;
    EXPECT_EQ(number.IsZero(), row.shortest == "0") << row.text;
    EXPECT_EQ(number.IsNegative(), row.shortest[0] == '-') << row.text;
  }
}

TEST(DecimalTest, OtherTextsAreNoNumbers) {
  for (const std::string_view text : {"",
                                      " ",
                                      ".",
                                      "+",
                                      "-",
                                      "-.",
                                      "+-1",
                                      "--1",
                                      "1-",
                                      "1,5",
                                      "1.5.",
                                      "1..5",
                                      "12x",
                                      "x12",
                                      "1e5",
                                      "0x10",
                                      "1 000",
                                      "1\u00A0",
                                      "\u00A01",
                                      "INF",
                                      "NaN",
                                      "- 1",
                                      "1000000000000000000x",
                                      "1000000000000000000.0.0",
                                      "1000000000000000000 0",
                                      "....................",
                                      "--------------------1",
                                      "-+100000000000000000000"}) {
    EXPECT_FALSE(Decimal::FromText(text)) << text;
  }
  EXPECT_FALSE(Decimal::FromText(std::string_view("1\0", 2)));
}

TEST(DecimalTest, IsMadeOfWholeNumbers) {
  EXPECT_EQ(Decimal().Text(), "0");
  EXPECT_EQ(Decimal(-5).Text(), "-5");
  EXPECT_EQ(Decimal(999'999'999'999'999'999).Text(), "999999999999999999");
  EXPECT_EQ(Decimal(1'000'000'000'000'000'000).Text(), "1000000000000000000");
  EXPECT_EQ(Decimal(std::numeric_limits<int64_t>::max()).Text(), "9223372036854775807");
  EXPECT_EQ(Decimal(std::numeric_limits<int64_t>::min()).Text(), "-9223372036854775808");
  EXPECT_EQ(Decimal(std::numeric_limits<uint64_t>::max()).Text(), "18446744073709551615");
}

TEST(DecimalTest, IsCopiedAndMoved) {
  const std::string text = "123456789012345678901234567890.5";
  Decimal number = Of(text);
  Decimal copy = number;
  copy += 1;
  EXPECT_EQ(number.Text(), text);
  EXPECT_EQ(copy.Text(), "123456789012345678901234567891.5");
  copy = 7;
  EXPECT_EQ(copy.Text(), "7");
  copy = number;
  EXPECT_EQ(copy.Text(), text);
  const Decimal& self = copy;
  copy = self;
  EXPECT_EQ(copy.Text(), text);
  const Decimal moved = std::move(number);
  EXPECT_EQ(moved.Text(), text);
  number = 3;
  EXPECT_EQ(number.Text(), "3");
}

TEST(DecimalTest, AddsAndSubtractsExactly) {
  const struct {
    std::string_view left;
    std::string_view right;
    std::string_view sum;
    std::string_view difference;
  } kRows[] = {
      {"0.1", "0.2", "0.3", "-0.1"},
      {"1", "0.0001", "1.0001", "0.9999"},
      {"0.5", "0.5", "1", "0"},
      {"999999999999999999", "1", "1000000000000000000", "999999999999999998"},
      {"-999999999999999999", "1", "-999999999999999998", "-1000000000000000000"},
      {"999999999999999999", "0.1", "999999999999999999.1", "999999999999999998.9"},
      {"9223372036854775807", "1", "9223372036854775808", "9223372036854775806"},
      {"-9223372036854775808", "1", "-9223372036854775807", "-9223372036854775809"},
      {"1000000000000000000", "-1", "999999999999999999", "1000000000000000001"},
      {"0.000000000000000000000000001", "1", "1.000000000000000000000000001", "-0.999999999999999999999999999"},
      {"1000000000000000000000000000", "1000000000000000000000000000.0001", "2000000000000000000000000000.0001",
       "-0.0001"},
      {"0.999999999999999999999999999", "0.000000000000000000000000001", "1", "0.999999999999999999999999998"},
      {"999999999999999999999999999999", "1", "1000000000000000000000000000000", "999999999999999999999999999998"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ((Of(row.left) + Of(row.right)).Text(), row.sum) << row.left;
    EXPECT_EQ((Of(row.right) + Of(row.left)).Text(), row.sum) << row.left;
    EXPECT_EQ((Of(row.left) - Of(row.right)).Text(), row.difference) << row.left;
    EXPECT_EQ((-(Of(row.right) - Of(row.left))).Text(), row.difference) << row.left;
  }
}

TEST(DecimalTest, ANumberIsAddedToItself) {
  for (const std::string_view text : {"1.5", "123456789012345678901234567890.5"}) {
    Decimal number = Of(text);
    const Decimal& self = number;
    number += self;
    EXPECT_EQ(number, Of(text) * 2);
    number -= self;
    EXPECT_TRUE(number.IsZero());
    EXPECT_EQ(number.Text(), "0");
  }
}

TEST(DecimalTest, IsComparedByValue) {
  EXPECT_EQ(Of("1.5"), Of("1.50"));
  EXPECT_EQ(Of("100000000000000000000") - Of("99999999999999999999"), 1);
  EXPECT_EQ(Of("0.50000000000000000000001") - Of("0.00000000000000000000001"), Of("0.5"));
  // Each is less than the next.
  const std::string_view kInOrder[] = {"-100000000000000000000",
                                       "-99999999999999999999.9",
                                       "-10",
                                       "-1.01",
                                       "-1.00000000000000000001",
                                       "-1",
                                       "-0.00000000000000000001",
                                       "0",
                                       "0.00000000000000000001",
                                       "0.5",
                                       "1",
                                       "1.1",
                                       "999999999999999999",
                                       "999999999999999999.5",
                                       "1000000000000000000",
                                       "100000000000000000000"};
  for (size_t i = 0; i < std::size(kInOrder); ++i) {
    for (size_t j = 0; j < std::size(kInOrder); ++j) {
      EXPECT_EQ(Of(kInOrder[i]) <=> Of(kInOrder[j]), i <=> j) << kInOrder[i] << ' ' << kInOrder[j];
      EXPECT_EQ(Of(kInOrder[i]) == Of(kInOrder[j]), i == j) << kInOrder[i] << ' ' << kInOrder[j];
    }
  }
}

TEST(DecimalTest, MultipliesExactly) {
  const struct {
    std::string_view left;
    std::string_view right;
    std::string_view product;
  } kRows[] = {
      {"1.5", "1.5", "2.25"},
      {"-12.34", "100", "-1234"},
      {"0", "-5", "0"},
      {"999999999", "999999999", "999999998000000001"},
      {"999999999999999999", "999999999999999999", "999999999999999998000000000000000001"},
      {"-0.000000000000000001", "0.000000000000000001", "-0.000000000000000000000000000000000001"},
      {"0.0000000005", "2000000000", "1"},
      {"123456789.987654321", "-1", "-123456789.987654321"},
      {"4294967296", "4294967296", "18446744073709551616"},
      {"1000000000000000000", "0.000000000000000001", "1"},
      {"0.1234567890123", "0.1234567890123", "0.01524157875322755800955129"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ((Of(row.left) * Of(row.right)).Text(), row.product) << row.left;
    EXPECT_EQ((Of(row.right) * Of(row.left)).Text(), row.product) << row.left;
  }
}

TEST(DecimalTest, AFactorHasTenThousandDigitsAtMost) {
  const Decimal most = Of(Nines(5000) + "." + Nines(5000));
  EXPECT_EQ((most * 2).Text(), "1" + Nines(5000) + "." + Nines(4999) + "8");
  EXPECT_EQ((most * most).Decimals(), 10'000U);
  for (const Decimal& more : {Of(Nines(5001) + "." + Nines(5000)), Of("0." + std::string(10'000, '0') + "1"),
                              Of("1" + std::string(10'000, '0'))}) {
    EXPECT_ERROR(static_cast<void>(more * 2), RunTimeError::kOverflow, kRunTimeSource);
    EXPECT_ERROR(static_cast<void>(0 * more), RunTimeError::kOverflow, kRunTimeSource);
  }
}

TEST(DecimalTest, RoundsHalvesAwayFromZero) {
  const struct {
    std::string_view text;
    int decimals;
    std::string_view rounded;
  } kRows[] = {
      {"1.005", 2, "1.01"},
      {"1.00499", 2, "1"},
      {"-1.005", 2, "-1.01"},
      {"-0.004", 2, "0"},
      {"0.5", 0, "1"},
      {"-0.5", 0, "-1"},
      {"0.4999", 0, "0"},
      {"1.5", 2, "1.5"},
      {"999999999999999999", 0, "999999999999999999"},
      {"99999999999999999.9", 0, "100000000000000000"},
      {"0.999999999999999999", 17, "1"},
      {"0.0000000000000000000000005", 24, "0.000000000000000000000001"},
      {"0.0000000000000000000000005", 25, "0.0000000000000000000000005"},
      {"0.0000000000000000000000005", 18, "0"},
      {"0.9999999999999999999999999", 9, "1"},
      {"0.9999999999999999999999999", 2, "1"},
      {"0.9999999999999999999999999", 0, "1"},
      {"-99999999999999999999.9999999999999999999999999", 18, "-100000000000000000000"},
      {"0.123456789512345678901234567", 9, "0.12345679"},
      {"0.123456789499999999999999999", 9, "0.123456789"},
      {"123456789012345678901.5", 0, "123456789012345678902"},
      {"123456789012345678901.25", 1, "123456789012345678901.3"},
      {"123456789012345678901.25", 100, "123456789012345678901.25"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(Of(row.text).RoundedTo(row.decimals).Text(), row.rounded) << row.text << ' ' << row.decimals;
  }
  EXPECT_ERROR(static_cast<void>(Decimal(1).RoundedTo(-1)), RunTimeError::kInvalidCall, kRunTimeSource);
}

// Ten million digits, and a million additions whose carries could go through all of them: in time by the square they
// would take hours.
TEST(DecimalTest, IsCountedInUnits) {
  EXPECT_EQ(Of("12.34").InUnits(2), 1234);
  EXPECT_EQ(Of("-12.34").InUnits(6), -12'340'000);
  EXPECT_EQ(Of("12.3400000").InUnits(2), 1234);
  EXPECT_EQ(Of("12.345").InUnits(2), std::nullopt);
  EXPECT_EQ(Of("7").InUnits(0), 7);
  EXPECT_EQ(Of("0").InUnits(1000), 0);
  EXPECT_EQ(Of("1").InUnits(1000), std::nullopt);
  EXPECT_EQ(Of("999999999999.999999").InUnits(6), 999'999'999'999'999'999);
  EXPECT_EQ(Of("1000000000000").InUnits(6), std::nullopt);
  EXPECT_EQ(Of("12345678901234567890").InUnits(0), std::nullopt);
  EXPECT_EQ(Of("1").InUnits(-1), std::nullopt);
  EXPECT_EQ(Decimal::OfUnits(-1234, 2).Text(), "-12.34");
  EXPECT_EQ(Decimal::OfUnits(std::numeric_limits<int64_t>::max(), 18).Text(), "9.223372036854775807");
  EXPECT_THROW(Decimal::OfUnits(1, -1), Error);
  EXPECT_THROW(Decimal::OfUnits(1, 19), Error);
}

TEST(DecimalTest, TakesTimeInProportionToTheDigits) {
  constexpr size_t kDigits = 10'000'000;
  constexpr int kAdditions = 500'000;
  const std::string text = Nines(kDigits) + "." + Nines(18);
  std::string after;
  const double seconds = testing::ProcessorSeconds([&] {
    Decimal number = Of(text);
    const Decimal least = Of("0.000000000000000001");
    for (int i = 0; i < kAdditions; ++i) {
      number += least;
      number -= least;
    }
    number += Of(text);
    number -= Of(text);
    after = number.Text();
  });
  EXPECT_TRUE(after == text);
  EXPECT_LT(seconds, 30);
}

// The arithmetic of school, digit by digit: all numbers have so many digits behind the point.
constexpr size_t kPoint = 70;

struct Plain {
  bool negative = false;
  std::string digits;  // the least first

  void Trim() {
    while (!digits.empty() && digits.back() == '0') digits.pop_back();
  }
};

Plain PlainOf(std::string_view text, size_t point = kPoint) {
  Plain number{text.starts_with('-'), {}};
  if (number.negative) text.remove_prefix(1);
  const std::string_view whole = text.substr(0, text.find('.'));
  std::string fraction(text.substr(std::min(text.size(), whole.size() + 1)));
  fraction.resize(point, '0');
  number.digits.append(fraction.rbegin(), fraction.rend()).append(whole.rbegin(), whole.rend());
  number.Trim();
  return number;
}

std::string TextOf(Plain number, size_t point = kPoint) {
  number.digits.resize(std::max(number.digits.size(), point + 1), '0');
  std::string text(number.digits.rbegin(), number.digits.rend());
  text.insert(text.size() - point, ".");
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  text.erase(0, std::min(text.find_first_not_of('0'), text.size() - 1));
  if (text[0] == '.') text.insert(0, "0");
  return number.negative && text != "0" ? "-" + text : text;
}

int At(const Plain& number, size_t i) { return i < number.digits.size() ? number.digits[i] - '0' : 0; }

bool IsLess(const Plain& left, const Plain& right) {  // by magnitude
  if (left.digits.size() != right.digits.size()) return left.digits.size() < right.digits.size();
  return std::lexicographical_compare(left.digits.rbegin(), left.digits.rend(), right.digits.rbegin(),
                                      right.digits.rend());
}

Plain Sum(const Plain& left, const Plain& right) {
  if (left.negative != right.negative && IsLess(left, right)) return Sum(right, left);
  const int sign = left.negative == right.negative ? 1 : -1;
  Plain sum{left.negative, {}};
  int carry = 0;
  for (size_t i = 0; i <= std::max(left.digits.size(), right.digits.size()); ++i) {
    const int digit = At(left, i) + sign * At(right, i) + carry;
    carry = digit > 9 ? 1 : (digit < 0 ? -1 : 0);
    sum.digits += static_cast<char>('0' + digit - 10 * carry);
  }
  sum.Trim();
  return sum;
}

Plain Times(const Plain& left, const Plain& right) {
  Plain product{left.negative != right.negative, std::string(left.digits.size() + right.digits.size(), '0')};
  for (size_t i = 0; i < left.digits.size(); ++i) {
    int carry = 0;
    for (size_t j = 0; i + j < product.digits.size(); ++j) {
      carry += At(product, i + j) + At(left, i) * At(right, j);
      product.digits[i + j] = static_cast<char>('0' + carry % 10);
      carry /= 10;
    }
  }
  product.Trim();
  return product;
}

Plain Rounded(Plain number, size_t decimals) {
  const size_t dropped = kPoint - decimals;
  const bool up = dropped > 0 && At(number, dropped - 1) >= 5;
  for (size_t i = 0; i < std::min(dropped, number.digits.size()); ++i) number.digits[i] = '0';
  number.Trim();
  if (!up) return number;
  return Sum(number, {number.negative, std::string(dropped, '0') + "1"});
}

// Of any length, often with runs of zeros and nines and near a border between lengths.
std::string ArbitraryText() {
  const auto part = [](int most) {
    std::string digits;
    const int length = *rc::gen::element(0, 1, 2, 4, 8, 9, 10, 17, 18, 19, 27, 28, 36, most);
    while (static_cast<int>(digits.size()) < length) {
      const char digit = *rc::gen::element('0', '9', '0', '9', '1', '4', '5', '7');
      digits.append(static_cast<size_t>(*rc::gen::inRange(1, 10)), digit);
    }
    return digits.substr(0, static_cast<size_t>(length));
  };
  std::string text = *rc::gen::element<std::string>("-", "");
  const std::string whole = part(60);
  text.append(whole.empty() ? "0" : whole);
  if (const std::string fraction = part(static_cast<int>(kPoint)); !fraction.empty()) text.append(".").append(fraction);
  return text;
}

std::strong_ordering Ordering(const Plain& left, const Plain& right) {
  const std::string difference = TextOf(Sum(left, {!right.negative, right.digits}));
  return difference == "0" ? std::strong_ordering::equal
                           : (difference[0] == '-' ? std::strong_ordering::less : std::strong_ordering::greater);
}

RC_GTEST_PROP(DecimalPropertyTest, CalculatesAsSchoolDoes, ()) {
  const std::string leftText = ArbitraryText();
  const std::string rightText = ArbitraryText();
  const Decimal left = Of(leftText);
  const Decimal right = Of(rightText);
  const Plain plainLeft = PlainOf(leftText);
  const Plain plainRight = PlainOf(rightText);
  RC_ASSERT(left.Text() == TextOf(plainLeft));
  RC_ASSERT((left + right).Text() == TextOf(Sum(plainLeft, plainRight)));
  RC_ASSERT((left - right).Text() == TextOf(Sum(plainLeft, {!plainRight.negative, plainRight.digits})));
  RC_ASSERT((left <=> right) == Ordering(plainLeft, plainRight));
  RC_ASSERT((left * right).Text() == TextOf(Times(plainLeft, plainRight), 2 * kPoint));
  const int decimals = *rc::gen::inRange(0, static_cast<int>(kPoint) + 1);
  RC_ASSERT(left.RoundedTo(decimals).Text() == TextOf(Rounded(plainLeft, static_cast<size_t>(decimals))));
  const std::string text = left.Text();
  RC_ASSERT(left.Decimals() == (text.find('.') == std::string::npos ? 0 : text.size() - text.find('.') - 1));
}

// One sum through many additions and subtractions: what its limbs are does not show.
RC_GTEST_PROP(DecimalPropertyTest, ALongSumStaysExact, ()) {
  Decimal sum;
  Plain plain;
  for (int i = *rc::gen::inRange(1, 40); i > 0; --i) {
    const std::string text = ArbitraryText();
    Plain addend = PlainOf(text);
    if (*rc::gen::arbitrary<bool>()) {
      sum += Of(text);
    } else {
      sum -= Of(text);
      addend.negative = !addend.negative;
    }
    plain = Sum(plain, addend);
    RC_ASSERT(sum.IsZero() == (TextOf(plain) == "0"));
    RC_ASSERT(sum.IsNegative() == (TextOf(plain)[0] == '-'));
    RC_ASSERT(sum == Of(TextOf(plain)));
    const size_t decimals = sum.Decimals();
    RC_ASSERT(sum.Text() == TextOf(plain));
    const size_t point = TextOf(plain).find('.');
    RC_ASSERT(decimals == (point == std::string::npos ? 0 : TextOf(plain).size() - point - 1));
    RC_ASSERT(sum.RoundedTo(2).Text() == TextOf(Rounded(plain, 2)));
    RC_ASSERT((sum * 3).Text() == TextOf(Sum(plain, Sum(plain, plain))));
  }
}

}  // namespace
}  // namespace zevo
