// SPDX-License-Identifier: Apache-2.0
#include "tools/saft/csv/CsvWriter.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <string_view>

namespace zevo::saft {
namespace {

std::string Written(CsvForm form, std::string_view text, CellKind kind = CellKind::kText) {
  std::ostringstream out;
  CsvWriter csv(out, form);
  csv.Add(text, kind);
  csv.EndRow();
  return out.str();
}

// The cell as a spreadsheet program gets it.
std::string Cell(std::string_view text, CellKind kind = CellKind::kText) {
  std::string written = Written(CsvForm::kSpreadsheet, text, kind);
  EXPECT_TRUE(written.starts_with("\xEF\xBB\xBF") && written.ends_with("\r\n")) << written;
  return written.substr(3, written.size() - 5);
}

TEST(CsvWriterTest, ADatasetHasCommasAndLineFeeds) {
  std::ostringstream out;
  CsvWriter csv(out, CsvForm::kDataset);
  for (const char* text : {"a", "", "c d"}) csv.Add(text, CellKind::kText);
  csv.EndRow();
  csv.Add("1.50", CellKind::kNumber);
  csv.EndRow();
  EXPECT_EQ(out.str(), "a,,c d\n1.50\n");
}

TEST(CsvWriterTest, AnEmptyTextIsToldFromNothing) {
  std::ostringstream out;
  CsvWriter csv(out, CsvForm::kDataset);
  csv.Add("", CellKind::kText);
  csv.AddEmptyText();
  csv.Add("", CellKind::kText);
  csv.EndRow();
  EXPECT_EQ(out.str(), ",\"\",\n");
}

TEST(CsvWriterTest, CellsOfADatasetAreQuotedWhereTheyMustBeAndNeverChanged) {
  const auto cell = [](std::string_view text) { return Written(CsvForm::kDataset, text); };
  EXPECT_EQ(cell("a,b"), "\"a,b\"\n");
  EXPECT_EQ(cell("diz \"olá\""), "\"diz \"\"olá\"\"\"\n");
  EXPECT_EQ(cell("duas\nlinhas"), "\"duas\nlinhas\"\n");
  EXPECT_EQ(cell("a\rb"), "\"a\rb\"\n");
  EXPECT_EQ(cell("a;b"), "a;b\n");
  for (const std::string text : {"=1+1", "+351", "-5", "@x", "007", "1-2"}) EXPECT_EQ(cell(text), text + "\n");
}

TEST(CsvWriterTest, ASpreadsheetHasSemicolonsAndDecimalCommas) {
  std::ostringstream out;
  CsvWriter csv(out, CsvForm::kSpreadsheet);
  csv.Add("FT A/1", CellKind::kText);
  csv.Add("-1234.50", CellKind::kNumber);
  csv.Add("2012-01-10", CellKind::kDate);
  csv.EndRow();
  EXPECT_EQ(out.str(),
            "\xEF\xBB\xBF"
            "FT A/1;-1234,50;2012-01-10\r\n");
}

TEST(CsvWriterTest, TextsThatWouldBeCalculatedAreGuarded) {
  EXPECT_EQ(Cell("=1+1"), "'=1+1");
  EXPECT_EQ(Cell("+351 232 000 027"), "'+351 232 000 027");
  EXPECT_EQ(Cell("-10%"), "'-10%");
  EXPECT_EQ(Cell("@soma"), "'@soma");
  EXPECT_EQ(Cell("\t=1"), "'\t=1");
  EXPECT_EQ(Cell("＝1+1"), "'＝1+1");
  EXPECT_EQ(Cell("\xEF\xBB\xBF=1"), "'\xEF\xBB\xBF=1");
  EXPECT_EQ(Cell("=A1;B1"), "\"'=A1;B1\"");
  // What should be a date, and is none.
  EXPECT_EQ(Cell("=HOJE()", CellKind::kDate), "'=HOJE()");
}

TEST(CsvWriterTest, NumbersAreNeverGuarded) {
  EXPECT_EQ(Cell("-5", CellKind::kNumber), "-5");
  EXPECT_EQ(Cell("+1.5", CellKind::kNumber), "+1,5");
  EXPECT_EQ(Cell("007", CellKind::kNumber), "007");
}

TEST(CsvWriterTest, TextsThatWouldBecomeNumbersOrDatesAreGuarded) {
  for (const std::string text :
       {"007",      "123456789012",  "1-2",        "3/4/10", "10:30",   "1E5",   "1.5",       "1,5",
        "3500-115", "10%",           "(5)",        "5€",     "5 €",     "1 jan", "10-Fev-12", "jan/12",
        "2 março",  "Dezembro 2012", "VERDADEIRO", "false",  "5,6E+12", "'007"}) {
    EXPECT_TRUE(Cell(text).find('\'' + text) != std::string::npos) << text;
  }
}

TEST(CsvWriterTest, OtherTextsAreLeftAlone) {
  for (const std::string text : {"", "0", "211", "12345678901", "Rua 7", "1.º andar", "FT A/1", "2 e meio", "Janela",
                                 "2 janelas", "(sem nome)", "Falso alarme", "Março", "set", "Marco 2", "7 dias"}) {
    EXPECT_EQ(Cell(text), text);
  }
}

}  // namespace
}  // namespace zevo::saft
