// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/dataset/DecimalComma.h"

#include <gtest/gtest.h>

#include <string>

#include "tools/saft/dataset/CellValue.h"
#include "tools/saft/words/SpokenLanguage.h"

namespace zevo::saft {
namespace {

struct CommaNumber {
  const char* cell;
  const char* number;
};

class DecimalCommaTest : public ::testing::TestWithParam<CommaNumber> {
 protected:
  ~DecimalCommaTest() override { Speak(Language::kEnglish); }

  // Why a cell is no number.
  static std::string Refused(const std::string& cell) {
    try {
      return "taken as " + NumberWithPoint(cell);
    } catch (const BadValue& bad) {
      return bad.what();
    }
  }
};

TEST_P(DecimalCommaTest, IsANumber) { EXPECT_EQ(NumberWithPoint(GetParam().cell), GetParam().number); }

INSTANTIATE_TEST_SUITE_P(
    All, DecimalCommaTest,
    ::testing::Values(CommaNumber{"0", "0"}, CommaNumber{"1234", "1234"}, CommaNumber{"007", "007"},
                      CommaNumber{"1234,56", "1234.56"}, CommaNumber{",5", ".5"}, CommaNumber{"5,", "5."},
                      CommaNumber{"1,234", "1.234"}, CommaNumber{"-1234,50", "-1234.50"}, CommaNumber{"+1,5", "+1.5"},
                      CommaNumber{"- 5", "-5"},
                      // Groups.
                      CommaNumber{"1.234,56", "1234.56"}, CommaNumber{"-12.345.678,9", "-12345678.9"},
                      CommaNumber{"1.234,", "1234."}, CommaNumber{"1.234.567", "1234567"},
                      CommaNumber{"1 234,56", "1234.56"}, CommaNumber{"1 234", "1234"},
                      CommaNumber{"1 234.56", "1234.56"}, CommaNumber{"1\u00A0234\u00A0567,8", "1234567.8"},
                      CommaNumber{"1\u202F234,56", "1234.56"},
                      // Points that can only be those of decimals.
                      CommaNumber{"12.5", "12.5"}, CommaNumber{"1234.56", "1234.56"},
                      CommaNumber{"1234.567", "1234.567"}, CommaNumber{"1.2345", "1.2345"},
                      CommaNumber{"0.123", "0.123"}, CommaNumber{".234", ".234"}, CommaNumber{"5.", "5."},
                      // What stands around it.
                      CommaNumber{"1234,56 €", "1234.56"}, CommaNumber{"1 234,56€", "1234.56"},
                      CommaNumber{"-5\u00A0€", "-5"}, CommaNumber{"\u00A0- 1 234,56\u202F€ ", "-1234.56"},
                      CommaNumber{"\t5,5\r\n", "5.5"}, CommaNumber{"€ 1.234,56", "1234.56"}, CommaNumber{"€5", "5"},
                      CommaNumber{"-€ 5,5", "-5.5"}, CommaNumber{"€\u00A0-5", "-5"}));

TEST_F(DecimalCommaTest, APointThatMayStandForThousandsIsRefused) {
  EXPECT_EQ(Refused("1.234"), "may be 1234 or 1,234; write one of these, without a point");
  EXPECT_EQ(Refused("-999.000 €"), "may be -999000 or -999,000; write one of these, without a point");
  Speak(Language::kPortuguese);
  EXPECT_EQ(Refused("12.345"), "tanto pode ser 12345 como 12,345; escreva uma dessas formas, sem ponto");
}

TEST_F(DecimalCommaTest, WhatIsNoNumberIsRefused) {
  for (const char* cell : {"",         " ",         "€",
                           "-",        "-€",        ",",
                           ".",        "x",         "5x",
                           "1,2,3",    "12,345.67", "1.2.3",
                           "12.34,5",  "1.23.456",  "1234.567,8",
                           "1.234.56", ".234,5",    "1..234",
                           "0.123,4",  "1.234 567", "1 234.567.890",
                           "1 23",     "1  234",    "1\u00A0234 567",
                           "--5",      "+-5",       "5-",
                           "(5)",      "5 EUR",     "€ 5 €",
                           "5 € €",    "1,5E+05",   "1,2 3",
                           "1,-5",     "\u00A0",    "１"}) {
    EXPECT_EQ(Refused(cell), "not a number such as 1234,56") << cell;
  }
  Speak(Language::kPortuguese);
  EXPECT_EQ(Refused("x"), "não é um número como 1234,56");
}

TEST_F(DecimalCommaTest, InAWholeNumberAPointStandsForThousands) {
  EXPECT_EQ(WholeNumber("12"), "12");
  EXPECT_EQ(WholeNumber("2.012"), "2012");
  EXPECT_EQ(WholeNumber("1.234.567"), "1234567");
  EXPECT_EQ(WholeNumber("-1 234"), "-1234");
  for (const char* other : {"", "x", "12,0", "12.5", "12.", "0.123", "1.2345"}) EXPECT_EQ(WholeNumber(other), other);
}

}  // namespace
}  // namespace zevo::saft
