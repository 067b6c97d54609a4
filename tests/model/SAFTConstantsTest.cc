// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <zevo/model/SAFTConstants.h>
#include <zevo/model/internal/HelperTransformations.h>

#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace zevo {
namespace {

static_assert(std::is_empty_v<SAFTConstants>);
static_assert(ReadingAborted == -2147221003);

struct CodeRow {
  int32_t value;
  std::string_view text;
};

template <class Enumeration>
void ExpectCodes(const std::vector<CodeRow>& rows) {
  static_assert(std::is_same_v<std::underlying_type_t<Enumeration>, int32_t>);
  ASSERT_EQ(CodesOf<Enumeration>().size(), rows.size());
  for (size_t i = 0; i < rows.size(); ++i) {
    const auto value = static_cast<Enumeration>(rows[i].value);
    EXPECT_EQ(CodesOf<Enumeration>()[i].value, rows[i].value);
    EXPECT_EQ(CodeText(value), rows[i].text);
    EXPECT_EQ(ValueFromCode<Enumeration>(rows[i].text), value);
  }
  for (const int32_t other : {0, 1, -1, rows.front().value - 1, rows.back().value + 1,
                              std::numeric_limits<int32_t>::max(), std::numeric_limits<int32_t>::min()}) {
    EXPECT_EQ(CodeText(static_cast<Enumeration>(other)), "") << other;
  }
  for (const std::string_view other : {"", " ", "XX", "FS", "ft", "nu", "n", "p", "c", " FT", "FT ", "N ", "FTA"}) {
    EXPECT_EQ(static_cast<int32_t>(ValueFromCode<Enumeration>(other)), 0) << other;
  }
}

TEST(SAFTConstantsTest, InvoiceTypes) {
  ExpectCodes<InvoiceTypes>({{41, "FT"},
                             {42, "ND"},
                             {43, "NC"},
                             {44, "VD"},
                             {45, "TV"},
                             {46, "TD"},
                             {47, "AA"},
                             {48, "DA"},
                             {49, "RP"},
                             {50, "RE"},
                             {51, "CS"},
                             {52, "LD"},
                             {53, "RA"}});
  EXPECT_EQ(itFT, 41);
  EXPECT_EQ(itND, 42);
  EXPECT_EQ(itNC, 43);
  EXPECT_EQ(itVD, 44);
  EXPECT_EQ(itTV, 45);
  EXPECT_EQ(itTD, 46);
  EXPECT_EQ(itAA, 47);
  EXPECT_EQ(itDA, 48);
  EXPECT_EQ(itRP, 49);
  EXPECT_EQ(itRE, 50);
  EXPECT_EQ(itCS, 51);
  EXPECT_EQ(itLD, 52);
  EXPECT_EQ(itRA, 53);
}

TEST(SAFTConstantsTest, ProductTypes) {
  ExpectCodes<ProductTypes>({{51, "P"}, {52, "S"}, {53, "O"}, {54, "I"}});
  EXPECT_EQ(ptP, 51);
  EXPECT_EQ(ptS, 52);
  EXPECT_EQ(ptO, 53);
  EXPECT_EQ(ptI, 54);
}

TEST(SAFTConstantsTest, PaymentMechanisms) {
  ExpectCodes<PaymentMechanisms>({{61, "NU"}, {62, "CH"}, {63, "CC"}, {64, "CD"}, {65, "TB"}, {66, "TR"}});
  EXPECT_EQ(pmNU, 61);
  EXPECT_EQ(pmCH, 62);
  EXPECT_EQ(pmCC, 63);
  EXPECT_EQ(pmCD, 64);
  EXPECT_EQ(pmTB, 65);
  EXPECT_EQ(pmTR, 66);
}

TEST(SAFTConstantsTest, TransactionTypes) {
  ExpectCodes<TransactionTypes>({{71, "N"}, {72, "R"}, {73, "A"}, {74, "J"}});
  EXPECT_EQ(ttN, 71);
  EXPECT_EQ(ttR, 72);
  EXPECT_EQ(ttA, 73);
  EXPECT_EQ(ttJ, 74);
}

TEST(SAFTConstantsTest, InvoiceStatuses) {
  ExpectCodes<InvoiceStatuses>({{81, "N"}, {82, "A"}, {83, "F"}, {84, "S"}});
  EXPECT_EQ(isN, 81);
  EXPECT_EQ(isA, 82);
  EXPECT_EQ(isF, 83);
  EXPECT_EQ(isS, 84);
}

TEST(SAFTConstantsTest, TaxAccountingBases) {
  ExpectCodes<TaxAccountingBasis>({{91, "C"}, {92, "F"}, {93, "I"}, {94, "P"}, {95, "S"}});
  EXPECT_EQ(tabC, 91);
  EXPECT_EQ(tabF, 92);
  EXPECT_EQ(tabI, 93);
  EXPECT_EQ(tabP, 94);
  EXPECT_EQ(tabS, 95);
}

}  // namespace
}  // namespace zevo
