// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/csv/SpreadsheetCell.h"

#include <gtest/gtest.h>

#include <string>

namespace zevo::saft {
namespace {

TEST(SpreadsheetCellTest, AnApostropheThatATextGotIsTakenOff) {
  for (const std::string text : {"=1+1", "+351 232 000 027", "007", "1-2", "10-Fev-12", "5,60123E+12", "VERDADEIRO"}) {
    EXPECT_TRUE(NeedsApostrophe(text, CellKind::kText)) << text;
    EXPECT_EQ(WithoutApostrophe("'" + text, CellKind::kText), text);
    EXPECT_EQ(WithoutApostrophe(text, CellKind::kText), text);
  }
}

TEST(SpreadsheetCellTest, AnApostropheOfTheTextsOwnStays) {
  for (const std::string text : {"'", "''", "'t Hof", "'20", "'Casa", "O'Neill"}) {
    EXPECT_FALSE(NeedsApostrophe(text, CellKind::kText)) << text;
    EXPECT_EQ(WithoutApostrophe(text, CellKind::kText), text);
  }
  for (const std::string text : {"'007", "''=1"}) {
    EXPECT_TRUE(NeedsApostrophe(text, CellKind::kText)) << text;
    EXPECT_EQ(WithoutApostrophe("'" + text, CellKind::kText), text);
  }
}

TEST(SpreadsheetCellTest, DatesGetOneAsFormulasOnlyAndNumbersNone) {
  EXPECT_EQ(WithoutApostrophe("'=HOJE()", CellKind::kDate), "=HOJE()");
  EXPECT_EQ(WithoutApostrophe("'2012-01-10", CellKind::kDate), "'2012-01-10");
  EXPECT_EQ(WithoutApostrophe("'-5", CellKind::kNumber), "'-5");
}

TEST(SpreadsheetCellTest, LargeNumbersInShortLackDigits) {
  for (const char* text : {"5,60123E+12", "5.60123E+12", "-5,6E+12", "5E+12", "1,5E-07", "1,5E+100"}) {
    EXPECT_TRUE(HasLostDigits(text)) << text;
  }
  for (const char* text : {"", "E+12", "560123E+12", "5,E+12", ",5E+12", "5,6E12", "5,6E+1", "5,6E+12 ", "5,6E+12a",
                           "5;6E+12", "5,6e+12", "5,60123", "+5,6E+12", "--5,6E+12"}) {
    EXPECT_FALSE(HasLostDigits(text)) << text;
  }
}

}  // namespace
}  // namespace zevo::saft
