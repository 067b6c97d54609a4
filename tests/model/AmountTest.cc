// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>
#include <zevo/model/Amount.h>
#include <zevo/model/SAFTConstants.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "tests/model/CommaLocale.h"
#include "tests/support/Errors.h"

namespace zevo {
namespace {

using testing::CommaLocale;

constexpr int64_t kGreatest = std::numeric_limits<int64_t>::max();
constexpr int64_t kSmallest = std::numeric_limits<int64_t>::min();

static_assert(std::is_trivially_copyable_v<Amount> && sizeof(Amount) == sizeof(int64_t));
static_assert(Amount().Scaled() == 0 && Amount().IsZero());
static_assert(Amount(5).Scaled() == 50000 && Amount(-5).Scaled() == -50000);
static_assert(Amount(std::numeric_limits<int>::min()).Scaled() == -21474836480000);
static_assert(Amount::FromScaled(-7).Scaled() == -7 && !Amount::FromScaled(-7).IsZero());
static_assert(Amount(1) == Amount::FromScaled(10000) && Amount(1) > Amount::FromScaled(9999) && Amount(-1) < Amount());

// A number with a fraction says how it becomes an amount; what counts nothing is none.
template <class... Values>
constexpr bool kAreAmounts = (... &&
                              (std::is_convertible_v<Values, Amount> && std::is_constructible_v<Amount, Values>));
template <class... Values>
constexpr bool kAreNoAmounts = (... &&
                                !(std::is_convertible_v<Values, Amount> || std::is_constructible_v<Amount, Values> ||
                                  std::is_assignable_v<Amount&, Values>));
static_assert(kAreAmounts<signed char, unsigned char, short, unsigned short, int, unsigned, long, unsigned long,
                          long long, unsigned long long, const int&, size_t>);
static_assert(kAreNoAmounts<float, double, long double, const double&, bool, char, wchar_t, char8_t, char16_t, char32_t,
                            InvoiceTypes, const char*, std::nullptr_t, std::string>);

template <class Left, class Right>
concept Multiplies = requires(Left left, Right right) {
  left* right;
};
template <class Left, class Right>
concept Divides = requires(Left left, Right right) {
  left / right;
};
template <class... Values>
constexpr bool kCalculate = (... && (Multiplies<Amount, Values> && Multiplies<Values, Amount> &&
                                     Divides<Amount, Values> && Divides<Values, Amount>));
template <class... Values>
constexpr bool kDoNotCalculate = (... && !(Multiplies<Amount, Values> || Multiplies<Values, Amount> ||
                                           Divides<Amount, Values> || Divides<Values, Amount>));
static_assert(kCalculate<Amount, signed char, short, int, unsigned, long long, unsigned long long>);
static_assert(kDoNotCalculate<float, double, long double, bool, char, InvoiceTypes>);

static_assert(Amount(922337203685477).Scaled() == 9223372036854770000);
static_assert(Amount(-922337203685477).Scaled() == -9223372036854770000);
static_assert(Amount(922337203685477U).Scaled() == 9223372036854770000);
static_assert(Amount(3'000'000'000LL) == Amount::FromScaled(30'000'000'000'000));

TEST(AmountTest, WholeUnitsThatDoNotFitOverflow) {
  EXPECT_ERROR(static_cast<void>(Amount(922337203685478)), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(Amount(-922337203685478)), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(Amount(922337203685478U)), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(Amount(kGreatest)), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(Amount(kSmallest)), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(Amount(std::numeric_limits<uint64_t>::max())), 6, "ZevoAdapters11");
}

TEST(AmountTest, IsReadFromText) {
  const struct {
    std::string_view text;
    int64_t scaled;
  } kRows[] = {
      {"12.34", 123400},
      {"-12.34", -123400},
      {"+1", 10000},
      {"0", 0},
      {"-0", 0},
      {"007.5", 75000},
      {".5", 5000},
      {"5.", 50000},
      {"0.0001", 1},
      {"0.00004", 0},
      {"0.00005", 1},
      {"-0.00005", -1},
      {"-0.00004", 0},
      {"1.23454999", 12345},
      {"1.23455", 12346},
      {"922337203685477.5807", kGreatest},
      {"922337203685477.58074999", kGreatest},
      {"-922337203685477.5808", kSmallest},
      {"000000000000000000000000000000000000000000001", 10000},
  };
  for (const auto& row : kRows) EXPECT_EQ(Amount::FromText(row.text).Scaled(), row.scaled) << row.text;
}

TEST(AmountTest, OtherTextIsATypeMismatch) {
  for (const std::string_view text : {"", " ", "abc", "1,5", "1 000", " 1", "1 ", "1e3", "--1", "1-", ".", "-", "+.",
                                      "1.2.3", "0x10", "NaN", "inf", "½"}) {
    EXPECT_ERROR(Amount::FromText(text), 13, "ZevoAdapters11");
  }
}

TEST(AmountTest, TextThatDoesNotFitOverflows) {
  for (const std::string_view text :
       {"922337203685477.5808", "922337203685477.58075", "-922337203685477.5809", "-922337203685477.58085",
        "1000000000000000", "99999999999999999999999999999999"}) {
    EXPECT_ERROR(Amount::FromText(text), 6, "ZevoAdapters11");
  }
}

TEST(AmountTest, IsReadFromADoubleToTheNearest) {
  const struct {
    double value;
    int64_t scaled;
  } kRows[] = {
      {12.34, 123400},
      {-12.34, -123400},
      {0.1, 1000},
      {0.00005, 1},
      {-0.00005, -1},
      {0.000049, 0},
      {-0.0, 0},
      {1e-300, 0},
      {922337203685477.0, 9223372036854770000},
      {-922337203685477.0, -9223372036854770000},
  };
  for (const auto& row : kRows) EXPECT_EQ(Amount::FromDouble(row.value).Scaled(), row.scaled) << row.value;
}

TEST(AmountTest, ADoubleThatDoesNotFitOrIsNoNumberOverflows) {
  for (const double value : {922337203685477.625, -922337203685477.625, 922337203685478.0, -922337203685478.0, 1e300,
                             -1e300, HUGE_VAL, -HUGE_VAL, std::nan("")}) {
    EXPECT_ERROR(Amount::FromDouble(value), 6, "ZevoAdapters11");
  }
}

TEST(AmountTest, AddsAndSubtractsExactly) {
  EXPECT_EQ(Amount::FromText("0.1") + Amount::FromText("0.2"), Amount::FromText("0.3"));
  EXPECT_EQ(Amount::FromText("1") - Amount::FromText("1.0001"), Amount::FromScaled(-1));
  EXPECT_EQ(-Amount(3), Amount(-3));
  Amount total;
  total += 5;
  total -= Amount::FromText("0.5");
  EXPECT_EQ(total, Amount::FromText("4.5"));
  EXPECT_EQ(Amount::FromScaled(kGreatest) + Amount::FromScaled(kSmallest), Amount::FromScaled(-1));
  EXPECT_EQ(Amount::FromScaled(kSmallest) - Amount::FromScaled(kSmallest), Amount());
}

TEST(AmountTest, AResultThatDoesNotFitOverflowsAndLeavesTheOperandAsItWas) {
  const Amount greatest = Amount::FromScaled(kGreatest);
  const Amount smallest = Amount::FromScaled(kSmallest);
  const Amount least = Amount::FromScaled(1);
  EXPECT_ERROR(static_cast<void>(greatest + least), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(smallest - least), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(-smallest), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(least - smallest), 6, "ZevoAdapters11");
  Amount total = greatest;
  EXPECT_ERROR(total += least, 6, "ZevoAdapters11");
  EXPECT_EQ(total, greatest);
  total = smallest;
  EXPECT_ERROR(total -= least, 6, "ZevoAdapters11");
  EXPECT_EQ(total, smallest);
}

TEST(AmountTest, MultipliesAndDividesByAmountsAndWholeNumbers) {
  const Amount price = Amount::FromDouble(5.99);
  EXPECT_EQ(price * 12, Amount::FromText("71.88"));
  EXPECT_EQ(12 * price, Amount::FromText("71.88"));
  EXPECT_EQ(price * Amount::FromText("1.5"), Amount::FromText("8.985"));
  EXPECT_EQ(price * -1, -price);
  EXPECT_EQ(price * 0, Amount());
  EXPECT_EQ(Amount(100) / 3, Amount::FromText("33.3333"));
  EXPECT_EQ(Amount(200) / 3, Amount::FromText("66.6667"));
  EXPECT_EQ(100 / Amount(3), Amount::FromText("33.3333"));
  EXPECT_EQ(Amount(1) / Amount::FromText("0.0003"), Amount::FromText("3333.3333"));
  EXPECT_EQ(Amount(7) / Amount(-2), Amount::FromText("-3.5"));
  // Factors and divisors may be greater than amounts are.
  EXPECT_EQ(Amount::FromScaled(1) * 9223372036854775807, Amount::FromScaled(kGreatest));
  EXPECT_EQ(Amount::FromScaled(-1) * 9223372036854775808U, Amount::FromScaled(kSmallest));
  EXPECT_EQ(Amount::FromScaled(kSmallest) / 9223372036854775808U, Amount::FromScaled(-1));
  EXPECT_EQ(std::numeric_limits<uint64_t>::max() / Amount(1'000'000'000), Amount::FromScaled(184467440737096));
}

TEST(AmountTest, HalvesAreRoundedAwayFromZero) {
  const struct {
    int64_t dividend;
    int divisor;
    int64_t quotient;
  } kRows[] = {
      {1, 2, 1},  {-1, 2, -1}, {1, -2, -1}, {-1, -2, 1},  {3, 2, 2},       {-3, 2, -2},
      {1, 3, 0},  {2, 3, 1},   {-2, 3, -1}, {-1, 3, 0},   {149, 100, 1},   {150, 100, 2},
      {7, 14, 1}, {6, 13, 0},  {7, 13, 1},  {-7, 13, -1}, {-149, 100, -1}, {-150, 100, -2},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ((Amount::FromScaled(row.dividend) / row.divisor).Scaled(), row.quotient)
        << row.dividend << " / " << row.divisor;
  }
  EXPECT_EQ((Amount::FromScaled(1) * Amount::FromText("0.5")).Scaled(), 1);
  EXPECT_EQ((Amount::FromScaled(-1) * Amount::FromText("0.5")).Scaled(), -1);
  EXPECT_EQ((Amount::FromScaled(1) * Amount::FromText("0.4999")).Scaled(), 0);
}

TEST(AmountTest, AProductOrQuotientThatDoesNotFitOverflows) {
  const Amount greatest = Amount::FromScaled(kGreatest);
  const Amount smallest = Amount::FromScaled(kSmallest);
  EXPECT_EQ(greatest * 1, greatest);
  EXPECT_EQ(smallest * Amount(1), smallest);
  EXPECT_EQ(smallest / 1, smallest);
  EXPECT_EQ(smallest / smallest, Amount(1));
  EXPECT_EQ(greatest / Amount(-1), Amount::FromScaled(-kGreatest));
  EXPECT_ERROR(static_cast<void>(smallest * -1), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(smallest / -1), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(greatest * 2), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(greatest * greatest), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(smallest * smallest), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(smallest * std::numeric_limits<uint64_t>::max()), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(greatest / Amount::FromText("0.9999")), 6, "ZevoAdapters11");
  EXPECT_ERROR(static_cast<void>(std::numeric_limits<uint64_t>::max() / Amount(1)), 6, "ZevoAdapters11");
  // The last that fits, and the half beyond it.
  const Amount half = Amount::FromText("0.5");
  EXPECT_EQ(Amount::FromScaled(kGreatest / 2) / half, Amount::FromScaled(kGreatest - 1));
  EXPECT_ERROR(static_cast<void>(Amount::FromScaled(kGreatest / 2 + 1) / half), 6, "ZevoAdapters11");
  EXPECT_EQ(Amount::FromScaled(kSmallest / 2) / half, smallest);
  // (2^64 - 1) / 2 rounds up to 2^63, which only a negative amount can be.
  EXPECT_EQ(Amount::FromScaled(-10000) / Amount::FromScaled(20000) * 2, Amount(-1));
  EXPECT_EQ(std::numeric_limits<uint64_t>::max() / Amount::FromScaled(-200'000'000), smallest);
  EXPECT_ERROR(static_cast<void>(std::numeric_limits<uint64_t>::max() / Amount::FromScaled(200'000'000)), 6,
               "ZevoAdapters11");
}

TEST(AmountTest, DivisionByZeroIsAnErrorOfItsOwn) {
  for (const Amount amount : {Amount(), Amount(1), Amount::FromScaled(kSmallest)}) {
    EXPECT_ERROR(static_cast<void>(amount / 0), 11, "ZevoAdapters11");
    EXPECT_ERROR(static_cast<void>(amount / Amount()), 11, "ZevoAdapters11");
  }
  EXPECT_ERROR(static_cast<void>(5 / Amount()), 11, "ZevoAdapters11");
  EXPECT_EQ(testing::ErrorOf([] { static_cast<void>(Amount(1) / 0); }).Description(), "Divisão por zero.");
}

__extension__ using Exact = __int128;

// What a ratio of ten-thousandths is to be; nothing where it does not fit.
std::optional<Amount> Rounded(Exact dividend, Exact divisor) {
  Exact quotient = dividend / divisor;
  const Exact rest = dividend % divisor;
  const Exact distance = rest < 0 ? -rest : rest;
  const Exact whole = divisor < 0 ? -divisor : divisor;
  if (2 * distance >= whole) quotient += (dividend < 0) == (divisor < 0) ? 1 : -1;
  if (quotient < kSmallest || quotient > kGreatest) return {};
  return Amount::FromScaled(static_cast<int64_t>(quotient));
}

// What a calculation gives; nothing where it overflows.
template <class Calculation>
std::optional<Amount> Given(Calculation&& calculation) {
  try {
    return calculation();
  } catch (const Error& error) {
    RC_ASSERT(error.Number() == 6);
    return {};
  }
}

// Of any number of digits, and often one at which something changes.
int64_t ArbitraryNumber() {
  const int64_t edge = *rc::gen::element<int64_t>(0, 1, 10000, 1LL << 32, 1LL << 62, kGreatest, kSmallest);
  const int64_t near = *rc::gen::inRange<int64_t>(-3, 4);
  if (*rc::gen::inRange(0, 4) == 0) {
    return static_cast<int64_t>(static_cast<uint64_t>(edge) + static_cast<uint64_t>(near));
  }
  return static_cast<int64_t>(*rc::gen::resize(100, rc::gen::arbitrary<uint64_t>()) << *rc::gen::inRange(0, 32)) >>
         *rc::gen::inRange(0, 64);
}

RC_GTEST_PROP(AmountPropertyTest, ProductsAndQuotientsAreExactUntilTheyAreRounded, ()) {
  const int64_t left = ArbitraryNumber();
  const int64_t right = ArbitraryNumber();
  const Amount amount = Amount::FromScaled(left);
  const Amount other = Amount::FromScaled(right);
  RC_ASSERT(Given([&] { return amount * other; }) == Rounded(Exact{left} * right, 10000));
  RC_ASSERT(Given([&] { return other * amount; }) == Rounded(Exact{left} * right, 10000));
  RC_ASSERT(Given([&] { return amount * right; }) == Rounded(Exact{left} * right, 1));
  RC_ASSERT(Given([&] { return right * amount; }) == Rounded(Exact{left} * right, 1));
  const auto factor = static_cast<uint64_t>(right);
  RC_ASSERT(Given([&] { return amount * factor; }) == Rounded(Exact{left} * factor, 1));
  RC_PRE(right != 0);
  RC_ASSERT(Given([&] { return amount / factor; }) == Rounded(left, factor));
  RC_ASSERT(Given([&] { return amount / other; }) == Rounded(Exact{left} * 10000, right));
  RC_ASSERT(Given([&] { return amount / right; }) == Rounded(left, right));
  RC_ASSERT(Given([&] { return left / other; }) == Rounded(Exact{left} * 100000000, right));
}

RC_GTEST_PROP(AmountPropertyTest, WholeUnitsFitOrOverflow, ()) {
  const int64_t units = ArbitraryNumber();
  RC_ASSERT(Given([&] { return Amount(units); }) == Rounded(Exact{units} * 10000, 1));
  const auto most = static_cast<uint64_t>(units);
  RC_ASSERT(Given([&] { return Amount(most); }) == Rounded(Exact{most} * 10000, 1));
  RC_ASSERT(Amount(static_cast<int32_t>(units)).Scaled() == int64_t{static_cast<int32_t>(units)} * 10000);
}

TEST(AmountTest, TextAndDoubleGiveTheValue) {
  EXPECT_EQ(Amount::FromScaled(-5).Text(), "-0.0005");
  EXPECT_EQ(Amount::FromScaled(123400).Text(), "12.34");
  EXPECT_EQ(Amount::FromScaled(kSmallest).Text(), "-922337203685477.5808");
  EXPECT_DOUBLE_EQ(Amount::FromScaled(123400).ToDouble(), 12.34);
}

TEST(AmountTest, TextHasAPointWhateverTheRegionalSettings) {
  const CommaLocale locale;
  if (!locale.IsInForce()) GTEST_SKIP() << "this C library takes no locale of ours";
  EXPECT_EQ(Amount::FromScaled(123400).Text(), "12.34");
  EXPECT_EQ(Amount::FromText("12.34").Scaled(), 123400);
  EXPECT_ERROR(Amount::FromText("12,34"), 13, "ZevoAdapters11");
}

}  // namespace
}  // namespace zevo
